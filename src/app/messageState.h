#pragma once

#include "link/ComioInterfaceCommand.h"

#include <QByteArray>
#include <QPointer>
#include <QTimer>

/// The command that the main window sent last.
struct MessageState
{
    ComioInterfaceCommand_TypeDef command = COMIO_CMD_UNKNOWN;
    qint64 sendTime = 0; ///< milliseconds since the Unix epoch
    qint64 timeout = 0;  ///< milliseconds; kept with the record, nothing reads it
    bool replied = true; ///< false from the send to its acknowledgement or rejection
    QByteArray frame;    ///< as it went to the port
    QPointer<QTimer> timer;
};

/// One for the process: a new send overwrites it, answered or not.
inline MessageState messageState;
