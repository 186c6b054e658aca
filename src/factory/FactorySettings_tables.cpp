#include "diagnostics/diagnostics.h"
#include "factory/FactorySettings.h"
#include "factory/overlay.h"
#include "factory/tables.h"
#include "forms/inputs.h"
#include "ui_FactorySettings.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QSpinBox>
#include <QStyledItemDelegate>

#include <algorithm>
#include <limits>

namespace {

constexpr int zoomPositions = 10;

template <size_t Rows>
using Initial = std::array<std::array<int, zoomPositions>, Rows>;

// Calibration of a typical unit, rows by zoom position.
constexpr Initial<7> initialHdmi = {{
    {483, 30, 0, 0, 0, 0, 0, 0, 0, 0},                           // A
    {188, 0, 0, 0, 0, 0, 0, 0, 0, 0},                            // B
    {945, 1832, 1919, 1919, 1919, 1919, 1919, 1919, 1919, 1919}, // C
    {756, 1079, 1079, 1079, 1079, 1079, 1079, 1079, 1079, 1079}, // D
    {378, 733, 1100, 1450, 1840, 2250, 2550, 2900, 3300, 3700},  // E
    {0, 2, 104, 158, 195, 220, 231, 243, 254, 262},              // F
    {0, 42, 106, 146, 166, 180, 188, 195, 201, 205},             // G
}};
constexpr Initial<7> initialAnalog = {{
    {21, 21, 21, 21, 21, 21, 21, 21, 21, 21},                // A
    {50, 50, 50, 50, 50, 50, 50, 50, 50, 50},                // B
    {471, 798, 798, 798, 798, 798, 798, 798, 798, 798},      // C
    {378, 599, 599, 599, 599, 599, 599, 599, 599, 599},      // D
    {189, 366, 550, 725, 920, 1125, 1275, 1450, 1650, 1850}, // E
    {0, 40, 134, 178, 208, 229, 239, 249, 258, 264},         // F
    {0, 46, 116, 150, 178, 187, 195, 203, 209, 214},         // G
}};
constexpr Initial<3> initialArdview = {{
    {23, 5, 0, 0, 0, 0, 0, 0, 0, 0},                    // X-Shift
    {-20, -1, 0, 0, 0, 0, 0, 0, 0, 0},                  // Y-Shift
    {620, 350, 230, 180, 140, 130, 120, 110, 100, 100}, // Scale
}};

template <size_t Rows>
void fill(QTableWidget *table, const Initial<Rows> &values)
{
    for (size_t row = 0; row < Rows; ++row)
        for (size_t column = 0; column < zoomPositions; ++column)
            tables::setNumber(table, int(row), int(column), values[row][column]);
}

std::array<int, 7> rows(const overlay::Displacement &values)
{
    return {values.a, values.b, values.c, values.d, values.e, values.f, values.g};
}

overlay::Displacement displacement(const QTableWidget *table, int column)
{
    std::array<int, 7> rows{};
    tables::readColumn(table, column, rows);
    return {rows[0], rows[1], rows[2], rows[3], rows[4], rows[5], rows[6]};
}

/// Edits any number that a cell may hold: looking at one must not change it, though the record
/// keeps the low 16 bits of a displacement only.
class NumberDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                          const QModelIndex & /*index*/) const override
    {
        auto *editor = new QSpinBox(parent);
        editor->setFrame(false);
        editor->setButtonSymbols(QAbstractSpinBox::NoButtons);
        editor->setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
        inputs::guard(editor);
        connect(editor->findChild<QLineEdit *>(), &QLineEdit::textEdited, editor,
                [editor] { editor->setProperty(typed, true); });
        return editor;
    }

    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override
    {
        bool isNumber = false;
        const int held = index.data().toInt(&isNumber); // 0 for what is no number
        if (isNumber ? static_cast<QSpinBox *>(editor)->value() != held
                     : editor->property(typed).toBool())
            QStyledItemDelegate::setModelData(editor, model, index);
    }

private:
    /// Property of an editor in which something was typed.
    static constexpr const char *typed = "quorvixTyped";
};

/// How many numbers that the camera does not get are named one by one.
constexpr int namedCells = 3;

void reportSkippedColumn(const char *function, int column)
{
    diagnostics::err(
        QStringLiteral("FactorySettings::%1() Zoom position %2 left unchanged: E divides by zero")
            .arg(QLatin1String(function))
            .arg(column + 1));
}

} // namespace

void FactorySettings::setUpTables()
{
    fill(m_ui->tw_QXBZ_hdmi, initialHdmi);
    fill(m_ui->tw_QXBZ_analog, initialAnalog);
    fill(m_ui->tw_QXBZ_ardview, initialArdview);

    // Room for every row and number, and one width for the row headers, so that the zoom positions
    // of the three tables stand in line.
    const auto all = {m_ui->tw_QXBZ_hdmi, m_ui->tw_QXBZ_analog, m_ui->tw_QXBZ_ardview};
    int rowHeader = 0;
    for (const QTableWidget *table : all)
        rowHeader = std::max(rowHeader, table->verticalHeader()->sizeHint().width());
    for (QTableWidget *table : all) {
        table->setItemDelegate(new NumberDelegate(table));
        connect(table, &QTableWidget::itemChanged, this, &FactorySettings::showCellsBeyond16Bit);
        QHeaderView *columns = table->horizontalHeader();
        const int frame = 2 * table->frameWidth();
        const int number = table->fontMetrics().horizontalAdvance(QStringLiteral("-32768")) + 16;
        columns->setMinimumSectionSize(number);
        columns->setSectionResizeMode(QHeaderView::Stretch);
        table->verticalHeader()->setFixedWidth(rowHeader);
        table->verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
        table->setMinimumWidth(rowHeader + zoomPositions * number + frame);
        table->setFixedHeight(columns->sizeHint().height() + table->verticalHeader()->length() +
                              frame);
        // Bars of its own, once there, would take the room for which they are there.
        table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        // The keys go from cell to cell, on a small screen beyond what is in view.
        connect(table, &QTableWidget::currentItemChanged, this,
                [this, table](const QTableWidgetItem *cell) {
                    const QRect place = table->visualItemRect(cell);
                    const QPoint centre = table->viewport()->mapTo(m_ui->content, place.center());
                    m_ui->scrollArea->ensureVisible(centre.x(), centre.y(), place.width(),
                                                    place.height());
                });
    }
}

void FactorySettings::showCellsBeyond16Bit()
{
    QStringList cells;
    for (const auto &[table, output] : {std::pair(m_ui->tw_QXBZ_hdmi, tr("HDMI", "output")),
                                        std::pair(m_ui->tw_QXBZ_analog, tr("Analog", "output"))})
        for (int column = 0; column < table->columnCount(); ++column)
            for (int row = 0; row < table->rowCount(); ++row) {
                const int number = tables::number(table, row, column);
                const auto stored = static_cast<qint16>(number);
                if (stored != number)
                    cells << tr("%1 %2, zoom position %3: %4 becomes %5")
                                 .arg(output, table->verticalHeaderItem(row)->text())
                                 .arg(column + 1)
                                 .arg(number)
                                 .arg(stored);
            }
    QString text;
    if (!cells.isEmpty()) {
        text = tr("Beyond 16 bits (-32768 to 32767), camera and file get another number:") +
               QLatin1Char('\n') + cells.mid(0, namedCells).join(QLatin1Char('\n'));
        if (cells.size() > namedCells)
            text += QLatin1Char('\n') + tr("and %1 more").arg(cells.size() - namedCells);
    }
    m_ui->labelCellsBeyond16Bit->setText(text);
    m_ui->labelCellsBeyond16Bit->setVisible(!text.isEmpty() && !m_ui->gb_QXBZ_hdmi->isHidden());
}

double FactorySettings::scaleHDMI256(int value)
{
    return overlay::scaleHDMI256(value);
}

void FactorySettings::on_btnCalcADFromHDMI_clicked()
{
    for (int column = 0; column < zoomPositions; ++column) {
        const auto ardview = overlay::ardviewFromHdmi(displacement(m_ui->tw_QXBZ_hdmi, column));
        if (ardview) {
            const std::array<int, 3> rows = {ardview->xShift, ardview->yShift, ardview->scale};
            tables::showColumn(m_ui->tw_QXBZ_ardview, column, rows);
        } else {
            reportSkippedColumn("on_btnCalcADFromHDMI_clicked", column);
        }
    }
}

void FactorySettings::on_btnCalcAVFromHDMI_clicked()
{
    for (int column = 0; column < zoomPositions; ++column) {
        const auto analog = overlay::analogFromHdmi(displacement(m_ui->tw_QXBZ_hdmi, column));
        if (analog)
            tables::showColumn(m_ui->tw_QXBZ_analog, column, rows(*analog));
        else
            reportSkippedColumn("on_btnCalcAVFromHDMI_clicked", column);
    }
}

void FactorySettings::setFPGADisplacements_HDMI(int16_t column, int16_t a, int16_t b, int16_t c,
                                                int16_t d, int16_t e, int16_t f, int16_t g)
{
    diagnostics::out(QStringLiteral("FactorySettings::setFPGADisplacements_HDMI()"));
    setDisplacementColumn(m_ui->tw_QXBZ_hdmi, column, {a, b, c, d, e, f, g});
}

void FactorySettings::setFPGADisplacements_Analoge(int16_t column, int16_t a, int16_t b, int16_t c,
                                                   int16_t d, int16_t e, int16_t f, int16_t g)
{
    diagnostics::out(QStringLiteral("FactorySettings::setFPGADisplacements_Analoge()"));
    setDisplacementColumn(m_ui->tw_QXBZ_analog, column, {a, b, c, d, e, f, g});
}

void FactorySettings::setDisplacementColumn(QTableWidget *table, int column,
                                            const std::array<int, 7> &values)
{
    if (column < 0 || column >= table->columnCount()) {
        diagnostics::err(QStringLiteral("FactorySettings: no zoom position %1").arg(column + 1));
        return;
    }
    tables::showColumn(table, column, values);
}
