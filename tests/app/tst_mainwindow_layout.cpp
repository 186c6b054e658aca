// The form of each model, and the ways to choose one without a camera.

#include "support/modelwindow.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QSignalSpy>

namespace {

const QString unnecessaryCall =
    QStringLiteral("KovoDevices::setDevice() >> unnecessary call to this function\n");

const QStringList blendExt0 = {"EXP_MODE_NONE", "EXP0_MODE_EXTERNAL_SHUTTER"};
const QStringList blendExt1 = {"EXP_MODE_NONE", "EXP1_MODE_EXTERNAL_SHUTTER"};
const QStringList zoomExt0 = {"EXP_MODE_NONE",   "EXP0_MODE_FFC",   "EXP0_MODE_IMAGE_SYNC",
                              "EXP0_MODE_COMIO", "EXP0_MODE_VISCA", "EXP0_MODE_EXTERNAL_SHUTTER"};
const QStringList zoomExt1 = {"EXP_MODE_NONE", "EXP1_MODE_EXTERNAL_SYNC_INPUT", "EXP1_MODE_COMIO",
                              "EXP1_MODE_VISCA", "EXP1_MODE_EXTERNAL_SHUTTER"};

/// The operator's pick of the item that is shown already: opens the list and takes it.
void pickShownItem(QComboBox *box)
{
    box->showPopup();
    QTest::keyClick(box->view(), Qt::Key_Return);
}

} // namespace

class TestMainWindowLayout : public QObject
{
    Q_OBJECT

private slots:
    // --- the form of a model

    void formShowsExactlyTheWidgetsOfTheModel_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::addColumn<QSet<QString>>("shown");
        QTest::addColumn<QStringList>("ext0");
        QTest::addColumn<QStringList>("ext1");
        QTest::addColumn<int>("index");
        QTest::newRow("Blend") << keyBlend << blendWidgets << blendExt0 << blendExt1 << 0;
        QTest::newRow("Blend Zoom") << keyBlendZoom << zoomWidgets << zoomExt0 << zoomExt1 << 1;
    }
    void formShowsExactlyTheWidgetsOfTheModel()
    {
        QFETCH(quint32, key);
        QFETCH(QSet<QString>, shown);
        ModelWindow tool;
        const QSet<QString> others = tool.otherHiddenWidgets();
        QVERIFY(tool.chooseModel(key));
        QCOMPARE(tool.shownModelWidgets(), shown);
        QCOMPARE(tool.otherHiddenWidgets(), others);
        QTEST(tool.items("cBext0mode"), "ext0");
        QTEST(tool.items("cBext1mode"), "ext1");
        QTEST(tool.deviceIndex(), "index");
        for (const char *name : {"cBext0mode", "cBext1mode"}) {
            const auto *list = tool.get<QComboBox>(name);
            QCOMPARE(list->currentIndex(), 0);
            for (int i = 0; i < list->count(); ++i)
                QVERIFY2(!list->itemData(i).isValid(), qPrintable(list->itemText(i)));
        }
    }

    void switchingBackAndForthLeavesNothingBehind()
    {
        ModelWindow tool;
        for (int round = 0; round < 2; ++round) {
            QVERIFY(tool.chooseModel(keyBlend));
            QCOMPARE(tool.shownModelWidgets(), blendWidgets);
            QCOMPARE(tool.items("cBext0mode"), blendExt0);
            QCOMPARE(tool.items("cBext1mode"), blendExt1);
            QCOMPARE(tool.deviceIndex(), 0);
            QVERIFY(tool.chooseModel(keyBlendZoom));
            QCOMPARE(tool.shownModelWidgets(), zoomWidgets);
            QCOMPARE(tool.items("cBext0mode"), zoomExt0);
            QCOMPARE(tool.items("cBext1mode"), zoomExt1);
            QCOMPARE(tool.deviceIndex(), 1);
        }
    }

    void extensionListsAreEmptyUntilAModelIsKnown()
    {
        ModelWindow tool;
        QVERIFY(tool.items("cBext0mode").isEmpty());
        QVERIFY(tool.items("cBext1mode").isEmpty());
        QCOMPARE(tool.deviceIndex(), 0);
    }

    void shutterOptionsFollowTheInstalledShutter_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::addColumn<bool>("installed");
        QTest::newRow("Blend, installed") << keyBlend << true;
        QTest::newRow("Blend, not installed") << keyBlend << false;
        QTest::newRow("Blend Zoom, installed") << keyBlendZoom << true;
        QTest::newRow("Blend Zoom, not installed") << keyBlendZoom << false;
    }
    void shutterOptionsFollowTheInstalledShutter()
    {
        QFETCH(quint32, key);
        QFETCH(bool, installed);
        ModelWindow tool;
        tool.get<QCheckBox>("cb_pheriphery_externalshutter_installed")->setChecked(installed);
        QVERIFY(tool.chooseModel(key));
        QWidget *options = tool.widget("gb_pheriphery_externalshutteroptions");
        QCOMPARE(options->isHidden(), !installed);
        QCOMPARE(options->isEnabledTo(&tool.window), installed);
        QVERIFY(tool.chooseModel(key == keyBlendZoom ? keyBlend : keyBlendZoom));
        QCOMPARE(options->isHidden(), !installed);
        QCOMPARE(options->isEnabledTo(&tool.window), installed);
        tool.chooseModel(key20);
        QVERIFY(options->isHidden());
    }

    void modelFromTheFormIsLaidOutTwice()
    {
        // The slot announces the model and runs again inside its own announcement. The second pass
        // finds the model set. The Blend's item is the current one: nothing else asks.
        ModelWindow tool;
        QVERIFY(tool.chooseModel(keyBlend));
        QCOMPARE(tool.lines.err(), unnecessaryCall);
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< QX Blend\n<<< QX Blend\n"));
    }

    void modelThatMovesTheListAsksOnceMore()
    {
        ModelWindow tool;
        QVERIFY(tool.chooseModel(keyBlendZoom));
        QCOMPARE(tool.lines.err(), unnecessaryCall + unnecessaryCall);
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< QX Blend Zoom\n<<< QX Blend Zoom\n"));
        QCOMPARE(tool.deviceIndex(), 1);
        tool.lines.clear();
        QVERIFY(tool.chooseModel(keyBlend));
        QCOMPARE(tool.lines.err(), unnecessaryCall + unnecessaryCall);
        QCOMPARE(tool.deviceIndex(), 0);
    }

    void sameModelAgainIsLaidOutOnce()
    {
        ModelWindow tool;
        QVERIFY(tool.chooseModel(keyBlendZoom));
        tool.widget("gbTestModes")->hide();
        tool.lines.clear();
        QVERIFY(tool.chooseModel(keyBlendZoom));
        QCOMPARE(tool.lines.err(), unnecessaryCall);
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< QX Blend Zoom\n"));
        QCOMPARE(tool.shownModelWidgets(), zoomWidgets);
        QCOMPARE(tool.items("cBext0mode"), zoomExt0);
    }

    void quorvix20HidesEverythingAndFails()
    {
        ModelWindow tool;
        QVERIFY(tool.chooseModel(keyBlendZoom));
        tool.lines.clear();
        QVERIFY(!tool.chooseModel(key20));
        QVERIFY(tool.shownModelWidgets().isEmpty());
        QVERIFY(tool.items("cBext0mode").isEmpty());
        QVERIFY(tool.items("cBext1mode").isEmpty());
        QCOMPARE(tool.deviceIndex(), 1);
        const QString pass = QStringLiteral("<<< QX 2.0 not implemeted (2695828383)\n"
                                            "<<< not a valid device\n"
                                            "<< Device not implemented: false\n");
        // The factory settings hear of the model between the two passes.
        QCOMPARE(
            tool.lines.err(),
            unnecessaryCall + pass +
                QStringLiteral("FactorySettings::slotDeviceChanged() Device not implemented\n") +
                pass);
        QVERIFY(tool.lines.out().isEmpty());
        QVERIFY(tool.chooseModel(keyBlendZoom));
        QCOMPARE(tool.shownModelWidgets(), zoomWidgets);
    }

    void unknownKeyLeavesTheForm_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::newRow("0") << 0U;
        QTest::newRow("below") << 0xA0AF139DU;
        QTest::newRow("above") << 0xA0AF13A0U;
    }
    void unknownKeyLeavesTheForm()
    {
        QFETCH(quint32, key);
        ModelWindow tool;
        QVERIFY(tool.chooseModel(keyBlendZoom));
        tool.lines.clear();
        QVERIFY(!tool.chooseModel(key));
        QCOMPARE(tool.lines.err(), QStringLiteral("<<< not a valid device id\n"));
        QCOMPARE(tool.shownModelWidgets(), zoomWidgets);
        QCOMPARE(tool.items("cBext1mode"), zoomExt1);
        QCOMPARE(tool.deviceIndex(), 1);
    }

    // --- the list of models

    void pickingTheOtherModelLaysItOutOnce()
    {
        ModelWindow tool;
        auto *list = tool.get<QComboBox>("cBDevice");
        QSignalSpy activated(list, SIGNAL(activated(int)));
        QTest::keyClick(list, Qt::Key_Down); // changes the text and activates the item
        QCOMPARE(activated.count(), 1);
        QCOMPARE(tool.shownModelWidgets(), zoomWidgets);
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< QX Blend Zoom\n"));
        QCOMPARE(tool.lines.err(), unnecessaryCall);
        tool.lines.clear();
        QTest::keyClick(list, Qt::Key_Up);
        QCOMPARE(tool.shownModelWidgets(), blendWidgets);
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< QX Blend\n"));
        QCOMPARE(tool.lines.err(), unnecessaryCall);
    }

    void pickingTheShownModelChoosesItOnce()
    {
        ModelWindow tool;
        auto *list = tool.get<QComboBox>("cBDevice");
        QSignalSpy activated(list, SIGNAL(activated(int)));
        pickShownItem(list);
        QTRY_COMPARE(activated.count(), 1);
        QCOMPARE(tool.shownModelWidgets(), blendWidgets);
        QCOMPARE(tool.lines.err(), unnecessaryCall);
        tool.lines.clear();
        pickShownItem(list); // the active device already
        QTRY_COMPARE(activated.count(), 2);
        QVERIFY(tool.lines.err().isEmpty());
        QVERIFY(tool.lines.out().isEmpty());
    }

    void pickingTheShownModelReplacesThe20_data()
    {
        QTest::addColumn<quint32>("shownKey");
        QTest::addColumn<QSet<QString>>("shown");
        QTest::addColumn<QString>("name");
        QTest::newRow("Blend") << keyBlend << blendWidgets << "QX Blend";
        QTest::newRow("Blend Zoom") << keyBlendZoom << zoomWidgets << "QX Blend Zoom";
    }
    void pickingTheShownModelReplacesThe20()
    {
        QFETCH(quint32, shownKey);
        QFETCH(QString, name);
        ModelWindow tool;
        QVERIFY(tool.chooseModel(shownKey));
        QVERIFY(!tool.chooseModel(key20)); // has no item: the list keeps the last one
        tool.lines.clear();
        auto *list = tool.get<QComboBox>("cBDevice");
        QSignalSpy activated(list, SIGNAL(activated(int)));
        pickShownItem(list);
        QTRY_COMPARE(activated.count(), 1);
        QTEST(tool.shownModelWidgets(), "shown");
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< %1\n").arg(name));
        QCOMPARE(tool.lines.err(), unnecessaryCall);
    }

    void modelsAreKnownByTheirLongNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("known");
        QTest::addColumn<QSet<QString>>("shown");
        QTest::newRow("Blend") << "Quorvix Blend" << true << blendWidgets;
        QTest::newRow("Blend in lower case") << "quorvix blend" << true << blendWidgets;
        QTest::newRow("Blend Zoom") << "Quorvix Blend Zoom" << true << zoomWidgets;
        QTest::newRow("Blend Zoom in upper case") << "QUORVIX BLEND ZOOM" << true << zoomWidgets;
        QTest::newRow("2.0") << "Quorvix 2.0" << true << QSet<QString>();
    }
    void modelsAreKnownByTheirLongNames()
    {
        QFETCH(QString, name);
        ModelWindow tool;
        bool result = false;
        QVERIFY(QMetaObject::invokeMethod(&tool.window, "changeDeviceName",
                                          Q_RETURN_ARG(bool, result), Q_ARG(QString, name)));
        QTEST(result, "known");
        QTEST(tool.shownModelWidgets(), "shown");
        QVERIFY(tool.lines.err().startsWith(unnecessaryCall));
    }

    void otherNamesAreRefused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("a short name") << "QX Blend";
        QTest::newRow("empty") << "";
        QTest::newRow("longer") << "Quorvix Blend Zoom ";
    }
    void otherNamesAreRefused()
    {
        QFETCH(QString, name);
        ModelWindow tool;
        const QSet<QString> before = tool.shownModelWidgets();
        QVERIFY(!tool.window.changeDeviceName(name));
        QCOMPARE(tool.lines.err(), QStringLiteral("<< Device not implemented: %1\n").arg(name));
        QCOMPARE(tool.shownModelWidgets(), before);
    }

    void changeByKeyIsObsolete()
    {
        ModelWindow tool;
        bool result = true;
        QVERIFY(QMetaObject::invokeMethod(&tool.window, "changeDeviceCRC",
                                          Q_RETURN_ARG(bool, result),
                                          Q_ARG(unsigned int, keyBlend)));
        QVERIFY(!result);
        QCOMPARE(
            tool.lines.err(),
            QStringLiteral("MainWindow::changeDeviceCRC() was replaced by slotDeviceChanged()\n"));
    }

    void parsingASerialNumberDoesNothing()
    {
        ModelWindow tool;
        QVERIFY(QMetaObject::invokeMethod(
            &tool.window, "parseSerial", Q_ARG(QVector<unsigned char>, QVector<unsigned char>(2))));
        QVERIFY(tool.lines.err().isEmpty() && tool.lines.out().isEmpty());
    }
};

QTEST_MAIN(TestMainWindowLayout)
#include "tst_mainwindow_layout.moc"
