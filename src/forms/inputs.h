#pragma once

#include <QLocale>

class QWidget;

/// What all windows share about their fields, whatever the desktop.
namespace inputs {

/// The locale of a window that shows or reads numbers; set it before the window's widgets are made.
/// German on a German desktop, else C: ASCII digits, "-", and no group separators in either, so
/// that the same keys give the same number everywhere.
QLocale locale();

/// Guards every number box, list and slider of `window` as `guard` does.
void guardAll(QWidget *window);

/// A number box reads no group separators, and in German both comma and point as the decimal mark.
/// The wheel over an input without the focus neither changes nor focuses it: it goes on to the
/// page.
void guard(QWidget *input);

} // namespace inputs
