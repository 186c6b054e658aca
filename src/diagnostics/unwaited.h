#pragma once

#include <QtGlobal>

/// Writing to a descriptor of this process that others read at their own pace.
namespace unwaited {

constexpr qint64 Gone = -1; ///< nobody can read it any more
constexpr qint64 Full = -2; ///< a file on a full disk, or at its limit

/// Writes as many of the bytes as are taken at once: 0 if none are at the moment, or one of the
/// constants above. The descriptor's own mode, which other programs share, stays as it is.
qint64 write(int descriptor, const char *bytes, qint64 size);

/// Whether both lead to the same place, where the order between them can be seen.
bool areSame(int descriptor, int other);

} // namespace unwaited
