// The program's streams when nobody reads them: each test runs this program as a writer at the
// other end of a pipe.

#include "diagnostics/diagnostics.h"
#include "diagnostics/process.h"
#include "support/unreadpipe.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <fcntl.h>
#include <map>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int ManyLines = 20000; // some three times what a pipe holds, less than what may wait
constexpr int TooManyLines = 200000;

QString line(int number)
{
    return QStringLiteral("line %1").arg(number);
}

QByteArray lines(int first, int end)
{
    QByteArray text;
    for (int i = first; i < end; ++i)
        text += line(i).toUtf8() + '\n';
    return text;
}

void writeLines(int count)
{
    for (int i = 0; i < count; ++i)
        diagnostics::out(line(i));
}

/// Waits for a word from the test.
void waitForWord()
{
    std::getchar();
}

/// Tells the test something, by standard error.
void tell(const char *word)
{
    std::fprintf(stderr, "%s\n", word);
}

void goOn()
{
    writeLines(ManyLines);
    tell("written");
    waitForWord();
}

void writeAndEnd()
{
    writeLines(ManyLines);
    tell("written");
}

void writeBothWays()
{
    for (int i = 0; i < ManyLines; ++i)
        (i % 2 ? diagnostics::err : diagnostics::out)(line(i));
}

void keepMode()
{
    writeLines(ManyLines);
    tell(fcntl(STDOUT_FILENO, F_GETFL) & O_NONBLOCK ? "changed" : "kept");
}

void turnEventLoop()
{
    writeLines(ManyLines);
    tell("written");
    QCoreApplication::exec(); // until it is killed
}

void writeTooMuch()
{
    writeLines(TooManyLines);
    tell("written");
    waitForWord();
}

void writeWithoutReader()
{
    process::surviveFailedWrites();
    tell("ready");
    waitForWord();
    writeLines(10);
    tell("alive");
}

void meetTheLimit()
{
    process::surviveFailedWrites();
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit narrow{20, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &narrow);
    writeLines(5); // two and a half find room
    setrlimit(RLIMIT_FSIZE, &limit);
    diagnostics::out(QStringLiteral("room again"));
}

void speakForTheToolkit()
{
    diagnostics::takeToolkitMessages();
    for (int i = 0; i < ManyLines; ++i)
        qWarning("line %d", i);
    std::puts("written");
    std::fflush(stdout);
    waitForWord();
}

void openAFile()
{
    QFile file(QCoreApplication::arguments().constLast());
    if (!file.open(QIODevice::WriteOnly))
        return;
    diagnostics::out(QStringLiteral("to nobody"));
    diagnostics::err(QStringLiteral("to nobody"));
    file.write("intact");
}

const std::map<QByteArray, void (*)()> modes = {
    {"--go-on", goOn},
    {"--write-and-end", writeAndEnd},
    {"--both-ways", writeBothWays},
    {"--keep-mode", keepMode},
    {"--event-loop", turnEventLoop},
    {"--too-much", writeTooMuch},
    {"--without-reader", writeWithoutReader},
    {"--limit", meetTheLimit},
    {"--toolkit", speakForTheToolkit},
    {"--open-a-file", openAFile},
};

constexpr char Output[] = ">\"$2\"";
constexpr char Errors[] = "2>\"$2\"";
constexpr char Both[] = ">\"$2\" 2>&1";

/// This program as a writer into a pipe that the test reads when it likes. The other stream tells
/// the test something.
class Writer
{
public:
    explicit Writer(const QString &mode, const char *redirection = Output)
    {
        const QString path = m_folder.filePath("pipe");
        mkfifo(qPrintable(path), 0600);
        m_reader = open(qPrintable(path), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        const QString command = QStringLiteral("exec \"$0\" \"$1\" ") + redirection;
        process.setReadChannel(redirection == Errors ? QProcess::StandardOutput
                                                     : QProcess::StandardError);
        process.start("sh", {"-c", command, QCoreApplication::applicationFilePath(), mode, path});
    }
    ~Writer()
    {
        hangUp();
        process.kill();
        process.waitForFinished();
    }
    Writer(const Writer &) = delete;
    Writer &operator=(const Writer &) = delete;

    /// The next word on the other stream.
    QByteArray told()
    {
        while (!process.canReadLine())
            if (!process.waitForReadyRead(30000))
                return "nothing";
        return process.readLine().trimmed();
    }
    /// What is in the pipe by now.
    const QByteArray &read()
    {
        char buffer[65536];
        for (ssize_t size; (size = ::read(m_reader, buffer, sizeof buffer)) > 0;)
            m_text.append(buffer, int(size));
        return m_text;
    }
    QByteArray readToTheEnd()
    {
        while (process.state() != QProcess::NotRunning) {
            process.waitForFinished(5);
            read();
        }
        return read();
    }
    void hangUp()
    {
        if (m_reader >= 0)
            ::close(m_reader);
        m_reader = -1;
    }

    QProcess process;

private:
    QTemporaryDir m_folder;
    int m_reader = -1;
    QByteArray m_text;
};

} // namespace

class TestStandardStreams : public QObject
{
    Q_OBJECT

private slots:
    void pipeThatNobodyReadsHaltsNothing()
    {
        Writer writer("--go-on");
        QCOMPARE(writer.told(), QByteArray("written"));
        writer.process.write(".");
        QCOMPARE(writer.readToTheEnd(), lines(0, ManyLines));
        QCOMPARE(writer.process.exitCode(), 0);
    }

    void slowReaderHoldsUpNoEnd()
    {
        UnreadPipe pipe;
        QProcess process;
        process.start("sh", {"-c", "exec \"$0\" --write-and-end >\"$1\"",
                             QCoreApplication::applicationFilePath(), pipe.path()});
        process.setReadChannel(QProcess::StandardError);
        QVERIFY(process.waitForReadyRead(30000)); // written
        QElapsedTimer time;
        time.start();
        // More than 40 pages wait.
        while (!process.waitForFinished(500) && time.elapsed() < 30000)
            pipe.readPage();
        QCOMPARE(process.state(), QProcess::NotRunning);
        QCOMPARE(process.exitCode(), 0);
        QVERIFY2(time.elapsed() < 8000, qPrintable(QString::number(time.elapsed())));
    }

    void whatWaitsIsWrittenOnceSomebodyReads()
    {
        Writer writer("--event-loop");
        QCOMPARE(writer.told(), QByteArray("written"));
        const int size = lines(0, ManyLines).size();
        QTRY_VERIFY_WITH_TIMEOUT(writer.read().size() >= size, 30000);
        QCOMPARE(writer.read(), lines(0, ManyLines));
        QCOMPARE(writer.process.state(), QProcess::Running);
    }

    void orderOfBothStreamsInOnePipeIsKept()
    {
        Writer writer("--both-ways", Both);
        QCOMPARE(writer.readToTheEnd(), lines(0, ManyLines));
    }

    void modeOfAPipeThatOthersShareIsKept()
    {
        Writer writer("--keep-mode");
        QCOMPARE(writer.told(), QByteArray("kept"));
    }

    void whatFindsNoRoomIsToldInItsPlace()
    {
        Writer writer("--too-much");
        QCOMPARE(writer.told(), QByteArray("written"));
        writer.process.write(".");
        const QByteArray text = writer.readToTheEnd();
        const int notice = text.indexOf("<<< ");
        QVERIFY(notice > 0);
        const QByteArray kept = text.left(notice);
        const int count = kept.count('\n');
        QVERIFY(kept.size() > 1000000); // bytes
        QCOMPARE(kept, lines(0, count));
        QCOMPARE(text.mid(notice), "<<< " + QByteArray::number(TooManyLines - count) +
                                       " messages of this stream are lost\n");
    }

    void readerThatIsGoneEndsNothing()
    {
        Writer writer("--without-reader");
        QCOMPARE(writer.told(), QByteArray("ready"));
        writer.hangUp();
        writer.process.write(".");
        QCOMPARE(writer.told(), QByteArray("alive"));
        QVERIFY(writer.process.waitForFinished());
        QCOMPARE(writer.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(writer.process.exitCode(), 0);
    }

    void fileAtItsLimitEndsNothing()
    {
        QTemporaryDir folder;
        QProcess process;
        process.setStandardOutputFile(folder.filePath("text"));
        process.start(QCoreApplication::applicationFilePath(), {"--limit"});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QFile file(folder.filePath("text"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(),
                 QByteArray("line 0\nline 1\nline 2"
                            "\n<<< 3 messages of this stream are lost\nroom again\n"));
    }

    void messagesOfTheToolkitWaitLikewise()
    {
        Writer writer("--toolkit", Errors);
        QCOMPARE(writer.told(), QByteArray("written"));
        writer.process.write(".");
        QCOMPARE(writer.readToTheEnd(), lines(0, ManyLines));
    }

    void closedStreamsAreNotGivenToAFile()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("file");
        QProcess process;
        process.start("sh", {"-c", "exec \"$0\" --open-a-file \"$1\" <&- >&- 2>&-",
                             QCoreApplication::applicationFilePath(), path});
        QVERIFY(process.waitForFinished());
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("intact"));
    }
};

int main(int argc, char *argv[])
{
    const auto mode = argc > 1 ? modes.find(argv[1]) : modes.end();
    if (mode == modes.end()) {
        QCoreApplication application(argc, argv);
        TestStandardStreams test;
        return QTest::qExec(&test, argc, argv);
    }
    if (mode->second == openAFile)
        process::completeStandardStreams(); // before the application opens anything
    QCoreApplication application(argc, argv);
    mode->second();
    return 0;
}

#include "tst_standardstreams.moc"
