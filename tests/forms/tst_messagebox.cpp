#include "forms/messagebox.h"
#include "support/captureddiagnostics.h"
#include "support/modal.h"

class TestMessageBox : public QObject
{
    Q_OBJECT

private slots:
    void okIsAcceptedSilently()
    {
        CapturedDiagnostics lines;
        modal::Answer<QMessageBox> answer(modal::click(QMessageBox::Ok));
        QVERIFY(
            messagebox::accepted(nullptr, {QStringLiteral("Title"), QStringLiteral("<p>x</p>")}));
        QVERIFY(answer.given());
        QVERIFY(lines.out().isEmpty());
    }

    void anyOtherAnswerIsARejection()
    {
        CapturedDiagnostics lines;
        modal::Answer<QMessageBox> answer(modal::click(QMessageBox::Cancel));
        QVERIFY(!messagebox::accepted(nullptr, {QStringLiteral("Title"), QStringLiteral("<p>x</p>"),
                                                QMessageBox::Ok | QMessageBox::Cancel,
                                                QMessageBox::Cancel}));
        QCOMPARE(lines.out(), QStringLiteral("<<< dialog rejected\n"));
    }

    void boxLooksAsAsked()
    {
        QWidget parent;
        CapturedDiagnostics lines;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            QCOMPARE(box->windowTitle(), QStringLiteral("Title"));
            QCOMPARE(box->text(), QStringLiteral("<p>x</p>"));
            QCOMPARE(box->icon(), QMessageBox::Warning);
            QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
            QCOMPARE(box->defaultButton(),
                     qobject_cast<QPushButton *>(box->button(QMessageBox::Cancel)));
            QCOMPARE(box->parentWidget(), &parent);
            QVERIFY(box->isModal());
            QCOMPARE(box->windowFlags() & Qt::WindowType_Mask, Qt::Dialog);
            QVERIFY(box->windowFlags() & Qt::WindowTitleHint);
            QVERIFY(!(box->windowFlags() & Qt::WindowContextHelpButtonHint));
            box->button(QMessageBox::Ok)->click();
        });
        messagebox::accepted(&parent, {QStringLiteral("Title"), QStringLiteral("<p>x</p>"),
                                       QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel});
    }

    void closeButtonCanBeLeftOut()
    {
        modal::Answer<QMessageBox> answer([](QMessageBox *box) {
            QVERIFY(box->windowFlags() & Qt::WindowTitleHint);
            QVERIFY(!(box->windowFlags() & Qt::WindowCloseButtonHint));
            box->button(QMessageBox::Ok)->click();
        });
        messagebox::accepted(nullptr,
                             {QStringLiteral("Title"), QStringLiteral("<p>x</p>"), QMessageBox::Ok,
                              QMessageBox::Ok, messagebox::TitleBar::WithoutCloseButton});
    }
};

QTEST_MAIN(TestMessageBox)
#include "tst_messagebox.moc"
