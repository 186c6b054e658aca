#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <vector>

class ElidedLabel;
class QStatusBar;
class SessionState;

/// Shows a SessionState in permanent labels of a status bar, to the right of its message: lbState
/// (the connection) and lbLast (the last command and how it ended).
///
/// The message comes first: labels that leave no room for it are shortened, down to half of the
/// bar's width together.
class StateLabels : public QObject
{
    Q_OBJECT

public:
    /// Both outlive this object, or the bar deletes its labels before.
    StateLabels(QStatusBar *bar, const SessionState *state, QObject *parent);
    /// Shows the camera's identity as the bar's message, which fades when the connection ends and
    /// until another one is shown.
    void showIdentity(const QString &message);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ElidedLabel *add(const char *name);
    void show();
    void fit();
    void fadeOldIdentity();
    void fade(bool old);

    QPointer<QStatusBar> m_bar;
    const SessionState *m_state;
    std::vector<ElidedLabel *> m_labels;
    ElidedLabel *m_connection;
    ElidedLabel *m_command;
    QTimer m_seconds;     ///< runs while an answer is awaited
    bool m_faded = false; ///< the identity shown is of a connection that has ended
    bool m_identityOfThisConnection = false;
    QString m_identity;
};
