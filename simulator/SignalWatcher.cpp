#include "simulator/SignalWatcher.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

int wakeUp[2] = {-1, -1}; // read end, write end

extern "C" void onSignal(int)
{
    const char byte = 0;
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

} // namespace

SignalWatcher::SignalWatcher(QObject *parent) : QObject(parent)
{
    if (::pipe2(wakeUp, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals then keep their default action
    auto *notifier = new QSocketNotifier(wakeUp[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char bytes[16];
        while (::read(wakeUp[0], bytes, sizeof bytes) > 0) {
        }
        emit signalTerminationRequested();
    });
    handle(SIGINT, onSignal);
    handle(SIGTERM, onSignal);
}

SignalWatcher::~SignalWatcher()
{
    handle(SIGINT, SIG_DFL);
    handle(SIGTERM, SIG_DFL);
    for (int &descriptor : wakeUp) {
        if (descriptor >= 0)
            ::close(descriptor);
        descriptor = -1;
    }
}
