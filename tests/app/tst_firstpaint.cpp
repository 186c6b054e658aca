// What the program leaves for the time after its window is first painted.

#include <QProcess>
#include <QTest>

class TestFirstPaint : public QObject
{
    Q_OBJECT

private slots:
    void indicatorIsLoadedAfterIt()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_PLUGIN_PATH", PLUGINS);
        environment.insert("QT_QPA_GENERIC_PLUGINS", "firstpaintwitness");
        QProcess tool;
        tool.setProcessEnvironment(environment);
        tool.start(QStringLiteral(BIN_DIR "/quorvix-config"), QStringList());
        if (!tool.waitForFinished(30000)) {
            tool.kill();
            tool.waitForFinished();
        }
        QCOMPARE(tool.exitStatus(), QProcess::NormalExit);
        QCOMPARE(tool.readAllStandardOutput(), QByteArray("before: 0 of 1\nlater: 1 of 1\n"));
        QCOMPARE(tool.exitCode(), 0);
    }
};

QTEST_GUILESS_MAIN(TestFirstPaint)
#include "tst_firstpaint.moc"
