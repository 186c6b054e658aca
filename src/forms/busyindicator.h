#pragma once

class QColor;
class QQuickWidget;
class guistatus;

/// The QML busy indicator of a window: it spins while `status` is busy.
namespace busyindicator {

/// For every program that shows an indicator, before its application object: draws it in software,
/// unless the user's QT_QUICK_BACKEND wants otherwise, and takes no QML but that of the program and
/// of the installed modules.
///
/// Indicators are all that Qt Quick draws here. In software they need no graphics driver, which
/// saves most of the start-up time and memory, and runs where there is none.
void prepareProgram();

/// From now on `load` waits until the window around the view has been painted for the first time:
/// the QML takes longer than all the rest of a window.
void loadAfterFirstPaint();

/// Loads the indicator into `view` on the given background, which follows later changes of the
/// palette. `status` must outlive the view's
/// content: call `unload` before it goes.
void load(QQuickWidget *view, guistatus *status, const QColor &background);

/// Empties `view`, so that nothing is bound to the busy state any more.
void unload(QQuickWidget *view);

} // namespace busyindicator
