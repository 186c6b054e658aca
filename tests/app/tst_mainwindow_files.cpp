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

using namespace files;
using namespace records;

namespace {

/// A record that the form can show, with a delay and a frame skip to recognise it by.
QByteArray zoomRecord()
{
    QByteArray record = blendZoom();
    put<quint32>(record, 12, 9600);
    record[17] = 1;
    record[72] = 3;
    put<quint32>(record, 80, 77000);
    record[84] = 85;
    put<quint32>(record, 87, 4711);
    return sealed(record);
}

QByteArray blendRecord()
{
    QByteArray record = blend();
    put<quint32>(record, 12, 9600);
    record[17] = 1;
    put<quint32>(record, 69, 66000);
    put<quint32>(record, 74, 1234);
    return sealed(record);
}

} // namespace

class TestMainWindowFiles : public QObject
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

    // Loading

    void loadingOfflineFillsTheFormAndAsksNothing_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<int>("delay");
        QTest::addColumn<QString>("frameSkip");
        QTest::newRow("Blend") << blendRecord() << 66 << "1234";
        QTest::newRow("Blend Zoom") << zoomRecord() << 77 << "4711";
    }

    void loadingOfflineFillsTheFormAndAsksNothing()
    {
        QFETCH(QByteArray, record);
        QFETCH(int, delay);
        QFETCH(QString, frameSkip);
        CapturedDiagnostics lines;
        const QString file = path("load.bin");
        write(file, record);
        WindowUnderTest tool;
        modal::Answer<QFileDialog> choose([&](QFileDialog *dialog) {
            QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFile);
            QCOMPARE(dialog->nameFilters(),
                     (QStringList{"Binary files (*.bin *.BIN)", "All files (*)"}));
            QCOMPARE(dialog->selectedNameFilter(), dialog->nameFilters().first());
            QCOMPARE(dialog->viewMode(), QFileDialog::Detail);
            QCOMPARE(dialog->parentWidget(), &tool.window);
            modal::choose(file)(dialog);
        });
        tool.get<QAction>("actionOpen")->trigger();
        QVERIFY(choose.given());
        QCOMPARE(tool.get<QSpinBox>("sbFFCdelay")->value(), delay);
        QCOMPARE(tool.get<QLineEdit>("leFrameSkip")->text(), frameSkip);
        QVERIFY(lines.out().isEmpty());
    }

    void loadingWhileConnectedOffersTwiceToWrite()
    {
        CapturedDiagnostics lines;
        const QString file = path("offer.bin");
        write(file, zoomRecord());
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(connected(tool, camera, keyBlendZoom));
        std::unique_ptr<modal::Answer<QMessageBox>> save;
        std::unique_ptr<modal::Answer<QMessageBox>> loaded;
        modal::Answer<QFileDialog> choose([&](QFileDialog *dialog) {
            loaded = std::make_unique<modal::Answer<QMessageBox>>([&](QMessageBox *box) {
                QCOMPARE(box->windowTitle(), QStringLiteral("Configuration loaded"));
                QCOMPARE(box->text(), QStringLiteral("<p>The new configuration was succesfully "
                                                     "loaded.<br>Do you want to save the settings "
                                                     "on your device?</p>"));
                QCOMPARE(box->icon(), QMessageBox::Warning);
                QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
                QCOMPARE(box->defaultButton(),
                         qobject_cast<QPushButton *>(box->button(QMessageBox::Cancel)));
                QCOMPARE(camera.count(101), 0);
                save = std::make_unique<modal::Answer<QMessageBox>>([&](QMessageBox *second) {
                    QCOMPARE(second->windowTitle(), QStringLiteral("Save configuration"));
                    QCOMPARE(camera.count(101), 0);
                    second->button(QMessageBox::Ok)->click();
                });
                box->button(QMessageBox::Ok)->click();
            });
            modal::choose(file)(dialog);
        });
        tool.get<QAction>("actionOpen")->trigger();
        QVERIFY(save && save->given());
        QTRY_COMPARE(camera.count(101), 1);
        QCOMPARE(get<quint32>(camera.last(101), 87), 4711U);
    }

    void declinedOfferSendsNothing()
    {
        CapturedDiagnostics lines;
        const QString file = path("decline.bin");
        write(file, zoomRecord());
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(connected(tool, camera, keyBlendZoom));
        std::unique_ptr<modal::Answer<QMessageBox>> loaded;
        modal::Answer<QFileDialog> choose([&](QFileDialog *dialog) {
            loaded =
                std::make_unique<modal::Answer<QMessageBox>>(modal::click(QMessageBox::Cancel));
            modal::choose(file)(dialog);
        });
        tool.get<QAction>("actionOpen")->trigger();
        QVERIFY(loaded && loaded->given());
        QVERIFY(lines.out().endsWith(QStringLiteral("<<< dialog rejected\n")));
        QCOMPARE(camera.count(101), 0);
    }

    void theFilesKeyChoosesTheLayoutNotTheCamera()
    {
        CapturedDiagnostics lines;
        const QString file = path("other.bin");
        write(file, zoomRecord());
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(connected(tool, camera, keyBlend));
        std::unique_ptr<modal::Answer<QMessageBox>> save;
        std::unique_ptr<modal::Answer<QMessageBox>> loaded;
        modal::Answer<QFileDialog> choose([&](QFileDialog *dialog) {
            loaded = std::make_unique<modal::Answer<QMessageBox>>([&](QMessageBox *box) {
                save = std::make_unique<modal::Answer<QMessageBox>>(modal::click(QMessageBox::Ok));
                box->button(QMessageBox::Ok)->click();
            });
            modal::choose(file)(dialog);
        });
        tool.get<QAction>("actionOpen")->trigger();
        QTRY_COMPARE(camera.count(101), 1);
        QCOMPARE(get<quint32>(camera.last(101), 0), keyBlend);
        QCOMPARE(get<quint32>(camera.last(101), 74), 4711U);
    }

    void badFileIsRefusedAndClosesThePort_data()
    {
        QTest::addColumn<QByteArray>("content");
        QByteArray record20 = blend();
        put<quint32>(record20, 0, key20);
        QByteArray damaged = zoomRecord();
        damaged[100] = static_cast<char>(damaged[100] ^ 4);
        QTest::newRow("2.0 file") << sealed(record20);
        QTest::newRow("damaged") << damaged;
        QTest::newRow("short") << zoomRecord().left(222);
        QTest::newRow("header only") << zoomRecord().left(12);
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("this is no configuration at all\n");
    }

    void badFileIsRefusedAndClosesThePort()
    {
        QFETCH(QByteArray, content);
        CapturedDiagnostics lines;
        const QString file = path("bad.bin");
        write(file, content);
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(connected(tool, camera, keyBlendZoom));
        tool.get<QSpinBox>("sbFFCdelay")->setValue(55);
        tool.get<QLineEdit>("leFrameSkip")->setText("55");
        lines.clear();
        modal::Answer<QFileDialog> choose(modal::choose(file));
        tool.get<QAction>("actionOpen")->trigger();
        QVERIFY(choose.given());
        QVERIFY(lines.err().endsWith(
            QStringLiteral("MainWindow::parseUnknownControlStruct() not a valid struct\n")));
        QCOMPARE(tool.get<QPushButton>("btConnectDisconnect")->text(), QStringLiteral("Connect"));
        QCOMPARE(tool.get<QSpinBox>("sbFFCdelay")->value(), 55);
        QCOMPARE(tool.get<QLineEdit>("leFrameSkip")->text(), QStringLiteral("55"));
    }

    void cancelledDialogsTouchNothing()
    {
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(connected(tool, camera, keyBlendZoom));
        lines.clear();
        const QStringList before = QDir(m_dir.path()).entryList();
        {
            modal::Answer<QFileDialog> cancel(modal::cancel<QFileDialog>());
            tool.get<QAction>("actionOpen")->trigger();
        }
        {
            modal::Answer<QFileDialog> cancel(modal::cancel<QFileDialog>());
            tool.get<QAction>("actionSave")->trigger();
        }
        QCOMPARE(QDir(m_dir.path()).entryList(), before);
        QVERIFY(lines.out().isEmpty());
        // The check of the request at the connection may come while a dialog is open.
        QCOMPARE(QString(lines.err())
                     .remove("<<< This should not have happened! Message was not send\n"),
                 QString());
        QCOMPARE(tool.get<QPushButton>("btConnectDisconnect")->text(),
                 QStringLiteral("Disconnect"));
    }

    // Saving

    void savedFileIsTheBareRecordAndComesBack_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::addColumn<QByteArray>("record");
        QTest::newRow("Blend") << keyBlend << blendRecord();
        QTest::newRow("Blend Zoom") << keyBlendZoom << zoomRecord();
    }

    void savedFileIsTheBareRecordAndComesBack()
    {
        QFETCH(quint32, key);
        QFETCH(QByteArray, record);
        CapturedDiagnostics lines;
        const QString file = path("saved.bin");
        QFile::remove(file);
        WindowUnderTest tool;
        QVERIFY(tool.chooseModel(key));
        QVERIFY(tool.window.parseUnknownControlStruct(payload(record)));
        modal::Answer<QFileDialog> choose([&](QFileDialog *dialog) {
            QCOMPARE(dialog->fileMode(), QFileDialog::AnyFile);
            QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
            QCOMPARE(dialog->nameFilters(), QStringList{"Binary files (*bin *.BIN)"});
            QCOMPARE(dialog->viewMode(), QFileDialog::List);
            QVERIFY(dialog->findChild<QLineEdit *>("fileNameEdit")->text().isEmpty());
            modal::choose(file)(dialog);
        });
        tool.get<QAction>("actionSave")->trigger();
        const QByteArray saved = contentOf(file);
        QCOMPARE(saved.size(), record.size());
        QCOMPARE(saved, sealed(saved));

        WindowUnderTest second;
        QVERIFY(second.chooseModel(key));
        QVERIFY(second.window.parseUnknownControlStruct(payload(saved)));
        const QString again = path("again.bin");
        QFile::remove(again);
        modal::Answer<QFileDialog> chooseAgain(modal::choose(again));
        second.get<QAction>("actionSave")->trigger();
        QCOMPARE(contentOf(again), saved);
    }

    void existingFileIsReplacedOnlyAfterTheQuestion()
    {
        CapturedDiagnostics lines;
        const QString file = path("existing.bin");
        write(file, QByteArray(1000, 'x'));
        WindowUnderTest tool;
        QVERIFY(tool.chooseModel(keyBlend));
        {
            std::unique_ptr<modal::Answer<QMessageBox>> overwrite;
            modal::Answer<QFileDialog> choose([&](QFileDialog *dialog) {
                overwrite =
                    std::make_unique<modal::Answer<QMessageBox>>(modal::click(QMessageBox::No));
                modal::choose(file)(dialog); // declined: the dialog stays open
                static_cast<QDialog *>(dialog)->reject();
            });
            tool.get<QAction>("actionSave")->trigger();
            QVERIFY(overwrite && overwrite->given());
        }
        QCOMPARE(contentOf(file).size(), 1000);
        std::unique_ptr<modal::Answer<QMessageBox>> overwrite;
        modal::Answer<QFileDialog> choose([&](QFileDialog *dialog) {
            overwrite =
                std::make_unique<modal::Answer<QMessageBox>>(modal::click(QMessageBox::Yes));
            modal::choose(file)(dialog);
        });
        tool.get<QAction>("actionSave")->trigger();
        QCOMPARE(contentOf(file).size(), 207);
    }

    void savingWithoutAModelLeavesAnEmptyFile()
    {
        CapturedDiagnostics lines;
        const QString file = path("unsupported.bin");
        WindowUnderTest tool;
        modal::Answer<QFileDialog> choose(modal::choose(file));
        tool.get<QAction>("actionSave")->trigger();
        QCOMPARE(lines.err(), QStringLiteral("<<< not implemeted\n"));
        QVERIFY(QFile::exists(file));
        QCOMPARE(contentOf(file), QByteArray());
    }
};

QTEST_MAIN(TestMainWindowFiles)
#include "tst_mainwindow_files.moc"
