#include "diagnostics/escaped.h"

#include <QTest>

class TestEscaped : public QObject
{
    Q_OBJECT

private slots:
    void printableTextStaysAsItIs_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("ASCII") << " 1701234 ~\\x0a<b>&amp;%1";
        QTest::newRow("Latin-1") << QStringLiteral("\u00a0\u00ad\u00e4\u00ff");
        QTest::newRow("beyond") << QStringLiteral("/m\u00fcnchen/\u65e5\u672c \U0001F4F7");
    }
    void printableTextStaysAsItIs()
    {
        QFETCH(QString, text);
        QCOMPARE(diagnostics::escaped(text), text);
    }

    void controlCharactersAreSpelt_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("line");
        QTest::newRow("line feed") << "a\nb"
                                   << "a\\x0ab";
        QTest::newRow("carriage return") << "a\r"
                                         << "a\\x0d";
        QTest::newRow("escape") << "\x1b[2J"
                                << "\\x1b[2J";
        QTest::newRow("zero") << QString(QChar('\0')) << "\\x00";
        QTest::newRow("delete") << "\x7f"
                                << "\\x7f";
        QTest::newRow("C1 next line") << QStringLiteral("\u0085") << "\\x85";
        QTest::newRow("C1 control sequence") << QStringLiteral("\u009b31m") << "\\x9b31m";
        QTest::newRow("line separator") << QStringLiteral("a\u2028b\u2029") << "a\\u2028b\\u2029";
    }
    void controlCharactersAreSpelt()
    {
        QFETCH(QString, text);
        QFETCH(QString, line);
        QCOMPARE(diagnostics::escaped(text), line);
    }
};

QTEST_APPLESS_MAIN(TestEscaped)
#include "tst_escaped.moc"
