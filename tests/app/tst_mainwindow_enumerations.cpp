#include "support/records.h"
#include "support/windowundertest.h"

#include <QMetaEnum>

using Keys = QVector<QPair<QString, int>>;

/// The enumerations whose keys fill lists and whose values lie in the records.
class TestMainWindowEnumerations : public QObject
{
    Q_OBJECT

private slots:
    void keysAndValues_data()
    {
        QTest::addColumn<QString>("enumeration");
        QTest::addColumn<Keys>("keys");
        QTest::newRow("hdmivideomodes")
            << "hdmivideomodes" << Keys{{"MODE_1080P_30HZ", 0}, {"MODE_1080P_60HZ", 1}};
        QTest::newRow("extensions") << "extensions"
                                    << Keys{{"EXP_MODE_NONE", 0},
                                            {"EXP0_MODE_FFC", 1},
                                            {"EXP1_MODE_EXTERNAL_SYNC_INPUT", 2},
                                            {"EXP1_MODE_SBUS_INPUT", 3},
                                            {"EXP0_MODE_IMAGE_SYNC", 4},
                                            {"EXP0_MODE_EXTERNAL_SHUTTER", 5},
                                            {"EXP1_MODE_EXTERNAL_SHUTTER", 6},
                                            {"EXP0_MODE_VISCA", 7},
                                            {"EXP1_MODE_VISCA", 8},
                                            {"EXP0_MODE_COMIO", 9},
                                            {"EXP1_MODE_COMIO", 10}};
        QTest::newRow("viscaaemode")
            << "viscaaemode"
            << Keys{{"VISCA_AEMODE_FULL_AUTO", 0},      {"VISCA_AEMODE_AUTO_LN", 1},
                    {"VISCA_AEMODE_MANUAL", 3},         {"VISCA_AEMODE_SHUTTER_PRIORITY", 10},
                    {"VISCA_AEMODE_IRIS_PRIORITY", 11}, {"VISCA_AEMODE_GAIN_PRIORITY", 12}};
        Keys speeds;
        const int hertz[] = {1,   2,   4,   8,   15,   30,   60,   90,   100,  120,  180,
                             250, 350, 500, 725, 1000, 1500, 2000, 3000, 4000, 6000, 10000};
        for (int value = 0; value < 22; ++value)
            speeds.append({QStringLiteral("SPEED_%1_HZ").arg(hertz[value]), value});
        QTest::newRow("viscaaeshutterspeed") << "viscaaeshutterspeed" << speeds;
    }

    void keysAndValues()
    {
        QFETCH(QString, enumeration);
        QFETCH(Keys, keys);
        const QMetaObject &meta = MainWindow::staticMetaObject;
        const QMetaEnum found = meta.enumerator(meta.indexOfEnumerator(qPrintable(enumeration)));
        QVERIFY(found.isValid());
        QCOMPARE(found.keyCount(), keys.size());
        for (const auto &[key, value] : keys) {
            bool ok = false;
            QCOMPARE(found.keyToValue(qPrintable(key), &ok), value);
            QVERIFY2(ok, qPrintable(key));
        }
    }

    void severalKeysAreOredInTheZoomRecordOnly()
    {
        WindowUnderTest tool;
        QCOMPARE(stored(tool, records::keyBlend, 82), 0xFF);
        QCOMPARE(stored(tool, records::keyBlendZoom, 97), 5);
    }

    void focusByteIsDecodedByTheWindow()
    {
        WindowUnderTest tool;
        int value = 0;
        QVERIFY(QMetaObject::invokeMethod(&tool.window, "SonyFCBFocusvalue2int",
                                          Q_RETURN_ARG(int, value), Q_ARG(quint8, 0x45)));
        QCOMPARE(value, -5);
    }

private:
    /// Byte of the record that the form gives for a model, whatever the extension list holds.
    static int stored(WindowUnderTest &tool, quint32 key, int offset)
    {
        const QString text = QStringLiteral("EXP0_MODE_FFC|EXP0_MODE_IMAGE_SYNC");
        tool.chooseModel(key);
        auto *box = tool.get<QComboBox>("cBext0mode");
        box->addItem(text);
        box->setCurrentText(text);
        QByteArray record(223, '\0');
        if (key == records::keyBlend)
            tool.window.ui2config_qxblend(
                *reinterpret_cast<thermalCommPacket_Blend_R8_TypeDef *>(record.data()));
        else
            tool.window.ui2config_qxblendzoom(
                *reinterpret_cast<thermalCommPacket_Blend_Zoom_R13_TypeDef *>(record.data()));
        return static_cast<uchar>(record.at(offset));
    }
};

QTEST_MAIN(TestMainWindowEnumerations)
#include "tst_mainwindow_enumerations.moc"
