#include "forms/FitScrollArea.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>

FitScrollArea::FitScrollArea(QWidget *parent) : QScrollArea(parent)
{
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget *, QWidget *focus) { showFocus(focus); });
    keepBarsInUse();
}

void FitScrollArea::setSurroundings(const QSize &size)
{
    if (size == m_surroundings)
        return;
    m_surroundings = size;
    updateGeometry();
}

QSize FitScrollArea::sizeHint() const
{
    if (widget() == nullptr)
        return QScrollArea::sizeHint();
    return widget()->sizeHint() + QSize(2 * frameWidth(), 2 * frameWidth());
}

QSize FitScrollArea::minimumSizeHint() const
{
    const QSize room = screen()->availableSize() - m_surroundings;
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

bool FitScrollArea::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::Wheel && !isEnabled()) {
        wheelEvent(static_cast<QWheelEvent *>(event));
        return true;
    }
    return QScrollArea::viewportEvent(event);
}

void FitScrollArea::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        keepBarsInUse();
    QScrollArea::changeEvent(event);
}

/// What cannot be changed can still be read.
void FitScrollArea::keepBarsInUse()
{
    for (QScrollBar *bar : {horizontalScrollBar(), verticalScrollBar()})
        bar->setAttribute(Qt::WA_Disabled, false);
}

/// The tab key alone would do so by itself, but the focus also comes by a label's key.
void FitScrollArea::showFocus(QWidget *focus)
{
    // Under the mouse it is in view already, and what is pressed must not move away.
    const bool clicked = QApplication::mouseButtons() != Qt::NoButton;
    if (focus == nullptr || widget() == nullptr || !widget()->isAncestorOf(focus) || clicked)
        return;
    constexpr int margin = 6;
    const QPoint centre = focus->mapTo(widget(), focus->rect().center());
    ensureVisible(centre.x(), centre.y(), focus->width() / 2 + margin,
                  focus->height() / 2 + margin);
}
