#include "simulator/Options.h"
#include "simulator/RecordStore.h"
#include "simulator/Session.h"

#include "diagnostics/SignalWatcher.h"
#include "diagnostics/diagnostics.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace {

int fail(const QString &error)
{
    std::fprintf(stderr, "quorvix-simulator: %s\n", qPrintable(error));
    return 2;
}

void announce(const QString &path)
{
    std::printf("%s\n", qPrintable(path));
    std::fflush(stdout);
}

void quitAtEndOfInput()
{
    auto *input = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, qApp);
    QObject::connect(input, &QSocketNotifier::activated, [input] {
        char buffer[256];
        if (::read(STDIN_FILENO, buffer, sizeof buffer) <= 0) {
            input->setEnabled(false);
            QCoreApplication::quit();
        }
    });
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("quorvix-simulator"));
    QCoreApplication::setApplicationVersion(QStringLiteral("2.19"));
    // Whoever read the device path may have closed the pipe since.
    std::signal(SIGPIPE, SIG_IGN);

    Options options;
    QString error = parseOptions(QCoreApplication::arguments(), options);
    if (!error.isEmpty())
        return fail(error);

    // Standard output belongs to the device path.
    const FrameLog log(options.log);
    diagnostics::setSink([log](diagnostics::Stream, const QString &text) {
        log.line(text.endsWith('\n') ? text.chopped(1) : text);
    });

    const RecordStore store(options.stateDirectory, *options.model);
    Camera::Settings camera{options.model,
                            options.serial,
                            options.firmware,
                            {},
                            {},
                            &QDateTime::currentMSecsSinceEpoch,
                            [&store](Camera::Record record, const QByteArray &bytes) {
                                return store.save(record, bytes);
                            }};
    error = loadRecords(camera, store, options.configurationFile, options.factoryFile);
    if (!error.isEmpty())
        return fail(error);

    // A script's background jobs are started to ignore the first; who interrupts them all the same
    // means it.
    std::signal(SIGINT, SIG_DFL);
    const SignalWatcher signalWatcher({SIGINT, SIGTERM, SIGHUP, SIGUSR1, SIGUSR2});

    Session session(camera, {options.link, options.restart, options.faults, options.seed}, log);
    QObject::connect(&session, &Session::signalDeviceReady, announce);
    QObject::connect(&session, &Session::signalFailed,
                     [](const QString &reason) { QCoreApplication::exit(fail(reason)); });
    QObject::connect(&signalWatcher, &SignalWatcher::signalCaught, &session,
                     [&session](int signal) {
                         if (signal == SIGUSR1 || signal == SIGUSR2)
                             session.setFaultsPaused(signal == SIGUSR1);
                         else
                             QCoreApplication::quit();
                     });
    error = session.start();
    if (!error.isEmpty())
        return fail(error);

    if (options.exitWithStdin)
        quitAtEndOfInput();
    return QCoreApplication::exec();
}
