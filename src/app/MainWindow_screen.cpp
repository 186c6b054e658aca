#include "app/MainWindow.h"

#include "forms/FitScrollArea.h"
#include "forms/narrowscreen.h"
#include "ui_MainWindow.h"

#include <QAction>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QTabBar>
#include <QVBoxLayout>

#include <utility>

namespace {

/// What desktops put around a window: side borders, title bar.
constexpr QSize windowFrame(16, 40);

/// Puts what stands on the page into an area that scrolls.
FitScrollArea *makeScroll(QWidget *page)
{
    // Children of the page from the start: a stay outside the window would cost their contents
    // the place in the tab chain.
    auto *content = new QWidget(page);
    auto *area = new FitScrollArea(page);
    content->setObjectName(page->objectName() + QLatin1String("_content"));
    area->setObjectName(page->objectName() + QLatin1String("_scroll"));
    content->setLayout(page->layout());
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(content);
    // The ground of a page is the tab widget's.
    content->setAutoFillBackground(false);
    area->viewport()->setAutoFillBackground(false);

    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);
    return area;
}

/// The colour of a field, shifted towards red as far as its text stays readable.
QColor reddened(const QColor &base)
{
    const QColor red(Qt::red);
    const auto mixed = [](int from, int to) { return (3 * from + to) / 4; };
    return {mixed(base.red(), red.red()), mixed(base.green(), red.green()),
            mixed(base.blue(), red.blue())};
}

} // namespace

void MainWindow::makePagesScroll()
{
    for (int page = 0; page < m_ui->tabWidget->count(); ++page)
        m_pageAreas << makeScroll(m_ui->tabWidget->widget(page));
}

/// Leaves to the pages what the rest of the window does not need of the screen. Before the window
/// is shown, and whenever a row may have changed.
void MainWindow::fitToScreen()
{
    // The factory buttons may have come.
    narrowscreen::breakRow(m_ui->layout_commands, m_ui->layout_main,
                           m_ui->layout_commands->indexOf(m_ui->pbLivePreview));

    // Added up from their parts: sums that the layouts have stored may be those of earlier sizes.
    QTabWidget *tabs = m_ui->tabWidget;
    QSize page;
    for (const FitScrollArea *area : qAsConst(m_pageAreas))
        page = page.expandedTo(area->minimumSizeHint());
    const QLayout *rows = m_ui->layout_main;
    const QMargins margins = rows->contentsMargins();
    int height = windowFrame.height() + menuBar()->sizeHint().height() +
                 statusBar()->sizeHint().height() + margins.top() + margins.bottom() +
                 (rows->count() - 1) * rows->spacing() + tabs->minimumSizeHint().height() -
                 page.height();
    for (int row = 0; row < rows->count(); ++row)
        if (rows->itemAt(row)->widget() != tabs)
            height += rows->itemAt(row)->minimumSize().height();
    // The tab widget has borders as well.
    const int width = windowFrame.width() + 2 * (margins.left() + margins.right());
    for (FitScrollArea *area : qAsConst(m_pageAreas))
        area->setSurroundings({width, height});

    tabs->setUsesScrollButtons(tabs->tabBar()->sizeHint().width() >
                               screen()->availableSize().width() - width);
}

void MainWindow::on_leFrameSkip_textChanged(const QString &text)
{
    bool isNumber = false;
    text.toUInt(&isNumber); // as the record takes it
    if (isNumber == (m_frameSkipMark == nullptr))
        return;
    QLineEdit *edit = m_ui->leFrameSkip;
    if (isNumber) {
        delete std::exchange(m_frameSkipMark, nullptr);
        edit->setPalette(QPalette());
        edit->setAccessibleDescription(QString());
        return;
    }
    const QString why = tr("No whole number from 0 to 4294967295: 0 is stored");
    m_frameSkipMark = edit->addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning),
                                      QLineEdit::TrailingPosition);
    m_frameSkipMark->setToolTip(why);
    QPalette palette; // the rest stays inherited
    palette.setColor(QPalette::Base, reddened(edit->palette().base().color()));
    edit->setPalette(palette);
    edit->setAccessibleDescription(why);
}
