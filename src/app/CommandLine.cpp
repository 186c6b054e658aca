#include "app/CommandLine.h"

#include "diagnostics/diagnostics.h"
#include "diagnostics/escaped.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <clocale>
#include <cstdlib>

namespace {

struct ToolkitOption
{
    QLatin1String name; ///< after one dash or two
    bool hasValue;      ///< in the next argument
    bool takesEquals;   ///< the value may also follow an equals sign
};

/// What QApplication and its X11 platform take from the command line.
const ToolkitOption toolkitOptions[] = {
    {QLatin1String("platform"), true, false},           //
    {QLatin1String("platformpluginpath"), true, false}, //
    {QLatin1String("platformtheme"), true, false},      //
    {QLatin1String("plugin"), true, false},             //
    {QLatin1String("geometry"), true, false},           //
    {QLatin1String("qwindowgeometry"), true, false},    //
    {QLatin1String("title"), true, false},              //
    {QLatin1String("qwindowtitle"), true, false},       //
    {QLatin1String("icon"), true, false},               //
    {QLatin1String("qwindowicon"), true, false},        //
    {QLatin1String("session"), true, false},            //
    {QLatin1String("style"), true, true},               //
    {QLatin1String("stylesheet"), true, true},          //
    {QLatin1String("display"), true, false},            //
    {QLatin1String("name"), true, false},               //
    {QLatin1String("visual"), true, false},             //
    {QLatin1String("qmljsdebugger"), true, true},       //
    {QLatin1String("reverse"), false, false},           //
    {QLatin1String("testability"), false, false},       //
    {QLatin1String("widgetcount"), false, false},       //
    {QLatin1String("nograb"), false, false},            //
    {QLatin1String("dograb"), false, false},            //
    {QLatin1String("qdebug"), false, false},            //
    {QLatin1String("qdevel"), false, false},            //
};

const QLatin1String portOption("port");

[[noreturn]] void fail(const QString &error)
{
    diagnostics::err(diagnostics::escaped(error));
    std::exit(EXIT_FAILURE);
}

[[noreturn]] void failNamed(const QString &error)
{
    fail(QCoreApplication::applicationName() + QLatin1String(": ") + error);
}

/// How many arguments from this one on are the toolkit's; 0 if it is not.
int toolkitArguments(const QString &argument)
{
    if (!argument.startsWith(QLatin1Char('-')))
        return 0;
    const QString option = argument.mid(argument.startsWith(QLatin1String("--")) ? 2 : 1);
    const QString name = option.section(QLatin1Char('='), 0, 0);
    const bool hasEquals = name != option;
    const auto *found = std::find_if(std::begin(toolkitOptions), std::end(toolkitOptions),
                                     [&](const ToolkitOption &row) {
                                         return row.name == name && (!hasEquals || row.takesEquals);
                                     });
    if (found == std::end(toolkitOptions))
        return 0;
    return found->hasValue && !hasEquals ? 2 : 1;
}

/// Moves the program's own arguments out of `argv`, which keeps those of the toolkit.
QStringList takeOwnArguments(int &argc, char *argv[])
{
    const auto text = [argv](int i) { return QString::fromLocal8Bit(argv[i]); };
    QStringList own{text(0)};
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        const int toolkits = toolkitArguments(text(i));
        if (i + toolkits > argc)
            failNamed(QStringLiteral("Missing value after '%1'.").arg(text(i)));
        if (toolkits > 0) {
            argv[kept++] = argv[i];
            if (toolkits > 1)
                argv[kept++] = argv[++i];
            continue;
        }
        own << text(i);
        const bool hasValue = own.constLast() == QLatin1String("--") + portOption;
        if (hasValue && i + 1 < argc)
            own << text(++i);
    }
    argc = kept;
    argv[argc] = nullptr;
    return own;
}

} // namespace

CommandLine CommandLine::read(int &argc, char *argv[])
{
    std::setlocale(LC_ALL, ""); // as the toolkit does it, to read the arguments' characters
    const QStringList arguments = takeOwnArguments(argc, argv);

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
    if (!parser.parse(arguments))
        failNamed(parser.errorText());
    if (parser.isSet(help) || parser.isSet(QStringLiteral("help-all")) || parser.isSet(version)) {
        const QCoreApplication application(argc, argv);
        parser.process(arguments); // says what there is to say, and ends the program
    }
    if (!parser.positionalArguments().isEmpty())
        fail(QStringLiteral("Unexpected argument: ") + parser.positionalArguments().constFirst());
    return {parser.values(port), parser.isSet(factory)};
}
