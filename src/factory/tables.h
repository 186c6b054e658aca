#pragma once

#include <QTableWidget>

/// Columns of numbers in a table widget.
namespace tables {

/// The number that the cell shows; 0 for a text that is none and for a missing cell.
inline int number(const QTableWidget *table, int row, int column)
{
    const QTableWidgetItem *cell = table->item(row, column);
    return cell != nullptr ? cell->data(Qt::DisplayRole).toInt() : 0;
}

inline void setNumber(QTableWidget *table, int row, int column, int value)
{
    QTableWidgetItem *cell = table->item(row, column);
    if (cell == nullptr) {
        cell = new QTableWidgetItem;
        cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        table->setItem(row, column, cell);
    }
    cell->setData(Qt::DisplayRole, value);
}

/// Writes `values` into the column from row 0 down.
template <class Values>
void showColumn(QTableWidget *table, int column, const Values &values)
{
    int row = 0;
    for (const int value : values)
        setNumber(table, row++, column, value);
}

/// Reads the column from row 0 down; numbers are truncated to the width of the values.
template <class Values>
void readColumn(const QTableWidget *table, int column, Values &values)
{
    int row = 0;
    for (auto &value : values)
        value = number(table, row++, column);
}

} // namespace tables
