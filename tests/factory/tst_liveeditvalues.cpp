#include "factory/liveeditwindow.h"

#include <QCheckBox>
#include <QListWidget>

/// How the editor changes its values as a whole: by a new scale, a load, the optics.
class tst_LiveEditValues : public QObject, private LiveEditWindow
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void hdmiScaleDerivesSharesAndTheAnalogScale();
    void analogScaleDerivesItsSharesOnly();
    void scaleZeroKeepsOnlyTheCropThatWouldDivide();
    void scaleZeroBeyondBothEdgesKeepsBothCrops();
    void loadSendsNothing();
    void loadKeepsTheSums();
    void loadOfTheInitialColumnsKeepsTheSums();
    void loadShowsTheOptics();
    void loadOfAnUnknownZoomPositionIsHarmless();
    void loadWithASensorOfNoHeightIsHarmless();
    void analogLoadKeepsTheSumsAndSendsNothing();
    void sendingWorksAgainAfterALoad();
    void setHdmiTakesTheShiftOutAgain();
    void opticsOfANarrowPicture();
    void opticsOfAPictureThatFillsTheOutput();
    void opticsSendExactlyOnePacketAndKeepTheAnalogScale();
    void opticsOfScaleZeroKeepTheCropShare();
    void opticsScaleIsNotRoundedByItsBox();
    void distanceShiftsANarrowPicture();
    void distanceReducesTheCropOfAWidePicture();
    void distanceWithoutFieldOfViewShiftsNothing();
    void distanceOfZeroShiftsNothing();
    void signalBlockStateSilencesTheHdmiBoxes();
};

void tst_LiveEditValues::hdmiScaleDerivesSharesAndTheAnalogScale()
{
    box(QStringLiteral("sbFpgaA"))->setValue(10);
    box(QStringLiteral("sbFpgaB"))->setValue(20);
    box(QStringLiteral("sbFpga_Analog_A"))->setValue(100);
    sent->clear();
    box(QStringLiteral("sbFpgaE"))->setValue(1100);

    // HDMI: 2750 x 2200, 840 and 1140 beyond the output; analog E 550: 1375 x 1100.
    QCOMPARE(shares(hdmi), (Columns{1909, 1059, 97, 132}));
    QCOMPARE(box(QStringLiteral("sbFpga_Analog_E"))->value(), 550);
    QCOMPARE(shares(analog), (Columns{719, 575, 175, 122})); // 756 and 525 * 128 / 550
    QCOMPARE(sent->count(), 2);
    QCOMPARE(takeFrame(), displacementFrame(setAnalog, {100, 0, 719, 575, 550, 175, 122}));
    QCOMPARE(takeFrame(), displacementFrame(setHdmi, {10, 20, 1909, 1059, 1100, 97, 132}));
}

void tst_LiveEditValues::analogScaleDerivesItsSharesOnly()
{
    box(QStringLiteral("sbFpga_Analog_E"))->setValue(256);
    QCOMPARE(shares(analog), (Columns{640, 512, 0, 0}));
    QCOMPARE(shares(hdmi), (Columns{0, 0, 0, 0}));
    QCOMPARE(sent->count(), 1);
    QCOMPARE(takeFrame(), displacementFrame(setAnalog, {0, 0, 640, 512, 256, 0, 0}));
}

void tst_LiveEditValues::scaleZeroKeepsOnlyTheCropThatWouldDivide()
{
    box(QStringLiteral("sbFpgaE"))->setValue(1100);
    QCOMPARE(shares(hdmi), (Columns{1919, 1079, 96, 130}));
    // From A = 900 even a picture without width reaches beyond an output of 800.
    box(QStringLiteral("sbRGBResX_HDMI"))->setValue(800);
    box(QStringLiteral("sbFpgaA"))->setValue(900);
    sent->clear();
    said->clear();
    box(QStringLiteral("sbFpgaE"))->setValue(0);
    QCOMPARE(shares(hdmi), (Columns{-101, 0, 96, 0}));
    QCOMPARE(said->err().count(QLatin1Char('\n')), 1);
    QCOMPARE(said->out(), QString());
    QCOMPARE(box(QStringLiteral("sbFpga_Analog_E"))->value(), 0);
    QCOMPARE(shares(analog), (Columns{0, 0, 0, 0}));
    QCOMPARE(sent->count(), 2);
    takeFrame();
    QCOMPARE(takeFrame(), displacementFrame(setHdmi, {900, 0, -101, 0, 0, 96, 0}));

    box(QStringLiteral("sbFpga_Analog_E"))->setValue(550);
    box(QStringLiteral("sbFpga_Analog_B"))->setValue(600); // beyond 576
    sent->clear();
    said->clear();
    const int crop = box(QStringLiteral("sbFpga_Analog_G_1"))->value();
    QCOMPARE(crop, 122);
    box(QStringLiteral("sbFpga_Analog_E"))->setValue(0);
    QCOMPARE(shares(analog), (Columns{0, 0, 0, 122}));
    QCOMPARE(said->err().count(QLatin1Char('\n')), 1);
    QCOMPARE(sent->count(), 1);
}

void tst_LiveEditValues::scaleZeroBeyondBothEdgesKeepsBothCrops()
{
    box(QStringLiteral("sbFpgaE"))->setValue(1100);
    box(QStringLiteral("sbRGBResX_HDMI"))->setValue(800);
    box(QStringLiteral("sbRGBResY_HDMI"))->setValue(500);
    box(QStringLiteral("sbFpgaA"))->setValue(900);
    box(QStringLiteral("sbFpgaB"))->setValue(600);
    box(QStringLiteral("sbFpga_Analog_A"))->setValue(721);
    box(QStringLiteral("sbFpga_Analog_B"))->setValue(577);
    QCOMPARE(shares(hdmi), (Columns{1919, 1079, 96, 130}));
    QCOMPARE(shares(analog), (Columns{719, 575, 152, 122})); // as of A = B = 0
    sent->clear();
    said->clear();

    box(QStringLiteral("sbFpgaE"))->setValue(0);
    QCOMPARE(shares(hdmi), (Columns{-101, -101, 96, 130}));
    QCOMPARE(shares(analog), (Columns{0, 0, 152, 122}));
    QCOMPARE(said->err(),
             QStringLiteral(
                 "LiveEdit::on_sbFpgaE_valueChanged() E is 0: calculated share of F left "
                 "unchanged\n"
                 "LiveEdit::on_sbFpgaE_valueChanged() E is 0: calculated share of G left "
                 "unchanged\n"
                 "LiveEdit::on_sbFpga_Analog_E_valueChanged() E is 0: calculated share of F left "
                 "unchanged\n"
                 "LiveEdit::on_sbFpga_Analog_E_valueChanged() E is 0: calculated share of G left "
                 "unchanged\n"));
    QCOMPARE(sent->count(), 2);
    QCOMPARE(takeFrame(), displacementFrame(setAnalog, {721, 577, 0, 0, 0, 152, 122}));
    QCOMPARE(takeFrame(), displacementFrame(setHdmi, {900, 600, -101, -101, 0, 96, 130}));
}

void tst_LiveEditValues::loadSendsNothing()
{
    window->setDisplacements_HDMI(10, 20, 30, 40, 500, 60, 70, 5);
    QCOMPARE(sent->count(), 0);
    QCOMPARE(box(QStringLiteral("sbFpga_Analog_E"))->value(), 250); // the handlers do run
}

void tst_LiveEditValues::loadKeepsTheSums()
{
    box(QStringLiteral("sbFpgaF_1"))->setValue(77); // derived anew by the load
    window->setDisplacements_HDMI(10, 20, 1850, 1000, 1100, 104, 106, 3);
    QCOMPARE(sums(hdmi), (Columns{10, 20, 1850, 1000, 1100, 104, 106}));
    QCOMPARE(shares(hdmi), (Columns{1909, 1059, 97, 132}));
    QCOMPARE(box(QStringLiteral("sbFpgaC"))->value(), -59);
    QCOMPARE(box(QStringLiteral("sbFpgaG"))->value(), -26);
    // The operator's share of C ends at -100.
    window->setDisplacements_HDMI(10, 20, 1700, 1000, 1100, 104, 106, 3);
    QCOMPARE(sums(hdmi), (Columns{10, 20, 1700, 1000, 1100, 104, 106}));
    QCOMPARE(box(QStringLiteral("sbFpgaC"))->value(), -100);
    QCOMPARE(shares(hdmi), (Columns{1800, 1059, 97, 132})); // 1909 - 109
}

void tst_LiveEditValues::loadOfTheInitialColumnsKeepsTheSums()
{
    const QVector<Columns> columns = {
        {483, 188, 945, 756, 378, 0, 0},    {30, 0, 1832, 1079, 733, 2, 42},
        {0, 0, 1919, 1079, 1100, 104, 106}, {0, 0, 1919, 1079, 3700, 262, 205},
        {0, 0, 1919, 1079, 1450, 158, 146}, {0, 0, 1919, 1079, 1840, 195, 166}};
    int16_t zoom = 1;
    for (const Columns &column : columns) {
        window->setDisplacements_HDMI(int16_t(column[0]), int16_t(column[1]), int16_t(column[2]),
                                      int16_t(column[3]), int16_t(column[4]), int16_t(column[5]),
                                      int16_t(column[6]), zoom++);
        QCOMPARE(sums(hdmi), column);
    }
    QCOMPARE(sent->count(), 0);
}

void tst_LiveEditValues::loadShowsTheOptics()
{
    window->setDisplacements_HDMI(30, 0, 1832, 1079, 733, 2, 42, 2);
    QCOMPARE(box(QStringLiteral("sbZoomLevel"))->value(), 2);
    QCOMPARE(widget<QListWidget>(QStringLiteral("lwFocalLengths"))->currentRow(), 1);
    QCOMPARE(real("dsbRGBFOVH")->value(), 32.808218);
    QCOMPARE(real("dsbRGBFOVV")->value(), 18.781023);
    QCOMPARE(real("dsbIRFOVH")->value(), 31.954507);
    QCOMPARE(real("dsbIRFOVV")->value(), 25.802402);
    QCOMPARE(real("dsbIROverRGB")->value(), 1.373855);
    QCOMPARE(box(QStringLiteral("sbIRScaledY"))->value(), 1483);
    QCOMPARE(box(QStringLiteral("sbIRScaledX"))->value(), 1853);
    QCOMPARE(real("dsbScaleIntuitiv")->value(), 2.863281);
    QCOMPARE(said->err(), QString());
}

void tst_LiveEditValues::loadOfAnUnknownZoomPositionIsHarmless()
{
    window->setDisplacements_HDMI(30, 0, 1832, 1079, 733, 2, 42, 2);
    for (const int16_t zoom : {int16_t(0), int16_t(11), int16_t(-5)}) {
        said->clear();
        window->setDisplacements_HDMI(31, 0, 1832, 1079, 733, 2, 42, zoom);
        QCOMPARE(said->err().count(QLatin1Char('\n')), 1);
        QCOMPARE(sums(hdmi), (Columns{31, 0, 1832, 1079, 733, 2, 42}));
        QCOMPARE(box(QStringLiteral("sbIRScaledX"))->value(), 1853);
    }
    QCOMPARE(sent->count(), 0);
}

void tst_LiveEditValues::loadWithASensorOfNoHeightIsHarmless()
{
    real("dsbRGBSizeY")->setValue(0.0);
    window->setDisplacements_HDMI(30, 0, 1832, 1079, 733, 2, 42, 2);
    QCOMPARE(said->err().count(QLatin1Char('\n')), 1);
    QCOMPARE(box(QStringLiteral("sbIRScaledY"))->value(), 0);
    QCOMPARE(real("dsbScaleIntuitiv")->value(), 2.863281);
}

void tst_LiveEditValues::analogLoadKeepsTheSumsAndSendsNothing()
{
    window->setDisplacements_Analoge(21, 50, 798, 599, 366, 40, 46);
    QCOMPARE(sums(analog), (Columns{21, 50, 798, 599, 366, 40, 46}));
    QCOMPARE(shares(analog), (Columns{719, 575, 75, 72})); // 217 and 207 * 128 / 366
    QCOMPARE(sums(hdmi), Columns(7, 0));
    QCOMPARE(sent->count(), 0);
}

void tst_LiveEditValues::sendingWorksAgainAfterALoad()
{
    window->setDisplacements_HDMI(30, 0, 1832, 1079, 733, 2, 42, 2);
    window->setDisplacements_Analoge(21, 50, 798, 599, 366, 40, 46);
    box(QStringLiteral("sbFpgaA"))->setValue(31);
    QCOMPARE(takeFrame(), displacementFrame(setHdmi, {31, 0, 1832, 1079, 733, 2, 42}));
    box(QStringLiteral("sbFpga_Analog_A"))->setValue(22);
    QCOMPARE(takeFrame(), displacementFrame(setAnalog, {22, 50, 798, 599, 366, 40, 46}));
}

void tst_LiveEditValues::setHdmiTakesTheShiftOutAgain()
{
    Columns stored;
    connect(window.get(), &LiveEdit::signalSet_FactoryHDMISettings, this,
            [&](int16_t a, int16_t b, int16_t c, int16_t d, int16_t e, int16_t f, int16_t g) {
                stored = {a, b, c, d, e, f, g};
            });
    widget<QCheckBox>(QStringLiteral("cbUseDistance"))->setChecked(true);
    window->setDisplacements_HDMI(0, 0, 0, 0, 0, 0, 0, 1);
    click("btnCalcABCDEFG"); // a narrow picture: A = 484 + 39
    QCOMPARE(box(QStringLiteral("sbFpgaA"))->value(), 523);
    click("pbSetHDMI");
    QCOMPARE(stored, (Columns{484, 159, 951, 761, 380, 0, 0}));

    window->setDisplacements_HDMI(0, 0, 0, 0, 0, 0, 0, 3);
    click("btnCalcABCDEFG"); // a wide picture: F = 97 - 27
    QCOMPARE(sums(hdmi), (Columns{0, 0, 1920, 1080, 1106, 70, 131}));
    click("pbSetHDMI");
    QCOMPARE(stored, (Columns{0, 0, 1920, 1080, 1106, 97, 131}));
}

void tst_LiveEditValues::opticsOfANarrowPicture()
{
    window->setDisplacements_HDMI(0, 0, 0, 0, 0, 0, 0, 2);
    box(QStringLiteral("sbFpgaF"))->setValue(5);
    box(QStringLiteral("sbFpgaG"))->setValue(6);
    click("btnCalcABCDEFG");
    // 1853 x 1483 on 1920 x 1080. F keeps the operator's share, G loses it.
    QCOMPARE(real("dsbScaleIntuitiv")->value(), 2.895313);
    QCOMPARE(sums(hdmi), (Columns{33, 0, 1853, 1080, 741, 5, 69}));
    QCOMPARE(shares(hdmi), (Columns{1853, 1080, 0, 69}));
    QCOMPARE(box(QStringLiteral("sbFpgaG"))->value(), 0);
}

void tst_LiveEditValues::opticsOfAPictureThatFillsTheOutput()
{
    box(QStringLiteral("sbFpgaA"))->setValue(100);
    box(QStringLiteral("sbFpgaF"))->setValue(5);
    box(QStringLiteral("sbIRScaledX"))->setValue(2767);
    box(QStringLiteral("sbIRScaledY"))->setValue(2214);
    click("btnCalcABCDEFG");
    QCOMPARE(sums(hdmi), (Columns{0, 0, 1920, 1080, 1106, 97, 131}));
    QCOMPARE(box(QStringLiteral("sbFpgaF"))->value(), 0);
    QCOMPARE(window->getFpgaA(), 0);

    box(QStringLiteral("sbIRScaledX"))->setValue(1920); // just fills it
    click("btnCalcABCDEFG");
    QCOMPARE(sums(hdmi).at(0), 0);
    QCOMPARE(sums(hdmi).at(5), 0);
}

void tst_LiveEditValues::opticsSendExactlyOnePacketAndKeepTheAnalogScale()
{
    show();
    box(QStringLiteral("sbFpga_Analog_E"))->setValue(7);
    box(QStringLiteral("sbIRScaledX"))->setValue(2767);
    box(QStringLiteral("sbIRScaledY"))->setValue(2214);
    sent->clear();
    click("btnCalcABCDEFG");
    QCOMPARE(sent->count(), 1);
    QCOMPARE(takeFrame(), displacementFrame(setHdmi, {0, 0, 1920, 1080, 1106, 97, 131}));
    QCOMPARE(box(QStringLiteral("sbFpga_Analog_E"))->value(), 7);
    QCOMPARE(window->focusWidget()->objectName(), QStringLiteral("btnCalcABCDEFG"));
    box(QStringLiteral("sbFpgaA"))->setValue(1); // the signals are on again
    QCOMPARE(sent->count(), 1);
}

void tst_LiveEditValues::opticsOfScaleZeroKeepTheCropShare()
{
    box(QStringLiteral("sbFpgaG_1"))->setValue(12);
    box(QStringLiteral("sbIRScaledX"))->setValue(0);
    box(QStringLiteral("sbIRScaledY"))->setValue(1200);
    click("btnCalcABCDEFG");
    QCOMPARE(said->err().count(QLatin1Char('\n')), 1);
    QCOMPARE(sent->count(), 1);
    QCOMPARE(takeFrame(), displacementFrame(setHdmi, {960, 0, 0, 1080, 0, 0, 12}));
}

void tst_LiveEditValues::opticsScaleIsNotRoundedByItsBox()
{
    // 645 / 640 = 1.0078125 has a decimal more than its box; 256 times it is 258 exactly.
    box(QStringLiteral("sbIRScaledX"))->setValue(645);
    click("btnCalcABCDEFG");
    QCOMPARE(box(QStringLiteral("sbFpgaE"))->value(), 258);
    // 5 / 640 = 0.0078125; twice 1 / 256
    box(QStringLiteral("sbIRScaledX"))->setValue(5);
    click("btnCalcABCDEFG");
    QCOMPARE(box(QStringLiteral("sbFpgaE"))->value(), 2);
}

void tst_LiveEditValues::distanceShiftsANarrowPicture()
{
    widget<QCheckBox>(QStringLiteral("cbUseDistance"))->setChecked(true);
    real("dsbRGBFOVH")->setValue(90.0);
    real("dsbDistanceToBB")->setValue(2.0);
    real("dsbDisparity")->setValue(0.11);
    box(QStringLiteral("sbIRScaledX"))->setValue(951);
    box(QStringLiteral("sbIRScaledY"))->setValue(761);
    box(QStringLiteral("sbDisparityShift_F"))->setValue(44);
    click("btnCalcABCDEFG");
    QCOMPARE(real("dsbImageAreaX")->value(), 4.0);
    QCOMPARE(real("dsbPixelPerCentimeter")->value(), 4.8);
    QCOMPARE(box(QStringLiteral("sbDisparityShift_A"))->value(), 52); // 52.8
    QCOMPARE(box(QStringLiteral("sbDisparityShift_F"))->value(), 0);
    QCOMPARE(sums(hdmi), (Columns{484 + 52, 159, 951, 761, 380, 0, 0}));
    QCOMPARE(sent->count(), 1);

    widget<QCheckBox>(QStringLiteral("cbUseDistance"))->setChecked(false);
    click("btnCalcABCDEFG");
    QCOMPARE(box(QStringLiteral("sbDisparityShift_A"))->value(), 0);
    QCOMPARE(sums(hdmi).at(0), 484);
}

void tst_LiveEditValues::distanceReducesTheCropOfAWidePicture()
{
    widget<QCheckBox>(QStringLiteral("cbUseDistance"))->setChecked(true);
    window->setDisplacements_HDMI(0, 0, 0, 0, 0, 0, 0, 3);
    click("btnCalcABCDEFG");
    QCOMPARE(real("dsbImageAreaX")->value(), 0.62804);
    QCOMPARE(real("dsbPixelPerCentimeter")->value(), 30.571282);
    // 119 pixels / 4.3234375 = 27 infrared pixels
    QCOMPARE(box(QStringLiteral("sbDisparityShift_F"))->value(), 27);
    QCOMPARE(box(QStringLiteral("sbDisparityShift_A"))->value(), 0);
    QCOMPARE(box(QStringLiteral("sbFpgaF_1"))->value(), 97 - 27);
    QCOMPARE(box(QStringLiteral("sbFpgaA"))->value(), 0);
}

void tst_LiveEditValues::distanceWithoutFieldOfViewShiftsNothing()
{
    widget<QCheckBox>(QStringLiteral("cbUseDistance"))->setChecked(true);
    box(QStringLiteral("sbIRScaledX"))->setValue(951);
    box(QStringLiteral("sbIRScaledY"))->setValue(761);
    click("btnCalcABCDEFG");
    QCOMPARE(said->err().count(QLatin1Char('\n')), 1);
    QCOMPARE(box(QStringLiteral("sbDisparityShift_A"))->value(), 0);
    QCOMPARE(sums(hdmi), (Columns{484, 159, 951, 761, 380, 0, 0}));
    QCOMPARE(sent->count(), 1);
}

void tst_LiveEditValues::distanceOfZeroShiftsNothing()
{
    widget<QCheckBox>(QStringLiteral("cbUseDistance"))->setChecked(true);
    window->setDisplacements_HDMI(0, 0, 0, 0, 0, 0, 0, 1);
    real("dsbDistanceToBB")->setValue(0.0);
    click("btnCalcABCDEFG");
    QCOMPARE(said->err().count(QLatin1Char('\n')), 1);
    QCOMPARE(sums(hdmi).at(0), 484);
}

void tst_LiveEditValues::signalBlockStateSilencesTheHdmiBoxes()
{
    window->setSignalBlockState(true);
    for (const char letter : {'A', 'B', 'E', 'F', 'G'})
        box(hdmi + QLatin1Char(letter))->setValue(3);
    QCOMPARE(sent->count(), 0);
    box(QStringLiteral("sbFpga_Analog_A"))->setValue(3);
    QCOMPARE(sent->count(), 1);
    window->setSignalBlockState(false);
    box(QStringLiteral("sbFpgaA"))->setValue(4);
    QCOMPARE(sent->count(), 2);
}

QTEST_MAIN(tst_LiveEditValues)
#include "tst_liveeditvalues.moc"
