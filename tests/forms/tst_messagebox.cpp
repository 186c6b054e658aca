#include "forms/messagebox.h"
#include "support/captureddiagnostics.h"
#include "support/modal.h"

Q_DECLARE_METATYPE(QMessageBox::StandardButton)
Q_DECLARE_METATYPE(messagebox::TitleBar)

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

    void keysGiveTheDefault_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<QMessageBox::StandardButton>("defaultButton");
        QTest::addColumn<messagebox::TitleBar>("titleBar");
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
            for (const auto button : {QMessageBox::Ok, QMessageBox::Cancel})
                for (const auto titleBar : {messagebox::TitleBar::WithoutCloseButton,
                                            messagebox::TitleBar::WithoutContextHelpButton})
                    QTest::addRow("%s, default %s, title bar %d",
                                  qPrintable(QKeySequence(key).toString()),
                                  button == QMessageBox::Ok ? "Ok" : "Cancel", int(titleBar))
                        << key << button << titleBar;
    }
    void keysGiveTheDefault()
    {
        QFETCH(Qt::Key, key);
        QFETCH(QMessageBox::StandardButton, defaultButton);
        QFETCH(messagebox::TitleBar, titleBar);
        CapturedDiagnostics lines;
        modal::Answer<QMessageBox> answer(modal::press(key));
        const bool accepted = messagebox::accepted(
            nullptr, {QStringLiteral("Title"), QStringLiteral("<p>x</p>"),
                      QMessageBox::Ok | QMessageBox::Cancel, defaultButton, titleBar});
        QVERIFY(answer.given());
        QCOMPARE(accepted, defaultButton == QMessageBox::Ok);
    }

    void escapeCancels()
    {
        CapturedDiagnostics lines;
        modal::Answer<QMessageBox> answer(modal::press(Qt::Key_Escape));
        QVERIFY(!messagebox::accepted(nullptr, {QStringLiteral("Title"), QStringLiteral("<p>x</p>"),
                                                QMessageBox::Ok | QMessageBox::Cancel}));
        QVERIFY(answer.given());
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
