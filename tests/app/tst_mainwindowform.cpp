#include "app/mainwindowform_tables.h"
#include "ui_MainWindow.h"

#include <QMainWindow>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <memory>

/// The form of the main window as Qt Designer describes it, before any code of the window runs.
class tst_mainwindowform : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void windowCarriesItsTitle();
    void tabsHaveTheirTitlesAndOrder();
    void groupsStandOnTheirTabsInOrder();
    void widgetsStandInTheirGroups_data();
    void widgetsStandInTheirGroups();
    void spinBoxesHaveTheirRanges_data();
    void spinBoxesHaveTheirRanges();
    void shutterOffsetIsADecimal();
    void slidersHaveTheirRanges();
    void frameSkipIsAFreeText();
    void combosHaveTheirItems_data();
    void combosHaveTheirItems();
    void checkBoxesStartUnchecked();
    void textsAreVerbatim_data();
    void textsAreVerbatim();
    void labelsAreVerbatim();
    void ffcTooltipExplainsTheModes();
    void onlyTheseStartDisabled();
    void nothingStartsHidden();
    void receivedTextIsReadOnlyAndBounded();
    void focusValueIsADisplay();
    void busyIndicatorFollowsItsView();
    void fileMenuHoldsItsActions();
    void quitClosesTheWindow();
    void everyInputHasALabelOrAnAccessibleName();
    void everyContainerHasALayout();
    void everythingFitsASmallScreen();
    void tabKeyVisitsTheInputsFromTopToBottom();

private:
    template <class T>
    T *get(const char *name) const
    {
        return m_window->findChild<T *>(QLatin1String(name));
    }
    /// Inputs that a user reaches, without the parts that Qt builds other widgets from.
    QList<QWidget *> inputs() const;

    std::unique_ptr<QMainWindow> m_window;
    Ui::MainWindow m_ui;
};

void tst_mainwindowform::initTestCase()
{
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
}

void tst_mainwindowform::init()
{
    m_window = std::make_unique<QMainWindow>();
    m_ui.setupUi(m_window.get());
}

void tst_mainwindowform::cleanup()
{
    m_window.reset();
}

QList<QWidget *> tst_mainwindowform::inputs() const
{
    QList<QWidget *> result;
    for (QWidget *widget : m_window->findChildren<QWidget *>(QRegularExpression("^(?!qt_).+"))) {
        const bool isInput =
            qobject_cast<QComboBox *>(widget) || qobject_cast<QAbstractSpinBox *>(widget) ||
            qobject_cast<QSlider *>(widget) || qobject_cast<QLineEdit *>(widget) ||
            qobject_cast<QPlainTextEdit *>(widget) || qobject_cast<QPushButton *>(widget) ||
            qobject_cast<QCheckBox *>(widget);
        if (isInput)
            result << widget;
    }
    return result;
}

void tst_mainwindowform::windowCarriesItsTitle()
{
    QCOMPARE(m_window->objectName(), QStringLiteral("MainWindow"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Quorvix - Configuration - 2.19"));
}

void tst_mainwindowform::tabsHaveTheirTitlesAndOrder()
{
    const QVector<QPair<QString, QString>> expected = {{"tab_5", "Periphery"},
                                                       {"tab_4", "Trigger/FFC"},
                                                       {"tabSerial", "GPS/Serial"},
                                                       {"tab_SBUS", "SBUS/PPM"},
                                                       {"tab_3", "Extensions"},
                                                       {"tab_liveview", "Video"},
                                                       {"tabVLC", "Visible Light Camera"},
                                                       {"tab_2", "Recordings"}};
    QVector<QPair<QString, QString>> found;
    for (int i = 0; i < m_ui.tabWidget->count(); ++i)
        found << qMakePair(m_ui.tabWidget->widget(i)->objectName(), m_ui.tabWidget->tabText(i));
    QCOMPARE(found, expected);
    QCOMPARE(m_ui.tabWidget->currentIndex(), 0);
}

void tst_mainwindowform::groupsStandOnTheirTabsInOrder()
{
    const QVector<QStringList> expected = {
        {"Optional Pheriphery", "External Shutter", "Options", "Activate Test Modes"},
        {"Trigger", "Flat-field correction"},
        {"Settings for interface between Quorvix device and additional hardware:",
         "Test Serial/GPS data"},
        {"Channel assignment", "Threshold settings", "Connection Options"},
        {"Serial Communication Parameter"},
        {"Anlog video mode", "Hotspot Detection", "IR in  video output",
         "Layer scaling and position", "Isotherms in video", "HDMI video mode", "IR  Adjustements"},
        {"Camera", "Zoom", "Automatic Exposure", "Vibration Compensation", "Zoom", "Focus (Tamron)",
         "Focus (Sony FCB)", "Camera adjustments"},
        {"Compression Quality", "Image output",
         "Define how many frames should be skipped while recording.", "Sync mode",
         "Compression Quality (Daylight JPGs only)"}};
    QVector<QStringList> found;
    for (int i = 0; i < m_ui.tabWidget->count(); ++i) {
        QStringList titles;
        for (const QGroupBox *group : m_ui.tabWidget->widget(i)->findChildren<QGroupBox *>())
            titles << group->title();
        found << titles;
    }
    // The "Options" group lies inside its group; findChildren lists it behind the outer ones.
    QVERIFY(m_ui.gb_pheriphery_externalshutter->isAncestorOf(
        m_ui.gb_pheriphery_externalshutteroptions));
    QVERIFY(found[0].removeOne("Options"));
    found[0].insert(2, "Options");
    QCOMPARE(found, expected);
}

void tst_mainwindowform::widgetsStandInTheirGroups_data()
{
    formtables::addGroups();
}

void tst_mainwindowform::widgetsStandInTheirGroups()
{
    QFETCH(QString, place);
    QFETCH(QString, title);
    QFETCH(QStringList, widgets);
    auto *group = m_window->findChild<QGroupBox *>(place);
    QVERIFY(group);
    QCOMPARE(group->title(), title);
    for (const QString &name : widgets)
        QVERIFY2(group->findChild<QWidget *>(name), qPrintable(name));
}

void tst_mainwindowform::spinBoxesHaveTheirRanges_data()
{
    formtables::addSpinBoxes();
}

void tst_mainwindowform::spinBoxesHaveTheirRanges()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, start);
    QFETCH(QString, suffix);
    const auto *box = get<QSpinBox>(QTest::currentDataTag());
    QVERIFY(box);
    QCOMPARE(box->minimum(), minimum);
    QCOMPARE(box->maximum(), maximum);
    QCOMPARE(box->value(), start);
    QCOMPARE(box->suffix(), suffix);
    QCOMPARE(box->prefix(), QString());
    // The focus goes in the steps of its slider.
    QCOMPARE(box->singleStep(), box == m_ui.sbTamronFocusValue ? 128 : 1);
}

void tst_mainwindowform::shutterOffsetIsADecimal()
{
    const QDoubleSpinBox *box = m_ui.sb_eso_offset;
    QCOMPARE(box->minimum(), -20.0);
    QCOMPARE(box->maximum(), 20.0);
    QCOMPARE(box->value(), 0.0);
    QCOMPARE(box->singleStep(), 0.1);
    QCOMPARE(box->decimals(), 2);
}

void tst_mainwindowform::slidersHaveTheirRanges()
{
    const QSlider *focus = m_ui.hsTamronfocusvalue;
    QCOMPARE(focus->minimum(), 4096);
    QCOMPARE(focus->maximum(), 45056);
    QCOMPARE(focus->value(), 4096);
    QCOMPARE(focus->singleStep(), 128);
    const QSlider *quality = m_ui.hs_JPEGcompressionDaylight;
    QCOMPARE(quality->minimum(), 0);
    QCOMPARE(quality->maximum(), 2);
    QCOMPARE(quality->value(), 1);
}

void tst_mainwindowform::frameSkipIsAFreeText()
{
    QCOMPARE(m_ui.leFrameSkip->text(), QStringLiteral("0"));
    QVERIFY(!m_ui.leFrameSkip->validator());
    m_ui.leFrameSkip->setText(QStringLiteral("4294967296abc"));
    QCOMPARE(m_ui.leFrameSkip->text(), QStringLiteral("4294967296abc"));
}

void tst_mainwindowform::combosHaveTheirItems_data()
{
    formtables::addCombos();
}

void tst_mainwindowform::combosHaveTheirItems()
{
    QFETCH(QStringList, items);
    const auto *combo = get<QComboBox>(QTest::currentDataTag());
    QVERIFY(combo);
    QStringList found;
    for (int i = 0; i < combo->count(); ++i)
        found << combo->itemText(i);
    QCOMPARE(found, items);
    QCOMPARE(combo->currentIndex(), items.isEmpty() ? -1 : 0);
    QVERIFY(!combo->isEditable());
}

void tst_mainwindowform::checkBoxesStartUnchecked()
{
    QStringList names;
    for (const QCheckBox *box : m_window->findChildren<QCheckBox *>()) {
        QVERIFY2(!box->isChecked() && !box->isTristate(), qPrintable(box->objectName()));
        names << box->objectName();
    }
    names.sort();
    QCOMPARE(names, (QStringList{"cbInverted", "cbPeripheryGimbalrc", "cbSBUSInverSignal",
                                 "cb_pheriphery_externalshutter_installed"}));
}

void tst_mainwindowform::textsAreVerbatim_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("btConnectDisconnect") << "Connect";
    QTest::newRow("btnReadConf") << "Read Device";
    QTest::newRow("btnSetConf") << "Write Settings to Device";
    QTest::newRow("pbLivePreview") << "Settings-Preview";
    QTest::newRow("pbTriggerStart") << "Trigger Start";
    QTest::newRow("pbTriggerStop") << "Trigger Stop";
    QTest::newRow("pbGPSStartStream") << "Start data stream";
    QTest::newRow("pbGPSStopStream") << "Stop data stream";
    QTest::newRow("pb_ffc_doffc") << "Do FFC";
    QTest::newRow("pbVLC_preview_Zoom") << "Live-Preview";
    QTest::newRow("pbVLCAutoAdjustFocus") << "Auto adjust focus (~20sek)";
    QTest::newRow("pb_iradj_send") << "PushButton";
    QTest::newRow("pbSbusTest") << "Channel Test";
    QTest::newRow("cbPeripheryGimbalrc") << "Kovo Gimbal RC";
}

void tst_mainwindowform::textsAreVerbatim()
{
    QFETCH(QString, text);
    const auto *button = get<QAbstractButton>(QTest::currentDataTag());
    QVERIFY(button);
    QCOMPARE(button->text(), text);
}

void tst_mainwindowform::labelsAreVerbatim()
{
    const QVector<QPair<QWidget *, QString>> expected = {
        {m_ui.cBDevice, "Device:"},
        {m_ui.cbPeripheryGPS, "GPS"},
        {m_ui.sb_eso_heating, "Heating"},
        {m_ui.sb_eso_heatcycle, "Heatcycle"},
        {m_ui.sb_eso_offset, "Offset"},
        {m_ui.sb_eso_shutterinterval, "shutter interval"},
        {m_ui.sb_eso_opt5, "opt5"},
        {m_ui.cbTestmodesTaucore, "IR camera test mode"},
        {m_ui.cbTriggerPinMode, "Trigger Mode:"},
        {m_ui.cbTriggerFrameMode, "Trigger frame mode "},
        {m_ui.cbTriggerFFCMode, "Trigger auto FFC:"},
        {m_ui.cbFFCmode, "FFC mode"},
        {m_ui.sbFFCdelay, "FFC delay time (s)"}};
    const auto labels = m_window->findChildren<QLabel *>();
    for (const auto &[buddy, text] : expected) {
        QStringList found;
        for (const QLabel *label : labels) {
            if (label->buddy() == buddy)
                found << label->text();
        }
        QCOMPARE(found, QStringList{text});
    }
    QCOMPARE(m_ui.label->buddy(), m_ui.cBDevice);

    QStringList serialTexts;
    for (const QLabel *label : m_ui.tabSerial->findChildren<QLabel *>())
        serialTexts << label->text();
    QVERIFY(serialTexts.contains(
        "Set \"Periphery > GPS\" to \"Custom settings\" to enable configuration."));
    QStringList sbusTexts;
    for (const QLabel *label : m_ui.tab_SBUS->findChildren<QLabel *>())
        sbusTexts << label->text();
    QVERIFY(sbusTexts.contains("Set \"Trigger > Trigger mode\" to \"SBUS\" or \"PPM\" to enable "
                               "configuration of channels"));
}

void tst_mainwindowform::ffcTooltipExplainsTheModes()
{
    QCOMPARE(m_ui.cbFFCmode->toolTip(),
             QStringLiteral(
                 "<p>FFC automatic: Automated shutter intervalls depending on FLIR algorithms.</p>"
                 "<p>FFC fixed time intervalls, do not interrupt recordings: Do FFC in defined "
                 "time intervalls, never interrupts an ongoing recording (FFC is only done if "
                 "recoding is stopped)</p>"
                 "<p>FFC fixed time intervalls, ignore recoding state: Do FFC in defined time "
                 "intervalls, interrupt recordings if necessary.</p>"));
}

void tst_mainwindowform::onlyTheseStartDisabled()
{
    QSet<QString> disabled;
    for (const QWidget *widget : m_window->findChildren<QWidget *>()) {
        if (widget->testAttribute(Qt::WA_ForceDisabled))
            disabled << widget->objectName();
    }
    QCOMPARE(disabled,
             (QSet<QString>{"sbFFCdelay", "tab_SBUS", "gbSbusChannelAssignment",
                            "sbIsothermsMiddle", "cbIsothermsTransparency", "hsTamronfocusvalue",
                            "label_68", "label_69", "tab_liveview"}));
    QVERIFY(!m_ui.tab_SBUS->isEnabled());
    QVERIFY(!m_ui.tab_liveview->isEnabled());
    QVERIFY(m_ui.gbGPSSettings->isEnabled());
    QVERIFY(m_ui.gb_pheriphery_externalshutteroptions->isEnabled());
}

void tst_mainwindowform::nothingStartsHidden()
{
    for (int i = 0; i < m_ui.tabWidget->count(); ++i) {
        for (const QWidget *widget : m_ui.tabWidget->widget(i)->findChildren<QWidget *>(
                 QRegularExpression("^(cb|cB|sb|sB|hs|pb|gb|le|label)")))
            QVERIFY2(!widget->testAttribute(Qt::WA_WState_ExplicitShowHide) || !widget->isHidden(),
                     qPrintable(widget->objectName()));
    }
}

void tst_mainwindowform::receivedTextIsReadOnlyAndBounded()
{
    QVERIFY(m_ui.pteGPSstream->isReadOnly());
    QCOMPARE(m_ui.pteGPSstream->maximumBlockCount(), 10000);
    QVERIFY(m_ui.pteGPSstream->toPlainText().isEmpty());
}

void tst_mainwindowform::focusValueIsADisplay()
{
    QVERIFY(m_ui.sbTamronFocusValue->isReadOnly());
    QCOMPARE(m_ui.sbTamronFocusValue->buttonSymbols(), QAbstractSpinBox::NoButtons);
}

void tst_mainwindowform::busyIndicatorFollowsItsView()
{
    QCOMPARE(m_ui.quickWidget->resizeMode(), QQuickWidget::SizeRootObjectToView);
    QVERIFY(m_ui.quickWidget->source().isEmpty());
    QVERIFY(m_ui.centralWidget->isAncestorOf(m_ui.quickWidget));
    QVERIFY(!m_ui.tabWidget->isAncestorOf(m_ui.quickWidget));
}

void tst_mainwindowform::fileMenuHoldsItsActions()
{
    const auto actions = m_ui.menuBar->actions();
    QCOMPARE(actions.count(), 1);
    QCOMPARE(actions.first()->text(), QStringLiteral("File"));
    const QVector<QAction *> expected = {m_ui.actionOpen, m_ui.actionSave, m_ui.actionQuit};
    QVector<QAction *> found;
    for (QAction *action : actions.first()->menu()->actions()) {
        if (!action->isSeparator())
            found << action;
    }
    QCOMPARE(found, expected);
    QCOMPARE(m_ui.actionOpen->text(), QStringLiteral("Open"));
    QCOMPARE(m_ui.actionSave->text(), QStringLiteral("Save"));
    QCOMPARE(m_ui.actionQuit->text(), QStringLiteral("Quit"));
    QCOMPARE(m_ui.actionOpen->shortcut(), QKeySequence(QStringLiteral("Ctrl+O")));
    QCOMPARE(m_ui.actionSave->shortcut(), QKeySequence(QStringLiteral("Ctrl+S")));
    QCOMPARE(m_ui.actionQuit->shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
}

void tst_mainwindowform::quitClosesTheWindow()
{
    m_window->show();
    m_ui.actionQuit->trigger();
    QVERIFY(!m_window->isVisible());
}

void tst_mainwindowform::everyInputHasALabelOrAnAccessibleName()
{
    QSet<const QWidget *> named;
    for (const QLabel *label : m_window->findChildren<QLabel *>()) {
        if (label->buddy() && !label->text().trimmed().isEmpty())
            named << label->buddy();
    }
    const QList<QWidget *> all = inputs();
    QVERIFY(all.count() > 80);
    for (const QWidget *input : all) {
        const auto *button = qobject_cast<const QAbstractButton *>(input);
        QVERIFY2(named.contains(input) || !input->accessibleName().isEmpty() ||
                     (button && !button->text().isEmpty()),
                 qPrintable(input->objectName()));
    }
}

void tst_mainwindowform::everyContainerHasALayout()
{
    QVERIFY(m_ui.centralWidget->layout());
    for (int i = 0; i < m_ui.tabWidget->count(); ++i)
        QVERIFY2(m_ui.tabWidget->widget(i)->layout(), qPrintable(m_ui.tabWidget->tabText(i)));
    for (const QGroupBox *group : m_window->findChildren<QGroupBox *>())
        QVERIFY2(group->layout() && group->layout()->count() > 0, qPrintable(group->objectName()));
}

void tst_mainwindowform::everythingFitsASmallScreen()
{
    // The widest state of the running program: no model known yet, so that only what no model shows
    // is hidden. The fonts of the off-screen platform are larger than those of most desktops.
    for (QWidget *widget :
         QVector<QWidget *>{m_ui.gb_Liveview_hotspotdetection, m_ui.gb_liveview_layerscaling,
                            m_ui.gb_VLC_cam, m_ui.label_eso_opt5, m_ui.sb_eso_opt5})
        widget->hide();
    m_window->show();
    QVERIFY2(m_window->minimumSizeHint().width() <= 1366 &&
                 m_window->minimumSizeHint().height() <= 768,
             qPrintable(QStringLiteral("%1 x %2")
                            .arg(m_window->minimumSizeHint().width())
                            .arg(m_window->minimumSizeHint().height())));
}

void tst_mainwindowform::tabKeyVisitsTheInputsFromTopToBottom()
{
    m_window->show();
    QVector<QWidget *> chain;
    const QSet<QWidget *> all = [this] {
        const QList<QWidget *> list = inputs();
        return QSet<QWidget *>(list.begin(), list.end());
    }();
    QWidget *widget = m_ui.cBDevice;
    do {
        if (all.contains(widget) && widget->focusPolicy() & Qt::TabFocus)
            chain << widget;
        widget = widget->nextInFocusChain();
    } while (widget != m_ui.cBDevice);

    const QVector<QWidget *> head = {m_ui.cBDevice, m_ui.comboBoxPort, m_ui.btConnectDisconnect};
    const QVector<QWidget *> foot = {m_ui.pbFactorySettings, m_ui.pb_TestWindow, m_ui.pbLivePreview,
                                     m_ui.btnReadConf, m_ui.btnSetConf};
    QCOMPARE(chain.mid(0, head.count()), head);
    QCOMPARE(chain.mid(chain.count() - foot.count()), foot);

    int page = 0;
    for (QWidget *input : chain.mid(head.count(), chain.count() - head.count() - foot.count())) {
        int its = page;
        while (its < m_ui.tabWidget->count() && !m_ui.tabWidget->widget(its)->isAncestorOf(input))
            ++its;
        QVERIFY2(its < m_ui.tabWidget->count(), qPrintable(input->objectName()));
        page = its;
    }
    // Within each group, from row to row and from left to right.
    for (const QGroupBox *group : m_window->findChildren<QGroupBox *>()) {
        for (int i = 0; i < m_ui.tabWidget->count(); ++i) {
            if (m_ui.tabWidget->widget(i)->isAncestorOf(group))
                m_ui.tabWidget->setCurrentIndex(i);
        }
        QPoint last(-1, -1);
        for (QWidget *input : chain) {
            if (input->parentWidget() != group)
                continue;
            const QPoint at = input->mapTo(m_window.get(), input->rect().center());
            const bool sameRow = qAbs(at.y() - last.y()) <= input->height() / 2;
            const bool follows = sameRow ? at.x() > last.x() : at.y() > last.y();
            QVERIFY2(follows, qPrintable(input->objectName()));
            last = at;
        }
    }
}

QTEST_MAIN(tst_mainwindowform)
#include "tst_mainwindowform.moc"
