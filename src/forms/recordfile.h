#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Files that hold one record.
namespace recordfile {

/// What a regular file holds, at most 64 KiB: more than any record, enough to judge a file by,
/// whatever its size. Nothing if it cannot be opened, or is a pipe, say, which would keep the
/// window waiting until somebody writes to it.
std::optional<QByteArray> read(const QString &path);

/// True for a pipe, which would keep the window waiting until somebody reads from it.
bool isPipe(const QString &path);

} // namespace recordfile
