#include "app/MainWindow.h"

#include "app/recordDefect.h"
#include "diagnostics/diagnostics.h"
#include "forms/filedialog.h"
#include "forms/messagebox.h"
#include "forms/recordfile.h"
#include "link/SerialConnection.h"
#include "records/thermalCommPacket_Blend_R8_TypeDef.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"
#include "ui_MainWindow.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QStatusBar>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace {

bool confirmed(QWidget *parent, const QString &title, const QString &text)
{
    return messagebox::accepted(
        parent, {title, text, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel});
}

template <class Record, class Convert>
QByteArray bytesOf(Convert convert)
{
    Record record{}; // unset bytes are 0
    convert(record);
    return QByteArray(reinterpret_cast<const char *>(&record), sizeof record);
}

} // namespace

QByteArray MainWindow::recordFromForm()
{
    switch (m_devices->getDevice()) {
    case KovoDevice_QXBlendZoom:
        return bytesOf<thermalCommPacket_Blend_Zoom_R13_TypeDef>(
            [this](auto &record) { ui2config_qxblendzoom(record); });
    case KovoDevice_QXBlend:
        return bytesOf<thermalCommPacket_Blend_R8_TypeDef>(
            [this](auto &record) { ui2config_qxblend(record); });
    default:
        return QByteArray();
    }
}

void MainWindow::on_btnReadConf_clicked()
{
    requestConfig(static_cast<KovoDeviceCRCKey_TypeDef>(m_devices->getDevice()));
}

void MainWindow::requestConfig_qx_blend()
{
    send(COMIO_CMD_GET_CONFIG);
}

void MainWindow::requestConfig_qx_blend_zoom()
{
    send(COMIO_CMD_GET_CONFIG);
}

void MainWindow::on_btnSetConf_clicked()
{
    const bool wasConnected = m_serial->isOpen();
    if (!confirmed(this, tr("Save configuration"),
                   tr("<p>You are going to save a new configuration.<br>The device "
                      "will be restartet.<br>Are you sure to proceed?</p>")))
        return;
    switch (m_devices->getDevice()) {
    case KovoDevice_QXBlendZoom:
        setConfig_qx_blend_zoom();
        break;
    case KovoDevice_QX20:
        setConfig_qx_2_0();
        break;
    case KovoDevice_QXBlend:
        setConfig_qx_blend();
        break;
    default:
        diagnostics::err(QStringLiteral("MainWindow::on_btnSetConf_clicked(): not implemeted"));
    }
    endWithoutPort(wasConnected);
}

void MainWindow::setConfig_qx_blend()
{
    m_liveChangeUnsent = false;
    send(COMIO_CMD_SET_CONFIG, bytesOf<thermalCommPacket_Blend_R8_TypeDef>(
                                   [this](auto &record) { ui2config_qxblend(record); }));
}

void MainWindow::setConfig_qx_blend_zoom()
{
    m_liveChangeUnsent = false;
    send(COMIO_CMD_SET_CONFIG, bytesOf<thermalCommPacket_Blend_Zoom_R13_TypeDef>(
                                   [this](auto &record) { ui2config_qxblendzoom(record); }));
}

void MainWindow::setConfig_qx_2_0()
{
    const QString path = filedialog::saveFileName(
        this, tr("Save File"), QStringLiteral("QXCONFIG.BIN"), QStringLiteral(".BIN"));
    // No layout of the 2.0 record is known: the file is a record of zeros. What an existing file
    // holds beyond it stays.
    const std::array<char, sizeof(thermalCommPacket_Blend_R8_TypeDef)> record{};
    using End = recordfile::Writing::End;
    recordfile::Writing writing;
    writing.existed = QFileInfo::exists(path);
    const int file = ::open(path.toUtf8().constData(), O_RDWR | O_CREAT, 0744);
    if (file < 0) {
        writing.end = End::NotOpened;
        writing.reason = qt_error_string(errno);
        diagnostics::out(QStringLiteral("Error opening file!"));
    } else {
        size_t written = 0;
        ssize_t size = 0;
        // Where a part finds room, the system tells why there is no more when asked for the rest.
        while (written < record.size() &&
               (size = ::write(file, record.data() + written, record.size() - written)) > 0)
            written += size_t(size);
        const bool whole = written == record.size();
        int error = whole ? 0 : errno;
        if (::close(file) != 0 && whole)
            error = errno; // some systems find the disk full or broken only now
        if (error != 0) {
            writing.end = written == 0 && writing.existed ? End::Unchanged : End::Incomplete;
            writing.reason = qt_error_string(error);
            diagnostics::out(QStringLiteral("Error writing data to file"));
        }
    }
    if (path.isEmpty())
        return; // cancelled
    showFileOutcome(writing.end == End::Complete
                        ? tr("Saved %1 (zeros: the settings of a Quorvix 2.0 are not known)")
                              .arg(recordfile::shownName(path))
                        : recordfile::failure(writing, path));
}

void MainWindow::on_actionOpen_triggered()
{
    QFileDialog dialog(this);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({tr("Binary files (*.bin *.BIN)"), tr("All files (*)")});
    dialog.setViewMode(QFileDialog::Detail);
    const QString path = filedialog::chosen(dialog);
    if (!path.isEmpty())
        loadConfigurationFile(path);
}

void MainWindow::loadConfigurationFile(const QString &path)
{
    QString reason;
    const auto bytes = recordfile::read(path, &reason);
    const QString name = recordfile::shownName(path);
    if (!bytes) {
        showFileOutcome(tr("Cannot load %1: %2").arg(name, reason));
        return;
    }
    const QVector<unsigned char> record(bytes->begin(), bytes->end());
    const bool valid = parseUnknownControlStruct(record);
    showFileOutcome(
        valid ? loadedText(name, qFromLittleEndian<quint32>(record.constData()))
              : tr("Cannot load %1, it holds no valid record: %2").arg(name, recordDefect(record)));
    if (m_serial->isOpen() &&
        confirmed(this, tr("Configuration loaded"),
                  tr("<p>The new configuration was succesfully loaded.<br>Do you "
                     "want to save the settings on your device?</p>"))) {
        on_btnSetConf_clicked();
        endWithoutPort(true);
    }
}

void MainWindow::on_actionSave_triggered()
{
    QFileDialog dialog(this);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilter(tr("Binary files (*bin *.BIN)"));
    dialog.setViewMode(QFileDialog::List);
    const QString path = filedialog::chosen(dialog);
    if (!path.isEmpty())
        saveConfigurationFile(path);
}

void MainWindow::saveConfigurationFile(const QString &path)
{
    const QFileInfo existing(path);
    const QString name = recordfile::shownName(path);
    if (existing.exists() && !existing.isFile()) {
        showFileOutcome(tr("Cannot save %1: not a regular file").arg(name));
        return;
    }
    QByteArray record;
    const recordfile::Writing writing = recordfile::write(path, [&] {
        record = recordFromForm();
        if (record.isEmpty())
            diagnostics::err(QStringLiteral("<<< not implemeted"));
        return record;
    });
    const QString model = modelName(m_devices->getDevice());
    if (writing.end != recordfile::Writing::End::Complete)
        showFileOutcome(recordfile::failure(writing, path));
    else if (!record.isEmpty())
        showFileOutcome(tr("Saved %1 (%2)").arg(name, model));
    else if (model.isEmpty())
        showFileOutcome(
            tr("%1 is empty: no model is chosen, so there is nothing to save").arg(name));
    else
        showFileOutcome(tr("%1 is empty: the settings of a %2 are not known").arg(name, model));
}

QString MainWindow::loadedText(const QString &name, quint32 key) const
{
    QString text = tr("Loaded %1 (%2)").arg(name, modelName(key));
    const quint32 active = m_devices->getDevice();
    if (active == 0 || active == key)
        return text;
    return tr("%1, but the form is that of a %2").arg(text, modelName(active));
}

void MainWindow::showFileOutcome(const QString &outcome)
{
    m_openFailureShown = false;
    m_ui->statusBar->showMessage(outcome);
}
