#include "diagnostics/SignalWatcher.h"

#include <QSocketNotifier>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

int wakeUp[2] = {-1, -1}; // read end, write end

extern "C" void onSignal(int signal)
{
    const int interrupted = errno;
    const char byte = static_cast<char>(signal);
    [[maybe_unused]] const ssize_t written = ::write(wakeUp[1], &byte, 1);
    errno = interrupted;
}

void handle(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

bool isIgnored(int signal)
{
    struct sigaction action = {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

} // namespace

SignalWatcher::SignalWatcher(std::initializer_list<int> watched, QObject *parent) : QObject(parent)
{
    if (::pipe(wakeUp) != 0)
        return; // the signals then keep their default action
    for (const int descriptor : wakeUp) {
        ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
        ::fcntl(descriptor, F_SETFL, O_NONBLOCK);
    }
    auto *notifier = new QSocketNotifier(wakeUp[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char bytes[16];
        ssize_t count = 0;
        while ((count = ::read(wakeUp[0], bytes, sizeof bytes)) > 0) {
            for (ssize_t i = 0; i < count; ++i)
                emit signalCaught(bytes[i]);
        }
    });
    for (const int signal : watched) {
        if (isIgnored(signal))
            continue;
        m_watched.push_back(signal);
        handle(signal, onSignal);
    }
}

SignalWatcher::~SignalWatcher()
{
    stop();
    for (int &descriptor : wakeUp) {
        if (descriptor >= 0)
            ::close(descriptor);
        descriptor = -1;
    }
}

void SignalWatcher::stop()
{
    for (const int signal : m_watched)
        handle(signal, SIG_DFL);
    m_watched.clear();
}

#else

SignalWatcher::SignalWatcher(std::initializer_list<int>, QObject *parent) : QObject(parent) {}
SignalWatcher::~SignalWatcher() = default;
void SignalWatcher::stop() {}

#endif
