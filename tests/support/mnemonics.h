#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QMap>
#include <QMenuBar>
#include <QShortcut>
#include <QStringList>
#include <QTabWidget>

/// The keys with Alt that a window takes.
namespace mnemonics {

/// Texts of a window that carry each mnemonic, as far as they are on the screen.
inline QMap<QString, QStringList> visible(QWidget *window)
{
    QMap<QString, QStringList> taken;
    const auto take = [&](const QString &text) {
        if (const QString key = QKeySequence::mnemonic(text).toString(); !key.isEmpty())
            taken[key] << text;
    };
    for (const QLabel *label : window->findChildren<QLabel *>())
        if (label->window() == window && label->isVisible() && label->buddy())
            take(label->text());
    for (const QAbstractButton *button : window->findChildren<QAbstractButton *>())
        if (button->window() == window && button->isVisible())
            take(button->text());
    for (const QGroupBox *box : window->findChildren<QGroupBox *>())
        if (box->window() == window && box->isVisible())
            take(box->title());
    for (const QTabWidget *tabs : window->findChildren<QTabWidget *>())
        for (int i = 0; tabs->window() == window && tabs->isVisible() && i < tabs->count(); ++i)
            take(tabs->tabText(i));
    for (const QMenuBar *bar : window->findChildren<QMenuBar *>())
        for (const QAction *action : bar->actions())
            take(action->text());
    for (const QShortcut *shortcut : window->findChildren<QShortcut *>())
        if (shortcut->key()[0] & Qt::ALT)
            taken[shortcut->key().toString()] << QStringLiteral("(shortcut)");
    return taken;
}

/// The texts of each mnemonic that is taken twice.
inline QStringList clashes(QWidget *window)
{
    QStringList clashes;
    const QMap<QString, QStringList> taken = visible(window);
    for (const QStringList &texts : taken)
        if (texts.count() > 1)
            clashes << window->objectName() + ": " + texts.join(", ");
    return clashes;
}

} // namespace mnemonics
