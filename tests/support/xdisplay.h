#pragma once

#include <QByteArray>
#include <QProcess>
#include <QStringList>
#include <QVector>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

/// An X display of its own, without a window manager.
class Display
{
public:
    ~Display()
    {
        if (m_connection)
            xcb_disconnect(m_connection);
        m_server.terminate();
        m_server.waitForFinished();
    }

    bool start(const QString &screen = QStringLiteral("1280x1024x24"))
    {
        m_server.start(QStringLiteral("Xvfb"),
                       {"-displayfd", "1", "-screen", "0", screen, "-nolisten", "tcp"});
        QByteArray number;
        while (!number.endsWith('\n') && m_server.waitForReadyRead(20000))
            number += m_server.readAllStandardOutput();
        if (!number.endsWith('\n'))
            return false;
        m_name = QStringLiteral(":") + QString::fromLatin1(number.trimmed());
        m_connection = xcb_connect(qPrintable(m_name), nullptr);
        return xcb_connection_has_error(m_connection) == 0;
    }

    QString name() const { return m_name; }

    /// The visible window with this title, the lowest of several; 0 if there is none.
    xcb_window_t find(const QByteArray &title) { return findAll(title).value(0); }

    QVector<xcb_window_t> findAll(const QByteArray &title)
    {
        QVector<xcb_window_t> found;
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, root), nullptr));
        if (!tree)
            return found;
        const xcb_window_t *children = xcb_query_tree_children(tree.get());
        for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i)
            if (isVisible(children[i]) && property(children[i], "_NET_WM_NAME") == title)
                found.append(children[i]);
        return found;
    }

    /// Uses the mouse or the keyboard as xdotool's `arguments` say.
    bool act(const QStringList &arguments)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("DISPLAY", m_name);
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral("xdotool"), arguments);
        return process.waitForFinished(20000) && process.exitCode() == 0;
    }

    /// What a window manager does when the window's cross is clicked.
    void close(xcb_window_t window)
    {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = atom("WM_PROTOCOLS");
        event.data.data32[0] = atom("WM_DELETE_WINDOW");
        event.data.data32[1] = XCB_CURRENT_TIME;
        xcb_send_event(m_connection, 0, window, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char *>(&event));
        xcb_flush(m_connection);
    }

    /// The X server crashes.
    void die()
    {
        m_server.kill();
        m_server.waitForFinished();
    }

private:
    struct Free
    {
        void operator()(void *reply) const { std::free(reply); }
    };
    template <class T>
    using Reply = std::unique_ptr<T, Free>;

    xcb_atom_t atom(const QByteArray &name)
    {
        const auto cookie =
            xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(name.size()), name.constData());
        const Reply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(m_connection, cookie, nullptr));
        return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    }

    QByteArray property(xcb_window_t window, const QByteArray &name)
    {
        const auto cookie = xcb_get_property(m_connection, 0, window, atom(name),
                                             XCB_GET_PROPERTY_TYPE_ANY, 0, 256);
        const Reply<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(m_connection, cookie, nullptr));
        if (!reply)
            return {};
        return QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                          xcb_get_property_value_length(reply.get()));
    }

    bool isVisible(xcb_window_t window)
    {
        const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
            m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
        return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    QProcess m_server;
    QString m_name;
    xcb_connection_t *m_connection = nullptr;
};
