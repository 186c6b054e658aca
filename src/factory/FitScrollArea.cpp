#include "factory/FitScrollArea.h"

#include <QEvent>
#include <QScreen>
#include <QScrollBar>

namespace {

// What the window around the area needs for its title bar, its margins and its other rows.
constexpr QSize aroundTheArea(60, 170);

} // namespace

FitScrollArea::FitScrollArea(QWidget *parent) : QScrollArea(parent) {}

QSize FitScrollArea::sizeHint() const
{
    if (widget() == nullptr)
        return QScrollArea::sizeHint();
    return widget()->sizeHint() + QSize(2 * frameWidth(), 2 * frameWidth());
}

QSize FitScrollArea::minimumSizeHint() const
{
    const QSize room = screen()->availableSize() - aroundTheArea;
    QSize wanted = sizeHint();
    // One bar takes room from the other direction.
    if (wanted.height() > room.height())
        wanted.rwidth() += verticalScrollBar()->sizeHint().width();
    if (wanted.width() > room.width())
        wanted.rheight() += horizontalScrollBar()->sizeHint().height();
    return wanted.boundedTo(room).expandedTo(QScrollArea::minimumSizeHint());
}

bool FitScrollArea::event(QEvent *event)
{
    // The content shows or hides parts, also while the window is hidden.
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show)
        updateGeometry();
    return QScrollArea::event(event);
}
