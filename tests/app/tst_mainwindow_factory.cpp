#include "support/cameraend.h"
#include "support/captureddiagnostics.h"
#include "support/factoryrecords.h"
#include "support/windowundertest.h"

#include <QSpinBox>
#include <QTableWidget>

/// The main window between the factory dialog and the live displacement editor.
class TestMainWindowFactory : public QObject
{
    Q_OBJECT

    static QWidget *dialog(WindowUnderTest &tool, const char *name)
    {
        return tool.get<QWidget>(name);
    }

    static void setColumn(QTableWidget *table, int column, const QVector<int> &values)
    {
        for (int row = 0; row < values.size(); ++row)
            table->item(row, column)->setText(QString::number(values[row]));
    }

    static QVector<int> column(const QTableWidget *table, int column)
    {
        QVector<int> values;
        for (int row = 0; row < table->rowCount(); ++row)
            values << table->item(row, column)->text().toInt();
        return values;
    }

private slots:
    void openingTheFactorySettingsReadsThem()
    {
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        tool.window.showFactoryButtons();
        QVERIFY(tool.connectTo(camera.path()));
        QTRY_COMPARE(camera.count(116), 1);
        tool.get<QPushButton>("pbFactorySettings")->click();
        QVERIFY(dialog(tool, "FactorySettings")->isVisible());
        QTRY_COMPARE(camera.received(), reference::frame(116, {}) + reference::frame(111, {}));
    }

    void framesOfTheDialogsBypassTheOutstandingCommand()
    {
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(tool.connectTo(camera.path()));
        QTRY_COMPARE(camera.count(116), 1);
        QVERIFY(camera.send(216)); // too short to identify, yet it settles the command
        QTRY_VERIFY(!tool.busy());
        tool.window.slotOpenFactorySettings();
        QTRY_COMPARE(camera.count(111), 1);
        QVERIFY(!tool.busy());
    }

    void openingTheEditorShowsIt()
    {
        WindowUnderTest tool;
        tool.window.showFactoryButtons();
        QVERIFY(!dialog(tool, "LiveEdit")->isVisible());
        tool.get<QPushButton>("pb_TestWindow")->click();
        QVERIFY(dialog(tool, "LiveEdit")->isVisible());
        QVERIFY(!dialog(tool, "LiveEdit")->isEnabled());
    }

    void editorFetchesTheColumnOfTheZoomPosition()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        tool.get<QSpinBox>("sbTamronZoom")->setValue(3);
        setColumn(tool.get<QTableWidget>("tw_QXBZ_hdmi"), 2, {12, 13, 1500, 1000, 512, 17, 18});
        setColumn(tool.get<QTableWidget>("tw_QXBZ_analog"), 2, {22, 23, 600, 500, 256, 27, 28});
        tool.get<QPushButton>("pbGetHDMI")->setEnabled(true);
        QMetaObject::invokeMethod(dialog(tool, "LiveEdit"), "on_pbGetHDMI_clicked");
        const auto value = [&](const char *name) { return tool.get<QSpinBox>(name)->value(); };
        QCOMPARE(value("sbFpgaA"), 12);
        QCOMPARE(value("sbFpgaB"), 13);
        QCOMPARE(value("sbFpgaC") + value("sbFpgaC_1"), 1500);
        QCOMPARE(value("sbFpgaD") + value("sbFpgaD_1"), 1000);
        QCOMPARE(value("sbFpgaE"), 512);
        QCOMPARE(value("sbFpgaF") + value("sbFpgaF_1"), 17);
        QCOMPARE(value("sbFpgaG") + value("sbFpgaG_1"), 18);
        QCOMPARE(value("sbZoomLevel"), 3);

        QMetaObject::invokeMethod(dialog(tool, "LiveEdit"), "on_pbGetAnaloge_clicked");
        QCOMPARE(value("sbFpga_Analog_A"), 22);
        QCOMPARE(value("sbFpga_Analog_B"), 23);
        QCOMPARE(value("sbFpga_Analog_C") + value("sbFpga_Analog_C_1"), 600);
        QCOMPARE(value("sbFpga_Analog_D") + value("sbFpga_Analog_D_1"), 500);
        QCOMPARE(value("sbFpga_Analog_E"), 256);
        QCOMPARE(value("sbFpga_Analog_F") + value("sbFpga_Analog_F_1"), 27);
        QCOMPARE(value("sbFpga_Analog_G") + value("sbFpga_Analog_G_1"), 28);
    }

    void editorStoresIntoTheColumnOfTheZoomPosition()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        tool.get<QSpinBox>("sbTamronZoom")->setValue(10);
        const auto *hdmi = tool.get<QTableWidget>("tw_QXBZ_hdmi");
        const QVector<int> neighbour = column(tool.get<QTableWidget>("tw_QXBZ_hdmi"), 8);
        QVERIFY(hdmi);
        tool.window.slotSetFactorySettings_CurrentHDMI(1, -2, 3, 4, 5, -6, 7);
        tool.window.slotSetFactorySettings_CurrentAnaloge(-32768, 32767, 0, 1, 2, 3, 4);
        QCOMPARE(column(tool.get<QTableWidget>("tw_QXBZ_hdmi"), 9),
                 QVector<int>({1, -2, 3, 4, 5, -6, 7}));
        QCOMPARE(column(tool.get<QTableWidget>("tw_QXBZ_hdmi"), 8), neighbour);
        QCOMPARE(column(tool.get<QTableWidget>("tw_QXBZ_analog"), 9),
                 QVector<int>({-32768, 32767, 0, 1, 2, 3, 4}));
        QCOMPARE(lines.out(), QStringLiteral("FactorySettings::setFPGADisplacements_HDMI()\n"
                                             "FactorySettings::setFPGADisplacements_Analoge()\n"));
    }

    void setButtonsFillTheColumnOfTheirOwnTable()
    {
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        tool.get<QSpinBox>("sbTamronZoom")->setValue(10);
        QVERIFY(tool.connectTo(camera.path())); // enables the editor
        const auto *hdmi = tool.get<QTableWidget>("tw_QXBZ_hdmi");
        const auto *analog = tool.get<QTableWidget>("tw_QXBZ_analog");
        const QVector<int> oldAnalog = column(analog, 9);
        const QVector<int> neighbours[] = {column(hdmi, 8), column(analog, 8)};
        tool.get<QSpinBox>("sbFpgaA")->setValue(11);
        tool.get<QSpinBox>("sbFpgaC")->setValue(400);
        tool.get<QSpinBox>("sbFpgaC_1")->setValue(31);
        tool.get<QSpinBox>("sbFpgaG_1")->setValue(-7);
        tool.get<QSpinBox>("sbFpga_Analog_B")->setValue(22);
        tool.get<QSpinBox>("sbFpga_Analog_D")->setValue(300);
        tool.get<QSpinBox>("sbFpga_Analog_D_1")->setValue(42);
        tool.get<QSpinBox>("sbFpga_Analog_F_1")->setValue(-8);

        tool.get<QPushButton>("pbSetHDMI")->click();
        const QVector<int> newHdmi = {11, 0, 431, 0, 0, 0, -7};
        QCOMPARE(column(hdmi, 9), newHdmi);
        QCOMPARE(column(analog, 9), oldAnalog);
        tool.get<QPushButton>("pbSetAnaloge")->click();
        QCOMPARE(column(hdmi, 9), newHdmi);
        QCOMPARE(column(analog, 9), (QVector<int>{0, 22, 0, 342, 0, -8, 0}));
        QCOMPARE(column(hdmi, 8), neighbours[0]);
        QCOMPARE(column(analog, 8), neighbours[1]);
    }

    void editorsFramesReachThePort()
    {
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(tool.connectTo(camera.path()));
        QTRY_COMPARE(camera.count(116), 1);
        QMetaObject::invokeMethod(dialog(tool, "LiveEdit"), "on_pbFpgaDispl_HDMI_clicked");
        // Then seven 16-bit numbers; D and D_1 make -2.
        tool.get<QSpinBox>("sbFpgaD")->setValue(-100);
        tool.get<QSpinBox>("sbFpgaD_1")->setValue(98);
        QMetaObject::invokeMethod(dialog(tool, "LiveEdit"), "on_pbFpgaDispl_HDMI_clicked");
        tool.get<QSpinBox>("sbFpga_Analog_C_1")->setValue(0x1234);
        QMetaObject::invokeMethod(dialog(tool, "LiveEdit"), "on_pbFpgaDispl_Analog_clicked");
        const QByteArray zeros(14, '\0');
        const QByteArray hdmi = QByteArray::fromHex("000000000000feff000000000000");
        const QByteArray analog = QByteArray::fromHex("0000000034120000000000000000");
        QTRY_COMPARE(camera.received().toHex(),
                     (reference::frame(116, {}) + reference::frame(130, zeros) +
                      reference::frame(130, hdmi) + reference::frame(131, analog))
                         .toHex());
    }

    void factoryRecordsReachThePort_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::addColumn<QByteArray>("record");
        QTest::newRow("Blend") << 0xC92A6CE6U << blendRecord("1700999", {0, 0, 40, 12, 480});
        QTest::newRow("Blend Zoom")
            << 0xA0AF139EU
            << zoomRecord("1700999", initialArdview(), initialHdmi(), initialAnalog());
    }
    void factoryRecordsReachThePort()
    {
        QFETCH(quint32, key);
        QFETCH(QByteArray, record);
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(tool.connectTo(camera.path()));
        QVERIFY(tool.chooseModel(key));
        tool.get<QPushButton>("pbSetFactorySettings")->click();
        QTRY_COMPARE(camera.received().toHex(),
                     (reference::frame(116, {}) + reference::frame(110, record)).toHex());
    }
};

QTEST_MAIN(TestMainWindowFactory)
#include "tst_mainwindow_factory.moc"
