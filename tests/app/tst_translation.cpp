// The German texts: complete, true to their sources, and without any effect on what the tool does.

#include "app/translation.h"
#include "factory/FactorySettings.h"
#include "factory/LiveEdit.h"
#include "link/ComioInterfaceCommand.h"
#include "sbus/sbusTester.h"
#include "support/cameraend.h"
#include "support/captureddiagnostics.h"
#include "support/configurationfields.h"
#include "support/configurationform.h"
#include "support/files.h"
#include "support/formundertest.h"
#include "support/mnemonics.h"
#include "support/modal.h"
#include "support/records.h"

#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QListWidget>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>

namespace {

const QString sources = QStringLiteral(SOURCE_DIR);
const QString germanFile = sources + "/resources/translations/quorvix_de.ts";

struct Message
{
    QString id; ///< context, source and comment
    QString source;
    QString translation;
    QString type; ///< empty for a finished translation
};

QVector<Message> messagesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    QVector<Message> messages;
    QString context;
    QString comment;
    Message message;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        const QString tag = xml.name().toString();
        if (token == QXmlStreamReader::EndElement && tag == "message") {
            message.id = QStringList{context, message.source, comment}.join('|');
            messages << message;
        }
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (tag == "message") {
            message = {};
            comment.clear();
        } else if (tag == "name") {
            context = xml.readElementText();
        } else if (tag == "source") {
            message.source = xml.readElementText();
        } else if (tag == "comment") {
            comment = xml.readElementText();
        } else if (tag == "translation") {
            message.type = xml.attributes().value("type").toString();
            message.translation = xml.readElementText();
        }
    }
    if (xml.hasError())
        qFatal("%s: %s", qPrintable(path), qPrintable(xml.errorString()));
    return messages;
}

/// What a translation has to keep: placeholders, tags, name patterns, the blank at an end, and
/// whether there is a mnemonic.
QStringList fixedParts(const QString &text)
{
    static const QRegularExpression parts("%[0-9]+|</?[a-z0-9]+>|\\*[.a-zA-Z]+|\n|https?://[^ ]+"
                                          "|^ | $|:$");
    QStringList found;
    for (auto match = parts.globalMatch(text); match.hasNext();)
        found << match.next().captured();
    found.sort();
    if (!QKeySequence::mnemonic(text).isEmpty())
        found << "mnemonic";
    return found;
}

/// A desktop with this locale, for as long as it lives.
class Desktop
{
public:
    explicit Desktop(const QLocale &locale)
    {
        QLocale::setDefault(locale);
        translated = translation::install(locale);
    }
    ~Desktop()
    {
        // One that goes uninstalls itself.
        qDeleteAll(qApp->findChildren<QTranslator *>(QString(), Qt::FindDirectChildrenOnly));
        QLocale::setDefault(QLocale::c());
    }
    Desktop(const Desktop &) = delete;
    Desktop &operator=(const Desktop &) = delete;

    bool translated = false;
};

struct German : Desktop
{
    German() : Desktop(QLocale(QLocale::German, QLocale::Germany)) {}
};

/// Whether Qt's own translations are installed; distributions package them apart.
bool qtSpeaksGerman()
{
    return QFileInfo::exists(QLibraryInfo::location(QLibraryInfo::TranslationsPath) +
                             "/qtbase_de.qm");
}

template <class Item>
void addItems(QStringList &texts, const Item &box)
{
    for (int i = 0; i < box.count(); ++i)
        texts << box.itemText(i);
}

/// All texts that a window and its dialogs can show.
QStringList textsOf(MainWindow &window)
{
    QStringList texts;
    const QList<QWidget *> widgets = window.findChildren<QWidget *>() << &window;
    for (QWidget *widget : widgets) {
        texts << widget->windowTitle() << widget->toolTip() << widget->whatsThis()
              << widget->statusTip() << widget->accessibleName();
        const bool part = qobject_cast<QAbstractSpinBox *>(widget->parentWidget()) != nullptr;
        for (const char *property : {"text", "title", "prefix", "suffix", "placeholderText"})
            if (!part &&
                !(qobject_cast<QAbstractSpinBox *>(widget) && QByteArray(property) == "text"))
                texts << widget->property(property).toString();
        if (auto *box = qobject_cast<QComboBox *>(widget))
            addItems(texts, *box);
        if (auto *tabs = qobject_cast<QTabWidget *>(widget))
            for (int i = 0; i < tabs->count(); ++i)
                texts << tabs->tabText(i);
        if (auto *list = qobject_cast<QListWidget *>(widget))
            for (int i = 0; i < list->count(); ++i)
                texts << list->item(i)->text();
        if (auto *table = qobject_cast<QTableWidget *>(widget))
            for (int row = 0; row < table->rowCount(); ++row)
                texts << table->model()->headerData(row, Qt::Vertical).toString();
    }
    const QList<QAction *> actions = window.findChildren<QAction *>();
    for (const QAction *action : actions)
        if (!action->objectName().isEmpty() && !action->objectName().startsWith("_q_"))
            texts << action->text() << action->toolTip() << action->statusTip();
    return texts;
}

QList<QWidget *> windowsOf(FormUnderTest &form)
{
    QList<QWidget *> windows{&form.window};
    const QList<QDialog *> dialogs = form.window.findChildren<QDialog *>();
    for (QDialog *dialog : dialogs)
        windows << dialog;
    return windows;
}

} // namespace

class TestTranslation : public QObject
{
    Q_OBJECT

private slots:
    void everyTextIsTranslated();
    void sourcesHoldNothingNew();
    void fixedPartsOfTextsAreKept();
    void onlyGermanLocalesAreTranslated_data();
    void onlyGermanLocalesAreTranslated();
    void windowIsGerman();
    void onlyNeutralTextsAreNotTranslated();
    void mnemonicsAreUnique_data();
    void mnemonicsAreUnique();
    void windowsFitASmallScreen_data();
    void windowsFitASmallScreen();
    void recordsAreTheSame_data();
    void recordsAreTheSame();
    void modelsAreFoundByTheirNames();
    void cameraIsIdentifiedAndRead();
    void boxesAreGerman();
    void opticsAndReportAreTheSame();
};

void TestTranslation::everyTextIsTranslated()
{
    const QVector<Message> messages = messagesOf(germanFile);
    QVERIFY(messages.size() > 500);
    for (const Message &message : messages) {
        QVERIFY2(message.type.isEmpty(), qPrintable(message.type + ": " + message.id));
        QVERIFY2(!message.translation.trimmed().isEmpty(), qPrintable(message.id));
    }
}

void TestTranslation::sourcesHoldNothingNew()
{
    const QString lupdate = QStandardPaths::findExecutable("lupdate");
    if (lupdate.isEmpty())
        QSKIP("needs lupdate");
    const QTemporaryDir directory;
    const QString fresh = directory.filePath("fresh_de.ts");
    QProcess process;
    process.start(lupdate, {"-silent", "-no-obsolete", sources, "-ts", fresh});
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.exitCode(), 0);

    QSet<QString> expected;
    QSet<QString> translated;
    const QVector<Message> freshMessages = messagesOf(fresh);
    const QVector<Message> messages = messagesOf(germanFile);
    for (const Message &message : freshMessages)
        expected << message.id;
    for (const Message &message : messages)
        translated << message.id;
    QVERIFY(!expected.isEmpty());
    QCOMPARE((expected - translated).values(), QStringList()); // run scripts/update-translations
    QCOMPARE((translated - expected).values(), QStringList());
}

void TestTranslation::fixedPartsOfTextsAreKept()
{
    const QVector<Message> messages = messagesOf(germanFile);
    for (const Message &message : messages)
        QVERIFY2(fixedParts(message.source) == fixedParts(message.translation),
                 qPrintable(message.source + " / " + message.translation));
}

void TestTranslation::onlyGermanLocalesAreTranslated_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<bool>("german");
    for (const char *name : {"de", "de_DE", "de_AT", "de_CH"})
        QTest::newRow(name) << name << true;
    for (const char *name : {"C", "en_US", "en_GB", "fr_FR", "nl_NL", "da_DK", "nds_DE"})
        QTest::newRow(name) << name << false;
}

void TestTranslation::onlyGermanLocalesAreTranslated()
{
    QFETCH(QString, locale);
    QFETCH(bool, german);
    const Desktop desktop{QLocale(locale)};
    QCOMPARE(desktop.translated, german);
    QCOMPARE(MainWindow::tr("Connect"), QString(german ? "Verbinden" : "Connect"));
    QCOMPARE(qApp->findChildren<QTranslator *>().isEmpty(), !german);
}

void TestTranslation::windowIsGerman()
{
    const German german;
    QVERIFY(german.translated);
    FormUnderTest form(records::keyBlendZoom);
    QCOMPARE(form.window.windowTitle(), QString("Quorvix - Konfiguration - 2.19"));
    QStringList tabs;
    for (int i = 0; i < form.get<QTabWidget>("tabWidget")->count(); ++i)
        tabs << form.get<QTabWidget>("tabWidget")->tabText(i);
    QCOMPARE(tabs, QStringList({"Peripherie", "Trigger/FFC", "GPS/Seriell", "SBUS/PPM",
                                "Erweiterungen", "Video", "Tageslichtkamera", "Aufzeichnungen"}));
    QCOMPARE(form.get<QPushButton>("btConnectDisconnect")->text(), QString("Verbinden"));
    QCOMPARE(form.get<QPushButton>("btnReadConf")->text(), QString("Gerät lesen"));
    QCOMPARE(form.get<QComboBox>("cbSbusFFC")->itemText(17), QString("Kanal 18"));
    QCOMPARE(form.get<QMenu>("menuHelp")->title(), QString("&Hilfe"));
    QCOMPARE(form.window.findChild<LiveEdit *>()->windowTitle(),
             QString("Live-Verschiebungseditor"));
    QCOMPARE(form.window.findChild<sbusTester *>()->windowTitle(), QString("SBUS-Test"));
}

/// Texts that are the same in both languages are names, keys, numbers, units and words that German
/// has taken over. A sentence among them was not translated.
void TestTranslation::onlyNeutralTextsAreNotTranslated()
{
    FormUnderTest english(records::keyBlendZoom);
    const German german;
    FormUnderTest translated(records::keyBlendZoom);
    const QStringList before = textsOf(english.window);
    const QStringList after = textsOf(translated.window);
    QCOMPARE(after.size(), before.size());

    static const QRegularExpression number("^[-0-9., %]*$");
    static const QRegularExpression key("^[A-Z0-9]+(_[A-Z0-9]+)+$");
    static const QSet<QString> neutral{"&Zoom",
                                       "A",
                                       "AUTO",
                                       "Analog A",
                                       "Analog B",
                                       "Analog E",
                                       "B",
                                       "C",
                                       "D",
                                       "E",
                                       "F",
                                       "FOV_IR_H:",
                                       "FOV_IR_V:",
                                       "FOV_RGB_H:",
                                       "FOV_RGB_V:",
                                       "G",
                                       "GPS",
                                       "HDMI",
                                       "HDMI A",
                                       "HDMI B",
                                       "HDMI E",
                                       "IR / RGB",
                                       "IR 25%",
                                       "IR 50%",
                                       "IR 75%",
                                       "IR_Scaled_X",
                                       "IR_Scaled_Y",
                                       "ImageAreaX",
                                       "Kovo Gimbal RC",
                                       "Min / Max",
                                       "NTSC-M",
                                       "Offset",
                                       "PAL-D",
                                       "PPM",
                                       "PWM (normal)",
                                       "Quorvix Blend",
                                       "Quorvix Blend Zoom",
                                       "ResX",
                                       "ResX_Analog",
                                       "ResY",
                                       "ResY_Analog",
                                       "SBUS",
                                       "SBUS/PPM",
                                       "Scale",
                                       "SizeX",
                                       "SizeY",
                                       "Sony FCB EV7520",
                                       "Tamron MP1010M",
                                       "Trigger",
                                       "Trigger/FFC",
                                       "Video",
                                       "X-Shift",
                                       "Y-Shift",
                                       "Zoom",
                                       "s"};
    QSet<QString> same;
    for (int i = 0; i < before.size(); ++i)
        if (before[i] == after[i] && !number.match(before[i]).hasMatch() &&
            !key.match(before[i]).hasMatch())
            same << before[i];
    QStringList untranslated = (same - neutral).values();
    untranslated.sort();
    QCOMPARE(untranslated, QStringList());
}

void TestTranslation::mnemonicsAreUnique_data()
{
    QTest::addColumn<quint32>("model");
    QTest::newRow("no model") << quint32(0);
    QTest::newRow("Blend") << records::keyBlend;
    QTest::newRow("Blend Zoom") << records::keyBlendZoom;
}

void TestTranslation::mnemonicsAreUnique()
{
    QFETCH(quint32, model);
    const German german;
    FormUnderTest form(model);
    const QList<QWidget *> windows = windowsOf(form);
    QCOMPARE(windows.count(), 4);
    int taken = 0;
    for (QWidget *window : windows) {
        window->show();
        auto *tabs = window->findChild<QTabWidget *>(QStringLiteral("tabWidget"));
        for (int i = 0; i < (tabs ? tabs->count() : 1); ++i) {
            if (tabs)
                tabs->setCurrentIndex(i);
            QCOMPARE(mnemonics::clashes(window), QStringList());
            taken += mnemonics::visible(window).count();
        }
    }
    QVERIFY(taken > 40);
}

void TestTranslation::windowsFitASmallScreen_data()
{
    mnemonicsAreUnique_data();
}

void TestTranslation::windowsFitASmallScreen()
{
    QFETCH(quint32, model);
    const German german;
    FormUnderTest form(model);
    const QList<QWidget *> windows = windowsOf(form);
    for (QWidget *window : windows) {
        window->show();
        const QSize size = window->minimumSizeHint();
        QVERIFY2(size.width() <= 1366 && size.height() <= 768,
                 qPrintable(QStringLiteral("%1: %2 x %3")
                                .arg(window->metaObject()->className())
                                .arg(size.width())
                                .arg(size.height())));
    }
}

void TestTranslation::recordsAreTheSame_data()
{
    QTest::addColumn<bool>("zoom");
    QTest::newRow("Blend") << false;
    QTest::newRow("Blend Zoom") << true;
}

void TestTranslation::recordsAreTheSame()
{
    QFETCH(bool, zoom);
    const CapturedDiagnostics lines;
    ConfigurationForm english(zoom);
    const German german;
    QVERIFY(german.translated);
    ConfigurationForm translated(zoom);
    QCOMPARE(translated.written(), english.written());

    std::vector<configurationfields::Field> fields = configurationfields::all();
    const std::vector<configurationfields::Field> extensions =
        configurationfields::extensions(zoom);
    for (const configurationfields::Field &field : extensions)
        fields.push_back(field);
    int compared = 0;
    for (const configurationfields::Field &field : fields) {
        const int offset = zoom ? field.zoomOffset : field.blendOffset;
        if (offset < 0)
            continue;
        for (const configurationfields::Sample &sample : field.samples) {
            QByteArray record = zoom ? records::blendZoom() : records::blend();
            record.replace(offset, sample.bytes.size(), sample.bytes);
            record = records::sealed(record);
            english.read(record);
            translated.read(record);
            QVERIFY2(translated.value(field.widget) == english.value(field.widget), field.widget);
            QVERIFY2(translated.written() == english.written(), field.widget);
            if (sample.value.isEmpty())
                continue;
            english.set(field.widget, sample.value);
            translated.set(field.widget, sample.value);
            QVERIFY2(translated.written() == english.written(), field.widget);
            ++compared;
        }
    }
    QVERIFY(compared > 200);
}

void TestTranslation::modelsAreFoundByTheirNames()
{
    const German german;
    const CapturedDiagnostics lines;
    FormUnderTest form(records::keyBlend);
    auto *devices = form.get<QComboBox>("cBDevice");
    devices->setCurrentIndex(1);
    QVERIFY(!form.hidden("gbTamronFocus"));
    QVERIFY(form.hidden("gbSonyFCBFocus"));
    QCOMPARE(form.get<QComboBox>("cBext0mode")->count(), 6);
    form.get<QComboBox>("cbHDMIVideoMode")->setCurrentIndex(1);
    QVERIFY(form.hidden("gb_compressionQuality_slider"));
    form.get<QComboBox>("cb_vlc_ae_mode")->setCurrentIndex(1);
    QVERIFY(!form.hidden("cb_vlc_ae_shutterspeed"));
    devices->setCurrentIndex(0);
    QVERIFY(form.hidden("gbTamronFocus"));
    QVERIFY(!form.hidden("gbSonyFCBFocus"));
    QCOMPARE(form.get<QComboBox>("cBext0mode")->count(), 2);
    QVERIFY2(!lines.err().contains("not implemented"), qPrintable(lines.err()));
}

void TestTranslation::cameraIsIdentifiedAndRead()
{
    const German german;
    const CapturedDiagnostics lines;
    CameraEnd camera;
    WindowUnderTest tool;
    tool.connectTo(camera.path());
    QCOMPARE(tool.get<QPushButton>("btConnectDisconnect")->text(), QString("Trennen"));
    camera.send(replyOk(COMIO_CMD_GET_DEVICE_ID), CameraEnd::identity(records::keyBlendZoom));
    QTRY_COMPARE(camera.count(COMIO_CMD_GET_CONFIG), 1);
    QCOMPARE(tool.window.statusBar()->currentMessage(),
             QString("Geräte-ID: QX Blend Zoom   Seriennummer: 1701234"));
    QByteArray record = records::blendZoom();
    records::put<quint32>(record, 12, 57600);
    camera.send(replyOk(COMIO_CMD_GET_CONFIG), records::sealed(record));
    QTRY_COMPARE(tool.get<QComboBox>("cbBaudrate")->currentText(), QString("57600"));
    tool.get<QPushButton>("btConnectDisconnect")->click();
    QCOMPARE(tool.get<QPushButton>("btConnectDisconnect")->text(), QString("Verbinden"));
    QVERIFY(lines.out().contains("<<< QX Blend Zoom\n")); // diagnostics stay as they are
}

void TestTranslation::boxesAreGerman()
{
    const German german;
    const CapturedDiagnostics lines;
    FormUnderTest form(records::keyBlend);
    QString title;
    QString text;
    QString cancel;
    const modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
        title = box->windowTitle();
        text = box->text();
        cancel = box->button(QMessageBox::Cancel)->text().remove('&');
        box->reject();
    });
    form.window.on_btnSetConf_clicked();
    QVERIFY(answer.given());
    QCOMPARE(title, QString("Konfiguration speichern"));
    QCOMPARE(text, QString("<p>Sie sind dabei, eine neue Konfiguration zu speichern.<br>Das Gerät "
                           "wird neu gestartet.<br>Möchten Sie fortfahren?</p>"));
    QCOMPARE(cancel, QString(qtSpeaksGerman() ? "Abbrechen" : "Cancel"));
    QVERIFY(lines.out().endsWith("<<< dialog rejected\n"));
}

void TestTranslation::opticsAndReportAreTheSame()
{
    const CapturedDiagnostics lines;
    FormUnderTest english(records::keyBlendZoom);
    const German german;
    FormUnderTest translated(records::keyBlendZoom);
    QStringList fieldsOfView;
    QList<QByteArray> reports;
    for (FormUnderTest *form : {&english, &translated}) {
        form->window.findChild<LiveEdit *>()->setDisplacements_HDMI(1, 2, 3, 4, 256, 6, 7, 4);
        fieldsOfView << QString::number(form->get<QDoubleSpinBox>("dsbRGBFOVH")->value());
        const QTemporaryDir directory;
        form->window.findChild<FactorySettings *>()->writeReport(directory.path());
        reports << files::contentOf(directory.filePath("1700999.txt"));
    }
    QCOMPARE(fieldsOfView[1], fieldsOfView[0]);
    QVERIFY(fieldsOfView[0] != "0");
    QVERIFY(reports[0].startsWith("QX Blend Zoom 1700999\n"));
    QCOMPARE(reports[1], reports[0]);
    QCOMPARE(lines.err().count("no focal length"), 0);
}

QTEST_MAIN(TestTranslation)
#include "tst_translation.moc"
