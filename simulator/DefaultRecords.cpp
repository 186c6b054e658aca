#include "simulator/DefaultRecords.h"

#include "simulator/defects.h"

#include "records/blendFields.h"
#include "records/blendZoomFields.h"
#include "records/factoryFields.h"

#include <algorithm>
#include <cstring>

namespace {

using vocabularies::sbusDeactivated;

PeripheryFields periphery()
{
    PeripheryFields fields{};
    fields.baudrate = 115200;
    fields.stop_bits = 1;
    fields.signal_inverted = 1;
    fields.gps_receiver = 3;
    fields.ext_shutter_heating = 800;
    fields.ext_shutter_heat_cycle = 1000;
    fields.ext_shutter_offset = 150;
    fields.ext_shutter_interval = 45;
    return fields;
}

TriggerFields trigger()
{
    TriggerFields fields{};
    fields.pin_mode = 1;
    fields.ffc_mode = 1;
    return fields;
}

IsothermFields isotherms()
{
    IsothermFields fields{};
    fields.state = 1;
    fields.transparency = 1;
    fields.lower = 18;
    fields.middle = 36;
    fields.upper = 44;
    return fields;
}

SbusFields sbus()
{
    SbusFields fields{};
    fields.colormap = 5;
    fields.ffc = 3;
    fields.isotherms = 7;
    fields.iso_transparency = sbusDeactivated;
    fields.iso_lower = 8;
    fields.iso_middle = 9;
    fields.iso_upper = 10;
    fields.overlay = sbusDeactivated;
    fields.trigger = 1;
    fields.view_mode = 4;
    return fields;
}

/// What both layouts fill alike, wherever it lies in them.
template <class Record>
void fillShared(Record &record)
{
    record.periphery = periphery();
    record.liveview_mode = 3;
    record.liveview_colormap = 2;
    record.ffc_mode = 1;
    record.ffc_delay = 240000;
    record.frame_skip = 2;
    record.trigger = trigger();
    record.isotherms = isotherms();
    record.sbus = sbus();
    record.thresholds.low.fill(688);
    record.thresholds.high.fill(1366);
}

/// A record of which only the fixed bytes are set.
template <class Record>
Record blankRecord()
{
    const QByteArray bytes = blank(layoutOf<Record>);
    Record record;
    std::memcpy(&record, bytes.constData(), sizeof record);
    return record;
}

template <class Record>
QByteArray bytesOf(Record &record)
{
    seal(layoutOf<Record>, reinterpret_cast<uchar *>(&record));
    return QByteArray(reinterpret_cast<const char *>(&record), sizeof record);
}

QByteArray blendConfiguration()
{
    auto record = blankRecord<thermalCommPacket_Blend_R8_TypeDef>();
    fillShared(record);
    record.vlc_ev_correction = -1;
    record.vlc_adaptive_gradation = 1;
    record.vlc_white_balance = 5;
    record.vlc_focus = 0x4A; // -10
    record.sbus_view_mode_switch_mode = 1;
    return bytesOf(record);
}

QByteArray blendZoomConfiguration()
{
    auto record = blankRecord<thermalCommPacket_Blend_Zoom_R13_TypeDef>();
    fillShared(record);
    record.vlc_ae_mode = 10;         // shutter priority
    record.vlc_ae_shutter_speed = 9; // 1/120 s
    record.tamron_focus_mode = 2;
    record.tamron_focus_position = 12288;
    record.vibration_compensation = 2;
    record.zoom_step = 2;
    record.jpeg_quality_daylight = 85;
    record.ext0_mode = 4;  // image sync on port 0
    record.ext1_mode = 10; // command line on port 1
    record.sbus_zoom = 6;
    record.sbus_zoom_mode = 2;
    return bytesOf(record);
}

void putSerial(std::array<char, 12> &field, const QByteArray &serial)
{
    std::copy_n(serial.constData(), std::min<size_t>(serial.size(), field.size()), field.begin());
}

QByteArray blendFactoryRecord(const QByteArray &serial)
{
    auto record = blankRecord<FactorySettings_QXBlend_TypeDef>();
    putSerial(record.device_serial_number, serial);
    record.ardview_horizontal = 3;
    record.ardview_vertical = -2;
    record.liveview_horizontal = 46;
    record.liveview_vertical = 17;
    record.ardview_scale = 480;
    return bytesOf(record);
}

// Rows A to G by zoom position 1 to 10, a calibrated unit's placement of the infrared picture.
using DisplacementTable = qint16[7][10];
constexpr DisplacementTable hdmi = {
    {479, 27, 0, 0, 0, 0, 0, 0, 0, 0},
    {191, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {945, 1832, 1919, 1919, 1919, 1919, 1919, 1919, 1919, 1919},
    {756, 1079, 1079, 1079, 1079, 1079, 1079, 1079, 1079, 1079},
    {378, 733, 1098, 1452, 1838, 2246, 2554, 2902, 3296, 3704},
    {0, 2, 105, 157, 196, 219, 232, 243, 253, 262},
    {0, 42, 105, 146, 167, 180, 187, 195, 201, 206},
};
constexpr DisplacementTable analog = {
    {21, 21, 21, 21, 21, 21, 21, 21, 21, 21},
    {50, 50, 50, 50, 50, 50, 50, 50, 50, 50},
    {471, 798, 798, 798, 798, 798, 798, 798, 798, 798},
    {378, 599, 599, 599, 599, 599, 599, 599, 599, 599},
    {189, 366, 549, 726, 919, 1123, 1277, 1451, 1648, 1852},
    {0, 40, 134, 178, 209, 229, 239, 249, 257, 264},
    {0, 46, 116, 150, 178, 187, 195, 203, 209, 214},
};
constexpr int ardview[3][10] = {
    {22, 5, 0, 0, 0, 0, 0, 0, 0, 0},
    {-19, -1, 0, 0, 0, 0, 0, 0, 0, 0},
    {620, 350, 231, 180, 141, 130, 120, 110, 101, 100},
};

QByteArray blendZoomFactoryRecord(const QByteArray &serial)
{
    auto record = blankRecord<FactorySettings_QXBlendZoom_TypeDef>();
    putSerial(record.device_serial_number, serial);
    for (size_t zoom = 0; zoom < 10; ++zoom) {
        for (size_t row = 0; row < 7; ++row) {
            record.hdmi_displacement[zoom][row] = hdmi[row][zoom];
            record.analog_displacement[zoom][row] = analog[row][zoom];
        }
        for (size_t row = 0; row < 3; ++row)
            record.ardview_adjust[zoom][row] = ardview[row][zoom];
    }
    return bytesOf(record);
}

} // namespace

QByteArray defaultConfiguration(const Model &model)
{
    switch (model.key) {
    case thermalCommPacket_Blend_R8_TypeDef::deviceKey:
        return blendConfiguration();
    case thermalCommPacket_Blend_Zoom_R13_TypeDef::deviceKey:
        return blendZoomConfiguration();
    default:
        return {};
    }
}

QByteArray defaultFactoryRecord(const Model &model, const QByteArray &serial)
{
    switch (model.key) {
    case thermalCommPacket_Blend_R8_TypeDef::deviceKey:
        return blendFactoryRecord(serial);
    case thermalCommPacket_Blend_Zoom_R13_TypeDef::deviceKey:
        return blendZoomFactoryRecord(serial);
    default:
        return {};
    }
}

QByteArray factorySerial(const Model &model, const QByteArray &record)
{
    if (!factoryDefect(model, record).isEmpty())
        return {};
    const Wire place = model.factory->field(QLatin1String("serial-number"))->wire;
    const QByteArray serial = record.mid(place.offset, place.size());
    if (serial == QByteArray(serial.size(), '\xFF'))
        return {};
    return serial.left(int(qstrnlen(serial.constData(), uint(serial.size()))));
}
