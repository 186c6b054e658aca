#include "factory/factorywindow.h"
#include "support/modal.h"
#include "support/referenceframes.h"

#include <QSpinBox>
#include <QTest>

#include <algorithm>
#include <limits>
#include <memory>
#include <numeric>

namespace {

QVector<uint8_t> payload(const QByteArray &bytes)
{
    QVector<uint8_t> out;
    std::copy(bytes.begin(), bytes.end(), std::back_inserter(out));
    return out;
}

QVector<int> counting(int count, int from)
{
    QVector<int> numbers(count);
    std::iota(numbers.begin(), numbers.end(), from);
    return numbers;
}

const QString deviceUnknown =
    QStringLiteral("FactorySettings::parseFactorySettings() Device unknown\n");

} // namespace

/// The records: read, shown, built, written.
class tst_FactorySettings : public QObject
{
    Q_OBJECT

private slots:
    void init() { w = std::make_unique<FactoryWindow>(); }
    void cleanup() { w.reset(); }

    void readRequestHasNoPayloadWhateverTheDevice();
    void freshZoomRecordCarriesVersionSerialAndInitialTables();
    void zoomRecordTruncatesToSixteenBitsAndReadsTextAsZero();
    void blendWriteCarriesOffsetsOfTheLiveView();
    void writeWithoutADeviceSendsNothing();

    void zoomReplyFillsTheTables();
    void cancelKeepsTheTablesButTakesTheSerialNumber();
    void zoomReplyWithPaddingIsReadAtItsLength();
    void serialNumberOfTwelveBytesNeedsNoNul();
    void serialNumberNeverSetIsLeftAlone();
    void boxAsksWithOkAsDefault();

    void blendReplyFillsTheForm();
    void blendReplyOfErasedMemoryChangesNothing();
    void blendLiveViewWireValues();
    void blendFieldsThatAreNotSetAreSkipped();
    void blendValuesBeyondTheBoxesAreLimited();
    void liveViewBoxSendsOneWritePerChange();
    void showingABlendRecordSendsNothing();

    void shortRepliesAreRefused_data();
    void shortRepliesAreRefused();
    void replyOfAnUnknownDeviceIsRefused();

private:
    std::unique_ptr<FactoryWindow> w;
};

void tst_FactorySettings::readRequestHasNoPayloadWhateverTheDevice()
{
    for (const unsigned key : {0U, unsigned(KovoDevice_QXBlend), unsigned(KovoDevice_QX20)}) {
        if (key != 0)
            w->devices.setDevice(key);
        w->click("pbGetFactorySettings");
        QCOMPARE(w->sent.count(), 1);
        QCOMPARE(w->sent.takeFirst().at(0).toByteArray(), reference::frame(111, {}));
    }
}

void tst_FactorySettings::freshZoomRecordCarriesVersionSerialAndInitialTables()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    const QByteArray record =
        zoomRecord("1700999", initialArdview(), initialHdmi(), initialAnalog());
    QCOMPARE(record.size(), 416);
    QCOMPARE(record.left(16), QByteArray::fromHex("98c8330131373030393939"
                                                  "0000000000"));
    QCOMPARE(record.mid(136, 4), QByteArray::fromHex("e301bc00")); // A = 483, B = 188

    w->click("pbSetFactorySettings");
    QCOMPARE(w->sent.count(), 1);
    QCOMPARE(w->sent.at(0).at(0).toByteArray(), reference::frame(110, record));
    QCOMPARE(w->said.out(),
             QStringLiteral("FactorySettings::on_pbSetFactorySettings_clicked\n"
                            "FactorySettings::setFactorySettings_QXBlend\n<<< 1700999\n"));
    QCOMPARE(w->said.err(), QString());

    const FactorySettings_QXBlendZoom_TypeDef built = w->dialog.ui2struct_QXBlendZoom();
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(&built), sizeof(built)), record);
}

void tst_FactorySettings::zoomRecordTruncatesToSixteenBitsAndReadsTextAsZero()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    w->table("tw_QXBZ_hdmi")->item(0, 0)->setText(QStringLiteral("70000"));
    w->table("tw_QXBZ_hdmi")->item(6, 9)->setText(QStringLiteral("-2"));
    w->table("tw_QXBZ_analog")->item(1, 3)->setText(QStringLiteral("twelve"));
    w->table("tw_QXBZ_analog")->item(2, 3)->setText(QString());
    delete w->table("tw_QXBZ_analog")->takeItem(3, 3);
    w->table("tw_QXBZ_ardview")->item(2, 9)->setText(QStringLiteral("-70000"));

    QVector<int> ardview = initialArdview();
    QVector<int> hdmi = initialHdmi();
    QVector<int> analog = initialAnalog();
    hdmi[0] = 4464; // 70000 - 65536
    hdmi[69] = -2;
    analog[22] = analog[23] = analog[24] = 0;
    ardview[29] = -70000;
    w->click("pbSetFactorySettings");
    QCOMPARE(w->sent.at(0).at(0).toByteArray(),
             reference::frame(110, zoomRecord("1700999", ardview, hdmi, analog)));
}

void tst_FactorySettings::blendWriteCarriesOffsetsOfTheLiveView()
{
    w->devices.setDevice(KovoDevice_QXBlend);
    w->widget<QSpinBox>("sbHorizontalAdjustement")->setValue(-7);
    w->widget<QSpinBox>("sbVerticalAdjustment")->setValue(99);
    w->widget<QSpinBox>("sbScale")->setValue(481);
    QCOMPARE(w->sent.count(), 0); // these write only at the button
    w->click("pbSetFactorySettings");
    QCOMPARE(w->sent.count(), 1);
    QCOMPARE(w->sent.takeFirst().at(0).toByteArray(),
             reference::frame(110, blendRecord("1700999", {-7, 99, 40, 12, 481})));
    QCOMPARE(w->said.out(),
             QStringLiteral("FactorySettings::on_pbSetFactorySettings_clicked\n"
                            "FactorySettings::setFactorySettings_QXBlend\n<<< 1700999\n"));
}

void tst_FactorySettings::writeWithoutADeviceSendsNothing()
{
    w->click("pbSetFactorySettings");
    w->devices.setDevice(KovoDevice_QX20);
    w->said.clear();
    w->click("pbSetFactorySettings");
    QCOMPARE(w->sent.count(), 0);
    QCOMPARE(w->said.out(), QStringLiteral("FactorySettings::on_pbSetFactorySettings_clicked\n"));
    QCOMPARE(w->said.err(), deviceUnknown);
}

void tst_FactorySettings::zoomReplyFillsTheTables()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    modal::Answer<QMessageBox> ok(modal::click(QMessageBox::Ok));
    const QByteArray record =
        zoomRecord("17A0042", counting(30, -15), counting(70, -32768), counting(70, 32698));
    QVERIFY(w->dialog.parseFactorySettings(payload(record)));
    QVERIFY(ok.given());
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("17A0042"));
    QCOMPARE(w->said.out(), QStringLiteral("<<< 17A0042\n"));
    for (int zoom = 0; zoom < 10; ++zoom) {
        for (int row = 0; row < 7; ++row) {
            QCOMPARE(w->table("tw_QXBZ_hdmi")->item(row, zoom)->text().toInt(),
                     -32768 + 7 * zoom + row);
            QCOMPARE(w->table("tw_QXBZ_analog")->item(row, zoom)->text().toInt(),
                     32698 + 7 * zoom + row);
        }
        for (int row = 0; row < 3; ++row)
            QCOMPARE(w->table("tw_QXBZ_ardview")->item(row, zoom)->data(Qt::DisplayRole),
                     QVariant(-15 + 3 * zoom + row));
    }
    QCOMPARE(w->sent.count(), 0);

    w->click("pbSetFactorySettings");
    QCOMPARE(w->sent.at(0).at(0).toByteArray(), reference::frame(110, record));
}

void tst_FactorySettings::cancelKeepsTheTablesButTakesTheSerialNumber()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    QVector<QVector<QString>> before;
    for (const char *name : tableNames)
        before << w->cells(name);
    const QByteArray record = zoomRecord("4711", counting(30, 1), counting(70, 1), counting(70, 1));

    modal::Answer<QMessageBox> cancel(modal::click(QMessageBox::Cancel));
    QVERIFY(w->dialog.parseFactorySettings(payload(record))); // a known device's record
    QVERIFY(cancel.given());
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("4711"));
    QCOMPARE(w->said.out(), QStringLiteral("<<< 4711\n<<< dialog rejected\n"));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(w->cells(tableNames[i]), before[i]);

    FactorySettings_QXBlendZoom_TypeDef direct;
    std::copy(record.begin(), record.end(), reinterpret_cast<char *>(&direct));
    modal::Answer<QMessageBox> again(modal::cancel<QMessageBox>());
    QVERIFY(!w->dialog.parseFactorySettings_QXBlendZoom(&direct));
}

void tst_FactorySettings::zoomReplyWithPaddingIsReadAtItsLength()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    modal::Answer<QMessageBox> ok(modal::click(QMessageBox::Ok));
    const QByteArray record =
        zoomRecord("1", counting(30, 0), counting(70, 100), counting(70, 1000));
    QVERIFY(w->dialog.parseFactorySettings(payload(record + QByteArray(50, '\x55'))));
    QCOMPARE(w->table("tw_QXBZ_analog")->item(6, 9)->text(), QStringLiteral("1069"));
}

void tst_FactorySettings::serialNumberOfTwelveBytesNeedsNoNul()
{
    w->devices.setDevice(KovoDevice_QXBlend);
    QVERIFY(w->dialog.parseFactorySettings(
        payload(blendRecord("ABCDEFGHIJKL", {0x41414141, 0, 40, 12, 480}))));
    QCOMPARE(w->said.out(), QStringLiteral("<<< ABCDEFGHIJKL\n"));
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("ABCDEFG")); // the field's own limit
}

void tst_FactorySettings::serialNumberNeverSetIsLeftAlone()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    modal::Answer<QMessageBox> ok(modal::click(QMessageBox::Ok));
    QVERIFY(w->dialog.parseFactorySettings(payload(
        zoomRecord(QByteArray(12, '\xFF'), counting(30, 0), counting(70, 0), counting(70, 0)))));
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("1700999"));
    QCOMPARE(w->said.out(), QStringLiteral("<<< device_serial_number is 0xFF array\n"));
    QCOMPARE(w->table("tw_QXBZ_hdmi")->item(6, 9)->text(), QStringLiteral("69"));
}

void tst_FactorySettings::boxAsksWithOkAsDefault()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    modal::Answer<QMessageBox> look([](QMessageBox *box) {
        QCOMPARE(box->windowTitle(), QStringLiteral("Read Settings?"));
        QCOMPARE(box->text(),
                 QStringLiteral("<p>Do you want to replace the currect GUI settings?</p>"));
        QCOMPARE(box->icon(), QMessageBox::Warning);
        QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
        QVERIFY(box->defaultButton() == box->button(QMessageBox::Ok));
        QVERIFY(box->windowFlags() & Qt::WindowTitleHint);
        QVERIFY(!(box->windowFlags() & Qt::WindowContextHelpButtonHint));
        box->button(QMessageBox::Cancel)->click();
    });
    w->dialog.parseFactorySettings(
        payload(zoomRecord("1", counting(30, 0), counting(70, 0), counting(70, 0))));
    QVERIFY(look.given());
}

void tst_FactorySettings::blendReplyFillsTheForm()
{
    w->devices.setDevice(KovoDevice_QXBlend);
    QVERIFY(w->dialog.parseFactorySettings(
        payload(blendRecord("1800001", {-12, 34, 45, 15, 500}) + "pad")));
    const int expected[] = {-12, 34, 5, 3, 500};
    for (int i = 0; i < 5; ++i)
        QCOMPARE(w->widget<QSpinBox>(blendBoxes[i])->value(), expected[i]);
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("1800001"));
    QCOMPARE(w->said.out(), QStringLiteral("<<< 1800001\n"));
}

void tst_FactorySettings::blendReplyOfErasedMemoryChangesNothing()
{
    w->devices.setDevice(KovoDevice_QXBlend);
    const int shown[] = {-3, 4, 5, 6, 700};
    for (int i = 0; i < 5; ++i)
        w->widget<QSpinBox>(blendBoxes[i])->setValue(shown[i]);
    w->said.clear();
    QVERIFY(w->dialog.parseFactorySettings(payload(QByteArray(32, '\xFF'))));
    for (int i = 0; i < 5; ++i)
        QCOMPARE(w->widget<QSpinBox>(blendBoxes[i])->value(), shown[i]);
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("1700999"));
    QCOMPARE(w->said.out(), QStringLiteral("<<< device_serial_number is 0xFF array\n"));
}

void tst_FactorySettings::blendLiveViewWireValues()
{
    w->devices.setDevice(KovoDevice_QXBlend);
    auto *horizontal = w->widget<QSpinBox>("sbLiveViewHorizontalAdjustment");
    auto *vertical = w->widget<QSpinBox>("sbLiveViewVerticalAdjustment");
    w->dialog.parseFactorySettings(payload(blendRecord("1", {0, 0, 139, 111, 480})));
    QCOMPARE(horizontal->value(), 99);
    QCOMPARE(vertical->value(), 99);
    w->dialog.parseFactorySettings(payload(blendRecord("1", {0, 0, 40, 12, 480})));
    QCOMPARE(horizontal->value(), 0);
    QCOMPARE(vertical->value(), 0);

    horizontal->setValue(5);
    QCOMPARE(w->sent.count(), 1);
    QCOMPARE(w->sent.takeFirst().at(0).toByteArray(),
             reference::frame(110, blendRecord("1", {0, 0, 45, 12, 480})));
}

void tst_FactorySettings::blendFieldsThatAreNotSetAreSkipped()
{
    w->devices.setDevice(KovoDevice_QXBlend);
    w->dialog.parseFactorySettings(payload(blendRecord("1", {1, -1, 42, -1, 490})));
    const int expected[] = {1, 0, 2, 0, 490};
    for (int i = 0; i < 5; ++i)
        QCOMPARE(w->widget<QSpinBox>(blendBoxes[i])->value(), expected[i]);
}

void tst_FactorySettings::blendValuesBeyondTheBoxesAreLimited()
{
    w->devices.setDevice(KovoDevice_QXBlend);
    const int low = std::numeric_limits<int>::min();
    const int high = std::numeric_limits<int>::max();
    w->dialog.parseFactorySettings(payload(blendRecord("1", {low, high, low, high, low})));
    const int expected[] = {-99, 99, 0, 99, 1};
    for (int i = 0; i < 5; ++i)
        QCOMPARE(w->widget<QSpinBox>(blendBoxes[i])->value(), expected[i]);
}

void tst_FactorySettings::liveViewBoxSendsOneWritePerChange()
{
    w->devices.setDevice(KovoDevice_QXBlend);
    auto *vertical = w->widget<QSpinBox>("sbLiveViewVerticalAdjustment");
    for (int i = 1; i <= 3; ++i) {
        vertical->stepUp();
        QCOMPARE(w->sent.count(), i);
        QCOMPARE(w->sent.last().at(0).toByteArray(),
                 reference::frame(110, blendRecord("1700999", {0, 0, 40, 12 + i, 480})));
    }
    vertical->setValue(3); // no change
    QCOMPARE(w->sent.count(), 3);
    w->widget<QSpinBox>("sbLiveViewHorizontalAdjustment")->stepUp();
    QCOMPARE(w->sent.count(), 4);
}

void tst_FactorySettings::showingABlendRecordSendsNothing()
{
    w->devices.setDevice(KovoDevice_QXBlend);
    QVERIFY(w->dialog.parseFactorySettings(payload(blendRecord("1", {9, 8, 47, 18, 5}))));
    QCOMPARE(w->widget<QSpinBox>("sbLiveViewVerticalAdjustment")->value(), 6);
    QCOMPARE(w->sent.count(), 0);
    w->widget<QSpinBox>("sbLiveViewVerticalAdjustment")->stepUp();
    QCOMPARE(w->sent.count(), 1);
}

void tst_FactorySettings::shortRepliesAreRefused_data()
{
    QTest::addColumn<unsigned>("device");
    QTest::addColumn<int>("size");
    QTest::newRow("Blend, empty") << unsigned(KovoDevice_QXBlend) << 0;
    QTest::newRow("Blend, 31 bytes") << unsigned(KovoDevice_QXBlend) << 31;
    QTest::newRow("Blend Zoom, empty") << unsigned(KovoDevice_QXBlendZoom) << 0;
    QTest::newRow("Blend Zoom, 415 bytes") << unsigned(KovoDevice_QXBlendZoom) << 415;
}

void tst_FactorySettings::shortRepliesAreRefused()
{
    QFETCH(unsigned, device);
    QFETCH(int, size);
    w->devices.setDevice(device);
    const QVector<QString> before = w->cells("tw_QXBZ_hdmi");
    QVERIFY(!w->dialog.parseFactorySettings(payload(QByteArray(size, 'A'))));
    QCOMPARE(w->said.out(), QString());
    QCOMPARE(w->said.err().count(QLatin1Char('\n')), 1);
    QVERIFY(w->said.err().contains(QStringLiteral("too short: %1 bytes").arg(size)));
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("1700999"));
    QCOMPARE(w->cells("tw_QXBZ_hdmi"), before);
}

void tst_FactorySettings::replyOfAnUnknownDeviceIsRefused()
{
    QVERIFY(!w->dialog.parseFactorySettings(payload(QByteArray(416, 'A'))));
    QCOMPARE(w->said.err(), deviceUnknown);
    w->devices.setDevice(KovoDevice_QX20);
    w->said.clear();
    QVERIFY(!w->dialog.parseFactorySettings(payload(QByteArray(416, 'A'))));
    QCOMPARE(w->said.err(), deviceUnknown);
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("1700999"));
}

QTEST_MAIN(tst_FactorySettings)
#include "tst_factorysettings.moc"
