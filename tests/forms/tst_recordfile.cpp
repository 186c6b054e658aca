#include "forms/recordfile.h"
#include "support/files.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using files::contentOf;
using End = recordfile::Writing::End;

namespace {

const QString writeOption = QStringLiteral("--write");

/// No file may grow beyond `bytes`, as on a full disk.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        m_signal = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }

private:
    rlimit m_before = {};
    void (*m_signal)(int);
};

/// The superuser may do all: files are written as somebody else then.
class Unprivileged
{
public:
    Unprivileged() : m_user(geteuid())
    {
        if (m_user == 0 && seteuid(65534) != 0)
            qFatal("cannot become another user");
    }
    Unprivileged(const Unprivileged &) = delete;
    Unprivileged &operator=(const Unprivileged &) = delete;
    ~Unprivileged()
    {
        if (seteuid(m_user) != 0)
            qFatal("cannot become the user again");
    }

private:
    uid_t m_user;
};

struct stat statusOf(const QString &path)
{
    struct stat status = {};
    if (lstat(qPrintable(path), &status) != 0)
        qFatal("no file %s", qPrintable(path));
    return status;
}

} // namespace

/// How record files are written: what they held stays until the new bytes are safe, and a file
/// stays what it was in everything but its bytes.
class TestRecordFile : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;
    const QByteArray m_old = QByteArray(1000, 'o');
    const QByteArray m_new = QByteArray(416, 'n');

    QString path(const char *name = "file.bin") const
    {
        return m_dir->filePath(QString::fromLatin1(name));
    }
    QStringList names() const
    {
        return QDir(m_dir->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    recordfile::Writing write(const QString &path)
    {
        return recordfile::write(path, [this] { return m_new; });
    }

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
        QCOMPARE(::chmod(qPrintable(m_dir->path()), 0777), 0);
    }

    void newFileHoldsTheBytes()
    {
        const recordfile::Writing writing = write(path());
        QCOMPARE(writing.end, End::Complete);
        QCOMPARE(contentOf(path()), m_new);
        QCOMPARE(names(), QStringList{"file.bin"});
        const mode_t mask = ::umask(0);
        ::umask(mask);
        QCOMPARE(statusOf(path()).st_mode & 07777, mode_t(0666 & ~mask));
        QCOMPARE(recordfile::failure(writing, path()), QString());
    }

    void regularFileIsReplacedAndKeepsItsRights_data()
    {
        QTest::addColumn<uint>("mode");
        for (const uint mode : {0600U, 0644U, 0664U, 0755U, 0200U})
            QTest::addRow("%o", mode) << mode;
    }

    void regularFileIsReplacedAndKeepsItsRights()
    {
        QFETCH(uint, mode);
        files::write(path(), m_old);
        QCOMPARE(::chmod(qPrintable(path()), mode), 0);
        if (geteuid() == 0)
            QCOMPARE(::chown(qPrintable(path()), uid_t(-1), 54321), 0);
        const struct stat before = statusOf(path());
        QCOMPARE(write(path()).end, End::Complete);
        const struct stat after = statusOf(path());
        QVERIFY(after.st_ino != before.st_ino);
        QCOMPARE(after.st_mode, before.st_mode);
        QCOMPARE(after.st_uid, before.st_uid);
        QCOMPARE(after.st_gid, before.st_gid);
        QCOMPARE(::chmod(qPrintable(path()), 0600), 0);
        QCOMPARE(contentOf(path()), m_new);
        QCOMPARE(names(), QStringList{"file.bin"});
    }

    void failedWriteKeepsTheEarlierContent()
    {
        files::write(path(), m_old);
        recordfile::Writing writing;
        {
            const FileSizeLimit full(100);
            writing = write(path());
        }
        QCOMPARE(writing.end, End::Unchanged);
        QCOMPARE(writing.reason, QString("File too large"));
        QCOMPARE(contentOf(path()), m_old);
        QCOMPARE(names(), QStringList{"file.bin"});
        QCOMPARE(recordfile::failure(writing, path()),
                 QString("Could not write file.bin whole: File too large. The file is as it was"));
    }

    void failedWriteLeavesNoPartOfANewFile()
    {
        recordfile::Writing writing;
        {
            const FileSizeLimit full(100);
            writing = write(path());
        }
        QCOMPARE(writing.end, End::Unchanged);
        QCOMPARE(names(), QStringList());
        QCOMPARE(recordfile::failure(writing, path()),
                 QString("Could not write file.bin whole: File too large. There is no such file"));
    }

    void whatIsMoreThanAPlainFileIsWrittenThrough_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char *kind : {"symbolic link", "hard link", "attribute"})
            QTest::newRow(kind) << QString(kind);
        if (geteuid() == 0) // nobody else may give a file away
            QTest::newRow("other owner") << "other owner";
    }

    void whatIsMoreThanAPlainFileIsWrittenThrough()
    {
        QFETCH(QString, kind);
        QString target = path();
        files::write(target, m_old);
        if (kind == "symbolic link") {
            QVERIFY(QFile::link(target, path("link.bin")));
            target = path("link.bin");
        } else if (kind == "hard link") {
            QCOMPARE(::link(qPrintable(target), qPrintable(path("link.bin"))), 0);
        } else if (kind == "other owner") {
            QCOMPARE(::chown(qPrintable(target), 12345, 54321), 0);
        } else if (::setxattr(qPrintable(target), "user.comment", "x", 1, 0) != 0) {
            QSKIP("no attributes on this file system");
        }
        const QStringList before = names();
        const struct stat file = statusOf(path());
        QCOMPARE(write(target).end, End::Complete);
        QCOMPARE(contentOf(path()), m_new);
        QCOMPARE(statusOf(path()).st_ino, file.st_ino);
        QCOMPARE(statusOf(path()).st_nlink, file.st_nlink);
        QCOMPARE(statusOf(path()).st_uid, file.st_uid);
        QCOMPARE(names(), before);

        recordfile::Writing writing;
        {
            const FileSizeLimit full(100);
            writing = write(target);
        }
        QCOMPARE(writing.end, End::Incomplete);
        QVERIFY(recordfile::failure(writing, target).endsWith("What it held is lost"));
        QCOMPARE(names(), before);
    }

    void linkToNothingCreatesItsTarget()
    {
        QVERIFY(QFile::link(path(), path("link.bin")));
        QCOMPARE(write(path("link.bin")).end, End::Complete);
        QCOMPARE(contentOf(path()), m_new);
        QVERIFY(QFileInfo(path("link.bin")).isSymLink());
        QVERIFY(QFile::remove(path()));
        recordfile::Writing writing;
        {
            const FileSizeLimit full(100);
            writing = write(path("link.bin"));
        }
        QCOMPARE(writing.end, End::Incomplete);
        QCOMPARE(recordfile::failure(writing, path("link.bin")),
                 QString("Could not write link.bin whole: File too large. It holds a part only"));
    }

    void readOnlyFileIsNotReplaced()
    {
        recordfile::Writing writing;
        bool asked = false;
        {
            const Unprivileged user;
            files::write(path(), m_old);
            QCOMPARE(::chmod(qPrintable(path()), 0444), 0);
            writing = recordfile::write(path(), [&] {
                asked = true;
                return m_new;
            });
        }
        QCOMPARE(writing.end, End::NotOpened);
        QVERIFY(!asked);
        QCOMPARE(contentOf(path()), m_old);
        QCOMPARE(names(), QStringList{"file.bin"});
        QCOMPARE(recordfile::failure(writing, path()),
                 QString("Cannot save file.bin: Permission denied"));
    }

    void writableFileInAReadOnlyFolderIsWrittenThrough()
    {
        const Unprivileged user;
        const QString folder = path("folder");
        QVERIFY(QDir().mkdir(folder));
        const QString file = folder + "/file.bin";
        files::write(file, m_old);
        QCOMPARE(::chmod(qPrintable(folder), 0555), 0);
        QCOMPARE(write(file).end, End::Complete);
        QCOMPARE(contentOf(file), m_new);
        QCOMPARE(write(folder + "/other.bin").end, End::NotOpened);
        QCOMPARE(QDir(folder).entryList(QDir::Files | QDir::Hidden), QStringList{"file.bin"});
        QCOMPARE(::chmod(qPrintable(folder), 0755), 0);
    }

    void fileWhoseNameIsTakenForGoodIsWrittenThrough()
    {
        files::write(path(), m_old);
        files::write(path("below.bin"), m_old);
        // A file mounted over another cannot be replaced. Users may mount in a name space of their
        // own only, so a program of its own does all of it there.
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start("unshare", {"-rm", "sh", "-euc",
                                  "mount --bind \"$2\" \"$3\" && exec \"$0\" \"$1\" \"$3\"",
                                  QCoreApplication::applicationFilePath(), writeOption,
                                  path("below.bin"), path()});
        QVERIFY(process.waitForFinished());
        QVERIFY2(process.exitCode() == 0, process.readAll());
        QCOMPARE(contentOf(path("below.bin")), m_new);
        QCOMPARE(contentOf(path()), m_old);
        QCOMPARE(names(), (QStringList{"below.bin", "file.bin"}));
    }

    void fileInAFolderWithADefaultAccessListGetsNoMoreRights()
    {
        files::write(path(), m_old);
        QCOMPARE(::chmod(qPrintable(path()), 0640), 0);
        // Version 2; owner rwx, user 65534 rwx, group r-x, mask rwx, others none.
        const QByteArray list = QByteArray::fromHex("02000000"
                                                    "01000700ffffffff"
                                                    "02000700feff0000"
                                                    "04000500ffffffff"
                                                    "10000700ffffffff"
                                                    "20000000ffffffff");
        if (::setxattr(qPrintable(m_dir->path()), "system.posix_acl_default", list.constData(),
                       size_t(list.size()), 0) != 0)
            QSKIP("no access lists on this file system");
        QCOMPARE(write(path()).end, End::Complete);
        QCOMPARE(contentOf(path()), m_new);
        char names[100];
        QCOMPARE(int(::listxattr(qPrintable(path()), names, sizeof names)), 0);
        QCOMPARE(statusOf(path()).st_mode & 07777, mode_t(0640));
    }

    void emptyContentEmptiesTheFile()
    {
        files::write(path(), m_old);
        QCOMPARE(recordfile::write(path(), [] { return QByteArray(); }).end, End::Complete);
        QVERIFY(QFile::exists(path()));
        QCOMPARE(contentOf(path()), QByteArray());
    }

    void longestNameIsWritten()
    {
        const QString longest = m_dir->filePath(QString(255, 'x')); // none beside it is any longer
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(write(longest).end, End::Complete);
            QCOMPARE(contentOf(longest), m_new);
        }
        QCOMPARE(names(), QStringList{QString(255, 'x')});
    }

    void pipesFoldersAndMissingFoldersAreNotOpened()
    {
        QCOMPARE(::mkfifo(qPrintable(path("pipe")), 0600), 0);
        QVERIFY(QDir().mkdir(path("folder")));
        for (const QString &target : {path("pipe"), path("folder"), path("none") + "/file.bin"}) {
            const recordfile::Writing writing = write(target);
            QCOMPARE(writing.end, End::NotOpened);
            QVERIFY(!writing.reason.isEmpty());
        }
        QCOMPARE(names(), (QStringList{"folder", "pipe"}));
    }

    void fullDeviceIsReported()
    {
        if (!QFile::exists("/dev/full"))
            QSKIP("no /dev/full here");
        QVERIFY(QFile::link("/dev/full", path()));
        const recordfile::Writing writing = write(path());
        QCOMPARE(writing.end, End::Incomplete);
        QCOMPARE(writing.reason, QString("No space left on device"));
    }

    void readingTellsWhyNot()
    {
        QString reason;
        QVERIFY(!recordfile::read(path("none"), &reason));
        QCOMPARE(reason, QString("No such file or directory"));
        QVERIFY(!recordfile::read(m_dir->path(), &reason));
        QCOMPARE(reason, QString("not a regular file"));
        QVERIFY(!recordfile::read("/sys/class/net/lo/speed", &reason)); // has none
        QCOMPARE(reason, QString("Invalid argument"));
        files::write(path(), m_old);
        QCOMPARE(recordfile::read(path(), &reason).value_or(QByteArray()), m_old);
    }

    void shownNamesAreOneLine()
    {
        QCOMPARE(recordfile::shownName("/a/b/QXCONFIG.BIN"), QString("QXCONFIG.BIN"));
        QVERIFY(!recordfile::shownName("/a/two\nlines.bin").contains('\n'));
    }
};

int main(int argc, char *argv[])
{
    if (argc == 3 && QLatin1String(argv[1]) == writeOption) {
        int asked = 0;
        const recordfile::Writing writing = recordfile::write(QFile::decodeName(argv[2]), [&] {
            ++asked;
            return QByteArray(416, 'n');
        });
        return writing.end == End::Complete && asked == 1 ? 0 : 1;
    }
    QCoreApplication application(argc, argv);
    TestRecordFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_recordfile.moc"
