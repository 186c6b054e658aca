#pragma once

#include "records/LittleEndian.h"

#include <array>
#include <cstddef>

/// Groups of fields that both configuration records hold with the same inner layout.

/// The GPS/serial port of the camera and the periphery around it; at offset 12 of both records.
struct PeripheryFields
{
    le_u32 baudrate;               ///< bit/s
    quint8 parity;                 ///< 0 none, 1 odd, 2 even
    quint8 stop_bits;              ///< the number itself: 1 or 2
    quint8 signal_inverted;        ///< 0 / 1
    quint8 gimbal_rc;              ///< 0 / 1
    quint8 gps_receiver;           ///< 0 custom settings, 1..3 receiver presets
    quint8 ext_shutter_installed;  ///< 0 / 1
    le_i32 ext_shutter_heating;    ///< 0..1000
    le_i32 ext_shutter_heat_cycle; ///< 0..2000
    le_i32 ext_shutter_offset;     ///< hundredths, -2000..2000
    le_i32 ext_shutter_interval;   ///< 0..3600
    le_i32 ext_shutter_option5;    ///< 0..99
};
static_assert(sizeof(PeripheryFields) == 30);
static_assert(offsetof(PeripheryFields, baudrate) == 0);
static_assert(offsetof(PeripheryFields, parity) == 4);
static_assert(offsetof(PeripheryFields, stop_bits) == 5);
static_assert(offsetof(PeripheryFields, signal_inverted) == 6);
static_assert(offsetof(PeripheryFields, gimbal_rc) == 7);
static_assert(offsetof(PeripheryFields, gps_receiver) == 8);
static_assert(offsetof(PeripheryFields, ext_shutter_installed) == 9);
static_assert(offsetof(PeripheryFields, ext_shutter_heating) == 10);
static_assert(offsetof(PeripheryFields, ext_shutter_heat_cycle) == 14);
static_assert(offsetof(PeripheryFields, ext_shutter_offset) == 18);
static_assert(offsetof(PeripheryFields, ext_shutter_interval) == 22);
static_assert(offsetof(PeripheryFields, ext_shutter_option5) == 26);

struct TriggerFields
{
    quint8 pin_mode;   ///< 0 on/off, 1 SBUS, 2 serial, 3 PWM, 4 PWM inverted, 5 PPM
    quint8 ffc_mode;   ///< 1: additional flat-field correction on trigger start
    quint8 frame_mode; ///< 0 ongoing stream, 1 single frame
};
static_assert(sizeof(TriggerFields) == 3);
static_assert(offsetof(TriggerFields, pin_mode) == 0);
static_assert(offsetof(TriggerFields, ffc_mode) == 1);
static_assert(offsetof(TriggerFields, frame_mode) == 2);

struct IsothermFields
{
    quint8 state;        ///< 0 off, 1 isotherms, 2 min/max, 3 automatic
    quint8 transparency; ///< 0 / 1
    quint8 switch_mode;  ///< 0 high/low, 1 absolute values
    le_i16 lower;        ///< -273..1000
    le_i16 middle;
    le_i16 upper;
};
static_assert(sizeof(IsothermFields) == 9);
static_assert(offsetof(IsothermFields, state) == 0);
static_assert(offsetof(IsothermFields, transparency) == 1);
static_assert(offsetof(IsothermFields, switch_mode) == 2);
static_assert(offsetof(IsothermFields, lower) == 3);
static_assert(offsetof(IsothermFields, middle) == 5);
static_assert(offsetof(IsothermFields, upper) == 7);

/// Which SBUS channel drives what: 0..17 are channels 1..18, 18 is deactivated.
struct SbusFields
{
    quint8 colormap;
    quint8 colormap_switch_mode; ///< 0 high/low, 1 absolute
    quint8 ffc;
    quint8 isotherms;
    quint8 iso_transparency;
    quint8 iso_lower;
    quint8 iso_middle;
    quint8 iso_upper;
    quint8 overlay;
    quint8 trigger; ///< also selects the entry of the two threshold tables that the form shows
    quint8 view_mode;
};
static_assert(sizeof(SbusFields) == 11);
static_assert(offsetof(SbusFields, colormap) == 0);
static_assert(offsetof(SbusFields, colormap_switch_mode) == 1);
static_assert(offsetof(SbusFields, ffc) == 2);
static_assert(offsetof(SbusFields, isotherms) == 3);
static_assert(offsetof(SbusFields, iso_transparency) == 4);
static_assert(offsetof(SbusFields, iso_lower) == 5);
static_assert(offsetof(SbusFields, iso_middle) == 6);
static_assert(offsetof(SbusFields, iso_upper) == 7);
static_assert(offsetof(SbusFields, overlay) == 8);
static_assert(offsetof(SbusFields, trigger) == 9);
static_assert(offsetof(SbusFields, view_mode) == 10);

/// Trigger levels, 1..2047, one entry for each channel index.
struct TriggerThresholds
{
    std::array<le_u16, 20> low;
    std::array<le_u16, 20> high;
};
static_assert(sizeof(TriggerThresholds) == 80);
static_assert(offsetof(TriggerThresholds, low) == 0);
static_assert(offsetof(TriggerThresholds, high) == 40);
