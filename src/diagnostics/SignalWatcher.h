#pragma once

#include <QObject>

#include <initializer_list>
#include <vector>

/// Turns Unix signals into Qt signals, so that the program reacts in its event loop. One instance a
/// process.
class SignalWatcher : public QObject
{
    Q_OBJECT

public:
    /// Watches these until its end, when they have their default action again. One that the program
    /// was started to ignore, as nohup does it, stays ignored.
    explicit SignalWatcher(std::initializer_list<int> watched, QObject *parent = nullptr);
    ~SignalWatcher() override;

    /// Gives the watched signals their default action again, from now on.
    void stop();

signals:
    void signalCaught(int signal);

private:
    std::vector<int> m_watched; ///< until stop()
};
