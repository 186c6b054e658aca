#include "app/MainWindow.h"

#include "app/configuration_tables.h"
#include "camera/models.h"
#include "records/layouts.h"
#include "records/thermalCommPacket_Blend_R8_TypeDef.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"

#include <QComboBox>

#include <algorithm>

namespace {

const RecordTable &builtOnce(RecordTable &table, RecordTable (*build)(const Ui::MainWindow &),
                             const Ui::MainWindow &ui)
{
    if (table.empty())
        table = build(ui);
    return table;
}

bool sealedFromForm(const RecordTable &table, const Layout &layout, void *record)
{
    auto *bytes = static_cast<uchar *>(record);
    formToRecord(table, bytes);
    seal(layout, bytes);
    return true;
}

} // namespace

void MainWindow::config2ui_qxblend(const thermalCommPacket_Blend_R8_TypeDef *record)
{
    recordToForm(builtOnce(m_blendTable, blendTable, *m_ui),
                 reinterpret_cast<const uchar *>(record));
}

void MainWindow::config2ui_qxblendzoom(const thermalCommPacket_Blend_Zoom_R13_TypeDef *record)
{
    recordToForm(builtOnce(m_blendZoomTable, blendZoomTable, *m_ui),
                 reinterpret_cast<const uchar *>(record));
}

bool MainWindow::ui2config_qxblend(thermalCommPacket_Blend_R8_TypeDef &record)
{
    return sealedFromForm(builtOnce(m_blendTable, blendTable, *m_ui), layouts::blend, &record);
}

bool MainWindow::ui2config_qxblendzoom(thermalCommPacket_Blend_Zoom_R13_TypeDef &record)
{
    return sealedFromForm(builtOnce(m_blendZoomTable, blendZoomTable, *m_ui), layouts::blendZoom,
                          &record);
}

void MainWindow::preset(const Preset &preset)
{
    const std::pair<const Layout &, const RecordTable &> records[] = {
        {layouts::blend, builtOnce(m_blendTable, blendTable, *m_ui)},
        {layouts::blendZoom, builtOnce(m_blendZoomTable, blendZoomTable, *m_ui)},
    };
    for (const auto &[layout, table] : records) {
        const Field *field = layout.field(QLatin1String(preset.field));
        if (!field)
            continue; // the form shows it all the same
        const auto row = std::find_if(table.begin(), table.end(), [&](const RecordRow &row) {
            return row.offset == field->wire.offset;
        });
        auto *box = static_cast<QComboBox *>(row->widget);
        box->setCurrentIndex(field->vocabulary->positionOf(preset.stored));
        if (preset.locked)
            box->setEnabled(false);
        return;
    }
}

int MainWindow::SonyFCBFocusvalue2int(quint8 byte)
{
    return ::SonyFCBFocusvalue2int(byte);
}
