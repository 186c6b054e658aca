#pragma once

#include <QString>

/// "COMIO_CMD_GET_CONFIG (102)", and for an answer to it "COMIO_CMD_GET_CONFIG_REPLY_OK (202)" or
/// "COMIO_CMD_GET_CONFIG_REPLY_FAIL (302)"; "unknown command (77)" for a code without a name.
QString requestName(quint32 command);
QString answerName(quint32 command);
