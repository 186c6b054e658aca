#include "factory/factorywindow.h"
#include "support/files.h"
#include "support/modal.h"

#include <QDir>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>
#include <sys/resource.h>

/// What the factory dialog says of its files, and that two units never share one.
class TestFactoryFileOutcomes : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<FactoryWindow> m_w;

    QString path(const char *name) const { return m_dir->filePath(QString::fromLatin1(name)); }
    QString outcome() { return m_w->widget<QLabel>("lbFileOutcome")->text(); }

    /// The record of a unit arrives; the question whether to show its tables is declined.
    void receive(const QByteArray &serial)
    {
        modal::Answer<QMessageBox> decline(modal::click(QMessageBox::Cancel));
        const QByteArray record =
            zoomRecord(serial, initialArdview(), initialHdmi(), initialAnalog());
        m_w->dialog.parseFactorySettings(QVector<uint8_t>(record.begin(), record.end()));
    }

    void clickWrite()
    {
        modal::Answer<QFileDialog> choose(modal::choose(m_dir->path()));
        m_w->click("pb_WriteFile");
    }

private slots:
    void initTestCase() { modal::useQtDialogs(); }
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
        m_w = std::make_unique<FactoryWindow>();
        QVERIFY(m_w->devices.setDevice(KovoDevice_QXBlendZoom));
        m_w->dialog.show();
    }
    void cleanup() { m_w.reset(); }

    void nothingIsSaidBeforeTheFirstFile()
    {
        QVERIFY(m_w->widget("lbFileOutcome")->isHidden());
        QVERIFY(m_w->widget("lbSerialNote")->isHidden());
    }

    void bothSavedFilesAreNamed()
    {
        clickWrite();
        QCOMPARE(outcome(), QString("Saved 1700999.dat\nSaved 1700999.txt"));
        QVERIFY(m_w->widget("lbFileOutcome")->isVisible());
    }

    void otherModelsLeaveEmptyFilesAndSaySo()
    {
        QVERIFY(m_w->devices.setDevice(KovoDevice_QXBlend));
        clickWrite();
        QCOMPARE(outcome(), QString("1700999.dat is empty: only a Quorvix Blend Zoom is saved\n"
                                    "1700999.txt is empty: only a Quorvix Blend Zoom is saved"));
        QCOMPARE(files::contentOf(path("1700999.dat")), QByteArray());
    }

    void filesThatCannotBeWrittenAreToldWithTheReason()
    {
        m_w->dialog.writeFile(path("none"));
        QCOMPARE(outcome(), QString("Cannot save 1700999.dat: No such file or directory"));
        m_w->dialog.writeReport(path("none"));
        QCOMPARE(outcome(), QString("Cannot save 1700999.txt: No such file or directory"));
        m_w->serialNumber()->setText("a/b");
        clickWrite();
        QCOMPARE(outcome(), QString("Nothing was saved: the serial number cannot name a file"));
    }

    void saveThatCannotBeCompletedKeepsTheEarlierFiles()
    {
        files::write(path("1700999.dat"), "data");
        files::write(path("1700999.txt"), "report");
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit before = {};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        rlimit limit = before;
        limit.rlim_cur = 100;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
        m_w->dialog.writeFile(m_dir->path());
        const QString data = outcome();
        m_w->dialog.writeReport(m_dir->path());
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
        std::signal(SIGXFSZ, handler);
        QCOMPARE(
            data,
            QString("Could not write 1700999.dat whole: File too large. The file is as it was"));
        QCOMPARE(
            outcome(),
            QString("Could not write 1700999.txt whole: File too large. The file is as it was"));
        QCOMPARE(m_w->said.err(), QString("<<< could not write %1: File too large\n"
                                          "<<< could not write %2: File too large\n")
                                      .arg(path("1700999.dat"), path("1700999.txt")));
        QCOMPARE(files::contentOf(path("1700999.dat")), QByteArray("data"));
        QCOMPARE(files::contentOf(path("1700999.txt")), QByteArray("report"));
    }

    void loadedFilesAreNamed()
    {
        m_w->dialog.writeFile(m_dir->path());
        {
            modal::Answer<QMessageBox> ok(modal::click(QMessageBox::Ok));
            m_w->dialog.loadFile(path("1700999.dat"));
        }
        QCOMPARE(outcome(), QString("Loaded 1700999.dat"));
        modal::Answer<QMessageBox> cancel(modal::click(QMessageBox::Cancel));
        m_w->dialog.loadFile(path("1700999.dat"));
        QCOMPARE(outcome(), QString("Loaded the serial number of 1700999.dat only"));
    }

    void filesThatCannotBeLoadedAreToldWithTheReason()
    {
        m_w->dialog.loadFile(path("none.dat"));
        QCOMPARE(outcome(), QString("Cannot load none.dat: No such file or directory"));
        files::write(path("50%2.dat"), "short");
        m_w->dialog.loadFile(path("50%2.dat"));
        QCOMPARE(outcome(),
                 QString("Cannot load 50%2.dat, it holds no valid record: too short, 5 bytes"));
        QVERIFY(m_w->devices.setDevice(KovoDevice_QXBlend));
        m_w->dialog.loadFile(path("50%2.dat"));
        QCOMPARE(outcome(),
                 QString("50%2.dat was not loaded: only a Quorvix Blend Zoom has data files"));
    }

    void cutSerialNumberIsShownWhole()
    {
        receive("1700999ABCDE");
        QCOMPARE(m_w->serialNumber()->text(), QString("1700999"));
        auto *note = m_w->widget<QLabel>("lbSerialNote");
        QVERIFY(note->isVisible());
        QCOMPARE(note->text(), QString("The unit's serial number 1700999ABCDE is longer than the "
                                       "field: only what the field shows is written."));
        receive("1701234");
        QVERIFY(!note->isVisible());
        receive("1700999A");
        QVERIFY(note->isVisible());
        m_w->serialNumber()->setFocus();
        QTest::keyClick(m_w->serialNumber(), Qt::Key_Backspace);
        QVERIFY(!note->isVisible());
    }

    void cutSerialNumberWithControlCharactersIsOneLine()
    {
        receive("17\n00999\x1b[2J");
        QCOMPARE(m_w->widget<QLabel>("lbSerialNote")->text(),
                 QString("The unit's serial number 17\\x0a00999\\x1b[2J is longer than the field: "
                         "only what the field shows is written."));
    }

    void folderWithControlCharactersIsOneLine()
    {
        const QString folder = path("a\nb");
        QVERIFY(QDir().mkdir(folder));
        m_w->said.clear();
        modal::Answer<QFileDialog> choose(modal::choose(folder));
        m_w->click("pb_WriteFile");
        QVERIFY(QFile::exists(folder + "/1700999.dat"));
        const QString told = "<<< " + path("a\\x0ab");
        const QStringList lines = m_w->said.out().split('\n');
        for (const char *name : {"", "/1700999.dat", "/1700999.txt"})
            QVERIFY2(lines.contains(told + name), qPrintable(m_w->said.out()));
    }

    void unitsCutToTheSameSerialNumberShareNoFile()
    {
        receive("1700999A");
        clickWrite();
        QCOMPARE(outcome(), QString("Saved 1700999.dat\nSaved 1700999.txt"));
        clickWrite(); // the same unit again
        QCOMPARE(outcome(), QString("Saved 1700999.dat\nSaved 1700999.txt"));
        const QByteArray first = files::contentOf(path("1700999.dat"));

        receive("1700999B");
        m_w->table("tw_QXBZ_hdmi")->item(0, 0)->setText("77");
        clickWrite();
        const QString refused = " is left as it is: it may be of another unit, for the serial "
                                "number was cut. Choose another folder.";
        QCOMPARE(outcome(), "1700999.dat" + refused + "\n1700999.txt" + refused);
        QCOMPARE(files::contentOf(path("1700999.dat")), first);
        QVERIFY(!files::contentOf(path("1700999.txt")).contains("A 77,"));

        receive("1700999"); // not cut, and neither of them
        clickWrite();
        QCOMPARE(files::contentOf(path("1700999.dat")), first);
    }

    void eitherFileOfAnotherUnitKeepsBoth_data()
    {
        QTest::addColumn<QString>("there");
        QTest::addColumn<QString>("missing");
        QTest::newRow("data file") << "1700999.dat"
                                   << "1700999.txt";
        QTest::newRow("report") << "1700999.txt"
                                << "1700999.dat";
    }

    void eitherFileOfAnotherUnitKeepsBoth()
    {
        QFETCH(QString, there);
        QFETCH(QString, missing);
        files::write(m_dir->filePath(there), "another unit's");
        receive("1700999B");
        clickWrite();
        const QStringList lines = outcome().split('\n');
        QCOMPARE(lines.size(), 2);
        QVERIFY(lines.contains(there + " is left as it is: it may be of another unit, for the "
                                       "serial number was cut. Choose another folder."));
        QVERIFY(lines.contains(missing + " is not written: " + there +
                               " may be of another unit, for the serial number was cut. Choose "
                               "another folder."));
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), QStringList{there});
        QCOMPARE(files::contentOf(m_dir->filePath(there)), QByteArray("another unit's"));
    }

    void outcomesAreOneLineForOthers()
    {
        QSignalSpy said(&m_w->dialog, &FactorySettings::fileOutcome);
        clickWrite();
        QCOMPARE(said.last().first().toString(),
                 QString::fromUtf8("Saved 1700999.dat · Saved 1700999.txt"));
        m_w->dialog.loadFile(path("none.dat"));
        QCOMPARE(said.last().first().toString(),
                 QString("Cannot load none.dat: No such file or directory"));
    }

    void pathsStayInOneLine()
    {
        const QString folder = m_dir->filePath("a\nb");
        const QString shown = m_dir->path() + "/a\\x0ab";
        QVERIFY(QDir().mkdir(folder));
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit before = {};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        rlimit limit = before;
        limit.rlim_cur = 100;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
        {
            // No line of a text field holds such a path: the dialog is in the folder.
            modal::Answer<QFileDialog> choose([&](QFileDialog *dialog) {
                dialog->setDirectory(folder);
                dialog->findChild<QLineEdit *>("fileNameEdit")->clear();
                static_cast<QDialog *>(dialog)->accept();
            });
            m_w->click("pb_WriteFile");
        }
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
        std::signal(SIGXFSZ, handler);
        QCOMPARE(m_w->said.err(), QString("<<< could not write %1/1700999.dat: File too large\n"
                                          "<<< could not write %1/1700999.txt: File too large\n")
                                      .arg(shown));
        const QStringList lines = m_w->said.out().split('\n');
        QCOMPARE(lines.first(), "<<< " + shown);
        QVERIFY(lines.contains("<<< " + shown + "/1700999.dat"));
        QVERIFY(lines.contains("<<< " + shown + "/1700999.txt"));
        m_w->said.clear();
        m_w->serialNumber()->setText(QString("1") + QChar(0x2028) + "7");
        m_w->dialog.writeFile(folder);
        QCOMPARE(m_w->said.err(), QString("<<< the serial number cannot name a file: 1\\u20287\n"));
    }

    void fileOfAnEarlierSessionIsNotReplacedByACutSerialNumber()
    {
        files::write(path("1700999.dat"), "another unit's");
        receive("1700999A");
        m_w->dialog.writeFile(m_dir->path());
        QCOMPARE(files::contentOf(path("1700999.dat")), QByteArray("another unit's"));
        receive("1700999");
        m_w->dialog.writeFile(m_dir->path());
        QCOMPARE(files::contentOf(path("1700999.dat")).size(), 416);
    }
};

QTEST_MAIN(TestFactoryFileOutcomes)
#include "tst_factoryfileoutcomes.moc"
