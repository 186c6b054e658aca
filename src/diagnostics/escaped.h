#pragma once

#include <QString>

namespace diagnostics {

/// A character that is not shown as itself but moves a cursor, ends a line or commands a terminal:
/// the controls of ASCII and Latin-1 and Unicode's ends of lines and paragraphs.
bool isControl(QChar character);

/// `text` with each such character as "\x0a" (beyond Latin-1 "\u2028"), so that one line stays one
/// line; all others stand as they are. For texts of the camera, of files and of operators.
QString escaped(const QString &text);

} // namespace diagnostics
