#pragma once

#include <QLabel>

/// A label of one line of plain text that gives way to a narrow window: what does not fit is
/// replaced by an ellipsis. text() and the accessible name stay whole; its owner gives it a
/// tooltip.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);
    QSize minimumSizeHint() const override;
    /// Where the ellipsis stands; at the end unless told otherwise.
    void setElideMode(Qt::TextElideMode mode);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Qt::TextElideMode m_mode = Qt::ElideRight;
};
