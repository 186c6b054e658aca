#pragma once

#include <QObject>

/// The busy state that a window's QML busy indicator follows.
class guistatus : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isbusy READ isBusy WRITE setBusy NOTIFY busyChanged)

public:
    using QObject::QObject;

    bool isBusy() const { return m_busy; }
    /// Emits busyChanged() only when the value changes.
    void setBusy(bool busy);

signals:
    void busyChanged();

private:
    bool m_busy = false;
};
