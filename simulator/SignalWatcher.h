#pragma once

#include <QObject>

/// Turns Unix signals into Qt signals, so that the program reacts in its event loop. One instance a
/// process.
class SignalWatcher : public QObject
{
    Q_OBJECT

public:
    explicit SignalWatcher(QObject *parent = nullptr);
    ~SignalWatcher() override;

signals:
    void signalTerminationRequested(); ///< SIGINT, SIGTERM or, unless ignored, SIGHUP
    void signalPauseRequested();       ///< SIGUSR1
    void signalResumeRequested();      ///< SIGUSR2

private:
    void announce(int signal);
};
