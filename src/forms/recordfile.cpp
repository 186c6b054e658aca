#include "forms/recordfile.h"

#include "diagnostics/escaped.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/xattr.h>
#endif

namespace recordfile {

namespace {

constexpr qint64 longestRead = 0x10000;
constexpr int longestName = 255 - 7; // bytes, of a file beside which one with a suffix has room

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(recordfile)
};

bool isPipe(const QString &path)
{
#ifdef Q_OS_UNIX
    struct stat status = {};
    return stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISFIFO(status.st_mode);
#else
    Q_UNUSED(path)
    return false;
#endif
}

/// Why the bytes written so far did not reach the disk, which may be found full only then; empty if
/// they did.
QString unwritten(QFileDevice &file)
{
    // A first part may find room: the system tells why there is no more when asked for the rest.
    if (!file.flush() && !file.flush())
        return file.errorString();
#ifdef Q_OS_UNIX
    if (fsync(file.handle()) != 0 && errno != EINVAL && errno != ENOTSUP && errno != EROFS)
        return qt_error_string(errno);
#endif
    return {};
}

#ifdef Q_OS_UNIX

#ifdef Q_OS_LINUX
/// True if the file has what a new one would not have: access lists and the like. What the system
/// labels every file with (security.*) it labels a new one with, too.
bool hasAttributes(const std::function<ssize_t(char *names, size_t size)> &list)
{
    QByteArray names(0x10000, '\0'); // the longest list there is
    const ssize_t size = list(names.data(), size_t(names.size()));
    if (size < 0)
        return errno != ENOTSUP;
    const QList<QByteArray> attributes = names.left(int(size)).split('\0');
    return std::any_of(attributes.begin(), attributes.end(), [](const QByteArray &attribute) {
        return !attribute.isEmpty() && !attribute.startsWith("security.");
    });
}
#endif

bool hasAttributes(const QByteArray &name)
{
#ifdef Q_OS_LINUX
    return hasAttributes(
        [&](char *names, size_t size) { return llistxattr(name.constData(), names, size); });
#else
    Q_UNUSED(name)
    return false;
#endif
}

bool hasAttributes(int file)
{
#ifdef Q_OS_LINUX
    return hasAttributes([=](char *names, size_t size) { return flistxattr(file, names, size); });
#else
    Q_UNUSED(file)
    return false;
#endif
}

/// True if another file can take the place of what is at `path`: nothing, or a regular file of this
/// user with one name and no more than its bytes and rights.
bool isReplaceable(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    if (name.size() - name.lastIndexOf('/') - 1 > longestName)
        return false;
    struct stat status = {};
    if (lstat(name.constData(), &status) != 0)
        return errno == ENOENT;
    return S_ISREG(status.st_mode) && status.st_nlink == 1 && status.st_uid == geteuid() &&
           !hasAttributes(name);
}

/// Gives the new file group and rights of the one at `path`, if there is one.
/// False if that cannot be, or if its folder gave it more (a default access list).
bool takesAfter(const QString &path, int file)
{
    struct stat old = {};
    struct stat fresh = {};
    if (lstat(QFile::encodeName(path).constData(), &old) != 0)
        return errno == ENOENT;
    if (fstat(file, &fresh) != 0 || hasAttributes(file) ||
        (fresh.st_gid != old.st_gid && fchown(file, uid_t(-1), old.st_gid) != 0))
        return false;
    return fchmod(file, old.st_mode & 07777) == 0 && fstat(file, &fresh) == 0 &&
           fresh.st_mode == old.st_mode && fresh.st_gid == old.st_gid && fresh.st_uid == old.st_uid;
}

#else

bool isReplaceable(const QString &path)
{
    const QFileInfo info(path);
    return !info.isSymLink() && (info.isFile() || !info.exists());
}

bool takesAfter(const QString & /*path*/, int /*file*/)
{
    return true;
}

#endif

/// Opens the file as it is, for writing and without touching it.
bool opens(const QString &path, QString &reason)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::ExistingOnly))
        return true;
    reason = file.errorString();
    return false;
}

Writing writeThrough(const QString &path, const std::function<QByteArray()> &content)
{
    const bool existed = QFileInfo::exists(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return {Writing::End::NotOpened, file.errorString(), existed};
    const QByteArray bytes = content();
    const bool taken = file.write(bytes) == bytes.size();
    const QString reason = taken ? unwritten(file) : file.errorString();
    return reason.isEmpty() ? Writing() : Writing{Writing::End::Incomplete, reason, existed};
}

/// Nothing if the file can only be written through.
std::optional<Writing> writeBeside(const QString &path, const std::function<QByteArray()> &content)
{
    const bool existed = QFileInfo::exists(path);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !takesAfter(path, file.handle()))
        return std::nullopt;
    const QByteArray bytes = content();
    const bool taken = file.write(bytes) == bytes.size();
    const QString reason = taken ? unwritten(file) : file.errorString();
    if (!reason.isEmpty())
        return Writing{Writing::End::Unchanged, reason, existed};
    if (file.commit())
        return Writing();
    if (existed)
        return std::nullopt;
    return Writing{Writing::End::Unchanged, file.errorString(), existed};
}

} // namespace

std::optional<QByteArray> read(const QString &path, QString *reason)
{
    QFile file(path);
    const QFileInfo info(path);
    const bool regular = info.isFile() || !info.exists();
    if (regular && file.open(QIODevice::ReadOnly)) {
        const QByteArray bytes = file.read(qMin(file.size(), longestRead));
        if (file.error() == QFileDevice::NoError)
            return bytes;
    }
    if (reason)
        *reason = regular ? file.errorString() : Text::tr("not a regular file");
    return std::nullopt;
}

Writing write(const QString &path, const std::function<QByteArray()> &content)
{
    if (isPipe(path))
        return {Writing::End::NotOpened, Text::tr("not a regular file")};
    std::optional<QByteArray> bytes;
    const auto once = [&] {
        if (!bytes)
            bytes = content();
        return *bytes;
    };
    if (isReplaceable(path)) {
        QString reason;
        if (QFileInfo::exists(path) && !opens(path, reason))
            return {Writing::End::NotOpened, reason};
        if (const auto writing = writeBeside(path, once))
            return *writing;
    }
    return writeThrough(path, once);
}

QString failure(const Writing &writing, const QString &path)
{
    switch (writing.end) {
    case Writing::End::Complete:
        break;
    case Writing::End::NotOpened:
        return Text::tr("Cannot save %1: %2").arg(shownName(path), writing.reason);
    case Writing::End::Unchanged:
        return (writing.existed ? Text::tr("Could not write %1 whole: %2. The file is as it was")
                                : Text::tr("Could not write %1 whole: %2. There is no such file"))
            .arg(shownName(path), writing.reason);
    case Writing::End::Incomplete:
        return (writing.existed ? Text::tr("Could not write %1 whole: %2. What it held is lost")
                                : Text::tr("Could not write %1 whole: %2. It holds a part only"))
            .arg(shownName(path), writing.reason);
    }
    return {};
}

QString shownName(const QString &path)
{
    return diagnostics::escaped(QFileInfo(path).fileName());
}

} // namespace recordfile
