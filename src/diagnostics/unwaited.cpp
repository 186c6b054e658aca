#include "diagnostics/unwaited.h"

#ifdef Q_OS_UNIX

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool isSame(const struct stat &file, const struct stat &other)
{
    return file.st_dev == other.st_dev && file.st_ino == other.st_ino;
}

/// A way of our own into the pipe or terminal behind a descriptor, which does not block; -1 where
/// there is none, such as in a terminal of another user.
class OwnWay
{
public:
    int into(int descriptor, const struct stat &file)
    {
        if (m_known && isSame(file, m_file))
            return m_descriptor;
        if (m_descriptor >= 0)
            ::close(m_descriptor);
        m_descriptor = -1;
#ifdef Q_OS_LINUX
        char path[32];
        std::snprintf(path, sizeof path, "/proc/self/fd/%d", descriptor);
        m_descriptor = ::open(path, O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
#endif
        m_file = file;
        m_known = true;
        return m_descriptor;
    }

private:
    bool m_known = false;
    struct stat m_file = {};
    int m_descriptor = -1;
};

ssize_t writeToReader(int descriptor, const struct stat &file, const char *bytes, size_t size)
{
    static std::array<OwnWay, 3> ways; // of the standard streams
    if (descriptor < int(ways.size())) {
        const int own = ways[size_t(descriptor)].into(descriptor, file);
        if (own >= 0)
            return ::write(own, bytes, size);
    }
    // A pipe that is ready takes this much without blocking.
    pollfd ready{descriptor, POLLOUT, 0};
    if (::poll(&ready, 1, 0) <= 0) {
        errno = EAGAIN;
        return -1;
    }
    return ::write(descriptor, bytes, std::min(size, size_t(_POSIX_PIPE_BUF)));
}

ssize_t writeOnce(int descriptor, const char *bytes, size_t size)
{
    struct stat file = {};
    if (::fstat(descriptor, &file) != 0)
        return -1;
    if (S_ISSOCK(file.st_mode))
        return ::send(descriptor, bytes, size, MSG_DONTWAIT);
    if (S_ISFIFO(file.st_mode) || (S_ISCHR(file.st_mode) && ::isatty(descriptor)))
        return writeToReader(descriptor, file, bytes, size);
    return ::write(descriptor, bytes, size);
}

} // namespace

namespace unwaited {

qint64 write(int descriptor, const char *bytes, qint64 size)
{
    ssize_t written = -1;
    do {
        written = writeOnce(descriptor, bytes, size_t(size));
    } while (written < 0 && errno == EINTR);
    if (written >= 0)
        return written;
    switch (errno) {
    case EAGAIN:
        return 0;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return Full;
    default:
        return Gone;
    }
}

bool areSame(int descriptor, int other)
{
    struct stat file = {};
    struct stat otherFile = {};
    return ::fstat(descriptor, &file) == 0 && ::fstat(other, &otherFile) == 0 &&
           isSame(file, otherFile);
}

} // namespace unwaited

#else

#include <cstdio>

namespace unwaited {

qint64 write(int descriptor, const char *bytes, qint64 size)
{
    std::FILE *file = descriptor == 1 ? stdout : stderr;
    const auto written = qint64(std::fwrite(bytes, 1, size_t(size), file));
    return std::fflush(file) == 0 && written == size ? size : Gone;
}

bool areSame(int, int)
{
    return false;
}

} // namespace unwaited

#endif
