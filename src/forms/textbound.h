#pragma once

#include <QString>

class QPlainTextEdit;

/// Text boxes that grow for as long as the camera talks.
namespace textbound {

/// Appends `text` as a new line. Whole lines go from the top, beyond the box's own limit of lines,
/// until at most `limit` characters remain; what was appended stays whole whatever its length.
void append(QPlainTextEdit *box, const QString &text, int limit);

} // namespace textbound
