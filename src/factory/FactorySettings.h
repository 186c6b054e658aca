#pragma once

#include "devices/KovoDevices.h"
#include "link/kovoPacketManager.h"
#include "records/FactorySettingsRecords.h"

#include <QDialog>
#include <QHash>
#include <QVector>

#include <array>
#include <functional>
#include <memory>

class QLabel;
class QSpinBox;
class QTableWidget;
class QTextStream;

namespace Ui {
class FactorySettings;
}

/// The factory settings dialog: the form is the working copy of a unit's factory record. Every
/// record is built from the form or written into it; the active device selects the layout.
class FactorySettings : public QDialog
{
    Q_OBJECT

public:
    explicit FactorySettings(QWidget *parent = nullptr);
    ~FactorySettings() override;

    /// Both belong to the caller and outlive the dialog.
    void setPacketManager(kovoPacketManager *packetManager);
    void setDevices(KovoDevices *devices);

signals:
    /// A frame for the camera.
    void signalSendPackage(QByteArray frame);
    /// How a load or a save ended, in one line for the operator.
    void fileOutcome(const QString &outcome);

public slots:
    /// Enables the dialog whatever the state of the connection: files need no camera.
    void connectDevice(bool connected);
    /// Shows the groups of the model; none of them, with a line on standard error, for a model that
    /// has no factory record.
    void slotDeviceChanged(KovoDeviceCRCKey_TypeDef key);

    // FactorySettings.cpp: exchange with the camera

    /// Takes a received record of the active device, padding allowed. False, with a line on
    /// standard error, if the device is unknown or the payload is too short.
    bool parseFactorySettings(QVector<uint8_t> payload);
    /// Shows a Blend record; fields that were never set stay as they are. False if it is too short.
    bool parseFactorySettings_QXBlend(QVector<uint8_t> payload);
    /// Shows the serial number of a Blend Zoom record, and its tables if the operator agrees.
    bool parseFactorySettings_QXBlendZoom(FactorySettings_QXBlendZoom_TypeDef *record);
    /// The record that the form shows; displacements truncated to 16 bits.
    FactorySettings_QXBlendZoom_TypeDef ui2struct_QXBlendZoom();
    void setFactorySettings_QXBlend();
    void setFactorySettings_QXBlend_Zoom();
    void on_pbGetFactorySettings_clicked();
    void on_pbSetFactorySettings_clicked();
    /// A turn of a live-view box is written at once, so that the Blend shows the shift.
    void on_sbLiveViewHorizontalAdjustment_valueChanged(int value);
    void on_sbLiveViewVerticalAdjustment_valueChanged(int value);

    // FactorySettings_tables.cpp: the tables and what is derived from them

    /// value / 256
    double scaleHDMI256(int value);
    /// Fills the Ardview table from the HDMI table.
    void on_btnCalcADFromHDMI_clicked();
    /// Fills the analog table from the HDMI table.
    void on_btnCalcAVFromHDMI_clicked();
    /// Writes one column (0 to 9: zoom position - 1) of the HDMI table.
    void setFPGADisplacements_HDMI(int16_t column, int16_t a, int16_t b, int16_t c, int16_t d,
                                   int16_t e, int16_t f, int16_t g);
    /// The same for the analog table.
    void setFPGADisplacements_Analoge(int16_t column, int16_t a, int16_t b, int16_t c, int16_t d,
                                      int16_t e, int16_t f, int16_t g);

    // FactorySettings_files.cpp: data file and report

    void on_pb_WriteFile_clicked();
    void on_pb_ReadFile_clicked();
    /// Writes the record to dir/SERIAL.dat; a file that cannot be opened is left alone; one that
    /// cannot be written whole is named on standard error. Nothing is written where data file or
    /// report may be of another unit, whose serial number begins as this one's.
    void writeFile(QString dir);
    /// Writes the report to dir/SERIAL.txt in the same way.
    void writeReport(QString dir);
    /// Lets the operator choose a data file and shows its record.
    void readFile();
    /// Shows the record of a data file; one that cannot be opened does nothing.
    void loadFile(const QString &path);
    void ui2report_QXBlendZoom(QTextStream &out);

private:
    /// A number of the Blend record and the box that shows it, less an offset.
    struct BlendField
    {
        le_i32 FactorySettings_QXBlend_TypeDef::*field;
        QSpinBox *box;
        int offset;
    };
    std::array<BlendField, 5> blendFields() const;

    unsigned int activeDevice() const;
    void send(ComioInterfaceCommand_TypeDef command, const void *data, size_t length);
    void showSerialNumber(const std::array<char, 12> &bytes);
    std::array<char, 12> serialNumber() const;

    void setUpTables();
    void showCellsBeyond16Bit();
    void setDisplacementColumn(QTableWidget *table, int column, const std::array<int, 7> &values);

    void setUpNotes();
    void noteCutSerialNumber(const QString &whole);
    void showFileOutcome(const QString &outcome);
    bool serialNumberNamesFile();
    void write(const QString &dir, const QString &extension,
               const std::function<QByteArray()> &content);
    bool mayBeOfAnotherUnit(const QString &path) const;
    QString fileOfAnotherUnit(const QString &dir) const;
    QString unitSerialNumber() const;
    QString unitFileName(const QString &dir, const QString &extension) const;

    std::unique_ptr<Ui::FactorySettings> m_ui;
    kovoPacketManager *m_packetManager = nullptr;
    KovoDevices *m_devices = nullptr;
    QLabel *m_serialNote = nullptr;       ///< lbSerialNote: what the field does not show
    QLabel *m_fileOutcome = nullptr;      ///< lbFileOutcome: how the last load or save ended
    QString m_cutSerialNumber;            ///< the whole one, while the field shows its beginning
    QHash<QString, QString> m_writtenFor; ///< path to the serial number of the unit
    bool m_showingRecord = false;         ///< the boxes change by a record, not by the operator
};
