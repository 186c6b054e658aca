#include "devices/KovoDevices.h"
#include "support/captureddiagnostics.h"
#include "support/modal.h"
#include "support/records.h"

#include <QSignalSpy>

class TestKovoDevices : public QObject
{
    Q_OBJECT

    const QString m_firmwareOutdated =
        QStringLiteral("The device firmware is outdated.\n Please update the device firmware.");
    const QString m_softwareOutdated = QStringLiteral(
        "This software tool is outdated.\n Please download a new version of this software at\n"
        "https://www.quorvix.example/download.");

    /// Validates a record that must raise a box, and returns the box's text.
    QString boxTextOf(const QByteArray &record)
    {
        KovoDevices devices(nullptr);
        QString text;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            text = box->text();
            box->button(QMessageBox::Ok)->click();
        });
        if (devices.isValidControlStruct(records::payload(record)))
            return QStringLiteral("valid");
        return text;
    }

private slots:
    void init() { qRegisterMetaType<KovoDeviceCRCKey_TypeDef>("KovoDeviceCRCKey_TypeDef"); }

    void knowsExactlyThreeKeys()
    {
        CapturedDiagnostics lines;
        for (const unsigned int key : {0xA0AF139EU, 0xA0AF139FU, 0xC92A6CE6U})
            QVERIFY(KovoDevices::isKnownDevice(key));
        QVERIFY(lines.err().isEmpty());
        for (const unsigned int key : {0xA0AF139DU, 0xA0AF13A0U, 0U, 0xFFFFFFFFU})
            QVERIFY(!KovoDevices::isKnownDevice(key));
        QCOMPARE(lines.err(), QStringLiteral("<<< not a valid device id\n").repeated(4));
        QVERIFY(lines.out().isEmpty());
    }

    void shortNamesAreLogged()
    {
        CapturedDiagnostics lines;
        KovoDevices devices(nullptr);
        QCOMPARE(devices.DeviceCRC2Name(0xA0AF139E), QStringLiteral("QX Blend Zoom"));
        QCOMPARE(devices.DeviceCRC2Name(0xC92A6CE6), QStringLiteral("QX Blend"));
        QCOMPARE(lines.out(), QStringLiteral("<<< QX Blend Zoom\n<<< QX Blend\n"));
        QVERIFY(lines.err().isEmpty());
    }

    void keyWithoutShortNameIsCalledFalse_data()
    {
        QTest::addColumn<unsigned int>("key");
        QTest::newRow("known, not supported") << 0xA0AF139FU;
        QTest::newRow("none") << 0U;
        QTest::newRow("below the Blend Zoom's") << 0xA0AF139DU;
        QTest::newRow("all ones") << 0xFFFFFFFFU;
    }

    void keyWithoutShortNameIsCalledFalse()
    {
        QFETCH(unsigned int, key);
        CapturedDiagnostics lines;
        KovoDevices devices(nullptr);
        QCOMPARE(devices.DeviceCRC2Name(key), QStringLiteral("false"));
        QCOMPARE(lines.err(), QStringLiteral("<<< not a valid device\n"));
        QVERIFY(lines.out().isEmpty());
    }

    void startsWithoutAnActiveDevice()
    {
        KovoDevices devices(nullptr);
        for (const unsigned int key : {0xA0AF139EU, 0xA0AF139FU, 0xC92A6CE6U})
            QVERIFY(!devices.isActiveDevice(key));
    }

    void settingADeviceAnnouncesItOnce()
    {
        CapturedDiagnostics lines;
        KovoDevices devices(nullptr);
        QSignalSpy changed(&devices, &KovoDevices::signalDeviceChanged);
        QVERIFY(devices.setDevice(0xC92A6CE6));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).value<KovoDeviceCRCKey_TypeDef>(), KovoDevice_QXBlend);
        QCOMPARE(devices.getDevice(), 0xC92A6CE6U);
        QVERIFY(devices.isActiveDevice(0xC92A6CE6));
        QVERIFY(lines.err().isEmpty());
    }

    void settingTheActiveDeviceAgainIsUnnecessary()
    {
        CapturedDiagnostics lines;
        KovoDevices devices(nullptr);
        QVERIFY(devices.setDevice(0xA0AF139E));
        QSignalSpy changed(&devices, &KovoDevices::signalDeviceChanged);
        QVERIFY(devices.setDevice(0xA0AF139E));
        QCOMPARE(changed.count(), 0);
        QCOMPARE(lines.err(),
                 QStringLiteral("KovoDevices::setDevice() >> unnecessary call to this function\n"));
    }

    void unknownKeyLeavesTheDevice()
    {
        CapturedDiagnostics lines;
        KovoDevices devices(nullptr);
        QVERIFY(devices.setDevice(0xA0AF139E));
        QSignalSpy changed(&devices, &KovoDevices::signalDeviceChanged);
        QVERIFY(!devices.setDevice(0x12345678));
        QCOMPARE(devices.getDevice(), 0xA0AF139EU);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(lines.err(), QStringLiteral("<<< not a valid device id\n"));
    }

    void crc16CheckValues()
    {
        unsigned short crc = 0xFFFF;
        QByteArray digits("123456789");
        KovoDevices::calc_crc(reinterpret_cast<unsigned char *>(digits.data()), 9, &crc);
        QCOMPARE(crc, quint16(0x074A));
        unsigned char one = 1;
        KovoDevices::calc_crc(&one, 1, &crc);
        QCOMPARE(crc, quint16(0x08E8));
        QCOMPARE(KovoDevices::crc_update(0, 1, 0xC599), quint16(0x08E8));
    }

    void crc16FoldsByteByByte()
    {
        const auto folded = [](const QByteArray &bytes, unsigned short polynomial) {
            unsigned short crc = 0;
            for (const char byte : bytes)
                crc = KovoDevices::crc_update(crc, static_cast<unsigned char>(byte), polynomial);
            return crc;
        };
        QCOMPARE(folded("123456789", 0xC599), quint16(0x074A));
        // The published check values of CRC-16/ARC and CRC-16/KERMIT, which start at 0 as well.
        QCOMPARE(folded("123456789", 0xA001), quint16(0xBB3D));
        QCOMPARE(folded("123456789", 0x8408), quint16(0x2189));

        QByteArray varied(221, '\0'); // as many as a Blend Zoom record has before its CRC
        for (int i = 0; i < varied.size(); ++i)
            varied[i] = static_cast<char>(i * i + 151 * i + 7);
        unsigned short crc = 0xFFFF;
        KovoDevices::calc_crc(reinterpret_cast<unsigned char *>(varied.data()), varied.size(),
                              &crc);
        QCOMPARE(folded(varied, 0xC599), crc);
        QCOMPARE(crc, records::crc16(varied));
    }

    void crc16OfNothingIsZero()
    {
        unsigned short crc = 0xFFFF;
        KovoDevices::calc_crc(nullptr, 0, &crc);
        QCOMPARE(crc, quint16(0));
        crc = 0xFFFF;
        KovoDevices::calc_crc(nullptr, -5, &crc);
        QCOMPARE(crc, quint16(0));
    }

    void outdatedBoxes_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("text");
        QTest::newRow("firmware") << 0 << m_firmwareOutdated;
        QTest::newRow("software") << 1 << m_softwareOutdated;
    }

    void outdatedBoxes()
    {
        QFETCH(int, mode);
        QFETCH(QString, text);
        CapturedDiagnostics lines;
        KovoDevices devices(nullptr);
        QString shown, title;
        bool owned = true;
        QMessageBox::Icon icon = QMessageBox::Critical;
        QMessageBox::StandardButtons buttons;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            shown = box->text();
            title = box->windowTitle();
            owned = box->parent() != nullptr;
            icon = box->icon();
            buttons = box->standardButtons();
            box->accept();
        });
        devices.showDialog(static_cast<KovoDevices_ShowDialogMode_TypeDef>(mode));
        QVERIFY(answer.given());
        QCOMPARE(shown, text);
        QCOMPARE(title, QString());
        QVERIFY(!owned);
        QCOMPARE(icon, QMessageBox::NoIcon);
        QCOMPARE(buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        QCOMPARE(lines.out(), QStringLiteral("KovoDevices::showDialog(%1) ").arg(mode));
    }

    void unknownDialogModeShowsNoBoxButPrints()
    {
        CapturedDiagnostics lines;
        KovoDevices devices(nullptr);
        bool shown = false;
        QTimer watch; // fires only inside a box's event loop
        connect(&watch, &QTimer::timeout, [&] {
            shown = true;
            QApplication::activeModalWidget()->close();
        });
        watch.start(0);
        devices.showDialog(static_cast<KovoDevices_ShowDialogMode_TypeDef>(2));
        QVERIFY(!shown);
        QCOMPARE(lines.out(), QStringLiteral("KovoDevices::showDialog(2) "));
    }

    void acceptsValidRecordsWithAndWithoutPadding()
    {
        CapturedDiagnostics lines;
        KovoDevices devices(nullptr);
        const QByteArray blend = records::sealed(records::blend());
        const QByteArray zoom = records::sealed(records::blendZoom());
        for (const QByteArray &record : {blend, zoom, blend + '\0', zoom + '\x55'})
            QVERIFY(devices.isValidControlStruct(records::payload(record)));
        QVERIFY(lines.out().isEmpty());
        QVERIFY(lines.err().isEmpty());
    }

    void bytesAfterARecordAreIgnored_data()
    {
        QTest::addColumn<int>("more");
        QTest::newRow("one byte") << 1;
        QTest::newRow("a Blend record as long as a Blend Zoom's") << 16;
        QTest::newRow("many") << 777;
    }

    void bytesAfterARecordAreIgnored()
    {
        QFETCH(int, more);
        CapturedDiagnostics lines;
        KovoDevices devices(nullptr);
        for (const QByteArray &record :
             {records::sealed(records::blend()), records::sealed(records::blendZoom())})
            for (const char tail : {'\0', '\xA5', '\xFF'})
                QVERIFY(devices.isValidControlStruct(
                    records::payload(record + QByteArray(more, tail))));
        QVERIFY(lines.out().isEmpty());
        QVERIFY(lines.err().isEmpty());
    }

    void foreignRecordIsRefused()
    {
        CapturedDiagnostics lines;
        KovoDevices devices(nullptr);
        QByteArray record = records::blend();
        records::put<quint32>(record, 0, 0xDEADBEEF);
        QVERIFY(!devices.isValidControlStruct(records::payload(records::sealed(record))));
        QCOMPARE(lines.err(),
                 QStringLiteral("<<< not a valid device id\n"
                                "KovoDevices::isValidControlStruct() Device is not known\n"));
    }

    void recordOfTheUnsupportedModelIsRefused()
    {
        CapturedDiagnostics lines;
        KovoDevices devices(nullptr);
        QByteArray record = records::blend();
        records::put<quint32>(record, 0, 0xA0AF139F);
        QVERIFY(!devices.isValidControlStruct(records::payload(records::sealed(record))));
        QCOMPARE(lines.err(), QStringLiteral("KovoDevices::isValidControlStruct()  Device not "
                                             "implemented\n"));
    }

    void otherVersionsBlameTheOlderSide_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<quint32>("version");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("text");
        const QString blend =
            QStringLiteral("KovoDevices::isValidControlStruct unknown control struct version\n");
        const QString zoom = QStringLiteral(
            "KovoDevices::isValidControlStruct() unsupported control struct version\n");
        QTest::newRow("newer Blend record")
            << records::blend() << 20181213U << blend << m_softwareOutdated;
        QTest::newRow("older Blend record")
            << records::blend() << 20181211U << blend << m_firmwareOutdated;
        QTest::newRow("newer Blend Zoom record")
            << records::blendZoom() << 20190806U << zoom << m_softwareOutdated;
        QTest::newRow("older Blend Zoom record")
            << records::blendZoom() << 20190804U << zoom << m_firmwareOutdated;
        for (const quint32 newer : {0xFFFFFFFFU, 0x80000000U}) { // no date, yet unsigned
            QTest::addRow("Blend record 0x%x", newer)
                << records::blend() << newer << blend << m_softwareOutdated;
            QTest::addRow("Blend Zoom record 0x%x", newer)
                << records::blendZoom() << newer << zoom << m_softwareOutdated;
        }
        QTest::newRow("Blend record 0") << records::blend() << 0U << blend << m_firmwareOutdated;
        QTest::newRow("Blend Zoom record 0")
            << records::blendZoom() << 0U << zoom << m_firmwareOutdated;
        QTest::newRow("header of an older record alone")
            << records::blendZoom().left(12) << 20190804U << zoom << m_firmwareOutdated;
    }

    void otherVersionsBlameTheOlderSide()
    {
        QFETCH(QByteArray, record);
        QFETCH(quint32, version);
        QFETCH(QString, line);
        QFETCH(QString, text);
        CapturedDiagnostics lines;
        records::put<quint32>(record, 8, version);
        QCOMPARE(boxTextOf(record), text);
        QCOMPARE(lines.err(), line);
    }

    void wrongDataLengthIsRefusedThoughTheCrcFits_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<quint32>("length");
        QTest::addColumn<QString>("lines");
        QTest::newRow("Blend") << records::blend() << 192U
                               << "<<< unknown data length 192 bytes\n<<< Expected: 193 bytes\n";
        QTest::newRow("Blend Zoom")
            << records::blendZoom() << 0xFFFFFFFFU
            << "<<< unknown data length 4294967295 bytes\n<<< Expected: 209 bytes\n";
    }

    void wrongDataLengthIsRefusedThoughTheCrcFits()
    {
        QFETCH(QByteArray, record);
        QFETCH(quint32, length);
        QFETCH(QString, lines);
        CapturedDiagnostics captured;
        KovoDevices devices(nullptr);
        records::put<quint32>(record, 4, length);
        QVERIFY(!devices.isValidControlStruct(records::payload(records::sealed(record))));
        QCOMPARE(captured.out(), lines);
        QVERIFY(captured.err().isEmpty());
    }

    void wrongVersionHidesAWrongDataLength()
    {
        for (const auto &[newer, mode] : {std::pair(false, 0), std::pair(true, 1)}) {
            for (QByteArray record : {records::blend(), records::blendZoom()}) {
                CapturedDiagnostics lines;
                records::put<quint32>(record, 4, 192);
                records::put<quint32>(record, 8,
                                      records::get<quint32>(record, 8) + (newer ? 1 : -1));
                QCOMPARE(boxTextOf(records::sealed(record)),
                         newer ? m_softwareOutdated : m_firmwareOutdated);
                QCOMPARE(lines.err().count(QLatin1Char('\n')), 1);
                QVERIFY(lines.err().contains(QStringLiteral("control struct version\n")));
                QCOMPARE(lines.out(), QStringLiteral("KovoDevices::showDialog(%1) ").arg(mode));
            }
        }
    }

    void wrongDataLengthHidesAWrongCrc()
    {
        const std::pair<QByteArray, int> models[] = {{records::blend(), 193},
                                                     {records::blendZoom(), 209}};
        for (const auto &[model, expected] : models) {
            CapturedDiagnostics lines;
            KovoDevices devices(nullptr);
            QByteArray record = model;
            records::put<quint32>(record, 4, 77);
            record = records::sealed(record);
            record[record.size() - 1] = static_cast<char>(record[record.size() - 1] ^ 1);
            QVERIFY(!devices.isValidControlStruct(records::payload(record)));
            QCOMPARE(lines.out(), QStringLiteral("<<< unknown data length 77 bytes\n"
                                                 "<<< Expected: %1 bytes\n")
                                      .arg(expected));
            QVERIFY(lines.err().isEmpty());
        }
    }

    void anyFlippedBitOfARecordIsNoticed()
    {
        KovoDevices devices(nullptr);
        const QByteArray valid = records::sealed(records::blendZoom());
        for (int bit = 12 * 8; bit < valid.size() * 8; ++bit) { // the header has its own checks
            QByteArray record = valid;
            record[bit / 8] = static_cast<char>(record[bit / 8] ^ (1 << (bit % 8)));
            CapturedDiagnostics lines;
            QVERIFY(!devices.isValidControlStruct(records::payload(record)));
            QCOMPARE(lines.out(),
                     QStringLiteral("KovoDevices::isValidControlStruct() CRC not OK\n"));
        }
    }

    void shortRecordsAreRefusedWithOneLine()
    {
        KovoDevices devices(nullptr);
        for (const QByteArray &valid :
             {records::sealed(records::blend()), records::sealed(records::blendZoom())})
            for (int size = 0; size < valid.size(); ++size) {
                CapturedDiagnostics lines;
                QVERIFY(!devices.isValidControlStruct(records::payload(valid.left(size))));
                QVERIFY(lines.out().isEmpty());
                QCOMPARE(lines.err().count(QLatin1Char('\n')), 1);
            }
    }
};

QTEST_MAIN(TestKovoDevices)
#include "tst_kovodevices.moc"
