#include "forms/ElidedLabel.h"

#include <QPainter>

#include <utility>

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

void ElidedLabel::setShortening(Shortening shortening)
{
    m_shortening = std::move(shortening);
    update();
}

QString ElidedLabel::shownText() const
{
    const QFontMetrics metrics = fontMetrics();
    const int width = contentsRect().width();
    const QString elided = metrics.elidedText(text(), m_mode, width);
    return m_shortening && elided != text() ? m_shortening(metrics, width) : elided;
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine,
                     shownText());
}
