#include "forms/textbound.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

namespace textbound {

void append(QPlainTextEdit *box, const QString &text, int limit)
{
    box->appendPlainText(text);
    QTextDocument *document = box->document();
    // The position behind the last character; every line end counts as one.
    const int end = document->characterCount() - 1;
    const int surplus = qMin(end - limit, end - text.size());
    if (surplus <= 0)
        return;
    QTextBlock first = document->findBlock(surplus);
    if (first.position() < surplus)
        first = first.next();

    QScrollBar *bar = box->verticalScrollBar();
    const bool following = bar->value() == bar->maximum();
    QTextCursor cursor(document);
    cursor.setPosition(first.position(), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    if (following)
        bar->setValue(bar->maximum());
}

} // namespace textbound
