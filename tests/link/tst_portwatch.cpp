#include "link/PortWatch.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class tst_PortWatch : public QObject
{
    Q_OBJECT

private slots:
    void looksAtFirstUntilNothingIsNewAndThenHardlyEver();
    void looksWhenANameAppearsOrVanishes();
    void looksAlwaysWhereAFolderCannotBeRead();
};

namespace {

struct Folders
{
    Folders()
    {
        QDir(root.path()).mkdir("sys");
        QDir(root.path()).mkdir("dev");
    }
    QTemporaryDir root;
    PortWatch watch{QStringList{root.filePath("sys"), root.filePath("dev")}};

    bool make(const QString &name) { return QFile::link("nowhere", root.filePath(name)); }
    int looks(int calls)
    {
        int looks = 0;
        for (int i = 0; i < calls; ++i)
            looks += watch.isWorthALook();
        return looks;
    }
};

} // namespace

void tst_PortWatch::looksAtFirstUntilNothingIsNewAndThenHardlyEver()
{
    Folders folders;
    QVERIFY(folders.watch.isWorthALook());
    folders.looks(20);
    // Two polls a second: of an hour's 7200 polls some remain, in case a change left no trace.
    const int looks = folders.looks(7200);
    QVERIFY2(looks > 0 && looks <= 240, qPrintable(QString::number(looks)));
}

void tst_PortWatch::looksWhenANameAppearsOrVanishes()
{
    Folders folders;
    folders.looks(20);
    for (const QString &name : QStringList{"sys/ttyACM0", "dev/ttyACM0"}) {
        QVERIFY(!folders.watch.isWorthALook());
        QVERIFY(folders.make(name));
        QVERIFY(folders.watch.isWorthALook());
        QVERIFY(folders.watch.isWorthALook()); // the system may still be setting the device up
        folders.looks(20);
        QVERIFY(!folders.watch.isWorthALook());
        QVERIFY(QFile::remove(folders.root.filePath(name)));
        QVERIFY(folders.watch.isWorthALook());
        folders.looks(20);
    }
}

void tst_PortWatch::looksAlwaysWhereAFolderCannotBeRead()
{
    QTemporaryDir root;
    PortWatch watch(QStringList{root.path(), root.filePath("missing")});
    for (int i = 0; i < 100; ++i)
        QVERIFY(watch.isWorthALook());
}

QTEST_GUILESS_MAIN(tst_PortWatch)
#include "tst_portwatch.moc"
