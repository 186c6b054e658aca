#pragma once

class QBoxLayout;

/// Windows on screens that are too narrow for them.
namespace narrowscreen {

/// Continues a row of `column` in a second one below, from the item `from` on, if the screen of its
/// window is too narrow for the whole row.
void breakRow(QBoxLayout *row, QBoxLayout *column, int from);

} // namespace narrowscreen
