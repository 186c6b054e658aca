#include "diagnostics/diagnostics.h"

#include <QProcess>
#include <QTest>

#include <cstdio>

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

    void everyTextIsOutBeforeTheProgramGoesOn()
    {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--step")});
        // The program takes each step only when it is told to.
        for (const QByteArray &text :
             {QByteArray("line\n"), QByteArray("no end"), QByteArray("\n")}) {
            QByteArray arrived;
            while (arrived.size() < text.size() && process.waitForReadyRead(10000))
                arrived += process.readAllStandardOutput();
            QCOMPARE(arrived, text);
            QCOMPARE(process.write("."), qint64(1));
        }
        process.setReadChannel(QProcess::StandardError);
        QVERIFY(process.bytesAvailable() > 0 || process.waitForReadyRead(10000));
        QCOMPARE(process.readAllStandardError(), QByteArray("wrong\n"));
        process.write(".");
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.readAllStandardOutput(), QByteArray());
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
    if (argc > 1 && QByteArray(argv[1]) == "--step") {
        diagnostics::out(QStringLiteral("line"));
        std::getchar();
        diagnostics::outUnterminated(QStringLiteral("no end"));
        std::getchar();
        diagnostics::out(QString());
        std::getchar();
        diagnostics::err(QStringLiteral("wrong"));
        std::getchar();
        return 0;
    }
    TestDiagnostics test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_diagnostics.moc"
