#include "support/cameraend.h"
#include "support/captureddiagnostics.h"
#include "support/formundertest.h"
#include "support/modal.h"

#include <QAbstractItemView>

namespace {
constexpr quint32 blend = 0xC92A6CE6;
constexpr quint32 blendZoom = 0xA0AF139E;
constexpr quint32 model20 = 0xA0AF139F;
} // namespace

/// Interlocks of video output, picture quality and exposure.
class TestMainWindowVideoInterlocks : public QObject
{
    Q_OBJECT

    static void models()
    {
        QTest::addColumn<quint32>("model");
        QTest::newRow("no model") << 0U;
        QTest::newRow("Blend") << blend;
        QTest::newRow("Blend Zoom") << blendZoom;
        QTest::newRow("2.0") << model20;
    }

    CapturedDiagnostics m_lines;

private slots:
    void initTestCase() { modal::useQtDialogs(); }
    void init() { m_lines.clear(); }

    void pickingAVideoModeAsksForARestart()
    {
        CameraEnd camera;
        FormUnderTest form(blendZoom);
        QVERIFY(form.connectTo(camera.path()));
        QVERIFY(form.widget("pbLivePreview")->isEnabled());
        bool asExpected = false;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            asExpected = box->text() ==
                             QLatin1String("<p>Change of video output requires you<br>to turn the "
                                           "device off and on again.</p>") &&
                         box->windowTitle().isEmpty() && box->icon() == QMessageBox::NoIcon &&
                         box->standardButtons() == QMessageBox::Ok &&
                         box->parentWidget() == &form.window &&
                         !form.widget("pbLivePreview")->isEnabled();
            box->button(QMessageBox::Ok)->click();
        });
        auto *list = form.get<QComboBox>("cbHDMIVideoMode");
        QTest::keyClick(list, Qt::Key_Down); // as an operator picks with the list closed
        QCOMPARE(list->currentIndex(), 1);
        QVERIFY(answer.given());
        QVERIFY(asExpected);
        QVERIFY(!form.widget("pbLivePreview")->isEnabled());
    }

    void pickingTheShownVideoModeAsksAsWell()
    {
        CameraEnd camera;
        FormUnderTest form(blendZoom);
        QVERIFY(form.connectTo(camera.path()));
        form.get<QTabWidget>("tabWidget")->setCurrentWidget(form.widget("tab_liveview"));
        form.window.show();
        QVERIFY(form.widget("pbLivePreview")->isEnabled());
        auto *list = form.get<QComboBox>("cbHDMIVideoMode");
        list->showPopup();
        QTRY_VERIFY(list->view()->isVisible());
        modal::Answer<QMessageBox> answer(modal::click(QMessageBox::Ok));
        QTest::keyClick(list->view(), Qt::Key_Enter);
        QVERIFY(answer.given());
        QCOMPARE(list->currentIndex(), 0);
        QVERIFY(!form.widget("pbLivePreview")->isEnabled());
    }

    void videoModeOfTheProgramAsksNothing()
    {
        FormUnderTest form(blendZoom);
        form.widget("pbLivePreview")->setEnabled(true);
        form.set("cbHDMIVideoMode", 1); // would block in a box
        QVERIFY(form.widget("pbLivePreview")->isEnabled());
    }

    void sixtyHertzTakesTheQualityOfTheBlendZoom_data() { models(); }
    void sixtyHertzTakesTheQualityOfTheBlendZoom()
    {
        QFETCH(quint32, model);
        FormUnderTest form(model);
        const bool zoom = model == blendZoom;
        const bool before = form.hidden("gb_compressionQuality_slider");
        m_lines.clear();
        form.set("cbHDMIVideoMode", 1);
        QCOMPARE(form.hidden("gb_compressionQuality_slider"), zoom ? true : before);
        QVERIFY(form.shows({{"hs_JPEGcompressionDaylight", zoom ? 0 : 1},
                            {"sbJPEGcompressionDaylight", zoom ? 75 : 85}}));
        form.set("cbHDMIVideoMode", 0);
        QCOMPARE(form.hidden("gb_compressionQuality_slider"), zoom ? false : before);
        QVERIFY(form.shows({{"sbJPEGcompressionDaylight", zoom ? 75 : 85}}));
        QVERIFY(m_lines.err().isEmpty());
    }

    void sixtyHertzKeepsAQualityOfTheLowestPosition()
    {
        FormUnderTest form(blendZoom);
        form.set("hs_JPEGcompressionDaylight", 0);
        form.set("sbJPEGcompressionDaylight", 80);
        form.set("cbHDMIVideoMode", 1); // the slider stands at 0 already and does not move
        QVERIFY(form.hidden("gb_compressionQuality_slider"));
        QVERIFY(form.shows({{"hs_JPEGcompressionDaylight", 0}, {"sbJPEGcompressionDaylight", 80}}));
    }

    void videoModeIsLookedUpInUpperCase()
    {
        FormUnderTest form(blendZoom);
        form.window.on_cbHDMIVideoMode_currentIndexChanged("mode_1080p_60hz");
        QVERIFY(form.hidden("gb_compressionQuality_slider"));
        form.window.on_cbHDMIVideoMode_currentIndexChanged("Mode_1080p_30Hz");
        QVERIFY(!form.hidden("gb_compressionQuality_slider"));
    }

    void unknownVideoModeIsReported()
    {
        FormUnderTest form(blendZoom);
        const auto before = form.state();
        m_lines.clear();
        form.window.on_cbHDMIVideoMode_currentIndexChanged("MODE_2160P");
        form.window.on_cbHDMIVideoMode_currentIndexChanged(QString());
        QCOMPARE(m_lines.err(), QStringLiteral("unknown\nunknown\n"));
        QCOMPARE(form.state(), before);
    }

    void qualitySliderSetsTheBox()
    {
        FormUnderTest form(0);
        const int qualities[] = {75, 85, 95};
        for (const int position : {2, 0, 1}) {
            form.set("hs_JPEGcompressionDaylight", position);
            QVERIFY(form.shows({{"sbJPEGcompressionDaylight", qualities[position]}}));
        }
    }

    void qualityBoxSetsTheSlider_data()
    {
        QTest::addColumn<int>("before"); // slider position
        QTest::addColumn<int>("quality");
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("shown");
        QTest::newRow("85 to 94 stand at 1") << 1 << 94 << 1 << 94;
        QTest::newRow("below stands at 0") << 1 << 84 << 0 << 75;
        QTest::newRow("there already") << 0 << 84 << 0 << 84;
        QTest::newRow("lowest") << 0 << 1 << 0 << 1;
        QTest::newRow("far below") << 1 << 50 << 0 << 75;
        QTest::newRow("highest") << 1 << 99 << 2 << 95;
        QTest::newRow("highest again") << 2 << 99 << 2 << 99;
        QTest::newRow("a position") << 0 << 95 << 2 << 95;
    }
    void qualityBoxSetsTheSlider()
    {
        QFETCH(int, before);
        QFETCH(int, quality);
        FormUnderTest form(0);
        form.set("hs_JPEGcompressionDaylight", before);
        form.set("sbJPEGcompressionDaylight", quality);
        QTEST(form.get<QSlider>("hs_JPEGcompressionDaylight")->value(), "position");
        QTEST(form.get<QSpinBox>("sbJPEGcompressionDaylight")->value(), "shown");
    }

    void shutterSpeedStartsHidden()
    {
        FormUnderTest form(0);
        QVERIFY(form.hidden("label_vlc_ae_shutterspeed"));
        QVERIFY(form.hidden("cb_vlc_ae_shutterspeed"));
    }

    void shutterSpeedBelongsToItsPriority()
    {
        FormUnderTest form(0);
        const auto hidden = [&](bool expected) {
            return form.hidden("label_vlc_ae_shutterspeed") == expected &&
                   form.hidden("cb_vlc_ae_shutterspeed") == expected;
        };
        form.set("cb_vlc_ae_mode", 1);
        QVERIFY(hidden(false));
        form.set("cb_vlc_ae_mode", 0);
        QVERIFY(hidden(true));
        form.window.on_cb_vlc_ae_mode_currentIndexChanged("visca_aemode_shutter_priority");
        QVERIFY(hidden(false));
        for (const char *other : {"VISCA_AEMODE_MANUAL", "VISCA_AEMODE_AUTO_LN", "", "any"}) {
            form.window.on_cb_vlc_ae_mode_currentIndexChanged(other);
            QVERIFY(hidden(false));
        }
        form.window.on_cb_vlc_ae_mode_currentIndexChanged("visca_aemode_full_auto");
        QVERIFY(hidden(true));
        form.window.on_cb_vlc_ae_mode_currentIndexChanged("VISCA_AEMODE_MANUAL");
        QVERIFY(hidden(true));
    }

    void shutterSpeedHasNoConsequences()
    {
        FormUnderTest form(blendZoom);
        auto before = form.state();
        m_lines.clear();
        form.set("cb_vlc_ae_shutterspeed", 0);
        auto after = form.state();
        before.remove("cb_vlc_ae_shutterspeed");
        after.remove("cb_vlc_ae_shutterspeed");
        QCOMPARE(after, before);
        QVERIFY(m_lines.out().isEmpty());
        QVERIFY(m_lines.err().isEmpty());
    }
};

QTEST_MAIN(TestMainWindowVideoInterlocks)
#include "tst_mainwindow_videointerlocks.moc"
