#pragma once

#include <QStringList>

class QWidget;

/// The texts that Shift+F1 shows for a field: what hangs on it, beyond its tooltip.
namespace whatsthis {

/// Gives every input of a window and its dialogs a text: one of the table here, unless the form has
/// its own, else the tooltip.
void complete(QWidget *window);

/// Object names that the table speaks of.
QStringList names();

} // namespace whatsthis
