#pragma once

#include "app/MainWindow.h"

#include <QComboBox>
#include <QPushButton>
#include <QQuickItem>
#include <QQuickWidget>
#include <QTest>

/// The real main window, seen as an operator does: by the object names of its widgets.
class WindowUnderTest
{
public:
    MainWindow window{nullptr};

    template <class Widget>
    Widget *get(const char *name)
    {
        auto *widget = window.findChild<Widget *>(QString::fromLatin1(name));
        if (!widget)
            qFatal("no widget %s", name);
        return widget;
    }
    QWidget *widget(const char *name) { return get<QWidget>(name); }

    /// Hidden by the program itself, whether or not the window is on the screen.
    bool hidden(const char *name) { return widget(name)->isHidden(); }

    /// Offers the port alone and presses Connect; true when the button reads "Disconnect" then.
    bool connectTo(const QString &port)
    {
        QMetaObject::invokeMethod(&window, "slotNewPortList", Q_ARG(QStringList, {port}));
        auto *button = get<QPushButton>("btConnectDisconnect");
        button->click();
        return button->text() == QLatin1String("Disconnect");
    }

    /// Whether the busy indicator spins.
    bool busy()
    {
        return get<QQuickWidget>("quickWidget")->rootObject()->property("running").toBool();
    }

    /// Makes the model with this key the active device, as its identity reply would.
    bool chooseModel(quint32 key)
    {
        bool done = false;
        QMetaObject::invokeMethod(
            &window, "slotDeviceChanged", Q_RETURN_ARG(bool, done),
            Q_ARG(KovoDeviceCRCKey_TypeDef, static_cast<KovoDeviceCRCKey_TypeDef>(key)));
        return done;
    }
};
