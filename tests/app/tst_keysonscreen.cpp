// Keys in the program itself, on an X display without a window manager and on desktops of several
// locales.

#include "app/translation.h"
#include "diagnostics/diagnostics.h"
#include "support/cameraend.h"
#include "support/formundertest.h"
#include "support/records.h"
#include "support/xdisplay.h"

#include <QLocale>
#include <QProcess>
#include <QStandardPaths>

namespace {

const char *const whereOption = "--where-is-the-offset";

/// A Blend with an external shutter, whose fields are shown therefore.
QByteArray configuration()
{
    QByteArray record = records::blend();
    records::put<quint8>(record, 21, 1);
    return records::sealed(record);
}

/// Prints where the centre of the shutter's offset is in the window of a program that has read the
/// configuration.
int tellWhereTheOffsetIs(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets); // as the program does
    QApplication application(argc, argv);
    translation::install(QLocale::system());
    diagnostics::setSink([](auto, auto) {});
    FormUnderTest form(0);
    form.window.show();
    form.window.adjustSize();
    form.chooseModel(records::keyBlend);
    form.window.parseUnknownControlStruct(records::payload(configuration()));
    if (!QTest::qWaitForWindowExposed(&form.window, 20000))
        return 1;
    QCoreApplication::processEvents();
    QWidget *box = form.widget("sb_eso_offset");
    const QPoint centre = box->mapTo(&form.window, box->rect().center());
    diagnostics::setSink({});
    diagnostics::out(QStringLiteral("%1 %2").arg(centre.x()).arg(centre.y()));
    return 0;
}

/// The program with a camera that the test plays, used by keyboard and mouse.
class Session
{
public:
    explicit Session(const QString &locale) : german(locale.startsWith("de")), m_locale(locale) {}
    ~Session()
    {
        if (process.state() == QProcess::NotRunning)
            return;
        if (const xcb_window_t window = display.find(title()))
            display.close(window);
        if (!process.waitForFinished(20000)) {
            process.kill();
            process.waitForFinished();
        }
    }

    /// Up to the configuration on the form.
    bool connectAndRead()
    {
        if (!display.start())
            return false;
        process.setProcessEnvironment(environment());
        process.start(BIN_DIR "/quorvix-config", {"--port", camera.path()});
        if (!QTest::qWaitFor([this] { return display.find(title()) != 0; }, 20000))
            return false;
        // The list of ports may still be empty: Connect does nothing then.
        for (int attempt = 0; attempt < 20 && camera.count(116) == 0; ++attempt)
            if (!press(title(), {"ctrl+k"}) ||
                QTest::qWaitFor([this] { return camera.count(116) > 0; }, 1000))
                break;
        camera.send(216, CameraEnd::identity(records::keyBlend));
        if (!QTest::qWaitFor([this] { return camera.count(102) > 0; }, 20000))
            return false;
        const int handled = endsOfMessages();
        camera.send(202, configuration());
        return QTest::qWaitFor([&] { return endsOfMessages() > handled; }, 20000);
    }

    /// Clicks into the shutter's offset and replaces its number.
    bool typeOffset(const QStringList &keys)
    {
        QProcess twin;
        twin.setProcessEnvironment(environment());
        twin.start(QCoreApplication::applicationFilePath(), {whereOption});
        if (!twin.waitForFinished(20000))
            return false;
        const QStringList place =
            QString::fromLatin1(twin.readAllStandardOutput()).simplified().split(' ');
        return place.size() == 2 &&
               display.act({"mousemove", "--window", QString::number(display.find(title())),
                            place[0], place[1], "click", "1"}) &&
               press(title(), QStringList{"ctrl+a"} + keys + QStringList{"Tab"});
    }

    /// Presses keys, by their names in X, in the window with the title.
    bool press(const QByteArray &title, const QStringList &keys)
    {
        if (!QTest::qWaitFor([&] { return display.find(title) != 0; }, 20000))
            return false;
        return display.act(
            QStringList{"windowfocus", "--sync", QString::number(display.find(title)), "key"} +
            keys);
    }
    bool closed(const QByteArray &title)
    {
        return QTest::qWaitFor([&] { return display.find(title) == 0; }, 20000);
    }
    /// What the program has written to its standard output so far.
    const QByteArray &said() { return m_said += process.readAllStandardOutput(); }

    QByteArray title() const
    {
        return german ? "Quorvix - Konfiguration - 2.19" : "Quorvix - Configuration - 2.19";
    }
    QByteArray question() const
    {
        return german ? "Konfiguration speichern" : "Save configuration";
    }

    Display display;
    CameraEnd camera;
    QProcess process;
    const bool german;

private:
    QProcessEnvironment environment() const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("WAYLAND_DISPLAY");
        environment.insert("QT_QPA_PLATFORM", "xcb");
        environment.insert("DISPLAY", display.name());
        environment.insert("LC_ALL", m_locale + ".UTF-8");
        return environment;
    }
    /// Every message that was dealt with ends with an empty line.
    int endsOfMessages() { return (said() + '|').count("\n\n") + said().startsWith('\n'); }

    QString m_locale;
    QByteArray m_said;
};

bool hasDisplayTools()
{
    return !QStandardPaths::findExecutable("Xvfb").isEmpty() &&
           !QStandardPaths::findExecutable("xdotool").isEmpty();
}

} // namespace

class TestKeysOnScreen : public QObject
{
    Q_OBJECT

private slots:
    void enterWritesNothing_data()
    {
        QTest::addColumn<QString>("key");
        for (const char *key : {"Return", "KP_Enter", "space", "Escape"})
            QTest::newRow(key) << key;
    }
    void enterWritesNothing()
    {
        QFETCH(QString, key);
        if (!hasDisplayTools())
            QSKIP("needs Xvfb and xdotool");
        Session session("C");
        QVERIFY(session.connectAndRead());
        QVERIFY(session.press(session.title(), {"ctrl+shift+s"}));
        QVERIFY(session.press(session.question(), {key}));
        QVERIFY(session.closed(session.question()));
        QTRY_VERIFY(session.said().endsWith("<<< dialog rejected\n"));
        QCOMPARE(session.camera.count(101), 0);
    }

    void typedNumberIsWritten_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("mark");
        for (const char *locale : {"C", "fr_FR", "sv_SE", "fa_IR", "de_DE"})
            QTest::addRow("%s, point", locale) << locale << "period";
        QTest::newRow("de_DE, comma") << "de_DE"
                                      << "comma";
        QTest::newRow("de_DE, point of the keypad") << "de_DE"
                                                    << "KP_Decimal";
    }
    void typedNumberIsWritten()
    {
        QFETCH(QString, locale);
        QFETCH(QString, mark);
        if (!hasDisplayTools())
            QSKIP("needs Xvfb and xdotool");
        Session session(locale);
        QVERIFY(session.connectAndRead());
        QVERIFY(session.typeOffset({"minus", "1", mark, "5"}));
        QVERIFY(session.press(session.title(), {"ctrl+shift+s"}));
        QVERIFY(session.press(session.question(), {"shift+Tab", "Return"}));
        QTRY_COMPARE_WITH_TIMEOUT(session.camera.count(101), 1, 20000);
        QCOMPARE(records::get<qint32>(session.camera.last(101), 30), -150);
    }
};

int main(int argc, char *argv[])
{
    if (argc > 1 && qstrcmp(argv[1], whereOption) == 0)
        return tellWhereTheOffsetIs(argc, argv);
    QApplication application(argc, argv);
    TestKeysOnScreen test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_keysonscreen.moc"
