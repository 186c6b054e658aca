#pragma once

#include <QScrollArea>

/// A scroll area that asks for the room its content wants, as far as the screen has it, so that a
/// window shows everything where it fits and scrolls where it does not. It brings an input into
/// view that gets the focus, and can be scrolled while it is disabled.
class FitScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit FitScrollArea(QWidget *parent = nullptr);

    /// What the window needs beside the area: title bar, margins and other rows.
    void setSurroundings(const QSize &size);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void keepBarsInUse();
    void showFocus(QWidget *focus);

    QSize m_surroundings{60, 170};
};
