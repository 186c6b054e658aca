#include "app/CommandLine.h"
#include "app/MainWindow.h"
#include "app/translation.h"
#include "diagnostics/SignalWatcher.h"
#include "diagnostics/diagnostics.h"
#include "diagnostics/process.h"
#include "forms/busyindicator.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>

#include <csignal>
#include <cstdlib>

namespace {

/// The window that holds a port when the program is ended from outside. A port keeps others out for
/// good if its lock stays behind: other users may not remove it.
MainWindow *openWindow = nullptr;

void releasePort()
{
    if (openWindow)
        openWindow->releasePort();
    openWindow = nullptr;
}

} // namespace

int main(int argc, char *argv[])
{
    process::completeStandardStreams();
    process::surviveFailedWrites();
    QCoreApplication::setApplicationName(QStringLiteral("quorvix-config"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUORVIX_VERSION));
    const CommandLine commandLine = CommandLine::read(argc, argv);
    diagnostics::takeToolkitMessages();

    busyindicator::prepareProgram();
    busyindicator::loadAfterFirstPaint();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    translation::install(QLocale::system());
    // Desktops that take a window's icon and name from its entry in the menu find it by this name.
    QGuiApplication::setDesktopFileName(QStringLiteral("example.quorvix.Config"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/quorvix-config.svg")));

    MainWindow window(nullptr);
    openWindow = &window;
    std::atexit(releasePort); // a lost display ends the program at once
#ifdef Q_OS_UNIX
    SignalWatcher signalWatcher({SIGINT, SIGTERM, SIGHUP});
    QObject::connect(&signalWatcher, &SignalWatcher::signalCaught, [&signalWatcher](int signal) {
        releasePort();
        signalWatcher.stop(); // a second one ends the program at once
        diagnostics::flush();
        process::endBySignal(signal);
    });
#endif
    window.offerPorts(commandLine.ports);
    if (commandLine.factory)
        window.showFactoryButtons();
    window.show();
    window.adjustSize();
    const int status = QApplication::exec();
    releasePort(); // while signals are watched: a device may take its time to close
    return status;
}
