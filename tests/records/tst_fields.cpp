// The field tables against what the records' description and the form say of each field.

#include "records/blendFields.h"
#include "records/blendZoomFields.h"
#include "records/factoryFields.h"
#include "records/fieldvalue.h"
#include "records/text.h"
#include "support/configurationfields.h"
#include "support/layouts.h"

#include <QFile>
#include <QHash>
#include <QSet>
#include <QXmlStreamReader>

namespace {

/// What the form's description tells of a widget.
struct Widget
{
    QStringList items;
    QHash<QString, QString> properties;
};

/// The widgets of the main window by object name, without those that the program itself fills.
QHash<QString, Widget> widgetsOfTheForm()
{
    QFile file(QStringLiteral(SOURCE_DIR "/app/MainWindow.ui"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read the form");
    QHash<QString, Widget> widgets;
    QStringList path; // names of the widgets around
    QStringList classes;
    QString property;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
        const QString tag = xml.name().toString();
        if (xml.isStartElement() && tag == "widget") {
            path << xml.attributes().value("name").toString();
            classes << xml.attributes().value("class").toString();
        } else if (xml.isEndElement() && tag == "widget") {
            path.removeLast();
            classes.removeLast();
        } else if (xml.isStartElement() && tag == "property") {
            property = xml.attributes().value("name").toString();
        } else if (xml.isStartElement() && !path.isEmpty() &&
                   (tag == "string" || tag == "number" || tag == "double")) {
            const QString value = xml.readElementText();
            Widget &widget = widgets[path.constLast()];
            if (property == "text" && classes.constLast() == "QComboBox")
                widget.items << value;
            widget.properties.insert(property, value);
        }
    }
    return widgets;
}

/// Lists that the program fills with keys of its enumerations, by widget.
QStringList keysOf(const QString &widget)
{
    if (widget == "cbHDMIVideoMode")
        return {"MODE_1080P_30HZ", "MODE_1080P_60HZ"};
    if (widget == "cb_vlc_ae_mode")
        return {"VISCA_AEMODE_FULL_AUTO", "VISCA_AEMODE_SHUTTER_PRIORITY"};
    if (widget == "cb_vlc_ae_shutterspeed")
        return {"SPEED_10000_HZ", "SPEED_6000_HZ", "SPEED_4000_HZ", "SPEED_3000_HZ",
                "SPEED_2000_HZ",  "SPEED_1500_HZ", "SPEED_1000_HZ", "SPEED_725_HZ",
                "SPEED_500_HZ",   "SPEED_350_HZ",  "SPEED_250_HZ",  "SPEED_180_HZ",
                "SPEED_120_HZ",   "SPEED_100_HZ",  "SPEED_90_HZ",   "SPEED_60_HZ",
                "SPEED_30_HZ",    "SPEED_15_HZ",   "SPEED_8_HZ",    "SPEED_4_HZ",
                "SPEED_2_HZ",     "SPEED_1_HZ"};
    return {};
}

int offsetOf(const configurationfields::Field &field, const Layout &layout)
{
    return &layout == &layouts::blend ? field.blendOffset : field.zoomOffset;
}

/// The oracle's fields of one record.
std::vector<configurationfields::Field> oracleOf(const Layout &layout)
{
    std::vector<configurationfields::Field> fields;
    auto all = configurationfields::all();
    for (const auto &extension : configurationfields::extensions(&layout == &layouts::blendZoom))
        all.push_back(extension);
    for (const auto &field : all)
        if (offsetOf(field, layout) >= 0)
            fields.push_back(field);
    return fields;
}

/// The boxes of the trigger levels fill tables and stand in no list of the oracle.
const QHash<int, const char *> levelBoxes(const Layout &layout)
{
    if (&layout == &layouts::blend)
        return {{113, "sBTriggerLow"}, {153, "sBTriggerHigh"}};
    return {{129, "sBTriggerLow"}, {169, "sBTriggerHigh"}};
}

} // namespace

class TestFields : public QObject
{
    Q_OBJECT

private slots:
    void everyByteBelongsToOneField_data() { everyLayout(); }
    void everyByteBelongsToOneField()
    {
        QFETCH(const Layout *, layout);
        QVector<int> owners(layout->size, 0);
        for (const Field &field : *layout)
            for (int i = 0; i < field.wire.width * field.wire.count; ++i)
                ++owners[field.wire.offset + i];
        const bool configuration = layout->key != 0;
        const int body = configuration ? 12 : 0;
        const int crc = layout->size - (configuration ? 2 : 0);
        for (int offset = 0; offset < layout->size; ++offset)
            QVERIFY2(owners[offset] == (offset >= body && offset < crc ? 1 : 0),
                     qPrintable(QString::number(offset)));
    }

    void layoutsHaveTheSizesOfTheirRecords()
    {
        QCOMPARE(layouts::blend.size, 207);
        QCOMPARE(layouts::blend.dataLength(), 193U);
        QCOMPARE(layouts::blend.crcOffset(), 205);
        QCOMPARE(layouts::blendZoom.size, 223);
        QCOMPARE(layouts::blendZoom.dataLength(), 209U);
        QCOMPARE(layouts::blendZoom.crcOffset(), 221);
        QCOMPARE(layouts::blendFactory.size, 32);
        QCOMPARE(layouts::blendZoomFactory.size, 416);
    }

    void namesAreUniqueAndFindTheirFields_data() { everyLayout(); }
    void namesAreUniqueAndFindTheirFields()
    {
        QFETCH(const Layout *, layout);
        QSet<QString> names;
        for (const Field &field : *layout) {
            const QString name = QString::fromLatin1(field.name);
            QVERIFY2(!names.contains(name), field.name);
            names << name;
            QCOMPARE(layout->field(name), &field);
            QCOMPARE(layout->fieldAt(field.wire.offset), &field);
            QVERIFY(qstrlen(field.title) > 0);
        }
        QVERIFY(layout->field(QStringLiteral("no.such-field")) == nullptr);
        QVERIFY(layout->field(QString()) == nullptr);
        QVERIFY(layout->fieldAt(layout->size) == nullptr);
    }

    void sharedFieldsHaveOneNameInBothConfigurations()
    {
        for (const auto &oracle : configurationfields::all()) {
            if (oracle.blendOffset < 0 || oracle.zoomOffset < 0)
                continue;
            const Field *blend = layouts::blend.fieldAt(oracle.blendOffset);
            const Field *zoom = layouts::blendZoom.fieldAt(oracle.zoomOffset);
            QVERIFY2(blend && zoom, oracle.widget);
            QCOMPARE(blend->name, zoom->name);
            QCOMPARE(blend->title, zoom->title);
            QCOMPARE(blend->vocabulary, zoom->vocabulary);
        }
    }

    void membersFindTheirFieldsAtCompileTime()
    {
        const Field &delay = FIELD_OF(thermalCommPacket_Blend_Zoom_R13_TypeDef, ffc_delay);
        QCOMPARE(delay.wire.offset, 80);
        QCOMPARE(&delay, layouts::blendZoom.field(QStringLiteral("ffc.delay")));
        QCOMPARE(FIELD_OF(thermalCommPacket_Blend_R8_TypeDef, sbus.trigger).wire.offset, 110);
    }

    /// Exactly the fields that the form shows can be set, and they know what the form shows.
    void settingsAreThoseOfTheForm_data() { everyConfigurationLayout(); }
    void settingsAreThoseOfTheForm()
    {
        QFETCH(const Layout *, layout);
        QSet<int> expected;
        for (const auto &oracle : oracleOf(*layout)) {
            const int offset = offsetOf(oracle, *layout);
            expected << offset;
            const Field *field = layout->fieldAt(offset);
            QVERIFY2(field != nullptr, oracle.widget);
            const bool shown = layout == &layouts::blend ? oracle.shownByBlend : oracle.shownByZoom;
            QVERIFY2(field->role == (shown ? Role::Setting : Role::WriteOnly), oracle.widget);
            QVERIFY2(field->wire.size() == oracle.samples.front().bytes.size(), oracle.widget);
        }
        const QHash<int, const char *> levels = levelBoxes(*layout);
        for (auto it = levels.begin(); it != levels.end(); ++it) {
            expected << it.key();
            QCOMPARE(layout->fieldAt(it.key())->wire.count, 20);
            QVERIFY(layout->fieldAt(it.key())->role == Role::Setting);
        }
        QSet<int> settings;
        for (const Field &field : *layout)
            if (field.isEditable())
                settings << field.wire.offset;
        QCOMPARE(settings, expected);
    }

    void rangesUnitsAndChoicesAreThoseOfTheForm_data() { everyConfigurationLayout(); }
    void rangesUnitsAndChoicesAreThoseOfTheForm()
    {
        QFETCH(const Layout *, layout);
        const QHash<QString, Widget> widgets = widgetsOfTheForm();
        QHash<int, const char *> widgetAt = levelBoxes(*layout);
        for (const auto &oracle : oracleOf(*layout))
            widgetAt.insert(offsetOf(oracle, *layout), oracle.widget);
        int lists = 0;
        int boxes = 0;
        for (auto it = widgetAt.cbegin(); it != widgetAt.cend(); ++it) {
            const QString name = QString::fromLatin1(it.value());
            const Widget widget = widgets.value(name);
            const Field &field = *layout->fieldAt(it.key());
            QStringList items = keysOf(name);
            if (items.isEmpty())
                items = widget.items;
            if (!items.isEmpty()) {
                ++lists;
                QStringList choices;
                for (const Choice &choice : *field.vocabulary)
                    choices << QString::fromUtf8(choice.text);
                QCOMPARE(choices, items);
            }
            if (widget.properties.contains("maximum")) {
                ++boxes;
                QCOMPARE(field.range.minimum, widget.properties.value("minimum").toDouble());
                QCOMPARE(field.range.maximum, widget.properties.value("maximum").toDouble());
                QCOMPARE(QString::number(field.codec.decimals),
                         widget.properties.value("decimals", "0"));
                if (widget.properties.contains("suffix"))
                    QCOMPARE(QString::fromUtf8(field.unit), widget.properties.value("suffix"));
            }
        }
        QCOMPARE(lists, layout == &layouts::blend ? 28 : 37);
        QCOMPARE(boxes, layout == &layouts::blend ? 13 : 14);
    }

    void extensionPortsOfferTheModesOfTheirModel()
    {
        const auto modes = [](const Layout &layout, int offset) {
            QStringList texts;
            for (const Choice &choice : *layout.fieldAt(offset)->vocabulary)
                texts << QStringLiteral("%1 %2").arg(choice.stored).arg(choice.text);
            return texts.join(", ");
        };
        QCOMPARE(modes(layouts::blend, 82),
                 QStringLiteral("0 EXP_MODE_NONE, 5 EXP0_MODE_EXTERNAL_SHUTTER"));
        QCOMPARE(modes(layouts::blend, 83),
                 QStringLiteral("0 EXP_MODE_NONE, 6 EXP1_MODE_EXTERNAL_SHUTTER"));
        QCOMPARE(modes(layouts::blendZoom, 97),
                 QStringLiteral("0 EXP_MODE_NONE, 1 EXP0_MODE_FFC, 4 EXP0_MODE_IMAGE_SYNC, "
                                "9 EXP0_MODE_COMIO, 7 EXP0_MODE_VISCA, "
                                "5 EXP0_MODE_EXTERNAL_SHUTTER"));
        QCOMPARE(modes(layouts::blendZoom, 98),
                 QStringLiteral("0 EXP_MODE_NONE, 2 EXP1_MODE_EXTERNAL_SYNC_INPUT, "
                                "10 EXP1_MODE_COMIO, 8 EXP1_MODE_VISCA, "
                                "6 EXP1_MODE_EXTERNAL_SHUTTER"));
    }

    /// Bytes and what the form makes of them, as the oracle tells.
    void bytesMeanWhatTheFormShows_data() { everyConfigurationLayout(); }
    void bytesMeanWhatTheFormShows()
    {
        using namespace configurationfields;
        QFETCH(const Layout *, layout);
        for (const configurationfields::Field &oracle : oracleOf(*layout)) {
            const ::Field &field = *layout->fieldAt(offsetOf(oracle, *layout));
            for (const Sample &sample : oracle.samples) {
                QByteArray record(layout->size, '\0');
                record.replace(field.wire.offset, sample.bytes.size(), sample.bytes);
                const QByteArray what = QByteArray(oracle.widget) + ' ' + sample.bytes.toHex();
                if (sample.use != Write && field.vocabulary) {
                    const QString position = QString::number(::position(field, bytesOf(record)));
                    const QString known = sample.use == Kept || sample.value == "-1"
                                              ? QStringLiteral("-1")
                                              : sample.value;
                    QVERIFY2(position == known, what);
                } else if (sample.use != Write) {
                    double number = shown(field, bytesOf(record));
                    if (QByteArray(oracle.widget) != "leFrameSkip") // a form's box has a range
                        number = qBound(field.range.minimum, number, field.range.maximum);
                    QVERIFY2(number == sample.value.toDouble(), what);
                }
                if (sample.use == Read || sample.use == Kept || sample.value == "-1" ||
                    sample.value.isEmpty())
                    continue;
                record.fill('\x55');
                if (field.vocabulary)
                    putStored(field.wire, bytesOf(record),
                              field.vocabulary->at(sample.value.toInt()).stored);
                else if (text::numberDefect(field, sample.value.toDouble()).isEmpty())
                    putShown(field, bytesOf(record), sample.value.toDouble());
                else
                    continue;
                if (QByteArray(oracle.widget) == "leFrameSkip" && sample.use == Write)
                    continue; // what is no number, the form stores as 0
                QCOMPARE(record.mid(field.wire.offset, field.wire.size()).toHex(),
                         sample.bytes.toHex());
                record.replace(field.wire.offset, field.wire.size(),
                               QByteArray(field.wire.size(), '\x55'));
                QCOMPARE(record, QByteArray(layout->size, '\x55'));
            }
        }
    }

    void fixedAndFreeBytesOfTheBlend()
    {
        QByteArray expected = records::blend();
        records::put<quint16>(expected, 58, 1600);
        records::put<quint16>(expected, 60, 1200);
        QCOMPARE(blank(layouts::blend), records::sealed(expected));
        QCOMPARE(rolesOf(layouts::blend, Role::Fixed), QStringLiteral("43 45+12 58+2 60+2 66 81"));
        QCOMPARE(rolesOf(layouts::blend, Role::Free), QStringLiteral("73 84+8 193+12"));
    }

    void fixedAndFreeBytesOfTheBlendZoom()
    {
        QByteArray expected = records::blendZoom();
        expected.replace(61, 1, "\x08");
        expected.replace(64, 5, "\x11\x01\x03\x03\x07");
        expected.replace(73, 3, QByteArray("\x00\x80\x80", 3));
        expected.replace(99, 8, QByteArray("\x00\xC2\x01\x00\x08\x00\x01\x00", 8)); // 115200
        expected.replace(209, 4, QByteArray("\xB8\x0B\x00\x00", 4));                // 3000
        QCOMPARE(blank(layouts::blendZoom), records::sealed(expected));
        QCOMPARE(rolesOf(layouts::blendZoom, Role::Fixed),
                 QStringLiteral("45 47+12 61 64 65 66 67 68 73+2 75 85 94 99+4 103 104 105 106 "
                                "209+4 213"));
        QCOMPARE(rolesOf(layouts::blendZoom, Role::Free), QStringLiteral("214+6"));
    }

    void blankFactoryRecordsTellTheirVersionOnly()
    {
        QCOMPARE(blank(layouts::blendFactory), QByteArray(32, '\0'));
        QCOMPARE(blank(layouts::blendZoomFactory),
                 QByteArray("\x98\xC8\x33\x01") + QByteArray(412, '\0'));
    }

    void factoryFieldsLieWhereTheRecordsHaveThem()
    {
        const auto offsetOf = [](const Layout &layout, const char *name) {
            const Field *field = layout.field(QLatin1String(name));
            return field ? field->wire.offset : -1;
        };
        QCOMPARE(offsetOf(layouts::blendFactory, "serial-number"), 0);
        QCOMPARE(offsetOf(layouts::blendFactory, "ardview.horizontal"), 12);
        QCOMPARE(offsetOf(layouts::blendFactory, "ardview.vertical"), 16);
        QCOMPARE(offsetOf(layouts::blendFactory, "liveview.horizontal"), 20);
        QCOMPARE(offsetOf(layouts::blendFactory, "liveview.vertical"), 24);
        QCOMPARE(offsetOf(layouts::blendFactory, "ardview.scale"), 28);
        QCOMPARE(offsetOf(layouts::blendZoomFactory, "serial-number"), 4);
        for (int zoom = 1; zoom <= 10; ++zoom) {
            const auto named = [&](const char *table) {
                return QByteArray(table) + ".zoom" + QByteArray::number(zoom);
            };
            QCOMPARE(offsetOf(layouts::blendZoomFactory, named("ardview")), 16 + 12 * (zoom - 1));
            QCOMPARE(offsetOf(layouts::blendZoomFactory, named("hdmi")), 136 + 14 * (zoom - 1));
            QCOMPARE(offsetOf(layouts::blendZoomFactory, named("analog")), 276 + 14 * (zoom - 1));
        }
    }

    void liveViewAdjustmentsAreStoredWithTheirOffsets()
    {
        QByteArray record(32, '\0');
        putShown(FIELD_OF(FactorySettings_QXBlend_TypeDef, liveview_horizontal), bytesOf(record),
                 5);
        putShown(FIELD_OF(FactorySettings_QXBlend_TypeDef, liveview_vertical), bytesOf(record), 0);
        QCOMPARE(record.mid(20, 8).toHex(), QByteArray("2d0000000c000000"));
        QCOMPARE(
            shown(FIELD_OF(FactorySettings_QXBlend_TypeDef, liveview_horizontal), bytesOf(record)),
            5.0);
    }

    /// A choice whose text is a number stores that number: it does not matter how it is given.
    void numbersAsTextsAreTheNumbersStored_data() { everyLayout(); }
    void numbersAsTextsAreTheNumbersStored()
    {
        QFETCH(const Layout *, layout);
        for (const Field &field : *layout) {
            if (!field.vocabulary)
                continue;
            QSet<qint64> numbers;
            QSet<QString> texts;
            for (const Choice &choice : *field.vocabulary) {
                bool isNumber = false;
                const qint64 number = QByteArray(choice.text).toLongLong(&isNumber);
                QVERIFY2(!isNumber || number == choice.stored, field.name);
                QVERIFY(choice.stored >= field.wire.minimum() &&
                        choice.stored <= field.wire.maximum());
                numbers << choice.stored;
                texts << QString::fromUtf8(choice.text);
            }
            QCOMPARE(numbers.size(), field.vocabulary->size());
            QCOMPARE(texts.size(), field.vocabulary->size());
        }
    }

    void endsOfEveryRangeFitTheRecord_data() { everyLayout(); }
    void endsOfEveryRangeFitTheRecord()
    {
        QFETCH(const Layout *, layout);
        for (const Field &field : *layout) {
            if (field.vocabulary || field.wire.isText)
                continue;
            for (const double end : {field.range.minimum, field.range.maximum}) {
                QByteArray record(layout->size, '\x55');
                putShown(field, bytesOf(record), end);
                QVERIFY2(shown(field, bytesOf(record)) == end, field.name);
                QVERIFY2(isExact(field, bytesOf(record)), field.name);
            }
        }
    }

    void oneNumberFillsATriggerTable()
    {
        const Field &low = FIELD_OF(thermalCommPacket_Blend_R8_TypeDef, thresholds.low);
        QByteArray record(207, '\0');
        putShown(low, bytesOf(record), 688);
        QCOMPARE(record.mid(113, 40), QByteArray("\xB0\x02", 2).repeated(20));
        QCOMPARE(record.left(113), QByteArray(113, '\0'));
        QCOMPARE(record.mid(153), QByteArray(54, '\0'));
    }

private:
    /// Offsets of the fields of a role, with their sizes where they have several bytes.
    static QString rolesOf(const Layout &layout, Role role)
    {
        QStringList places;
        for (const Field &field : layout)
            if (field.role == role)
                places << QString::number(field.wire.offset) +
                              (field.wire.size() > 1 ? '+' + QString::number(field.wire.size())
                                                     : QString());
        return places.join(' ');
    }
};

QTEST_APPLESS_MAIN(TestFields)
#include "tst_fields.moc"
