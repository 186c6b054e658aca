#include "devices/KovoDevices.h"
#include "factory/FactorySettings.h"
#include "factory/LiveEdit.h"
#include "sbus/sbusTester.h"
#include "support/formundertest.h"
#include "support/mnemonics.h"

#include <QCheckBox>
#include <QLCDNumber>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSet>
#include <QShortcut>
#include <QTabWidget>
#include <QTableWidget>

/// What an operator without a mouse or without sight needs: each input says what it is, keys are
/// not taken twice, and the tab key goes the way the eye goes.
class tst_accessibility : public QObject
{
    Q_OBJECT

private slots:
    void everyInputHasANameAndATooltip_data() { addWindows(); }
    void everyInputHasANameAndATooltip();
    void visibleMnemonicsAreUnique_data() { addModels(); }
    void visibleMnemonicsAreUnique();
    void shortcutsAreUnique();
    void underlinedLettersLeaveTheirLabelsWhole();
    void mnemonicsReachTheirInputs();
    void tabChainGoesForwardInEachGroup_data() { addWindows(); }
    void tabChainGoesForwardInEachGroup();
    void tooltipsOfNumbersNameTheirRange();

private:
    static void addWindows();
    static void addModels();
    static QWidget *windowOf(FormUnderTest &form, const QString &name);
    static QList<QWidget *> inputsOf(QWidget *window);
};

namespace {

/// Widget that Qt itself put inside another one.
bool isPart(const QWidget *widget)
{
    return widget->objectName().isEmpty() || widget->objectName().startsWith("qt_") ||
           qobject_cast<const QTabBar *>(widget->parentWidget()) != nullptr ||
           qobject_cast<const QAbstractSpinBox *>(widget->parentWidget()) != nullptr;
}

} // namespace

void tst_accessibility::addWindows()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<quint32>("model");
    for (const char *name : {"MainWindow", "sbusTester", "FactorySettings", "LiveEdit"}) {
        QTest::addRow("%s, Blend", name) << QString(name) << quint32(0xC92A6CE6);
        QTest::addRow("%s, Blend Zoom", name) << QString(name) << quint32(0xA0AF139E);
    }
}

void tst_accessibility::addModels()
{
    QTest::addColumn<quint32>("model");
    QTest::newRow("no model") << quint32(0);
    QTest::newRow("Blend") << quint32(0xC92A6CE6);
    QTest::newRow("Blend Zoom") << quint32(0xA0AF139E);
}

QWidget *tst_accessibility::windowOf(FormUnderTest &form, const QString &name)
{
    if (name == form.window.objectName())
        return &form.window;
    for (QDialog *dialog : form.window.findChildren<QDialog *>())
        if (name == dialog->metaObject()->className())
            return dialog;
    return nullptr;
}

QList<QWidget *> tst_accessibility::inputsOf(QWidget *window)
{
    QList<QWidget *> inputs;
    for (QWidget *widget : window->findChildren<QWidget *>()) {
        const bool input =
            qobject_cast<QComboBox *>(widget) || qobject_cast<QAbstractSpinBox *>(widget) ||
            qobject_cast<QSlider *>(widget) || qobject_cast<QLineEdit *>(widget) ||
            qobject_cast<QPlainTextEdit *>(widget) || qobject_cast<QAbstractButton *>(widget) ||
            qobject_cast<QAbstractItemView *>(widget);
        if (input && !isPart(widget) && widget->window() == window)
            inputs << widget;
    }
    return inputs;
}

void tst_accessibility::everyInputHasANameAndATooltip()
{
    QFETCH(QString, name);
    QFETCH(quint32, model);
    FormUnderTest form(model);
    QWidget *window = windowOf(form, name);
    QVERIFY(window);

    QSet<const QWidget *> named;
    for (const QLabel *label : window->findChildren<QLabel *>())
        if (label->buddy() && !label->text().trimmed().isEmpty())
            named << label->buddy();
    const QList<QWidget *> inputs = inputsOf(window);
    QVERIFY(!inputs.isEmpty());
    for (const QWidget *input : inputs) {
        const auto *button = qobject_cast<const QAbstractButton *>(input);
        QVERIFY2(named.contains(input) || !input->accessibleName().isEmpty() ||
                     (button && !button->text().isEmpty()),
                 qPrintable("no name: " + input->objectName()));
        QVERIFY2(!input->toolTip().isEmpty(), qPrintable("no tooltip: " + input->objectName()));
    }
}

void tst_accessibility::visibleMnemonicsAreUnique()
{
    QFETCH(quint32, model);
    FormUnderTest form(model);
    QList<QWidget *> windows{&form.window};
    for (QDialog *dialog : form.window.findChildren<QDialog *>())
        windows << dialog;
    QCOMPARE(windows.count(), 4);
    for (QWidget *window : windows) {
        window->show();
        auto *tabs = window->findChild<QTabWidget *>(QStringLiteral("tabWidget"));
        for (int i = 0; i < (tabs ? tabs->count() : 1); ++i) {
            if (tabs)
                tabs->setCurrentIndex(i);
            QCOMPARE(mnemonics::clashes(window), QStringList());
        }
    }
}

void tst_accessibility::shortcutsAreUnique()
{
    FormUnderTest form(0);
    QStringList keys;
    for (const QAction *action : form.window.findChildren<QAction *>())
        if (!action->shortcut().isEmpty() && !isPart(action->parentWidget()))
            keys << action->shortcut().toString();
    for (const QShortcut *shortcut : form.window.findChildren<QShortcut *>())
        keys << shortcut->key().toString();
    for (const QAbstractButton *button : form.window.findChildren<QAbstractButton *>())
        if (button->window() == &form.window && !isPart(button) && !button->shortcut().isEmpty() &&
            !button->text().contains('&'))
            keys << button->shortcut().toString();
    keys.removeAll(QString());
    QVERIFY(keys.count() > 12);
    QStringList once = keys;
    once.removeDuplicates();
    QCOMPARE(keys, once);
    for (const char *key : {"Ctrl+O", "Ctrl+S", "Ctrl+Q", "F1", "F5", "Ctrl+K", "Ctrl+8"})
        QVERIFY2(keys.contains(key), key);
}

void tst_accessibility::underlinedLettersLeaveTheirLabelsWhole()
{
    // An underlined letter is drawn apart: after a "T" it moves the text beyond its measured width.
    FormUnderTest form(0);
    form.set("cbTriggerPinMode", 1); // opens the channels
    form.window.show();
    auto *tabs = form.get<QTabWidget>("tabWidget");
    for (int page = 0; page < tabs->count(); ++page) {
        tabs->setCurrentIndex(page);
        QApplication::processEvents();
        for (const QLabel *label : tabs->currentWidget()->findChildren<QLabel *>()) {
            if (!label->isVisible() || QKeySequence::mnemonic(label->text()).isEmpty())
                continue;
            QLabel twin(label->text());
            twin.setBuddy(label->buddy());
            twin.setFixedSize(label->width() + 20, label->height());
            const QImage beyond =
                twin.grab(QRect(label->width(), 0, 20, label->height())).toImage();
            QImage blank = beyond;
            blank.fill(twin.palette().color(QPalette::Window));
            QVERIFY2(beyond == blank, qPrintable(label->text()));
        }
    }
}

void tst_accessibility::mnemonicsReachTheirInputs()
{
    FormUnderTest form(0xA0AF139E);
    form.window.show();
    QApplication::setActiveWindow(&form.window);
    QVERIFY(QTest::qWaitForWindowActive(&form.window));
    QTest::keyClick(&form.window, Qt::Key_3, Qt::ControlModifier);
    QCOMPARE(form.get<QTabWidget>("tabWidget")->currentIndex(), 2);
    auto *gps = form.get<QComboBox>("cbPeripheryGPS");
    gps->setCurrentIndex(0);
    QTest::keyClick(&form.window, Qt::Key_P, Qt::AltModifier);
    QCOMPARE(QApplication::focusWidget(), form.widget("cbParity"));
    QTest::keyClick(&form.window, Qt::Key_I, Qt::AltModifier);
    QTRY_VERIFY(form.get<QCheckBox>("cbInverted")->isChecked()); // the key holds it down a while
}

void tst_accessibility::tabChainGoesForwardInEachGroup()
{
    QFETCH(QString, name);
    QFETCH(quint32, model);
    FormUnderTest form(model);
    QWidget *window = windowOf(form, name);
    QVERIFY(window);
    window->resize(1366, 768);
    window->show();

    const QList<QWidget *> inputs = inputsOf(window);
    QList<QWidget *> chain;
    for (QWidget *widget = window->nextInFocusChain(); widget != window;
         widget = widget->nextInFocusChain())
        if (inputs.contains(widget) && (widget->focusPolicy() & Qt::TabFocus))
            chain << widget;

    auto *tabs = window->findChild<QTabWidget *>(QStringLiteral("tabWidget"));
    for (int page = 0; page < (tabs ? tabs->count() : 1); ++page) {
        if (tabs)
            tabs->setCurrentIndex(page);
        QApplication::processEvents();
        QMap<QWidget *, QRect> last; // of each group
        for (QWidget *input : qAsConst(chain)) {
            if (!input->isVisible())
                continue;
            QWidget *group = input->parentWidget();
            const QRect at(input->mapTo(window, QPoint()), input->size());
            if (last.contains(group)) {
                const QRect before = last[group];
                const bool below = at.top() >= before.bottom();
                const bool right = at.left() >= before.right() && at.bottom() > before.top();
                QVERIFY2(below || right, qPrintable(input->objectName()));
            }
            last[group] = at;
        }
    }
}

void tst_accessibility::tooltipsOfNumbersNameTheirRange()
{
    FormUnderTest form(0);
    for (const QSpinBox *box : form.window.findChildren<QSpinBox *>()) {
        if (box->window() != &form.window)
            continue;
        const QString text = box->toolTip();
        for (const int limit : {box->minimum(), box->maximum()})
            QVERIFY2(text.contains(QString::number(limit)), qPrintable(box->objectName()));
    }
}

QTEST_MAIN(tst_accessibility)
#include "tst_accessibility.moc"
