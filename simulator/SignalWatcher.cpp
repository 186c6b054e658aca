#include "simulator/SignalWatcher.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int watched[] = {SIGINT, SIGTERM, SIGHUP, SIGUSR1, SIGUSR2};

int wakeUp[2] = {-1, -1}; // read end, write end

extern "C" void onSignal(int signal)
{
    const char byte = static_cast<char>(signal);
    [[maybe_unused]] const ssize_t written = ::write(wakeUp[1], &byte, 1);
}

void handle(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

/// As under nohup, which starts a program that shall outlive its terminal.
bool isIgnored(int signal)
{
    struct sigaction action = {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

} // namespace

SignalWatcher::SignalWatcher(QObject *parent) : QObject(parent)
{
    if (::pipe2(wakeUp, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals then keep their default action
    auto *notifier = new QSocketNotifier(wakeUp[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char bytes[16];
        ssize_t count = 0;
        while ((count = ::read(wakeUp[0], bytes, sizeof bytes)) > 0) {
            for (ssize_t i = 0; i < count; ++i)
                announce(bytes[i]);
        }
    });
    for (const int signal : watched)
        if (signal != SIGHUP || !isIgnored(signal))
            handle(signal, onSignal);
}

SignalWatcher::~SignalWatcher()
{
    for (const int signal : watched)
        if (!isIgnored(signal))
            handle(signal, SIG_DFL);
    for (int &descriptor : wakeUp) {
        if (descriptor >= 0)
            ::close(descriptor);
        descriptor = -1;
    }
}

void SignalWatcher::announce(int signal)
{
    if (signal == SIGUSR1)
        emit signalPauseRequested();
    else if (signal == SIGUSR2)
        emit signalResumeRequested();
    else
        emit signalTerminationRequested();
}
