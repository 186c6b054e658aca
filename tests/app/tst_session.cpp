// Sessions of the whole tool with the simulated camera: two programs and a pseudo-terminal between
// them, operated as an operator does.

#include "support/captureddiagnostics.h"
#include "support/modal.h"
#include "support/records.h"
#include "support/simulatorprocess.h"
#include "support/windowundertest.h"

#include <QAction>
#include <QDir>
#include <QSpinBox>
#include <QStatusBar>
#include <QTemporaryDir>

#include <memory>

/// What the two models lay out differently. Offsets are those of their records.
struct Model
{
    const char *option;
    const char *identity;
    int size;
    int colourMap;
    int ffcDelay;
};
Q_DECLARE_METATYPE(const Model *)

namespace {

const Model blend = {"blend", "Device ID: QX Blend   Serial: BL-77", 207, 57, 69};
const Model zoom = {"blend-zoom", "Device ID: QX Blend Zoom   Serial: BL-77", 223, 59, 80};

constexpr int baudrateOffset = 12;
constexpr int heatingOffset = 22;

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// The tool and a camera, connected by a link that stays when the camera restarts.
class Session
{
public:
    explicit Session(const Model &model) : m_model(model) { tool.window.show(); }

    bool startCamera(QStringList options = {})
    {
        options << "--model" << m_model.option << "--serial"
                << "BL-77"
                << "--link" << link() << "--state" << m_directory.path();
        return camera.start(options);
    }

    /// Presses Connect and waits until identity and configuration are read.
    bool connectAndRead()
    {
        return tool.connectTo(link()) && idle() &&
               tool.window.statusBar()->currentMessage() == QLatin1String(m_model.identity);
    }

    bool idle()
    {
        return QTest::qWaitFor([this] { return !tool.busy(); });
    }
    bool connected() { return button("btConnectDisconnect")->text() == "Disconnect"; }

    /// Presses "Write Settings to Device" and answers the question.
    bool write(QMessageBox::StandardButton answer = QMessageBox::Ok)
    {
        modal::Answer<QMessageBox> question(modal::click(answer));
        button("btnSetConf")->click();
        return question.given();
    }

    /// How many requests of this command code the camera has logged.
    int requests(int code)
    {
        const QRegularExpression line(QStringLiteral("^<- .*\\b%1\\b").arg(code));
        return camera.log().filter(line).size();
    }

    QString link() const { return m_directory.filePath("camera"); }
    QString file(const QString &name) const { return m_directory.filePath(name); }
    /// The configuration as the camera keeps it.
    QByteArray stored() const
    {
        return contents(file(QStringLiteral("%1-configuration.bin").arg(m_model.option)));
    }

    QPushButton *button(const char *name) { return tool.get<QPushButton>(name); }
    QComboBox *colourMap() { return tool.get<QComboBox>("cbLiveview_colormap"); }
    QSpinBox *heating() { return tool.get<QSpinBox>("sb_eso_heating"); }

    CapturedDiagnostics lines;
    SimulatorProcess camera;
    WindowUnderTest tool;

private:
    const Model &m_model;
    QTemporaryDir m_directory;
};

class TestSession : public QObject
{
    Q_OBJECT

    void bothModels()
    {
        QTest::addColumn<const Model *>("model");
        QTest::newRow("Blend") << &blend;
        QTest::newRow("Blend Zoom") << &zoom;
    }

private slots:
    void initTestCase() { modal::useQtDialogs(); }

    void connectsIdentifiesAndReads_data() { bothModels(); }
    void connectsIdentifiesAndReads()
    {
        QFETCH(const Model *, model);
        Session s(*model);
        QVERIFY(s.startCamera());
        QVERIFY(s.connectAndRead());
        QVERIFY(s.connected());

        const QByteArray record = s.stored();
        QCOMPARE(record.size(), model->size);
        QCOMPARE(s.colourMap()->currentIndex(), int(record.at(model->colourMap)));
        QCOMPARE(s.tool.get<QComboBox>("cbBaudrate")->currentText(),
                 QString::number(records::get<quint32>(record, baudrateOffset)));
        QCOMPARE(s.heating()->value(), records::get<qint32>(record, heatingOffset));
        QCOMPARE(s.tool.get<QSpinBox>("sbFFCdelay")->value(),
                 int(records::get<quint32>(record, model->ffcDelay) / 1000));
        QCOMPARE(s.tool.hidden("gbTamronZoom"), model == &blend);
        QTRY_COMPARE(s.requests(116), 1);
        QTRY_COMPARE(s.requests(102), 1);
    }

    void writesWhatWasEditedAndReadsItBack_data() { bothModels(); }
    void writesWhatWasEditedAndReadsItBack()
    {
        QFETCH(const Model *, model);
        Session s(*model);
        QVERIFY(s.startCamera());
        QVERIFY(s.connectAndRead());

        QByteArray expected = s.stored();
        const int newMap = (expected.at(model->colourMap) + 1) % 4;
        expected[model->colourMap] = static_cast<char>(newMap);
        records::put<qint32>(expected, heatingOffset, 321);
        expected = records::sealed(expected);
        s.colourMap()->setCurrentIndex(newMap);
        s.heating()->setValue(321);

        QVERIFY(s.write());
        QVERIFY(s.idle()); // the write, and the all-ones command after it, are acknowledged
        QCOMPARE(s.stored().toHex(), expected.toHex());
        QTRY_COMPARE(s.requests(101), 1);

        s.colourMap()->setCurrentIndex((newMap + 1) % 4);
        s.heating()->setValue(5);
        s.button("btnReadConf")->click();
        QVERIFY(s.tool.busy());
        QVERIFY(s.idle());
        QCOMPARE(s.colourMap()->currentIndex(), newMap);
        QCOMPARE(s.heating()->value(), 321);
    }

    void cancelledWriteSendsNothing()
    {
        Session s(zoom);
        QVERIFY(s.startCamera());
        QVERIFY(s.connectAndRead());
        const QByteArray before = s.stored();
        s.heating()->setValue(321);
        QVERIFY(s.write(QMessageBox::Cancel));
        QVERIFY(!s.tool.busy());
        s.button("btnReadConf")->click(); // a later command: all before it have been seen
        QVERIFY(s.idle());
        QTRY_COMPARE(s.requests(102), 2);
        QCOMPARE(s.requests(101), 0);
        QCOMPARE(s.stored(), before);
    }

    void writeInTheOtherModelsLayoutIsRefused_data() { bothModels(); }
    void writeInTheOtherModelsLayoutIsRefused()
    {
        QFETCH(const Model *, model);
        Session s(*model);
        QVERIFY(s.startCamera());
        QVERIFY(s.connectAndRead());
        const QByteArray before = s.stored();

        auto *models = s.tool.get<QComboBox>("cBDevice");
        QTest::keyClick(models, model == &zoom ? Qt::Key_Up : Qt::Key_Down);
        QVERIFY(s.write());
        QString title;
        modal::Answer<QMessageBox> rejected([&](QMessageBox *box) {
            title = box->windowTitle();
            box->button(QMessageBox::Ok)->click();
        });
        QTRY_VERIFY(rejected.given());
        QCOMPARE(title, QStringLiteral("Command rejected"));
        QVERIFY(s.idle());
        QVERIFY(s.connected());
        QCOMPARE(s.stored(), before);

        // Back in its own model the camera takes the same form.
        QTest::keyClick(models, model == &zoom ? Qt::Key_Down : Qt::Key_Up);
        s.heating()->setValue(17);
        QVERIFY(s.write());
        QVERIFY(s.idle());
        QCOMPARE(records::get<qint32>(s.stored(), heatingOffset), 17);
    }

    void loadsAFileAndWritesIt_data() { bothModels(); }
    void loadsAFileAndWritesIt()
    {
        QFETCH(const Model *, model);
        Session s(*model);
        QVERIFY(s.startCamera());
        QVERIFY(s.connectAndRead());

        QByteArray record = s.stored();
        record[model->colourMap] = 3;
        records::put<qint32>(record, heatingOffset, 654);
        record = records::sealed(record);
        QFile file(s.file("QXCONFIG.BIN"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(record), record.size());
        file.close();

        QStringList titles;
        std::unique_ptr<modal::Answer<QMessageBox>> write;
        modal::Answer<QFileDialog> open(modal::choose(file.fileName()));
        modal::Answer<QMessageBox> loaded([&](QMessageBox *box) {
            titles << box->windowTitle();
            write = std::make_unique<modal::Answer<QMessageBox>>([&](QMessageBox *second) {
                titles << second->windowTitle();
                second->button(QMessageBox::Ok)->click();
            });
            box->button(QMessageBox::Ok)->click();
        });
        s.tool.get<QAction>("actionOpen")->trigger();
        QVERIFY(open.given() && loaded.given() && write && write->given());
        QCOMPARE(titles, (QStringList{"Configuration loaded", "Save configuration"}));
        QCOMPARE(s.heating()->value(), 654);
        QVERIFY(s.idle());
        QCOMPARE(s.stored().toHex(), record.toHex());
    }

    void refusedFileEndsTheConnectionAndKeepsTheForm()
    {
        Session s(zoom);
        QVERIFY(s.startCamera());
        QVERIFY(s.connectAndRead());
        const int shown = s.heating()->value();
        QByteArray record = s.stored();
        records::put<qint32>(record, heatingOffset, 654); // and no new CRC
        QFile file(s.file("damaged.bin"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(record), record.size());
        file.close();
        modal::Answer<QFileDialog> open(modal::choose(file.fileName()));
        s.tool.get<QAction>("actionOpen")->trigger();
        QVERIFY(open.given());
        QVERIFY(!s.connected());
        QCOMPARE(s.heating()->value(), shown);
        QVERIFY(s.connectAndRead()); // the camera itself is as it was
    }

    void savesWhatItWouldWrite_data() { bothModels(); }
    void savesWhatItWouldWrite()
    {
        QFETCH(const Model *, model);
        Session s(*model);
        QVERIFY(s.startCamera());
        QVERIFY(s.connectAndRead());
        s.heating()->setValue(99);
        const QString path = s.file("saved.bin");
        modal::Answer<QFileDialog> save(modal::choose(path));
        s.tool.get<QAction>("actionSave")->trigger();
        QVERIFY(save.given());
        QCOMPARE(contents(path).size(), model->size);
        QVERIFY(contents(path) != s.stored());
        QVERIFY(s.write());
        QVERIFY(s.idle());
        QCOMPARE(contents(path).toHex(), s.stored().toHex());
    }

    void survivesAnUnpluggedCameraAndReconnects_data() { bothModels(); }
    void survivesAnUnpluggedCameraAndReconnects()
    {
        QFETCH(const Model *, model);
        Session s(*model);
        QVERIFY(s.startCamera());
        QVERIFY(s.connectAndRead());
        s.heating()->setValue(222);
        QVERIFY(s.write());
        QVERIFY(s.idle());

        s.camera.process().kill();
        QVERIFY(s.camera.process().waitForFinished());
        QTRY_VERIFY(!s.connected());
        QVERIFY(!s.tool.busy());
        QVERIFY(!s.button("btnSetConf")->isEnabled());
        QCOMPARE(s.heating()->value(), 222);

        QFile::remove(s.link()); // a killed program leaves its link
        QVERIFY(s.startCamera());
        s.heating()->setValue(1);
        QVERIFY(s.connectAndRead());
        QCOMPARE(s.heating()->value(), 222);
        QVERIFY(s.button("btnSetConf")->isEnabled());
    }

    void disconnectsAndReconnects()
    {
        Session s(zoom);
        QVERIFY(s.startCamera());
        for (int time = 0; time < 3; ++time) {
            s.heating()->setValue(1);
            QVERIFY(s.connectAndRead());
            QCOMPARE(s.heating()->value(), records::get<qint32>(s.stored(), heatingOffset));
            s.button("btConnectDisconnect")->click();
            QVERIFY(!s.connected());
        }
        QTRY_COMPARE(s.requests(116), 3);
    }

    void cameraRestartsAfterAWrite_data() { bothModels(); }
    void cameraRestartsAfterAWrite()
    {
        QFETCH(const Model *, model);
        Session s(*model);
        QVERIFY(s.startCamera({"--restart"}));
        QVERIFY(s.connectAndRead());
        s.heating()->setValue(432);
        QVERIFY(s.write());
        QTRY_VERIFY(!s.connected()); // the line vanished
        QVERIFY(!s.tool.busy());
        QTRY_COMPARE(s.camera.paths().size(), 2); // and is back
        s.heating()->setValue(1);
        QVERIFY(s.connectAndRead());
        QCOMPARE(s.heating()->value(), 432);
    }

    void oldFirmwareIsReportedAndTheConfigurationReadAllTheSame()
    {
        Session s(zoom);
        QVERIFY(s.startCamera({"--firmware", "20180121"}));
        QString text;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            text = box->text();
            box->button(QMessageBox::Ok)->click();
        });
        QVERIFY(s.connectAndRead());
        QVERIFY(text.contains("1.4.x"));
        QCOMPARE(s.heating()->value(), records::get<qint32>(s.stored(), heatingOffset));
    }

    void quorvix20IsRecognisedAndNotServed()
    {
        CapturedDiagnostics lines;
        SimulatorProcess camera;
        QVERIFY(camera.start({"--model", "2.0"}));
        WindowUnderTest tool;
        QVERIFY(tool.connectTo(camera.path()));
        QTRY_VERIFY(!tool.busy());
        QVERIFY(lines.err().contains(
            "<<< MainWindow::parseDeviceID() could not parse struct, unknown device\n"));
        QVERIFY(tool.hidden("btConnectDisconnect"));
        QTRY_COMPARE(camera.log().filter(QRegularExpression("^<- ")).size(), 1);
    }

    void cleanup()
    {
        // Nothing may be left on the screen that a later test would find.
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(TestSession)
#include "tst_session.moc"
