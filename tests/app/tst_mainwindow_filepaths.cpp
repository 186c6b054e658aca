// What a chosen path may lead to: nothing that opens, a pipe, a device, more bytes than a record,
// a file with other names.

#include "support/cameraend.h"
#include "support/captureddiagnostics.h"
#include "support/files.h"
#include "support/modal.h"
#include "support/records.h"
#include "support/windowundertest.h"

#include <QAction>
#include <QLineEdit>
#include <QSemaphore>
#include <QTemporaryDir>

#include <atomic>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace files;
using namespace records;

namespace {

/// Opens the other end of a pipe after 20 s, for a window that waits there: the test fails then,
/// but it ends.
class PipeRescue
{
public:
    explicit PipeRescue(const QString &path)
        : m_thread([this, path] {
            if (m_over.tryAcquire(1, 20000))
                return;
            m_needed = true;
            const int pipe = ::open(qPrintable(path), O_RDWR | O_NONBLOCK);
            m_over.acquire();
            ::close(pipe);
        })
    {
    }
    PipeRescue(const PipeRescue &) = delete;
    PipeRescue &operator=(const PipeRescue &) = delete;
    ~PipeRescue()
    {
        m_over.release();
        m_thread.join();
    }
    bool needed() const { return m_needed; }

private:
    QSemaphore m_over;
    std::atomic<bool> m_needed{false};
    std::thread m_thread;
};

/// A record that fills the frame skip with `frameSkip`.
QByteArray recordWith(quint32 frameSkip)
{
    QByteArray record = blendZoom();
    put<quint32>(record, 87, frameSkip);
    return sealed(record);
}

} // namespace

class TestMainWindowFilePaths : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString path(const char *name) const { return m_dir.filePath(QString::fromLatin1(name)); }

    static struct stat statusOf(const QString &path)
    {
        struct stat status = {};
        if (::lstat(qPrintable(path), &status) != 0)
            qFatal("no file %s", qPrintable(path));
        return status;
    }

    /// Runs `action` and chooses `path`, then calls `before` ahead of what the window does with
    /// it. Questions of the dialog itself are answered with Yes. True if the dialog was accepted.
    static bool choose(
        WindowUnderTest &tool, const char *action, const QString &path,
        const std::function<void()> &before = [] {})
    {
        bool accepted = false;
        QTimer yes;
        connect(&yes, &QTimer::timeout, [] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (box && qobject_cast<QFileDialog *>(box->parentWidget()))
                box->button(QMessageBox::Yes)->click();
        });
        yes.start(5);
        modal::Answer<QFileDialog> answer([&](QFileDialog *dialog) {
            connect(dialog, &QDialog::accepted, [&] { accepted = true; });
            modal::choose(path)(dialog);
            before();
        });
        tool.get<QAction>(action)->trigger();
        return accepted;
    }

private slots:
    void initTestCase()
    {
        modal::useQtDialogs();
        QVERIFY(m_dir.isValid());
    }

    void cleanup()
    {
        for (const QString &name : QDir(m_dir.path()).entryList(QDir::Files | QDir::System))
            QVERIFY(QFile::remove(m_dir.filePath(name)));
    }

    // Loading

    void fileThatCannotBeReadIsLeftSilently_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("gone since it was chosen") << path("gone.bin");
        QTest::newRow("without a reader, even for root") << "/sys/bus/cpu/drivers_probe";
        QTest::newRow("pipe") << path("pipe");
        QTest::newRow("device") << "/dev/zero";
    }

    void fileThatCannotBeReadIsLeftSilently()
    {
        QFETCH(QString, file);
        if (file == path("gone.bin"))
            write(file, recordWith(4711));
        else if (file == path("pipe"))
            QCOMPARE(::mkfifo(qPrintable(file), 0600), 0);
        else if (!QFile::exists(file))
            QSKIP("there is no such file here");
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(tool.connectTo(camera.path()));
        QVERIFY(tool.chooseModel(keyBlendZoom));
        // The check of the identity request comes before the file.
        QTRY_VERIFY(lines.err().endsWith("Message was not send\n"));
        tool.get<QLineEdit>("leFrameSkip")->setText("55");
        lines.clear();
        std::unique_ptr<PipeRescue> rescue;
        const bool accepted = choose(tool, "actionOpen", file, [&] {
            QFile::remove(path("gone.bin"));
            if (file == path("pipe"))
                rescue = std::make_unique<PipeRescue>(file);
        });
        QVERIFY(accepted);
        QVERIFY(!rescue || !rescue->needed());
        QCOMPARE(lines.out(), QString());
        QCOMPARE(lines.err(), QString());
        QCOMPARE(tool.get<QPushButton>("btConnectDisconnect")->text(),
                 QStringLiteral("Disconnect"));
        QCOMPARE(tool.get<QLineEdit>("leFrameSkip")->text(), QStringLiteral("55"));
    }

    void bytesAfterTheRecordAreIgnored_data()
    {
        QTest::addColumn<int>("more");
        QTest::newRow("some") << 777;
        QTest::newRow("more than 64 KiB") << 0x10000;
        QTest::newRow("a megabyte") << 0x100000;
    }

    void bytesAfterTheRecordAreIgnored()
    {
        QFETCH(int, more);
        CapturedDiagnostics lines;
        const QString file = path("long.bin");
        write(file, recordWith(4711) + QByteArray(more, '\xA5'));
        WindowUnderTest tool;
        QVERIFY(choose(tool, "actionOpen", file));
        QCOMPARE(tool.get<QLineEdit>("leFrameSkip")->text(), QStringLiteral("4711"));
        QCOMPARE(lines.out(), QString());
        QVERIFY(!lines.err().contains("not a valid struct"));
    }

    // Saving

    void fileThatCannotBeWrittenIsLeftSilently_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::addColumn<QString>("file");
        const std::pair<const char *, QString> files[] = {
            {"below a file", path("plain") + "/below.bin"},
            {"in no folder", path("none") + "/below.bin"},
            {"pipe", path("pipe")},
            {"device", "/dev/full"},
        };
        for (const auto &[name, file] : files) {
            QTest::addRow("%s, no model", name) << 0U << file;
            QTest::addRow("%s, Blend", name) << keyBlend << file;
        }
    }

    void fileThatCannotBeWrittenIsLeftSilently()
    {
        QFETCH(quint32, key);
        QFETCH(QString, file);
        write(path("plain"), "x");
        if (file == path("pipe"))
            QCOMPARE(::mkfifo(qPrintable(file), 0600), 0);
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(tool.connectTo(camera.path()));
        QVERIFY(key == 0 || tool.chooseModel(key));
        QTRY_VERIFY(lines.err().endsWith("Message was not send\n"));
        tool.get<QLineEdit>("leFrameSkip")->setText("55");
        lines.clear();
        std::unique_ptr<PipeRescue> rescue;
        const bool accepted = choose(tool, "actionSave", file, [&] {
            if (file == path("pipe"))
                rescue = std::make_unique<PipeRescue>(file);
        });
        QVERIFY(accepted);
        QVERIFY(!rescue || !rescue->needed());
        QCOMPARE(lines.out(), QString());
        QCOMPARE(lines.err(), QString());
        QCOMPARE(contentOf(path("plain")), QByteArray("x"));
        QCOMPARE(tool.get<QPushButton>("btConnectDisconnect")->text(),
                 QStringLiteral("Disconnect"));
        QCOMPARE(tool.get<QLineEdit>("leFrameSkip")->text(), QStringLiteral("55"));
    }

    void savingWithoutARecordEmptiesAnExistingFile_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::newRow("no model") << 0U;
        QTest::newRow("2.0") << key20;
    }

    void savingWithoutARecordEmptiesAnExistingFile()
    {
        QFETCH(quint32, key);
        const QString file = path("full.bin");
        write(file, QByteArray(1000, 'x'));
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        if (key)
            tool.chooseModel(key);
        lines.clear();
        QVERIFY(choose(tool, "actionSave", file));
        QCOMPARE(lines.err(), QStringLiteral("<<< not implemeted\n"));
        QCOMPARE(lines.out(), QString());
        QVERIFY(QFile::exists(file));
        QCOMPARE(contentOf(file), QByteArray());
    }

    void savingWritesThroughTheChosenFile()
    {
        const QString file = path("chosen.bin");
        const QString hardLink = path("hard.bin");
        const QString symbolicLink = path("symbolic.bin");
        write(file, QByteArray(1000, 'x'));
        QCOMPARE(::link(qPrintable(file), qPrintable(hardLink)), 0);
        QVERIFY(QFile::link(file, symbolicLink));
        QCOMPARE(::chmod(qPrintable(file), 0620), 0);
        if (::geteuid() == 0)
            QCOMPARE(::chown(qPrintable(file), 12345, 54321), 0);
        const struct stat before = statusOf(file);

        CapturedDiagnostics lines;
        WindowUnderTest tool;
        QVERIFY(tool.chooseModel(keyBlend));
        for (const QString &name : {file, symbolicLink}) {
            write(file, QByteArray(1000, 'x'));
            QVERIFY(choose(tool, "actionSave", name));
            const QByteArray saved = contentOf(hardLink);
            QCOMPARE(saved.size(), 207);
            QCOMPARE(saved, sealed(saved));
            const struct stat after = statusOf(file);
            QCOMPARE(after.st_ino, before.st_ino);
            QCOMPARE(after.st_nlink, before.st_nlink);
            QCOMPARE(after.st_mode, before.st_mode);
            QCOMPARE(after.st_uid, before.st_uid);
            QCOMPARE(after.st_gid, before.st_gid);
            QVERIFY(QFileInfo(symbolicLink).isSymLink());
        }
        // Nothing is left beside it.
        QCOMPARE(QDir(m_dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 (QStringList{"chosen.bin", "hard.bin", "symbolic.bin"}));
    }
};

QTEST_MAIN(TestMainWindowFilePaths)
#include "tst_mainwindow_filepaths.moc"
