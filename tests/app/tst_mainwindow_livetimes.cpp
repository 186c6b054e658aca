#include "app/messageState.h"
#include "support/cameraend.h"
#include "support/captureddiagnostics.h"
#include "support/modal.h"
#include "support/records.h"
#include "support/windowundertest.h"

#include <QAction>
#include <QDateTime>
#include <QSlider>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>

#include <memory>

/// Live settings that a time holds back, or that a record schedules.
class TestMainWindowLiveTimes : public QObject
{
    Q_OBJECT

    static constexpr quint32 getConfig = 102;
    static constexpr quint32 liveSettings = 122;

    /// A Blend Zoom record whose focus, zoom or neither differ from the form's start values.
    static QByteArray record(quint16 focus, quint16 zoom)
    {
        QByteArray record = records::blendZoom();
        record[72] = 3; // vibration compensation off
        records::put<quint16>(record, 70, focus);
        records::put<quint16>(record, 76, quint16(zoom - 1));
        return records::sealed(record);
    }

    static void changes()
    {
        QTest::addColumn<int>("focus");
        QTest::addColumn<int>("zoom");
        QTest::newRow("focus") << 8192 << 1;
        QTest::newRow("zoom") << 4096 << 7;
    }

    /// Runs the event loop until timers of one second that started before have fired, however slow
    /// the machine is: those of one length fire in the order of their start.
    static bool aSecondPasses()
    {
        bool fired = false;
        QTimer timer;
        timer.setSingleShot(true);
        timer.setTimerType(Qt::PreciseTimer); // as short single shots are
        connect(&timer, &QTimer::timeout, &timer, [&] { fired = true; });
        timer.start(1000);
        return QTest::qWaitFor([&] { return fired; }, 30000);
    }

    CapturedDiagnostics m_lines;
    std::unique_ptr<WindowUnderTest> m_tool;

    /// `quiet`: it took less than the two seconds in which a read holds live settings back.
    void readWithoutLiveSettings(bool &quiet)
    {
        QFETCH(int, focus);
        QFETCH(int, zoom);
        CameraEnd camera;
        QVERIFY(m_tool->chooseModel(records::keyBlendZoom));
        QVERIFY(m_tool->connectTo(camera.path()));
        const qint64 before = QDateTime::currentMSecsSinceEpoch();
        messageState.sendTime = 0;
        m_tool->get<QPushButton>("btnReadConf")->click();
        const qint64 asked = messageState.sendTime;
        QVERIFY(asked >= before);
        QTRY_COMPARE(camera.count(getConfig), 1);
        QVERIFY(camera.send(getConfig + 100, record(quint16(focus), quint16(zoom))));
        QTRY_VERIFY(!m_tool->busy());
        QCOMPARE(m_tool->get<QSlider>("hsTamronfocusvalue")->value(), focus);
        QCOMPARE(m_tool->get<QSpinBox>("sbTamronZoom")->value(), zoom);

        QVERIFY(aSecondPasses());
        quiet = QDateTime::currentMSecsSinceEpoch() - asked < 2000;
        if (!quiet)
            return;
        QCOMPARE(messageState.sendTime, asked);
        // What is sent now comes next on the line.
        m_tool->window.on_pb_ffc_doffc_clicked();
        QTRY_COMPARE(camera.commands(), QVector<quint32>({116, getConfig, 133}));
    }

private slots:
    void initTestCase() { modal::useQtDialogs(); }
    void init()
    {
        m_tool = std::make_unique<WindowUnderTest>();
        messageState.sendTime = 0;
        m_lines.clear();
    }
    void cleanup() { m_tool.reset(); }

    void heldBackLiveSettingsLookAtNoModel()
    {
        // Ahead of the clock, a send is less than two seconds ago however slow the machine is.
        messageState.sendTime = QDateTime::currentMSecsSinceEpoch() + 60000;
        m_tool->window.slotSendLiveSettings();
        QVERIFY(m_lines.out().isEmpty());
        QVERIFY(m_lines.err().isEmpty());
        messageState.sendTime = 0;
        m_tool->window.slotSendLiveSettings();
        QCOMPARE(m_lines.err(), QStringLiteral("<<< not implemeted\n"));
    }

    void configurationReplySendsNoLiveSettings_data() { changes(); }
    void configurationReplySendsNoLiveSettings()
    {
        // A machine that stands still for two seconds lets the change go: then it is tried anew.
        bool quiet = false;
        for (int i = 0; i < 20 && !quiet && !QTest::currentTestFailed(); ++i) {
            m_tool = std::make_unique<WindowUnderTest>();
            readWithoutLiveSettings(quiet);
        }
        QVERIFY2(quiet, "the machine never ran for two seconds without standing still");
    }

    void recordLoadedWhileDisconnectedLogsItsLiveSettings_data() { changes(); }
    void recordLoadedWhileDisconnectedLogsItsLiveSettings()
    {
        QFETCH(int, focus);
        QFETCH(int, zoom);
        QVERIFY(m_tool->chooseModel(records::keyBlendZoom));
        QTemporaryDir directory;
        QFile file(directory.filePath("QXCONFIG.BIN"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(record(quint16(focus), quint16(zoom)));
        file.close();
        messageState.sendTime = 0;
        m_lines.clear();

        modal::Answer<QFileDialog> open(modal::choose(file.fileName()));
        m_tool->get<QAction>("actionOpen")->trigger();
        QVERIFY(open.given());
        QCOMPARE(m_tool->get<QSlider>("hsTamronfocusvalue")->value(), focus);
        QCOMPARE(m_tool->get<QSpinBox>("sbTamronZoom")->value(), zoom);
        QVERIFY(m_lines.out().isEmpty()); // not at once
        QVERIFY(aSecondPasses());
        QCOMPARE(m_lines.out(), QStringLiteral("<<< ERROR writeData: serial port not open\n\n"));
        QCOMPARE(quint32(messageState.command), liveSettings);
    }
};

QTEST_MAIN(TestMainWindowLiveTimes)
#include "tst_mainwindow_livetimes.moc"
