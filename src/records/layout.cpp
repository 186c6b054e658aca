// Compiles the layout assertions of every record, whoever else includes them.
#include "records/FactorySettingsRecords.h"
#include "records/thermalCommPacket_Blend_R8_TypeDef.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"
