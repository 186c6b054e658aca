#include "factory/factorywindow.h"
#include "factory/liveeditwindow.h"
#include "forms/FitScrollArea.h"

#include <QLayout>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

namespace {

/// The smallest screen that the dialogs are made for.
constexpr QSize laptop(1366, 768);

bool fits(const QSize &size, const QSize &room)
{
    return size.width() <= room.width() && size.height() <= room.height();
}

FitScrollArea *areaOf(const QDialog &dialog)
{
    return dialog.findChild<FitScrollArea *>();
}

/// Shows the dialog as the main window does.
void open(QDialog &dialog)
{
    dialog.show();
    dialog.adjustSize();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTRY_COMPARE(dialog.minimumSize(), dialog.layout()->totalMinimumSize());
}

/// The dialog at its own size and in ever less room, as a small screen would give it.
void fitsALaptopAndScrolls(QDialog &dialog)
{
    open(dialog);
    QVERIFY(fits(dialog.minimumSizeHint(), laptop));
    QVERIFY(fits(dialog.size(), laptop));
    QVERIFY(fits(dialog.minimumSizeHint(), dialog.size()));

    const QScrollBar *right = areaOf(dialog)->verticalScrollBar();
    const QScrollBar *below = areaOf(dialog)->horizontalScrollBar();
    const QSize content = areaOf(dialog)->widget()->sizeHint();
    dialog.resize(laptop);
    QTRY_VERIFY(!right->isVisible() && !below->isVisible());
    QVERIFY(fits(content, areaOf(dialog)->widget()->size()));

    dialog.layout()->setSizeConstraint(QLayout::SetNoConstraint);
    dialog.setMinimumSize(1, 1);
    dialog.resize(laptop.width(), content.height());
    QTRY_VERIFY(right->isVisible() && !below->isVisible());
    dialog.resize(content.width(), laptop.height());
    QTRY_VERIFY(!right->isVisible() && below->isVisible());
    dialog.resize(content / 2);
    QTRY_VERIFY(right->isVisible() && below->isVisible());
    QVERIFY(right->maximum() > 0 && below->maximum() > 0);
}

} // namespace

/// The dialogs on a small screen: they fit it, and scroll where it is smaller still.
class tst_FitScrollArea : public QObject, private LiveEditWindow
{
    Q_OBJECT

private slots:
    void factoryDialogFitsALaptop_data();
    void factoryDialogFitsALaptop();
    void factoryDialogGrowsWithItsModel();
    void chosenCellComesIntoView();
    void editorFitsALaptop();
    void minimumIsTheContentAsFarAsTheScreenReaches();
};

void tst_FitScrollArea::factoryDialogFitsALaptop_data()
{
    QTest::addColumn<unsigned>("model");
    QTest::newRow("Blend") << unsigned(KovoDevice_QXBlend);
    QTest::newRow("Blend Zoom") << unsigned(KovoDevice_QXBlendZoom);
}

void tst_FitScrollArea::factoryDialogFitsALaptop()
{
    QFETCH(unsigned, model);
    FactoryWindow w;
    w.devices.setDevice(model);
    fitsALaptopAndScrolls(w.dialog);
}

void tst_FitScrollArea::factoryDialogGrowsWithItsModel()
{
    FactoryWindow w;
    w.devices.setDevice(KovoDevice_QXBlend);
    ::open(w.dialog);
    const int before = w.dialog.minimumHeight();
    w.devices.setDevice(KovoDevice_QXBlendZoom);
    QTRY_VERIFY(w.dialog.minimumHeight() > before);
    QVERIFY(fits(w.dialog.minimumSize(), laptop));
}

void tst_FitScrollArea::chosenCellComesIntoView()
{
    FactoryWindow w;
    w.devices.setDevice(KovoDevice_QXBlendZoom);
    ::open(w.dialog);
    w.dialog.layout()->setSizeConstraint(QLayout::SetNoConstraint);
    w.dialog.setMinimumSize(1, 1);
    w.dialog.resize(w.dialog.width() / 2, w.dialog.height() / 2);
    QTRY_VERIFY(areaOf(w.dialog)->horizontalScrollBar()->isVisible());
    for (const char *name : tableNames) {
        QTableWidget *table = w.table(name);
        const int row = table->rowCount() - 1;
        const int column = table->columnCount() - 1;
        table->setCurrentCell(0, 0);
        table->setCurrentCell(row, column);
        const QRect cell = table->visualItemRect(table->item(row, column));
        QVERIFY(table->viewport()->rect().contains(cell)); // no bar of its own covers it
        QVERIFY2(table->viewport()->visibleRegion().contains(cell.center()), name);
    }
}

void tst_FitScrollArea::editorFitsALaptop()
{
    LiveEditWindow::open();
    fitsALaptopAndScrolls(*window);
    close();
}

void tst_FitScrollArea::minimumIsTheContentAsFarAsTheScreenReaches()
{
    FitScrollArea area;
    area.setFrameShape(QFrame::NoFrame);
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *part = new QWidget;
    layout->addWidget(part);
    area.setWidget(content);

    const QSize screen = area.screen()->availableSize();
    part->setFixedSize(200, 150);
    QCOMPARE(area.minimumSizeHint(), QSize(200, 150));

    part->setFixedSize(screen.width() + 1, 150);
    QVERIFY(area.minimumSizeHint().width() < screen.width());
    QCOMPARE(area.minimumSizeHint().height(),
             150 + area.horizontalScrollBar()->sizeHint().height());

    part->setFixedSize(200, screen.height() + 1);
    QVERIFY(area.minimumSizeHint().height() < screen.height());
    QCOMPARE(area.minimumSizeHint().width(), 200 + area.verticalScrollBar()->sizeHint().width());
}

QTEST_MAIN(tst_FitScrollArea)
#include "tst_fitscrollarea.moc"
