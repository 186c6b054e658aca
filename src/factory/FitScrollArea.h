#pragma once

#include <QScrollArea>

/// A scroll area that asks for the room its content wants, as far as the screen has it, so that a
/// window shows everything where it fits and scrolls where it does not.
class FitScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit FitScrollArea(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
};
