#include "Tour.h"

#include "diagnostics/diagnostics.h"
#include "forms/busyindicator.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    busyindicator::prepareProgram();
    QApplication app(argc, argv);
    QApplication::setApplicationName("quorvix-tour");

    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Takes the configuration tool through a session with a simulated camera and saves a "
        "picture of every tab. Exits with 1 if a step fails.");
    parser.addHelpOption();
    const QCommandLineOption model("model", "Simulated model: blend, blend-zoom or 2.0.", "model",
                                   "blend-zoom");
    const QCommandLineOption noSimulator("no-simulator", "Open the window without a camera.");
    const QCommandLineOption factory("factory", "Show the buttons for the production line.");
    const QCommandLineOption output("output", "Folder of the pictures.", "folder",
                                    QApplication::applicationDirPath() + "/../tour");
    parser.addOptions({model, noSimulator, factory, output});
    parser.process(app);

    Tour::Options options;
    options.output = QDir(QDir::cleanPath(parser.value(output)));
    options.factory = parser.isSet(factory);
    if (!parser.isSet(noSimulator))
        options.model = parser.value(model);
    if (!parser.isSet(noSimulator) &&
        !QStringList{"blend", "blend-zoom", "2.0"}.contains(options.model)) {
        diagnostics::err("unknown model \"" + options.model + '"');
        return 2;
    }

    QFile log(options.output.filePath("diagnostics.log"));
    if (!options.output.mkpath(".") || !log.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        diagnostics::err("cannot write to " + options.output.path());
        return 1;
    }
    // Standard output is for the steps; what the window has to say goes to a file beside the
    // pictures.
    diagnostics::setSink([&log](diagnostics::Stream, const QString &text) {
        log.write(text.toUtf8());
        log.flush();
    });
    const bool passed = Tour(options).run();
    diagnostics::setSink({});
    return passed ? 0 : 1;
}
