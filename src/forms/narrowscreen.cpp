#include "forms/narrowscreen.h"

#include <QBoxLayout>
#include <QScreen>
#include <QWidget>

namespace narrowscreen {

namespace {
constexpr int windowBorders = 8; // pixels, left and right together
} // namespace

void breakRow(QBoxLayout *row, QBoxLayout *column, int from)
{
    const QMargins margins = column->contentsMargins();
    const int room = column->parentWidget()->screen()->availableSize().width() - windowBorders -
                     margins.left() - margins.right();
    if (from >= row->count() || row->minimumSize().width() <= room)
        return;
    auto *second = new QHBoxLayout;
    second->setSpacing(row->spacing());
    second->addStretch();
    while (row->count() > from)
        second->addItem(row->takeAt(from));
    column->insertLayout(column->indexOf(row) + 1, second);
}

} // namespace narrowscreen
