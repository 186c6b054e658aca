#pragma once

#include "records/ControlStructureHeader.h"
#include "records/SharedConfigurationGroups.h"

#include <cstddef>

/// The whole configuration of a Quorvix Blend, record revision 8: a payload on the line and the
/// content of a configuration file. "fixed" bytes always have the stated value, "unset" bytes are 0
/// in a record to be sent and ignored in a received one.
struct thermalCommPacket_Blend_R8_TypeDef
{
    static constexpr quint32 deviceKey = 0xC92A6CE6;
    static constexpr quint32 version = 20181212;

    ControlStructureHeader header;
    PeripheryFields periphery;
    quint8 overlay_mode;  ///< 0 off, 1 on
    quint8 fixed_43;      ///< 0
    quint8 liveview_mode; ///< 0..6
    std::array<quint8, 12> fixed_45;
    quint8 liveview_colormap; ///< 0..3
    le_u16 fixed_58;          ///< 1600
    le_u16 fixed_60;          ///< 1200
    qint8 vlc_ev_correction;  ///< -6..6
    quint8 vlc_adaptive_gradation;
    quint8 vlc_white_balance;
    quint8 vlc_focus; ///< Sony FCB focus byte
    quint8 fixed_66;  ///< 0
    le_u16 ffc_mode;  ///< 0..3
    le_u32 ffc_delay; ///< milliseconds
    quint8 unset_73;
    le_u32 frame_skip;
    TriggerFields trigger;
    quint8 fixed_81;  ///< 0
    quint8 ext0_mode; ///< value of MainWindow::extensions
    quint8 ext1_mode;
    std::array<quint8, 8> unset_84;
    IsothermFields isotherms;
    SbusFields sbus;
    quint8 sbus_view_mode_switch_mode; ///< 0 high/low, 1 absolute
    TriggerThresholds thresholds;
    std::array<quint8, 12> unset_193;
    le_u16 crc; ///< CRC-16 over bytes 0..204
};

static_assert(sizeof(thermalCommPacket_Blend_R8_TypeDef) == 207);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, header) == 0);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, periphery) == 12);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, overlay_mode) == 42);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, fixed_43) == 43);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, liveview_mode) == 44);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, fixed_45) == 45);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, liveview_colormap) == 57);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, fixed_58) == 58);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, fixed_60) == 60);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, vlc_ev_correction) == 62);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, vlc_adaptive_gradation) == 63);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, vlc_white_balance) == 64);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, vlc_focus) == 65);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, fixed_66) == 66);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, ffc_mode) == 67);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, ffc_delay) == 69);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, unset_73) == 73);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, frame_skip) == 74);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, trigger) == 78);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, fixed_81) == 81);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, ext0_mode) == 82);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, ext1_mode) == 83);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, unset_84) == 84);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, isotherms) == 92);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, sbus) == 101);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, sbus_view_mode_switch_mode) == 112);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, thresholds) == 113);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, unset_193) == 193);
static_assert(offsetof(thermalCommPacket_Blend_R8_TypeDef, crc) == 205);
