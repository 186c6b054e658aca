#pragma once

#include "devices/KovoDevices.h"
#include "factory/overlay.h"
#include "link/kovoPacketManager.h"

#include <QDialog>

#include <array>
#include <memory>

class QDoubleSpinBox;
class QSpinBox;
class QTimer;

namespace Ui {
class LiveEdit;
}

/// The live displacement editor: sends the seven displacements of an output after every change, so
/// that the operator sees the overlay move. It computes a starting set from the optics, is steered
/// from the keyboard, and exchanges columns with the factory settings through its signals.
class LiveEdit : public QDialog
{
    Q_OBJECT

public:
    explicit LiveEdit(QWidget *parent = nullptr);
    ~LiveEdit() override;

    /// Both belong to the caller and outlive the window.
    void setPacketManager(kovoPacketManager *packetManager);
    void setDevices(KovoDevices *devices);

    /// How often the shot that follows every send has run.
    int timerCalls() const { return m_timerCalls; }

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    /// A frame for the camera.
    void signalSendPackage(QByteArray frame);
    /// Ask for the values of the current zoom position.
    void signalGet_FactoryHDMISettings();
    void signalGet_FactoryAnalogeSettings();
    /// Hand back the values of the current zoom position.
    void signalSet_FactoryHDMISettings(int16_t a, int16_t b, int16_t c, int16_t d, int16_t e,
                                       int16_t f, int16_t g);
    void signalSet_FactoryAnalogeSettings(int16_t a, int16_t b, int16_t c, int16_t d, int16_t e,
                                          int16_t f, int16_t g);

public slots:
    void connectDevice(bool connected);

    // LiveEdit.cpp: sending, steering, exchange with the factory settings

    /// Payload of both: seven int16, little-endian, A to G.
    void send_hdmi();
    void send_analog();
    void slotTimer();

    void on_sbFpgaA_valueChanged(int value);
    void on_sbFpgaB_valueChanged(int value);
    void on_sbFpgaE_valueChanged(int scale);
    void on_sbFpgaF_valueChanged(int value);
    void on_sbFpgaG_valueChanged(int value);
    void on_sbFpga_Analog_A_valueChanged(int value);
    void on_sbFpga_Analog_B_valueChanged(int value);
    void on_sbFpga_Analog_E_valueChanged(int scale);
    void on_sbFpga_Analog_F_valueChanged(int value);
    void on_sbFpga_Analog_G_valueChanged(int value);
    void on_pbFpgaDispl_HDMI_clicked();
    void on_pbFpgaDispl_Analog_clicked();
    void on_btnMoveRight_clicked();

    void on_pbGetHDMI_clicked();
    void on_pbGetAnaloge_clicked();
    /// Stores the values for infinite distance: the shift by distance is taken out again.
    void on_pbSetHDMI_clicked();
    void on_pbSetAnaloge_clicked();
    /// Loads a column without sending anything; `zoom` is 1 to 10.
    void setDisplacements_HDMI(int16_t a, int16_t b, int16_t c, int16_t d, int16_t e, int16_t f,
                               int16_t g, int16_t zoom);
    void setDisplacements_Analoge(int16_t a, int16_t b, int16_t c, int16_t d, int16_t e, int16_t f,
                                  int16_t g);

    // LiveEdit_optics.cpp: the starting set

    /// Blocks or unblocks the signals of the HDMI boxes that send on a change.
    void setSignalBlockState(bool blocked);
    /// Computes A to G of the HDMI output and sends them once.
    void on_btnCalcABCDEFG_clicked();
    /// Corrects A or F for the distance of the target.
    void addDisparityShift();
    /// Position A that centres the infrared picture.
    int getFpgaA();

protected:
    /// Steps A, B, F, G of the output that is shown; no other key does anything.
    void keyPressEvent(QKeyEvent *event) override;

private:
    /// The boxes of one value: its own and, if it is split, that of the calculated share.
    struct Value
    {
        QSpinBox *box;
        QSpinBox *share = nullptr;
        int sum() const;
        void setSum(int sum) const;
    };
    /// A value that its box shows rounded: computations go on with the exact one as long as the
    /// operator leaves the box alone.
    struct Precise
    {
        QDoubleSpinBox *box;
        double exact = 0;
        double shown = 0;
        void set(double value);
        double get() const;
    };
    using Output = std::array<Value, 7>; // A to G
    Output hdmi() const;
    Output analog() const;

    void send(const Output &output, ComioInterfaceCommand_TypeDef command);
    void load(const Output &output, const std::array<int16_t, 7> &values);
    void showOptics(int zoom);
    void showShares(const Output &output, const overlay::Shares &shares, const char *function);

    std::unique_ptr<Ui::LiveEdit> m_ui;
    kovoPacketManager *m_packetManager = nullptr;
    KovoDevices *m_devices = nullptr;
    Precise m_scale;
    Precise m_fieldOfViewH; ///< of the visible camera, degrees
    QTimer *m_timer;        ///< never started; a send would wait for it
    bool m_blocked = false; ///< values are being loaded: nothing is sent
    int m_timerCalls = 0;
};
