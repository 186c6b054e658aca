#pragma once

#include "app/MainWindow.h"
#include "configurationrecords.h"
#include "judge.h"
#include "records/Layout.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"

namespace configuration {

/// What the tool takes as a record.
inline bool isValid(const QByteArray &bytes)
{
    return judge(bytes).isValid();
}

/// The record that the form makes in the layout of a model.
inline QByteArray ofForm(MainWindow &window, bool zoom)
{
    const auto bytesOf = [](const auto &record) {
        return QByteArray(reinterpret_cast<const char *>(&record), sizeof record);
    };
    if (zoom) {
        thermalCommPacket_Blend_Zoom_R13_TypeDef record{};
        window.ui2config_qxblendzoom(record);
        return bytesOf(record);
    }
    thermalCommPacket_Blend_R8_TypeDef record{};
    window.ui2config_qxblend(record);
    return bytesOf(record);
}

} // namespace configuration
