#pragma once

#include <QObject>
#include <QVector>

/// Key by which a camera names its model, in its identity reply and in every control structure.
enum KovoDeviceCRCKey_TypeDef : quint32 {
    KovoDevice_QX20 = 0xA0AF139F, ///< known, not supported
    KovoDevice_QXBlend = 0xC92A6CE6,
    KovoDevice_QXBlendZoom = 0xA0AF139E,
};
Q_DECLARE_METATYPE(KovoDeviceCRCKey_TypeDef)

/// Message of KovoDevices::showDialog.
enum KovoDevices_ShowDialogMode_TypeDef : int {
    ShowDialog_FirmwareOutdated = 0,
    ShowDialog_SoftwareOutdated = 1,
};

/// Knows which camera model the tool is talking to, and what a valid control structure is.
class KovoDevices : public QObject
{
    Q_OBJECT

public:
    explicit KovoDevices(QObject *parent);

    /// Short name ("QX Blend"), also written as a line to standard output; "false" and a line on
    /// standard error for a key that has none.
    QString DeviceCRC2Name(unsigned int key);
    /// True for the keys of KovoDeviceCRCKey_TypeDef; otherwise one line on standard error.
    static bool isKnownDevice(unsigned int key);
    bool isActiveDevice(unsigned int key) const { return m_currentDevice == key; }
    /// Key of the active device, 0 before any is known.
    unsigned int getDevice() const { return m_currentDevice; }
    /// Makes `key` the active device and announces it; false for an unknown key. Setting the
    /// active device again is reported on standard error and announces nothing.
    bool setDevice(unsigned int key);
    /// Shows one of the two "outdated" boxes and waits for the operator; other modes only log.
    void showDialog(KovoDevices_ShowDialogMode_TypeDef mode);

    /// Checks key, version, size, data length and CRC-16 of a control structure, in this order, and
    /// says on the streams what is wrong. Bytes beyond the structure (padding) are not looked at.
    bool isValidControlStruct(QVector<unsigned char> record);

    /// CRC-16 of `length` bytes: least significant bit first, polynomial 0xC599, start 0, no final
    /// XOR; 0 for a length of 0 or less.
    static void calc_crc(unsigned char *data, int length, unsigned short *crc);
    /// Folds one byte into `crc`.
    static unsigned short crc_update(unsigned short crc, unsigned char data,
                                     unsigned short polynomial);

signals:
    void signalDeviceChanged(KovoDeviceCRCKey_TypeDef key);

private:
    unsigned int m_currentDevice = 0;
};
