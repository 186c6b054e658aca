#pragma once

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>

/// The mouse wheel in a test.
namespace wheel {

/// Turns the wheel by notches, negative ones toward the operator, over whatever lies in the middle
/// of the widget. The event is marked as the window system's own, which alone give the focus to a
/// widget that takes it by the wheel.
inline void turn(QWidget *widget, int notches = -1)
{
    const QPoint place = widget->rect().center();
    QWidget *part = widget->childAt(place);
    QWidget *target = part != nullptr ? part : widget;
    QWheelEvent event(target->mapFrom(widget, place), widget->mapToGlobal(place), QPoint(),
                      QPoint(0, 120 * notches), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(target, &event);
}

} // namespace wheel
