#include "diagnostics/diagnostics.h"

#include <QProcess>
#include <QTest>

class TestDiagnostics : public QObject
{
    Q_OBJECT

private slots:
    void linesGoToTheirOwnStream()
    {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--write")});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.readAllStandardOutput(), QByteArray("first\nno end, second \xC2\xB0\n\n"));
        QCOMPARE(process.readAllStandardError(), QByteArray("wrong\n"));
    }

    void sinkReplacesTheStreamsUntilItIsRemoved()
    {
        QString out;
        QString err;
        diagnostics::setSink([&](diagnostics::Stream stream, const QString &text) {
            (stream == diagnostics::Stream::Out ? out : err) += text;
        });
        diagnostics::out(QStringLiteral("a"));
        diagnostics::outUnterminated(QStringLiteral("b"));
        diagnostics::err(QStringLiteral("c"));
        diagnostics::setSink({});
        QCOMPARE(out, QStringLiteral("a\nb"));
        QCOMPARE(err, QStringLiteral("c\n"));
    }
};

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (argc > 1 && QByteArray(argv[1]) == "--write") {
        diagnostics::out(QStringLiteral("first"));
        diagnostics::outUnterminated(QStringLiteral("no end, "));
        diagnostics::err(QStringLiteral("wrong"));
        diagnostics::out(QStringLiteral("second \u00B0"));
        diagnostics::out(QString());
        return 0;
    }
    TestDiagnostics test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_diagnostics.moc"
