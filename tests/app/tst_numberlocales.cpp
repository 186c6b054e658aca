// The same keys give the same bytes on every desktop.

#include "factory/LiveEdit.h"
#include "link/ComioInterfaceCommand.h"
#include "support/captureddiagnostics.h"
#include "support/files.h"
#include "support/formundertest.h"
#include "support/records.h"
#include "support/referenceframes.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QProcess>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>

namespace {

/// Set for the run of this program on a desktop of the locale, where no test may choose one.
const char *const onDesktop = "QUORVIX_TEST_ON_DESKTOP";

void choose(const QString &locale)
{
    if (!qEnvironmentVariableIsSet(onDesktop))
        QLocale::setDefault(QLocale(locale));
}

/// Replaces what a box shows, key by key.
void type(QWidget *box, const QString &keys)
{
    box->setFocus();
    QMetaObject::invokeMethod(box, "selectAll");
    QTest::keyClicks(box, keys);
    QTest::keyClick(box, Qt::Key_Tab);
}

QByteArray displacements(const QVector<int> &values)
{
    QByteArray payload(2 * values.size(), '\0');
    for (int i = 0; i < values.size(); ++i)
        records::put<qint16>(payload, 2 * i, qint16(values[i]));
    return payload;
}

void addLocales(const QStringList &inEveryLocale, const QStringList &inGerman,
                const QStringList &elsewhere = {})
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("keys");
    for (const char *locale :
         {"C", "en_US", "fr_FR", "fi_FI", "sv_SE", "fa_IR", "de_DE", "de_AT", "de_CH"}) {
        const bool german = QByteArray(locale).startsWith("de");
        for (const QString &keys : inEveryLocale + (german ? inGerman : elsewhere))
            QTest::newRow(qPrintable(QLatin1String(locale) + ", " + keys)) << locale << keys;
    }
}

} // namespace

class TestNumberLocales : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        if (!qEnvironmentVariableIsSet(onDesktop))
            QLocale::setDefault(QLocale::c());
    }

    void fractionIsStored_data() { addLocales({"0.29", ".29"}, {"0,29", ",29"}); }
    void fractionIsStored()
    {
        QFETCH(QString, locale);
        QFETCH(QString, keys);
        choose(locale);
        CapturedDiagnostics lines;
        FormUnderTest form(records::keyBlend);
        form.window.show();
        form.set("cb_pheriphery_externalshutter_installed", 1);
        type(form.widget("sb_eso_offset"), keys);
        // 0.29 * 100 is 28.999... in double precision and truncated
        QCOMPARE(records::get<qint32>(saved(form), 30), 28);
    }

    void commaIsNoKeyOfAFractionOutsideGerman_data() { addLocales({}, {}, {"0,29", ",5"}); }
    void commaIsNoKeyOfAFractionOutsideGerman()
    {
        QFETCH(QString, locale);
        QFETCH(QString, keys);
        choose(locale);
        CapturedDiagnostics lines;
        FormUnderTest form(records::keyBlend);
        form.window.show();
        form.set("cb_pheriphery_externalshutter_installed", 1);
        type(form.widget("sb_eso_offset"), keys);
        // 0, 2 and no 9, for 29 is beyond the range; 5
        QCOMPARE(records::get<qint32>(saved(form), 30), keys == "0,29" ? 200 : 500);
    }

    void minusIsStored_data() { addLocales({"-1.5"}, {"-1,5"}); }
    void minusIsStored()
    {
        QFETCH(QString, locale);
        QFETCH(QString, keys);
        choose(locale);
        CapturedDiagnostics lines;
        FormUnderTest form(records::keyBlend);
        form.window.show();
        form.set("cb_pheriphery_externalshutter_installed", 1);
        form.set("cbIsothermsState", 1);
        form.widget("tab_liveview")->setEnabled(true); // as a connection does
        type(form.widget("sb_eso_offset"), keys);
        form.get<QTabWidget>("tabWidget")->setCurrentWidget(form.widget("tab_liveview"));
        type(form.widget("sbIsothermsLower"), "-27");
        QCOMPARE(form.get<QSpinBox>("sbIsothermsLower")->text(), QStringLiteral("-27"));
        const QByteArray record = saved(form);
        QCOMPARE(records::get<qint32>(record, 30), -150);
        QCOMPARE(records::get<qint16>(record, 95), qint16(-27));
    }

    void wholeNumbersAreStored_data() { addLocales({"1234"}, {}); }
    void wholeNumbersAreStored()
    {
        QFETCH(QString, locale);
        QFETCH(QString, keys);
        choose(locale);
        CapturedDiagnostics lines;
        FormUnderTest form(records::keyBlend);
        form.window.show();
        form.set("cbFFCmode", 1);
        form.get<QTabWidget>("tabWidget")->setCurrentWidget(form.widget("tab_4"));
        type(form.widget("sbFFCdelay"), keys);
        QCOMPARE(form.get<QSpinBox>("sbFFCdelay")->text(), QStringLiteral("1234s"));
        form.get<QTabWidget>("tabWidget")->setCurrentWidget(form.widget("tab_2"));
        type(form.widget("leFrameSkip"), keys);
        const QByteArray record = saved(form);
        QCOMPARE(records::get<quint32>(record, 69), quint32(1234000));
        QCOMPARE(records::get<quint32>(record, 74), quint32(1234));
    }

    void marksAreNoKeysOfWholeNumbers_data() { addLocales({"1.6", "1,6", "1.600"}, {}); }
    void marksAreNoKeysOfWholeNumbers()
    {
        QFETCH(QString, locale);
        QFETCH(QString, keys);
        choose(locale);
        CapturedDiagnostics lines;
        FormUnderTest form(records::keyBlend);
        form.window.show();
        form.set("cbFFCmode", 1);
        form.get<QTabWidget>("tabWidget")->setCurrentWidget(form.widget("tab_4"));
        type(form.widget("sbFFCdelay"), keys);
        const int expected = keys == "1.600" ? 1600 : 16;
        QCOMPARE(form.get<QSpinBox>("sbFFCdelay")->text(), QStringLiteral("%1s").arg(expected));
        QCOMPARE(records::get<quint32>(saved(form), 69), quint32(1000 * expected));
    }

    void distanceMovesTheOverlay_data() { addLocales({"1.6", "1.600"}, {"1,6", "1,600"}); }
    void distanceMovesTheOverlay()
    {
        QFETCH(QString, locale);
        QFETCH(QString, keys);
        choose(locale);
        CapturedDiagnostics lines;
        kovoPacketManager packetManager(nullptr);
        LiveEdit editor;
        editor.setPacketManager(&packetManager);
        editor.connectDevice(true);
        editor.show();
        const QSignalSpy sent(&editor, &LiveEdit::signalSendPackage);
        editor.setDisplacements_HDMI(0, 0, 0, 0, 0, 0, 0, 1);
        editor.findChild<QCheckBox *>("cbUseDistance")->setChecked(true);
        auto *distance = editor.findChild<QDoubleSpinBox *>("dsbDistanceToBB");
        distance->setValue(5);
        type(distance, keys);
        QCOMPARE(distance->value(), 1.6);
        editor.on_btnCalcABCDEFG_clicked();
        // 951 x 761 of 1920 x 1080; at 1.6 m the lenses' 39 mm are 39 pixels: A = 484 + 39
        QCOMPARE(sent.count(), 1);
        QCOMPARE(sent.first().first().toByteArray(),
                 reference::frame(130, displacements({523, 159, 951, 761, 380, 0, 0})));
    }

    void commaIsNoKeyOfTheDistanceOutsideGerman_data() { addLocales({}, {}, {"1,6"}); }
    void commaIsNoKeyOfTheDistanceOutsideGerman()
    {
        QFETCH(QString, locale);
        QFETCH(QString, keys);
        choose(locale);
        CapturedDiagnostics lines;
        LiveEdit editor;
        editor.show();
        editor.findChild<QCheckBox *>("cbUseDistance")->setChecked(true);
        auto *distance = editor.findChild<QDoubleSpinBox *>("dsbDistanceToBB");
        distance->setValue(5);
        type(distance, keys);
        QCOMPARE(distance->value(), 16.0);
    }

    void displacementsAreTypedAndShownAlike_data() { addLocales({"-12"}, {}); }
    void displacementsAreTypedAndShownAlike()
    {
        QFETCH(QString, locale);
        QFETCH(QString, keys);
        choose(locale);
        CapturedDiagnostics lines;
        kovoPacketManager packetManager(nullptr);
        LiveEdit editor;
        editor.setPacketManager(&packetManager);
        editor.connectDevice(true);
        editor.show();
        const QSignalSpy sent(&editor, &LiveEdit::signalSendPackage);
        for (const char *name : {"sbFpgaC", "sbFpgaE"}) {
            auto *box = editor.findChild<QSpinBox *>(QLatin1String(name));
            type(box, name == QByteArray("sbFpgaC") ? keys : QStringLiteral("1234"));
            QCOMPARE(box->text(), name == QByteArray("sbFpgaC") ? keys : QStringLiteral("1234"));
        }
        // 1234 / 256 of 640 x 512: 3085 x 2468, of which 1919 x 1079 are seen and 60 and 72 cropped
        QVERIFY(!sent.isEmpty());
        QCOMPARE(sent.last().first().toByteArray(),
                 reference::frame(130, displacements({0, 0, 1919 - 12, 1079, 1234, 120, 144})));
    }

    /// What was chosen above for this program alone, as a whole desktop has it.
    void desktopsAreAlike_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("rows");
        for (const char *locale : {"fr_FR", "sv_SE", "fa_IR", "de_DE"})
            QTest::newRow(locale) << "LC_ALL" << locale + QString(".UTF-8") << locale;
        QTest::newRow("Persian numbers in English") << "LC_NUMERIC"
                                                    << "fa_IR.UTF-8"
                                                    << "fa_IR";
    }
    void desktopsAreAlike()
    {
        QFETCH(QString, variable);
        QFETCH(QString, locale);
        QFETCH(QString, rows);
        if (qEnvironmentVariableIsSet(onDesktop))
            QSKIP("is the desktop's own run");
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"LC_ALL", "LC_NUMERIC", "LC_MESSAGES", "LANG", "LANGUAGE"})
            environment.remove(QString::fromLatin1(name));
        environment.insert(variable, locale);
        environment.insert(onDesktop, "1");
        const QString keys = rows + ", ";
        QStringList tests = {"fractionIsStored:" + keys + "0.29", "minusIsStored:" + keys + "-1.5",
                             "wholeNumbersAreStored:" + keys + "1234",
                             "distanceMovesTheOverlay:" + keys + "1.6",
                             "displacementsAreTypedAndShownAlike:" + keys + "-12"};
        tests << "marksAreNoKeysOfWholeNumbers:" + keys + "1.6"
              << "marksAreNoKeysOfWholeNumbers:" + keys + "1,6";
        if (rows.startsWith("de"))
            tests << "fractionIsStored:" + keys + "0,29"
                  << "distanceMovesTheOverlay:" + keys + "1,6";
        else
            tests << "commaIsNoKeyOfAFractionOutsideGerman:" + keys + "0,29"
                  << "commaIsNoKeyOfTheDistanceOutsideGerman:" + keys + "1,6";
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QCoreApplication::applicationFilePath(), tests);
        QVERIFY(process.waitForFinished(60000));
        const QByteArray report = process.readAll();
        QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
                 report.constData());
        QVERIFY2(report.contains("Totals: " + QByteArray::number(tests.size() + 2) + " passed"),
                 report.constData());
    }

private:
    /// The record of the form, as a file takes it.
    static QByteArray saved(FormUnderTest &form)
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("record.bin");
        form.window.saveConfigurationFile(path);
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll().leftJustified(223, '\0')
                                              : QByteArray(223, '\0');
    }
};

QTEST_MAIN(TestNumberLocales)
#include "tst_numberlocales.moc"
