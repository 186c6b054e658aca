#include "app/MainWindow.h"
#include "app/translation.h"
#include "diagnostics/diagnostics.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QLocale>
#include <QQuickWindow>
#include <QSGRendererInterface>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

/// The busy indicators are all that Qt Quick draws. In software they need no graphics driver, which
/// saves most of the start-up time and memory, and runs where there is none. The user's
/// QT_QUICK_BACKEND wins.
void chooseSoftwareRendering()
{
    const char *variable = "QT_QUICK_BACKEND";
    if (!qEnvironmentVariableIsSet(variable))
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    if (!qEnvironmentVariableIsSet(variable) || qgetenv(variable) == "software")
        QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets);
}

/// Help and version are text: they need no display.
bool asksForText(int argc, char *argv[])
{
    return std::any_of(argv + 1, argv + argc, [](const char *argument) {
        for (const char *option : {"-h", "--help", "--help-all", "-v", "--version"})
            if (std::strcmp(argument, option) == 0)
                return true;
        return false;
    });
}

struct Options
{
    QStringList ports;
    bool factory;
};

/// Leaves the program if the command line asks for text or is wrong.
Options optionsOf(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Sets up Quorvix Blend and Blend Zoom thermal cameras."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption port(
        QStringLiteral("port"),
        QStringLiteral("Also offer this device (a path or a name) in the port list. May be given "
                       "more than once."),
        QStringLiteral("NAME"));
    const QCommandLineOption factory(
        QStringLiteral("factory"),
        QStringLiteral("Show the buttons of the factory settings and the live displacement "
                       "editor."));
    parser.addOptions({port, factory});
    parser.process(application);
    if (!parser.positionalArguments().isEmpty()) {
        diagnostics::err(QStringLiteral("Unexpected argument: ") +
                         parser.positionalArguments().constFirst());
        std::exit(EXIT_FAILURE);
    }
    return {parser.values(port), parser.isSet(factory)};
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("quorvix-config"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUORVIX_VERSION));
    if (argc > 0 && asksForText(argc, argv))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    chooseSoftwareRendering();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    const Options options = optionsOf(application);
    translation::install(QLocale::system());
    // Desktops that take a window's icon and name from its entry in the menu find it by this name.
    QGuiApplication::setDesktopFileName(QStringLiteral("example.quorvix.Config"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/quorvix-config.svg")));

    MainWindow window(nullptr);
    window.offerPorts(options.ports);
    if (options.factory)
        window.showFactoryButtons();
    window.show();
    window.adjustSize();
    return QApplication::exec();
}
