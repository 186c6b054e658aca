#include "app/CommandLine.h"

#include "diagnostics/diagnostics.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <clocale>
#include <cstdlib>

namespace {

struct ToolkitOption
{
    QLatin1String name; ///< after one dash or two
    bool hasValue;      ///< in the next argument, unless it follows an equals sign
};

/// What QApplication and its X11 platform take from the command line.
const ToolkitOption toolkitOptions[] = {
    {QLatin1String("platform"), true},           //
    {QLatin1String("platformpluginpath"), true}, //
    {QLatin1String("platformtheme"), true},      //
    {QLatin1String("plugin"), true},             //
    {QLatin1String("geometry"), true},           //
    {QLatin1String("qwindowgeometry"), true},    //
    {QLatin1String("title"), true},              //
    {QLatin1String("qwindowtitle"), true},       //
    {QLatin1String("icon"), true},               //
    {QLatin1String("qwindowicon"), true},        //
    {QLatin1String("session"), true},            //
    {QLatin1String("style"), true},              //
    {QLatin1String("stylesheet"), true},         //
    {QLatin1String("display"), true},            //
    {QLatin1String("name"), true},               //
    {QLatin1String("visual"), true},             //
    {QLatin1String("qmljsdebugger"), true},      //
    {QLatin1String("reverse"), false},           //
    {QLatin1String("testability"), false},       //
    {QLatin1String("widgetcount"), false},       //
    {QLatin1String("nograb"), false},            //
    {QLatin1String("dograb"), false},            //
    {QLatin1String("qdebug"), false},            //
    {QLatin1String("qdevel"), false},            //
};

const QLatin1String portOption("port");

/// How many arguments from this one on are the toolkit's; 0 if it is not.
int toolkitArguments(const QString &argument)
{
    if (!argument.startsWith(QLatin1Char('-')))
        return 0;
    const QString option = argument.mid(argument.startsWith(QLatin1String("--")) ? 2 : 1);
    const QString name = option.section(QLatin1Char('='), 0, 0);
    const auto *found = std::find_if(std::begin(toolkitOptions), std::end(toolkitOptions),
                                     [&](const ToolkitOption &row) { return row.name == name; });
    if (found == std::end(toolkitOptions))
        return 0;
    return found->hasValue && name == option ? 2 : 1;
}

QStringList withoutToolkitOptions(const QStringList &arguments)
{
    QStringList own;
    for (int i = 0; i < arguments.size(); ++i) {
        const int skipped = toolkitArguments(arguments.at(i));
        if (skipped > 0) {
            i += skipped - 1;
            continue;
        }
        own << arguments.at(i);
        const bool hasValue = arguments.at(i) == QLatin1String("--") + portOption;
        if (hasValue && i + 1 < arguments.size())
            own << arguments.at(++i);
    }
    return own;
}

} // namespace

CommandLine CommandLine::read(int argc, char *argv[])
{
    std::setlocale(LC_ALL, ""); // as the toolkit does it, to read the arguments' characters
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    arguments = withoutToolkitOptions(arguments);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Sets up Quorvix Blend and Blend Zoom thermal cameras."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption port(
        portOption,
        QStringLiteral("Also offer this device (a path or a name) in the port list. May be given "
                       "more than once."),
        QStringLiteral("NAME"));
    const QCommandLineOption factory(
        QStringLiteral("factory"),
        QStringLiteral("Show the buttons of the factory settings and the live displacement "
                       "editor."));
    parser.addOptions({port, factory});
    if (!parser.parse(arguments) || parser.isSet(help) ||
        parser.isSet(QStringLiteral("help-all")) || parser.isSet(version)) {
        const QCoreApplication application(argc, argv);
        parser.process(arguments); // says what there is to say, and ends the program
    }
    if (!parser.positionalArguments().isEmpty()) {
        diagnostics::err(QStringLiteral("Unexpected argument: ") +
                         parser.positionalArguments().constFirst());
        std::exit(EXIT_FAILURE);
    }
    return {parser.values(port), parser.isSet(factory)};
}
