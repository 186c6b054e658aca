#include "app/MainWindow.h"

#include "app/StateLabels.h"
#include "app/keyText.h"
#include "app/messageState.h"
#include "app/whatsthis.h"
#include "diagnostics/escaped.h"
#include "factory/FactorySettings.h"
#include "factory/LiveEdit.h"
#include "forms/busyindicator.h"
#include "forms/inputs.h"
#include "link/SerialConnection.h"
#include "link/kovoPacketManager.h"
#include "sbus/sbusTester.h"
#include "ui_MainWindow.h"

#include <QMenuBar>
#include <QScreen>
#include <QStatusTipEvent>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace {

constexpr char InitialStatus[] = "KoVo";

/// The inputs of forms that stand above one another begin in one line.
void alignLabels(std::initializer_list<QFormLayout *> forms)
{
    QList<QWidget *> labels;
    int width = 0;
    for (const QFormLayout *form : forms)
        for (int row = 0; row < form->rowCount(); ++row)
            if (QLayoutItem *item = form->itemAt(row, QFormLayout::LabelRole)) {
                labels << item->widget();
                width = std::max(width, item->widget()->sizeHint().width());
            }
    for (QWidget *label : qAsConst(labels))
        label->setMinimumWidth(width);
}

} // namespace

MainWindow::MainWindow(QWidget *parent) : QMainWindow(parent), m_ui(new Ui::MainWindow)
{
    setLocale(inputs::locale());
    m_ui->setupUi(this);
    m_stateLabels = new StateLabels(m_ui->statusBar, &m_state, this);
    inputs::guardAll(this);

    for (QWidget *widget : std::initializer_list<QWidget *>{
             m_ui->gb_Liveview_hotspotdetection, m_ui->gb_liveview_layerscaling,
             m_ui->gb_pheriphery_externalshutteroptions, m_ui->label_eso_opt5, m_ui->sb_eso_opt5,
             m_ui->gb_VLC_cam})
        widget->hide();

    alignLabelColumns();
    fillEnumerationLists();
    makePagesScroll(); // with the lists full: they keep the width they are first asked for
    createCompanions();
    createHelpMenu();
    createShortcuts();
    whatsthis::complete(this);
    slotPortConnectionChanged(false);
    m_status.setBusy(false);
    busyindicator::load(m_ui->quickWidget, &m_status, m_ui->label->palette().window().color());
    m_ui->statusBar->showMessage(QLatin1String(InitialStatus));
    m_ui->pbFactorySettings->hide();
    m_ui->pb_TestWindow->hide();
    // The form has tabs 0 to 7: a harmless no-op that keeps a ninth one out.
    m_ui->tabWidget->removeTab(8);
    m_ui->comboBoxPort->setFocus(); // where a key changes nothing of the configuration
    // Asked for its height before it has a width, the menu bar would fold its menus.
    menuBar()->resize(screen()->availableSize().width(), menuBar()->height());
    fitToScreen();
}

MainWindow::~MainWindow()
{
    // The busy state goes before the widgets: nothing may be bound to it then.
    busyindicator::unload(m_ui->quickWidget);
    delete m_devices;
    delete m_packetManager;
    delete m_serial;
    delete m_factorySettings;
    delete m_liveEdit;
    delete m_sbusTester;
    delete m_ui;
}

void MainWindow::alignLabelColumns()
{
    alignLabels({m_ui->layout_optionalpheriphery, m_ui->layout_testmodes});
    alignLabels({m_ui->layout_triggermodes, m_ui->layout_FFCmode});
    alignLabels({m_ui->layout_videoMode, m_ui->layout_liveview, m_ui->layout_isotherms});
    alignLabels({m_ui->layout_hdmivideoMode, m_ui->layout_iradj});
    alignLabels(
        {m_ui->layout_TamronZoom, m_ui->layout_vlc_ae, m_ui->layout_TamronVibrationCompensation});
    alignLabels({m_ui->layout_SonyFCBFocus, m_ui->layout_SonyFCBCameraAdjustements});
    alignLabels({m_ui->layout_ImageOutput, m_ui->layout_frameskip, m_ui->layout_SyncMode,
                 m_ui->layout_compressionQuality_slider});
}

void MainWindow::fillEnumerationLists()
{
    m_ui->cbHDMIVideoMode->addItem(keyText(MODE_1080P_30HZ));
    m_ui->cbHDMIVideoMode->addItem(keyText(MODE_1080P_60HZ));

    m_ui->cb_vlc_ae_mode->addItem(keyText(VISCA_AEMODE_FULL_AUTO));
    m_ui->cb_vlc_ae_mode->addItem(keyText(VISCA_AEMODE_SHUTTER_PRIORITY));
    m_ui->cb_vlc_ae_mode->setCurrentText(keyText(VISCA_AEMODE_FULL_AUTO));

    for (int speed = SPEED_10000_HZ; speed >= SPEED_1_HZ; --speed)
        m_ui->cb_vlc_ae_shutterspeed->addItem(keyText(static_cast<viscaaeshutterspeed>(speed)));
    m_ui->cb_vlc_ae_shutterspeed->setCurrentText(keyText(SPEED_30_HZ));
}

void MainWindow::createCompanions()
{
    connect(m_ui->cbPeripheryGimbalrc, SIGNAL(stateChanged(int)), this,
            SLOT(on_cbPeripheryGimbalrc_stateChanged(int)));
    connect(m_ui->cbPeripheryGPS, SIGNAL(currentIndexChanged(int)), this,
            SLOT(on_cbPeripheryGPSIndexChanged(int)));
    connect(m_ui->cbTriggerPinMode, SIGNAL(currentIndexChanged(int)), this,
            SLOT(on_cbTriggerPinModeIndexChanged(int)));

    if (!messageState.timer)
        messageState.timer = new QTimer(this);
    connect(messageState.timer, SIGNAL(timeout()), this, SLOT(slotMessageStateTimerComplete()));

    m_devices = new KovoDevices(nullptr);
    connect(m_devices, SIGNAL(signalDeviceChanged(KovoDeviceCRCKey_TypeDef)), this,
            SLOT(slotDeviceChanged(KovoDeviceCRCKey_TypeDef)));

    m_packetManager = new kovoPacketManager(nullptr);
    connect(m_packetManager,
            SIGNAL(signalMessageReceived(ComioInterfaceCommand_TypeDef, QVector<uint8_t>)), this,
            SLOT(slotNewMessageReceived(ComioInterfaceCommand_TypeDef, QVector<uint8_t>)));

    m_serial = new SerialConnection(nullptr);
    connect(m_serial, SIGNAL(signalPortListChanged(QStringList)), this,
            SLOT(slotNewPortList(QStringList)));
    connect(m_serial, SIGNAL(signalNewSerialPortData(QByteArray)), m_packetManager,
            SLOT(slotPacketStateMachine(QByteArray)));
    connect(m_serial, SIGNAL(signalPortConnectionChanged(bool)), this,
            SLOT(slotPortConnectionChanged(bool)));
    connect(m_serial, &SerialConnection::signalWriteStalled, this, &MainWindow::slotWriteStalled);

    m_factorySettings = new FactorySettings(this);
    m_factorySettings->connectDevice(false);
    m_factorySettings->setPacketManager(m_packetManager);
    m_factorySettings->setDevices(m_devices);
    connect(m_factorySettings, SIGNAL(signalSendPackage(QByteArray)), this,
            SLOT(slotSendPacket(QByteArray)));
    connect(m_factorySettings, &FactorySettings::fileOutcome, this, &MainWindow::showFileOutcome);
    connect(m_devices, SIGNAL(signalDeviceChanged(KovoDeviceCRCKey_TypeDef)), m_factorySettings,
            SLOT(slotDeviceChanged(KovoDeviceCRCKey_TypeDef)));

    m_liveEdit = new LiveEdit(this);
    m_liveEdit->connectDevice(false);
    m_liveEdit->setPacketManager(m_packetManager);
    m_liveEdit->setDevices(m_devices);
    connect(m_liveEdit, SIGNAL(signalSendPackage(QByteArray)), this,
            SLOT(slotSendPacket(QByteArray)));
    connect(m_liveEdit, SIGNAL(signalGet_FactoryHDMISettings()), this,
            SLOT(slotSendFactorySettings2Testwindow_CurrentHDMI()));
    connect(m_liveEdit, SIGNAL(signalGet_FactoryAnalogeSettings()), this,
            SLOT(slotSendFactorySettings2Testwindow_CurrentAnaloge()));
    connect(m_liveEdit,
            SIGNAL(signalSet_FactoryHDMISettings(int16_t, int16_t, int16_t, int16_t, int16_t,
                                                 int16_t, int16_t)),
            this,
            SLOT(slotSetFactorySettings_CurrentHDMI(int16_t, int16_t, int16_t, int16_t, int16_t,
                                                    int16_t, int16_t)));
    connect(m_liveEdit,
            SIGNAL(signalSet_FactoryAnalogeSettings(int16_t, int16_t, int16_t, int16_t, int16_t,
                                                    int16_t, int16_t)),
            this,
            SLOT(slotSetFactorySettings_CurrentAnaloge(int16_t, int16_t, int16_t, int16_t, int16_t,
                                                       int16_t, int16_t)));

    m_sbusTester = new sbusTester(this);
    m_sbusTester->setPacketManager(m_packetManager);
    connect(m_sbusTester, SIGNAL(signalSendPackage(QByteArray)), this,
            SLOT(slotSendPacket(QByteArray)));
}

void MainWindow::offerPorts(const QStringList &ports)
{
    QStringList named = ports;
    named.removeAll(QString());
    m_serial->setExtraPorts(named);
}

void MainWindow::showFactoryButtons()
{
    m_ui->pbFactorySettings->show();
    m_ui->pb_TestWindow->show();
}

void MainWindow::releasePort()
{
    delete m_serial;
    m_serial = nullptr;
}

bool MainWindow::event(QEvent *event)
{
    // Menus clear the status bar with empty tips, but its text stays until it is replaced.
    if (event->type() == QEvent::StatusTip &&
        static_cast<QStatusTipEvent *>(event)->tip().isEmpty())
        return true;
    const bool done = QMainWindow::event(event);
    // Showing a window hides the frame around its focus until the first key.
    if (event->type() == QEvent::WindowActivate) {
        setAttribute(Qt::WA_KeyboardFocusChange);
        if (focusWidget())
            focusWidget()->update();
    }
    if (event->type() == QEvent::Show || event->type() == QEvent::LayoutRequest)
        fitToScreen();
    return done;
}

void MainWindow::slotNewPortList(QStringList ports)
{
    m_ui->comboBoxPort->clear();
    m_ui->comboBoxPort->addItems(ports);
    m_serial->setPortName(m_ui->comboBoxPort->currentText());
}

void MainWindow::on_btConnectDisconnect_clicked()
{
    const QString port = m_ui->comboBoxPort->currentText();
    if (m_serial->isOpen() || port.isEmpty())
        m_serial->closeSerialPort();
    else if (!m_serial->openSerialPort(port))
        showOpenFailure(port);
    else if (std::exchange(m_openFailureShown, false))
        m_ui->statusBar->showMessage(QLatin1String(InitialStatus));
}

void MainWindow::showOpenFailure(const QString &port)
{
    m_openFailureShown = true;
    const auto show = [&](const QString &reason) {
        m_ui->statusBar->showMessage(reason.arg(diagnostics::escaped(port)));
    };
    switch (m_serial->lastOpening()) {
    case SerialConnection::Opening::NotPermitted:
        return show(tr("Cannot open %1: no permission. Add your user to the group dialout, then "
                       "log in again."));
    case SerialConnection::Opening::Busy:
        return show(tr("Cannot open %1: another program holds it. Close that program, then "
                       "connect again."));
    case SerialConnection::Opening::NotFound:
        return show(tr("Cannot open %1: no such device. Plug the camera in again."));
    case SerialConnection::Opening::NameTooLong:
        return show(tr("Cannot open a port with so long a name. Make a link to it, then choose "
                       "the link: %1"));
    default:
        return show(tr("Cannot open %1: it is no usable serial port. Choose another one, or plug "
                       "the camera in again."));
    }
}

void MainWindow::slotPortConnectionChanged(bool)
{
    const bool open = m_serial->isOpen();
    m_ui->btConnectDisconnect->setText(open ? tr("Disconnect") : tr("Connect"));
    if (open) {
        m_state.opened(m_ui->comboBoxPort->currentText());
        send(COMIO_CMD_GET_DEVICE_ID);
        if (!m_serial->isOpen())
            return; // the line vanished under the request, which has closed the form already
    } else {
        m_state.closed();
        m_liveChangeUnsent = false;
        m_status.setBusy(false);
    }

    m_factorySettings->connectDevice(open);
    m_liveEdit->connectDevice(open);
    m_sbusTester->connectDevice(open);

    for (QWidget *widget : std::initializer_list<QWidget *>{m_ui->pbLivePreview, m_ui->btnReadConf,
                                                            m_ui->btnSetConf, m_ui->gbGPSStream})
        widget->setEnabled(open);
    // The live view stays usable after a disconnect.
    if (open)
        m_ui->tab_liveview->setEnabled(true);
}

void MainWindow::slotWriteStalled(bool stalled)
{
    m_state.setWriteStalled(stalled);
}
