#include "simulator/CommandNames.h"

#include "link/ComioInterfaceCommand.h"

namespace {

struct Name
{
    quint32 command;
    const char *name;
};

#define NAME(command)                                                                              \
    {                                                                                              \
        command, #command                                                                          \
    }
constexpr Name names[] = {
    NAME(COMIO_CMD_UNKNOWN),
    NAME(COMIO_CMD_CRC_ERROR),
    NAME(COMIO_CMD_SET_CONFIG),
    NAME(COMIO_CMD_GET_CONFIG),
    NAME(COMIO_CMD_GET_CONTROL_STRUCT),
    NAME(COMIO_CMD_SET_SERIAL),
    NAME(COMIO_CMD_GET_FACTORY_SETTINGS),
    NAME(COMIO_CMD_GET_DEVICE_ID),
    NAME(COMIO_CMD_VLC_PREVIEW_ZOOM),
    NAME(COMIO_CMD_SBUS_LEVELS),
    NAME(COMIO_CMD_SET_LIVE_SETTINGS),
    NAME(COMIO_CMD_GET_SBUS_LEVELS),
    NAME(COMIO_CMD_TRIGGER),
    NAME(COMIO_CMD_GPS_STREAM),
    NAME(COMIO_CMD_GPS_STREAM_DATA),
    NAME(COMIO_CMD_VLC_AUTO_ADJUST_FOCUS),
    NAME(COMIO_CMD_SET_DISPLACEMENT_HDMI),
    NAME(COMIO_CMD_SET_DISPLACEMENT_ANALOG),
    NAME(COMIO_CMD_DO_FFC),
    NAME(COMIO_CMD_IR_ADJUST),
    NAME(COMIO_CMD_ALL_BITS_SET),
};
#undef NAME

const char *nameOf(quint32 command)
{
    for (const Name &entry : names) {
        if (entry.command == command)
            return entry.name;
    }
    return nullptr;
}

QString withCode(const QString &name, quint32 command)
{
    return QStringLiteral("%1 (%2)").arg(name).arg(command);
}

} // namespace

QString requestName(quint32 command)
{
    const char *name = nameOf(command);
    return withCode(QString::fromLatin1(name ? name : "unknown command"), command);
}

QString answerName(quint32 command)
{
    if (const char *name = nameOf(command - 100U); name && command != COMIO_CMD_UNKNOWN)
        return withCode(QLatin1String(name) + QLatin1String("_REPLY_OK"), command);
    if (const char *name = nameOf(command - 200U); name && command != COMIO_CMD_UNKNOWN)
        return withCode(QLatin1String(name) + QLatin1String("_REPLY_FAIL"), command);
    return requestName(command);
}
