#pragma once

#include "forms/guistatus.h"

#include <QDialog>
#include <QVector>

#include <array>
#include <memory>

class QLCDNumber;
class QSlider;
class QTimer;
class kovoPacketManager;
namespace Ui {
class sbusTester;
}

/// Shows the levels of the sixteen SBUS channels that the camera receives from the remote control.
/// While it streams, it asks for them every 500 ms.
class sbusTester : public QDialog
{
    Q_OBJECT

public:
    explicit sbusTester(QWidget *parent);
    ~sbusTester() override;

    /// Builds the request frames; not owned, and needed before the first request.
    void setPacketManager(kovoPacketManager *packetManager) { m_packetManager = packetManager; }

public slots:
    /// Enables the dialog with the connection; a lost connection ends the stream.
    void connectDevice(bool connected);
    void on_pbSbusTester_startstream_clicked();
    /// Starts the requests, or stops them and zeroes the display.
    void ongoingRequest(bool on);
    void slotTimerRequestSbusLevels();
    /// Shows a level reply: sixteen little-endian 16-bit levels, channel 1 first. A payload shorter
    /// than these 32 bytes is refused with a line on standard error.
    void parseSbusLevels(QVector<unsigned char> payload);

signals:
    /// A complete frame for the port.
    void signalSendPackage(QByteArray frame);

protected:
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    static constexpr int ChannelCount = 16;

    void showLevel(int channel, int level);

    kovoPacketManager *m_packetManager = nullptr;
    std::unique_ptr<Ui::sbusTester> m_ui;
    QTimer *m_timer;
    guistatus m_status;
    std::array<QLCDNumber *, ChannelCount> m_numbers{};
    std::array<QSlider *, ChannelCount> m_bars{};
};
