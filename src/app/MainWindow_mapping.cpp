#include "app/MainWindow.h"

#include "app/configuration_tables.h"
#include "records/thermalCommPacket_Blend_R8_TypeDef.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"

namespace {

const RecordTable &builtOnce(RecordTable &table, RecordTable (*build)(const Ui::MainWindow &),
                             const Ui::MainWindow &ui)
{
    if (table.empty())
        table = build(ui);
    return table;
}

template <class Record>
bool sealedFromForm(const RecordTable &table, Record &record)
{
    auto *bytes = reinterpret_cast<uchar *>(&record);
    formToRecord(table, bytes);
    quint16 crc = 0;
    KovoDevices::calc_crc(bytes, offsetof(Record, crc), &crc);
    record.crc = crc;
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
    return sealedFromForm(builtOnce(m_blendTable, blendTable, *m_ui), record);
}

bool MainWindow::ui2config_qxblendzoom(thermalCommPacket_Blend_Zoom_R13_TypeDef &record)
{
    return sealedFromForm(builtOnce(m_blendZoomTable, blendZoomTable, *m_ui), record);
}

int MainWindow::SonyFCBFocusvalue2int(quint8 byte)
{
    return ::SonyFCBFocusvalue2int(byte);
}
