#pragma once

#include <QObject>

/// Turns SIGINT and SIGTERM into a Qt signal, so that the program ends through its event loop. One
/// instance a process.
class SignalWatcher : public QObject
{
    Q_OBJECT

public:
    explicit SignalWatcher(QObject *parent = nullptr);
    ~SignalWatcher() override;

signals:
    void signalTerminationRequested();
};
