#pragma once

#include "records/Vocabulary.h"

#include <QtGlobal>

/// The lists of choices of the configuration records. Operators know these texts: odd spellings are
/// theirs. Marked texts are shown translated in a window.
namespace vocabularies {

/// What a check box shows: any number but 0 is "on".
inline constexpr Vocabulary offOn = Vocabulary::positions("off", "on").otherwiseLast();

inline constexpr Vocabulary offOnCapitals = Vocabulary::positions(
    QT_TRANSLATE_NOOP("MainWindow", "OFF"), QT_TRANSLATE_NOOP("MainWindow", "ON"));

inline constexpr Vocabulary baudRates = Vocabulary::of({
    {1200, "1200"},
    {2400, "2400"},
    {4800, "4800"},
    {9600, "9600"},
    {19200, "19200"},
    {38400, "38400"},
    {57600, "57600"},
    {115200, "115200"},
    {230400, "230400"},
    {460800, "460800"},
    {921600, "921600"},
});

inline constexpr Vocabulary parities = Vocabulary::positions(
    QT_TRANSLATE_NOOP("MainWindow", "none"), QT_TRANSLATE_NOOP("MainWindow", "odd"),
    QT_TRANSLATE_NOOP("MainWindow", "even"));

inline constexpr Vocabulary stopBits = Vocabulary::of({{1, "1"}, {2, "2"}});

inline constexpr Vocabulary gpsReceivers = Vocabulary::positions(
    QT_TRANSLATE_NOOP("MainWindow", "Custom settings"),
    QT_TRANSLATE_NOOP("MainWindow", "Quorvix GPS Receiver - based on u-blox 6 SuperSense® chipset"),
    QT_TRANSLATE_NOOP(
        "MainWindow",
        "Quorvix GPS Receiver - 1Hz, based on u-blox 8 Multi GNSS UBX-M8030-KT chipset"),
    QT_TRANSLATE_NOOP(
        "MainWindow",
        "Quorvix GPS Receiver - 10Hz, based on u-blox 8 Multi GNSS UBX-M8030-KT chipset"));

inline constexpr Vocabulary triggerModes =
    Vocabulary::positions(QT_TRANSLATE_NOOP("MainWindow", "ON/OFF"), "SBUS",
                          QT_TRANSLATE_NOOP("MainWindow", "Serial input"),
                          QT_TRANSLATE_NOOP("MainWindow", "PWM (normal)"),
                          QT_TRANSLATE_NOOP("MainWindow", "PWM (inverted)"), "PPM");

inline constexpr Vocabulary triggerFfcModes = Vocabulary::positions(
    QT_TRANSLATE_NOOP("MainWindow", "no additional FFC on trigger start (default)"),
    QT_TRANSLATE_NOOP("MainWindow", "additional FFC on trigger start"));

inline constexpr Vocabulary triggerFrameModes =
    Vocabulary::positions(QT_TRANSLATE_NOOP("MainWindow", "Ongoing stream (default)"),
                          QT_TRANSLATE_NOOP("MainWindow", "Single frame capture"));

inline constexpr Vocabulary ffcModes = Vocabulary::positions(
    QT_TRANSLATE_NOOP("MainWindow", "FFC Automatic (default)"),
    QT_TRANSLATE_NOOP("MainWindow", "FFC fixed time intervalls, do not interrupt recordings"),
    QT_TRANSLATE_NOOP("MainWindow", "FFC fixed time intervalls, ignore recoding state"),
    QT_TRANSLATE_NOOP("MainWindow", "FFC External"));

inline constexpr Vocabulary sbusChannels = Vocabulary::positions(
    QT_TRANSLATE_NOOP("MainWindow", "Channel 1"), QT_TRANSLATE_NOOP("MainWindow", "Channel 2"),
    QT_TRANSLATE_NOOP("MainWindow", "Channel 3"), QT_TRANSLATE_NOOP("MainWindow", "Channel 4"),
    QT_TRANSLATE_NOOP("MainWindow", "Channel 5"), QT_TRANSLATE_NOOP("MainWindow", "Channel 6"),
    QT_TRANSLATE_NOOP("MainWindow", "Channel 7"), QT_TRANSLATE_NOOP("MainWindow", "Channel 8"),
    QT_TRANSLATE_NOOP("MainWindow", "Channel 9"), QT_TRANSLATE_NOOP("MainWindow", "Channel 10"),
    QT_TRANSLATE_NOOP("MainWindow", "Channel 11"), QT_TRANSLATE_NOOP("MainWindow", "Channel 12"),
    QT_TRANSLATE_NOOP("MainWindow", "Channel 13"), QT_TRANSLATE_NOOP("MainWindow", "Channel 14"),
    QT_TRANSLATE_NOOP("MainWindow", "Channel 15"), QT_TRANSLATE_NOOP("MainWindow", "Channel 16"),
    QT_TRANSLATE_NOOP("MainWindow", "Channel 17"), QT_TRANSLATE_NOOP("MainWindow", "Channel 18"),
    QT_TRANSLATE_NOOP("MainWindow", "Deactivated"));

/// What "Deactivated" of sbusChannels stores.
inline constexpr quint8 sbusDeactivated = 18;

inline constexpr Vocabulary sbusSwitchModes =
    Vocabulary::positions(QT_TRANSLATE_NOOP("MainWindow", "high/low (default)"),
                          QT_TRANSLATE_NOOP("MainWindow", "absolute"));

inline constexpr Vocabulary sbusZoomModes =
    Vocabulary::positions(QT_TRANSLATE_NOOP("MainWindow", "high/low (default)"),
                          QT_TRANSLATE_NOOP("MainWindow", "absolute"),
                          QT_TRANSLATE_NOOP("MainWindow", "absolute incremental"));

inline constexpr Vocabulary isothermStates = Vocabulary::positions(
    QT_TRANSLATE_NOOP("MainWindow", "Off (default)"), QT_TRANSLATE_NOOP("MainWindow", "Isotherms"),
    QT_TRANSLATE_NOOP("MainWindow", "Min / Max"),
    QT_TRANSLATE_NOOP("MainWindow", "Isotherm (automatic)"));

inline constexpr Vocabulary isothermTransparencies = Vocabulary::positions(
    QT_TRANSLATE_NOOP("MainWindow", "Off"), QT_TRANSLATE_NOOP("MainWindow", "On"));

inline constexpr Vocabulary isothermSwitchModes =
    Vocabulary::positions(QT_TRANSLATE_NOOP("MainWindow", "high/low (default)"),
                          QT_TRANSLATE_NOOP("MainWindow", "absolute values"));

inline constexpr Vocabulary liveviewModes =
    Vocabulary::positions(QT_TRANSLATE_NOOP("MainWindow", "Daylight only"), "IR 25%", "IR 50%",
                          "IR 75%", QT_TRANSLATE_NOOP("MainWindow", "IR 100% (opaque)"),
                          QT_TRANSLATE_NOOP("MainWindow", "IR Small Window"),
                          QT_TRANSLATE_NOOP("MainWindow", "IR Full Frame"));

inline constexpr Vocabulary colormaps = Vocabulary::positions(
    QT_TRANSLATE_NOOP("MainWindow", "Iron"), QT_TRANSLATE_NOOP("MainWindow", "Arctic"),
    QT_TRANSLATE_NOOP("MainWindow", "White-hot"), QT_TRANSLATE_NOOP("MainWindow", "Black-hot"));

inline constexpr Vocabulary analogVideoModes = Vocabulary::positions("PAL-D", "NTSC-M");

inline constexpr Vocabulary hdmiVideoModes =
    Vocabulary::positions("MODE_1080P_30HZ", "MODE_1080P_60HZ");

inline constexpr Vocabulary visibleCameras =
    Vocabulary::positions("Tamron MP1010M", "Sony FCB EV7520");

/// The exposure modes that the tool offers; the camera knows more.
inline constexpr Vocabulary exposureModes =
    Vocabulary::of({{0, "VISCA_AEMODE_FULL_AUTO"}, {10, "VISCA_AEMODE_SHUTTER_PRIORITY"}});

/// A higher number is a shorter exposure.
inline constexpr Vocabulary shutterSpeeds = Vocabulary::of({
    {21, "SPEED_10000_HZ"}, {20, "SPEED_6000_HZ"}, {19, "SPEED_4000_HZ"}, {18, "SPEED_3000_HZ"},
    {17, "SPEED_2000_HZ"},  {16, "SPEED_1500_HZ"}, {15, "SPEED_1000_HZ"}, {14, "SPEED_725_HZ"},
    {13, "SPEED_500_HZ"},   {12, "SPEED_350_HZ"},  {11, "SPEED_250_HZ"},  {10, "SPEED_180_HZ"},
    {9, "SPEED_120_HZ"},    {8, "SPEED_100_HZ"},   {7, "SPEED_90_HZ"},    {6, "SPEED_60_HZ"},
    {5, "SPEED_30_HZ"},     {4, "SPEED_15_HZ"},    {3, "SPEED_8_HZ"},     {2, "SPEED_4_HZ"},
    {1, "SPEED_2_HZ"},      {0, "SPEED_1_HZ"},
});

inline constexpr Vocabulary tamronFocusModes = Vocabulary::positions(
    QT_TRANSLATE_NOOP("MainWindow", "automatic"), QT_TRANSLATE_NOOP("MainWindow", "manual"),
    QT_TRANSLATE_NOOP("MainWindow", "autofocus once-after-zoom"));

inline constexpr Vocabulary vibrationCompensations =
    Vocabulary::of({{3, QT_TRANSLATE_NOOP("MainWindow", "Vibration Compensation OFF")},
                    {2, QT_TRANSLATE_NOOP("MainWindow", "Vibration Compensation ON")}});

inline constexpr Vocabulary whiteBalanceModes = Vocabulary::positions(
    QT_TRANSLATE_NOOP("MainWindow", "AUTO"), QT_TRANSLATE_NOOP("MainWindow", "HOLD"),
    QT_TRANSLATE_NOOP("MainWindow", "ATW (All pull-in)"),
    QT_TRANSLATE_NOOP("MainWindow", "Light bulb"),
    QT_TRANSLATE_NOOP("MainWindow", "Daylight color fluorescent light"),
    QT_TRANSLATE_NOOP("MainWindow", "Clear sky"), QT_TRANSLATE_NOOP("MainWindow", "Cloudy sky"),
    QT_TRANSLATE_NOOP("MainWindow", "Fluorescent light fixed"),
    QT_TRANSLATE_NOOP("MainWindow", "Light bulb color fluorescent light"));

inline constexpr Vocabulary imageOutputs =
    Vocabulary::positions(QT_TRANSLATE_NOOP("MainWindow", "Write to sd-card"),
                          QT_TRANSLATE_NOOP("MainWindow", "Output via USB"));

inline constexpr Vocabulary testModes =
    Vocabulary::positions(QT_TRANSLATE_NOOP("MainWindow", "NONE"),
                          QT_TRANSLATE_NOOP("MainWindow", "DEVICE NOT INSTALLED"));

// What an extension port can be used for depends on the model. Keys of "EXP0" belong to port 0,
// those of "EXP1" to port 1; a port is either free or has one of its own.
inline constexpr Vocabulary blendExtension0 =
    Vocabulary::of({{0, "EXP_MODE_NONE"}, {5, "EXP0_MODE_EXTERNAL_SHUTTER"}});

inline constexpr Vocabulary blendExtension1 =
    Vocabulary::of({{0, "EXP_MODE_NONE"}, {6, "EXP1_MODE_EXTERNAL_SHUTTER"}});

inline constexpr Vocabulary blendZoomExtension0 = Vocabulary::of({
    {0, "EXP_MODE_NONE"},
    {1, "EXP0_MODE_FFC"},
    {4, "EXP0_MODE_IMAGE_SYNC"},
    {9, "EXP0_MODE_COMIO"},
    {7, "EXP0_MODE_VISCA"},
    {5, "EXP0_MODE_EXTERNAL_SHUTTER"},
});

inline constexpr Vocabulary blendZoomExtension1 = Vocabulary::of({
    {0, "EXP_MODE_NONE"},
    {2, "EXP1_MODE_EXTERNAL_SYNC_INPUT"},
    {10, "EXP1_MODE_COMIO"},
    {8, "EXP1_MODE_VISCA"},
    {6, "EXP1_MODE_EXTERNAL_SHUTTER"},
});

} // namespace vocabularies
