#include "simulator/Options.h"

#include <QCommandLineParser>
#include <QDate>

#include <algorithm>

namespace {

const char description[] =
    "Simulates a camera on a pseudo-terminal, whose path is the first line on standard output.\n"
    "Serves until SIGINT, SIGTERM or SIGHUP. The model 2.0 tells its identity and refuses "
    "whatever\n"
    "concerns configuration and factory records.";

/// The longest serial number: the identity reply has to fit a frame with room to spare.
constexpr int serialLimit = 64;

bool isPlainText(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(),
                       [](QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0x7F; });
}

/// Those of the cameras that are configured first.
QStringList modelNames()
{
    QStringList names;
    for (const bool withRecords : {true, false})
        for (const Model &model : models::all())
            if (model.hasRecords() == withRecords)
                names << QString::fromLatin1(model.optionName);
    return names;
}

} // namespace

QString parseOptions(const QStringList &arguments, Options &options)
{
    const QCommandLineOption model("model", "Camera model: blend, blend-zoom (default) or 2.0.",
                                   "MODEL", "blend-zoom");
    const QCommandLineOption serial(
        "serial", "Serial number, instead of the one in the factory record.", "TEXT");
    const QCommandLineOption firmware("firmware", "Firmware date (default 20190912).", "YYYYMMDD",
                                      "20190912");
    const QCommandLineOption config(
        "config", "Start from this configuration record, also if --state holds one.", "FILE");
    const QCommandLineOption factory(
        "factory", "Start from this factory record, also if --state holds one.", "FILE");
    const QCommandLineOption state("state", "Keep both records in this directory across runs.",
                                   "DIR");
    const QCommandLineOption link("link",
                                  "Keep a symbolic link to the device at this path, in place "
                                  "of none but one to a pseudo-terminal, /dev/pts/N.",
                                  "PATH");
    const QCommandLineOption log("log", "Write one line a frame to standard error.");
    const QCommandLineOption restart(
        "restart", "Restart after a configuration write as a camera does: the device vanishes for "
                   "a second and comes back, under the same link, as another line on standard "
                   "output.");
    const QCommandLineOption exitWithStdin("exit-with-stdin", "Also end when standard input ends.");

    const QCommandLineOption fault(
        "fault",
        "Let something go wrong on the way to the client; repeatable: " + faultKinds() +
            ". SIGUSR1 pauses all faults, SIGUSR2 resumes them.",
        "KIND[:VALUE]");
    const QCommandLineOption seed("seed", "Seed of the faults' chances (default 1).", "N", "1");

    QCommandLineParser parser;
    parser.setApplicationDescription(QString::fromLatin1(description));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({model, serial, firmware, config, factory, state, link, log, restart,
                       exitWithStdin, fault, seed});
    if (!parser.parse(arguments))
        return parser.errorText();
    if (parser.isSet(help) || parser.isSet("help-all"))
        parser.showHelp();
    if (parser.isSet(version))
        parser.showVersion();
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("Unexpected argument '%1'.")
            .arg(parser.positionalArguments().constFirst());

    options.model = models::ofOptionName(parser.value(model));
    if (!options.model)
        return QStringLiteral("Unknown model '%1': choose one of %2.")
            .arg(parser.value(model), modelNames().join(QStringLiteral(", ")));

    const QString date = parser.value(firmware);
    if (date.size() != 8 || !QDate::fromString(date, QStringLiteral("yyyyMMdd")).isValid())
        return QStringLiteral("'%1' is no date of the form YYYYMMDD.").arg(date);
    options.firmware = date.toUInt();

    if (parser.isSet(serial)) {
        const QString text = parser.value(serial);
        if (text.size() > serialLimit || !isPlainText(text))
            return QStringLiteral("A serial number is at most %1 printable ASCII characters.")
                .arg(serialLimit);
        options.serial = text.toLatin1();
        if (options.serial.isNull())
            options.serial = "";
    }

    const QStringList faults = parser.values(fault);
    for (const QString &text : faults) {
        QString error = addFault(text, options.faults);
        if (!error.isEmpty())
            return error;
    }
    bool ok = false;
    options.seed = parser.value(seed).toUInt(&ok);
    if (!ok)
        return QStringLiteral("'%1' is no seed.").arg(parser.value(seed));

    options.configurationFile = parser.value(config);
    options.factoryFile = parser.value(factory);
    if (!options.model->hasRecords() &&
        !(options.configurationFile.isEmpty() && options.factoryFile.isEmpty()))
        return QStringLiteral("A %1 camera has no records to start from.")
            .arg(QString::fromLatin1(options.model->optionName));
    options.stateDirectory = parser.value(state);
    options.link = parser.value(link);
    options.log = parser.isSet(log);
    options.restart = parser.isSet(restart);
    options.exitWithStdin = parser.isSet(exitWithStdin);
    return {};
}
