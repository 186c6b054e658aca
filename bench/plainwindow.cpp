// A window of as many widgets as the first argument says, with two busy indicators set up as Qt's
// manual does it: one in view, one in a dialog that is not. The yardstick of the tool's start.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QMainWindow>
#include <QQmlContext>
#include <QQuickWidget>
#include <QSpinBox>
#include <QTabWidget>

namespace {

class Status : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isbusy READ isBusy NOTIFY busyChanged)

public:
    bool isBusy() const { return false; }

signals:
    void busyChanged();
};

QQuickWidget *indicator(Status *status, QWidget *parent)
{
    auto *view = new QQuickWidget(parent);
    view->setResizeMode(QQuickWidget::SizeRootObjectToView);
    view->setFixedSize(40, 40);
    view->rootContext()->setContextProperty(QStringLiteral("status"), status);
    view->setSource(QUrl(QStringLiteral("qrc:/BusyIndicator.qml")));
    return view;
}

QWidget *field(int number)
{
    switch (number % 4) {
    case 0:
        return new QLabel(QStringLiteral("Field %1").arg(number));
    case 1:
        return new QSpinBox;
    case 2: {
        auto *box = new QComboBox;
        box->addItems({QStringLiteral("off"), QStringLiteral("on"), QStringLiteral("automatic")});
        return box;
    }
    default:
        return new QCheckBox(QStringLiteral("Option %1").arg(number));
    }
}

} // namespace

int main(int argc, char *argv[])
{
    // The cache would look for compiled QML below the current folder.
    qputenv("QML_DISABLE_DISK_CACHE", "1");
    QApplication application(argc, argv);
    const int wanted = QCoreApplication::arguments().value(1).toInt();

    Status status;
    QMainWindow window;
    auto *centre = new QWidget;
    auto *layout = new QGridLayout(centre);
    layout->addWidget(indicator(&status, centre));
    auto *tabs = new QTabWidget;
    layout->addWidget(tabs);
    window.setCentralWidget(centre);
    QDialog dialog(&window);
    indicator(&status, &dialog);

    constexpr int pages = 8;
    QVector<QGridLayout *> grids;
    for (int page = 0; page < pages; ++page) {
        auto *widget = new QWidget;
        grids.append(new QGridLayout(widget));
        tabs->addTab(widget, QStringLiteral("Page %1").arg(page));
    }
    for (int i = 0; QApplication::allWidgets().size() < wanted; ++i)
        grids.at(i % pages)->addWidget(field(i / pages), i / pages / 4, i / pages % 4);

    window.show();
    return QApplication::exec();
}

#include "plainwindow.moc"
