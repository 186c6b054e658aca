#include "simulator/Options.h"
#include "simulator/RecordStore.h"
#include "simulator/Session.h"

#include "diagnostics/SignalWatcher.h"
#include "diagnostics/StandardStreams.h"
#include "diagnostics/diagnostics.h"
#include "diagnostics/process.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QSocketNotifier>

#include <csignal>
#include <unistd.h>

namespace {

int fail(const QString &error)
{
    StandardStreams::instance().write(diagnostics::Stream::Err,
                                      "quorvix-simulator: " + error.toLocal8Bit() + '\n');
    return 2;
}

void announce(const QString &path)
{
    StandardStreams::instance().write(diagnostics::Stream::Out, path.toLocal8Bit() + '\n');
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
    process::completeStandardStreams();
    process::surviveFailedWrites();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("quorvix-simulator"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUORVIX_VERSION));

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
