#include "app/configuration_tables.h"

#include "app/MainWindow.h"
#include "diagnostics/diagnostics.h"
#include "records/layouts.h"
#include "records/thermalCommPacket_Blend_R8_TypeDef.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"
#include "ui_MainWindow.h"

// A row for a member of a record, with the member's own wire type and offset.
#define ROW(Record, member, coding)                                                                \
    numberRow<decltype(std::declval<Record>().member)>(offsetof(Record, member), coding)

using namespace coding;
using R8 = thermalCommPacket_Blend_R8_TypeDef;
using R13 = thermalCommPacket_Blend_Zoom_R13_TypeDef;

namespace {

void append(RecordTable &table, RecordTable rows)
{
    table.insert(table.end(), rows.begin(), rows.end());
}

/// Header and fixed bytes, which no widget shows.
RecordTable fixedRows(const Layout &layout)
{
    const QByteArray untouched = blank(layout);
    const auto row = [&](int offset, int size) {
        return RecordRow{offset, size, nullptr, nullptr,
                         [offset, bytes = untouched.mid(offset, size)](uchar *record) {
                             std::memcpy(record + offset, bytes.constData(), bytes.size());
                         }};
    };
    RecordTable rows{row(0, layout.bodyOffset())};
    for (const Field &field : layout)
        if (field.role == Role::Fixed)
            rows.push_back(row(field.wire.offset, field.wire.size()));
    return rows;
}

/// The two tables of trigger levels. The form shows the entry of the record's trigger channel; all
/// entries are written with the levels of the form.
template <class R>
RecordRow thresholdsRow(const Ui::MainWindow &ui)
{
    QSpinBox *low = ui.sBTriggerLow;
    QSpinBox *high = ui.sBTriggerHigh;
    const auto show = [=](const uchar *record) {
        const std::size_t channel = record[offsetof(R, sbus.trigger)];
        TriggerThresholds thresholds;
        std::memcpy(&thresholds, record + offsetof(R, thresholds), sizeof thresholds);
        if (channel >= thresholds.low.size()) {
            diagnostics::err(QStringLiteral("<<< no trigger thresholds of channel index %1")
                                 .arg(static_cast<int>(channel)));
            return;
        }
        low->setValue(thresholds.low[channel]);
        high->setValue(thresholds.high[channel]);
    };
    const auto store = [=](uchar *record) {
        TriggerThresholds thresholds;
        thresholds.low.fill(static_cast<quint16>(low->value()));
        thresholds.high.fill(static_cast<quint16>(high->value()));
        std::memcpy(record + offsetof(R, thresholds), &thresholds, sizeof thresholds);
    };
    return {offsetof(R, thresholds), sizeof(TriggerThresholds), low, show, store};
}

template <class R>
RecordTable peripheryRows(const Ui::MainWindow &ui)
{
    return {
        ROW(R, periphery.gimbal_rc, check(ui.cbPeripheryGimbalrc)),
        ROW(R, periphery.gps_receiver, index(ui.cbPeripheryGPS)),
        ROW(R, periphery.ext_shutter_installed, check(ui.cb_pheriphery_externalshutter_installed)),
        ROW(R, periphery.ext_shutter_heating, value(ui.sb_eso_heating)),
        ROW(R, periphery.ext_shutter_heat_cycle, value(ui.sb_eso_heatcycle)),
        ROW(R, periphery.ext_shutter_offset, hundredths(ui.sb_eso_offset)),
        ROW(R, periphery.ext_shutter_interval, value(ui.sb_eso_shutterinterval)),
        ROW(R, periphery.ext_shutter_option5, value(ui.sb_eso_opt5)),
    };
}

template <class R>
RecordTable triggerRows(const Ui::MainWindow &ui)
{
    return {
        ROW(R, trigger.pin_mode, index(ui.cbTriggerPinMode)),
        ROW(R, trigger.ffc_mode, index(ui.cbTriggerFFCMode)),
        ROW(R, trigger.frame_mode, index(ui.cbTriggerFrameMode)),
        ROW(R, ffc_mode, index(ui.cbFFCmode)),
        ROW(R, ffc_delay, scaled(ui.sbFFCdelay, 1000)), // milliseconds
    };
}

template <class R>
RecordTable serialPortRows(const Ui::MainWindow &ui)
{
    return {
        ROW(R, periphery.baudrate, numberText(ui.cbBaudrate)),
        ROW(R, periphery.parity, index(ui.cbParity)),
        ROW(R, periphery.stop_bits, signedNumberText(ui.cbStopBit)),
        ROW(R, periphery.signal_inverted, check(ui.cbInverted)),
    };
}

/// All SBUS channels but that of the colour map, which comes first in every record.
template <class R>
RecordTable sbusRows(const Ui::MainWindow &ui)
{
    return {
        ROW(R, sbus.ffc, index(ui.cbSbusFFC)),
        ROW(R, sbus.isotherms, index(ui.cbSbusIsotherms)),
        ROW(R, sbus.iso_transparency, index(ui.cbSbusIsoTransparency)),
        ROW(R, sbus.iso_lower, index(ui.cbSbusIsoLow)),
        ROW(R, sbus.iso_middle, index(ui.cbSbusIsoMid)),
        ROW(R, sbus.iso_upper, index(ui.cbSbusIsoUp)),
        ROW(R, sbus.overlay, index(ui.cbSbusOverlay)),
        ROW(R, sbus.trigger, index(ui.cbSbusTrigger)),
        ROW(R, sbus.view_mode, index(ui.cbSbusViewmode)),
    };
}

template <class R>
RecordTable extensionRows(const Ui::MainWindow &ui, Coding (*keyOf)(QComboBox *, const QMetaEnum &))
{
    const auto modes = QMetaEnum::fromType<MainWindow::extensions>();
    return {
        ROW(R, ext0_mode, keyOf(ui.cBext0mode, modes)),
        ROW(R, ext1_mode, keyOf(ui.cBext1mode, modes)),
    };
}

template <class R>
RecordTable isothermRows(const Ui::MainWindow &ui)
{
    return {
        ROW(R, isotherms.state, index(ui.cbIsothermsState)),
        ROW(R, isotherms.transparency, index(ui.cbIsothermsTransparency)),
        ROW(R, isotherms.switch_mode, index(ui.cbIsothermSwitchMode)),
        ROW(R, isotherms.lower, value(ui.sbIsothermsLower)),
        ROW(R, isotherms.middle, value(ui.sbIsothermsMiddle)),
        ROW(R, isotherms.upper, value(ui.sbIsothermsUpper)),
    };
}

template <class R>
RecordTable liveviewRows(const Ui::MainWindow &ui)
{
    return {
        ROW(R, liveview_mode, index(ui.cbLiveviewMode)),
        ROW(R, liveview_colormap, index(ui.cbLiveview_colormap)),
    };
}

Coding hdmiVideoMode(QComboBox *box)
{
    return mapped(
        box, {MainWindow::MODE_1080P_30HZ, MainWindow::MODE_1080P_60HZ},
        [](qint64) { return QStringLiteral("<<< Unkown monitoring mode"); },
        [](int item) {
            return QStringLiteral("MainWindow::ui2config_qxblendzoom() videoconfig hdmi output "
                                  "mode unknown:%1")
                .arg(item);
        });
}

Coding vibrationCompensation(QComboBox *box)
{
    const auto unknown = [](qint64) { return QStringLiteral("<<< Unkown vibration compensation"); };
    return mapped(box, {3, 2}, unknown, unknown);
}

} // namespace

RecordTable blendTable(const Ui::MainWindow &ui)
{
    RecordTable table = peripheryRows<R8>(ui);
    append(table, triggerRows<R8>(ui));
    append(table, serialPortRows<R8>(ui));
    table.push_back(ROW(R8, sbus.colormap, index(ui.cbSbusColormap)));
    table.push_back(ROW(R8, sbus.colormap_switch_mode, index(ui.cbSbusColorMapSwitchMode)));
    append(table, sbusRows<R8>(ui));
    table.push_back(ROW(R8, sbus_view_mode_switch_mode, index(ui.cbSbusViewModeSwitchMode)));
    table.push_back(thresholdsRow<R8>(ui));
    append(table, extensionRows<R8>(ui, key));
    append(table, isothermRows<R8>(ui));
    append(table, liveviewRows<R8>(ui));
    append(table, {
                      ROW(R8, vlc_ev_correction, value(ui.sbVLCevcorrection)),
                      ROW(R8, vlc_adaptive_gradation, index(ui.cbVLCAdaptiveGradiationCorrection)),
                      ROW(R8, vlc_white_balance, index(ui.cbVLCWhiteBalanceMode)),
                      ROW(R8, vlc_focus, sonyFcbFocus(ui.sbVLCFocusAdjustment)),
                      ROW(R8, frame_skip, numberText(ui.leFrameSkip)),

                      ROW(R8, overlay_mode, writeOnly(index(ui.cBOverlayMode))),
                  });
    append(table, fixedRows(layouts::blend));
    return table;
}

RecordTable blendZoomTable(const Ui::MainWindow &ui)
{
    const auto exposureModes = QMetaEnum::fromType<MainWindow::viscaaemode>();
    const auto shutterSpeeds = QMetaEnum::fromType<MainWindow::viscaaeshutterspeed>();

    RecordTable table = peripheryRows<R13>(ui);
    table.push_back(ROW(R13, ir_test_mode, index(ui.cbTestmodesTaucore)));
    append(table, triggerRows<R13>(ui));
    append(table, serialPortRows<R13>(ui));
    table.push_back(ROW(R13, sbus_inverted, check(ui.cbSBUSInverSignal)));
    table.push_back(ROW(R13, sbus.colormap, index(ui.cbSbusColormap)));
    append(table, sbusRows<R13>(ui));
    table.push_back(ROW(R13, sbus_zoom, index(ui.cbSbusZoom)));
    table.push_back(ROW(R13, sbus_zoom_mode, index(ui.cbSbusZoomMode)));
    table.push_back(thresholdsRow<R13>(ui));
    append(table, extensionRows<R13>(ui, joinedKeys));
    append(table, isothermRows<R13>(ui));
    table.push_back(ROW(R13, analog_video_mode, index(ui.cbAnalogVideoMode)));
    table.push_back(ROW(R13, hdmi_video_mode, hdmiVideoMode(ui.cbHDMIVideoMode)));
    append(table, liveviewRows<R13>(ui));
    append(table,
           {
               ROW(R13, vlc_ae_mode, joinedKeys(ui.cb_vlc_ae_mode, exposureModes)),
               ROW(R13, vlc_ae_shutter_speed, joinedKeys(ui.cb_vlc_ae_shutterspeed, shutterSpeeds)),
               ROW(R13, tamron_focus_mode, index(ui.cbVLCTamronFocus)),
               ROW(R13, tamron_focus_position, value(ui.hsTamronfocusvalue)),
               ROW(R13, zoom_step, value(ui.sbTamronZoom, -1)),
               ROW(R13, jpeg_quality_daylight, value(ui.sbJPEGcompressionDaylight)),
               ROW(R13, vlc_model, index(ui.cb_vlc_cam)),
               ROW(R13, vibration_compensation, vibrationCompensation(ui.cbVibrationCompensation)),
               ROW(R13, frame_skip, numberText(ui.leFrameSkip)),
               ROW(R13, image_output, index(ui.cbImageOutput)),
               ROW(R13, advanced_sync, index(ui.cBAdvacedSync)),

               ROW(R13, overlay_mode, writeOnly(index(ui.cBOverlayMode))),
               ROW(R13, sbus.colormap_switch_mode, writeOnly(index(ui.cbSbusColorMapSwitchMode))),
           });
    append(table, fixedRows(layouts::blendZoom));
    return table;
}
