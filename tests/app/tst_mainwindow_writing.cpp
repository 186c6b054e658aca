#include "support/cameraend.h"
#include "support/captureddiagnostics.h"
#include "support/files.h"
#include "support/modal.h"
#include "support/records.h"
#include "support/windowundertest.h"

#include <QAction>
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QSpinBox>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace files;
using namespace records;

class TestMainWindowWriting : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString path(const char *name) const { return m_dir.filePath(QString::fromLatin1(name)); }

    /// A window with a port open to `camera` and `key` as its model, its identity request read.
    static bool connected(WindowUnderTest &tool, CameraEnd &camera, quint32 key)
    {
        return tool.connectTo(camera.path()) && tool.chooseModel(key) == (key != key20);
    }

private slots:
    void initTestCase()
    {
        modal::useQtDialogs();
        QVERIFY(m_dir.isValid());
    }

    // Reading and writing on the camera

    void readingRequestsTheConfiguration_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::newRow("Blend") << keyBlend;
        QTest::newRow("Blend Zoom") << keyBlendZoom;
    }

    void readingRequestsTheConfiguration()
    {
        QFETCH(quint32, key);
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(connected(tool, camera, key));
        tool.get<QPushButton>("btnReadConf")->click();
        // the example of the protocol: 21 bytes
        QTRY_VERIFY(camera.received().endsWith(
            QByteArray::fromHex("4b4f564f0000001000010001000000 66cd6e078b00")));
        QCOMPARE(camera.count(102), 1);
        QVERIFY(tool.busy());
    }

    void readingWithoutAModelIsRefused_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::newRow("none") << 0U;
        QTest::newRow("2.0") << key20;
    }

    void readingWithoutAModelIsRefused()
    {
        QFETCH(quint32, key);
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(tool.connectTo(camera.path()));
        QTRY_COMPARE(camera.count(116), 1);
        if (key != 0)
            tool.chooseModel(key);
        lines.clear();
        tool.window.on_btnReadConf_clicked();
        QCOMPARE(lines.err(),
                 QStringLiteral("MainWindow::requestConfig() DEVICE NOT IMPLEMENTED\n"));
        QCOMPARE(camera.commands(), QVector<quint32>{116});
    }

    void writingAsksFirst()
    {
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(connected(tool, camera, keyBlendZoom));
        lines.clear();
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            QCOMPARE(box->windowTitle(), QStringLiteral("Save configuration"));
            QCOMPARE(box->text(),
                     QStringLiteral("<p>You are going to save a new configuration.<br>The device "
                                    "will be restartet.<br>Are you sure to proceed?</p>"));
            QCOMPARE(box->icon(), QMessageBox::Warning);
            QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
            QCOMPARE(box->defaultButton(),
                     qobject_cast<QPushButton *>(box->button(QMessageBox::Cancel)));
            QCOMPARE(box->parentWidget(), &tool.window);
            box->button(QMessageBox::Cancel)->click();
        });
        tool.get<QPushButton>("btnSetConf")->click();
        QVERIFY(answer.given());
        QCOMPARE(lines.out(), QStringLiteral("<<< dialog rejected\n"));
        QTRY_COMPARE(camera.commands(), QVector<quint32>{116});
    }

    void confirmedWriteSendsTheWholeRecord_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("padded");
        QTest::newRow("Blend") << keyBlend << 207 << 208;
        QTest::newRow("Blend Zoom") << keyBlendZoom << 223 << 224;
    }

    void confirmedWriteSendsTheWholeRecord()
    {
        QFETCH(quint32, key);
        QFETCH(int, size);
        QFETCH(int, padded);
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(connected(tool, camera, key));
        modal::Answer<QMessageBox> answer(modal::click(QMessageBox::Ok));
        tool.get<QPushButton>("btnSetConf")->click();
        QTRY_COMPARE(camera.count(101), 1);
        const QByteArray payload = camera.last(101);
        QCOMPARE(payload.size(), padded);
        const QByteArray record = payload.left(size);
        QCOMPARE(get<quint32>(record, 0), key);
        QCOMPARE(record, sealed(record));
        QVERIFY(tool.busy());
        // acknowledged: the all-ones command follows
        QVERIFY(camera.send(201));
        QTRY_COMPARE(camera.count(0xFFFFFFFF), 1);
        QVERIFY(camera.last(0xFFFFFFFF).isEmpty());
        QVERIFY(tool.busy());
        QVERIFY(camera.send(99));
        QTRY_VERIFY(!tool.busy());
    }

    void writingWithoutAModelIsRefused()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        modal::Answer<QMessageBox> answer(modal::click(QMessageBox::Ok));
        tool.window.on_btnSetConf_clicked();
        QVERIFY(answer.given());
        QCOMPARE(lines.err(),
                 QStringLiteral("MainWindow::on_btnSetConf_clicked(): not implemeted\n"));
    }

    // The file of the 2.0 model

    void the20FileIsWrittenOverAnExistingOneWithoutCuttingIt()
    {
        CapturedDiagnostics lines;
        const QString file = path("QX20.BIN");
        write(file, QByteArray(1000, 'x'));
        WindowUnderTest tool;
        tool.chooseModel(key20);
        lines.clear();
        modal::Answer<QMessageBox> confirm(modal::click(QMessageBox::Ok));
        // Qt's own question about the existing file comes on top of the file dialog.
        std::unique_ptr<modal::Answer<QFileDialog>> choose;
        std::unique_ptr<modal::Answer<QMessageBox>> overwrite;
        choose = std::make_unique<modal::Answer<QFileDialog>>([&](QFileDialog *dialog) {
            QCOMPARE(dialog->windowTitle(), QStringLiteral("Save File"));
            QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
            overwrite =
                std::make_unique<modal::Answer<QMessageBox>>(modal::click(QMessageBox::Yes));
            modal::choose(file)(dialog);
        });
        tool.window.on_btnSetConf_clicked();
        QVERIFY(choose->given());
        QVERIFY(overwrite && overwrite->given());
        QCOMPARE(contentOf(file), QByteArray(207, '\0') + QByteArray(793, 'x'));
        QVERIFY(lines.out().isEmpty());
    }

    void the20FileIsCreated()
    {
        const QString file = path("new20.BIN");
        WindowUnderTest tool;
        const mode_t mask = ::umask(0);
        modal::Answer<QFileDialog> choose([&](QFileDialog *dialog) {
            auto *name = dialog->findChild<QLineEdit *>("fileNameEdit");
            QCOMPARE(name->text(), QStringLiteral("QXCONFIG.BIN"));
            QCOMPARE(dialog->nameFilters(), QStringList{".BIN"});
            modal::choose(file)(dialog);
        });
        tool.window.setConfig_qx_2_0();
        ::umask(mask);
        QCOMPARE(contentOf(file), QByteArray(207, '\0'));
        struct stat status = {};
        QCOMPARE(::stat(qPrintable(file), &status), 0);
        QCOMPARE(status.st_mode & 07777U, 0744U);
    }

    void cancelled20FileIsAFailedOpen()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        modal::Answer<QFileDialog> cancel(modal::cancel<QFileDialog>());
        tool.window.setConfig_qx_2_0();
        QCOMPARE(lines.out(), QStringLiteral("Error opening file!\n"));
    }

    void full20DiskIsReported()
    {
        if (!QFile::exists("/dev/full"))
            QSKIP("no /dev/full here");
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        std::unique_ptr<modal::Answer<QMessageBox>> overwrite;
        modal::Answer<QFileDialog> choose([&](QFileDialog *dialog) {
            overwrite =
                std::make_unique<modal::Answer<QMessageBox>>(modal::click(QMessageBox::Yes));
            modal::choose("/dev/full")(dialog);
        });
        tool.window.setConfig_qx_2_0();
        QCOMPARE(lines.out(), QStringLiteral("Error writing data to file\n"));
    }
};

QTEST_MAIN(TestMainWindowWriting)
#include "tst_mainwindow_writing.moc"
