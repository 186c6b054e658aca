// What the rows of the camera models say, each against the description of its model.

#include "camera/models.h"

#include "records/layouts.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

namespace {

/// "sbus.ffc=3", with "!" behind a preset that is locked.
QStringList textOf(const Span<Preset> &presets)
{
    QStringList texts;
    for (const Preset &preset : presets)
        texts << QStringLiteral("%1=%2%3")
                     .arg(preset.field)
                     .arg(preset.stored)
                     .arg(preset.locked ? QStringLiteral("!") : QString());
    return texts;
}

QStringList textOf(const Span<const char *> &names)
{
    QStringList texts;
    for (const char *name : names)
        texts << QString::fromLatin1(name);
    return texts;
}

QSet<QString> widgetNames(const char *form)
{
    QFile file(QStringLiteral(SOURCE_DIR "/") + form);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", form);
    static const QRegularExpression widget(
        QStringLiteral("<widget class=\"\\w+\" name=\"(\\w+)\""));
    QSet<QString> names;
    auto match = widget.globalMatch(QString::fromUtf8(file.readAll()));
    while (match.hasNext())
        names << match.next().captured(1);
    return names;
}

} // namespace

class TestModels : public QObject
{
    Q_OBJECT

private slots:
    void namesAndKeys()
    {
        QStringList rows;
        for (const Model &model : models::all())
            rows << QStringLiteral("%1|%2|%3|%4")
                        .arg(model.key, 8, 16)
                        .arg(model.longName, model.shortName ? model.shortName : "none",
                             model.optionName);
        QCOMPARE(rows, QStringList({"a0af139f|Quorvix 2.0|none|2.0",
                                    "c92a6ce6|Quorvix Blend|QX Blend|blend",
                                    "a0af139e|Quorvix Blend Zoom|QX Blend Zoom|blend-zoom"}));
    }

    void modelsAreFoundByKeyAndName()
    {
        for (const Model &model : models::all()) {
            QCOMPARE(models::ofKey(model.key), &model);
            QCOMPARE(models::ofLongName(QString(model.longName).toUpper()), &model);
            QCOMPARE(models::ofOptionName(model.optionName), &model);
        }
        QVERIFY(!models::ofKey(0));
        QVERIFY(!models::ofKey(0xA0AF139D));
        QVERIFY(!models::ofLongName(QStringLiteral("QX Blend")));
        QVERIFY(!models::ofLongName(QString()));
        QVERIFY(!models::ofOptionName(QStringLiteral("Blend")));
    }

    void firmwareAges()
    {
        const Model &blend = *models::ofOptionName("blend");
        QCOMPARE(blend.oldestFirmware, 20170807U);
        QCOMPARE(blend.outdatedFirmware,
                 "<p>Outdated firmware detected.<br>Please update the firmware.</p>");
        const Model &zoom = *models::ofOptionName("blend-zoom");
        QCOMPARE(zoom.oldestFirmware, 20180122U);
        QCOMPARE(zoom.outdatedFirmware,
                 "<p>Outdated firmware detected.<br>Please update to firmware 1.4.x.</p>");
    }

    void recordsOfTheModels()
    {
        const Model &blend = *models::ofOptionName("blend");
        QCOMPARE(blend.configuration, &layouts::blend);
        QCOMPARE(blend.factory, &layouts::blendFactory);
        const Model &zoom = *models::ofOptionName("blend-zoom");
        QCOMPARE(zoom.configuration, &layouts::blendZoom);
        QCOMPARE(zoom.factory, &layouts::blendZoomFactory);
        const Model &older = *models::ofOptionName("2.0");
        QVERIFY(!older.hasRecords());
        QVERIFY(!older.factory);
        QCOMPARE(older.formGroups.size(), 0);
        QCOMPARE(older.gimbalPresets.size(), 0);
        QVERIFY(!older.outdatedFirmware);
    }

    void everyRecordBelongsToItsModel()
    {
        for (const Model &model : models::all()) {
            if (!model.hasRecords())
                continue;
            QCOMPARE(model.configuration->key, model.key);
            QCOMPARE(layouts::configurationOf(model.key), model.configuration);
            for (const int port : {0, 1}) {
                const QByteArray name = "extension.port" + QByteArray::number(port);
                QCOMPARE(model.extensionModes[port],
                         model.configuration->field(QLatin1String(name))->vocabulary);
            }
        }
    }

    void gimbalTakesChannelsAndTrigger()
    {
        const QStringList before{"isotherms.state=0!",
                                 "isotherms.switch-mode=1",
                                 "sbus.colour-map=5",
                                 "sbus.colour-map-switch-mode=1",
                                 "sbus.ffc=3",
                                 "sbus.isotherms=7",
                                 "sbus.isotherm-transparency=18",
                                 "sbus.isotherm-lower=8",
                                 "sbus.isotherm-middle=9",
                                 "sbus.isotherm-upper=10",
                                 "sbus.overlay=18",
                                 "sbus.trigger=1",
                                 "sbus.view-mode=4"};
        const QStringList after{"trigger.mode=1!", "trigger.frame-mode=0!", "liveview.overlay=0!"};
        const Model &blend = *models::ofOptionName("blend");
        const QStringList ofBlend{"sbus.zoom=18", "sbus.zoom-mode=0",
                                  "sbus.view-mode-switch-mode=1"};
        QCOMPARE(textOf(blend.gimbalPresets), before + ofBlend + after);
        QVERIFY(!blend.gimbalUnlocksSerialPort);
        const Model &zoom = *models::ofOptionName("blend-zoom");
        const QStringList ofZoom{"sbus.zoom=6", "sbus.zoom-mode=2"};
        QCOMPARE(textOf(zoom.gimbalPresets), before + ofZoom + after);
        QVERIFY(zoom.gimbalUnlocksSerialPort);
    }

    void sbusTriggerDeactivatesChannelsOfTheBlendOnly()
    {
        QCOMPARE(textOf(models::ofOptionName("blend")->sbusTriggerPresets),
                 QStringList({"sbus.overlay=18!", "sbus.zoom=18!"}));
        QCOMPARE(models::ofOptionName("blend-zoom")->sbusTriggerPresets.size(), 0);
    }

    void presetsNameChoicesThatExist()
    {
        for (const Model &model : models::all())
            for (const Span<Preset> &presets : {model.gimbalPresets, model.sbusTriggerPresets})
                for (const Preset &preset : presets) {
                    const QLatin1String name(preset.field);
                    const Field *field = layouts::blend.field(name);
                    field = field ? field : layouts::blendZoom.field(name);
                    QVERIFY2(field && field->vocabulary, preset.field);
                    QVERIFY2(field->vocabulary->positionOf(preset.stored) >= 0, preset.field);
                }
    }

    void groupsOfTheForm()
    {
        const QStringList common{"comboBoxPort", "btConnectDisconnect",
                                 "gb_pheriphery_externalshutter"};
        QCOMPARE(textOf(models::ofOptionName("blend")->formGroups),
                 common + QStringList({"label_sbus_Overlay", "cbSbusOverlay",
                                       "gbSonyFCBCameraAdjustements", "gbSonyFCBFocus",
                                       "label_sbuschannel_viewmode_switcthmode",
                                       "cbSbusViewModeSwitchMode"}));
        QCOMPARE(textOf(models::ofOptionName("blend-zoom")->formGroups),
                 common + QStringList({"gbTamronFocus", "gbTamronVibrationCompensation",
                                       "gbTamronZoom", "gb_videoMode", "gb_hdmivideoMode",
                                       "gb_compressionQuality_slider", "gbImageOutput",
                                       "gbSyncMode", "gbSbusConnectionOptions", "gbTestModes",
                                       "cbSbusZoom", "cbSbusZoomMode", "label_sbuschannel_zoom",
                                       "label_sbuschannel_zoommode", "gb_vlc_ae"}));
    }

    void groupsAreOnTheForms()
    {
        const QSet<QString> window = widgetNames("app/MainWindow.ui");
        const QSet<QString> factory = widgetNames("factory/FactorySettings.ui");
        for (const Model &model : models::all()) {
            for (const char *group : model.formGroups)
                QVERIFY2(window.contains(group), group);
            for (const char *group : model.factoryGroups)
                QVERIFY2(factory.contains(group), group);
        }
        QCOMPARE(models::ofOptionName("blend")->factoryGroups.size(), 2);
        QCOMPARE(models::ofOptionName("blend-zoom")->factoryGroups.size(), 3);
    }
};

QTEST_APPLESS_MAIN(TestModels)
#include "tst_models.moc"
