#pragma once

#include "records/ControlStructureHeader.h"
#include "records/SharedConfigurationGroups.h"

#include <cstddef>

/// The whole configuration of a Quorvix Blend Zoom, record revision 13. "fixed" bytes always have
/// the stated value, "unset" bytes are 0 in a record to be sent and ignored in a received one.
struct thermalCommPacket_Blend_Zoom_R13_TypeDef
{
    static constexpr quint32 deviceKey = 0xA0AF139E;
    static constexpr quint32 version = 20190805;

    ControlStructureHeader header;
    PeripheryFields periphery;
    quint8 analog_video_mode; ///< 0 PAL-D, 1 NTSC-M
    quint8 hdmi_video_mode;   ///< value of MainWindow::hdmivideomodes
    quint8 overlay_mode;      ///< 0 off, 1 on
    quint8 fixed_45;          ///< 0
    quint8 liveview_mode;     ///< 0..6
    std::array<quint8, 12> fixed_47;
    quint8 liveview_colormap;       ///< 0..3
    quint8 vlc_model;               ///< 0 Tamron MP1010M, 1 Sony FCB EV7520
    quint8 fixed_61;                ///< 8
    quint8 vlc_ae_mode;             ///< value of MainWindow::viscaaemode
    quint8 vlc_ae_shutter_speed;    ///< value of MainWindow::viscaaeshutterspeed
    std::array<quint8, 4> fixed_64; ///< 0x11 0x01 0x03 0x03
    quint8 fixed_68;                ///< 7
    quint8 tamron_focus_mode;       ///< 0 automatic, 1 manual, 2 once after zoom
    le_u16 tamron_focus_position;   ///< 4096..45056
    quint8 vibration_compensation;  ///< 3 off, 2 on
    le_u16 fixed_73;                ///< 0x8000
    quint8 fixed_75;                ///< 0x80
    le_u16 zoom_step;               ///< zoom factor - 1: 0..9
    le_u16 ffc_mode;                ///< 0..3
    le_u32 ffc_delay;               ///< milliseconds
    quint8 jpeg_quality_daylight;   ///< percent
    quint8 fixed_85;                ///< 0
    quint8 image_output;            ///< 0 SD card, 1 USB
    le_u32 frame_skip;
    TriggerFields trigger;
    quint8 fixed_94; ///< 0
    quint8 sbus_inverted;
    quint8 advanced_sync;
    quint8 ext0_mode; ///< value of MainWindow::extensions
    quint8 ext1_mode;
    le_u32 fixed_99;                 ///< 115200
    std::array<quint8, 4> fixed_103; ///< 8 0 1 0
    IsothermFields isotherms;
    SbusFields sbus;
    quint8 sbus_zoom;
    quint8 sbus_zoom_mode; ///< 0 high/low, 1 absolute, 2 absolute incremental
    TriggerThresholds thresholds;
    le_u32 fixed_209; ///< 3000
    quint8 fixed_213; ///< 0
    std::array<quint8, 6> unset_214;
    quint8 ir_test_mode; ///< 0 none, 1 device not installed
    le_u16 crc;          ///< CRC-16 over bytes 0..220
};

static_assert(sizeof(thermalCommPacket_Blend_Zoom_R13_TypeDef) == 223);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, header) == 0);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, periphery) == 12);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, analog_video_mode) == 42);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, hdmi_video_mode) == 43);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, overlay_mode) == 44);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, fixed_45) == 45);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, liveview_mode) == 46);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, fixed_47) == 47);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, liveview_colormap) == 59);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, vlc_model) == 60);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, fixed_61) == 61);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, vlc_ae_mode) == 62);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, vlc_ae_shutter_speed) == 63);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, fixed_64) == 64);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, fixed_68) == 68);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, tamron_focus_mode) == 69);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, tamron_focus_position) == 70);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, vibration_compensation) == 72);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, fixed_73) == 73);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, fixed_75) == 75);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, zoom_step) == 76);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, ffc_mode) == 78);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, ffc_delay) == 80);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, jpeg_quality_daylight) == 84);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, fixed_85) == 85);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, image_output) == 86);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, frame_skip) == 87);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, trigger) == 91);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, fixed_94) == 94);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, sbus_inverted) == 95);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, advanced_sync) == 96);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, ext0_mode) == 97);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, ext1_mode) == 98);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, fixed_99) == 99);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, fixed_103) == 103);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, isotherms) == 107);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, sbus) == 116);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, sbus_zoom) == 127);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, sbus_zoom_mode) == 128);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, thresholds) == 129);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, fixed_209) == 209);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, fixed_213) == 213);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, unset_214) == 214);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, ir_test_mode) == 220);
static_assert(offsetof(thermalCommPacket_Blend_Zoom_R13_TypeDef, crc) == 221);
