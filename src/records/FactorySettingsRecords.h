#pragma once

#include "records/LittleEndian.h"

#include <array>
#include <cstddef>

/// Seven placement values A to G of the infrared picture on one video output.
using FpgaDisplacement = std::array<le_i16, 7>;

/// Per-unit calibration of a Blend Zoom: a payload on the line and the content of a data file.
struct FactorySettings_QXBlendZoom_TypeDef
{
    static constexpr quint32 version = 20170904;

    le_u32 struct_version;                                ///< date as the decimal number yyyymmdd
    std::array<char, 12> device_serial_number;            ///< NUL-padded; twelve 0xFF: never set
    std::array<std::array<le_i32, 3>, 10> ardview_adjust; ///< X-Shift, Y-Shift, Scale per zoom
    std::array<FpgaDisplacement, 10> hdmi_displacement;   ///< per zoom position
    std::array<FpgaDisplacement, 10> analog_displacement; ///< per zoom position
};

static_assert(sizeof(FactorySettings_QXBlendZoom_TypeDef) == 416);
static_assert(offsetof(FactorySettings_QXBlendZoom_TypeDef, device_serial_number) == 4);
static_assert(offsetof(FactorySettings_QXBlendZoom_TypeDef, ardview_adjust) == 16);
static_assert(offsetof(FactorySettings_QXBlendZoom_TypeDef, hdmi_displacement) == 136);
static_assert(offsetof(FactorySettings_QXBlendZoom_TypeDef, analog_displacement) == 276);

/// Per-unit calibration of a Blend. 0xFFFFFFFF in a number means that it was never set.
struct FactorySettings_QXBlend_TypeDef
{
    std::array<char, 12> device_serial_number; ///< NUL-padded; twelve 0xFF: never set
    le_i32 ardview_horizontal;
    le_i32 ardview_vertical;
    le_i32 liveview_horizontal; ///< form value + 40
    le_i32 liveview_vertical;   ///< form value + 12
    le_i32 ardview_scale;
};

static_assert(sizeof(FactorySettings_QXBlend_TypeDef) == 32);
static_assert(offsetof(FactorySettings_QXBlend_TypeDef, ardview_horizontal) == 12);
static_assert(offsetof(FactorySettings_QXBlend_TypeDef, ardview_vertical) == 16);
static_assert(offsetof(FactorySettings_QXBlend_TypeDef, liveview_horizontal) == 20);
static_assert(offsetof(FactorySettings_QXBlend_TypeDef, liveview_vertical) == 24);
static_assert(offsetof(FactorySettings_QXBlend_TypeDef, ardview_scale) == 28);
