#pragma once

#include "app/RecordTable.h"

namespace Ui {
class MainWindow;
}

/// The fields of thermalCommPacket_Blend_R8_TypeDef, in the order in which they fill the form.
RecordTable blendTable(const Ui::MainWindow &ui);

/// The fields of thermalCommPacket_Blend_Zoom_R13_TypeDef, likewise.
RecordTable blendZoomTable(const Ui::MainWindow &ui);
