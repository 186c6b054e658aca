#pragma once

#include <QLabel>

/// A label of one line of plain text that gives way to a narrow window: what does not fit ends in
/// an ellipsis. text() and the accessible name stay whole; its owner gives it a tooltip.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
