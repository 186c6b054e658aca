#include "sbus/sbusTester.h"

#include "diagnostics/diagnostics.h"
#include "forms/busyindicator.h"
#include "link/kovoPacketManager.h"
#include "ui_sbusTester.h"

#include <QHideEvent>
#include <QTimer>
#include <QtEndian>

namespace {
constexpr int RequestInterval = 500; // ms
constexpr int HighestBarLevel = 2000;
} // namespace

sbusTester::sbusTester(QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::sbusTester>()), m_timer(new QTimer(this))
{
    m_ui->setupUi(this);
    for (int i = 0; i < ChannelCount; ++i) {
        m_numbers[i] = findChild<QLCDNumber *>(QStringLiteral("lcd%1").arg(i + 1));
        m_bars[i] = findChild<QSlider *>(QStringLiteral("hs_clv%1").arg(i + 1));
        m_bars[i]->setRange(0, HighestBarLevel);
        m_bars[i]->setAttribute(Qt::WA_TransparentForMouseEvents); // a display, not an input
    }
    connect(m_timer, &QTimer::timeout, this, &sbusTester::slotTimerRequestSbusLevels);
    busyindicator::load(m_ui->quickWidget, &m_status, palette().color(QPalette::Window));
}

sbusTester::~sbusTester()
{
    busyindicator::unload(m_ui->quickWidget);
}

void sbusTester::connectDevice(bool connected)
{
    if (!connected)
        ongoingRequest(false);
    setEnabled(connected);
}

void sbusTester::on_pbSbusTester_startstream_clicked()
{
    diagnostics::out(QStringLiteral("sbusTester::on_pbSbusTester_startstream_clicked"));
    ongoingRequest(!m_timer->isActive());
}

void sbusTester::ongoingRequest(bool on)
{
    m_status.setBusy(on);
    if (on) {
        m_timer->start(RequestInterval);
        return;
    }
    m_timer->stop();
    for (int i = 0; i < ChannelCount; ++i)
        showLevel(i, 0);
}

void sbusTester::slotTimerRequestSbusLevels()
{
    diagnostics::out(QStringLiteral("sbusTester::slotTimerRequestSbusLevels())"));
    QByteArray frame;
    m_packetManager->prepareMessage(nullptr, 0, 1, 1, COMIO_CMD_GET_SBUS_LEVELS, frame);
    emit signalSendPackage(frame);
}

void sbusTester::parseSbusLevels(QVector<unsigned char> payload)
{
    diagnostics::out(QStringLiteral("sbusTester::parseSbusLevels()"));
    constexpr int Length = ChannelCount * int(sizeof(quint16));
    if (payload.size() < Length) {
        diagnostics::err(
            QStringLiteral("sbusTester::parseSbusLevels() %1 bytes are too few for %2 channels")
                .arg(payload.size())
                .arg(ChannelCount));
        return;
    }
    for (int i = 0; i < ChannelCount; ++i)
        showLevel(i, qFromLittleEndian<quint16>(payload.constData() + sizeof(quint16) * i));
}

void sbusTester::closeEvent(QCloseEvent *event)
{
    diagnostics::out(QStringLiteral("sbusTester::closeEvent(0x%1)").arg(quintptr(event), 0, 16));
    ongoingRequest(false);
    QDialog::closeEvent(event);
}

/// Escape hides the dialog without a close event; nothing may poll after that either. An iconified
/// window (a spontaneous event) goes on.
void sbusTester::hideEvent(QHideEvent *event)
{
    if (!event->spontaneous())
        ongoingRequest(false);
    QDialog::hideEvent(event);
}

void sbusTester::showLevel(int channel, int level)
{
    m_numbers[channel]->display(level);
    m_bars[channel]->setValue(level);
}
