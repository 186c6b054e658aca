#include "forms/busyindicator.h"

#include "forms/guistatus.h"

#include <QQmlContext>
#include <QQuickWidget>
#include <QQuickWindow>

// Outside any namespace: the collection is in a static library, where nothing else refers to it.
static void initResources()
{
    Q_INIT_RESOURCE(ressources);
}

namespace {

/// Keeps the background that of the window around it, as desktops change between day and night.
class BackgroundFollower : public QObject
{
public:
    explicit BackgroundFollower(QQuickWidget *view) : QObject(view), m_view(view)
    {
        view->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::PaletteChange) {
            m_view->setClearColor(m_view->palette().window().color());
            m_view->quickWindow()->update();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QQuickWidget *m_view;
};

} // namespace

namespace busyindicator {

void load(QQuickWidget *view, guistatus *status, const QColor &background)
{
    initResources();
    view->setClearColor(background);
    new BackgroundFollower(view);
    view->rootContext()->setContextProperty(QStringLiteral("status"), status);
    view->setSource(QUrl(QStringLiteral("qrc:/BusyIndicator.qml")));
}

void unload(QQuickWidget *view)
{
    view->setSource(QUrl());
}

} // namespace busyindicator
