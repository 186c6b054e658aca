#include "forms/busyindicator.h"

#include "forms/guistatus.h"

#include <QQmlContext>
#include <QQuickWidget>

// Outside any namespace: the collection is in a static library, where nothing else refers to it.
static void initResources()
{
    Q_INIT_RESOURCE(ressources);
}

namespace busyindicator {

void load(QQuickWidget *view, guistatus *status, const QColor &background)
{
    initResources();
    view->setClearColor(background);
    view->rootContext()->setContextProperty(QStringLiteral("status"), status);
    view->setSource(QUrl(QStringLiteral("qrc:/BusyIndicator.qml")));
}

void unload(QQuickWidget *view)
{
    view->setSource(QUrl());
}

} // namespace busyindicator
