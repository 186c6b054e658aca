// Why a port could not be opened, for names that are no plain device names.

#include "link/SerialConnection.h"

#include "support/captureddiagnostics.h"
#include "support/pseudoterminal.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

using Opening = SerialConnection::Opening;

Q_DECLARE_METATYPE(SerialConnection::Opening)

namespace {

/// The longest name of which a lock file can be made: "LCK.." and the name in 255 bytes.
constexpr int longestName = 250;

/// A path of this length below `folder`, in folders that exist.
QString longPath(const QTemporaryDir &folder, int length)
{
    const QString middle = folder.path() + '/' + QString(100, 'd');
    QDir().mkpath(middle);
    return middle + '/' + QString(length - middle.size() - 1, 'c');
}

} // namespace

class tst_SerialConnection_Openings : public QObject
{
    Q_OBJECT

private slots:
    void busyPortInTheCurrentFolderIsBusy_data();
    void busyPortInTheCurrentFolderIsBusy();
    void missingPortInTheCurrentFolderIsNotFound();
    void longNamesGetTheirReason_data();
    void longNamesGetTheirReason();
};

void tst_SerialConnection_Openings::busyPortInTheCurrentFolderIsBusy_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("in it") << "./cam";
    QTest::newRow("beside it") << "../cam";
}

void tst_SerialConnection_Openings::busyPortInTheCurrentFolderIsBusy()
{
    QFETCH(QString, name);
    PseudoTerminal line;
    QTemporaryDir folder;
    QDir root(folder.path());
    QVERIFY(root.mkdir("below") && QFile::link(line.path(), root.filePath("cam")));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(name.startsWith("../") ? root.filePath("below") : root.path()));
    CapturedDiagnostics diagnostics;
    {
        SerialConnection first(nullptr);
        SerialConnection second(nullptr);
        QVERIFY(first.openSerialPort(name));
        QVERIFY(!second.openSerialPort(name));
        QCOMPARE(int(second.lastOpening()), int(Opening::Busy));
    }
    QVERIFY(QDir::setCurrent(before));
}

void tst_SerialConnection_Openings::missingPortInTheCurrentFolderIsNotFound()
{
    CapturedDiagnostics diagnostics;
    SerialConnection connection(nullptr);
    QVERIFY(!connection.openSerialPort("./no-such-device"));
    QCOMPARE(int(connection.lastOpening()), int(Opening::NotFound));
}

void tst_SerialConnection_Openings::longNamesGetTheirReason_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<Opening>("opening");
    QTest::newRow("the longest that can be locked") << longestName << true << Opening::Succeeded;
    QTest::newRow("one more") << longestName + 1 << true << Opening::NameTooLong;
    QTest::newRow("many more") << longestName + 50 << true << Opening::NameTooLong;
    QTest::newRow("longer than a file can be named")
        << longestName + 200 << false << Opening::NameTooLong;
    QTest::newRow("of no device") << longestName + 1 << false << Opening::NotFound;
}

void tst_SerialConnection_Openings::longNamesGetTheirReason()
{
    QFETCH(int, length);
    QFETCH(bool, exists);
    QFETCH(Opening, opening);
    PseudoTerminal line;
    QTemporaryDir folder;
    const QString path = longPath(folder, length);
    QCOMPARE(path.size(), length);
    QVERIFY(!exists || QFile::link(line.path(), path));
    CapturedDiagnostics diagnostics;
    SerialConnection connection(nullptr);
    QCOMPARE(connection.openSerialPort(path), opening == Opening::Succeeded);
    QCOMPARE(int(connection.lastOpening()), int(opening));
}

QTEST_GUILESS_MAIN(tst_SerialConnection_Openings)
#include "tst_serialconnection_openings.moc"
