#include "app/commandTitle.h"

#include "link/ComioInterfaceCommand.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

struct Title
{
    quint32 command;
    const char *text;
};

constexpr Title titles[] = {
    {COMIO_CMD_SET_CONFIG, QT_TRANSLATE_NOOP("commandTitle", "Write configuration")},
    {COMIO_CMD_GET_CONFIG, QT_TRANSLATE_NOOP("commandTitle", "Read configuration")},
    {COMIO_CMD_SET_SERIAL, QT_TRANSLATE_NOOP("commandTitle", "Write factory settings")},
    {COMIO_CMD_GET_FACTORY_SETTINGS, QT_TRANSLATE_NOOP("commandTitle", "Read factory settings")},
    {COMIO_CMD_GET_DEVICE_ID, QT_TRANSLATE_NOOP("commandTitle", "Identify camera")},
    {COMIO_CMD_VLC_PREVIEW_ZOOM, QT_TRANSLATE_NOOP("commandTitle", "Zoom preview")},
    {COMIO_CMD_SET_LIVE_SETTINGS, QT_TRANSLATE_NOOP("commandTitle", "Live settings")},
    {COMIO_CMD_GET_SBUS_LEVELS, QT_TRANSLATE_NOOP("commandTitle", "Read SBUS levels")},
    {COMIO_CMD_TRIGGER, QT_TRANSLATE_NOOP("commandTitle", "Trigger")},
    {COMIO_CMD_GPS_STREAM, QT_TRANSLATE_NOOP("commandTitle", "GPS stream")},
    {COMIO_CMD_VLC_AUTO_ADJUST_FOCUS, QT_TRANSLATE_NOOP("commandTitle", "Auto focus")},
    {COMIO_CMD_SET_DISPLACEMENT_HDMI, QT_TRANSLATE_NOOP("commandTitle", "HDMI displacement")},
    {COMIO_CMD_SET_DISPLACEMENT_ANALOG, QT_TRANSLATE_NOOP("commandTitle", "Analog displacement")},
    {COMIO_CMD_DO_FFC, QT_TRANSLATE_NOOP("commandTitle", "Flat-field correction")},
    {COMIO_CMD_IR_ADJUST, QT_TRANSLATE_NOOP("commandTitle", "Infrared adjustment")},
};

} // namespace

QString commandTitle(quint32 command)
{
    const auto it = std::find_if(std::begin(titles), std::end(titles),
                                 [=](const Title &title) { return title.command == command; });
    return it == std::end(titles)
               ? QCoreApplication::translate("commandTitle", "Command %1").arg(command)
               : QCoreApplication::translate("commandTitle", it->text);
}
