#include "devices/KovoDevices.h"
#include "support/captureddiagnostics.h"
#include "support/configurationform.h"
#include "support/records.h"

using Values = std::vector<std::pair<const char *, const char *>>;

class TestMainWindowMapping : public QObject
{
    Q_OBJECT

    // Record of the form as it starts, without its CRC.
    const QByteArray m_defaultBlend = bytes({
        "e66c2ac9 c1000000 dcf03301",                     // header
        "b0040000 00 01 00 00 00 00",                     // 12: 1200 baud, none, 1
        "20030000 e8030000 00000000 2d000000 00000000",   // 22: shutter 800, 1000, 0, 45, 0
        "00 00 00 000000000000000000000000 00 4006 b004", // 42
        "00 00 00 4a 00 0000 c0d40100 ** 00000000",       // 62: focus -10, FFC 120 s
        "00 00 00 00 00 00 ****************",             // 78
        "00 00 00 0f00 2200 2800",                        // 92: isotherms 15, 34, 40
        "000000000000000000000000",                       // 101: channels
        "b002b002b002b002b002b002b002b002b002b002",       // 113: low 688
        "b002b002b002b002b002b002b002b002b002b002",       //
        "5605560556055605560556055605560556055605",       // 153: high 1366
        "5605560556055605560556055605560556055605",       //
        "************************",                       // 193
    });
    const QByteArray m_defaultZoom = bytes({
        "9e13afa0 d1000000 55163401",                        // header
        "b0040000 00 01 00 00 00 00",                        // 12
        "20030000 e8030000 00000000 2d000000 00000000",      // 22
        "00 00 00 00 00 000000000000000000000000 00 00 08",  // 42
        "00 05 11010303 07 00 0010 03 0080 80 0000",         // 62: 1/30 s, focus 4096, VC off
        "0000 c0d40100 55 00 00 00000000 00 00 00 00 00 00", // 78: 120 s, JPEG 85 %
        "00 00 00c20100 08 00 01 00",                        // 97
        "00 00 00 0f00 2200 2800",                           // 107
        "00000000000000000000000000",                        // 116
        "b002b002b002b002b002b002b002b002b002b002",          // 129
        "b002b002b002b002b002b002b002b002b002b002",          //
        "5605560556055605560556055605560556055605",          // 169
        "5605560556055605560556055605560556055605",          //
        "b80b0000 00 ************ 00",                       // 209
    });

    // A record whose fields all differ from the form's start values, and from what the gimbal, the
    // receiver preset and the external shutter in it make of other fields.
    const QByteArray m_filledBlend = bytes({
        "e66c2ac9 c1000000 dcf03301",                     // header
        "00080700 02 02 00 01 03 01",                     // 12: 460800 baud, even, 2
        "e7030000 cf070000 1efbffff 0f0e0000 62000000",   // 22: 999, 1999, -12.5, 3599, 98
        "01 00 06 000000000000000000000000 03 4006 b004", // 42
        "fa 01 08 5f 00 0200 f0891b01 ** 78563412",       // 62: -6, 8, focus -31, 18582 s
        "05 01 01 00 05 06 ****************",             // 78
        "01 01 01 effe f401 e803",                        // 92: -273, 500, 1000
        "0101030405060708090a0b01",                       // 101: trigger channel 10
        "0201020102010201020102010201020102010201",       // 113: 258
        "0201020102010201020102010201020102010201",       //
        "ff07ff07ff07ff07ff07ff07ff07ff07ff07ff07",       // 153: 2047
        "ff07ff07ff07ff07ff07ff07ff07ff07ff07ff07",       //
        "************************",                       // 193
    });
    const Values m_filledShared{
        {"cbBaudrate", "9"},
        {"cbParity", "2"},
        {"cbStopBit", "1"},
        {"cbInverted", "0"},
        {"cbPeripheryGimbalrc", "1"},
        {"cbPeripheryGPS", "3"},
        {"cb_pheriphery_externalshutter_installed", "1"},
        {"sb_eso_heating", "999"},
        {"sb_eso_heatcycle", "1999"},
        {"sb_eso_offset", "-12.5"},
        {"sb_eso_shutterinterval", "3599"},
        {"sb_eso_opt5", "98"},
        {"cbLiveviewMode", "6"},
        {"cbLiveview_colormap", "3"},
        {"cbFFCmode", "2"},
        {"sbFFCdelay", "18582"},
        {"leFrameSkip", "305419896"},
        {"cbTriggerPinMode", "5"},
        {"cbTriggerFFCMode", "1"},
        {"cbTriggerFrameMode", "1"},
        {"cbIsothermsState", "1"},
        {"cbIsothermsTransparency", "1"},
        {"cbIsothermSwitchMode", "1"},
        {"sbIsothermsLower", "-273"},
        {"sbIsothermsMiddle", "500"},
        {"sbIsothermsUpper", "1000"},
        {"cbSbusColormap", "1"},
        {"cbSbusFFC", "3"},
        {"cbSbusIsotherms", "4"},
        {"cbSbusIsoTransparency", "5"},
        {"cbSbusIsoLow", "6"},
        {"cbSbusIsoMid", "7"},
        {"cbSbusIsoUp", "8"},
        {"cbSbusOverlay", "9"},
        {"cbSbusTrigger", "10"},
        {"cbSbusViewmode", "11"},
        {"sBTriggerLow", "258"},
        {"sBTriggerHigh", "2047"},
    };
    const Values m_filledBlendOnly{
        {"sbVLCevcorrection", "-6"},
        {"cbVLCAdaptiveGradiationCorrection", "1"},
        {"cbVLCWhiteBalanceMode", "8"},
        {"sbVLCFocusAdjustment", "-31"},
        {"cBext0mode", "1"}, // EXP0_MODE_EXTERNAL_SHUTTER
        {"cBext1mode", "1"}, // EXP1_MODE_EXTERNAL_SHUTTER
        {"cbSbusColorMapSwitchMode", "1"},
        {"cbSbusViewModeSwitchMode", "1"},
    };
    const QByteArray m_filledZoom = bytes({
        "9e13afa0 d1000000 55163401",                        // header
        "00080700 02 02 00 01 03 01",                        // 12
        "e7030000 cf070000 1efbffff 0f0e0000 62000000",      // 22
        "01 01 01 00 06 000000000000000000000000 03 01 08",  // 42: NTSC, 60 Hz, overlay
        "0a 15 11010303 07 01 00b0 02 0080 80 0900",         // 62: 1/10000 s, 45056, VC, zoom 10
        "0200 f0891b01 5f 00 01 78563412 05 01 01 00 01 01", // 78: JPEG 95 %
        "07 0a 00c20100 08 00 01 00",                        // 97: VISCA, COMIO
        "01 01 01 effe f401 e803",                           // 107
        "0101030405060708090a0b0c02",                        // 116: trigger channel 10
        "0201020102010201020102010201020102010201",          // 129
        "0201020102010201020102010201020102010201",          //
        "ff07ff07ff07ff07ff07ff07ff07ff07ff07ff07",          // 169
        "ff07ff07ff07ff07ff07ff07ff07ff07ff07ff07",          //
        "b80b0000 00 ************ 01",                       // 209
    });
    const Values m_filledZoomOnly{
        {"cbAnalogVideoMode", "1"},
        {"cbHDMIVideoMode", "1"},
        {"cb_vlc_cam", "1"},
        {"cb_vlc_ae_mode", "1"},         // VISCA_AEMODE_SHUTTER_PRIORITY
        {"cb_vlc_ae_shutterspeed", "0"}, // SPEED_10000_HZ
        {"cbVLCTamronFocus", "1"},
        {"hsTamronfocusvalue", "45056"},
        {"cbVibrationCompensation", "1"},
        {"sbTamronZoom", "10"},
        {"sbJPEGcompressionDaylight", "95"},
        {"cbImageOutput", "1"},
        {"cbSBUSInverSignal", "1"},
        {"cBAdvacedSync", "1"},
        {"cBext0mode", "4"}, // EXP0_MODE_VISCA
        {"cBext1mode", "2"}, // EXP1_MODE_COMIO
        {"cbSbusZoom", "12"},
        {"cbSbusZoomMode", "2"},
        {"cbTestmodesTaucore", "1"},
    };

    /// Bytes from hexadecimal digits; "**" is a byte that the tool leaves as it is.
    static QByteArray bytes(std::initializer_list<const char *> lines)
    {
        QByteArray text;
        for (const char *line : lines)
            text += line;
        return QByteArray::fromHex(text.replace("**", "00"));
    }

    /// The record with the caller's `fill` in the unset bytes and with its CRC.
    static QByteArray complete(QByteArray record, char fill = '\0')
    {
        if (record.size() == 205) {
            record[73] = fill;
            record.replace(84, 8, QByteArray(8, fill));
            record.replace(193, 12, QByteArray(12, fill));
        } else {
            record.replace(214, 6, QByteArray(6, fill));
        }
        return records::sealed(record + "  ");
    }

    static bool zoomRow()
    {
        QFETCH_GLOBAL(bool, zoom);
        return zoom;
    }
    QByteArray defaultRecord(bool zoom) const { return zoom ? m_defaultZoom : m_defaultBlend; }
    QByteArray filledRecord(bool zoom) const { return zoom ? m_filledZoom : m_filledBlend; }
    Values filledValues(bool zoom) const
    {
        Values values = m_filledShared;
        const Values &more = zoom ? m_filledZoomOnly : m_filledBlendOnly;
        values.insert(values.end(), more.begin(), more.end());
        return values;
    }
    static QByteArray blank(bool zoom) { return zoom ? records::blendZoom() : records::blend(); }

    CapturedDiagnostics m_lines;

    // Every test runs for both records, but those of fields that only one has.
private slots:
    void initTestCase_data()
    {
        QTest::addColumn<bool>("zoom");
        QTest::newRow("Blend") << false;
        QTest::newRow("Blend Zoom") << true;
    }
    void init() { m_lines.clear(); }

    void formAsItStartsGivesTheDefaultRecord()
    {
        ConfigurationForm form(zoomRow());
        m_lines.clear();
        QCOMPARE(form.written(), complete(defaultRecord(zoomRow())));
        QVERIFY(m_lines.err().isEmpty());
    }

    void unsetBytesStayAsTheCallersBufferHasThem()
    {
        ConfigurationForm form(zoomRow());
        QCOMPARE(form.written('\xA5'), complete(defaultRecord(zoomRow()), '\xA5'));
        QCOMPARE(form.written('\xFF'), complete(defaultRecord(zoomRow()), '\xFF'));
    }

    void formWithEverythingAtZeroGivesHeaderAndFixedFieldsOnly()
    {
        ConfigurationForm form(zoomRow());
        for (const auto &[name, value] : filledValues(zoomRow()))
            form.set(name, QStringLiteral("0"));
        form.set("cbSbusColorMapSwitchMode", QStringLiteral("0"));
        form.set("cBOverlayMode", QStringLiteral("0"));
        form.set("cb_vlc_ae_shutterspeed", QStringLiteral("21")); // SPEED_1_HZ is the 0
        // What boxes cannot hold a zero for: stop bits, baud rate, thresholds, isotherms excepted.
        QByteArray expected = blank(zoomRow());
        records::put<quint32>(expected, 12, 1200);
        expected[17] = 1;
        const int thresholds = zoomRow() ? 129 : 113;
        for (int i = 0; i < 40; ++i)
            records::put<quint16>(expected, thresholds + 2 * i, 1);
        if (zoomRow()) {
            expected.replace(61, 9, QByteArray::fromHex("08 00 00 11010303 07 00"));
            records::put<quint16>(expected, 70, 4096);
            expected.replace(72, 4, QByteArray::fromHex("03 0080 80"));
            expected[84] = 1;
            expected.replace(99, 8, QByteArray::fromHex("00c20100 08 00 01 00"));
            records::put<quint32>(expected, 209, 3000);
        } else {
            records::put<quint16>(expected, 58, 1600);
            records::put<quint16>(expected, 60, 1200);
        }
        QCOMPARE(form.written(), records::sealed(expected));
    }

    void recordsOfTheFormAreValidControlStructures()
    {
        ConfigurationForm form(zoomRow());
        KovoDevices devices(nullptr);
        devices.setDevice(zoomRow() ? 0xA0AF139E : 0xC92A6CE6);
        QVERIFY(devices.isValidControlStruct(records::payload(form.written())));
        QVERIFY(devices.isValidControlStruct(records::payload(form.written('\xA5'))));
    }

    void formWithoutAModelStoresNoExtensionModes()
    {
        const int ext0 = zoomRow() ? 97 : 82;
        ConfigurationForm form(zoomRow());
        form.get<QComboBox>("cBext0mode")->clear();
        form.get<QComboBox>("cBext1mode")->clear();
        QByteArray expected = defaultRecord(zoomRow());
        expected[ext0] = '\xFF';
        expected[ext0 + 1] = '\xFF';
        QCOMPARE(form.written(), complete(expected));
    }

    void filledFormGivesTheFilledRecord()
    {
        ConfigurationForm form(zoomRow());
        for (const auto &[name, value] : filledValues(zoomRow()))
            form.set(name, value);
        form.set("cbSbusColorMapSwitchMode", QStringLiteral("1"));
        form.set("cBOverlayMode", QStringLiteral("1"));
        m_lines.clear();
        QCOMPARE(form.written(), complete(filledRecord(zoomRow())));
        QVERIFY(m_lines.err().isEmpty());
    }

    void filledRecordFillsTheForm()
    {
        ConfigurationForm form(zoomRow());
        m_lines.clear();
        form.read(complete(filledRecord(zoomRow()), '\xA5')); // unset bytes are ignored
        for (const auto &[name, value] : filledValues(zoomRow()))
            QVERIFY2(form.value(name) == value, qPrintable(name + (": " + form.value(name))));
        QVERIFY(m_lines.out().isEmpty());
        QVERIFY(m_lines.err().isEmpty());
    }

    void formFollowsOneRecordAfterAnother()
    {
        ConfigurationForm form(zoomRow());
        form.read(complete(filledRecord(zoomRow())));
        form.read(complete(defaultRecord(zoomRow())));
        QCOMPARE(form.written(), complete(defaultRecord(zoomRow())));
        form.read(complete(filledRecord(zoomRow())));
        QByteArray expected = filledRecord(zoomRow());
        expected[zoomRow() ? 44 : 42] = 0; // the overlay mode is never read: the gimbal switches it
        QCOMPARE(form.written(), complete(expected));
    }

    void readingLeavesWriteOnlyFieldsAlone()
    {
        for (const char *position : {"0", "1"}) {
            ConfigurationForm form(zoomRow());
            form.set("cBOverlayMode", position);
            form.set("cbSbusColorMapSwitchMode", position);
            QByteArray record = blank(zoomRow());
            record[zoomRow() ? 44 : 42] = *position == '0';
            record[zoomRow() ? 117 : 102] = *position == '0';
            form.read(records::sealed(record));
            QCOMPARE(form.value("cBOverlayMode"), QString(position));
            // Only the Blend's record shows the switch mode of the colour map.
            QCOMPARE(form.value("cbSbusColorMapSwitchMode") == QString(position), zoomRow());
        }
    }

    void thresholdsOfTheTriggerChannelAreShown_data()
    {
        QTest::addColumn<int>("channel");
        QTest::addColumn<int>("low");
        QTest::addColumn<int>("high");
        QTest::addColumn<QString>("lines");
        const auto row = [](const char *name, int channel, int low, int high, const char *line) {
            QTest::newRow(name) << channel << low << high << QString(line);
        };
        row("first", 0, 100, 1200, "");
        row("eighth", 7, 107, 1207, "");
        row("deactivated", 18, 118, 1218, "");
        row("last entry", 19, 119, 1219, "");
        row("behind the tables", 20, 55, 66, "<<< no trigger thresholds of channel index 20\n");
        row("no channel", 255, 55, 66, "<<< no trigger thresholds of channel index 255\n");
    }
    void thresholdsOfTheTriggerChannelAreShown()
    {
        QFETCH(int, channel);
        ConfigurationForm form(zoomRow());
        form.set("sBTriggerLow", QStringLiteral("55"));
        form.set("sBTriggerHigh", QStringLiteral("66"));
        QByteArray record = blank(zoomRow());
        record[zoomRow() ? 125 : 110] = static_cast<char>(channel);
        if (zoomRow())
            record[72] = 3; // the Blend Zoom says something about any other than 3 and 2
        for (int i = 0; i < 20; ++i) {
            records::put<quint16>(record, (zoomRow() ? 129 : 113) + 2 * i, quint16(100 + i));
            records::put<quint16>(record, (zoomRow() ? 169 : 153) + 2 * i, quint16(1200 + i));
        }
        m_lines.clear();
        form.read(records::sealed(record));
        QTEST(form.get<QSpinBox>("sBTriggerLow")->value(), "low");
        QTEST(form.get<QSpinBox>("sBTriggerHigh")->value(), "high");
        QTEST(m_lines.err(), "lines");
        QCOMPARE(form.value("cbSbusTrigger"),
                 channel > 18 ? QStringLiteral("-1") : QString::number(channel));
    }

    void thresholdsOutsideTheirRangeAreShownAtItsEnd_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("shown");
        QTest::newRow("none") << 0 << 1;
        QTest::newRow("lowest") << 1 << 1;
        QTest::newRow("highest") << 2047 << 2047;
        QTest::newRow("one above") << 2048 << 2047;
        QTest::newRow("all bits set") << 0xFFFF << 2047;
    }
    void thresholdsOutsideTheirRangeAreShownAtItsEnd()
    {
        QFETCH(int, stored);
        ConfigurationForm form(zoomRow());
        QByteArray record = blank(zoomRow());
        for (int i = 0; i < 40; ++i)
            records::put<quint16>(record, (zoomRow() ? 129 : 113) + 2 * i, quint16(stored));
        form.read(records::sealed(record));
        QTEST(form.get<QSpinBox>("sBTriggerLow")->value(), "shown");
        QTEST(form.get<QSpinBox>("sBTriggerHigh")->value(), "shown");
    }

    void thresholdsAreWrittenToAllEntries_data()
    {
        QTest::addColumn<int>("channel");
        QTest::newRow("first") << 0;
        QTest::newRow("deactivated") << 18;
        QTest::newRow("none") << -1;
    }
    void thresholdsAreWrittenToAllEntries()
    {
        QFETCH(int, channel);
        ConfigurationForm form(zoomRow());
        form.set("cbSbusTrigger", QString::number(channel));
        form.set("sBTriggerLow", QStringLiteral("1"));
        form.set("sBTriggerHigh", QStringLiteral("513"));
        QByteArray expected = defaultRecord(zoomRow());
        expected[zoomRow() ? 125 : 110] = static_cast<char>(channel);
        const int low = zoomRow() ? 129 : 113;
        expected.replace(low, 40, QByteArray::fromHex("0100").repeated(20));
        expected.replace(low + 40, 40, QByteArray::fromHex("0102").repeated(20));
        QCOMPARE(form.written(), complete(expected));
    }

    void jpegPairActsWhileARecordIsRead();
    void unknownHdmiModeOfARecordIsReported();
    void unknownVibrationCompensationOfARecordIsReported();
    void listsWithoutACodeWriteNothing();
};

void TestMainWindowMapping::jpegPairActsWhileARecordIsRead()
{
    if (!zoomRow())
        return;
    ConfigurationForm form(true);
    QByteArray record = records::blendZoom();
    const auto read = [&](int quality) {
        record[84] = static_cast<char>(quality);
        form.read(records::sealed(record));
        return form.value("sbJPEGcompressionDaylight") + '/' +
               form.value("hs_JPEGcompressionDaylight");
    };
    QCOMPARE(read(90), QStringLiteral("90/1"));
    QCOMPARE(read(50), QStringLiteral("75/0")); // the slider moves, and sets its own value
    QCOMPARE(read(50), QStringLiteral("50/0")); // it stands there already
    QCOMPARE(read(99), QStringLiteral("95/2"));
    QCOMPARE(read(99), QStringLiteral("99/2"));
    QCOMPARE(read(255), QStringLiteral("99/2"));
    QCOMPARE(read(0), QStringLiteral("75/0"));
}

void TestMainWindowMapping::unknownHdmiModeOfARecordIsReported()
{
    if (!zoomRow())
        return;
    ConfigurationForm form(true);
    for (const char *position : {"0", "1"}) {
        form.set("cbHDMIVideoMode", position);
        QByteArray record = records::blendZoom();
        record[43] = 2;
        record[72] = 3;
        m_lines.clear();
        form.read(records::sealed(record));
        QCOMPARE(m_lines.err(), QStringLiteral("<<< Unkown monitoring mode\n"));
        QCOMPARE(form.value("cbHDMIVideoMode"), QString(position));
    }
}

void TestMainWindowMapping::unknownVibrationCompensationOfARecordIsReported()
{
    if (!zoomRow())
        return;
    ConfigurationForm form(true);
    for (const char *position : {"0", "1"}) {
        form.set("cbVibrationCompensation", position);
        m_lines.clear();
        form.read(records::sealed(records::blendZoom()));
        QCOMPARE(m_lines.err(), QStringLiteral("<<< Unkown vibration compensation\n"));
        QCOMPARE(form.value("cbVibrationCompensation"), QString(position));
    }
}

void TestMainWindowMapping::listsWithoutACodeWriteNothing()
{
    if (!zoomRow())
        return;
    ConfigurationForm form(true);
    QByteArray expected = m_defaultZoom;
    expected[43] = '\xA5';
    expected[72] = '\xA5';

    form.set("cbHDMIVideoMode", QStringLiteral("-1"));
    form.set("cbVibrationCompensation", QStringLiteral("-1"));
    m_lines.clear();
    QCOMPARE(form.written('\xA5'), complete(expected, '\xA5'));
    const QString hdmi = QStringLiteral(
        "MainWindow::ui2config_qxblendzoom() videoconfig hdmi output mode unknown:%1\n");
    const QString vibration = QStringLiteral("<<< Unkown vibration compensation\n");
    QCOMPARE(m_lines.err(), hdmi.arg(-1) + vibration);

    form.get<QComboBox>("cbHDMIVideoMode")->addItem(QStringLiteral("MODE_2160P"));
    form.get<QComboBox>("cbVibrationCompensation")->addItem(QStringLiteral("AUTO"));
    form.set("cbHDMIVideoMode", QStringLiteral("2"));
    form.set("cbVibrationCompensation", QStringLiteral("2"));
    m_lines.clear();
    QCOMPARE(form.written('\xA5'), complete(expected, '\xA5'));
    QCOMPARE(m_lines.err(), hdmi.arg(2) + vibration);
}

QTEST_MAIN(TestMainWindowMapping)
#include "tst_mainwindow_mapping.moc"
