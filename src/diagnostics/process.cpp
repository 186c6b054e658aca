#include "diagnostics/process.h"

#include <QtGlobal>

#include <csignal>
#include <cstdlib>

#ifdef Q_OS_UNIX

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

extern "C" void ignoreSignal(int) {}

namespace process {

void completeStandardStreams()
{
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(descriptor, F_GETFD) < 0 && errno == EBADF)
            if (::open("/dev/null", O_RDWR) != descriptor) // the lowest free number
                return;
}

void surviveFailedWrites()
{
    // A handler, because a signal that is ignored would stay so in programs started from here.
    struct sigaction action = {};
    action.sa_handler = ignoreSignal;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int signal : {SIGPIPE, SIGXFSZ})
        sigaction(signal, &action, nullptr);
}

} // namespace process

#else

namespace process {

void completeStandardStreams() {}
void surviveFailedWrites() {}

} // namespace process

#endif

namespace process {

void endBySignal(int signal)
{
    std::signal(signal, SIG_DFL);
    std::raise(signal);
    std::abort();
}

} // namespace process
