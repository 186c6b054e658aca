#pragma once

#include <QEventLoop>
#include <QTimer>

#include <functional>

/// Turns the event loop as the program itself does. QTest::qWait() sleeps ten milliseconds after
/// each turn, which hides how soon events are handled.
inline void turnEventLoop(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

/// The same until `condition` holds, which is looked at every few milliseconds; false if it does
/// not in time.
inline bool turnEventLoopUntil(const std::function<bool()> &condition, int timeoutMs)
{
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (condition())
            loop.quit();
    });
    look.start(5);
    QTimer::singleShot(timeoutMs, &loop, &QEventLoop::quit);
    loop.exec();
    return condition();
}
