#include "diagnostics/diagnostics.h"
#include "diagnostics/escaped.h"
#include "factory/FactorySettings.h"
#include "forms/filedialog.h"
#include "forms/recordfile.h"
#include "ui_FactorySettings.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTextStream>

#include <algorithm>
#include <cstring>

using diagnostics::err;
using diagnostics::out;

namespace {

/// Every row of the table: its header, a blank, each cell followed by a comma.
void reportRows(QTextStream &stream, const QTableWidget *table)
{
    for (int row = 0; row < table->rowCount(); ++row) {
        stream << table->model()->headerData(row, Qt::Vertical).toString() << ' ';
        for (int column = 0; column < table->columnCount(); ++column) {
            const QTableWidgetItem *cell = table->item(row, column);
            stream << (cell != nullptr ? cell->text() : QString()) << ',';
        }
        stream << '\n';
    }
}

/// A full disk shows only when the buffered bytes reach it.
void reportUnwritten(const QFile &file)
{
    err(QStringLiteral("<<< could not write %1: %2")
            .arg(diagnostics::escaped(file.fileName()), file.errorString()));
}

/// Runs the dialog; the first path chosen, or nothing after a cancel.
QString chosenPath(QFileDialog &dialog)
{
    dialog.setViewMode(QFileDialog::Detail);
    QString path = filedialog::chosen(dialog);
    if (!path.isEmpty())
        out(QStringLiteral("<<< ") + diagnostics::escaped(path));
    return path;
}

} // namespace

void FactorySettings::on_pb_WriteFile_clicked()
{
    QFileDialog dialog(this);
    dialog.setFileMode(QFileDialog::Directory);
    const QString dir = chosenPath(dialog);
    if (dir.isEmpty() || !serialNumberNamesFile())
        return;
    writeFile(dir);
    writeReport(dir);
}

void FactorySettings::on_pb_ReadFile_clicked()
{
    readFile();
}

bool FactorySettings::serialNumberNamesFile() const
{
    const QString serial = m_ui->leSerialNumber->text();
    if (std::none_of(serial.begin(), serial.end(), [](QChar character) {
            return character == QLatin1Char('/') || character == QDir::separator() ||
                   diagnostics::isControl(character);
        }))
        return true;
    err(QStringLiteral("<<< the serial number cannot name a file: ") +
        diagnostics::escaped(serial));
    return false;
}

QString FactorySettings::unitFileName(const QString &dir, const QString &extension) const
{
    return QDir::cleanPath(dir + QDir::separator() + m_ui->leSerialNumber->text() + extension);
}

void FactorySettings::writeFile(QString dir)
{
    out(QStringLiteral("FactorySettings::writeFile()"));
    if (!serialNumberNamesFile())
        return;
    QFile file(unitFileName(dir, QStringLiteral(".dat")));
    out(QStringLiteral("<<< ") + diagnostics::escaped(file.fileName()));
    if (recordfile::isPipe(file.fileName()) || !file.open(QIODevice::WriteOnly))
        return;
    if (activeDevice() != KovoDevice_QXBlendZoom) {
        err(QStringLiteral("<<< not implemeted"));
        return;
    }
    const FactorySettings_QXBlendZoom_TypeDef record = ui2struct_QXBlendZoom();
    const auto size = qint64(sizeof(record));
    if (file.write(reinterpret_cast<const char *>(&record), size) != size || !file.flush())
        reportUnwritten(file);
}

void FactorySettings::writeReport(QString dir)
{
    out(QStringLiteral("FactorySettings::writeReport()"));
    if (!serialNumberNamesFile())
        return;
    QFile file(unitFileName(dir, QStringLiteral(".txt")));
    out(QStringLiteral("<<< ") + diagnostics::escaped(file.fileName()));
    if (recordfile::isPipe(file.fileName()) || !file.open(QIODevice::WriteOnly | QIODevice::Text))
        return;
    if (activeDevice() != KovoDevice_QXBlendZoom) {
        err(QStringLiteral("<<< not implemeted"));
        return;
    }
    QTextStream stream(&file);
    ui2report_QXBlendZoom(stream);
    stream.flush();
    if (stream.status() != QTextStream::Ok)
        reportUnwritten(file);
}

void FactorySettings::readFile()
{
    out(QStringLiteral("FactorySettings::readFile()"));
    QFileDialog dialog(this);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilter(tr("Data files (*.dat *.DAT)"));
    const QString path = chosenPath(dialog);
    if (!path.isEmpty())
        loadFile(path);
}

void FactorySettings::loadFile(const QString &path)
{
    const auto bytes = recordfile::read(path);
    if (!bytes)
        return;
    if (activeDevice() != KovoDevice_QXBlendZoom) {
        err(QStringLiteral("FactorySettings::readFile() Device not implemted"));
        return;
    }
    FactorySettings_QXBlendZoom_TypeDef record;
    if (size_t(bytes->size()) < sizeof(record)) {
        err(QStringLiteral("FactorySettings::readFile() File too short: %1 bytes")
                .arg(bytes->size()));
        return;
    }
    std::memcpy(&record, bytes->constData(), sizeof(record));
    parseFactorySettings_QXBlendZoom(&record);
}

void FactorySettings::ui2report_QXBlendZoom(QTextStream &stream)
{
    out(QStringLiteral("FactorySettings::ui2report_QXBlendZoom()"));
    stream << m_devices->DeviceCRC2Name(activeDevice()) << ' ' << m_ui->leSerialNumber->text()
           << '\n';
    stream << "\nHDMI:\n";
    reportRows(stream, m_ui->tw_QXBZ_hdmi);
    stream << "\nAnalog:\n";
    reportRows(stream, m_ui->tw_QXBZ_analog);
    stream << "\nArdview:\n";
    reportRows(stream, m_ui->tw_QXBZ_ardview);
}
