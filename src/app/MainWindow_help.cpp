#include "app/MainWindow.h"

#include "ui_MainWindow.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QMessageBox>
#include <QShortcut>
#include <QUrl>
#include <QWhatsThis>

namespace {

/// The installed guide, or that of the sources a program in its build directory was built from.
QString userGuide()
{
    const QString here = QCoreApplication::applicationDirPath();
    for (const char *place : {"/../share/doc/quorvix-config/guide.md", "/../../../docs/guide.md"}) {
        const QFileInfo file(here + QLatin1String(place));
        if (file.exists())
            return file.canonicalFilePath();
    }
    return {};
}

/// Acts in place of a button's own key while the button is hidden: that key goes with it.
class KeyOfHiddenButton : public QShortcut
{
public:
    explicit KeyOfHiddenButton(QAbstractButton *button)
        : QShortcut(QKeySequence(), button->window(), [button] { button->click(); })
        , m_button(button)
    {
        follow();
        button->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
            follow();
        return QShortcut::eventFilter(watched, event);
    }

private:
    void follow() { setKey(m_button->isHidden() ? m_button->shortcut() : QKeySequence()); }

    QAbstractButton *m_button;
};

} // namespace

void MainWindow::createHelpMenu()
{
    QMenu *menu = m_ui->menuBar->addMenu(tr("&Help"));
    menu->setObjectName(QStringLiteral("menuHelp"));

    QAction *guide = menu->addAction(tr("&User guide"), this, &MainWindow::slotOpenUserGuide);
    guide->setObjectName(QStringLiteral("actionUserGuide"));
    guide->setShortcut(QKeySequence::HelpContents);

    QAction *whatsThis = QWhatsThis::createAction(menu);
    whatsThis->setObjectName(QStringLiteral("actionWhatsThis"));
    menu->addAction(whatsThis);

    menu->addSeparator();
    QAction *about = menu->addAction(tr("&About"), this, &MainWindow::slotShowAbout);
    about->setObjectName(QStringLiteral("actionAbout"));
    about->setMenuRole(QAction::AboutRole);
    QAction *aboutQt = menu->addAction(tr("About &Qt"), qApp, &QApplication::aboutQt);
    aboutQt->setObjectName(QStringLiteral("actionAboutQt"));
    aboutQt->setMenuRole(QAction::AboutQtRole);
}

void MainWindow::createShortcuts()
{
    // The texts of these buttons, tabs and menus carry no mnemonics.
    m_ui->btnReadConf->setShortcut(QKeySequence::Refresh);
    m_ui->btnSetConf->setShortcut(Qt::CTRL + Qt::SHIFT + Qt::Key_S);
    m_ui->pbLivePreview->setShortcut(Qt::Key_F6);
    for (QAbstractButton *button : {m_ui->btnReadConf, m_ui->btnSetConf, m_ui->pbLivePreview})
        new KeyOfHiddenButton(button);
    // The window's: a button's own goes when it is hidden, or its text changes.
    new QShortcut(Qt::CTRL + Qt::Key_K, this, [this] { m_ui->btConnectDisconnect->click(); });
    new QShortcut(QKeySequence(tr("Alt+F", "opens the File menu")), this,
                  [this] { m_ui->menuBar->setActiveAction(m_ui->menuFile->menuAction()); });
    for (int tab = 0; tab < m_ui->tabWidget->count(); ++tab)
        new QShortcut(Qt::CTRL + Qt::Key_1 + tab, this,
                      [this, tab] { m_ui->tabWidget->setCurrentIndex(tab); });
}

void MainWindow::slotOpenUserGuide()
{
    const QString guide = userGuide();
    if (guide.isEmpty()) {
        QMessageBox::information(this, tr("User guide"),
                                 tr("<p>The user guide is not installed on this computer.</p>"
                                    "<p>It comes with the program's package and its sources as "
                                    "guide.md.</p>"));
        return;
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(guide)))
        QMessageBox::information(this, tr("User guide"),
                                 tr("<p>No program was found that shows the user guide. Open this "
                                    "file in a browser or an editor:</p><p>%1</p>")
                                     .arg(guide.toHtmlEscaped()));
}

void MainWindow::slotShowAbout()
{
    QMessageBox box(
        QMessageBox::Information, tr("About Quorvix Configuration"),
        tr("<h3>Quorvix Configuration %1</h3>"
           "<p>Sets up Quorvix Blend and Quorvix Blend Zoom thermal cameras.</p>"
           "<p>Running with Qt %2, built with Qt %3.</p>"
           "<p>Uses the Qt 5 libraries Core, Gui, Widgets, Serial Port, QML, Quick and Quick "
           "Controls as shared libraries under the GNU Lesser General Public License, version 3. "
           "Their sources come from the Qt Project and from the distribution that installed "
           "them.</p>")
            .arg(QStringLiteral(QUORVIX_VERSION), QString::fromLatin1(qVersion()),
                 QStringLiteral(QT_VERSION_STR)),
        QMessageBox::Ok, this);
    box.setDefaultButton(QMessageBox::Ok); // unlike Qt's own box, so that Space answers it too
    box.setIconPixmap(windowIcon().pixmap(64));
    box.exec();
}
