// Preloaded into a Qt program, unchanged otherwise: ends it half a second after its main window was
// first painted and prints the time of that (ns of the monotonic clock), the processor time that it
// had used by then (ms), its peak memory (kB) and the number of its widgets.

#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QTimer>

#include <cstdio>
#include <ctime>
#include <unistd.h>

namespace {

long long monotonicNs()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * 1000000000LL + now.tv_nsec;
}

double processorMs()
{
    timespec used{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) * 1e3 + static_cast<double>(used.tv_nsec) / 1e6;
}

long peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    const QByteArray text = status.readAll();
    const int at = text.indexOf("VmHWM:");
    return text.mid(at + 6, 20).trimmed().split(' ').first().toLong();
}

class FirstPaint : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && qobject_cast<QMainWindow *>(receiver)) {
            qApp->removeEventFilter(this);
            // The whole window is painted and shown before the event loop goes on.
            QTimer::singleShot(0, this, &FirstPaint::painted);
        }
        return false;
    }

private:
    void painted()
    {
        const long long time = monotonicNs();
        const double cpu = processorMs();
        QTimer::singleShot(500, this, [time, cpu] {
            std::printf("\nfirst-paint %lld %.1f %ld %d\n", time, cpu, peakMemory(),
                        static_cast<int>(QApplication::allWidgets().size()));
            std::fflush(stdout);
            _exit(0);
        });
    }
};

void watch()
{
    qApp->installEventFilter(new FirstPaint(qApp));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watch)
