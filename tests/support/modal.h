#pragma once

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

/// Answers modal windows in a test.
///
/// Arm an answer before the call that opens the window; the call then blocks in the window's own
/// event loop, where a timer finds the window and answers it. An answer whose window never comes
/// fails the test: by its time-out while the event loop runs, or when the answer leaves its scope.
///
///     modal::Answer<QMessageBox> answer(modal::click(QMessageBox::Cancel));
///     QVERIFY(QMetaObject::invokeMethod(&window, "on_pbWrite_clicked"));
///     QVERIFY(answer.given());
namespace modal {

/// Waits for the next modal window of class Dialog and hands it to an answer, once.
template <class Dialog>
class Answer
{
public:
    explicit Answer(std::function<void(Dialog *)> answer, int timeoutMs = 5000)
        : m_answer(std::move(answer)), m_timeoutMs(timeoutMs)
    {
        m_elapsed.start();
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(5);
    }
    Answer(const Answer &) = delete;
    Answer &operator=(const Answer &) = delete;
    ~Answer()
    {
        if (!m_given && !m_failed)
            QTest::qFail("the expected modal window never opened", __FILE__, __LINE__);
    }

    /// True once the window was seen and answered.
    bool given() const { return m_given; }

private:
    void look()
    {
        QWidget *active = QApplication::activeModalWidget();
        if (auto *dialog = qobject_cast<Dialog *>(active)) {
            m_timer.stop();
            m_given = true;
            m_answer(dialog);
        } else if (m_elapsed.elapsed() > m_timeoutMs) {
            m_timer.stop();
            m_failed = true;
            QTest::qFail("the expected modal window did not open in time", __FILE__, __LINE__);
            if (auto *other = qobject_cast<QDialog *>(active))
                other->reject(); // another window must not hang the run
        }
    }

    std::function<void(Dialog *)> m_answer;
    QTimer m_timer;
    QElapsedTimer m_elapsed;
    int m_timeoutMs;
    bool m_given = false;
    bool m_failed = false;
};

/// Clicks a standard button of a message box.
inline std::function<void(QMessageBox *)> click(QMessageBox::StandardButton button)
{
    return [button](QMessageBox *box) {
        if (QAbstractButton *found = box->button(button)) {
            found->click();
        } else {
            QTest::qFail("the message box lacks the expected button", __FILE__, __LINE__);
            box->reject();
        }
    };
}

/// Presses a key in a message box as an operator does: it goes to whatever has the focus there. A
/// key that does not end the box fails the test.
inline std::function<void(QMessageBox *)> press(Qt::Key key)
{
    return [key](QMessageBox *box) {
        if (!QTest::qWaitForWindowActive(box)) {
            QTest::qFail("the message box never became active", __FILE__, __LINE__);
            return box->reject();
        }
        QWidget *focus = box->focusWidget();
        QTest::keyClick(focus != nullptr ? focus : box, key);
        if (box->isVisible()) {
            QTest::qFail("the key did not answer the message box", __FILE__, __LINE__);
            box->reject();
        }
    };
}

/// Closes any dialog as its Cancel button, Escape or the window's cross would.
template <class Dialog>
std::function<void(Dialog *)> cancel()
{
    return [](Dialog *dialog) { static_cast<QDialog *>(dialog)->reject(); };
}

/// Accepts a (non-native) file dialog with a path. The name goes through the dialog's line edit:
/// selectFile() loads the folder in another thread and may lose the name.
inline std::function<void(QFileDialog *)> choose(const QString &path)
{
    return [path](QFileDialog *dialog) {
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (edit == nullptr) {
            QTest::qFail("not Qt's own file dialog", __FILE__, __LINE__);
            static_cast<QDialog *>(dialog)->reject();
            return;
        }
        edit->setText(path);
        static_cast<QDialog *>(dialog)->accept();
    };
}

/// Makes QFileDialog use Qt's own window, which a test can answer. Call before the first one.
inline void useQtDialogs()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

} // namespace modal
