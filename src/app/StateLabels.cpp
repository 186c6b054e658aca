#include "app/StateLabels.h"

#include "app/SessionState.h"
#include "app/shortOutcomes.h"
#include "forms/ElidedLabel.h"

#include <QEvent>
#include <QStatusBar>
#include <QTextDocument>

#include <algorithm>

namespace {

constexpr int second = 1000; // ms
constexpr int spacing = 6;   // pixels beside each label

/// A camera's text is never taken for rich text.
QString toolTip(const QString &text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

void setTexts(QLabel *label, const QString &text, const QString &whole, const QString &spoken)
{
    label->setText(text);
    label->setToolTip(toolTip(whole));
    label->setAccessibleName(spoken);
}

} // namespace

StateLabels::StateLabels(QStatusBar *bar, const SessionState *state, QObject *parent)
    : QObject(parent)
    , m_bar(bar)
    , m_state(state)
    , m_connection(add("lbState"))
    , m_command(add("lbLast"))
{
    m_connection->setElideMode(Qt::ElideLeft); // a long port tells less than the camera
    m_command->setShortening([this](const QFontMetrics &metrics, int width) {
        return shortOutcomes(m_state->outcomes(), metrics, width);
    });
    m_seconds.setInterval(second);
    connect(&m_seconds, &QTimer::timeout, this, &StateLabels::show);
    connect(state, &SessionState::changed, this, &StateLabels::show);
    connect(bar, &QStatusBar::messageChanged, this, &StateLabels::show);
    bar->installEventFilter(this);
    if (bar->window() != bar)
        bar->window()->installEventFilter(this);
    show();
}

ElidedLabel *StateLabels::add(const char *name)
{
    auto *label = new ElidedLabel(m_bar);
    label->setObjectName(QLatin1String(name));
    m_bar->addPermanentWidget(label);
    m_labels.push_back(label);
    return label;
}

bool StateLabels::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) { // first: a bar that is being destroyed has other events, and is none
    case QEvent::Resize:
    case QEvent::FontChange:
    case QEvent::Show:
        if (watched == m_bar)
            fit();
        break;
    case QEvent::PaletteChange:
        if (m_faded)
            fade(true);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void StateLabels::show()
{
    const QString connection = m_state->connection();
    const QString details = m_state->connectionDetails();
    setTexts(m_connection, connection, details, tr("Connection: %1").arg(details));
    const QString command = m_state->lastCommand();
    setTexts(m_command, command, command, tr("Last command: %1").arg(command));

    // Started by the command itself, so that its seconds are counted when they are over.
    if (!m_state->isWaiting())
        m_seconds.stop();
    else if (!m_seconds.isActive())
        m_seconds.start();
    fadeOldIdentity();
    fit();
}

void StateLabels::fit()
{
    if (!m_bar)
        return;
    const int message = m_bar->fontMetrics().horizontalAdvance(m_bar->currentMessage());
    const int frames = spacing * 2 * int(m_labels.size() + 1) + m_bar->height(); // and size grip
    int left = m_bar->width() - message - frames;
    int room = std::max(m_bar->width() - message, m_bar->width() / 2) - frames;
    // How the last command ended goes before a connection that is as it was.
    for (ElidedLabel *label : {m_command, m_connection}) {
        const int hint = label->sizeHint().width();
        const int share = label == m_command ? room * 2 / 3 : room;
        const int width =
            std::max(0, std::min(hint, std::max(share, room - m_connection->sizeHint().width())));
        label->setMaximumWidth(width);
        room -= width;
        left -= width;
    }
    m_bar->setToolTip(m_bar->isVisible() && left < 0 ? toolTip(m_bar->currentMessage())
                                                     : QString()); // it is cut
}

void StateLabels::showIdentity(const QString &message)
{
    m_identity = message;
    m_identityOfThisConnection = true;
    m_bar->showMessage(message);
    show(); // the same message again changes nothing by itself
}

void StateLabels::fadeOldIdentity()
{
    if (!m_bar)
        return;
    if (!m_state->isConnected())
        m_identityOfThisConnection = false;
    const bool old = !m_identityOfThisConnection && !m_identity.isEmpty() &&
                     m_bar->currentMessage() == m_identity;
    if (old != m_faded)
        fade(old);
}

void StateLabels::fade(bool old)
{
    if (!m_bar)
        return;
    m_faded = old;
    const auto withText = [this](QPalette::ColorGroup group) {
        QPalette palette;
        palette.setColor(QPalette::WindowText,
                         m_bar->window()->palette().color(group, QPalette::WindowText));
        return palette;
    };
    m_bar->setPalette(old ? withText(QPalette::Disabled) : QPalette());
    for (QLabel *label : m_labels)
        label->setPalette(old ? withText(QPalette::Active) : QPalette());
}
