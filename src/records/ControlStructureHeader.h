#pragma once

#include "records/LittleEndian.h"

#include <cstddef>

/// The 12 bytes that begin every configuration record.
struct ControlStructureHeader
{
    le_u32 device_key;             ///< which model, see KovoDeviceCRCKey_TypeDef
    le_u32 data_length;            ///< bytes between this header and the CRC-16
    le_u32 control_struct_version; ///< date as the decimal number yyyymmdd
};

static_assert(sizeof(ControlStructureHeader) == 12);
static_assert(offsetof(ControlStructureHeader, data_length) == 4);
static_assert(offsetof(ControlStructureHeader, control_struct_version) == 8);
