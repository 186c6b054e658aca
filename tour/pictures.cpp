#include "SimulatedCamera.h"
#include "app/MainWindow.h"
#include "app/translation.h"
#include "diagnostics/diagnostics.h"
#include "factory/FactorySettings.h"
#include "factory/LiveEdit.h"
#include "forms/busyindicator.h"
#include "sbus/sbusTester.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLCDNumber>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QQuickItem>
#include <QQuickWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>
#include <QTimer>

#include <functional>

/// Takes the pictures of the user guide: the real windows, connected to a simulated camera.
namespace {

constexpr int WAIT_MS = 30000;

[[noreturn]] void fail(const QString &why)
{
    QTextStream(stderr) << "quorvix-pictures: " << why << '\n';
    std::exit(1);
}

void waitFor(const char *what, const std::function<bool()> &condition)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.elapsed() > WAIT_MS)
            fail(QStringLiteral("waited in vain for ") + what);
        QApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 10);
        QThread::msleep(5);
    }
}

QPalette darkPalette()
{
    QPalette palette(QColor(53, 53, 53), QColor(42, 42, 42));
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::ButtonText, Qt::white);
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::AlternateBase, QColor(53, 53, 53));
    palette.setColor(QPalette::ToolTipBase, QColor(53, 53, 53));
    palette.setColor(QPalette::ToolTipText, Qt::white);
    palette.setColor(QPalette::Link, QColor(86, 170, 255));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::HighlightedText, Qt::black);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(127, 127, 127));
    return palette;
}

class Pictures
{
public:
    Pictures(const QDir &output, const QString &model, const QSize &size)
        : m_output(output), m_model(model), m_size(size)
    {
        QObject::connect(&m_boxWatch, &QTimer::timeout, &m_boxWatch, [this] { answerBox(); });
        m_boxWatch.start(20);
    }

    void take()
    {
        m_window.show();
        m_window.adjustSize();
        if (m_size.isValid())
            m_window.resize(m_size);
        failedOpening();
        connectCamera();
        tabs();
        boxes();
        sbus();
        factory();
    }

private:
    template <class Widget = QPushButton>
    Widget *get(const char *name)
    {
        auto *widget = m_window.findChild<Widget *>(QLatin1String(name));
        if (!widget)
            fail(QStringLiteral("no widget ") + name);
        return widget;
    }

    /// Lets layouts follow what was shown and hidden.
    static void settle(QWidget *widget)
    {
        QSize last;
        for (int same = 0; same < 5; last = widget->size()) {
            QApplication::processEvents();
            same = last == widget->size() ? same + 1 : 0;
        }
    }

    void save(QWidget *widget, const QString &name)
    {
        settle(widget);
        const QString file = m_output.filePath(m_model + QLatin1Char('-') + name + ".png");
        if (!widget->grab().save(file))
            fail("cannot write " + file);
    }

    bool busy()
    {
        return get<QQuickWidget>("quickWidget")->rootObject()->property("running").toBool();
    }

    /// The next box gets its picture under this name, then this button is clicked.
    void expectBox(const QString &name, QMessageBox::StandardButton button)
    {
        m_boxName = name;
        m_boxButton = button;
    }
    void boxWasShown()
    {
        if (!m_boxName.isEmpty())
            fail("the box did not open: " + m_boxName);
    }
    void answerBox()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        if (m_boxName.isEmpty())
            fail("unexpected box: " + box->text());
        save(box, "box-" + m_boxName);
        m_boxName.clear();
        box->button(m_boxButton)->click();
    }

    void failedOpening()
    {
        QMetaObject::invokeMethod(&m_window, "slotNewPortList",
                                  Q_ARG(QStringList, {QStringLiteral("/dev/ttyGONE0")}));
        get("btConnectDisconnect")->click();
        save(&m_window, "open-failed");
    }

    void connectCamera()
    {
        if (!m_camera.start(m_model))
            fail("no simulated camera: " + m_camera.errorText());
        // A name as on an operator's computer, whatever the simulated port is called.
        const QString port = QStringLiteral("./ttyACM0");
        if (!QFile::link(m_camera.port(), m_ports.filePath(port)) ||
            !QDir::setCurrent(m_ports.path()))
            fail("no port in " + m_ports.path());
        auto *ports = get<QComboBox>("comboBoxPort");
        m_window.offerPorts({port});
        waitFor("the port", [&] { return ports->findText(port) >= 0; });
        ports->setCurrentIndex(ports->findText(port));
        get("btConnectDisconnect")->click();
        waitFor("the camera", [&] {
            const QString identity = MainWindow::tr("Device ID: %1   Serial: %2");
            return m_window.statusBar()->currentMessage().startsWith(identity.section('%', 0, 0)) &&
                   !busy();
        });
        ports->setItemText(ports->currentIndex(), QStringLiteral("ttyACM0"));
    }

    void tabs()
    {
        auto *tabs = get<QTabWidget>("tabWidget");
        get<QComboBox>("cbTriggerPinMode")->setCurrentIndex(1); // SBUS: its tab is enabled
        get<QComboBox>("cbFFCmode")->setCurrentIndex(1);
        get<QComboBox>("cbIsothermsState")->setCurrentIndex(1);
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            save(&m_window, QStringLiteral("tab-%1").arg(i));
        }
        get<QComboBox>("cbTriggerPinMode")->setCurrentIndex(0);
        tabs->setCurrentIndex(0);
        get<QCheckBox>("cb_pheriphery_externalshutter_installed")->setChecked(true);
        save(&m_window, QStringLiteral("tab-0-external-shutter"));
        get<QCheckBox>("cb_pheriphery_externalshutter_installed")->setChecked(false);
    }

    void boxes()
    {
        expectBox(QStringLiteral("save"), QMessageBox::Cancel);
        get("btnSetConf")->click();
        boxWasShown();
        expectBox(QStringLiteral("about"), QMessageBox::Ok);
        QMetaObject::invokeMethod(&m_window, "slotShowAbout");
        boxWasShown();
    }

    void sbus()
    {
        auto *tester = m_window.findChild<sbusTester *>();
        QMetaObject::invokeMethod(&m_window, "on_pbSbusTest_clicked");
        auto *start = tester->findChild<QPushButton *>("pbSbusTester_startstream");
        start->click();
        auto *level = tester->findChild<QLCDNumber *>("lcd1");
        waitFor("the channel levels", [&] { return level->intValue() > 0; });
        save(tester, QStringLiteral("sbus-tester"));
        start->click();
        tester->close();
    }

    void factory()
    {
        auto *settings = m_window.findChild<FactorySettings *>();
        const bool zoom = m_model == QLatin1String("blend-zoom");
        if (zoom)
            expectBox(QStringLiteral("read-settings"), QMessageBox::Ok);
        m_window.showFactoryButtons();
        get("pbFactorySettings")->click();
        if (zoom)
            waitFor("the factory settings", [&] { return m_boxName.isEmpty(); });
        save(settings, QStringLiteral("factory-settings"));
        if (zoom) {
            auto *editor = m_window.findChild<LiveEdit *>();
            get("pb_TestWindow")->click();
            editor->findChild<QPushButton *>("pbGetHDMI")->click();
            editor->findChild<QPushButton *>("btnCalcABCDEFG")->click();
            save(editor, QStringLiteral("live-editor"));
            editor->findChild<QTabWidget *>("tabWidget")->setCurrentIndex(1);
            save(editor, QStringLiteral("live-editor-analog"));
            editor->close();
        }
        settings->close();
    }

    QDir m_output;
    QTemporaryDir m_ports;
    QString m_model;
    QSize m_size;
    SimulatedCamera m_camera;
    MainWindow m_window{nullptr};
    QTimer m_boxWatch;
    QString m_boxName;
    QMessageBox::StandardButton m_boxButton = QMessageBox::NoButton;
};

} // namespace

int main(int argc, char *argv[])
{
    busyindicator::prepareProgram();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication app(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription("Takes the pictures of the user guide with a simulated "
                                     "camera. Exits with 1 if one cannot be taken.");
    parser.addHelpOption();
    const QCommandLineOption model("model", "Simulated model: blend or blend-zoom.", "model",
                                   "blend-zoom");
    const QCommandLineOption output("output", "Folder of the pictures.", "folder", ".");
    const QCommandLineOption dark("dark", "Use a dark palette.");
    const QCommandLineOption size("size", "Size of the main window, such as 1366x768.", "size");
    parser.addOptions({model, output, dark, size});
    parser.process(app);

    if (parser.isSet(dark))
        QApplication::setPalette(darkPalette());
    const QStringList sides = parser.value(size).split(QLatin1Char('x'));
    const QDir folder(QDir(parser.value(output)).absolutePath());
    if (!folder.mkpath("."))
        fail("cannot make the folder " + folder.path());
    translation::install(QLocale::system());
    diagnostics::setSink([](diagnostics::Stream, const QString &) {});
    Pictures(folder, parser.value(model),
             sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize())
        .take();
    diagnostics::setSink({});
    return 0;
}
