// Every box of the tool, answered by keys alone.

#include "devices/KovoDevices.h"
#include "factory/FactorySettings.h"
#include "support/exchange.h"
#include "support/factoryrecords.h"
#include "support/modal.h"
#include "support/records.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QTableWidget>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace {

const QString rejected = QStringLiteral("<<< dialog rejected\n");

/// A window connected to a Blend Zoom, ready for any of its boxes.
class Tool : public Exchange
{
public:
    Tool()
    {
        tool.chooseModel(records::keyBlendZoom);
        tool.window.show();
        lines.clear();
    }

    /// Rejects whatever is outstanding.
    void reject()
    {
        send(COMIO_CMD_TRIGGER, "\1");
        camera.send(324);
        if (!QTest::qWaitFor([this] { return !tool.busy(); }))
            qFatal("the rejection was not heard");
    }
    void load()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath("file.bin"));
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(records::sealed(records::blendZoom())) != 223 || !file.flush())
            qFatal("no file");
        tool.window.loadConfigurationFile(file.fileName());
    }
    void readFactorySettings()
    {
        const QByteArray record =
            zoomRecord("1700001", QVector<int>(30, 3), QVector<int>(70, 1), QVector<int>(70, 2));
        auto *dialog = tool.window.findChild<FactorySettings *>();
        dialog->parseFactorySettings(records::payload(record));
    }
    QString factoryCell() { return tool.get<QTableWidget>("tw_QXBZ_hdmi")->item(0, 0)->text(); }
};

/// A Blend Zoom record of another version.
QByteArray record(quint32 version)
{
    return records::unsealed(records::keyBlendZoom, 209, version, 223);
}

/// The user guide where an installation has it, seen from the folder of the program.
class InstalledGuide
{
public:
    InstalledGuide()
    {
        const QString folder =
            QCoreApplication::applicationDirPath() + "/../share/doc/quorvix-config";
        m_file.setFileName(folder + "/guide.md");
        if (!QDir().mkpath(folder) || !m_file.open(QIODevice::WriteOnly))
            qFatal("no guide");
    }
    ~InstalledGuide() { m_file.remove(); }

private:
    QFile m_file;
};

/// No program shows a file: the one in charge lacks the slot that would.
class NoViewer
{
public:
    NoViewer() { QDesktopServices::setUrlHandler("file", &m_nobody, "open"); }
    ~NoViewer() { QDesktopServices::unsetUrlHandler("file"); }

private:
    QObject m_nobody;
};

struct Box
{
    const char *name;
    std::function<void(Tool &)> raise;
};

const Box boxesWithOkAlone[] = {
    {"Command rejected", [](Tool &t) { t.reject(); }},
    {"Firmware outdated", [](Tool &t) { t.tool.window.checkFirmwareDate(20180121); }},
    {"software outdated",
     [](Tool &t) { t.tool.window.parseUnknownControlStruct(records::payload(record(20190806))); }},
    {"device firmware outdated",
     [](Tool &t) { t.tool.window.parseUnknownControlStruct(records::payload(record(20190804))); }},
    {"HDMI video mode",
     [](Tool &t) { t.tool.window.on_cbHDMIVideoMode_activated("MODE_1080P_60HZ"); }},
    {"About", [](Tool &t) { t.tool.get<QAction>("actionAbout")->trigger(); }},
    {"About Qt", [](Tool &t) { t.tool.get<QAction>("actionAboutQt")->trigger(); }},
    {"User guide missing", [](Tool &t) { t.tool.get<QAction>("actionUserGuide")->trigger(); }},
    {"User guide without a viewer",
     [](Tool &t) {
         const InstalledGuide guide;
         const NoViewer viewer;
         t.tool.get<QAction>("actionUserGuide")->trigger();
     }},
};

} // namespace

class TestBoxes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { modal::useQtDialogs(); }

    void okIsAnsweredByKeys_data()
    {
        QTest::addColumn<int>("box");
        QTest::addColumn<Qt::Key>("key");
        for (size_t i = 0; i < std::size(boxesWithOkAlone); ++i)
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape})
                QTest::addRow("%s, %s", boxesWithOkAlone[i].name,
                              qPrintable(QKeySequence(key).toString()))
                    << int(i) << key;
    }
    void okIsAnsweredByKeys()
    {
        QFETCH(int, box);
        QFETCH(Qt::Key, key);
        Tool t;
        QString text;
        modal::Answer<QMessageBox> answer([&](QMessageBox *shown) {
            text = shown->text();
            modal::press(key)(shown);
        });
        boxesWithOkAlone[box].raise(t);
        QTRY_VERIFY(answer.given());
        const QByteArray name = boxesWithOkAlone[box].name;
        if (name.startsWith("User guide"))
            QCOMPARE(text.contains("not installed"), name.endsWith("missing"));
        QVERIFY(!t.lines.out().contains(rejected));
    }

    void writingIsNotConfirmedByTheKeysOfTheDefault_data() { addKeys(); }
    void writingIsNotConfirmedByTheKeysOfTheDefault()
    {
        QFETCH(Qt::Key, key);
        Tool t;
        modal::Answer<QMessageBox> answer(modal::press(key));
        t.tool.get<QPushButton>("btnSetConf")->click();
        QVERIFY(answer.given());
        QCOMPARE(t.lines.out(), rejected);
        QVERIFY(!t.tool.busy()); // nothing was sent
    }

    void loadedFileIsNotWrittenByTheKeysOfTheDefault_data() { addKeys(); }
    void loadedFileIsNotWrittenByTheKeysOfTheDefault()
    {
        QFETCH(Qt::Key, key);
        Tool t;
        modal::Answer<QMessageBox> answer(modal::press(key));
        t.load();
        QVERIFY(answer.given());
        QVERIFY(t.lines.out().endsWith(rejected));
        QVERIFY(!t.tool.busy());
    }

    void writingIsConfirmedByItsButton()
    {
        Tool t;
        modal::Answer<QMessageBox> answer([](QMessageBox *box) {
            QVERIFY(QTest::qWaitForWindowActive(box));
            QTest::keyClick(box->focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
            QCOMPARE(box->focusWidget(), box->button(QMessageBox::Ok));
            QTest::keyClick(box->focusWidget(), Qt::Key_Return);
        });
        t.tool.get<QPushButton>("btnSetConf")->click();
        QVERIFY(answer.given());
        QTRY_COMPARE(t.camera.count(101), 1);
    }

    void factorySettingsAreTakenByTheKeysOfTheDefault_data() { addKeys(); }
    void factorySettingsAreTakenByTheKeysOfTheDefault()
    {
        QFETCH(Qt::Key, key);
        Tool t;
        QCOMPARE(t.factoryCell(), QStringLiteral("483"));
        modal::Answer<QMessageBox> answer(modal::press(key));
        t.readFactorySettings();
        QVERIFY(answer.given());
        QCOMPARE(t.factoryCell(), QString(key == Qt::Key_Escape ? "483" : "1"));
    }

    void fileIsNotReplacedByTheKeysOfTheDefault_data()
    {
        QTest::addColumn<bool>("the20Model");
        QTest::addColumn<Qt::Key>("key");
        for (const bool the20Model : {false, true})
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape})
                QTest::addRow("%s, %s", the20Model ? "2.0" : "Save",
                              qPrintable(QKeySequence(key).toString()))
                    << the20Model << key;
    }
    void fileIsNotReplacedByTheKeysOfTheDefault()
    {
        QFETCH(bool, the20Model);
        QFETCH(Qt::Key, key);
        const QTemporaryDir folder;
        QFile file(folder.filePath("QX20.BIN"));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QCOMPARE(file.write(QByteArray(1000, 'x')), 1000);
        QVERIFY(file.flush());

        Tool t;
        std::unique_ptr<modal::Answer<QMessageBox>> overwrite;
        modal::Answer<QFileDialog> choose([&](QFileDialog *dialog) {
            overwrite = std::make_unique<modal::Answer<QMessageBox>>([key](QMessageBox *box) {
                QCOMPARE(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
                modal::press(key)(box);
            });
            modal::choose(file.fileName())(dialog);
            const bool open = dialog->isVisible();
            static_cast<QDialog *>(dialog)->reject();
            QVERIFY(open); // for another name
        });
        if (the20Model)
            t.tool.window.setConfig_qx_2_0();
        else
            t.tool.get<QAction>("actionSave")->trigger();
        QVERIFY(choose.given());
        QVERIFY(overwrite && overwrite->given());
        QVERIFY(file.seek(0));
        QCOMPARE(file.readAll(), QByteArray(1000, 'x'));
        if (the20Model)
            QCOMPARE(t.lines.out(), QStringLiteral("Error opening file!\n"));
    }

private:
    /// The keys that give the default, and the one that gives Cancel.
    static void addKeys()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Return") << Qt::Key_Return;
        QTest::newRow("Enter") << Qt::Key_Enter;
        QTest::newRow("Space") << Qt::Key_Space;
        QTest::newRow("Escape") << Qt::Key_Escape;
    }
};

QTEST_MAIN(TestBoxes)
#include "tst_boxes.moc"
