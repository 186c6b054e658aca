#pragma once

#include <QLabel>

#include <functional>

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

    /// Shortens the text to so many pixels.
    using Shortening = std::function<QString(const QFontMetrics &metrics, int width)>;
    /// Shortens what does not fit in another way than by one ellipsis.
    void setShortening(Shortening shortening);
    /// What is painted: text(), or what of it there is room for.
    QString shownText() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Qt::TextElideMode m_mode = Qt::ElideRight;
    Shortening m_shortening;
};
