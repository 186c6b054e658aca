// A plug-in that tells on standard output, of a program's main window, how many of its QML views
// have something to show just before it is painted first; and again, and ends the program, once all
// have.

#include <QCoreApplication>
#include <QGenericPlugin>
#include <QMainWindow>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <cstdio>

namespace {

class FirstPaint : public QObject
{
public:
    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        auto *window = qobject_cast<QMainWindow *>(receiver);
        if (!window || event->type() != QEvent::Paint)
            return false;
        qApp->removeEventFilter(this);
        for (QWidget *widget : window->findChildren<QWidget *>())
            if (widget->window() == window && widget->inherits("QQuickWidget"))
                m_views.append(widget);
        tell("before");
        auto *timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, [this] {
            if (filled() < m_views.size())
                return;
            tell("later");
            QCoreApplication::quit();
        });
        timer->start(10);
        return false;
    }

private:
    int filled() const
    {
        return int(std::count_if(m_views.begin(), m_views.end(), [](const QWidget *view) {
            return !view->property("source").toUrl().isEmpty();
        }));
    }
    void tell(const char *when) const
    {
        std::printf("%s: %d of %d\n", when, filled(), int(m_views.size()));
        std::fflush(stdout);
    }

    QList<QWidget *> m_views;
};

} // namespace

class FirstPaintWitness : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "firstpaintwitness.json")

public:
    QObject *create(const QString &, const QString &) override
    {
        auto *witness = new FirstPaint; // which the application deletes
        qApp->installEventFilter(witness);
        return witness;
    }
};

#include "firstpaintwitness.moc"
