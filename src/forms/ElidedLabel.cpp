#include "forms/ElidedLabel.h"

#include <QPainter>

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::setElideMode(Qt::TextElideMode mode)
{
    m_mode = mode;
    update();
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRect area = contentsRect();
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(area, Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), m_mode, area.width()));
}
