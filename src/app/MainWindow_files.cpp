#include "app/MainWindow.h"

#include "diagnostics/diagnostics.h"
#include "forms/filedialog.h"
#include "forms/messagebox.h"
#include "forms/recordfile.h"
#include "link/SerialConnection.h"
#include "records/thermalCommPacket_Blend_R8_TypeDef.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"

#include <QFileDialog>
#include <QFileInfo>

#include <array>
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
    send(COMIO_CMD_SET_CONFIG, bytesOf<thermalCommPacket_Blend_R8_TypeDef>(
                                   [this](auto &record) { ui2config_qxblend(record); }));
}

void MainWindow::setConfig_qx_blend_zoom()
{
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
    const int file = ::open(path.toUtf8().constData(), O_RDWR | O_CREAT, 0744);
    if (file < 0)
        diagnostics::out(QStringLiteral("Error opening file!"));
    else if (::write(file, record.data(), record.size()) != static_cast<ssize_t>(record.size()))
        diagnostics::out(QStringLiteral("Error writing data to file"));
    ::close(file);
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
    const auto bytes = recordfile::read(path);
    if (!bytes)
        return;
    parseUnknownControlStruct(QVector<unsigned char>(bytes->begin(), bytes->end()));
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
    QFile file(path);
    // A pipe would keep the window waiting until somebody reads from it.
    if ((existing.exists() && !existing.isFile()) || !file.open(QIODevice::WriteOnly))
        return;
    const QByteArray record = recordFromForm();
    if (record.isEmpty())
        diagnostics::err(QStringLiteral("<<< not implemeted"));
    file.write(record);
}
