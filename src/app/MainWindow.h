#pragma once

#include "app/RecordTable.h"
#include "app/SessionState.h"
#include "devices/KovoDevices.h"
#include "forms/guistatus.h"
#include "link/ComioInterfaceCommand.h"
#include "link/MessageQueue.h"

#include <QList>
#include <QMainWindow>
#include <QStringList>
#include <QVector>

namespace Ui {
class MainWindow;
}
class FactorySettings;
class FitScrollArea;
class LiveEdit;
class SerialConnection;
class StateLabels;
class kovoPacketManager;
class sbusTester;
struct Preset;
struct thermalCommPacket_Blend_R8_TypeDef;
struct thermalCommPacket_Blend_Zoom_R13_TypeDef;

/// The window of the tool and the owner of everything that lives as long as it: serial connection,
/// frame parser, device registry and secondary windows. They know nothing of each other; their
/// signals meet here.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    enum hdmivideomodes { MODE_1080P_30HZ = 0, MODE_1080P_60HZ = 1 };
    Q_ENUM(hdmivideomodes)

    enum extensions {
        EXP_MODE_NONE = 0,
        EXP0_MODE_FFC = 1,
        EXP1_MODE_EXTERNAL_SYNC_INPUT = 2,
        EXP1_MODE_SBUS_INPUT = 3,
        EXP0_MODE_IMAGE_SYNC = 4,
        EXP0_MODE_EXTERNAL_SHUTTER = 5,
        EXP1_MODE_EXTERNAL_SHUTTER = 6,
        EXP0_MODE_VISCA = 7,
        EXP1_MODE_VISCA = 8,
        EXP0_MODE_COMIO = 9,
        EXP1_MODE_COMIO = 10,
    };
    Q_ENUM(extensions)

    enum viscaaemode {
        VISCA_AEMODE_FULL_AUTO = 0,
        VISCA_AEMODE_AUTO_LN = 1,
        VISCA_AEMODE_MANUAL = 3,
        VISCA_AEMODE_SHUTTER_PRIORITY = 10,
        VISCA_AEMODE_IRIS_PRIORITY = 11,
        VISCA_AEMODE_GAIN_PRIORITY = 12,
    };
    Q_ENUM(viscaaemode)

    /// Exposure times; a higher value is a shorter one.
    enum viscaaeshutterspeed {
        SPEED_10000_HZ = 21,
        SPEED_6000_HZ = 20,
        SPEED_4000_HZ = 19,
        SPEED_3000_HZ = 18,
        SPEED_2000_HZ = 17,
        SPEED_1500_HZ = 16,
        SPEED_1000_HZ = 15,
        SPEED_725_HZ = 14,
        SPEED_500_HZ = 13,
        SPEED_350_HZ = 12,
        SPEED_250_HZ = 11,
        SPEED_180_HZ = 10,
        SPEED_120_HZ = 9,
        SPEED_100_HZ = 8,
        SPEED_90_HZ = 7,
        SPEED_60_HZ = 6,
        SPEED_30_HZ = 5,
        SPEED_15_HZ = 4,
        SPEED_8_HZ = 3,
        SPEED_4_HZ = 2,
        SPEED_2_HZ = 1,
        SPEED_1_HZ = 0,
    };
    Q_ENUM(viscaaeshutterspeed)

    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    /// Devices (paths or names) that the port list offers beside those the system lists.
    void offerPorts(const QStringList &ports);
    /// Shows the two buttons that open the production line's windows.
    void showFactoryButtons();
    /// Gives the port back, without a word and for good: the program ends here and now.
    void releasePort();

public slots:
    // MainWindow_wiring.cpp: port list, connect and disconnect
    void slotPortConnectionChanged(bool connected);
    void slotNewPortList(QStringList ports);
    /// The device does not take what is sent (true), or takes it again.
    void slotWriteStalled(bool stalled);
    void on_btConnectDisconnect_clicked();

    // MainWindow_exchange.cpp: outstanding command, sending, reply dispatch
    /// Sends a command and makes it the outstanding one; the only way this window sends.
    void slotSendMessage(const void *data, unsigned long length, unsigned short partNumber,
                         unsigned short partCount, ComioInterfaceCommand_TypeDef command);
    /// Writes a frame that another window built, without bookkeeping.
    void slotSendPacket(const QByteArray &frame);
    void slotMessageStateTimerComplete();
    /// Handles a message at once, unless so many boxes that messages opened are on the screen that
    /// it has to wait for one to be answered.
    void slotNewMessageReceived(ComioInterfaceCommand_TypeDef command, QVector<uint8_t> data);
    void slotDummy();

    // MainWindow_identity.cpp: identity reply, record validation, form layout per model
    void parseDeviceID(QVector<unsigned char> payload);
    void parseSerial(QVector<unsigned char> payload);
    /// Validates a record and fills the form with it. An invalid one leaves the form as it is and
    /// closes the port.
    bool parseUnknownControlStruct(QVector<unsigned char> record);
    /// True if the firmware (a date, decimal yyyymmdd) is new enough for the active device or the
    /// operator took note of the warning.
    bool checkFirmwareDate(unsigned int firmwareDate);
    /// Makes the model with this long name ("Quorvix Blend", in any case) the active device.
    bool changeDeviceName(const QString &name);
    bool changeDeviceCRC(unsigned int key);
    /// Lays the form out for a model. False if the key is unknown or the model not supported.
    bool slotDeviceChanged(KovoDeviceCRCKey_TypeDef key);
    void requestConfig(KovoDeviceCRCKey_TypeDef key);
    void on_cBDevice_currentTextChanged(const QString &text);
    void on_cBDevice_activated(int index);

    // MainWindow_mapping.cpp: record to form and back
    void config2ui_qxblend(const thermalCommPacket_Blend_R8_TypeDef *record);
    void config2ui_qxblendzoom(const thermalCommPacket_Blend_Zoom_R13_TypeDef *record);
    /// Writes everything but the unset bytes, CRC included; always true.
    bool ui2config_qxblend(thermalCommPacket_Blend_R8_TypeDef &record);
    bool ui2config_qxblendzoom(thermalCommPacket_Blend_Zoom_R13_TypeDef &record);
    /// Focus adjustment that a Sony FCB focus byte stands for.
    int SonyFCBFocusvalue2int(quint8 byte);

    // MainWindow_files.cpp: read, write, open, save
    void on_btnReadConf_clicked();
    void on_btnSetConf_clicked();
    void requestConfig_qx_blend();
    void requestConfig_qx_blend_zoom();
    void setConfig_qx_blend();
    void setConfig_qx_blend_zoom();
    void setConfig_qx_2_0();
    void on_actionOpen_triggered();
    void on_actionSave_triggered();
    /// Fills the form from a file and, while connected, offers to write it to the camera. A file
    /// that cannot be opened does nothing.
    void loadConfigurationFile(const QString &path);
    /// Writes the record of the active device; an empty file for one without a record.
    void saveConfigurationFile(const QString &path);

    // MainWindow_interlocks.cpp: which field enables, hides or presets which
    void on_cbPeripheryGimbalrc_stateChanged(int state);
    void on_cbPeripheryGPSIndexChanged(int index);
    void on_cbTriggerPinModeIndexChanged(int index);
    void on_cbIsothermsState_currentIndexChanged(int index);
    void on_cbFFCmode_currentIndexChanged(int index);
    void on_cb_pheriphery_externalshutter_installed_stateChanged(int state);
    void on_cbHDMIVideoMode_activated(const QString &text);
    void on_cbHDMIVideoMode_currentIndexChanged(const QString &text);
    void on_hs_JPEGcompressionDaylight_valueChanged(int position);
    void on_sbJPEGcompressionDaylight_valueChanged(int quality);
    void on_cb_vlc_ae_mode_currentIndexChanged(const QString &text);
    void on_cb_vlc_ae_shutterspeed_currentIndexChanged(int index);

    // MainWindow_live.cpp: one-shot commands and live settings
    void on_pbTriggerStart_clicked();
    void on_pbTriggerStop_clicked();
    void on_pbGPSStartStream_clicked();
    void on_pbGPSStopStream_clicked();
    void on_pb_ffc_doffc_clicked();
    void on_pbVLC_preview_Zoom_clicked();
    void on_pbVLCAutoAdjustFocus_clicked();
    void on_pb_iradj_send_clicked();
    void on_pbLivePreview_clicked();
    /// Sends the form as live settings, unless a command was sent within the last 2000 ms.
    void slotSendLiveSettings();
    void on_cbVLCTamronFocus_currentIndexChanged(int index);
    void on_hsTamronfocusvalue_valueChanged(int value);
    void on_sbTamronZoom_valueChanged(int value);
    void on_pbSbusTest_clicked();

    // MainWindow_factory.cpp: relays between the factory windows
    void on_pbFactorySettings_clicked();
    void on_pb_TestWindow_clicked();
    void slotOpenFactorySettings();
    void slotOpenTestWindow();
    void slotSendFactorySettings2Testwindow_CurrentHDMI();
    void slotSendFactorySettings2Testwindow_CurrentAnaloge();
    void slotSetFactorySettings_CurrentHDMI(int16_t a, int16_t b, int16_t c, int16_t d, int16_t e,
                                            int16_t f, int16_t g);
    void slotSetFactorySettings_CurrentAnaloge(int16_t a, int16_t b, int16_t c, int16_t d,
                                               int16_t e, int16_t f, int16_t g);

    // MainWindow_screen.cpp: small screens, focus, marks
    void on_leFrameSkip_textChanged(const QString &text);

    // MainWindow_help.cpp: help menu, keys
    void slotOpenUserGuide();
    void slotShowAbout();

protected:
    bool event(QEvent *event) override;

private:
    void makePagesScroll();
    void fitToScreen();
    void alignLabelColumns();
    void fillEnumerationLists();
    void createCompanions();
    void createHelpMenu();
    void createShortcuts();
    void showOpenFailure(const QString &port);
    void send(ComioInterfaceCommand_TypeDef command, const QByteArray &payload = {});
    void sendWhileConnected(ComioInterfaceCommand_TypeDef command, const QByteArray &payload);
    void write(quint32 command, const QByteArray &frame);
    void endWithoutPort(bool wasConnected);
    /// For a message that closes the port: what lies behind it in its read is dropped.
    void dropWhatFollowsMessage();
    void handleMessage(const MessageQueue::Message &message);
    void dispatch(const MessageQueue::Message &message);
    void handleWaitingFromEventLoop();
    bool settleOutstandingCommand(const MessageQueue::Message &message);
    void showGpsText(const QVector<uint8_t> &payload);
    void showFocusAdjustment(const QVector<uint8_t> &payload);
    void showExternalShutterOptions(bool installed);
    void preset(const Preset &preset);
    QByteArray recordFromForm();
    void showCameraRecord(const QVector<unsigned char> &record);
    static QString modelName(quint32 key);
    void scheduleLiveSettings();
    QString loadedText(const QString &name, quint32 key) const;
    void showFileOutcome(const QString &outcome);

    Ui::MainWindow *m_ui = nullptr;
    SerialConnection *m_serial = nullptr;
    kovoPacketManager *m_packetManager = nullptr;
    KovoDevices *m_devices = nullptr;
    FactorySettings *m_factorySettings = nullptr;
    sbusTester *m_sbusTester = nullptr;
    LiveEdit *m_liveEdit = nullptr;
    guistatus m_status;
    SessionState m_state;
    StateLabels *m_stateLabels = nullptr;
    bool m_openFailureShown = false;    ///< by the status bar
    bool m_showingCameraRecord = false; ///< the form changes by the camera's record
    bool m_liveChangeUnsent = false;    ///< the form's focus or zoom is not the camera's
    QList<FitScrollArea *> m_pageAreas;
    QAction *m_frameSkipMark = nullptr; ///< null while the text is a number

    MessageQueue m_waitingMessages;
    bool m_waitingAreScheduled = false;
    int m_openMessages = 0;     ///< being handled; all but the last one wait for their boxes
    int m_messageLoopLevel = 0; ///< nesting of event loops in which the last one is being handled
    quint32 m_messageRead = 0;  ///< number of the read that the last one came with

    RecordTable m_blendTable;     ///< built at its first use
    RecordTable m_blendZoomTable; ///< built at its first use
};
