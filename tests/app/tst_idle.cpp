// The program in an idle hour: it looks for ports twice a second and must not be noticed.

#include <QFile>
#include <QProcess>
#include <QtTest>

#include <algorithm>
#include <unistd.h>

namespace {

constexpr double mostUsed = 0.005; ///< of a core

/// Seconds of processor time that a process has used: utime and stime, the fields 14 and 15.
double processorTimeOf(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    // The name in parentheses, field 2, may hold blanks.
    const QByteArray stat = file.readAll();
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    return double(fields.value(11).toLongLong() + fields.value(12).toLongLong()) /
           double(sysconf(_SC_CLK_TCK));
}

} // namespace

class TestIdle : public QObject
{
    Q_OBJECT

private slots:
    void windowTakesHalfAPercentOfACoreAtMost()
    {
        QProcess tool;
        tool.setProcessChannelMode(QProcess::MergedChannels);
        tool.start(QStringLiteral(BIN_DIR "/quorvix-config"), QStringList());
        QVERIFY(tool.waitForStarted());
        const auto usedIn = [&](int milliseconds) {
            const double before = processorTimeOf(tool.processId());
            QTest::qWait(milliseconds);
            return processorTimeOf(tool.processId()) - before;
        };
        usedIn(10000); // the start, and the closer looks at the ports after it
        // Longer than the time between two looks that are always taken. What else the machine does
        // may disturb one of two.
        constexpr int seconds = 35;
        double used = usedIn(seconds * 1000) / seconds;
        if (used > mostUsed)
            used = std::min(used, usedIn(seconds * 1000) / seconds);
        const double started = processorTimeOf(tool.processId());
        const bool running = tool.state() == QProcess::Running;
        tool.terminate();
        if (!tool.waitForFinished(10000))
            tool.kill();
        tool.waitForFinished();
        QVERIFY(running);
        QVERIFY2(started > 0.02, qPrintable(QString::number(started)));
        QVERIFY2(used <= mostUsed, qPrintable(QString::number(used)));
    }
};

QTEST_GUILESS_MAIN(TestIdle)
#include "tst_idle.moc"
