#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

/// Files that hold one record.
namespace recordfile {

/// What a regular file holds, at most 64 KiB: more than any record, enough to judge a file by,
/// whatever its size. Nothing if it cannot be opened or read, or is a pipe, say, which would keep
/// the window waiting until somebody writes to it; `reason` says why then.
std::optional<QByteArray> read(const QString &path, QString *reason = nullptr);

/// How write() ended.
struct Writing
{
    enum class End {
        Complete,
        NotOpened,  ///< the file is as it was
        Unchanged,  ///< could not be written whole; the file is as it was, or not there
        Incomplete, ///< could not be written whole; what the file held is lost
    };
    End end = End::Complete;
    QString reason;      ///< of the system, unless complete
    bool existed = true; ///< there was a file before
};

/// Makes a file hold exactly the bytes that `content` gives, which is asked for them once the file
/// is known to open for writing.
///
/// A regular file keeps what it held until the new bytes are on the disk: they are written beside
/// it and take its name. Where that would change what the file is (a link or a file with several
/// names, another owner, attributes that only one of both has) or cannot be done (the name is taken
/// for good, as that of a mounted file), it is written through. Pipes are not opened: they would
/// keep the window waiting for a reader.
Writing write(const QString &path, const std::function<QByteArray()> &content);

/// The failure in words for the operator; empty for a complete one.
QString failure(const Writing &writing, const QString &path);

/// The name of the file, without its folder, as it can be shown.
QString shownName(const QString &path);

} // namespace recordfile
