// Number boxes on any desktop, and the wheel over what has no focus.

#include "forms/inputs.h"
#include "support/wheel.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <QVBoxLayout>

namespace {

/// A window with one input of each kind on a page that is longer than the window.
class Page : public QScrollArea
{
public:
    Page()
    {
        setLocale(inputs::locale());
        auto *page = new QWidget;
        auto *layout = new QVBoxLayout(page);
        whole = add<QSpinBox>(layout);
        whole->setRange(-99999, 99999);
        whole->setSuffix(QStringLiteral(" m"));
        real = add<QDoubleSpinBox>(layout);
        real->setRange(-99999, 99999);
        real->setDecimals(3);
        list = add<QComboBox>(layout);
        list->addItems({"a", "b", "c"});
        list->setCurrentIndex(1);
        slider = add<QSlider>(layout);
        slider->setValue(50);
        other = add<QLineEdit>(layout);
        layout->addSpacing(3000);
        setWidget(page);
        inputs::guardAll(this);
        resize(300, 300);
        show();
    }

    QList<QWidget *> inputWidgets() const { return {whole, real, list, slider}; }
    QList<double> values() const
    {
        return {double(whole->value()), real->value(), double(list->currentIndex()),
                double(slider->value())};
    }

    QSpinBox *whole;
    QDoubleSpinBox *real;
    QComboBox *list;
    QSlider *slider;
    QLineEdit *other;

private:
    template <class Widget>
    Widget *add(QVBoxLayout *layout)
    {
        auto *widget = new Widget;
        layout->addWidget(widget);
        return widget;
    }
};

void type(QWidget *box, const QString &keys)
{
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_Backspace);
    QTest::keyClicks(box, keys);
    QTest::keyClick(box, Qt::Key_Return);
}

} // namespace

class TestInputs : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void numbersAreReadAndShown_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("number");
        QTest::addColumn<QString>("shown");
        for (const char *locale :
             {"C", "en_US", "fr_FR", "fi_FI", "sv_SE", "fa_IR", "ar_EG", "hi_IN", "nl_NL"}) {
            QTest::addRow("%s, point", locale) << locale << "0.29" << 0.29 << "0.290";
            QTest::addRow("%s, minus", locale) << locale << "-1.6" << -1.6 << "-1.600";
            QTest::addRow("%s, thousands", locale) << locale << "1234.5" << 1234.5 << "1234.500";
            QTest::addRow("%s, three decimals", locale) << locale << "1.600" << 1.6 << "1.600";
        }
        for (const char *locale : {"de_DE", "de_AT"}) {
            QTest::addRow("%s, point", locale) << locale << "0.29" << 0.29 << "0,290";
            QTest::addRow("%s, comma", locale) << locale << "0,29" << 0.29 << "0,290";
            QTest::addRow("%s, minus", locale) << locale << "-1.6" << -1.6 << "-1,600";
            QTest::addRow("%s, three decimals", locale) << locale << "1.600" << 1.6 << "1,600";
            QTest::addRow("%s, thousands", locale) << locale << "1234,5" << 1234.5 << "1234,500";
        }
        QTest::newRow("de_CH, point") << "de_CH"
                                      << "0.29" << 0.29 << "0.290";
        QTest::newRow("de_CH, comma") << "de_CH"
                                      << "0,29" << 0.29 << "0.290";
    }
    void numbersAreReadAndShown()
    {
        QFETCH(QString, locale);
        QFETCH(QString, typed);
        QFETCH(double, number);
        QFETCH(QString, shown);
        QLocale::setDefault(QLocale(locale));
        Page page;
        type(page.real, typed);
        QCOMPARE(page.real->value(), number);
        QCOMPARE(page.real->text(), shown);
    }

    void pastedNumbersAreReadLikeTypedOnes()
    {
        QLocale::setDefault(QLocale("de_DE"));
        Page page;
        page.real->selectAll();
        page.real->findChild<QLineEdit *>()->insert("1.600");
        QCOMPARE(page.real->value(), 1.6);
    }

    void separatorsOfGroupsAreNotTaken_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("pasted");
        QTest::newRow("C, comma") << "C"
                                  << "1,234";
        QTest::newRow("C, blank") << "C"
                                  << "1 234";
        QTest::newRow("en_US, comma") << "en_US"
                                      << "1,234";
        QTest::newRow("fr_FR, narrow blank") << "fr_FR" << QStringLiteral("1\u202f234");
        QTest::newRow("de_CH, apostrophe") << "de_CH" << QStringLiteral("1\u2019234");
        QTest::newRow("de_DE, two marks") << "de_DE"
                                          << "1.234,5";
        QTest::newRow("fa_IR, its own digits") << "fa_IR" << QStringLiteral("\u06f1\u06f2");
    }
    void separatorsOfGroupsAreNotTaken()
    {
        QFETCH(QString, locale);
        QFETCH(QString, pasted);
        QLocale::setDefault(QLocale(locale));
        Page page;
        for (QAbstractSpinBox *box : {static_cast<QAbstractSpinBox *>(page.whole),
                                      static_cast<QAbstractSpinBox *>(page.real)}) {
            auto *edit = box->findChild<QLineEdit *>();
            edit->selectAll();
            edit->insert(pasted);
            QVERIFY2(page.values().mid(0, 2) == QList<double>({0, 0}), qPrintable(box->text()));
        }
    }

    void wholeNumbersHaveNoMark_data()
    {
        QTest::addColumn<QString>("locale");
        for (const char *locale : {"C", "de_DE", "fr_FR", "sv_SE", "fa_IR"})
            QTest::newRow(locale) << locale;
    }
    void wholeNumbersHaveNoMark()
    {
        QFETCH(QString, locale);
        QLocale::setDefault(QLocale(locale));
        Page page;
        type(page.whole, "-1234");
        QCOMPARE(page.whole->value(), -1234);
        QCOMPARE(page.whole->text(), QStringLiteral("-1234 m"));
        page.whole->setValue(0);
        for (const char *text : {"1.6", "1,6"}) {
            auto *edit = page.whole->findChild<QLineEdit *>();
            edit->selectAll();
            edit->insert(text);
            QCOMPARE(page.whole->value(), 0);
        }
    }

    void wheelOverAnInputScrollsThePage()
    {
        Page page;
        QVERIFY(QTest::qWaitForWindowActive(&page));
        page.other->setFocus();
        const QList<double> before = page.values();
        const auto inputs = page.inputWidgets();
        for (QWidget *input : inputs) {
            page.verticalScrollBar()->setValue(0);
            wheel::turn(input);
            QVERIFY2(page.verticalScrollBar()->value() > 0, input->metaObject()->className());
            QCOMPARE(page.values(), before);
            QVERIFY(page.other->hasFocus());
        }
    }

    void wheelTurnsTheInputThatHasTheFocus()
    {
        Page page;
        QVERIFY(QTest::qWaitForWindowActive(&page));
        const auto inputs = page.inputWidgets();
        for (int i = 0; i < inputs.size(); ++i) {
            const QList<double> before = page.values();
            inputs[i]->setFocus();
            wheel::turn(inputs[i]);
            QVERIFY2(page.values()[i] != before[i], inputs[i]->metaObject()->className());
            QCOMPARE(page.verticalScrollBar()->value(), 0);
        }
    }

    void inputsTakeTheFocusByClickAndTabAlone()
    {
        Page page;
        const auto inputs = page.inputWidgets();
        for (const QWidget *input : inputs)
            QCOMPARE(input->focusPolicy(), Qt::StrongFocus);
    }
};

QTEST_MAIN(TestInputs)
#include "tst_inputs.moc"
