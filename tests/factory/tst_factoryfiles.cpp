#include "factory/factorywindow.h"
#include "support/modal.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

namespace {

/// Text of the report of a fresh form.
const char *const freshReport = "QX Blend Zoom 1700999\n"
                                "\n"
                                "HDMI:\n"
                                "A 483,30,0,0,0,0,0,0,0,0,\n"
                                "B 188,0,0,0,0,0,0,0,0,0,\n"
                                "C 945,1832,1919,1919,1919,1919,1919,1919,1919,1919,\n"
                                "D 756,1079,1079,1079,1079,1079,1079,1079,1079,1079,\n"
                                "E 378,733,1100,1450,1840,2250,2550,2900,3300,3700,\n"
                                "F 0,2,104,158,195,220,231,243,254,262,\n"
                                "G 0,42,106,146,166,180,188,195,201,205,\n"
                                "\n"
                                "Analog:\n"
                                "A 21,21,21,21,21,21,21,21,21,21,\n"
                                "B 50,50,50,50,50,50,50,50,50,50,\n"
                                "C 471,798,798,798,798,798,798,798,798,798,\n"
                                "D 378,599,599,599,599,599,599,599,599,599,\n"
                                "E 189,366,550,725,920,1125,1275,1450,1650,1850,\n"
                                "F 0,40,134,178,208,229,239,249,258,264,\n"
                                "G 0,46,116,150,178,187,195,203,209,214,\n"
                                "\n"
                                "Ardview:\n"
                                "X-Shift 23,5,0,0,0,0,0,0,0,0,\n"
                                "Y-Shift -20,-1,0,0,0,0,0,0,0,0,\n"
                                "Scale 620,350,230,180,140,130,120,110,100,100,\n";

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be opened");
}

} // namespace

class tst_FactoryFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { modal::useQtDialogs(); }
    void init()
    {
        dir = std::make_unique<QTemporaryDir>();
        QVERIFY(dir->isValid());
        w = std::make_unique<FactoryWindow>();
    }
    void cleanup()
    {
        w.reset();
        dir.reset();
    }

    void writesDataFileAndReportNamedAfterTheSerialNumber();
    void reportRowsShowTheCellsAsTheyStand();
    void reportFollowsTablesThatGrew();
    void everyReportRowEndsInAComma();
    void emptySerialNumberGivesBareExtensions();
    void serialNumberWithSeparatorWritesNothing();
    void serialNumberBeyondAsciiIsLatin1InTheRecord();
    void otherModelsLeaveTwoEmptyFiles();
    void unwritableDirectoryLeavesTheProgramAsItWas();
    void fullDiskIsReported();
    void pipesAreNotWrittenTo();
    void pathOfTheDirectoryIsCleaned();
    void writingReplacesAnOlderFile();
    void cancelledDirectoryDialogWritesNothing();

    void readingBackRestoresTablesAndSerialNumber();
    void readingAndCancellingTheBoxKeepsTheTables();
    void longFileIsReadAtTheRecordsLength();
    void shortFilesAreRefused_data();
    void shortFilesAreRefused();
    void whatIsNoRegularFileIsNotRead();
    void otherModelsDoNotRead();
    void cancelledFileDialogReadsNothing();
    void openDialogOffersDataFiles();

private:
    QString path(const char *name) const { return dir->filePath(QLatin1String(name)); }
    QStringList files() const
    {
        return QDir(dir->path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    void writeTo(const QString &target)
    {
        modal::Answer<QFileDialog> answer(modal::choose(target));
        w->click("pb_WriteFile");
    }
    void readFrom(const QString &file)
    {
        modal::Answer<QFileDialog> answer(modal::choose(file));
        w->click("pb_ReadFile");
    }
    void put(const QString &file, const QByteArray &bytes)
    {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        QCOMPARE(out.write(bytes), qint64(bytes.size()));
    }

    std::unique_ptr<QTemporaryDir> dir;
    std::unique_ptr<FactoryWindow> w;
};

void tst_FactoryFiles::writesDataFileAndReportNamedAfterTheSerialNumber()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    writeTo(dir->path());
    QCOMPARE(files(), (QStringList{"1700999.dat", "1700999.txt"}));
    const QByteArray data = content(path("1700999.dat"));
    QCOMPARE(data.size(), 416);
    QCOMPARE(data, zoomRecord("1700999", initialArdview(), initialHdmi(), initialAnalog()));
    QCOMPARE(content(path("1700999.txt")), QByteArray(freshReport));
    QCOMPARE(w->said.out(), QStringLiteral("<<< %1\n"
                                           "FactorySettings::writeFile()\n"
                                           "<<< %1/1700999.dat\n"
                                           "<<< 1700999\n"
                                           "FactorySettings::writeReport()\n"
                                           "<<< %1/1700999.txt\n"
                                           "FactorySettings::ui2report_QXBlendZoom()\n"
                                           "<<< QX Blend Zoom\n")
                                .arg(dir->path()));
    QCOMPARE(w->said.err(), QString());
    QCOMPARE(w->sent.count(), 0);
}

void tst_FactoryFiles::reportRowsShowTheCellsAsTheyStand()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    w->table("tw_QXBZ_hdmi")->item(0, 0)->setText(QStringLiteral("left"));
    delete w->table("tw_QXBZ_ardview")->takeItem(2, 9);
    w->table("tw_QXBZ_analog")->setRowCount(2);
    w->table("tw_QXBZ_analog")->setColumnCount(3);
    w->serialNumber()->setText(QStringLiteral("42"));
    QString report;
    QTextStream stream(&report);
    w->dialog.ui2report_QXBlendZoom(stream);
    stream.flush();
    QVERIFY(report.startsWith(
        QStringLiteral("QX Blend Zoom 42\n\nHDMI:\nA left,30,0,0,0,0,0,0,0,0,\nB 188,0,")));
    QVERIFY(report.contains(
        QStringLiteral("\n\nAnalog:\nA 21,21,21,\nB 50,50,50,\n\nArdview:\nX-Shift 23,5,")));
    QVERIFY(report.endsWith(QStringLiteral("\nScale 620,350,230,180,140,130,120,110,100,,\n")));
}

void tst_FactoryFiles::reportFollowsTablesThatGrew()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    w->table("tw_QXBZ_hdmi")->setRowCount(8);
    w->table("tw_QXBZ_hdmi")->setColumnCount(11);
    w->table("tw_QXBZ_hdmi")->setItem(7, 10, new QTableWidgetItem(QStringLiteral("last")));
    QString report;
    QTextStream stream(&report);
    w->dialog.ui2report_QXBlendZoom(stream);
    stream.flush();
    // A row without a header of its own is counted, as on the screen.
    QVERIFY(report.startsWith(
        QStringLiteral("QX Blend Zoom 1700999\n\nHDMI:\nA 483,30,0,0,0,0,0,0,0,0,,\nB 188,")));
    QVERIFY(report.contains(QStringLiteral("\nG 0,42,106,146,166,180,188,195,201,205,,\n"
                                           "8 ,,,,,,,,,,last,\n\nAnalog:\nA 21,")));
}

void tst_FactoryFiles::everyReportRowEndsInAComma()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    w->dialog.writeReport(dir->path());
    int rows = 0;
    for (const QByteArray &line : content(path("1700999.txt")).split('\n')) {
        if (!line.contains(','))
            continue;
        ++rows;
        QVERIFY(line.endsWith(','));
        QCOMPARE(line.count(','), 10);
    }
    QCOMPARE(rows, 17);
}

void tst_FactoryFiles::emptySerialNumberGivesBareExtensions()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    w->serialNumber()->clear();
    writeTo(dir->path());
    QCOMPARE(files(), (QStringList{".dat", ".txt"}));
    QCOMPARE(content(path(".dat")),
             zoomRecord("", initialArdview(), initialHdmi(), initialAnalog()));
    QVERIFY(content(path(".txt")).startsWith("QX Blend Zoom \n\nHDMI:\n"));
}

void tst_FactoryFiles::serialNumberWithSeparatorWritesNothing()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    QVERIFY(QDir(dir->path()).mkdir(QStringLiteral("in")));
    for (const char *serial : {"../out", "a/b", "/"}) {
        w->serialNumber()->setText(QLatin1String(serial));
        w->said.clear();
        writeTo(path("in"));
        QCOMPARE(w->said.err().count(QLatin1Char('\n')), 1);
        w->said.clear();
        w->dialog.writeFile(path("in"));
        QCOMPARE(w->said.err().count(QLatin1Char('\n')), 1);
        w->said.clear();
        w->dialog.writeReport(path("in"));
        QCOMPARE(w->said.err().count(QLatin1Char('\n')), 1);
        QCOMPARE(files(), QStringList());
        QVERIFY(QDir(path("in")).isEmpty());
    }
}

void tst_FactoryFiles::serialNumberBeyondAsciiIsLatin1InTheRecord()
{
    const QString serial = QStringLiteral("17\u00DC");
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    w->serialNumber()->setText(serial);
    w->dialog.writeFile(dir->path());
    w->dialog.writeReport(dir->path());
    QCOMPARE(files(), (QStringList{serial + ".dat", serial + ".txt"}));
    const QString data = dir->filePath(serial + ".dat");
    QCOMPARE(content(data).mid(4, 12).toHex(), QByteArray("3137dc000000000000000000"));
    // The report is text in the encoding of the locale.
    QVERIFY(content(dir->filePath(serial + ".txt"))
                .startsWith("QX Blend Zoom " + serial.toLocal8Bit() + "\n\nHDMI:\n"));

    w->serialNumber()->clear();
    modal::Answer<QMessageBox> ok(modal::click(QMessageBox::Ok));
    w->dialog.loadFile(data);
    QVERIFY(ok.given());
    QCOMPARE(w->serialNumber()->text(), serial);
}

void tst_FactoryFiles::otherModelsLeaveTwoEmptyFiles()
{
    w->devices.setDevice(KovoDevice_QXBlend);
    writeTo(dir->path());
    QCOMPARE(files(), (QStringList{"1700999.dat", "1700999.txt"}));
    QCOMPARE(content(path("1700999.dat")), QByteArray());
    QCOMPARE(content(path("1700999.txt")), QByteArray());
    QCOMPARE(w->said.err(), QStringLiteral("<<< not implemeted\n<<< not implemeted\n"));
}

void tst_FactoryFiles::unwritableDirectoryLeavesTheProgramAsItWas()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    put(path("file"), "regular"); // nobody can write below it, not even the superuser
    const QVector<QString> before = w->cells("tw_QXBZ_hdmi");
    const QString below = path("file") + QStringLiteral("/below");
    w->dialog.writeFile(below);
    w->dialog.writeReport(below);
    QCOMPARE(w->said.out(), QStringLiteral("FactorySettings::writeFile()\n"
                                           "<<< %1/1700999.dat\n"
                                           "FactorySettings::writeReport()\n"
                                           "<<< %1/1700999.txt\n")
                                .arg(below));
    QCOMPARE(w->said.err(), QString());
    QCOMPARE(files(), (QStringList{"file"}));
    QCOMPARE(content(path("file")), QByteArray("regular"));
    QCOMPARE(w->cells("tw_QXBZ_hdmi"), before);
    QVERIFY(w->dialog.isEnabled());
}

void tst_FactoryFiles::fullDiskIsReported()
{
    if (!QFile::exists(QStringLiteral("/dev/full")))
        QSKIP("no /dev/full here");
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    for (const char *name : {"1700999.dat", "1700999.txt"})
        QVERIFY(QFile::link(QStringLiteral("/dev/full"), path(name)));
    w->dialog.writeFile(dir->path());
    QCOMPARE(w->said.err(), QStringLiteral("<<< could not write %1: No space left on device\n")
                                .arg(path("1700999.dat")));
    w->said.clear();
    w->dialog.writeReport(dir->path());
    QCOMPARE(w->said.err(), QStringLiteral("<<< could not write %1: No space left on device\n")
                                .arg(path("1700999.txt")));
}

void tst_FactoryFiles::pathOfTheDirectoryIsCleaned()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    w->dialog.writeFile(dir->path() + QStringLiteral("//./x/../"));
    QCOMPARE(files(), (QStringList{"1700999.dat"}));
    QVERIFY(w->said.out().contains(QStringLiteral("<<< %1/1700999.dat\n").arg(dir->path())));
}

void tst_FactoryFiles::writingReplacesAnOlderFile()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    put(path("1700999.dat"), QByteArray(2000, 'x'));
    put(path("1700999.txt"), QByteArray(9000, 'x'));
    w->dialog.writeFile(dir->path());
    w->dialog.writeReport(dir->path());
    QCOMPARE(content(path("1700999.dat")).size(), 416);
    QCOMPARE(content(path("1700999.txt")), QByteArray(freshReport));
}

void tst_FactoryFiles::cancelledDirectoryDialogWritesNothing()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    modal::Answer<QFileDialog> answer([this](QFileDialog *dialog) {
        QCOMPARE(dialog->fileMode(), QFileDialog::Directory);
        QCOMPARE(dialog->viewMode(), QFileDialog::Detail);
        dialog->setDirectory(dir->path());
        static_cast<QDialog *>(dialog)->reject();
    });
    w->click("pb_WriteFile");
    QVERIFY(answer.given());
    QCOMPARE(files(), QStringList());
    QCOMPARE(w->said.out(), QString());
    QCOMPARE(w->said.err(), QString());
}

void tst_FactoryFiles::readingBackRestoresTablesAndSerialNumber()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    w->serialNumber()->setText(QStringLiteral("1812345"));
    w->click("btnCalcADFromHDMI");
    w->click("btnCalcAVFromHDMI");
    w->table("tw_QXBZ_hdmi")->item(6, 9)->setText(QStringLiteral("-321"));
    QVector<QVector<QString>> stored;
    for (const char *name : tableNames)
        stored << w->cells(name);
    w->dialog.writeFile(dir->path());

    w.reset();
    w = std::make_unique<FactoryWindow>();
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    modal::Answer<QFileDialog> file(modal::choose(path("1812345.dat")));
    modal::Answer<QMessageBox> ok(modal::click(QMessageBox::Ok));
    w->click("pb_ReadFile");
    QVERIFY(file.given());
    QVERIFY(ok.given());
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("1812345"));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(w->cells(tableNames[i]), stored[i]);
    QCOMPARE(w->said.out(), QStringLiteral("FactorySettings::readFile()\n"
                                           "<<< %1\n<<< 1812345\n")
                                .arg(path("1812345.dat")));
    QCOMPARE(w->sent.count(), 0);
}

void tst_FactoryFiles::readingAndCancellingTheBoxKeepsTheTables()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    put(path("unit.dat"),
        zoomRecord("77", QVector<int>(30, 1), QVector<int>(70, 2), QVector<int>(70, 3)));
    const QVector<QString> before = w->cells("tw_QXBZ_analog");
    modal::Answer<QMessageBox> cancel(modal::click(QMessageBox::Cancel));
    readFrom(path("unit.dat"));
    QCOMPARE(w->cells("tw_QXBZ_analog"), before);
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("77"));
    QVERIFY(w->said.out().endsWith(QStringLiteral("<<< dialog rejected\n")));
}

void tst_FactoryFiles::longFileIsReadAtTheRecordsLength()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    put(path("unit.DAT"),
        zoomRecord("77", QVector<int>(30, 1), QVector<int>(70, 2), QVector<int>(70, 3)) +
            QByteArray(100000, '\x7F'));
    modal::Answer<QMessageBox> ok(modal::click(QMessageBox::Ok));
    readFrom(path("unit.DAT"));
    QCOMPARE(w->cells("tw_QXBZ_ardview"), QVector<QString>(30, QStringLiteral("1")));
    QCOMPARE(w->cells("tw_QXBZ_hdmi"), QVector<QString>(70, QStringLiteral("2")));
    QCOMPARE(w->cells("tw_QXBZ_analog"), QVector<QString>(70, QStringLiteral("3")));
}

void tst_FactoryFiles::shortFilesAreRefused_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("empty") << 0;
    QTest::newRow("one byte") << 1;
    QTest::newRow("one byte short") << 415;
}

void tst_FactoryFiles::shortFilesAreRefused()
{
    QFETCH(int, size);
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    put(path("unit.dat"), QByteArray(size, '5'));
    const QVector<QString> before = w->cells("tw_QXBZ_hdmi");
    readFrom(path("unit.dat"));
    QCOMPARE(w->said.err().count(QLatin1Char('\n')), 1);
    QVERIFY(w->said.err().contains(QStringLiteral("too short: %1 bytes").arg(size)));
    QCOMPARE(w->cells("tw_QXBZ_hdmi"), before);
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("1700999"));
}

void tst_FactoryFiles::pipesAreNotWrittenTo()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    for (const char *name : {"1700999.dat", "1700999.txt"}) {
        const QString pipe = path(name);
        QFile::remove(pipe); // the other name's turn has written it
        QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
        // With a reader, so that a program that opens the pipe all the same does not hang.
        const int reader = ::open(qPrintable(pipe), O_RDWR | O_NONBLOCK);
        QVERIFY(reader >= 0);
        w->dialog.writeFile(dir->path());
        w->dialog.writeReport(dir->path());
        char byte = 0;
        QCOMPARE(::read(reader, &byte, 1), ssize_t(-1));
        ::close(reader);
        QVERIFY(QFile::remove(pipe));
    }
    QCOMPARE(w->said.err(), QString());
}

void tst_FactoryFiles::whatIsNoRegularFileIsNotRead()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    QVector<QVector<QString>> before;
    for (const char *name : tableNames)
        before << w->cells(name);
    const QString pipe = path("pipe.dat");
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    // First with a writer, so that a program that opens the pipe all the same does not hang.
    const int writer = ::open(qPrintable(pipe), O_RDWR);
    QVERIFY(writer >= 0);
    w->dialog.loadFile(pipe);
    ::close(writer);
    QCOMPARE(w->said.err(), QString());
    for (const QString &each : {pipe, dir->path(), path("missing.dat"), QString()})
        w->dialog.loadFile(each);
    QCOMPARE(w->said.err(), QString());
    QCOMPARE(w->said.out(), QString());
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("1700999"));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(w->cells(tableNames[i]), before[i]);
}

void tst_FactoryFiles::otherModelsDoNotRead()
{
    w->devices.setDevice(KovoDevice_QXBlend);
    put(path("unit.dat"),
        zoomRecord("77", QVector<int>(30, 1), QVector<int>(70, 2), QVector<int>(70, 3)));
    readFrom(path("unit.dat"));
    QCOMPARE(w->said.err(), QStringLiteral("FactorySettings::readFile() Device not implemted\n"));
    QCOMPARE(w->serialNumber()->text(), QStringLiteral("1700999"));
}

void tst_FactoryFiles::cancelledFileDialogReadsNothing()
{
    w->devices.setDevice(KovoDevice_QXBlendZoom);
    modal::Answer<QFileDialog> answer(modal::cancel<QFileDialog>());
    w->click("pb_ReadFile");
    QVERIFY(answer.given());
    QCOMPARE(w->said.out(), QStringLiteral("FactorySettings::readFile()\n"));
    QCOMPARE(w->said.err(), QString());
}

void tst_FactoryFiles::openDialogOffersDataFiles()
{
    modal::Answer<QFileDialog> answer([](QFileDialog *dialog) {
        QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFile);
        QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(dialog->viewMode(), QFileDialog::Detail);
        QCOMPARE(dialog->nameFilters(), QStringList{"Data files (*.dat *.DAT)"});
        static_cast<QDialog *>(dialog)->reject();
    });
    w->click("pb_ReadFile");
    QVERIFY(answer.given());
}

QTEST_MAIN(tst_FactoryFiles)
#include "tst_factoryfiles.moc"
