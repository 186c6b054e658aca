#include "app/SessionState.h"
#include "app/StateLabels.h"
#include "app/messageState.h"
#include "forms/ElidedLabel.h"
#include "support/cameraend.h"
#include "support/captureddiagnostics.h"
#include "support/factoryrecords.h"
#include "support/modal.h"
#include "support/records.h"
#include "support/windowundertest.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLabel>
#include <QSpinBox>
#include <QStatusBar>

#include <memory>

using namespace records;

/// The permanent part of the status bar, with a camera that the test plays.
class TestMainWindowState : public QObject
{
    Q_OBJECT

    CapturedDiagnostics m_lines;
    std::unique_ptr<CameraEnd> m_camera;
    std::unique_ptr<WindowUnderTest> m_tool;

    QString text(const char *name) const { return m_tool->get<QLabel>(name)->text(); }
    QString port() const { return m_camera->path(); }
    QString message() const { return m_tool->window.statusBar()->currentMessage(); }

    /// A frame that leaves no trace in the state in view.
    static QByteArray levelsRequest(int size)
    {
        return reference::frame(COMIO_CMD_GET_SBUS_LEVELS, QByteArray(size, 'x'));
    }

    /// Connects and lets the camera answer identity and configuration.
    bool connectAndRead()
    {
        if (!m_tool->connectTo(port()))
            return false;
        const int read = m_camera->count(102);
        m_camera->send(216, CameraEnd::identity(keyBlendZoom, 20190801));
        if (!QTest::qWaitFor([&] { return m_camera->count(102) > read; }))
            return false;
        QByteArray record = blendZoom();
        record[72] = 3; // vibration compensation off
        put<quint16>(record, 76, 4);
        m_camera->send(202, sealed(record));
        return QTest::qWaitFor([&] { return !m_tool->busy(); });
    }

    /// A change that the two-second rule drops, whenever its shot comes.
    static void holdLiveSettingsBack()
    {
        messageState.sendTime = QDateTime::currentMSecsSinceEpoch() + 60000;
    }

private slots:
    void init()
    {
        m_camera = std::make_unique<CameraEnd>();
        m_tool = std::make_unique<WindowUnderTest>();
        m_tool->window.show();
        messageState.sendTime = 0;
    }
    void cleanup()
    {
        m_tool.reset();
        m_camera.reset();
    }

    void startsNotConnectedBesideTheMessage()
    {
        QCOMPARE(text("lbState"), QString("Not connected"));
        QCOMPARE(text("lbLast"), QString());
        QCOMPARE(message(), QString("KoVo"));
        QVERIFY(m_tool->widget("lbState")->isVisible());
    }

    void identityAndConfigurationAppear()
    {
        QVERIFY(m_tool->connectTo(port()));
        QVERIFY(text("lbState").endsWith(
            QString::fromUtf8(" · no camera identified · configuration never read")));
        QCOMPARE(text("lbLast"), QString("Identify camera: sent"));
        QVERIFY(m_camera->send(216, CameraEnd::identity(keyBlendZoom, 20190801)));
        QTRY_COMPARE(text("lbState"),
                     port() + QString::fromUtf8(" · QX Blend Zoom · 1701234 · firmware 20190801 · "
                                                "configuration never read"));
        QCOMPARE(message(), QString("Device ID: QX Blend Zoom   Serial: 1701234"));
        QTRY_COMPARE(m_camera->count(102), 1);
        QVERIFY(m_camera->send(202, sealed(blendZoom())));
        QTRY_COMPARE(text("lbState"),
                     port() + QString::fromUtf8(" · QX Blend Zoom · 1701234 · firmware 20190801"));
        QCOMPARE(text("lbLast"), QString("Read configuration: acknowledged"));
        QCOMPARE(m_tool->widget("lbState")->accessibleName(), "Connection: " + text("lbState"));
        QCOMPARE(m_tool->widget("lbLast")->accessibleName(), "Last command: " + text("lbLast"));
    }

    void modelWithoutARecordIsNamed()
    {
        QVERIFY(m_tool->connectTo(port()));
        QVERIFY(m_camera->send(216, CameraEnd::identity(key20, 20200101)));
        QTRY_VERIFY(text("lbState").contains("Quorvix 2.0"));
    }

    void identityLooksOtherwiseAfterTheConnection()
    {
        QVERIFY(connectAndRead());
        const QString identity = message();
        const auto colour = [&] {
            return m_tool->window.statusBar()->palette().color(QPalette::WindowText);
        };
        const QColor connected = colour();
        m_tool->get<QPushButton>("btConnectDisconnect")->click();
        QCOMPARE(message(), identity); // it stays until it is replaced
        QCOMPARE(text("lbState"), QString("Not connected"));
        QVERIFY(m_tool->widget("lbState")->toolTip().contains("1701234"));
        QVERIFY(colour() != connected);
        QCOMPARE(m_tool->widget("lbState")->palette().color(QPalette::WindowText), connected);
        // Nothing is known yet of the camera that is behind the port now.
        QVERIFY(m_tool->connectTo(port()));
        QCOMPARE(message(), identity);
        QVERIFY(colour() != connected);
        QVERIFY(m_camera->send(216, CameraEnd::identity(keyBlendZoom, 20190801)));
        QTRY_COMPARE(colour(), connected);
    }

    void fadedIdentityFollowsTheColoursOfTheDesktop()
    {
        QVERIFY(connectAndRead());
        m_tool->get<QPushButton>("btConnectDisconnect")->click();
        QPalette palette = m_tool->window.palette();
        palette.setColor(QPalette::Active, QPalette::WindowText, Qt::white);
        palette.setColor(QPalette::Inactive, QPalette::WindowText, Qt::white);
        palette.setColor(QPalette::Disabled, QPalette::WindowText, Qt::gray);
        m_tool->window.setPalette(palette);
        QCOMPARE(m_tool->window.statusBar()->palette().color(QPalette::WindowText),
                 QColor(Qt::gray));
        QCOMPARE(m_tool->widget("lbState")->palette().color(QPalette::WindowText),
                 QColor(Qt::white));
    }

    void lostWriteIsToldInANarrowWindow()
    {
        QVERIFY(connectAndRead());
        m_tool->window.setConfig_qx_blend_zoom();
        modal::Answer<QMessageBox> box(modal::click(QMessageBox::Ok));
        QVERIFY(m_camera->send(301));
        QTRY_VERIFY(box.given());
        m_tool->get<QPushButton>("btnReadConf")->click();
        QVERIFY(m_camera->send(202, sealed(blendZoom())));
        QTRY_COMPARE(text("lbLast"),
                     QString::fromUtf8("Write configuration: refused by the camera · Read "
                                       "configuration: acknowledged"));
        m_tool->window.resize(683, m_tool->window.height());
        const auto *label = m_tool->get<ElidedLabel>("lbLast");
        QTRY_VERIFY(label->width() < label->sizeHint().width());
        QVERIFY2(label->shownText().contains("refused"), qPrintable(label->shownText()));
        QVERIFY(!label->shownText().contains("acknowledged"));
    }

    void narrowLabelTellsHowWritesEnded_data()
    {
        QTest::addColumn<bool>("refused");
        QTest::newRow("refused") << true;
        QTest::newRow("without an answer") << false;
    }

    void narrowLabelTellsHowWritesEnded()
    {
        QFETCH(bool, refused);
        const QString end = refused ? "refused by the camera" : "sent";
        SessionState session;
        session.opened("ttyACM0");
        session.sent(101, true);
        if (refused)
            session.received(301);
        session.sent(102, true);
        session.received(202);
        QStatusBar bar;
        new StateLabels(&bar, &session, &bar);
        auto *label = bar.findChild<ElidedLabel *>("lbLast");
        QStringList shown;
        label->setMaximumWidth(QWIDGETSIZE_MAX);
        for (int width = label->sizeHint().width(); width > 0; --width) {
            label->resize(width, 20);
            const QString text = label->shownText();
            QVERIFY(label->fontMetrics().horizontalAdvance(text) <= width + 1);
            QVERIFY2(!text.contains("ackn") || text == label->text(), qPrintable(text));
            const int room = label->fontMetrics().horizontalAdvance(end) + 1;
            QVERIFY2(width < room || text.contains(end), qPrintable(text));
            if (!shown.contains(text))
                shown << text;
        }
        QVERIFY(shown.contains("Write configuration: " + end));
        QVERIFY(shown.contains(QString::fromUtf8("Write…: ") + end));
        QVERIFY(shown.contains(end));
    }

    void twoLostWritesAreToldInANarrowLabel()
    {
        SessionState session;
        session.opened("ttyACM0");
        session.sent(101, true);
        session.received(301);
        session.liveSettingsDropped();
        session.sent(110, true);
        session.received(310);
        session.sent(133, true);
        QStatusBar bar;
        new StateLabels(&bar, &session, &bar);
        auto *label = bar.findChild<ElidedLabel *>("lbLast");
        const QFontMetrics metrics = label->fontMetrics();
        const QString both = QString::fromUtf8("Write config…: refused by the camera · Write "
                                               "factor…: refused by the camera · …");
        label->setMaximumWidth(QWIDGETSIZE_MAX);
        label->resize(metrics.horizontalAdvance(both), 20);
        QCOMPARE(label->shownText().count("refused by the camera"), 2);
        QVERIFY(label->shownText().startsWith("Write "));
        QVERIFY(label->shownText().endsWith(QString::fromUtf8(" · …")));
    }

    void secondsWithoutAnAnswerAreCounted()
    {
        QVERIFY(connectAndRead());
        m_tool->window.on_pb_ffc_doffc_clicked();
        QCOMPARE(text("lbLast"), QString("Flat-field correction: sent"));
        QTRY_COMPARE(text("lbLast"), QString("Flat-field correction: no answer for 1 s"));
        QTRY_COMPARE(text("lbLast"), QString("Flat-field correction: no answer for 2 s"));
        QVERIFY(m_camera->send(233));
        QTRY_COMPARE(text("lbLast"), QString("Flat-field correction: acknowledged"));
    }

    void storedAndLostWriteLookDifferent()
    {
        QVERIFY(connectAndRead());
        m_tool->window.setConfig_qx_blend_zoom();
        QVERIFY(m_camera->send(201));
        QTRY_COMPARE(m_camera->count(0xFFFFFFFF), 1);
        QCOMPARE(text("lbLast"), QString("Write configuration: acknowledged, the camera restarts"));
        m_tool->get<QPushButton>("btConnectDisconnect")->click();
        const QImage stored = m_tool->widget("lbLast")->grab().toImage();

        QVERIFY(connectAndRead());
        m_tool->window.setConfig_qx_blend_zoom();
        m_camera->hangUp();
        QTRY_COMPARE(text("lbState"), QString("Not connected"));
        QCOMPARE(text("lbLast"), QString("Write configuration: no answer before the port closed"));
        QVERIFY(m_tool->widget("lbLast")->grab().toImage() != stored);
    }

    void refusedCommandIsToldWhileItsBoxIsOpen()
    {
        QVERIFY(connectAndRead());
        QString shown;
        modal::Answer<QMessageBox> box([&](QMessageBox *rejected) {
            shown = text("lbLast");
            rejected->button(QMessageBox::Ok)->click();
        });
        m_tool->window.setConfig_qx_blend_zoom();
        QVERIFY(m_camera->send(301));
        QTRY_VERIFY(box.given());
        QCOMPARE(shown, QString("Write configuration: refused by the camera"));
    }

    void factoryWriteIsFollowed()
    {
        QVERIFY(connectAndRead());
        auto *write = m_tool->get<QPushButton>("pbSetFactorySettings");
        write->click();
        QCOMPARE(text("lbLast"), QString("Write factory settings: sent"));
        QTRY_VERIFY(text("lbLast").startsWith("Write factory settings: no answer for "));
        QVERIFY(m_camera->send(310));
        QTRY_COMPARE(text("lbLast"), QString("Write factory settings: refused by the camera"));
        write->click();
        QVERIFY(m_camera->send(210));
        QTRY_COMPARE(text("lbLast"), QString("Write factory settings: acknowledged"));
        m_tool->get<QPushButton>("btConnectDisconnect")->click();
        write->click();
        QCOMPARE(text("lbLast"), QString("Write factory settings: not sent, no port is open"));
    }

    void channelPollingHidesNothing()
    {
        QVERIFY(connectAndRead());
        m_tool->window.on_pb_ffc_doffc_clicked();
        m_tool->window.slotSendPacket(reference::frame(123, {}));
        QTRY_COMPARE(m_camera->count(123), 1);
        QVERIFY(text("lbLast").startsWith("Flat-field correction: "));
    }

    void droppedChangeOfTheOperatorIsTold()
    {
        QVERIFY(connectAndRead());
        holdLiveSettingsBack();
        m_tool->get<QSpinBox>("sbTamronZoom")->setValue(7);
        QTRY_VERIFY(text("lbLast").startsWith(
            "The camera still shows the earlier value: Settings-Preview sends it"));
        messageState.sendTime = 0;
        m_tool->get<QPushButton>("pbLivePreview")->click();
        QCOMPARE(text("lbLast"), QString("Live settings: sent"));
        QTRY_COMPARE(m_camera->count(122), 1);
    }

    void droppedPreviewIsTold()
    {
        QVERIFY(connectAndRead());
        holdLiveSettingsBack();
        m_tool->get<QPushButton>("pbLivePreview")->click();
        QVERIFY(text("lbLast").startsWith("The camera still shows the earlier value"));
    }

    void changesThatTheCameraHasAreNotToldAsDropped()
    {
        QVERIFY(connectAndRead()); // its record changed the zoom
        QCOMPARE(m_tool->get<QSpinBox>("sbTamronZoom")->value(), 5);
        holdLiveSettingsBack();
        m_tool->window.slotSendLiveSettings();
        QVERIFY(!text("lbLast").contains("earlier value"));
        // Of a burst the first send takes all along.
        m_tool->get<QSpinBox>("sbTamronZoom")->setValue(6);
        m_tool->get<QSpinBox>("sbTamronZoom")->setValue(7);
        messageState.sendTime = 0;
        m_tool->window.slotSendLiveSettings();
        holdLiveSettingsBack();
        m_tool->window.slotSendLiveSettings();
        QVERIFY(!text("lbLast").contains("earlier value"));
    }

    void lineThatTakesNothingIsTold()
    {
        QVERIFY(connectAndRead());
        QVERIFY(QMetaObject::invokeMethod(&m_tool->window, "slotWriteStalled", Q_ARG(bool, true)));
        QVERIFY(text("lbState").contains("does not take what is sent"));
        QVERIFY(QMetaObject::invokeMethod(&m_tool->window, "slotWriteStalled", Q_ARG(bool, false)));
        QVERIFY(!text("lbState").contains("does not take what is sent"));
    }

    void lineThatNobodyReadsIsToldUntilItIsRead()
    {
        QVERIFY(connectAndRead());
        m_tool->window.slotSendPacket(levelsRequest(60000));
        QTRY_VERIFY(text("lbState").contains("does not take what is sent"));
        QTRY_VERIFY(
            (m_camera->received(), !text("lbState").contains("does not take what is sent")));
        QVERIFY(text("lbState").startsWith(port()));
    }

    void commandThatFindsNoRoomWasNotSent()
    {
        QVERIFY(connectAndRead());
        for (const int size : {60000, 1000, 0}) { // until the next smaller one does not fit either
            m_lines.clear();
            while (!m_lines.out().contains(" more are lost\n"))
                m_tool->window.slotSendPacket(levelsRequest(size));
        }
        const QString notTaken =
            QStringLiteral(": not sent, the camera has not taken what was sent before");
        m_tool->window.on_pb_ffc_doffc_clicked();
        QCOMPARE(text("lbLast"), "Flat-field correction" + notTaken);
        m_tool->get<QPushButton>("pbSetFactorySettings")->click();
        QCOMPARE(text("lbLast"), "Write factory settings" + notTaken);
    }

    void textOfTheCameraIsNeverRichText()
    {
        QVERIFY(m_tool->connectTo(port()));
        QVERIFY(m_camera->send(216, CameraEnd::identity(keyBlendZoom, 20190801, "<b>x</b>")));
        QTRY_VERIFY(text("lbState").contains("<b>x</b>"));
        QCOMPARE(m_tool->get<QLabel>("lbState")->textFormat(), Qt::PlainText);
        QVERIFY(!m_tool->widget("lbState")->toolTip().contains("<b>"));
        QVERIFY(!m_tool->window.statusBar()->toolTip().contains("<b>"));
    }

    void labelsForceNoWiderWindow()
    {
        const int before = m_tool->window.minimumSizeHint().width();
        QVERIFY(connectAndRead());
        QCOMPARE(m_tool->window.minimumSizeHint().width(), before);
        QVERIFY(m_tool->window.statusBar()->minimumSizeHint().width() < 200);
    }

    void messageComesBeforeTheLabels()
    {
        SessionState session;
        QStatusBar bar;
        new StateLabels(&bar, &session, &bar);
        const auto *state = bar.findChild<QLabel *>("lbState");
        const auto *last = bar.findChild<QLabel *>("lbLast");
        session.opened("/dev/serial/by-id/usb-camera");
        session.identified("QX Blend Zoom", "1701234", 20190801);
        session.sent(102, true);
        bar.resize(3000, bar.sizeHint().height());
        bar.show();
        QTRY_COMPARE(state->width(), state->sizeHint().width());
        QTRY_COMPARE(last->width(), last->sizeHint().width());
        bar.showMessage(QString(30, 'x'));
        bar.resize(700, bar.height());
        const int message = bar.fontMetrics().horizontalAdvance(bar.currentMessage());
        QTRY_VERIFY(state->x() >= std::min(message, 350));
        QVERIFY(state->width() > 0 && state->width() < state->sizeHint().width());
        QVERIFY(last->width() > 50);
        QVERIFY(last->geometry().right() < 700);
        bar.showMessage(QString(100, 'x'));
        QCOMPARE(bar.toolTip(), bar.currentMessage());
        bar.showMessage("x");
        QCOMPARE(bar.toolTip(), QString());
    }
};

QTEST_MAIN(TestMainWindowState)
#include "tst_mainwindow_state.moc"
