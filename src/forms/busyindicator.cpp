#include "forms/busyindicator.h"

#include "forms/guistatus.h"

#include <QCoreApplication>
#include <QQmlContext>
#include <QQuickWidget>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QTimer>

// Outside any namespace: the collection is in a static library, where nothing else refers to it.
static void initResources()
{
    Q_INIT_RESOURCE(ressources);
}

namespace {

bool waitForFirstPaint = false;

/// Fills the view and keeps its background that of the window around it, as desktops change between
/// day and night.
class Indicator : public QObject
{
public:
    Indicator(QQuickWidget *view, guistatus *status) : QObject(view), m_view(view), m_status(status)
    {
        view->installEventFilter(this);
        if (!waitForFirstPaint || view->isVisible())
            fill();
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::PaletteChange:
            if (watched == m_view) {
                m_view->setClearColor(m_view->palette().window().color());
                m_view->quickWindow()->update();
            }
            break;
        case QEvent::Show:
            if (watched == m_view && m_status)
                m_view->window()->installEventFilter(this);
            break;
        case QEvent::Paint:
            if (watched == m_view->window()) {
                watched->removeEventFilter(this);
                QTimer::singleShot(0, this, &Indicator::fill);
            }
            break;
        default:
            break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void fill()
    {
        if (!m_status)
            return;
        m_view->rootContext()->setContextProperty(QStringLiteral("status"), m_status);
        m_view->setSource(QUrl(QStringLiteral("qrc:/BusyIndicator.qml")));
        m_status = nullptr;
    }

    QQuickWidget *m_view;
    guistatus *m_status; ///< null once the view is filled
};

} // namespace

namespace busyindicator {

void prepareProgram()
{
    const char *renderer = "QT_QUICK_BACKEND";
    if (!qEnvironmentVariableIsSet(renderer))
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    if (!qEnvironmentVariableIsSet(renderer) || qgetenv(renderer) == "software")
        QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets);
    // The cache takes the path of a resource for one below the current folder, and runs what it
    // finds compiled there.
    qputenv("QML_DISABLE_DISK_CACHE", "1");
    qunsetenv("QML_FORCE_DISK_CACHE");
}

void loadAfterFirstPaint()
{
    waitForFirstPaint = true;
}

void load(QQuickWidget *view, guistatus *status, const QColor &background)
{
    initResources();
    view->setClearColor(background);
    new Indicator(view, status);
}

void unload(QQuickWidget *view)
{
    const QObjectList children = view->children(); // a copy: who is deleted leaves the list
    for (QObject *child : children)
        delete dynamic_cast<Indicator *>(child);
    view->setSource(QUrl());
}

} // namespace busyindicator
