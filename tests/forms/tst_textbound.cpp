#include "forms/textbound.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>

class TestTextBound : public QObject
{
    Q_OBJECT

private slots:
    void shortTextStaysWhole()
    {
        QPlainTextEdit box;
        textbound::append(&box, "one", 20);
        textbound::append(&box, QString(), 20);
        textbound::append(&box, "three", 20);
        QCOMPARE(box.toPlainText(), QStringLiteral("one\n\nthree"));
    }

    void oldestLinesGoWhole()
    {
        QPlainTextEdit box;
        for (const char *line : {"aaaa", "bbbb", "cccc", "dddd"}) // five characters a line
            textbound::append(&box, line, 14);
        QCOMPARE(box.toPlainText(), QStringLiteral("bbbb\ncccc\ndddd"));
        textbound::append(&box, "e", 14); // one too many: a whole line goes
        QCOMPARE(box.toPlainText(), QStringLiteral("cccc\ndddd\ne"));
    }

    void newestStaysWholeWhateverItsLength()
    {
        QPlainTextEdit box;
        textbound::append(&box, "before", 10);
        textbound::append(&box, QString(50, 'x'), 10);
        QCOMPARE(box.toPlainText(), QString(50, 'x'));
        textbound::append(&box, "0123456789\n0123456789", 10);
        QCOMPARE(box.toPlainText(), QStringLiteral("0123456789\n0123456789"));
        textbound::append(&box, "z", 10);
        QCOMPARE(box.toPlainText(), QStringLiteral("z"));
    }

    void limitOfLinesHolds()
    {
        QPlainTextEdit box;
        box.setMaximumBlockCount(2);
        for (const char *line : {"a", "b", "c"})
            textbound::append(&box, line, 100);
        QCOMPARE(box.toPlainText(), QStringLiteral("b\nc"));
    }

    void endStaysInView()
    {
        QPlainTextEdit box;
        box.resize(200, 100);
        box.show();
        for (int line = 0; line < 200; ++line)
            textbound::append(&box, QString::number(line), 100);
        QVERIFY(box.verticalScrollBar()->maximum() > 0);
        QCOMPARE(box.verticalScrollBar()->value(), box.verticalScrollBar()->maximum());
    }
};

QTEST_MAIN(TestTextBound)
#include "tst_textbound.moc"
