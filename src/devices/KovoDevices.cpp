#include "devices/KovoDevices.h"

#include "camera/models.h"
#include "diagnostics/diagnostics.h"
#include "records/crc16.h"

#include <QMessageBox>

KovoDevices::KovoDevices(QObject *parent) : QObject(parent) {}

QString KovoDevices::DeviceCRC2Name(unsigned int key)
{
    const Model *model = models::ofKey(key);
    if (!model || !model->shortName) {
        diagnostics::err(QStringLiteral("<<< not a valid device"));
        return QStringLiteral("false");
    }
    QString name = QString::fromLatin1(model->shortName);
    diagnostics::out(QStringLiteral("<<< ") + name);
    return name;
}

bool KovoDevices::isKnownDevice(unsigned int key)
{
    if (models::ofKey(key))
        return true;
    diagnostics::err(QStringLiteral("<<< not a valid device id"));
    return false;
}

bool KovoDevices::setDevice(unsigned int key)
{
    if (!isKnownDevice(key))
        return false;
    if (key == m_currentDevice) {
        diagnostics::err(
            QStringLiteral("KovoDevices::setDevice() >> unnecessary call to this function"));
        return true;
    }
    m_currentDevice = key;
    emit signalDeviceChanged(static_cast<KovoDeviceCRCKey_TypeDef>(key));
    return true;
}

void KovoDevices::showDialog(KovoDevices_ShowDialogMode_TypeDef mode)
{
    diagnostics::outUnterminated(
        QStringLiteral("KovoDevices::showDialog(%1) ").arg(static_cast<int>(mode)));
    QMessageBox box;
    if (mode == ShowDialog_SoftwareOutdated)
        box.setText(tr("This software tool is outdated.\n Please download a new version "
                       "of this software at\nhttps://www.quorvix.example/download."));
    else if (mode == ShowDialog_FirmwareOutdated)
        box.setText(tr("The device firmware is outdated.\n Please update the device firmware."));
    else
        return;
    box.exec();
}

bool KovoDevices::isValidControlStruct(QVector<unsigned char> record)
{
    using diagnostics::err;
    using diagnostics::out;
    const Verdict verdict = judge(record.constData(), record.size());
    switch (verdict.defect) {
    case Defect::None:
        return true;
    case Defect::NoHeader:
        err(QStringLiteral("KovoDevices::isValidControlStruct() record of %1 bytes is shorter than "
                           "its header")
                .arg(verdict.found));
        break;
    case Defect::UnknownDevice:
        isKnownDevice(verdict.found); // says that it is not
        err(QStringLiteral("KovoDevices::isValidControlStruct() Device is not known"));
        break;
    case Defect::NotImplemented:
        err(QStringLiteral("KovoDevices::isValidControlStruct()  Device not implemented"));
        break;
    case Defect::Older:
    case Defect::Newer:
        err(QString::fromLatin1(models::ofKey(verdict.layout->key)->otherVersion));
        showDialog(verdict.defect == Defect::Newer ? ShowDialog_SoftwareOutdated
                                                   : ShowDialog_FirmwareOutdated);
        break;
    case Defect::TooShort:
        err(QStringLiteral("KovoDevices::isValidControlStruct() record of %1 bytes is too short, "
                           "expected: %2")
                .arg(verdict.found)
                .arg(verdict.layout->size));
        break;
    case Defect::WrongLength:
        out(QStringLiteral("<<< unknown data length %1 bytes").arg(verdict.found));
        out(QStringLiteral("<<< Expected: %1 bytes").arg(verdict.layout->dataLength()));
        break;
    case Defect::WrongCrc:
        out(QStringLiteral("KovoDevices::isValidControlStruct() CRC not OK"));
        break;
    }
    return false;
}

void KovoDevices::calc_crc(unsigned char *data, int length, unsigned short *crc)
{
    *crc = crc16(data, length);
}

unsigned short KovoDevices::crc_update(unsigned short crc, unsigned char data,
                                       unsigned short polynomial)
{
    for (int bit = 0; bit < 8; ++bit) {
        const bool divide = ((crc ^ data) & 1) != 0;
        crc = static_cast<unsigned short>(crc >> 1);
        if (divide)
            crc ^= polynomial;
        data = static_cast<unsigned char>(data >> 1);
    }
    return crc;
}
