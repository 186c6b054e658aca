#include "factory/overlay.h"
#include "support/secondoverlay.h"

#include <QTest>

#include <array>
#include <cmath>
#include <limits>
#include <random>

using overlay::Ardview;
using overlay::Displacement;

namespace overlay {

static bool operator==(const Ardview &l, const Ardview &r)
{
    return l.xShift == r.xShift && l.yShift == r.yShift && l.scale == r.scale;
}

static bool operator==(const Displacement &l, const Displacement &r)
{
    return l.a == r.a && l.b == r.b && l.c == r.c && l.d == r.d && l.e == r.e && l.f == r.f &&
           l.g == r.g;
}

static char *toString(const Ardview &v)
{
    return qstrdup(qPrintable(QStringLiteral("%1 %2 %3").arg(v.xShift).arg(v.yShift).arg(v.scale)));
}

static char *toString(const Displacement &v)
{
    QString text;
    for (const int value : {v.a, v.b, v.c, v.d, v.e, v.f, v.g})
        text += QString::number(value) + QLatin1Char(' ');
    return qstrdup(qPrintable(text));
}

} // namespace overlay

class tst_Overlay : public QObject
{
    Q_OBJECT

private slots:
    void scaleIsThe256thPart();
    void truncatesTowardZeroAndKeepsWithin32Bits();

    void ardviewOfTheInitialTable();
    void ardviewOfTheWorkedExample();
    void ardviewAtScaleOneToOne();
    void analogOfTheInitialTable();
    void analogOfTheWorkedExample();
    void analogPositionIsZeroWhereTheHdmiCrops();
    void analogWidthAndHeightAtTheirLimits();
    void negativeHalvesTruncateTowardZero();
    void randomColumnsMatchASecondComputation();
    void scaleZeroHasNoDerivation();
    void scaleOneHasNoAnalogOnlyIfACropDividesByItsHalf();
    void extremeCellsAreHarmless();

    void hdmiSharesWithinTheOutput();
    void hdmiSharesCutTheOverhangBeyondThePosition();
    void analogSharesAreLimitedRegardlessOfThePosition();
    void sharesMatchASecondComputation();
    void scaleZeroLeavesOnlyTheCropThatWouldDivideWithoutValue();

    void fieldsOfView();
    void opticsPlacement();
    void opticsPlacementHalvesInIntegersFirst();
    void opticsScaleZero();
    void centredPosition();
    void parallax();
    void parallaxOfASceneWithoutWidth();
    void parallaxIsLimited();
};

static const std::array<Displacement, 10> initialHdmi = {{
    {483, 188, 945, 756, 378, 0, 0},
    {30, 0, 1832, 1079, 733, 2, 42},
    {0, 0, 1919, 1079, 1100, 104, 106},
    {0, 0, 1919, 1079, 1450, 158, 146},
    {0, 0, 1919, 1079, 1840, 195, 166},
    {0, 0, 1919, 1079, 2250, 220, 180},
    {0, 0, 1919, 1079, 2550, 231, 188},
    {0, 0, 1919, 1079, 2900, 243, 195},
    {0, 0, 1919, 1079, 3300, 254, 201},
    {0, 0, 1919, 1079, 3700, 262, 205},
}};

void tst_Overlay::scaleIsThe256thPart()
{
    QCOMPARE(overlay::scaleHDMI256(733), 2.86328125);
    QCOMPARE(overlay::scaleHDMI256(0), 0.0);
    QCOMPARE(overlay::scaleHDMI256(-256), -1.0);
    QCOMPARE(overlay::scaleHDMI256(1), 0.00390625);
}

void tst_Overlay::truncatesTowardZeroAndKeepsWithin32Bits()
{
    QCOMPARE(overlay::truncated(2.999), 2);
    QCOMPARE(overlay::truncated(-2.999), -2);
    QCOMPARE(overlay::truncated(1e300), std::numeric_limits<int>::max());
    QCOMPARE(overlay::truncated(-1e300), std::numeric_limits<int>::min());
    QCOMPARE(overlay::truncated(std::nan("")), 0);
}

void tst_Overlay::ardviewOfTheInitialTable()
{
    const std::array<Ardview, 10> expected = {{{4, -26, 677},
                                               {19, -72, 349},
                                               {31, -104, 232},
                                               {41, -83, 176},
                                               {61, -106, 139},
                                               {80, -127, 113},
                                               {72, -137, 100},
                                               {87, -151, 88},
                                               {109, -168, 77},
                                               {121, -197, 69}}};
    for (size_t i = 0; i < expected.size(); ++i)
        QCOMPARE(overlay::ardviewFromHdmi(initialHdmi[i]).value(), expected[i]);
}

void tst_Overlay::ardviewOfTheWorkedExample()
{
    QCOMPARE(overlay::ardviewFromHdmi({30, 0, 1832, 1079, 733, 2, 42}).value(),
             (Ardview{19, -72, 349}));
}

void tst_Overlay::ardviewAtScaleOneToOne()
{
    QCOMPARE(overlay::ardviewFromHdmi({0, 0, 640, 512, 256, 0, 0}).value(),
             (Ardview{640, 284, 1000}));
}

void tst_Overlay::analogOfTheInitialTable()
{
    const std::array<Displacement, 10> expected = {{{120, 97, 472, 378, 189, 0, 0},
                                                    {0, 0, 720, 576, 366, 0, 79},
                                                    {0, 0, 720, 576, 550, 144, 145},
                                                    {0, 0, 720, 576, 725, 184, 168},
                                                    {0, 0, 720, 576, 920, 210, 189},
                                                    {0, 0, 720, 576, 1125, 228, 204},
                                                    {0, 0, 720, 576, 1275, 239, 211},
                                                    {0, 0, 720, 576, 1450, 248, 218},
                                                    {0, 0, 720, 576, 1650, 255, 224},
                                                    {0, 0, 720, 576, 1850, 261, 229}}};
    for (size_t i = 0; i < expected.size(); ++i)
        QCOMPARE(overlay::analogFromHdmi(initialHdmi[i]).value(), expected[i]);
}

void tst_Overlay::analogOfTheWorkedExample()
{
    QCOMPARE(overlay::analogFromHdmi({483, 188, 945, 756, 378, 0, 0}).value(),
             (Displacement{120, 97, 472, 378, 189, 0, 0}));
}

void tst_Overlay::analogPositionIsZeroWhereTheHdmiCrops()
{
    for (const int crop : {1, -1, 300}) {
        QCOMPARE(overlay::analogFromHdmi({483, 188, 945, 756, 378, crop, 0})->a, 0);
        QCOMPARE(overlay::analogFromHdmi({483, 188, 945, 756, 378, crop, 0})->b, 97);
        QCOMPARE(overlay::analogFromHdmi({483, 188, 945, 756, 378, 0, crop})->b, 0);
        QCOMPARE(overlay::analogFromHdmi({483, 188, 945, 756, 378, 0, crop})->a, 120);
    }
}

void tst_Overlay::analogWidthAndHeightAtTheirLimits()
{
    QCOMPARE(overlay::analogWidth(1439), 719);
    QCOMPARE(overlay::analogWidth(1441), 720);
    QCOMPARE(overlay::analogWidth(1442), 720);
    QCOMPARE(overlay::analogWidth(9000), 720);
    QCOMPARE(overlay::analogHeight(1151), 575);
    QCOMPARE(overlay::analogHeight(1153), 576);
    QCOMPARE(overlay::analogHeight(1154), 576);
    QCOMPARE(overlay::analogHeight(9000), 576);
}

void tst_Overlay::negativeHalvesTruncateTowardZero()
{
    // (640 - 647) / 2 = -3 and (512 - 519) / 2 = -3, not -4; (1920 - 647) / 2 = 636,
    // (1080 - 519) / 2 = 280.
    QCOMPARE(overlay::ardviewFromHdmi({0, 0, 647, 519, 256, 0, 0}).value(),
             (Ardview{639, 283, 1000}));
}

void tst_Overlay::randomColumnsMatchASecondComputation()
{
    std::mt19937 random(20170904);
    const auto number = [&](int from, int to) {
        return std::uniform_int_distribution<int>(from, to)(random);
    };
    int columns = 0;
    while (columns < 600) {
        const Displacement hdmi = {number(-200, 1200),
                                   number(-200, 1200),
                                   number(-100, 2000),
                                   number(-100, 1200),
                                   number(-300, 5000),
                                   number(0, 1) * number(-400, 400),
                                   number(0, 1) * number(-400, 400)};
        if (hdmi.e >= -1 && hdmi.e <= 1)
            continue;
        ++columns;
        QCOMPARE(overlay::ardviewFromHdmi(hdmi).value(), second::ardview(hdmi));
        QCOMPARE(overlay::analogFromHdmi(hdmi).value(), second::analog(hdmi));
    }
}

void tst_Overlay::scaleZeroHasNoDerivation()
{
    QVERIFY(!overlay::ardviewFromHdmi({1, 2, 3, 4, 0, 6, 7}));
    QVERIFY(!overlay::analogFromHdmi({1, 2, 3, 4, 0, 6, 7}));
}

void tst_Overlay::scaleOneHasNoAnalogOnlyIfACropDividesByItsHalf()
{
    // Scaled size 2 x 2: C = D = 0 leaves (2 - 0) / 2 = 1 pixel, 256 after division by the scale.
    QVERIFY(!overlay::analogFromHdmi({0, 0, 0, 2, 1, 0, 0}));
    QVERIFY(!overlay::analogFromHdmi({0, 0, 2, 0, 1, 0, 0}));
    // No crop: A' = (0 - 959) + 359, B' = 539 + 312.
    QCOMPARE(overlay::analogFromHdmi({0, 0, 2, 2, 1, 0, 0}).value(),
             (Displacement{0, 851, 1, 1, 0, 0, 0}));
    // E = -1: -2 / 2 = -1 pixel divided by a negative scale is a crop of 256.
    QVERIFY(!overlay::analogFromHdmi({0, 0, 0, -2, -1, 0, 0}));
    QVERIFY(overlay::analogFromHdmi({0, 0, -2, -2, -1, 0, 0}));
    QVERIFY(overlay::ardviewFromHdmi({0, 0, 0, 0, 1, 0, 0}));
    QVERIFY(overlay::ardviewFromHdmi({0, 0, 0, 0, -1, 0, 0}));
}

void tst_Overlay::extremeCellsAreHarmless()
{
    const std::array<int, 6> extremes = {std::numeric_limits<int>::min(), -1, 0, 1, 32767,
                                         std::numeric_limits<int>::max()};
    int derived = 0;
    for (const int x : extremes)
        for (const int y : extremes)
            for (const int z : extremes) {
                derived += overlay::ardviewFromHdmi({x, y, z, x, y, z, x}).has_value();
                derived += overlay::analogFromHdmi({x, y, z, x, y, z, x}).has_value();
            }
    QVERIFY(derived >= 4 * 36); // every scale but 0 has its Ardview values
}

void tst_Overlay::hdmiSharesWithinTheOutput()
{
    const auto shares = overlay::hdmiShares({378, 483, 188, 1920, 1080});
    QCOMPARE(shares.c, 945);
    QCOMPARE(shares.d, 756);
    QCOMPARE(shares.f.value(), 0);
    QCOMPARE(shares.g.value(), 0);
}

void tst_Overlay::hdmiSharesCutTheOverhangBeyondThePosition()
{
    // 2750 wide from 10: 840 beyond 1920; 2200 high from 20: 1140 beyond 1080.
    const auto shares = overlay::hdmiShares({1100, 10, 20, 1920, 1080});
    QCOMPARE(shares.c, 1909);
    QCOMPARE(shares.d, 1059);
    QCOMPARE(shares.f.value(), 97);  // 841 * 128 / 1100 = 97.86
    QCOMPARE(shares.g.value(), 132); // 1141 * 128 / 1100 = 132.77

    // An overhang of 0 already counts.
    const auto touching = overlay::hdmiShares({256, 1280, 568, 1920, 1080});
    QCOMPARE(touching.c, 639);
    QCOMPARE(touching.d, 511);
    QCOMPARE(touching.f.value(), 0); // 128 / 256
}

void tst_Overlay::analogSharesAreLimitedRegardlessOfThePosition()
{
    // 915 wide: limited to 719 although A = 100 leaves less; 732 high: limited to 575.
    const auto shares = overlay::analogShares({366, 100, 50, 720, 576});
    QCOMPARE(shares.c, 719);
    QCOMPARE(shares.d, 575);
    QCOMPARE(shares.f.value(), 103); // (100 + 915 - 720 + 1) * 128 / 366 = 103.5
    QCOMPARE(shares.g.value(), 72);  // (50 + 732 - 576 + 1) * 128 / 366 = 72.4

    // 640 wide fits the output, but not from A = 100: C stays whole, F crops.
    const auto shifted = overlay::analogShares({256, 100, 0, 720, 576});
    QCOMPARE(shifted.c, 640);
    QCOMPARE(shifted.f.value(), 10); // 21 * 128 / 256 = 10.5
    QCOMPARE(shifted.d, 512);
    QCOMPARE(shifted.g.value(), 0);

    // As wide as the output is already limited.
    QCOMPARE(overlay::analogShares({288, 0, 0, 720, 576}).c, 719);
    QCOMPARE(overlay::analogShares({288, 0, 0, 720, 576}).d, 575);
}

void tst_Overlay::sharesMatchASecondComputation()
{
    std::mt19937 random(416);
    const auto number = [&](int from, int to) {
        return std::uniform_int_distribution<int>(from, to)(random);
    };
    for (int i = 0; i < 500; ++i) {
        const int e = number(1, i % 2 != 0 ? 1500 : 99999);
        const int a = number(0, 1000);
        const int b = number(0, 1000);
        const int resX = number(1, 1920);
        const int resY = number(1, 1080);
        const qint64 width = qint64(e) * 5 / 2;
        const qint64 height = qint64(e) * 2;
        const qint64 crop = a + width >= resX ? (a + width - resX + 1) * 128 / e : 0;
        const qint64 cropV = b + height >= resY ? (b + height - resY + 1) * 128 / e : 0;

        const auto hdmi = overlay::hdmiShares({e, a, b, resX, resY});
        QCOMPARE(qint64(hdmi.c), a + width >= resX ? qint64(resX - a - 1) : width);
        QCOMPARE(qint64(hdmi.d), b + height >= resY ? qint64(resY - b - 1) : height);
        QCOMPARE(qint64(hdmi.f.value()), crop);
        QCOMPARE(qint64(hdmi.g.value()), cropV);

        const auto analog = overlay::analogShares({e, a, b, resX, resY});
        QCOMPARE(qint64(analog.c), std::min<qint64>(width, resX - 1));
        QCOMPARE(qint64(analog.d), std::min<qint64>(height, resY - 1));
        QCOMPARE(qint64(analog.f.value()), crop);
        QCOMPARE(qint64(analog.g.value()), cropV);
    }
}

void tst_Overlay::scaleZeroLeavesOnlyTheCropThatWouldDivideWithoutValue()
{
    const auto none = overlay::hdmiShares({0, 483, 188, 1920, 1080});
    QCOMPARE(none.c, 0);
    QCOMPARE(none.f.value(), 0);
    QCOMPARE(none.g.value(), 0);

    const auto width = overlay::hdmiShares({0, 900, 188, 800, 1080});
    QVERIFY(!width.f);
    QCOMPARE(width.g.value(), 0);
    QCOMPARE(width.c, -101);

    const auto height = overlay::analogShares({0, 0, 600, 720, 576});
    QCOMPARE(height.f.value(), 0);
    QVERIFY(!height.g);
    QCOMPARE(height.d, 0);
}

void tst_Overlay::fieldsOfView()
{
    const auto square = overlay::fieldOfView({2.0, 2.0, 1.0});
    QVERIFY(qAbs(square.horizontal - 90.0) < 1e-9);
    const auto visible = overlay::fieldOfView({3.886, 2.183, 6.6});
    QVERIFY(qAbs(visible.horizontal - 32.808218495681025) < 1e-9);
    QVERIFY(qAbs(visible.vertical - 18.781023108155356) < 1e-9);
}

void tst_Overlay::opticsPlacement()
{
    // Narrower than the output, higher than it.
    const auto out = overlay::placementFromOptics({1920, 1080, 640, 1853, 1483});
    QCOMPARE(out.scale, 2.8953125);
    QCOMPARE(out.e, 741); // 741.2
    QVERIFY(!out.cropsX);
    QCOMPARE(out.a, 33);
    QCOMPARE(out.c, 1853);
    QCOMPARE(out.f.value(), 0);
    QVERIFY(out.cropsY);
    QCOMPARE(out.b, 0);
    QCOMPARE(out.d, 1080);
    QCOMPARE(out.g.value(), 69); // 201 / 2.8953125 = 69.4

    const auto small = overlay::placementFromOptics({1920, 1080, 640, 951, 761});
    QCOMPARE(small.e, 380);
    QCOMPARE(small.a, 484); // 484.5
    QCOMPARE(small.b, 159); // 319 / 2
    QCOMPARE(small.c, 951);
    QCOMPARE(small.d, 761);

    // As wide as the output counts as filling it.
    const auto equal = overlay::placementFromOptics({1920, 1080, 640, 1920, 1080});
    QVERIFY(equal.cropsX);
    QVERIFY(equal.cropsY);
    QCOMPARE(equal.f.value(), 0);
    QCOMPARE(equal.g.value(), 0);
}

void tst_Overlay::opticsPlacementHalvesInIntegersFirst()
{
    // (1923 - 1920) / 2 is 1, and 1 / 0.5 is 2: 1.5 / 0.5 would be 3.
    const auto out = overlay::placementFromOptics({1920, 1080, 3846, 1923, 1083});
    QCOMPARE(out.scale, 0.5);
    QCOMPARE(out.f.value(), 2);
    QCOMPARE(out.g.value(), 2);
}

void tst_Overlay::opticsScaleZero()
{
    const auto out = overlay::placementFromOptics({1920, 1080, 640, 0, 1100});
    QCOMPARE(out.scale, 0.0);
    QCOMPARE(out.e, 0);
    QCOMPARE(out.a, 960);
    QCOMPARE(out.f.value(), 0);
    QVERIFY(out.cropsY);
    QVERIFY(!out.g);
    QCOMPARE(overlay::placementFromOptics({1920, 1080, 0, 100, 100}).scale, 0.0);
}

void tst_Overlay::centredPosition()
{
    QCOMPARE(overlay::centredA(1920, 951), 484);
    QCOMPARE(overlay::centredA(1920, 1920), 0);
    QCOMPARE(overlay::centredA(1920, 3000), 0);
}

void tst_Overlay::parallax()
{
    // 90 degrees at 2 m show 4 m of scene: 4.8 pixels a centimetre, 10 cm apart.
    const auto out = overlay::parallax({1920, 90.0, 2.0, 0.1});
    QVERIFY(out);
    QVERIFY(qAbs(out->imageAreaX - 4.0) < 1e-12);
    QVERIFY(qAbs(out->pixelPerCentimeter - 4.8) < 1e-12);
    QCOMPARE(overlay::parallax({1920, 90.0, 2.0, 0.11})->shift, 52);                // 52.8
    QCOMPARE(overlay::parallax({1920, 60.978121986812546, 1.6, 0.039})->shift, 39); // 39.7
}

void tst_Overlay::parallaxOfASceneWithoutWidth()
{
    QVERIFY(!overlay::parallax({1920, 0.0, 2.0, 0.1}));
    QVERIFY(!overlay::parallax({1920, 90.0, 0.0, 0.1}));
}

void tst_Overlay::parallaxIsLimited()
{
    const auto out = overlay::parallax({1920, 1.0, 0.001, 0.039});
    QCOMPARE(out->pixelPerCentimeter, 1000.0);
    QCOMPARE(out->shift, 3900);
}

QTEST_GUILESS_MAIN(tst_Overlay)
#include "tst_overlay.moc"
