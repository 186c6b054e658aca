// The tool while its line is as full as USB can make it. The figures are printed, not judged: how
// long the event loop stalls is a matter of the machine. That nothing is lost is not.

#include "support/eventloop.h"
#include "support/heartbeat.h"
#include "support/loadedline.h"
#include "support/windowundertest.h"

#include "diagnostics/diagnostics.h"

#include <QPlainTextEdit>
#include <QTextBlock>

namespace {

constexpr int patience = 60000; // ms

} // namespace

class TestLoad : public QObject
{
    Q_OBJECT

private slots:
    void everyValidMessageArrivesInOrder_data()
    {
        QTest::addColumn<int>("rate"); // bytes a second
        QTest::newRow("1 MB/s") << 1000000;
        QTest::newRow("4 MB/s") << 4000000;
    }
    void everyValidMessageArrivesInOrder()
    {
        QFETCH(int, rate);
        // Each message taken ends with an empty line; a frame with a wrong checksum is one, too.
        int taken = 0;
        int damaged = 0;
        diagnostics::setSink([&](diagnostics::Stream, const QString &text) {
            taken += text == QLatin1String("\n");
            damaged += text.contains(QLatin1String("CRC invalid"));
        });
        PseudoTerminal camera;
        WindowUnderTest tool;
        tool.window.show();
        QVERIFY(tool.connectTo(camera.path()));

        auto *view = tool.get<QPlainTextEdit>("pteGPSstream");
        int expected = 0;
        int outOfOrder = 0;
        QObject::connect(view, &QPlainTextEdit::textChanged, view, [&] {
            outOfOrder += view->document()->lastBlock().text().trimmed().toInt() != expected;
            ++expected;
        });

        LoadedLine line(camera, rate, 3);
        Heartbeat heartbeat;
        line.start();
        QVERIFY(turnEventLoopUntil([&] { return line.isDone(); }, patience));
        line.wait();
        const double gap = heartbeat.longestGap();
        const int beats = heartbeat.beats();
        QVERIFY(!line.isBroken());

        QTRY_COMPARE_WITH_TIMEOUT(expected, line.lines(), patience);
        QCOMPARE(outOfOrder, 0);
        QCOMPARE(taken - damaged, line.validFrames());
        QVERIFY(damaged > 0);

        std::printf(
            "%s: %.2f MB/s for %.1f s, %d valid frames and %d pieces that are none; longest "
            "stall of the event loop %.1f ms, %d beats of 1 ms\n",
            QTest::currentDataTag(), double(line.bytes()) / 1e6 / line.seconds(), line.seconds(),
            line.validFrames(), line.invalidPieces(), gap, beats);
        diagnostics::setSink({});
    }
};

QTEST_MAIN(TestLoad)
#include "tst_load.moc"
