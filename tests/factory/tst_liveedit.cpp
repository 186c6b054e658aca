#include "factory/liveeditwindow.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QRegularExpression>
#include <QTabBar>

#include <algorithm>

/// What the form shows, what its boxes and keys send, and the exchange with the factory settings.
class tst_LiveEdit : public QObject, private LiveEditWindow
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void formHasItsTexts();
    void opticsBoxesHaveInitialValuesAndRanges_data();
    void opticsBoxesHaveInitialValuesAndRanges();
    void displacementBoxesHaveTheSameRangesOnBothTabs();
    void zoomPositionHasItsLabelsAndRange();
    void focalLengthsOfTheTenZoomPositions();
    void keysAreNamedBelowTheTabs();
    void windowFollowsTheConnection();
    void escapeDoesNotCloseTheWindow();

    void payloadCarriesTheSumsOfTheBoxes();
    void sumsAreTruncatedToSixteenBits();
    void positionAndCropBoxesSendOnChange();
    void editingSharesByHandSendsNothing();
    void analogButtonIsLogged();
    void slotTimerRunsAfterASend();

    void keysStepTheBoxes_data();
    void keysStepTheBoxes();
    void otherKeysDoNothing();
    void keysOnAThirdTabDoNothing();
    void keysWorkWhileABoxHasTheFocus_data();
    void keysWorkWhileABoxHasTheFocus();
    void digitsStayWithTheBox();

    void getButtonsAsk();
    void setHdmiStoresTheSums();
    void setAnalogStoresTheSums();

    void moveRightOnlyWhileThePictureIsNarrower();
};

void tst_LiveEdit::formHasItsTexts()
{
    QCOMPARE(window->objectName(), QStringLiteral("LiveEdit"));
    QCOMPARE(window->windowTitle(), QStringLiteral("Live displacement editor"));
    QCOMPARE(tabs()->count(), 2);
    QCOMPARE(tabs()->tabText(0), QStringLiteral("HDMI"));
    QCOMPARE(tabs()->tabText(1), QStringLiteral("Analog Video"));

    QStringList groups;
    for (const QGroupBox *group : window->findChildren<QGroupBox *>())
        groups << group->title();
    for (const char *title : {"RGB Sensor Info", "IR Sensor Info", "Calculated Values",
                              "FPGA HDMI Values", "FPGA displacement Analog Video", "Live test"})
        QVERIFY2(groups.contains(QLatin1String(title)), title);

    const QVector<QPair<const char *, const char *>> buttons = {
        {"btnCalcABCDEFG", "Calc ABCDEFG"},
        {"btnMoveRight", "Right"},
        {"pbFpgaDispl_HDMI", "Send FPGA HDMI Displacement"},
        {"pbFpgaDispl_Analog", "Send FPGA Analog Displacement"},
        {"pbGetHDMI", "Get from GUI"},
        {"pbGetAnaloge", "Get from GUI"},
        {"pbSetHDMI", "Set to GUI"},
        {"pbSetAnaloge", "Set to GUI"}};
    for (const auto &button : buttons)
        QCOMPARE(widget<QPushButton>(QLatin1String(button.first))->text(),
                 QLatin1String(button.second));
    QCOMPARE(widget<QCheckBox>(QStringLiteral("cbUseDistance"))->text(),
             QStringLiteral("Use Distance"));
}

void tst_LiveEdit::opticsBoxesHaveInitialValuesAndRanges_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<double>("initial");
    QTest::addColumn<double>("maximum"); // 0: not prescribed
    QTest::addColumn<int>("decimals");   // of a QDoubleSpinBox; -1: a QSpinBox
    QTest::newRow("dsbRGBSizeX") << "SizeX" << 3.886 << 0.0 << 3;
    QTest::newRow("dsbRGBSizeY") << "SizeY" << 2.183 << 0.0 << 3;
    QTest::newRow("sbRGBResX_HDMI") << "ResX" << 1920.0 << 1920.0 << -1;
    QTest::newRow("sbRGBResY_HDMI") << "ResY" << 1080.0 << 1080.0 << -1;
    QTest::newRow("sbRGBResX_Analog") << "ResX_Analog" << 720.0 << 2000.0 << -1;
    QTest::newRow("sbRGBResY_Analog") << "ResY_Analog" << 576.0 << 2000.0 << -1;
    QTest::newRow("dsbIRSizeX") << "SizeX" << 10.88 << 0.0 << 3;
    QTest::newRow("dsbIRSizeY") << "SizeY" << 8.704 << 0.0 << 3;
    QTest::newRow("sbIRResX") << "ResX" << 640.0 << 640.0 << -1;
    QTest::newRow("sbIRResY") << "ResY" << 512.0 << 512.0 << -1;
    QTest::newRow("dsbIRFocalLength") << "Focal Length" << 19.0 << 100.0 << 3;
    QTest::newRow("dsbDisparity") << "Disparity" << 0.039 << 10.0 << 3;
    QTest::newRow("dsbDistanceToBB") << "Distance" << 1.6 << 0.0 << 3;
    QTest::newRow("sbIRScaledX") << "IR_Scaled_X" << 0.0 << 50000.0 << -1;
    QTest::newRow("sbIRScaledY") << "IR_Scaled_Y" << 0.0 << 50000.0 << -1;
    QTest::newRow("dsbRGBFOVH") << "FOV_RGB_H:" << 0.0 << 10000.0 << 6;
    QTest::newRow("dsbRGBFOVV") << "FOV_RGB_V:" << 0.0 << 10000.0 << 6;
    QTest::newRow("dsbIRFOVH") << "FOV_IR_H:" << 0.0 << 0.0 << 6;
    QTest::newRow("dsbIRFOVV") << "FOV_IR_V:" << 0.0 << 0.0 << 6;
    QTest::newRow("dsbIROverRGB") << "IR / RGB" << 0.0 << 0.0 << 6;
    QTest::newRow("dsbScaleIntuitiv") << "Scale Intuitiv" << 0.0 << 0.0 << 6;
    QTest::newRow("dsbImageAreaX") << "ImageAreaX" << 0.0 << 0.0 << 6;
    QTest::newRow("dsbPixelPerCentimeter") << "Pixel/Centimeter" << 0.0 << 1000.0 << 6;
    QTest::newRow("sbDisparityShift_A") << "Disparity Shift_A" << 0.0 << 10000.0 << -1;
    QTest::newRow("sbDisparityShift_F") << "Disparity Shift_F" << 0.0 << 0.0 << -1;
}

void tst_LiveEdit::opticsBoxesHaveInitialValuesAndRanges()
{
    QFETCH(QString, label);
    QFETCH(double, initial);
    QFETCH(double, maximum);
    QFETCH(int, decimals);
    auto *spin = widget<QAbstractSpinBox>(QLatin1String(QTest::currentDataTag()));
    const auto labels = window->findChildren<QLabel *>();
    const auto own = std::find_if(labels.begin(), labels.end(),
                                  [&](const QLabel *each) { return each->buddy() == spin; });
    QVERIFY(own != labels.end());
    QCOMPARE((*own)->text(), label);
    QVERIFY(!spin->toolTip().isEmpty());
    QVERIFY(!spin->accessibleName().isEmpty());
    const bool whole = decimals < 0;
    QCOMPARE(spin->property("value").toDouble(), initial);
    if (maximum > 0)
        QCOMPARE(spin->property("maximum").toDouble(), maximum);
    QCOMPARE(qobject_cast<QSpinBox *>(spin) != nullptr, whole);
    if (!whole)
        QCOMPARE(spin->property("decimals").toInt(), decimals);
    if (spin->objectName() == QLatin1String("dsbIRFocalLength"))
        QCOMPARE(spin->property("minimum").toDouble(), 7.5);
}

void tst_LiveEdit::displacementBoxesHaveTheSameRangesOnBothTabs()
{
    const QVector<QPair<QString, QPair<int, int>>> ranges = {
        {"A", {0, 1000}},       {"B", {0, 1000}},       {"C", {-100, 1920}},
        {"D", {-100, 1080}},    {"E", {0, 99999}},      {"F", {-1000, 1000}},
        {"G", {-1000, 1000}},   {"C_1", {-9999, 9999}}, {"D_1", {-9999, 9999}},
        {"F_1", {-9999, 9999}}, {"G_1", {-9999, 9999}}};
    for (const QString &output : {hdmi, analog})
        for (const auto &range : ranges) {
            QCOMPARE(box(output + range.first)->minimum(), range.second.first);
            QCOMPARE(box(output + range.first)->maximum(), range.second.second);
        }
}

void tst_LiveEdit::zoomPositionHasItsLabelsAndRange()
{
    show();
    const QVector<QPair<const char *, QString>> labels = {{"sbZoomLevel", "ZoomLevel:"},
                                                          {"lwFocalLengths", "Focal Length"}};
    for (const auto &row : labels) {
        QStringList texts;
        for (const QLabel *label : window->findChildren<QLabel *>())
            if (label->buddy() == widget<QWidget>(QLatin1String(row.first)) && label->isVisible())
                texts << label->text();
        QCOMPARE(texts, QStringList{row.second});
    }
    QCOMPARE(box(QStringLiteral("sbZoomLevel"))->minimum(), 1);
    QCOMPARE(box(QStringLiteral("sbZoomLevel"))->maximum(), 10);
}

void tst_LiveEdit::keysAreNamedBelowTheTabs()
{
    show();
    const auto *label = widget<QLabel>(QStringLiteral("labelKeys"));
    QVERIFY(label->isVisible());
    QVERIFY(window->rect().contains(QRect(label->mapTo(window.get(), QPoint()), label->size())));
    QVERIFY(label->height() >= label->heightForWidth(label->width()));
    QStringList keys;
    QRegularExpression pair(QStringLiteral("\\b([a-z]) / ([a-z])\\b[^(]*\\(([A-G])\\)"));
    for (auto match = pair.globalMatch(label->text()); match.hasNext();)
        keys << match.next().capturedTexts().mid(1).join(QString());
    QCOMPARE(keys, (QStringList{"adA", "wsB", "jlF", "ikG"}));
}

void tst_LiveEdit::focalLengthsOfTheTenZoomPositions()
{
    QStringList texts;
    auto *list = widget<QListWidget>(QStringLiteral("lwFocalLengths"));
    for (int row = 0; row < list->count(); ++row)
        texts << list->item(row)->text();
    QCOMPARE(texts, (QStringList{"3.3", "6.6", "9.9", "13.2", "16.5", "19.8", "23.1", "26.4",
                                 "29.7", "33.0"}));
}

void tst_LiveEdit::windowFollowsTheConnection()
{
    window->connectDevice(false);
    QVERIFY(!window->isEnabled());
    window->connectDevice(true);
    QVERIFY(window->isEnabled());
}

void tst_LiveEdit::escapeDoesNotCloseTheWindow()
{
    show();
    QTest::keyClick(window.get(), Qt::Key_Escape);
    QVERIFY(window->isVisible());
    QTest::keyClick(box(QStringLiteral("sbFpgaA")), Qt::Key_Escape);
    QVERIFY(window->isVisible());
}

void tst_LiveEdit::payloadCarriesTheSumsOfTheBoxes()
{
    int value = 1;
    for (const char *name : {"C", "C_1", "D", "D_1", "F_1", "G_1"}) {
        box(hdmi + QLatin1String(name))->setValue(100 * value);
        box(analog + QLatin1String(name))->setValue(-10 * value++);
    }
    QVERIFY(sent->isEmpty());
    box(QStringLiteral("sbFpgaA"))->setValue(483);
    box(QStringLiteral("sbFpgaF"))->setValue(-5);
    sent->clear();
    click("pbFpgaDispl_HDMI");
    QCOMPARE(sent->count(), 1);
    QCOMPARE(takeFrame(), displacementFrame(setHdmi, {483, 0, 300, 700, 0, 495, 600}));
    click("pbFpgaDispl_Analog");
    QCOMPARE(sent->count(), 1);
    QCOMPARE(takeFrame(), displacementFrame(setAnalog, {0, 0, -30, -70, 0, -50, -60}));
}

void tst_LiveEdit::sumsAreTruncatedToSixteenBits()
{
    box(QStringLiteral("sbFpga_Analog_E"))->setValue(99999);
    const QByteArray frame = takeFrame();
    QCOMPARE(frame.mid(16 + 8, 2), QByteArray::fromHex("9f86")); // 99999 = 0x1869F
}

void tst_LiveEdit::positionAndCropBoxesSendOnChange()
{
    Columns values(7, 0);
    const QVector<QPair<char, int>> rows = {{'A', 0}, {'B', 1}, {'F', 5}, {'G', 6}};
    for (const QString &output : {hdmi, analog}) {
        values.fill(0);
        for (const auto &row : rows) {
            values[row.second] = 7 + row.second;
            box(output + QLatin1Char(row.first))->setValue(values[row.second]);
            QCOMPARE(sent->count(), 1);
            QCOMPARE(takeFrame(), displacementFrame(output == hdmi ? setHdmi : setAnalog, values));
        }
    }
}

void tst_LiveEdit::editingSharesByHandSendsNothing()
{
    for (const QString &output : {hdmi, analog})
        for (const char *name : {"C", "D", "C_1", "D_1", "F_1", "G_1"})
            box(output + QLatin1String(name))->setValue(55);
    QCOMPARE(sent->count(), 0);
    box(QStringLiteral("sbFpgaB"))->setValue(1);
    QCOMPARE(takeFrame(), displacementFrame(setHdmi, {0, 1, 110, 110, 0, 55, 55}));
}

void tst_LiveEdit::analogButtonIsLogged()
{
    click("pbFpgaDispl_Analog");
    QCOMPARE(said->out(), QStringLiteral("testWindow::on_pbFpgaDispl_Analog_clicked()\n"));
    said->clear();
    click("pbFpgaDispl_HDMI");
    QCOMPARE(said->out(), QString());
}

void tst_LiveEdit::slotTimerRunsAfterASend()
{
    QCOMPARE(window->timerCalls(), 0);
    QElapsedTimer elapsed;
    elapsed.start();
    window->send_hdmi();
    window->send_analog(); // does not wait for the first one's shot
    QCOMPARE(sent->count(), 2);
    QTRY_COMPARE(window->timerCalls(), 2);
    QVERIFY(elapsed.elapsed() >= 90);
}

void tst_LiveEdit::keysStepTheBoxes_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<char>("key");
    QTest::addColumn<int>("value"); // place in A to G
    QTest::addColumn<int>("step");
    const struct
    {
        char key;
        int value;
        int step;
    } rows[] = {{'a', 0, -1}, {'d', 0, 1},  {'w', 1, -1}, {'s', 1, 1},
                {'j', 5, 1},  {'l', 5, -1}, {'i', 6, 1},  {'k', 6, -1}};
    for (int tab = 0; tab < 2; ++tab)
        for (const auto &row : rows)
            QTest::addRow("tab %d key %c", tab, row.key) << tab << row.key << row.value << row.step;
}

void tst_LiveEdit::keysStepTheBoxes()
{
    QFETCH(int, tab);
    QFETCH(char, key);
    QFETCH(int, value);
    QFETCH(int, step);
    for (const QString &output : {hdmi, analog})
        for (const char letter : {'A', 'B', 'F', 'G'})
            box(output + QLatin1Char(letter))->setValue(50);
    tabs()->setCurrentIndex(tab);
    show();
    sent->clear();
    const QString other = tab == 0 ? analog : hdmi;
    const Columns before = sums(other);

    QTest::keyClick(window.get(), key);
    Columns expected = {50, 50, 0, 0, 0, 50, 50};
    expected[value] += step;
    QCOMPARE(sums(tab == 0 ? hdmi : analog), expected);
    QCOMPARE(sums(other), before);
    QCOMPARE(sent->count(), 1);
    QCOMPARE(takeFrame(), displacementFrame(tab == 0 ? setHdmi : setAnalog, expected));
}

void tst_LiveEdit::otherKeysDoNothing()
{
    show();
    box(QStringLiteral("sbFpgaA"))->setValue(50);
    sent->clear();
    for (const char key : {'A', 'D', 'W', 'S', 'J', 'L', 'I', 'K', 'x', 'q', ' '})
        QTest::keyClick(window.get(), key);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Left, Qt::Key_F1})
        QTest::keyClick(window.get(), key);
    QCOMPARE(sent->count(), 0);
    QCOMPARE(sums(hdmi), (Columns{50, 0, 0, 0, 0, 0, 0}));
    QVERIFY(window->isVisible());
}

void tst_LiveEdit::keysOnAThirdTabDoNothing()
{
    tabs()->addTab(new QWidget, QStringLiteral("third"));
    tabs()->setCurrentIndex(2);
    show();
    for (const char key : {'a', 'd', 'w', 's', 'j', 'l', 'i', 'k'})
        QTest::keyClick(window.get(), key);
    QCOMPARE(sent->count(), 0);
}

void tst_LiveEdit::keysWorkWhileABoxHasTheFocus_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"sbFpgaA", "sbFpgaC_1", "dsbDisparity", "lwFocalLengths",
                             "cbUseDistance", "btnCalcABCDEFG", "tabWidget", "sbZoomLevel"})
        QTest::newRow(name) << name;
}

void tst_LiveEdit::keysWorkWhileABoxHasTheFocus()
{
    QFETCH(QString, name);
    show();
    auto *focused = widget<QWidget>(name);
    focused->setFocus();
    QCOMPARE(window->focusWidget(), name == QLatin1String("tabWidget")
                                        ? static_cast<QWidget *>(tabs()->tabBar())
                                        : focused);
    int row = widget<QListWidget>(QStringLiteral("lwFocalLengths"))->currentRow();
    for (const char key : {'d', 'd', 'a', 's', 'j', 'i', 'i', 'k', 'k', 'k', 'l', 'w'})
        QTest::keyClick(window->focusWidget(), key);
    QCOMPARE(sums(hdmi), (Columns{1, 0, 0, 0, 0, 0, -1}));
    QCOMPARE(sent->count(), 12);
    QCOMPARE(widget<QListWidget>(QStringLiteral("lwFocalLengths"))->currentRow(), row);
}

void tst_LiveEdit::digitsStayWithTheBox()
{
    show();
    QSpinBox *a = box(QStringLiteral("sbFpgaA"));
    a->setFocus();
    a->selectAll();
    QTest::keyClicks(a, QStringLiteral("48"));
    QCOMPARE(a->value(), 48);
    QTest::keyClicks(a, QStringLiteral("d"));
    QCOMPARE(a->value(), 49);
}

void tst_LiveEdit::getButtonsAsk()
{
    show();
    QSignalSpy getHdmi(window.get(), SIGNAL(signalGet_FactoryHDMISettings()));
    QSignalSpy getAnalog(window.get(), SIGNAL(signalGet_FactoryAnalogeSettings()));
    click("pbGetHDMI");
    QCOMPARE(getHdmi.count(), 1);
    QCOMPARE(getAnalog.count(), 0);
    tabs()->setCurrentIndex(1);
    click("pbGetAnaloge");
    QCOMPARE(getHdmi.count(), 1);
    QCOMPARE(getAnalog.count(), 1);
    QCOMPARE(window->focusWidget()->objectName(), QStringLiteral("pbGetAnaloge"));
    QCOMPARE(sent->count(), 0);
}

void tst_LiveEdit::setHdmiStoresTheSums()
{
    Columns stored;
    connect(window.get(), &LiveEdit::signalSet_FactoryHDMISettings, this,
            [&](int16_t a, int16_t b, int16_t c, int16_t d, int16_t e, int16_t f, int16_t g) {
                stored << a << b << c << d << e << f << g;
            });
    window->setDisplacements_HDMI(30, 1, 1832, 1079, 733, 2, -42, 2);
    click("pbSetHDMI");
    QCOMPARE(stored, (Columns{30, 1, 1832, 1079, 733, 2, -42}));
    QCOMPARE(sent->count(), 0);
}

void tst_LiveEdit::setAnalogStoresTheSums()
{
    Columns stored;
    connect(window.get(), &LiveEdit::signalSet_FactoryAnalogeSettings, this,
            [&](int16_t a, int16_t b, int16_t c, int16_t d, int16_t e, int16_t f, int16_t g) {
                stored << a << b << c << d << e << f << g;
            });
    box(QStringLiteral("sbDisparityShift_A"))->setValue(9); // of the HDMI output only
    window->setDisplacements_Analoge(21, 50, 798, 599, 366, 40, 46);
    click("pbSetAnaloge");
    QCOMPARE(stored, (Columns{21, 50, 798, 599, 366, 40, 46}));
}

void tst_LiveEdit::moveRightOnlyWhileThePictureIsNarrower()
{
    box(QStringLiteral("sbIRScaledX"))->setValue(1919);
    click("btnMoveRight");
    QCOMPARE(box(QStringLiteral("sbFpgaA"))->value(), 1);
    QCOMPARE(takeFrame(), displacementFrame(setHdmi, {1, 0, 0, 0, 0, 0, 0}));
    for (const int width : {1920, 3000}) {
        box(QStringLiteral("sbIRScaledX"))->setValue(width);
        click("btnMoveRight");
    }
    QCOMPARE(box(QStringLiteral("sbFpgaA"))->value(), 1);
    QCOMPARE(sent->count(), 0);
}

QTEST_MAIN(tst_LiveEdit)
#include "tst_liveedit.moc"
