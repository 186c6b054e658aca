#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

/// The fields of the two configuration records: where they lie, and which bytes stand for which
/// value of which widget. Typed from the records' description, apart from the program's tables.
/// Values are written as support/widgetvalues.h does.
namespace configurationfields {

enum Use {
    Both,  ///< read and written so
    Read,  ///< shown so, but written differently
    Write, ///< written so, but read differently
    Kept,  ///< unknown bytes that leave the widget as it is
};

struct Sample
{
    QByteArray bytes;
    QString value;
    Use use = Both;
};
using Samples = std::vector<Sample>;

struct Field
{
    const char *widget;
    int blendOffset; ///< -1: not in this record
    int zoomOffset;
    Samples samples;
    bool shownByBlend = true; ///< else the field is only written
    bool shownByZoom = true;

    /// Values that the widget can have before `sample` is read: two at most, none of them its own.
    QStringList othersThan(const Sample &sample) const
    {
        QStringList others;
        for (const Sample &other : samples)
            if (other.use == Both && (sample.use == Kept || other.value != sample.value))
                others << other.value;
        return others.size() < 3 ? others : QStringList{others.first(), others.last()};
    }
};

inline Sample sample(const char *hex, const char *value, Use use = Both)
{
    return {QByteArray::fromHex(hex), QString::fromLatin1(value), use};
}

/// List positions 0 to count - 1 as a byte.
inline Samples positions(int count)
{
    Samples samples;
    for (int i = 0; i < count; ++i)
        samples.push_back({QByteArray(1, static_cast<char>(i)), QString::number(i)});
    samples.push_back({QByteArray(1, static_cast<char>(count)), QStringLiteral("-1"), Read});
    samples.push_back(sample("80", "-1", Read));
    samples.push_back(sample("ff", "-1"));
    return samples;
}

inline Samples check()
{
    return {sample("00", "0"), sample("01", "1"), sample("02", "1", Read), sample("ff", "1", Read)};
}

/// Keys by list position, given their values; 200 is the value of no key.
inline Samples keys(const std::vector<int> &values, const std::vector<int> &notInTheList)
{
    Samples samples;
    for (std::size_t i = 0; i < values.size(); ++i)
        samples.push_back({QByteArray(1, static_cast<char>(values[i])), QString::number(i)});
    for (const int value : notInTheList)
        samples.push_back({QByteArray(1, static_cast<char>(value)), QString(), Kept});
    samples.push_back(sample("c8", "", Kept));
    samples.push_back(sample("ff", "", Kept));
    samples.push_back(sample("ff", "-1", Write));
    return samples;
}

inline Samples shutterSpeeds()
{
    std::vector<int> values;
    for (int value = 21; value >= 0; --value)
        values.push_back(value);
    return keys(values, {22});
}

inline Samples threshold()
{
    return {sample("effe", "-273"),       sample("ffff", "-1"),
            sample("0000", "0"),          sample("e803", "1000"),
            sample("0080", "-273", Read), sample("eefe", "-273", Read),
            sample("e903", "1000", Read), sample("ff7f", "1000", Read)};
}

inline const std::vector<Field> &all()
{
    static const std::vector<Field> fields{
        {"cbBaudrate",
         12,
         12,
         {sample("b0040000", "0"), sample("60090000", "1"), sample("c0120000", "2"),
          sample("80250000", "3"), sample("004b0000", "4"), sample("00960000", "5"),
          sample("00e10000", "6"), sample("00c20100", "7"), sample("00840300", "8"),
          sample("00080700", "9"), sample("00100e00", "10"), sample("40380000", "", Kept), // 14400
          sample("00000000", "", Kept), sample("ffffffff", "", Kept),
          sample("00000000", "-1", Write)}},
        {"cbParity", 16, 16, positions(3)},
        {"cbStopBit",
         17,
         17,
         {sample("01", "0"), sample("02", "1"), sample("00", "", Kept), sample("03", "", Kept),
          sample("00", "-1", Write)}},
        {"cbInverted", 18, 18, check()},
        {"cbPeripheryGimbalrc", 19, 19, check()},
        {"cbPeripheryGPS", 20, 20, positions(4)},
        {"cb_pheriphery_externalshutter_installed", 21, 21, check()},
        {"sb_eso_heating",
         22,
         22,
         {sample("00000000", "0"), sample("e8030000", "1000"), sample("e9030000", "1000", Read),
          sample("ffffffff", "0", Read)}},
        {"sb_eso_heatcycle",
         26,
         26,
         {sample("00000000", "0"), sample("d0070000", "2000"), sample("ffffff7f", "2000", Read),
          sample("00000080", "0", Read)}},
        {"sb_eso_offset",
         30,
         30,
         {sample("30f8ffff", "-20"), sample("00000000", "0"), sample("7d000000", "1.25"),
          sample("d0070000", "20"), sample("38000000", "0.57", Write), // one hundredth is lost
          sample("38000000", "0.56", Read), sample("1c000000", "0.29", Write),
          sample("e4ffffff", "-0.29", Write), sample("e4ffffff", "-0.28", Read),
          sample("ffffff7f", "20", Read), sample("2ff8ffff", "-20", Read)}},
        {"sb_eso_shutterinterval",
         34,
         34,
         {sample("00000000", "0"), sample("100e0000", "3600"), sample("110e0000", "3600", Read)}},
        {"sb_eso_opt5",
         38,
         38,
         {sample("00000000", "0"), sample("63000000", "99"), sample("64000000", "99", Read)}},
        {"cBOverlayMode", 42, 44, positions(2), false, false},
        {"cbLiveviewMode", 44, 46, positions(7)},
        {"cbLiveview_colormap", 57, 59, positions(4)},
        {"cbFFCmode",
         67,
         78,
         {sample("0000", "0"), sample("0100", "1"), sample("0200", "2"), sample("0300", "3"),
          sample("ffff", "-1"), sample("0400", "-1", Read), sample("0001", "-1", Read)}},
        {"sbFFCdelay", // milliseconds
         69,
         80,
         {sample("00000000", "0"), sample("e8030000", "1"), sample("c0d40100", "120"),
          sample("005c2605", "86400"), sample("cf070000", "1", Read), sample("e7030000", "0", Read),
          sample("ffffffff", "86400", Read)}},
        {"leFrameSkip",
         74,
         87,
         {sample("00000000", "0"), sample("78563412", "305419896"),
          sample("ffffffff", "4294967295"), sample("00000000", "abc", Write),
          sample("00000000", "4294967296", Write), sample("00000000", "", Write),
          sample("00000000", "-1", Write)}},
        {"cbTriggerPinMode", 78, 91, positions(6)},
        {"cbTriggerFFCMode", 79, 92, positions(2)},
        {"cbTriggerFrameMode", 80, 93, positions(2)},
        {"cbIsothermsState", 92, 107, positions(4)},
        {"cbIsothermsTransparency", 93, 108, positions(2)},
        {"cbIsothermSwitchMode", 94, 109, positions(2)},
        {"sbIsothermsLower", 95, 110, threshold()},
        {"sbIsothermsMiddle", 97, 112, threshold()},
        {"sbIsothermsUpper", 99, 114, threshold()},
        {"cbSbusColormap", 101, 116, positions(19)},
        {"cbSbusColorMapSwitchMode", 102, 117, positions(2), true, false},
        {"cbSbusFFC", 103, 118, positions(19)},
        {"cbSbusIsotherms", 104, 119, positions(19)},
        {"cbSbusIsoTransparency", 105, 120, positions(19)},
        {"cbSbusIsoLow", 106, 121, positions(19)},
        {"cbSbusIsoMid", 107, 122, positions(19)},
        {"cbSbusIsoUp", 108, 123, positions(19)},
        {"cbSbusOverlay", 109, 124, positions(19)},
        {"cbSbusTrigger", 110, 125, positions(19)},
        {"cbSbusViewmode", 111, 126, positions(19)},

        {"sbVLCevcorrection",
         62,
         -1,
         {sample("fa", "-6"), sample("00", "0"), sample("06", "6"), sample("80", "-6", Read),
          sample("07", "6", Read)}},
        {"cbVLCAdaptiveGradiationCorrection", 63, -1, positions(2)},
        {"cbVLCWhiteBalanceMode", 64, -1, positions(9)},
        {"sbVLCFocusAdjustment",
         65,
         -1,
         {sample("5f", "-31"), sample("45", "-5"), sample("41", "-1"), sample("00", "0"),
          sample("c1", "1"), sample("c5", "5"), sample("df", "31"), sample("9f", "0", Read),
          sample("1f", "0", Read), sample("80", "0", Read), sample("40", "0", Read),
          sample("c0", "0", Read), sample("7f", "-31", Read), sample("ff", "31", Read)}},
        {"cbSbusViewModeSwitchMode", 112, -1, positions(2)},

        {"cbAnalogVideoMode", -1, 42, positions(2)},
        {"cbHDMIVideoMode",
         -1,
         43,
         {sample("00", "0"), sample("01", "1"), sample("02", "", Kept), sample("ff", "", Kept)}},
        {"cb_vlc_cam", -1, 60, positions(2)},
        {"cb_vlc_ae_mode", -1, 62, keys({0, 10}, {1, 3, 11, 12})},
        {"cb_vlc_ae_shutterspeed", -1, 63, shutterSpeeds()},
        {"cbVLCTamronFocus", -1, 69, positions(3)},
        {"hsTamronfocusvalue",
         -1,
         70,
         {sample("0010", "4096"), sample("8010", "4224"), sample("00b0", "45056"),
          sample("0000", "4096", Read), sample("ffff", "45056", Read)}},
        {"cbVibrationCompensation",
         -1,
         72,
         {sample("03", "0"), sample("02", "1"), sample("00", "", Kept), sample("01", "", Kept),
          sample("04", "", Kept)}},
        {"sbTamronZoom",
         -1,
         76,
         {sample("0000", "1"), sample("0400", "5"), sample("0900", "10"),
          sample("1400", "10", Read), sample("ffff", "10", Read)}},
        {"sbJPEGcompressionDaylight", // between these the slider of the pair moves the box
         -1,
         84,
         {sample("4b", "75"), sample("55", "85"), sample("5f", "95"), sample("01", "1", Write),
          sample("63", "99", Write)}},
        {"cbImageOutput", -1, 86, positions(2)},
        {"cbSBUSInverSignal", -1, 95, check()},
        {"cBAdvacedSync", -1, 96, positions(2)},
        {"cbSbusZoom", -1, 127, positions(19)},
        {"cbSbusZoomMode", -1, 128, positions(3)},
        {"cbTestmodesTaucore", -1, 220, positions(2)},
    };
    return fields;
}

/// The lists of the extension ports, which hold the modes of the model.
inline std::vector<Field> extensions(bool zoom)
{
    if (zoom)
        return {{"cBext0mode", -1, 97, keys({0, 1, 4, 9, 7, 5}, {2, 3, 6, 8, 10, 11})},
                {"cBext1mode", -1, 98, keys({0, 2, 10, 8, 6}, {1, 3, 4, 5, 7, 9, 11})}};
    return {{"cBext0mode", 82, -1, keys({0, 5}, {1, 2, 3, 4, 6, 7, 8, 9, 10, 11})},
            {"cBext1mode", 83, -1, keys({0, 6}, {1, 2, 3, 4, 5, 7, 8, 9, 10, 11})}};
}

} // namespace configurationfields
