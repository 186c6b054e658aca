#include "app/MainWindow.h"

#include "factory/FactorySettings.h"
#include "factory/LiveEdit.h"
#include "ui_MainWindow.h"

void MainWindow::on_pbFactorySettings_clicked()
{
    slotOpenFactorySettings();
}

void MainWindow::on_pb_TestWindow_clicked()
{
    slotOpenTestWindow();
}

void MainWindow::slotOpenFactorySettings()
{
    m_factorySettings->show();
    m_factorySettings->adjustSize();
    m_factorySettings->on_pbGetFactorySettings_clicked();
}

void MainWindow::slotOpenTestWindow()
{
    m_liveEdit->show();
    m_liveEdit->adjustSize();
}

void MainWindow::slotSendFactorySettings2Testwindow_CurrentHDMI()
{
    const int zoom = m_ui->sbTamronZoom->value();
    const auto record = m_factorySettings->ui2struct_QXBlendZoom();
    const auto &[a, b, c, d, e, f, g] = record.hdmi_displacement[static_cast<size_t>(zoom - 1)];
    m_liveEdit->setDisplacements_HDMI(a, b, c, d, e, f, g, static_cast<int16_t>(zoom));
}

void MainWindow::slotSendFactorySettings2Testwindow_CurrentAnaloge()
{
    const int zoom = m_ui->sbTamronZoom->value();
    const auto record = m_factorySettings->ui2struct_QXBlendZoom();
    const auto &[a, b, c, d, e, f, g] = record.analog_displacement[static_cast<size_t>(zoom - 1)];
    m_liveEdit->setDisplacements_Analoge(a, b, c, d, e, f, g);
}

void MainWindow::slotSetFactorySettings_CurrentHDMI(int16_t a, int16_t b, int16_t c, int16_t d,
                                                    int16_t e, int16_t f, int16_t g)
{
    const auto column = static_cast<int16_t>(m_ui->sbTamronZoom->value() - 1);
    m_factorySettings->setFPGADisplacements_HDMI(column, a, b, c, d, e, f, g);
}

void MainWindow::slotSetFactorySettings_CurrentAnaloge(int16_t a, int16_t b, int16_t c, int16_t d,
                                                       int16_t e, int16_t f, int16_t g)
{
    const auto column = static_cast<int16_t>(m_ui->sbTamronZoom->value() - 1);
    m_factorySettings->setFPGADisplacements_Analoge(column, a, b, c, d, e, f, g);
}
