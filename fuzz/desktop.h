#pragma once

#include "diagnostics/diagnostics.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>

// Of the leak checker, where the program has one.
extern "C" __attribute__((weak)) void __lsan_disable();
extern "C" __attribute__((weak)) void __lsan_enable();

/// What a target with windows needs: an application without a screen, nobody to answer its modal
/// windows, and nothing to read its diagnostics.
class Desktop : public QObject
{
public:
    /// The one desktop of the process. It is never taken down: a fuzzer ends anywhere.
    static Desktop &instance()
    {
        static Desktop *desktop = new Desktop;
        return *desktop;
    }

    /// A window that lives as long as the process. The QML engine of a busy indicator refers to its
    /// memory in ways that the leak checker does not see.
    template <class Window>
    static Window *lasting()
    {
        if (__lsan_disable)
            __lsan_disable();
        auto *window = new Window;
        if (__lsan_enable)
            __lsan_enable();
        return window;
    }

    /// How modal windows are answered from now on: with Ok, or by closing them.
    void answer(bool ok) { m_ok = ok; }
    /// What is chosen in file dialogs that are answered with Ok; they are closed without a path.
    void choose(const QString &path) { m_path = path; }
    /// Modal windows so far.
    int modalWindows() const { return m_modalWindows; }

    /// Works off what an input has left in the event loop.
    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *dialog = qobject_cast<QDialog *>(watched);
        if (event->type() == QEvent::Show && dialog && dialog->isModal()) {
            ++m_modalWindows;
            // Queued: the dialog's own event loop starts after it is shown.
            QMetaObject::invokeMethod(
                dialog, [this, dialog] { close(dialog); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    Desktop()
    {
        setDefault("QT_QPA_PLATFORM", "offscreen");
        setDefault("QT_QUICK_BACKEND", "software");
        setDefault("QML_DISABLE_DISK_CACHE", "1");
        static int argc = 1;
        static char name[] = "fuzz";
        static char *argv[] = {name, nullptr};
        new QApplication(argc, argv);
        qApp->installEventFilter(this);
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        diagnostics::setSink([](diagnostics::Stream, const QString &) {});
    }

    static void setDefault(const char *variable, const char *value)
    {
        if (!qEnvironmentVariableIsSet(variable))
            qputenv(variable, value);
    }

    void close(QDialog *dialog) const
    {
        auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (qobject_cast<QFileDialog *>(dialog) && name && m_ok && !m_path.isEmpty()) {
            const QPointer<QDialog> chosen = dialog;
            name->setText(m_path);
            dialog->accept(); // which the dialog refuses for a name that does not fit
            if (!chosen || !chosen->isVisible())
                return;
        }
        const auto *box = qobject_cast<QMessageBox *>(dialog);
        QAbstractButton *ok = box && m_ok ? box->button(QMessageBox::Ok) : nullptr;
        if (ok)
            ok->click();
        else
            dialog->reject();
    }

    bool m_ok = true;
    QString m_path;
    int m_modalWindows = 0;
};
