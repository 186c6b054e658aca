#include "factory/FactorySettings.h"
#include "support/cameraend.h"
#include "support/captureddiagnostics.h"
#include "support/files.h"
#include "support/modal.h"
#include "support/records.h"
#include "support/windowundertest.h"

#include <QLabel>
#include <QStatusBar>
#include <QTemporaryDir>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace records;

namespace {

const char *failsToClose = nullptr; ///< path of a file whose last bytes get lost

} // namespace

/// Stands in for the C library's: no local disk keeps a failure until then, as a network's does.
extern "C" int close(int file)
{
    char path[4096] = {};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const bool fails = failsToClose != nullptr &&
                       readlink(link.c_str(), path, sizeof path - 1) > 0 &&
                       std::strcmp(path, failsToClose) == 0;
    const long result = syscall(SYS_close, file);
    if (!fails)
        return int(result);
    errno = EIO;
    return -1;
}

/// What the status bar says after a configuration file was loaded or saved.
class TestMainWindowFileOutcomes : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    CapturedDiagnostics m_lines;
    std::unique_ptr<WindowUnderTest> m_tool;

    QString path(const char *name) const { return m_dir.filePath(QString::fromLatin1(name)); }
    QString status() const { return m_tool->window.statusBar()->currentMessage(); }

    /// Loads `bytes` as the file x.bin; boxes that come are answered with their Ok.
    void load(const QByteArray &bytes)
    {
        files::write(path("x.bin"), bytes);
        QTimer ok;
        connect(&ok, &QTimer::timeout, [] {
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
                box->button(QMessageBox::Ok)->click();
        });
        ok.start(5);
        m_tool->window.loadConfigurationFile(path("x.bin"));
    }

private slots:
    void initTestCase()
    {
        modal::useQtDialogs();
        QVERIFY(m_dir.isValid());
    }
    void init() { m_tool = std::make_unique<WindowUnderTest>(); }
    void cleanup() { m_tool.reset(); }

    void loadedFileIsNamedWithItsModel()
    {
        load(sealed(blendZoom()));
        QCOMPARE(status(), QString("Loaded x.bin (QX Blend Zoom)"));
        load(sealed(blend()));
        QCOMPARE(status(), QString("Loaded x.bin (QX Blend)"));
    }

    void nameWithControlCharactersIsOneLine()
    {
        files::write(path("x\ny.bin"), sealed(blend()));
        m_tool->window.loadConfigurationFile(path("x\ny.bin"));
        QCOMPARE(status(), QString("Loaded x\\x0ay.bin (QX Blend)"));
        m_tool->window.saveConfigurationFile(path("x\ry.bin"));
        QVERIFY2(status().contains("x\\x0dy.bin") && !status().contains('\r'),
                 qPrintable(status()));
    }

    void fileOfAnotherModelIsPointedOut()
    {
        QVERIFY(m_tool->chooseModel(keyBlend));
        load(sealed(blendZoom()));
        QCOMPARE(status(),
                 QString("Loaded x.bin (QX Blend Zoom), but the form is that of a QX Blend"));
    }

    void unusableFileIsToldWithItsDefect_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("defect");
        const QByteArray zoom = sealed(blendZoom());
        const auto with = [&](int offset, quint32 value) {
            QByteArray record = zoom;
            put<quint32>(record, offset, value);
            return sealed(record);
        };
        QByteArray damaged = zoom;
        damaged[100] = char(damaged[100] ^ 4);
        QTest::newRow("empty") << QByteArray() << "empty";
        QTest::newRow("text") << QByteArray("hello") << "too short: 5 bytes";
        QTest::newRow("unknown") << with(0, 0x12345678) << "of no known camera";
        QTest::newRow("2.0") << with(0, key20)
                             << "of a Quorvix 2.0, whose settings this tool does not know";
        QTest::newRow("newer") << with(8, 20190806)
                               << "of version 20190806, newer than this tool knows";
        QTest::newRow("older") << with(8, 20190804)
                               << "of version 20190804, older than this tool reads";
        QTest::newRow("cut") << zoom.left(222) << "too short: 222 bytes instead of 223";
        QTest::newRow("length") << with(4, 208) << "wrong data length: 208";
        QTest::newRow("damaged") << damaged << "wrong checksum";
    }

    void unusableFileIsToldWithItsDefect()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, defect);
        load(bytes);
        QCOMPARE(status(), "Cannot load x.bin, it holds no valid record: " + defect);
    }

    void unusableRecordOfTheCameraIsToldWithItsDefect()
    {
        CameraEnd camera;
        QVERIFY(m_tool->connectTo(camera.path()));
        QVERIFY(camera.send(216, CameraEnd::identity(keyBlendZoom)));
        QTRY_COMPARE(camera.count(102), 1);
        QByteArray damaged = sealed(blendZoom());
        damaged[100] = char(damaged[100] ^ 4);
        QVERIFY(camera.send(202, damaged));
        QTRY_COMPARE(
            m_tool->get<QLabel>("lbLast")->text(),
            QString("Read configuration: not usable, wrong checksum; the port was closed"));
        QCOMPARE(m_tool->get<QLabel>("lbState")->text(), QString("Not connected"));
    }

    void fileThatCannotBeReadIsToldWithTheReason()
    {
        m_lines.clear();
        m_tool->window.loadConfigurationFile(path("none.bin"));
        QCOMPARE(status(), QString("Cannot load none.bin: No such file or directory"));
        m_tool->window.loadConfigurationFile(m_dir.path());
        QVERIFY(status().endsWith(": not a regular file"));
        QCOMPARE(m_lines.err(), QString());
        QCOMPARE(m_lines.out(), QString());
    }

    void savedFileIsNamedWithItsModel()
    {
        QVERIFY(m_tool->chooseModel(keyBlendZoom));
        m_tool->window.saveConfigurationFile(path("s.bin"));
        QCOMPARE(status(), QString("Saved s.bin (QX Blend Zoom)"));
        QCOMPARE(files::contentOf(path("s.bin")).size(), 223);
    }

    void savingWithoutARecordSaysThatTheFileIsEmpty()
    {
        m_tool->window.saveConfigurationFile(path("e.bin"));
        QCOMPARE(status(),
                 QString("e.bin is empty: no model is chosen, so there is nothing to save"));
        m_tool->chooseModel(key20);
        m_tool->window.saveConfigurationFile(path("e.bin"));
        QCOMPARE(status(), QString("e.bin is empty: the settings of a Quorvix 2.0 are not known"));
        QCOMPARE(files::contentOf(path("e.bin")), QByteArray());
    }

    void fileThatCannotBeSavedIsToldWithTheReason()
    {
        QVERIFY(m_tool->chooseModel(keyBlend));
        m_tool->window.saveConfigurationFile(path("none") + "/s.bin");
        QCOMPARE(status(), QString("Cannot save s.bin: No such file or directory"));
        m_tool->window.saveConfigurationFile("/dev/full");
        QCOMPARE(status(), QString("Cannot save full: not a regular file"));
    }

    void saveThatCannotBeCompletedKeepsTheEarlierFile()
    {
        QVERIFY(m_tool->chooseModel(keyBlend));
        files::write(path("kept.bin"), QByteArray(1000, 'x'));
        m_lines.clear();
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit before = {};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        rlimit limit = before;
        limit.rlim_cur = 100;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
        m_tool->window.saveConfigurationFile(path("kept.bin"));
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
        std::signal(SIGXFSZ, handler);
        QCOMPARE(status(),
                 QString("Could not write kept.bin whole: File too large. The file is as it was"));
        QCOMPARE(files::contentOf(path("kept.bin")), QByteArray(1000, 'x'));
        QCOMPARE(m_lines.err(), QString());
        QCOMPARE(m_lines.out(), QString());
    }

    void fileOfTheModelWithoutARecordIsTold()
    {
        modal::Answer<QFileDialog> choose(modal::choose(path("QXCONFIG.BIN")));
        m_tool->window.setConfig_qx_2_0();
        QCOMPARE(status(), QString("Saved QXCONFIG.BIN (zeros: the settings of a Quorvix 2.0 are "
                                   "not known)"));
        QCOMPARE(files::contentOf(path("QXCONFIG.BIN")), QByteArray(207, '\0'));
    }

    void fileOfTheModelWithoutARecordThatCannotBeWrittenIsTold_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("room");
        QTest::addColumn<QString>("outcome");
        QTest::newRow("not open to writing")
            << "/sys/class/net/lo/speed" << -1 << "Cannot save speed: Permission denied";
        QTest::newRow("no room at all")
            << "/dev/full" << -1
            << "Could not write full whole: No space left on device. The file is as it was";
        QTest::newRow("room for a part over another")
            << path("part.bin") << 100
            << "Could not write part.bin whole: File too large. What it held is lost";
        QTest::newRow("room for a part of a new one")
            << path("new.bin") << 100
            << "Could not write new.bin whole: File too large. It holds a part only";
        QTest::newRow("found only by closing")
            << path("late.bin") << -1
            << "Could not write late.bin whole: Input/output error. It holds a part only";
    }

    void fileOfTheModelWithoutARecordThatCannotBeWrittenIsTold()
    {
        QFETCH(QString, file);
        QFETCH(int, room);
        QFETCH(QString, outcome);
        if (file == path("part.bin"))
            files::write(file, QByteArray(50, 'x'));
        QFile::remove(path("QXCONFIG.BIN")); // or the dialog proposes it as a choice made
        const QByteArray late = QFile::encodeName(path("late.bin"));
        std::unique_ptr<modal::Answer<QMessageBox>> overwrite;
        modal::Answer<QFileDialog> choose([&](QFileDialog *dialog) {
            if (QFile::exists(file))
                overwrite =
                    std::make_unique<modal::Answer<QMessageBox>>(modal::click(QMessageBox::Yes));
            modal::choose(file)(dialog);
        });
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit before = {};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        rlimit limit = before;
        if (room >= 0)
            limit.rlim_cur = rlim_t(room);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
        failsToClose = late.constData();
        m_tool->window.setConfig_qx_2_0();
        failsToClose = nullptr;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
        std::signal(SIGXFSZ, handler);
        QVERIFY(choose.given());
        QCOMPARE(status(), outcome);
    }

    void filesOfTheFactoryDialogAreTold()
    {
        QVERIFY(m_tool->chooseModel(keyBlendZoom));
        auto *dialog = m_tool->window.findChild<FactorySettings *>();
        QVERIFY(dialog);
        dialog->loadFile(path("none.dat"));
        QCOMPARE(status(), QString("Cannot load none.dat: No such file or directory"));
        dialog->writeFile(m_dir.path());
        QCOMPARE(status(), QString("Saved 1700999.dat"));
    }

    void cancelledFileOfTheModelWithoutARecordSaysNothing()
    {
        modal::Answer<QFileDialog> cancel(modal::cancel<QFileDialog>());
        m_tool->window.setConfig_qx_2_0();
        QCOMPARE(status(), QString("KoVo"));
    }
};

QTEST_MAIN(TestMainWindowFileOutcomes)
#include "tst_mainwindow_fileoutcomes.moc"
