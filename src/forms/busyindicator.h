#pragma once

class QColor;
class QQuickWidget;
class guistatus;

/// The QML busy indicator of a window: it spins while `status` is busy.
namespace busyindicator {

/// Loads the indicator into `view` on the given background, which follows later changes of the
/// palette. `status` must outlive the view's
/// content: call `unload` before it goes.
void load(QQuickWidget *view, guistatus *status, const QColor &background);

/// Empties `view`, so that nothing is bound to the busy state any more.
void unload(QQuickWidget *view);

} // namespace busyindicator
