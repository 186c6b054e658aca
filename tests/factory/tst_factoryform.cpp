#include "factory/factorywindow.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <memory>

/// What the form shows, and what it derives from its HDMI table.
class tst_FactoryForm : public QObject
{
    Q_OBJECT

private slots:
    void init() { w = std::make_unique<FactoryWindow>(); }
    void cleanup() { w.reset(); }

    void formHasItsTextsAndRanges();
    void labelsStandBesideTheirBoxes();
    void tablesHaveVisibleHeadersAndInitialContents();
    void columnsAreWideEnoughForTheirNumbers();
    void cellsAreEdited();
    void showsNoModelGroupBeforeAModelIsKnown();
    void showsTheGroupsOfTheModel();
    void modelWithoutRecordHidesEverything();
    void staysEnabledOnDisconnect();
    void enterPressesNoButton();
    void scaleMember();
    void calcArdviewFillsTheTable();
    void calcAnalogFillsTheTableAndLeavesTheOthers();
    void derivingTwiceGivesTheSame();
    void columnWithScaleZeroStaysAndIsLogged();
    void setDisplacementsWritesOneColumn();
    void setDisplacementsRefusesColumnsThatAreNot();

private:
    std::unique_ptr<FactoryWindow> w;
};

void tst_FactoryForm::formHasItsTextsAndRanges()
{
    QCOMPARE(w->dialog.objectName(), QStringLiteral("FactorySettings"));
    QCOMPARE(w->dialog.windowTitle(), QStringLiteral("Factory Settings"));
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("1700999"));
    QCOMPARE(w->serialNumber()->maxLength(), 7);

    const QVector<QPair<const char *, QString>> groups = {
        {"gb_QXBZ_hdmi", "HDMI output adjustements"},
        {"gb_QXBZ_analog", "Analog output adjustements"},
        {"gb_QXBZ_ardview", "Ardview Adjustments"},
        {"gb_QXB_LiveViewAdjustements", "Live View Adjustments"},
        {"gb_QXB_ArdviewAdjustements", "Ardview Adjustments"}};
    for (const auto &group : groups)
        QCOMPARE(w->widget<QGroupBox>(group.first)->title(), group.second);

    const QVector<QPair<const char *, QString>> buttons = {
        {"pbGetFactorySettings", "Read from Device"},
        {"pbSetFactorySettings", "Write to Device"},
        {"pb_WriteFile", "Write to File"},
        {"pb_ReadFile", "Read from File"},
        {"btnCalcADFromHDMI", "Calc AD from HDMI"},
        {"btnCalcAVFromHDMI", "Calc AV from HDMI"}};
    for (const auto &button : buttons)
        QCOMPARE(w->widget<QPushButton>(button.first)->text(), button.second);

    const int ranges[][3] = {{-99, 99, 0}, {-99, 99, 0}, {0, 99, 0}, {0, 99, 0}, {1, 999, 480}};
    for (int i = 0; i < 5; ++i) {
        auto *box = w->widget<QSpinBox>(blendBoxes[i]);
        QCOMPARE(box->minimum(), ranges[i][0]);
        QCOMPARE(box->maximum(), ranges[i][1]);
        QCOMPARE(box->value(), ranges[i][2]);
    }
}

void tst_FactoryForm::labelsStandBesideTheirBoxes()
{
    const QVector<QPair<const char *, QString>> labels = {
        {"leSerialNumber", "Serial number"},
        {"sbLiveViewHorizontalAdjustment", "Horizontal Adjustment"},
        {"sbLiveViewVerticalAdjustment", "Vertical Adjustement"},
        {"sbHorizontalAdjustement", "Horizontal Adjustment"},
        {"sbVerticalAdjustment", "Vertical Adjustement"},
        {"sbScale", "Scale"}};
    w->devices.setDevice(KovoDevice_QXBlend);
    w->dialog.show();
    for (const auto &row : labels) {
        QStringList texts;
        for (const QLabel *label : w->dialog.findChildren<QLabel *>())
            if (label->buddy() == w->widget(row.first) && label->isVisible())
                texts << label->text();
        QCOMPARE(texts, QStringList{row.second});
    }
}

void tst_FactoryForm::tablesHaveVisibleHeadersAndInitialContents()
{
    const QVector<int> expected[] = {initialHdmi(), initialAnalog(), initialArdview()};
    const QStringList headers[] = {{"A", "B", "C", "D", "E", "F", "G"},
                                   {"A", "B", "C", "D", "E", "F", "G"},
                                   {"X-Shift", "Y-Shift", "Scale"}};
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    w->dialog.show();
    for (int t = 0; t < 3; ++t) {
        QTableWidget *table = w->table(tableNames[t]);
        QCOMPARE(table->rowCount(), headers[t].size());
        QCOMPARE(table->columnCount(), 10);
        QVERIFY(table->horizontalHeader()->isVisible());
        QVERIFY(table->verticalHeader()->isVisible());
        for (int column = 0; column < 10; ++column)
            QCOMPARE(table->horizontalHeaderItem(column)->text(), QString::number(column + 1));
        for (int row = 0; row < table->rowCount(); ++row) {
            QCOMPARE(table->verticalHeaderItem(row)->text(), headers[t][row]);
            for (int column = 0; column < 10; ++column)
                QCOMPARE(table->item(row, column)->text(),
                         QString::number(expected[t][column * table->rowCount() + row]));
        }
    }
}

void tst_FactoryForm::columnsAreWideEnoughForTheirNumbers()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    w->table("tw_QXBZ_hdmi")->item(0, 4)->setData(Qt::DisplayRole, -32768);
    w->dialog.show();
    w->dialog.adjustSize();
    QVERIFY(QTest::qWaitForWindowExposed(&w->dialog));
    QTableWidget *table = w->table("tw_QXBZ_hdmi");
    for (int column = 0; column < 10; ++column)
        QVERIFY(table->columnWidth(column) >=
                table->fontMetrics().horizontalAdvance(QStringLiteral("-32768")) + 4);
    for (const char *name : tableNames) {
        QTableWidget *any = w->table(name);
        const QRect last = any->visualItemRect(any->item(any->rowCount() - 1, 9));
        QVERIFY2(any->viewport()->rect().contains(last), name);
    }
}

void tst_FactoryForm::cellsAreEdited()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    w->dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w->dialog));
    for (const char *name : {"tw_QXBZ_hdmi", "tw_QXBZ_analog"}) {
        QTableWidget *table = w->table(name);
        table->editItem(table->item(2, 3));
        auto *editor = table->viewport()->findChild<QSpinBox *>();
        QVERIFY(editor != nullptr);
        QCOMPARE(editor->value(), table->item(2, 3)->text().toInt());
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("-1234"));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(table->item(2, 3)->data(Qt::DisplayRole), QVariant(-1234));
    }
    QCOMPARE(w->sent.count(), 0);
}

void tst_FactoryForm::showsNoModelGroupBeforeAModelIsKnown()
{
    w->dialog.show();
    for (QGroupBox *group : w->dialog.findChildren<QGroupBox *>())
        QVERIFY(!group->isVisible());
    QCOMPARE(w->dialog.findChildren<QGroupBox *>().size(), 5);
}

void tst_FactoryForm::showsTheGroupsOfTheModel()
{
    const QVector<const char *> zoom = {"gb_QXBZ_analog", "gb_QXBZ_hdmi", "gb_QXBZ_ardview"};
    const QVector<const char *> blend = {"gb_QXB_LiveViewAdjustements",
                                         "gb_QXB_ArdviewAdjustements"};
    w->dialog.show();
    for (int round = 0; round < 2; ++round) {
        w->devices.setDevice(KovoDevice_QXBlendZoom);
        for (const char *name : zoom)
            QVERIFY(w->widget(name)->isVisible());
        for (const char *name : blend)
            QVERIFY(!w->widget(name)->isVisible());
        w->devices.setDevice(KovoDevice_QXBlend);
        for (const char *name : zoom)
            QVERIFY(!w->widget(name)->isVisible());
        for (const char *name : blend)
            QVERIFY(w->widget(name)->isVisible());
    }
    QCOMPARE(w->said.err(), QString());
}

void tst_FactoryForm::modelWithoutRecordHidesEverything()
{
    w->dialog.show();
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    w->devices.setDevice(KovoDevice_QX20);
    for (QGroupBox *group : w->dialog.findChildren<QGroupBox *>())
        QVERIFY(!group->isVisible());
    QCOMPARE(w->said.err(),
             QStringLiteral("FactorySettings::slotDeviceChanged() Device not implemented\n"));
}

void tst_FactoryForm::staysEnabledOnDisconnect()
{
    w->dialog.setEnabled(false);
    w->dialog.connectDevice(false);
    QVERIFY(w->dialog.isEnabled());
    w->dialog.connectDevice(true);
    QVERIFY(w->dialog.isEnabled());
}

void tst_FactoryForm::enterPressesNoButton()
{
    w->devices.setDevice(KovoDevice_QXBlend);
    w->dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w->dialog));
    w->serialNumber()->setFocus();
    QTest::keyClick(w->serialNumber(), Qt::Key_Return);
    QCOMPARE(w->sent.count(), 0);
}

void tst_FactoryForm::scaleMember()
{
    QCOMPARE(w->dialog.scaleHDMI256(733), 2.86328125);
}

void tst_FactoryForm::calcArdviewFillsTheTable()
{
    const QVector<QString> hdmi = w->cells("tw_QXBZ_hdmi");
    const QVector<QString> analog = w->cells("tw_QXBZ_analog");
    w->click("btnCalcADFromHDMI");
    QCOMPARE(w->cells("tw_QXBZ_ardview"),
             (QVector<QString>{"4",    "19",   "31",   "41",   "61",   "80",  "72",   "87",
                               "109",  "121",  "-26",  "-72",  "-104", "-83", "-106", "-127",
                               "-137", "-151", "-168", "-197", "677",  "349", "232",  "176",
                               "139",  "113",  "100",  "88",   "77",   "69"}));
    QCOMPARE(w->cells("tw_QXBZ_hdmi"), hdmi);
    QCOMPARE(w->cells("tw_QXBZ_analog"), analog);
    QCOMPARE(w->sent.count(), 0);
}

void tst_FactoryForm::calcAnalogFillsTheTableAndLeavesTheOthers()
{
    const QVector<QString> hdmi = w->cells("tw_QXBZ_hdmi");
    const QVector<QString> ardview = w->cells("tw_QXBZ_ardview");
    w->click("btnCalcAVFromHDMI");
    QCOMPARE(w->column("tw_QXBZ_analog", 0),
             (QVector<QString>{"120", "97", "472", "378", "189", "0", "0"}));
    QCOMPARE(w->column("tw_QXBZ_analog", 1),
             (QVector<QString>{"0", "0", "720", "576", "366", "0", "79"}));
    QCOMPARE(w->column("tw_QXBZ_analog", 9),
             (QVector<QString>{"0", "0", "720", "576", "1850", "261", "229"}));
    QCOMPARE(w->cells("tw_QXBZ_hdmi"), hdmi);
    QCOMPARE(w->cells("tw_QXBZ_ardview"), ardview);
    QCOMPARE(w->sent.count(), 0);
}

void tst_FactoryForm::derivingTwiceGivesTheSame()
{
    w->click("btnCalcADFromHDMI");
    w->click("btnCalcAVFromHDMI");
    const QVector<QString> analog = w->cells("tw_QXBZ_analog");
    const QVector<QString> ardview = w->cells("tw_QXBZ_ardview");
    w->click("btnCalcADFromHDMI");
    w->click("btnCalcAVFromHDMI");
    QCOMPARE(w->cells("tw_QXBZ_analog"), analog);
    QCOMPARE(w->cells("tw_QXBZ_ardview"), ardview);
}

void tst_FactoryForm::columnWithScaleZeroStaysAndIsLogged()
{
    w->table("tw_QXBZ_hdmi")->item(4, 2)->setText(QStringLiteral("none")); // reads as 0
    const QVector<QString> analog = w->column("tw_QXBZ_analog", 2);
    const QVector<QString> ardview = w->column("tw_QXBZ_ardview", 2);
    w->click("btnCalcADFromHDMI");
    QCOMPARE(w->said.err().count(QLatin1Char('\n')), 1);
    QVERIFY(w->said.err().contains(QStringLiteral("Zoom position 3")));
    w->said.clear();
    w->click("btnCalcAVFromHDMI");
    QCOMPARE(w->said.err().count(QLatin1Char('\n')), 1);
    QVERIFY(w->said.err().contains(QStringLiteral("Zoom position 3")));
    QCOMPARE(w->column("tw_QXBZ_analog", 2), analog);
    QCOMPARE(w->column("tw_QXBZ_ardview", 2), ardview);
    // Its neighbours are derived.
    QCOMPARE(w->table("tw_QXBZ_ardview")->item(0, 3)->text(), QStringLiteral("41"));
    QCOMPARE(w->table("tw_QXBZ_analog")->item(6, 3)->text(), QStringLiteral("168"));
}

void tst_FactoryForm::setDisplacementsWritesOneColumn()
{
    QVector<QString> analog = w->cells("tw_QXBZ_analog");
    QVector<QString> hdmi = w->cells("tw_QXBZ_hdmi");
    w->dialog.setFPGADisplacements_HDMI(9, -1, 2, -3, 4, -5, 6, -32768);
    QCOMPARE(w->said.out(), QStringLiteral("FactorySettings::setFPGADisplacements_HDMI()\n"));
    const QStringList hdmiColumn = {"-1", "2", "-3", "4", "-5", "6", "-32768"};
    for (int row = 0; row < 7; ++row)
        hdmi[row * 10 + 9] = hdmiColumn[row];
    QCOMPARE(w->cells("tw_QXBZ_hdmi"), hdmi);
    QCOMPARE(w->cells("tw_QXBZ_analog"), analog);

    w->said.clear();
    w->dialog.setFPGADisplacements_Analoge(0, 1, 2, 3, 4, 5, 6, 32767);
    QCOMPARE(w->said.out(), QStringLiteral("FactorySettings::setFPGADisplacements_Analoge()\n"));
    const QStringList analogColumn = {"1", "2", "3", "4", "5", "6", "32767"};
    for (int row = 0; row < 7; ++row)
        analog[row * 10] = analogColumn[row];
    QCOMPARE(w->cells("tw_QXBZ_analog"), analog);
    QCOMPARE(w->cells("tw_QXBZ_hdmi"), hdmi);
    QCOMPARE(w->sent.count(), 0);
}

void tst_FactoryForm::setDisplacementsRefusesColumnsThatAreNot()
{
    const QVector<QString> hdmi = w->cells("tw_QXBZ_hdmi");
    for (const int16_t column : {int16_t(-1), int16_t(10)})
        w->dialog.setFPGADisplacements_HDMI(column, 1, 2, 3, 4, 5, 6, 7);
    QCOMPARE(w->cells("tw_QXBZ_hdmi"), hdmi);
    QCOMPARE(w->said.err().count(QLatin1Char('\n')), 2);
}

QTEST_MAIN(tst_FactoryForm)
#include "tst_factoryform.moc"
