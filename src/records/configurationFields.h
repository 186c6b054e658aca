#pragma once

#include "records/SharedConfigurationGroups.h"
#include "records/fieldrows.h"
#include "records/vocabularies.h"

// Rows of the groups that the configuration records share, wherever they lie in record `R`.
namespace fields {

template <class R>
constexpr auto periphery()
{
    using namespace vocabularies;
    return rows(
        FIELD(R, periphery.baudrate, "serial.baud-rate", "Baud rate", "bit/s", choice(baudRates)),
        FIELD(R, periphery.parity, "serial.parity", "Parity", "", choice(parities)),
        FIELD(R, periphery.stop_bits, "serial.stop-bits", "Stop bits", "", choice(stopBits)),
        FIELD(R, periphery.signal_inverted, "serial.inverted", "Signal inverted", "",
              choice(offOn)),
        FIELD(R, periphery.gimbal_rc, "periphery.gimbal", "Kovo Gimbal RC", "", choice(offOn)),
        FIELD(R, periphery.gps_receiver, "periphery.gps", "GPS", "", choice(gpsReceivers)),
        FIELD(R, periphery.ext_shutter_installed, "shutter.installed", "External shutter installed",
              "", choice(offOn)),
        FIELD(R, periphery.ext_shutter_heating, "shutter.heating", "External shutter heating", "",
              number(0, 1000)),
        FIELD(R, periphery.ext_shutter_heat_cycle, "shutter.heat-cycle",
              "External shutter heatcycle", "", number(0, 2000)),
        FIELD(R, periphery.ext_shutter_offset, "shutter.offset", "External shutter offset", "",
              number(-20, 20, codecs::hundredths)),
        FIELD(R, periphery.ext_shutter_interval, "shutter.interval", "External shutter interval",
              "", number(0, 3600)),
        FIELD(R, periphery.ext_shutter_option5, "shutter.opt5", "External shutter opt5", "",
              number(0, 99)));
}

template <class R>
constexpr auto liveview()
{
    using namespace vocabularies;
    return rows(
        FIELD(R, liveview_mode, "liveview.mode", "View mode", "", choice(liveviewModes)),
        FIELD(R, liveview_colormap, "liveview.colour-map", "Colour map", "", choice(colormaps)),
        FIELD(R, overlay_mode, "liveview.overlay", "Overlay", "", choice(offOnCapitals),
              Role::WriteOnly));
}

template <class R>
constexpr auto recording()
{
    using namespace vocabularies;
    return rows(
        FIELD(R, ffc_mode, "ffc.mode", "FFC mode", "", choice(ffcModes)),
        FIELD(R, ffc_delay, "ffc.delay", "FFC delay time", "s",
              number(0, 86400, codecs::multiplied<1000>)),
        FIELD(R, frame_skip, "recording.frame-skip", "Frames to skip", "", number(0, 4294967295.0)),
        FIELD(R, trigger.pin_mode, "trigger.mode", "Trigger Mode", "", choice(triggerModes)),
        FIELD(R, trigger.ffc_mode, "trigger.ffc", "Trigger auto FFC", "", choice(triggerFfcModes)),
        FIELD(R, trigger.frame_mode, "trigger.frame-mode", "Trigger frame mode", "",
              choice(triggerFrameModes)));
}

template <class R>
constexpr auto extensions(const Vocabulary &port0, const Vocabulary &port1)
{
    return rows(FIELD(R, ext0_mode, "extension.port0", "Extension port 0", "", choice(port0)),
                FIELD(R, ext1_mode, "extension.port1", "Extension port 1", "", choice(port1)));
}

template <class R>
constexpr auto isotherms()
{
    using namespace vocabularies;
    return rows(
        FIELD(R, isotherms.state, "isotherms.state", "Isotherms", "", choice(isothermStates)),
        FIELD(R, isotherms.transparency, "isotherms.transparency", "Isotherm transparency", "",
              choice(isothermTransparencies)),
        FIELD(R, isotherms.switch_mode, "isotherms.switch-mode", "Isotherm switch mode", "",
              choice(isothermSwitchModes)),
        FIELD(R, isotherms.lower, "isotherms.lower", "Lower threshold", "°C", number(-273, 1000)),
        FIELD(R, isotherms.middle, "isotherms.middle", "Middle threshold", "°C",
              number(-273, 1000)),
        FIELD(R, isotherms.upper, "isotherms.upper", "Upper threshold", "°C", number(-273, 1000)));
}

/// `colormapSwitchMode`: whether a form is filled with the switch mode of the colour map.
template <class R>
constexpr auto sbus(Role colormapSwitchMode)
{
    using namespace vocabularies;
    return rows(
        FIELD(R, sbus.colormap, "sbus.colour-map", "SBUS colour map", "", choice(sbusChannels)),
        FIELD(R, sbus.colormap_switch_mode, "sbus.colour-map-switch-mode",
              "SBUS colour map switch mode", "", choice(sbusSwitchModes), colormapSwitchMode),
        FIELD(R, sbus.ffc, "sbus.ffc", "SBUS flat-field correction", "", choice(sbusChannels)),
        FIELD(R, sbus.isotherms, "sbus.isotherms", "SBUS isotherms on/off", "",
              choice(sbusChannels)),
        FIELD(R, sbus.iso_transparency, "sbus.isotherm-transparency", "SBUS isotherm transparency",
              "", choice(sbusChannels)),
        FIELD(R, sbus.iso_lower, "sbus.isotherm-lower", "SBUS isotherm lower threshold", "",
              choice(sbusChannels)),
        FIELD(R, sbus.iso_middle, "sbus.isotherm-middle", "SBUS isotherm middle threshold", "",
              choice(sbusChannels)),
        FIELD(R, sbus.iso_upper, "sbus.isotherm-upper", "SBUS isotherm upper threshold", "",
              choice(sbusChannels)),
        FIELD(R, sbus.overlay, "sbus.overlay", "SBUS overlay on/off", "", choice(sbusChannels)),
        FIELD(R, sbus.trigger, "sbus.trigger", "SBUS trigger", "", choice(sbusChannels)),
        FIELD(R, sbus.view_mode, "sbus.view-mode", "SBUS view mode", "", choice(sbusChannels)),
        FIELD(R, thresholds.low, "trigger.low", "Trigger low", "", oneForAll(1, 2047)),
        FIELD(R, thresholds.high, "trigger.high", "Trigger high", "", oneForAll(1, 2047)));
}

} // namespace fields
