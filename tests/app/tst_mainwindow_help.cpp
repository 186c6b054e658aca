#include "link/SerialConnection.h"
#include "support/captureddiagnostics.h"
#include "support/modal.h"
#include "support/pseudoterminal.h"
#include "support/windowundertest.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QSerialPort>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QUrl>

#include <sys/stat.h>

/// Help menu, keys, and what the status bar says when a port does not open.
class tst_mainwindow_help : public QObject
{
    Q_OBJECT

private slots:
    void helpMenuFollowsTheFileMenu();
    void aboutNamesVersionAndLicences();
    void userGuideIsOpenedFromTheDocumentation();
    void missingGuideIsReported();
    void keysPressTheCommandButtons();
    void keyConnectsUnderEitherText();
    void missingPortIsReported();
    void heldPortIsReported();
    void portWithTooLongANameIsReported();
    void forbiddenPortIsReported();
    void fileThatIsNoPortIsReported();
    void successReplacesTheReport();

private:
    static QString status(const WindowUnderTest &tool)
    {
        return tool.window.statusBar()->currentMessage();
    }
};

/// Receives what QDesktopServices is asked to open.
class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    UrlCatcher() { QDesktopServices::setUrlHandler("file", this, "open"); }
    ~UrlCatcher() override { QDesktopServices::unsetUrlHandler("file"); }
    QList<QUrl> urls;

public slots:
    void open(const QUrl &url) { urls << url; }
};

void tst_mainwindow_help::helpMenuFollowsTheFileMenu()
{
    WindowUnderTest tool;
    const auto menus = tool.window.menuBar()->actions();
    QCOMPARE(menus.count(), 2);
    QCOMPARE(menus[0]->text(), QStringLiteral("File"));
    QStringList texts;
    for (const QAction *action : menus[1]->menu()->actions())
        if (!action->isSeparator())
            texts << action->text().remove('&');
    QCOMPARE(texts, (QStringList{"User guide", "What's This?", "About", "About Qt"}));
}

void tst_mainwindow_help::aboutNamesVersionAndLicences()
{
    WindowUnderTest tool;
    QString text;
    modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
        text = box->text();
        box->button(QMessageBox::Ok)->click();
    });
    tool.get<QAction>("actionAbout")->trigger();
    QVERIFY(answer.given());
    for (const char *part : {"2.19", qVersion(), "Qt", "GNU Lesser General Public License"})
        QVERIFY2(text.contains(QLatin1String(part)), part);
}

void tst_mainwindow_help::userGuideIsOpenedFromTheDocumentation()
{
    // Where an installation has it, seen from the folder of the program.
    const QDir programs(QCoreApplication::applicationDirPath());
    const QString folder = programs.filePath("../share/doc/quorvix-config");
    QVERIFY(QDir().mkpath(folder));
    QFile guide(folder + "/guide.md");
    QVERIFY(guide.open(QIODevice::WriteOnly));
    guide.close();

    UrlCatcher catcher;
    WindowUnderTest tool;
    tool.get<QAction>("actionUserGuide")->trigger();
    QVERIFY(guide.remove());
    QCOMPARE(catcher.urls.count(), 1);
    QCOMPARE(catcher.urls.first(), QUrl::fromLocalFile(QDir(folder).canonicalPath() + "/guide.md"));
}

void tst_mainwindow_help::missingGuideIsReported()
{
    UrlCatcher catcher;
    WindowUnderTest tool;
    QString text;
    modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
        text = box->text();
        box->button(QMessageBox::Ok)->click();
    });
    tool.get<QAction>("actionUserGuide")->trigger();
    QVERIFY(answer.given());
    QVERIFY(catcher.urls.isEmpty());
    QVERIFY(text.contains("not installed"));
}

void tst_mainwindow_help::keysPressTheCommandButtons()
{
    WindowUnderTest tool;
    const QMap<QString, QString> keys = {
        {"btnReadConf", "F5"}, {"btnSetConf", "Ctrl+Shift+S"}, {"pbLivePreview", "F6"}};
    for (auto it = keys.begin(); it != keys.end(); ++it) {
        const auto *button = tool.get<QPushButton>(qPrintable(it.key()));
        QCOMPARE(button->shortcut().toString(), it.value());
        QVERIFY2(button->toolTip().contains(it.value()), qPrintable(it.key()));
    }
}

void tst_mainwindow_help::keyConnectsUnderEitherText()
{
    WindowUnderTest tool;
    CapturedDiagnostics captured;
    PseudoTerminal port;
    tool.window.show();
    QApplication::setActiveWindow(&tool.window);
    QVERIFY(QTest::qWaitForWindowActive(&tool.window));
    tool.window.slotNewPortList({port.path()});
    for (const char *text : {"Disconnect", "Connect", "Disconnect"}) {
        QTest::keyClick(&tool.window, Qt::Key_K, Qt::ControlModifier);
        QTRY_COMPARE(tool.get<QPushButton>("btConnectDisconnect")->text(), QString(text));
    }
}

void tst_mainwindow_help::missingPortIsReported()
{
    WindowUnderTest tool;
    CapturedDiagnostics captured;
    QVERIFY(!tool.connectTo("/dev/ttyGONE0"));
    QCOMPARE(
        status(tool),
        QStringLiteral("Cannot open /dev/ttyGONE0: no such device. Plug the camera in again."));
}

void tst_mainwindow_help::heldPortIsReported()
{
    PseudoTerminal terminal;
    QSerialPort other(terminal.path());
    QVERIFY(other.open(QIODevice::ReadWrite));

    WindowUnderTest tool;
    CapturedDiagnostics captured;
    QVERIFY(!tool.connectTo(terminal.path()));
    QCOMPARE(status(tool), "Cannot open " + terminal.path() +
                               ": another program holds it. Close that program, then connect "
                               "again.");
}

void tst_mainwindow_help::portWithTooLongANameIsReported()
{
    PseudoTerminal terminal;
    QTemporaryDir folder;
    const QString middle = folder.filePath(QString(100, 'd'));
    const QString path = middle + '/' + QString(251 - middle.size() - 1, 'c');
    QVERIFY(QDir().mkpath(middle) && QFile::link(terminal.path(), path));

    WindowUnderTest tool;
    CapturedDiagnostics captured;
    QVERIFY(!tool.connectTo(path));
    QCOMPARE(status(tool), "Cannot open a port with so long a name. Make a link to it, then choose "
                           "the link: " +
                               path);
}

void tst_mainwindow_help::forbiddenPortIsReported()
{
    PseudoTerminal terminal;
    QVERIFY(::chmod(qPrintable(terminal.path()), 0) == 0);
    // The superuser may open anything.
    const bool superuser = ::geteuid() == 0;
    constexpr uid_t nobody = 65534;
    if (superuser)
        QVERIFY(::seteuid(nobody) == 0);

    WindowUnderTest tool;
    CapturedDiagnostics captured;
    const bool opened = tool.connectTo(terminal.path());
    if (superuser)
        QVERIFY(::seteuid(0) == 0);
    QVERIFY(!opened);
    QCOMPARE(status(tool), "Cannot open " + terminal.path() +
                               ": no permission. Add your user to the group dialout, then log in "
                               "again.");
}

void tst_mainwindow_help::fileThatIsNoPortIsReported()
{
    QTemporaryDir folder;
    QFile file(folder.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    WindowUnderTest tool;
    CapturedDiagnostics captured;
    QVERIFY(!tool.connectTo(file.fileName()));
    QVERIFY2(status(tool).startsWith("Cannot open " + file.fileName()), qPrintable(status(tool)));
}

void tst_mainwindow_help::successReplacesTheReport()
{
    WindowUnderTest tool;
    CapturedDiagnostics captured;
    PseudoTerminal terminal;
    QVERIFY(!tool.connectTo("/dev/ttyGONE0"));
    QVERIFY(tool.connectTo(terminal.path()));
    QCOMPARE(status(tool), QStringLiteral("KoVo"));
}

QTEST_MAIN(tst_mainwindow_help)
#include "tst_mainwindow_help.moc"
