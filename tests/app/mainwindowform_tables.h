#pragma once

#include <QString>
#include <QStringList>
#include <QTest>

/// What the form of the main window holds, as rows of test data.
namespace formtables {

/// Each group of the form, its title and the widgets inside it.
inline void addGroups()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("widgets");
    const auto row = [](const char *place, const char *title, const char *widgets) {
        QTest::newRow(place) << QString(place) << QString(title)
                             << QString(widgets).split(' ', Qt::SkipEmptyParts);
    };
    row("gb_optionalpheriphery", "Optional Pheriphery", "cbPeripheryGimbalrc cbPeripheryGPS");
    row("gb_pheriphery_externalshutter", "External Shutter",
        "cb_pheriphery_externalshutter_installed");
    row("gb_pheriphery_externalshutteroptions", "Options",
        "sb_eso_heating sb_eso_heatcycle sb_eso_offset sb_eso_shutterinterval sb_eso_opt5 "
        "label_eso_opt5");
    row("gbTestModes", "Activate Test Modes", "cbTestmodesTaucore");
    row("gb_trigger", "Trigger",
        "cbTriggerPinMode cbTriggerFrameMode cbTriggerFFCMode pbTriggerStart pbTriggerStop");
    row("gb_FFC", "Flat-field correction", "cbFFCmode sbFFCdelay pb_ffc_doffc");
    row("gbGPSSettings", "Settings for interface between Quorvix device and additional hardware:",
        "cbBaudrate cbParity cbStopBit cbInverted");
    row("gbGPSStream", "Test Serial/GPS data", "pteGPSstream pbGPSStartStream pbGPSStopStream");
    row("gbSbusChannelAssignment", "Channel assignment",
        "cbSbusColormap cbSbusColorMapSwitchMode cbSbusFFC cbSbusIsotherms cbSbusIsoTransparency "
        "cbSbusIsoLow cbSbusIsoMid cbSbusIsoUp cbSbusOverlay cbSbusTrigger cbSbusViewmode "
        "cbSbusViewModeSwitchMode cbSbusZoom cbSbusZoomMode label_sbus_Overlay "
        "label_sbuschannel_zoom label_sbuschannel_zoommode "
        "label_sbuschannel_viewmode_switcthmode");
    row("gb_SbusThresholds", "Threshold settings", "sBTriggerLow sBTriggerHigh");
    row("gbSbusConnectionOptions", "Connection Options", "cbSBUSInverSignal");
    row("gb_exp_uart", "Serial Communication Parameter", "");
    row("gb_videoMode", "Anlog video mode", "cbAnalogVideoMode");
    row("gb_Liveview_hotspotdetection", "Hotspot Detection", "");
    row("gb_liveview", "IR in  video output", "cbLiveviewMode cbLiveview_colormap cBOverlayMode");
    row("gb_liveview_layerscaling", "Layer scaling and position", "");
    row("gb_isotherms", "Isotherms in video",
        "cbIsothermsState cbIsothermsTransparency cbIsothermSwitchMode sbIsothermsLower "
        "sbIsothermsMiddle sbIsothermsUpper");
    row("gb_hdmivideoMode", "HDMI video mode", "cbHDMIVideoMode");
    row("gb_iradj", "IR  Adjustements", "sb_iradj_offset sb_iradj_factor pb_iradj_send");
    row("gb_VLC_cam", "Camera", "cb_vlc_cam");
    row("gbTamronZoom", "Zoom", "sbTamronZoom");
    row("gb_vlc_ae", "Automatic Exposure",
        "cb_vlc_ae_mode cb_vlc_ae_shutterspeed label_vlc_ae_shutterspeed");
    row("gbTamronVibrationCompensation", "Vibration Compensation", "cbVibrationCompensation");
    row("gbSonyFCBZoom", "Zoom", "sbVLCZoom pbVLC_preview_Zoom");
    row("gbTamronFocus", "Focus (Tamron)",
        "cbVLCTamronFocus hsTamronfocusvalue sbTamronFocusValue label_68 label_69");
    row("gbSonyFCBFocus", "Focus (Sony FCB)", "sbVLCFocusAdjustment pbVLCAutoAdjustFocus");
    row("gbSonyFCBCameraAdjustements", "Camera adjustments",
        "sbVLCevcorrection cbVLCAdaptiveGradiationCorrection cbVLCWhiteBalanceMode");
    row("gb_compressionQuality", "Compression Quality", "sbJPEGcompressionDaylight");
    row("gbImageOutput", "Image output", "cbImageOutput");
    row("gb_frameskip", "Define how many frames should be skipped while recording.", "leFrameSkip");
    row("gbSyncMode", "Sync mode", "cBAdvacedSync");
    row("gb_compressionQuality_slider", "Compression Quality (Daylight JPGs only)",
        "hs_JPEGcompressionDaylight");
}

/// Range, start value and suffix of each integer spin box.
inline void addSpinBoxes()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("start");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("sb_eso_heating") << 0 << 1000 << 800 << "";
    QTest::newRow("sb_eso_heatcycle") << 0 << 2000 << 1000 << "";
    QTest::newRow("sb_eso_shutterinterval") << 0 << 3600 << 45 << "";
    QTest::newRow("sb_eso_opt5") << 0 << 99 << 0 << "";
    QTest::newRow("sbFFCdelay") << 0 << 86400 << 120 << "s";
    QTest::newRow("sBTriggerLow") << 1 << 2047 << 688 << "";
    QTest::newRow("sBTriggerHigh") << 1 << 2047 << 1366 << "";
    QTest::newRow("sbIsothermsLower") << -273 << 1000 << 15 << "";
    QTest::newRow("sbIsothermsMiddle") << -273 << 1000 << 34 << "";
    QTest::newRow("sbIsothermsUpper") << -273 << 1000 << 40 << "";
    QTest::newRow("sbVLCevcorrection") << -6 << 6 << 0 << "";
    QTest::newRow("sbVLCFocusAdjustment") << -31 << 31 << -10 << "";
    QTest::newRow("sbTamronZoom") << 1 << 10 << 1 << "";
    QTest::newRow("sbJPEGcompressionDaylight") << 1 << 99 << 85 << "%";
    QTest::newRow("sbTamronFocusValue") << 4096 << 45056 << 4096 << "";
    QTest::newRow("sbVLCZoom") << 0 << 64 << 64 << "";
    QTest::newRow("sb_iradj_offset") << -9999 << 9999 << 0 << "";
    QTest::newRow("sb_iradj_factor") << 1 << 1000 << 100 << "";
}

/// The items of each combo box, in list order: the vocabulary of the program.
inline void addCombos()
{
    QTest::addColumn<QStringList>("items");
    QTest::newRow("cBDevice") << QStringList{"Quorvix Blend", "Quorvix Blend Zoom"};
    QTest::newRow("cbBaudrate") << QStringList{"1200",   "2400",   "4800",  "9600",
                                               "19200",  "38400",  "57600", "115200",
                                               "230400", "460800", "921600"};
    QTest::newRow("cbParity") << QStringList{"none", "odd", "even"};
    QTest::newRow("cbStopBit") << QStringList{"1", "2"};
    QTest::newRow("cbPeripheryGPS") << QStringList{
        "Custom settings",
        QStringLiteral("Quorvix GPS Receiver - based on u-blox 6 SuperSense\u00ae chipset"),
        "Quorvix GPS Receiver - 1Hz, based on u-blox 8 Multi GNSS UBX-M8030-KT chipset",
        "Quorvix GPS Receiver - 10Hz, based on u-blox 8 Multi GNSS UBX-M8030-KT chipset"};
    QTest::newRow("cbTriggerPinMode")
        << QStringList{"ON/OFF", "SBUS", "Serial input", "PWM (normal)", "PWM (inverted)", "PPM"};
    QTest::newRow("cbTriggerFFCMode") << QStringList{"no additional FFC on trigger start (default)",
                                                     "additional FFC on trigger start"};
    QTest::newRow("cbTriggerFrameMode")
        << QStringList{"Ongoing stream (default)", "Single frame capture"};
    QTest::newRow("cbFFCmode") << QStringList{
        "FFC Automatic (default)", "FFC fixed time intervalls, do not interrupt recordings",
        "FFC fixed time intervalls, ignore recoding state", "FFC External"};

    QStringList channels;
    for (int n = 1; n <= 18; ++n)
        channels << QStringLiteral("Channel %1").arg(n);
    channels << "Deactivated";
    for (const char *name : {"cbSbusColormap", "cbSbusFFC", "cbSbusIsotherms",
                             "cbSbusIsoTransparency", "cbSbusIsoLow", "cbSbusIsoMid", "cbSbusIsoUp",
                             "cbSbusOverlay", "cbSbusTrigger", "cbSbusViewmode", "cbSbusZoom"})
        QTest::newRow(name) << channels;
    QTest::newRow("cbSbusColorMapSwitchMode") << QStringList{"high/low (default)", "absolute"};
    QTest::newRow("cbSbusViewModeSwitchMode") << QStringList{"high/low (default)", "absolute"};
    QTest::newRow("cbSbusZoomMode")
        << QStringList{"high/low (default)", "absolute", "absolute incremental"};

    QTest::newRow("cbIsothermsState")
        << QStringList{"Off (default)", "Isotherms", "Min / Max", "Isotherm (automatic)"};
    QTest::newRow("cbIsothermsTransparency") << QStringList{"Off", "On"};
    QTest::newRow("cbIsothermSwitchMode") << QStringList{"high/low (default)", "absolute values"};
    QTest::newRow("cbLiveviewMode")
        << QStringList{"Daylight only",    "IR 25%",          "IR 50%",       "IR 75%",
                       "IR 100% (opaque)", "IR Small Window", "IR Full Frame"};
    QTest::newRow("cbLiveview_colormap") << QStringList{"Iron", "Arctic", "White-hot", "Black-hot"};
    QTest::newRow("cBOverlayMode") << QStringList{"OFF", "ON"};
    QTest::newRow("cbAnalogVideoMode") << QStringList{"PAL-D", "NTSC-M"};
    QTest::newRow("cb_vlc_cam") << QStringList{"Tamron MP1010M", "Sony FCB EV7520"};
    QTest::newRow("cbVLCTamronFocus")
        << QStringList{"automatic", "manual", "autofocus once-after-zoom"};
    QTest::newRow("cbVibrationCompensation")
        << QStringList{"Vibration Compensation OFF", "Vibration Compensation ON"};
    QTest::newRow("cbVLCAdaptiveGradiationCorrection") << QStringList{"OFF", "ON"};
    QTest::newRow("cbVLCWhiteBalanceMode") << QStringList{"AUTO",
                                                          "HOLD",
                                                          "ATW (All pull-in)",
                                                          "Light bulb",
                                                          "Daylight color fluorescent light",
                                                          "Clear sky",
                                                          "Cloudy sky",
                                                          "Fluorescent light fixed",
                                                          "Light bulb color fluorescent light"};
    QTest::newRow("cbImageOutput") << QStringList{"Write to sd-card", "Output via USB"};
    QTest::newRow("cBAdvacedSync") << QStringList{"OFF", "ON"};
    QTest::newRow("cbTestmodesTaucore") << QStringList{"NONE", "DEVICE NOT INSTALLED"};

    // Filled by the program: with enumeration keys, by model, with the ports that it finds.
    for (const char *name : {"cbHDMIVideoMode", "cb_vlc_ae_mode", "cb_vlc_ae_shutterspeed",
                             "cBext0mode", "cBext1mode", "comboBoxPort"})
        QTest::newRow(name) << QStringList{};
}

} // namespace formtables
