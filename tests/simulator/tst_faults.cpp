#include "simulator/FaultGenerator.h"
#include "simulator/Faults.h"

#include "support/wire.h"

#include <QtTest>

namespace {

Faults faults(const QStringList &texts)
{
    Faults result;
    for (const QString &text : texts) {
        const QString error = addFault(text, result);
        if (!error.isEmpty())
            QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    }
    return result;
}

QByteArray joined(const QVector<FaultGenerator::Piece> &pieces)
{
    QByteArray bytes;
    for (const auto &piece : pieces)
        bytes += piece.bytes;
    return bytes;
}

const QByteArray frame = wire::frame(202, QByteArray(224, '\x5A'));

} // namespace

class tst_Faults : public QObject
{
    Q_OBJECT

private slots:
    void changesNothingWithoutFaults()
    {
        FaultGenerator generator({}, 1);
        for (int i = 0; i < 100; ++i) {
            const auto pieces = generator.distort(frame);
            QCOMPARE(pieces.size(), 1);
            QCOMPARE(pieces.first().delay, 0);
            QCOMPARE(pieces.first().bytes, frame);
        }
    }

    void repeatsItselfForTheSameSeedOnly()
    {
        const Faults all = faults({"drop:0.01", "flip:0.02", "garbage:0.3", "truncate:0.2",
                                   "duplicate:0.2", "split:4", "storm"});
        FaultGenerator one(all, 7);
        FaultGenerator same(all, 7);
        FaultGenerator other(all, 8);
        QByteArray bytesOfOther;
        QByteArray bytesOfOne;
        for (int i = 0; i < 200; ++i) {
            const auto pieces = one.distort(frame);
            if (i % 3 == 0)
                same.stormFrame(); // comes by the clock and must not change the rest
            const auto again = same.distort(frame);
            QCOMPARE(again.size(), pieces.size());
            for (int k = 0; k < pieces.size(); ++k) {
                QCOMPARE(again.at(k).bytes, pieces.at(k).bytes);
                QCOMPARE(again.at(k).delay, pieces.at(k).delay);
            }
            bytesOfOne += joined(pieces);
            bytesOfOther += joined(other.distort(frame));
        }
        QVERIFY(bytesOfOne != bytesOfOther);
    }

    void dropsBytesWithTheGivenProbability()
    {
        FaultGenerator generator(faults({"drop:0.1"}), 3);
        int sent = 0;
        for (int i = 0; i < 200; ++i)
            sent += joined(generator.distort(frame)).size();
        const double lost = 1 - double(sent) / (200 * frame.size());
        QVERIFY2(lost > 0.09 && lost < 0.11, qPrintable(QString::number(lost)));

        FaultGenerator everything(faults({"drop:1"}), 3);
        QVERIFY(everything.distort(frame).isEmpty());
    }

    void turnsOneBitOfAByteWithTheGivenProbability()
    {
        FaultGenerator generator(faults({"flip:0.1"}), 3);
        int turned = 0;
        for (int i = 0; i < 200; ++i) {
            const QByteArray bytes = joined(generator.distort(frame));
            QCOMPARE(bytes.size(), frame.size());
            for (int k = 0; k < frame.size(); ++k) {
                const uint difference = uchar(bytes.at(k) ^ frame.at(k));
                QVERIFY(qPopulationCount(difference) <= 1);
                turned += difference != 0;
            }
        }
        const double share = double(turned) / (200 * frame.size());
        QVERIFY2(share > 0.09 && share < 0.11, qPrintable(QString::number(share)));
    }

    void putsGarbageBeforeFramesAndLeavesThemWhole()
    {
        FaultGenerator generator(faults({"garbage:0.5"}), 3);
        int dirty = 0;
        for (int i = 0; i < 200; ++i) {
            const QByteArray bytes = joined(generator.distort(frame));
            QVERIFY(bytes.endsWith(frame));
            dirty += bytes.size() > frame.size();
        }
        QVERIFY(dirty > 70 && dirty < 130);
    }

    void truncatesAndDuplicatesFrames()
    {
        FaultGenerator shortener(faults({"truncate:1"}), 3);
        FaultGenerator doubler(faults({"duplicate:1"}), 3);
        QSet<int> sizes;
        for (int i = 0; i < 100; ++i) {
            const QByteArray bytes = joined(shortener.distort(frame));
            QVERIFY(bytes.size() < frame.size());
            QVERIFY(frame.startsWith(bytes));
            sizes << bytes.size();
            QCOMPARE(joined(doubler.distort(frame)), frame + frame);
        }
        QVERIFY(sizes.size() > 20);
    }

    void splitsDelaysAndDribblesWithoutChangingBytes()
    {
        FaultGenerator splitter(faults({"split:5", "delay:70"}), 3);
        int parts = 0;
        for (int i = 0; i < 100; ++i) {
            const auto pieces = splitter.distort(frame);
            QCOMPARE(joined(pieces), frame);
            QVERIFY(pieces.size() <= 5);
            parts += pieces.size();
            QCOMPARE(pieces.first().delay, 70);
            for (int k = 1; k < pieces.size(); ++k)
                QVERIFY(pieces.at(k).delay > 0 && pieces.at(k).delay < 70);
        }
        QVERIFY(parts > 450);

        FaultGenerator dribbler(faults({"dribble:3"}), 3);
        const auto bytes = dribbler.distort(frame);
        QCOMPARE(bytes.size(), frame.size());
        QCOMPARE(joined(bytes), frame);
        QCOMPARE(bytes.at(1).delay, 3);
    }

    void mixesValidAndInvalidFramesInAStorm()
    {
        FaultGenerator generator(faults({"storm"}), 3);
        int valid = 0;
        QSet<quint32> commands;
        for (int i = 0; i < 1000; ++i) {
            QByteArray bytes = generator.stormFrame();
            QVERIFY(!bytes.isEmpty());
            const QByteArray whole = bytes;
            if (const auto message = wire::take(bytes); message && bytes.isEmpty()) {
                ++valid;
                commands << message->command;
                QVERIFY(message->command < 300);
                if (message->command == 223)
                    QCOMPARE(message->payload.size(), 32);
            }
            const int magic = whole.indexOf("KOVO");
            if (magic >= 0 && whole.size() >= magic + 8)
                QVERIFY(qFromBigEndian<quint32>(whole.constData() + magic + 4) >= 16);
        }
        QVERIFY(valid > 400 && valid < 600);
        QVERIFY(commands.contains(223) && commands.contains(226) && commands.contains(0));
        QVERIFY(!commands.contains(202) && !commands.contains(201));
    }

    void readsKindsAndValues()
    {
        const Faults read = faults({"drop:0.25", "split:7", "storm:5000", "reject:101",
                                    "reject:0x66", "silent:4294967295", "hangup:3", "delay"});
        QCOMPARE(read.drop, 0.25);
        QCOMPARE(read.split, 7);
        QCOMPARE(read.storm, 5000);
        QCOMPARE(read.reject, (QVector<quint32>{101, 102}));
        QCOMPARE(read.silent, (QVector<quint32>{0xFFFFFFFF}));
        QCOMPARE(read.hangup, 3);
        QVERIFY(read.delay > 0);
        QCOMPARE(read.flip, 0.0);
        QCOMPARE(read.dribble, 0);
    }

    void refusesOtherKindsAndValues_data()
    {
        QTest::addColumn<QString>("text");
        for (const char *text :
             {"", "quake", "Drop:0.1", "drop:", "drop:-0.1", "drop:1.01", "drop:nan", "drop:x",
              "split:0", "delay:-1", "delay:1.5", "hangup:0", "storm:0", "reject", "reject:x",
              "silent:-1", "silent:4294967296"})
            QTest::newRow(text) << text;
    }
    void refusesOtherKindsAndValues()
    {
        QFETCH(QString, text);
        Faults target;
        const QString error = addFault(text, target);
        QVERIFY(!error.isEmpty());
        QVERIFY(!error.contains('\n'));
    }
};

QTEST_GUILESS_MAIN(tst_Faults)
#include "tst_faults.moc"
