#include "diagnostics/diagnostics.h"
#include "diagnostics/escaped.h"
#include "factory/FactorySettings.h"
#include "forms/filedialog.h"
#include "forms/recordfile.h"
#include "ui_FactorySettings.h"

#include <QBuffer>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QTextStream>

#include <algorithm>
#include <cstring>

using diagnostics::err;
using diagnostics::out;

namespace {

const QString dataExtension = QStringLiteral(".dat");
const QString reportExtension = QStringLiteral(".txt");

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
    const QString data = m_fileOutcome->text();
    writeReport(dir);
    showFileOutcome(data + QLatin1Char('\n') + m_fileOutcome->text());
}

void FactorySettings::on_pb_ReadFile_clicked()
{
    readFile();
}

bool FactorySettings::serialNumberNamesFile()
{
    const QString serial = m_ui->leSerialNumber->text();
    if (std::none_of(serial.begin(), serial.end(), [](QChar character) {
            return character == QLatin1Char('/') || character == QDir::separator() ||
                   diagnostics::isControl(character);
        }))
        return true;
    err(QStringLiteral("<<< the serial number cannot name a file: ") +
        diagnostics::escaped(serial));
    showFileOutcome(tr("Nothing was saved: the serial number cannot name a file"));
    return false;
}

QString FactorySettings::unitFileName(const QString &dir, const QString &extension) const
{
    return QDir::cleanPath(dir + QDir::separator() + m_ui->leSerialNumber->text() + extension);
}

void FactorySettings::writeFile(QString dir)
{
    out(QStringLiteral("FactorySettings::writeFile()"));
    write(dir, dataExtension, [this] {
        const FactorySettings_QXBlendZoom_TypeDef record = ui2struct_QXBlendZoom();
        return QByteArray(reinterpret_cast<const char *>(&record), sizeof record);
    });
}

void FactorySettings::writeReport(QString dir)
{
    out(QStringLiteral("FactorySettings::writeReport()"));
    write(dir, reportExtension, [this] {
        QBuffer text;
        text.open(QIODevice::WriteOnly | QIODevice::Text);
        QTextStream stream(&text);
        ui2report_QXBlendZoom(stream);
        stream.flush();
        return text.data();
    });
}

void FactorySettings::write(const QString &dir, const QString &extension,
                            const std::function<QByteArray()> &content)
{
    if (!serialNumberNamesFile())
        return;
    const QString path = unitFileName(dir, extension);
    const QString name = recordfile::shownName(path);
    out(QStringLiteral("<<< ") + diagnostics::escaped(path));
    const QString other = fileOfAnotherUnit(dir);
    if (!other.isEmpty()) {
        const bool exists = QFileInfo::exists(path);
        const QString text =
            exists ? tr("%1 is left as it is: it may be of another unit, for the serial number "
                        "was cut. Choose another folder.")
                   : tr("%1 is not written: %2 may be of another unit, for the serial number was "
                        "cut. Choose another folder.");
        showFileOutcome(exists ? text.arg(name) : text.arg(name, recordfile::shownName(other)));
        return;
    }
    const bool known = activeDevice() == KovoDevice_QXBlendZoom;
    const recordfile::Writing writing = recordfile::write(path, [&] {
        if (known)
            return content();
        err(QStringLiteral("<<< not implemeted"));
        return QByteArray();
    });
    using End = recordfile::Writing::End;
    if (writing.end == End::Unchanged || writing.end == End::Incomplete)
        err(QStringLiteral("<<< could not write %1: %2")
                .arg(diagnostics::escaped(path), writing.reason));
    if (writing.end != End::Complete) {
        showFileOutcome(recordfile::failure(writing, path));
        return;
    }
    m_writtenFor.insert(path, unitSerialNumber());
    showFileOutcome(known ? tr("Saved %1").arg(name)
                          : tr("%1 is empty: only a Quorvix Blend Zoom is saved").arg(name));
}

/// Data file and report belong together: if one of them may be of another unit, both stay.
QString FactorySettings::fileOfAnotherUnit(const QString &dir) const
{
    for (const QString &extension : {dataExtension, reportExtension}) {
        QString path = unitFileName(dir, extension);
        if (mayBeOfAnotherUnit(path))
            return path;
    }
    return {};
}

bool FactorySettings::mayBeOfAnotherUnit(const QString &path) const
{
    if (!QFileInfo::exists(path))
        return false;
    const auto unit = m_writtenFor.constFind(path);
    return unit == m_writtenFor.constEnd() ? !m_cutSerialNumber.isEmpty()
                                           : *unit != unitSerialNumber();
}

QString FactorySettings::unitSerialNumber() const
{
    return m_cutSerialNumber.isEmpty() ? m_ui->leSerialNumber->text() : m_cutSerialNumber;
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
    const QString name = recordfile::shownName(path);
    QString reason;
    const auto bytes = recordfile::read(path, &reason);
    if (!bytes) {
        showFileOutcome(tr("Cannot load %1: %2").arg(name, reason));
        return;
    }
    if (activeDevice() != KovoDevice_QXBlendZoom) {
        err(QStringLiteral("FactorySettings::readFile() Device not implemted"));
        showFileOutcome(
            tr("%1 was not loaded: only a Quorvix Blend Zoom has data files").arg(name));
        return;
    }
    FactorySettings_QXBlendZoom_TypeDef record;
    if (size_t(bytes->size()) < sizeof(record)) {
        err(QStringLiteral("FactorySettings::readFile() File too short: %1 bytes")
                .arg(bytes->size()));
        showFileOutcome(tr("Cannot load %1, it holds no valid record: too short, %2 bytes")
                            .arg(name, QString::number(bytes->size())));
        return;
    }
    std::memcpy(&record, bytes->constData(), sizeof(record));
    const bool shown = parseFactorySettings_QXBlendZoom(&record);
    showFileOutcome(shown ? tr("Loaded %1").arg(name)
                          : tr("Loaded the serial number of %1 only").arg(name));
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
