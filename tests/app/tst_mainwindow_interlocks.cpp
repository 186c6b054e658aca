#include "support/captureddiagnostics.h"
#include "support/formundertest.h"

#include <QLabel>
#include <QSignalBlocker>

namespace {
constexpr quint32 blend = 0xC92A6CE6;
constexpr quint32 blendZoom = 0xA0AF139E;
constexpr quint32 model20 = 0xA0AF139F;
} // namespace

/// Which field of periphery, trigger and channels enables, hides or presets which.
class TestMainWindowInterlocks : public QObject
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

    const FormUnderTest::Values m_gimbalOfBothModels{
        {"cbIsothermsState", 0},
        {"cbIsothermSwitchMode", 1},
        {"cbSbusColormap", 5},
        {"cbSbusColorMapSwitchMode", 1},
        {"cbSbusFFC", 3},
        {"cbSbusIsotherms", 7},
        {"cbSbusIsoTransparency", 18},
        {"cbSbusIsoLow", 8},
        {"cbSbusIsoMid", 9},
        {"cbSbusIsoUp", 10},
        {"cbSbusOverlay", 18},
        {"cbSbusTrigger", 1},
        {"cbSbusViewmode", 4},
        {"cbTriggerPinMode", 1},
        {"cbTriggerFrameMode", 0},
        {"cBOverlayMode", 0},
    };

    CapturedDiagnostics m_lines;

private slots:
    void init() { m_lines.clear(); }

    void formStartsWithTheseStates()
    {
        FormUnderTest form(0);
        for (const char *name : {"sbFFCdelay", "tab_SBUS", "gbSbusChannelAssignment",
                                 "sbIsothermsMiddle", "cbIsothermsTransparency"})
            QVERIFY2(!form.enabled(name), name);
        for (const char *name : {"gb_pheriphery_externalshutteroptions", "sbIsothermsLower",
                                 "sbIsothermsUpper", "gbGPSSettings"})
            QVERIFY2(form.enabled(name), name);
        QVERIFY(form.shows({{"cbPeripheryGimbalrc", 0}, {"cbTriggerPinMode", 0}}));
        QCOMPARE(form.value("hs_JPEGcompressionDaylight"), QStringLiteral("1"));
    }

    void hintsSayWhatEnablesAGroup()
    {
        FormUnderTest form(0);
        QStringList texts;
        for (const QLabel *label : form.widget("tabSerial")->findChildren<QLabel *>() +
                                       form.widget("tab_SBUS")->findChildren<QLabel *>())
            texts << label->text();
        QVERIFY(texts.contains(QStringLiteral(
            "Set \"Periphery > GPS\" to \"Custom settings\" to enable configuration.")));
        QVERIFY(texts.contains(QStringLiteral("Set \"Trigger > Trigger mode\" to \"SBUS\" or "
                                              "\"PPM\" to enable configuration of channels")));
    }

    void gimbalTakesOverTheChannels_data()
    {
        QTest::addColumn<quint32>("model");
        QTest::addColumn<int>("zoom");
        QTest::addColumn<int>("zoomMode");
        QTest::addColumn<int>("viewModeSwitch");
        QTest::addColumn<bool>("gpsSettings");
        QTest::newRow("Blend") << blend << 18 << 0 << 1 << false;
        QTest::newRow("Blend Zoom") << blendZoom << 6 << 2 << 0 << true;
    }
    void gimbalTakesOverTheChannels()
    {
        QFETCH(quint32, model);
        FormUnderTest form(model);
        form.set("cbIsothermsState", 1);
        form.set("cbTriggerFrameMode", 1);
        form.set("cBOverlayMode", 1);
        form.set("cbSbusZoom", 3);
        form.set("cbSbusZoomMode", 1);
        form.widget("gbGPSSettings")->setEnabled(false);
        m_lines.clear();
        form.set("cbPeripheryGimbalrc", 1);

        QVERIFY(form.shows(m_gimbalOfBothModels));
        QTEST(form.get<QComboBox>("cbSbusZoom")->currentIndex(), "zoom");
        QTEST(form.get<QComboBox>("cbSbusZoomMode")->currentIndex(), "zoomMode");
        QTEST(form.get<QComboBox>("cbSbusViewModeSwitchMode")->currentIndex(), "viewModeSwitch");
        QTEST(form.enabled("gbGPSSettings"), "gpsSettings");
        for (const char *name :
             {"cbIsothermsState", "cbTriggerPinMode", "cbTriggerFrameMode", "cBOverlayMode"})
            QVERIFY2(!form.enabled(name), name);
        QVERIFY(m_lines.err().isEmpty());
    }

    void gimbalOnAFreshFormShowsTheChannelsButLocksThem_data()
    {
        QTest::addColumn<quint32>("model");
        QTest::newRow("Blend") << blend;
        QTest::newRow("Blend Zoom") << blendZoom;
    }
    void gimbalOnAFreshFormShowsTheChannelsButLocksThem()
    {
        QFETCH(quint32, model);
        FormUnderTest form(model);
        form.set("cbPeripheryGimbalrc", 1);
        QVERIFY(form.enabled("tab_SBUS"));
        QVERIFY(!form.enabled("gbSbusChannelAssignment"));
    }

    void gimbalWithoutAKnownModelChangesNothing_data()
    {
        QTest::addColumn<quint32>("model");
        QTest::addColumn<QString>("lines");
        QTest::newRow("none") << 0U << QString();
        // Once by the name of the slot and once by the explicit connection.
        QTest::newRow("2.0") << model20 << QStringLiteral("<<< not implemented\n").repeated(2);
    }
    void gimbalWithoutAKnownModelChangesNothing()
    {
        QFETCH(quint32, model);
        FormUnderTest form(model);
        form.set("cbTriggerFrameMode", 1);
        auto before = form.state();
        m_lines.clear();
        form.set("cbPeripheryGimbalrc", 1);
        QTEST(m_lines.err(), "lines");
        auto after = form.state();
        before.remove("cbPeripheryGimbalrc");
        after.remove("cbPeripheryGimbalrc");
        QCOMPARE(after, before);
    }

    void partlyCheckedGimbalChangesNothing_data() { models(); }
    void partlyCheckedGimbalChangesNothing()
    {
        QFETCH(quint32, model);
        FormUnderTest form(model);
        const auto before = form.state();
        m_lines.clear();
        form.window.on_cbPeripheryGimbalrc_stateChanged(1);
        QCOMPARE(form.state(), before);
        QVERIFY(m_lines.err().isEmpty());
    }

    void uncheckingTheGimbalFreesWhatItHeld_data() { models(); }
    void uncheckingTheGimbalFreesWhatItHeld()
    {
        QFETCH(quint32, model);
        FormUnderTest form(model);
        form.set("cbPeripheryGimbalrc", 1);
        const QStringList freed{"cbIsothermsState", "cbSbusColorMapSwitchMode", "cbSbusZoomMode",
                                "cbTriggerPinMode", "cbTriggerFrameMode",       "cBOverlayMode"};
        for (const QString &name : freed) {
            form.widget(name.toLatin1())->setEnabled(false);
            const QSignalBlocker blocker(form.widget(name.toLatin1()));
            form.set(name.toLatin1(), 1);
        }
        form.set("cbIsothermSwitchMode", 1);
        form.widget("tab_SBUS")->setEnabled(true);
        m_lines.clear();
        form.set("cbPeripheryGimbalrc", 0);

        for (const QString &name : freed)
            QVERIFY2(form.enabled(name.toLatin1()), qPrintable(name));
        QVERIFY(form.shows({{"cbIsothermsState", 0},
                            {"cbIsothermSwitchMode", 0},
                            {"cbSbusColorMapSwitchMode", 0},
                            {"cbSbusZoomMode", 0},
                            {"cbTriggerPinMode", 0},
                            {"cbTriggerFrameMode", 1},
                            {"cBOverlayMode", 1}}));
        QVERIFY(!form.enabled("tab_SBUS")); // by the trigger mode's own interlock
        QVERIFY(m_lines.err().isEmpty());
    }

    void uncheckingTheGimbalLeavesTheChannels()
    {
        FormUnderTest form(blendZoom);
        form.set("cbPeripheryGimbalrc", 1);
        form.set("cbPeripheryGimbalrc", 0);
        QVERIFY(form.shows({{"cbSbusColormap", 5}, {"cbSbusFFC", 3}, {"cbSbusZoom", 6}}));
    }

    void receiverPresetsTheSerialPort_data()
    {
        QTest::addColumn<int>("receiver");
        QTest::addColumn<QString>("baudrate");
        QTest::newRow("u-blox 6") << 1 << "38400";
        QTest::newRow("u-blox 8, 1 Hz") << 2 << "9600";
        QTest::newRow("u-blox 8, 10 Hz") << 3 << "115200";
    }
    void receiverPresetsTheSerialPort()
    {
        QFETCH(int, receiver);
        FormUnderTest form(0);
        form.set("cbParity", 2);
        form.set("cbStopBit", 1);
        form.set("cbPeripheryGPS", receiver);
        QTEST(form.get<QComboBox>("cbBaudrate")->currentText(), "baudrate");
        QCOMPARE(form.get<QComboBox>("cbParity")->currentText(), QStringLiteral("none"));
        QCOMPARE(form.get<QComboBox>("cbStopBit")->currentText(), QStringLiteral("1"));
        QVERIFY(form.get<QCheckBox>("cbInverted")->isChecked());
        QVERIFY(!form.enabled("gbGPSSettings"));
        QVERIFY(m_lines.err().isEmpty());
    }

    void customSettingsOnlyFreeTheSerialPort()
    {
        FormUnderTest form(0);
        form.set("cbPeripheryGPS", 3);
        auto before = form.state();
        form.set("cbPeripheryGPS", 0);
        QVERIFY(form.enabled("gbGPSSettings"));
        auto after = form.state();
        for (auto *state : {&before, &after})
            for (const char *name : {"cbPeripheryGPS", "gbGPSSettings"})
                state->remove(name);
        QCOMPARE(after, before);
    }

    void clearedReceiverListIsReported()
    {
        FormUnderTest form(0);
        form.set("cbPeripheryGPS", 2);
        m_lines.clear();
        form.get<QComboBox>("cbPeripheryGPS")->clear();
        QCOMPARE(m_lines.err(), QStringLiteral("<<< Unknown case\n"));
        QVERIFY(!form.enabled("gbGPSSettings"));
        m_lines.clear();
        const auto before = form.state();
        form.window.on_cbPeripheryGPSIndexChanged(4);
        QCOMPARE(m_lines.err(), QStringLiteral("<<< Unknown case\n"));
        QCOMPARE(form.state(), before);
    }

    void sbusAndPpmOpenTheChannels_data()
    {
        QTest::addColumn<quint32>("model");
        QTest::addColumn<int>("pinMode");
        QTest::newRow("no model, SBUS") << 0U << 1;
        QTest::newRow("Blend, SBUS") << blend << 1;
        QTest::newRow("Blend, PPM") << blend << 5;
        QTest::newRow("Blend Zoom, SBUS") << blendZoom << 1;
        QTest::newRow("Blend Zoom, PPM") << blendZoom << 5;
        QTest::newRow("2.0, PPM") << model20 << 5;
    }
    void sbusAndPpmOpenTheChannels()
    {
        QFETCH(quint32, model);
        QFETCH(int, pinMode);
        FormUnderTest form(model);
        for (const char *name : {"cbSbusFFC", "cbSbusColorMapSwitchMode", "cbSbusZoomMode"})
            form.widget(name)->setEnabled(false);
        form.set("cbTriggerPinMode", pinMode);
        for (const char *name : {"tab_SBUS", "gbSbusChannelAssignment", "cbSbusFFC",
                                 "cbSbusColorMapSwitchMode", "cbSbusZoomMode"})
            QVERIFY2(form.enabled(name), name);
        // The Blend has neither an overlay nor a zoom to switch by channel.
        for (const char *name : {"cbSbusOverlay", "cbSbusZoom"}) {
            QCOMPARE(form.enabled(name), model != blend);
            QCOMPARE(form.value(name), model == blend ? QStringLiteral("18") : QStringLiteral("0"));
        }
    }

    void otherPinModesCloseTheChannels_data()
    {
        QTest::addColumn<int>("pinMode");
        for (const int mode : {0, 2, 3, 4, -1})
            QTest::addRow("%d", mode) << mode;
    }
    void otherPinModesCloseTheChannels()
    {
        QFETCH(int, pinMode);
        FormUnderTest form(blendZoom);
        form.set("cbTriggerPinMode", 1);
        QVERIFY(form.enabled("tab_SBUS"));
        auto before = form.state();
        form.set("cbTriggerPinMode", pinMode);
        QVERIFY(!form.enabled("tab_SBUS"));
        auto after = form.state();
        for (auto *state : {&before, &after})
            for (const char *name : {"cbTriggerPinMode", "tab_SBUS"})
                state->remove(name);
        QCOMPARE(after, before);
    }

    void pinModeLeavesWhatTheGimbalPreset_data()
    {
        QTest::addColumn<quint32>("model");
        QTest::newRow("Blend") << blend;
        QTest::newRow("Blend Zoom") << blendZoom;
    }
    void pinModeLeavesWhatTheGimbalPreset()
    {
        QFETCH(quint32, model);
        FormUnderTest form(model);
        form.set("cbPeripheryGimbalrc", 1);
        auto before = form.state();
        before.remove("cbTriggerPinMode");
        for (const int mode : {5, 1}) {
            form.set("cbTriggerPinMode", mode);
            auto after = form.state();
            after.remove("cbTriggerPinMode");
            QCOMPARE(after, before);
        }
    }

    void isothermStateEnablesItsThresholds_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<int>("transparency");
        QTest::addColumn<QVector<bool>>("enabled"); // transparency, lower, middle, upper
        QTest::newRow("off") << 0 << 0 << QVector<bool>{false, false, false, false};
        QTest::newRow("isotherms") << 1 << 1 << QVector<bool>{true, true, true, true};
        QTest::newRow("min / max") << 2 << 1 << QVector<bool>{true, true, false, true};
        QTest::newRow("automatic") << 3 << 1 << QVector<bool>{true, false, false, false};
    }
    void isothermStateEnablesItsThresholds()
    {
        QFETCH(int, state);
        const char *names[] = {"cbIsothermsTransparency", "sbIsothermsLower", "sbIsothermsMiddle",
                               "sbIsothermsUpper"};
        for (const bool before : {false, true}) {
            FormUnderTest form(0);
            form.set("cbIsothermsState", state == 1 ? 2 : 1);
            form.set("cbIsothermsTransparency", 1);
            for (const char *name : names)
                form.widget(name)->setEnabled(before);
            form.set("cbIsothermsState", state);
            QVector<bool> enabled;
            for (const char *name : names)
                enabled << form.enabled(name);
            QTEST(enabled, "enabled");
            QTEST(form.get<QComboBox>("cbIsothermsTransparency")->currentIndex(), "transparency");
        }
        QVERIFY(m_lines.err().isEmpty());
    }

    void unknownIsothermStateIsReported()
    {
        FormUnderTest form(0);
        for (const int state : {-1, 4}) {
            const auto before = form.state();
            m_lines.clear();
            form.window.on_cbIsothermsState_currentIndexChanged(state);
            QCOMPARE(m_lines.err(), QStringLiteral("<<< Unknown mode\n"));
            QCOMPARE(form.state(), before);
        }
    }

    void listWithoutAnIsothermStateIsReported()
    {
        FormUnderTest form(0);
        form.set("cbIsothermsState", 1);
        form.set("cbIsothermsTransparency", 1);
        auto before = form.state();
        m_lines.clear();
        form.set("cbIsothermsState", -1);
        QCOMPARE(m_lines.err(), QStringLiteral("<<< Unknown mode\n"));
        auto after = form.state();
        before.remove("cbIsothermsState");
        after.remove("cbIsothermsState");
        QCOMPARE(after, before);
    }

    void ffcDelayBelongsToTheModesButAutomatic()
    {
        FormUnderTest form(0);
        for (const int mode : {1, 2, 3, -1}) {
            form.set("cbFFCmode", 0);
            QVERIFY(!form.enabled("sbFFCdelay"));
            form.set("cbFFCmode", mode);
            QVERIFY(form.enabled("sbFFCdelay"));
        }
    }

    void externalShutterOccupiesBothPorts_data()
    {
        QTest::addColumn<quint32>("model");
        QTest::newRow("Blend") << blend;
        QTest::newRow("Blend Zoom") << blendZoom;
    }
    void externalShutterOccupiesBothPorts()
    {
        QFETCH(quint32, model);
        FormUnderTest form(model);
        auto *ext0 = form.get<QComboBox>("cBext0mode");
        auto *ext1 = form.get<QComboBox>("cBext1mode");

        form.set("cb_pheriphery_externalshutter_installed", 1);
        QVERIFY(form.enabled("gb_pheriphery_externalshutteroptions"));
        QVERIFY(!form.hidden("gb_pheriphery_externalshutteroptions"));
        QCOMPARE(ext0->currentText(), QStringLiteral("EXP0_MODE_EXTERNAL_SHUTTER"));
        QCOMPARE(ext1->currentText(), QStringLiteral("EXP1_MODE_EXTERNAL_SHUTTER"));
        for (const char *name : {"cBext0mode", "cBext1mode", "gb_FFC"})
            QVERIFY2(!form.enabled(name), name);
        QCOMPARE(form.get<QComboBox>("cbFFCmode")->currentText(), QStringLiteral("FFC External"));
        QVERIFY(form.enabled("sbFFCdelay")); // inside the disabled group
        QVERIFY(!form.get<QSpinBox>("sbFFCdelay")->isEnabled());

        form.set("cb_pheriphery_externalshutter_installed", 0);
        QVERIFY(!form.enabled("gb_pheriphery_externalshutteroptions"));
        QVERIFY(form.hidden("gb_pheriphery_externalshutteroptions"));
        QCOMPARE(ext0->currentText(), QStringLiteral("EXP_MODE_NONE"));
        QCOMPARE(ext1->currentText(), QStringLiteral("EXP_MODE_NONE"));
        for (const char *name : {"cBext0mode", "cBext1mode", "gb_FFC"})
            QVERIFY2(form.enabled(name), name);
        QVERIFY(form.shows({{"cbFFCmode", 0}}));
    }

    void externalShutterLeavesTheDelayOfItsOwnMode()
    {
        FormUnderTest form(blend);
        form.set("cbFFCmode", 3);
        form.widget("sbFFCdelay")->setEnabled(false);
        form.set("cb_pheriphery_externalshutter_installed", 1);
        QVERIFY(form.shows({{"cbFFCmode", 3}}));
        QVERIFY(!form.enabled("sbFFCdelay")); // only a change of the mode enables it
    }

    void partlyCheckedExternalShutterCountsAsInstalled()
    {
        FormUnderTest form(blend);
        form.window.on_cb_pheriphery_externalshutter_installed_stateChanged(1);
        QVERIFY(!form.hidden("gb_pheriphery_externalshutteroptions"));
        QVERIFY(form.shows({{"cBext0mode", 1}, {"cBext1mode", 1}, {"cbFFCmode", 3}}));
    }

    void externalShutterKeepsPortsThatLackItsMode()
    {
        FormUnderTest form(0);
        for (const char *name : {"cBext0mode", "cBext1mode"})
            form.get<QComboBox>(name)->addItems({"EXP0_MODE_FFC", "EXP1_MODE_COMIO"});
        form.set("cBext0mode", 1);
        for (const int installed : {1, 0}) {
            form.set("cb_pheriphery_externalshutter_installed", installed);
            QVERIFY(form.shows({{"cBext0mode", 1}, {"cBext1mode", 0}}));
            QCOMPARE(form.enabled("cBext0mode"), !installed);
        }
    }
};

QTEST_MAIN(TestMainWindowInterlocks)
#include "tst_mainwindow_interlocks.moc"
