#pragma once

#include <QMetaType>
#include <QtGlobal>

/// Command code of every message between tool and camera, sent big-endian in the frame header.
/// The camera answers command C with C + 100 (accepted, perhaps with data) or C + 200 (rejected).
/// Unless noted the tool sends the command and the payload is the tool's.
enum ComioInterfaceCommand_TypeDef : quint32 {
    COMIO_CMD_UNKNOWN = 0,   ///< from the camera: it did not recognise the command
    COMIO_CMD_CRC_ERROR = 1, ///< never on the line: the parser's word for a frame with a wrong CRC
    COMIO_CMD_SET_CONFIG = 101,              ///< configuration record; the camera restarts after it
    COMIO_CMD_GET_CONFIG = 102,              ///< no payload; the reply carries the record
    COMIO_CMD_GET_CONTROL_STRUCT = 108,      ///< never sent; its reply is handled like that of 102
    COMIO_CMD_SET_SERIAL = 110,              ///< factory record, 416 or 32 bytes
    COMIO_CMD_GET_FACTORY_SETTINGS = 111,    ///< no payload; the reply carries the factory record
    COMIO_CMD_GET_DEVICE_ID = 116,           ///< no payload; the reply carries the identity
    COMIO_CMD_VLC_PREVIEW_ZOOM = 117,        ///< 2 bytes: 'a', zoom
    COMIO_CMD_SBUS_LEVELS = 120,             ///< never sent; its reply carries channel levels
    COMIO_CMD_SET_LIVE_SETTINGS = 122,       ///< configuration record, used at once and not stored
    COMIO_CMD_GET_SBUS_LEVELS = 123,         ///< no payload; the reply carries channel levels
    COMIO_CMD_TRIGGER = 124,                 ///< 1 byte: 1 start, 0 stop
    COMIO_CMD_GPS_STREAM = 125,              ///< 1 byte: 1 start, 0 stop
    COMIO_CMD_GPS_STREAM_DATA = 126,         ///< never sent; its reply carries one line of GPS text
    COMIO_CMD_VLC_AUTO_ADJUST_FOCUS = 128,   ///< 17 fixed bytes; the reply carries the focus value
    COMIO_CMD_SET_DISPLACEMENT_HDMI = 130,   ///< 14 bytes: seven int16, A to G
    COMIO_CMD_SET_DISPLACEMENT_ANALOG = 131, ///< 14 bytes: seven int16, A to G
    COMIO_CMD_DO_FFC = 133,                  ///< 1 byte: 1
    COMIO_CMD_IR_ADJUST = 155,               ///< 4 bytes: offset, factor as 16-bit numbers

    COMIO_CMD_SET_SERIAL_REPLY_OK = 210,
    /// Sent without payload after an acknowledged configuration write: the camera restarts.
    COMIO_CMD_ALL_BITS_SET = 0xFFFFFFFF,
};

/// Code that acknowledges `command`; 32-bit arithmetic wraps, so 0xFFFFFFFF gives 99.
constexpr ComioInterfaceCommand_TypeDef replyOk(quint32 command)
{
    return static_cast<ComioInterfaceCommand_TypeDef>(command + 100U);
}

/// Code that rejects `command`; 0xFFFFFFFF gives 199.
constexpr ComioInterfaceCommand_TypeDef replyFail(quint32 command)
{
    return static_cast<ComioInterfaceCommand_TypeDef>(command + 200U);
}

Q_DECLARE_METATYPE(ComioInterfaceCommand_TypeDef)
