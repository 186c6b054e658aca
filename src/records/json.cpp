#include "records/json.h"

#include "records/fieldvalue.h"
#include "records/text.h"
#include "records/vocabularies.h"

#include <QJsonArray>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace json {

static const QString rawKey = QStringLiteral("raw");

static bool isPlainBytes(const Field &field)
{
    return field.wire.isText || (!field.isEditable() && field.wire.count > 1);
}

static QJsonValue entryOf(const Field &field, const uchar *record, int entry)
{
    const qint64 raw = stored(field.wire, record, entry);
    if (!isExact(field, record, entry) || !field.isEditable())
        return QJsonObject{{rawKey, raw}};
    if (field.vocabulary)
        return QString::fromUtf8(field.vocabulary->at(field.vocabulary->positionOf(raw)).text);
    return field.codec.shown(raw);
}

QJsonValue valueOf(const Field &field, const uchar *record)
{
    if (field.wire.isText && text::isPlainText(field, record))
        return text::characters(field, record);
    if (isPlainBytes(field))
        return QJsonObject{{rawKey, text::hex(field, record)}};
    if (field.wire.count == 1)
        return entryOf(field, record, 0);
    QJsonArray entries;
    for (int entry = 0; entry < field.wire.count; ++entry)
        entries << entryOf(field, record, entry);
    const bool agree = std::all_of(entries.begin(), entries.end(), [&](const QJsonValue &entry) {
        return entry == entries.first();
    });
    return field.oneForAll && agree ? entries.first() : QJsonValue(entries);
}

static bool holdsConstant(const Field &field, const uchar *record)
{
    for (int entry = 0; entry < field.wire.count; ++entry)
        if (stored(field.wire, record, entry) != field.constant)
            return false;
    return true;
}

QJsonObject fieldsOf(const Layout &layout, const uchar *record)
{
    QJsonObject object;
    for (const Field &field : layout)
        if (field.isEditable() || !holdsConstant(field, record))
            object.insert(QString::fromLatin1(field.name), valueOf(field, record));
    return object;
}

static bool isWhole(double number)
{
    return std::abs(number) < 1e12 && std::floor(number) == number;
}

static bool fits(const Wire &wire, double number)
{
    return isWhole(number) && qint64(number) >= wire.minimum() && qint64(number) <= wire.maximum();
}

/// The number to store for one entry.
static QString encodeRaw(const Field &field, const QJsonValue &value, qint64 &number)
{
    if (!value.isDouble() || !fits(field.wire, value.toDouble()))
        return QStringLiteral("has a raw value that is no whole number of %1 to %2")
            .arg(field.wire.minimum())
            .arg(field.wire.maximum());
    number = qint64(value.toDouble());
    return {};
}

static QString encodeNumber(const Field &field, double shown, Values values, qint64 &number)
{
    if (field.vocabulary) {
        const bool known = isWhole(shown) && field.vocabulary->positionOf(qint64(shown)) >= 0;
        if (!known && (values == Values::Typed || !fits(field.wire, shown)))
            return QStringLiteral("is no choice");
        number = qint64(shown);
        return {};
    }
    if (values == Values::Typed || field.range.contains(shown)) {
        QString defect = text::numberDefect(field, shown);
        if (!defect.isEmpty())
            return defect;
        number = field.codec.stored(shown);
        return {};
    }
    // Beyond the range only what is shown for some stored number.
    if (!text::hasDecimalsOf(field, shown))
        return text::numberDefect(field, shown);
    number = field.codec.stored(shown);
    if (!fits(field.wire, double(number)) || field.codec.shown(number) != shown)
        return QStringLiteral("cannot be stored");
    return {};
}

/// Stores one entry given as number, text, on/off or raw value; all of them for `everyEntry`.
static QString setEntry(const Field &field, const QJsonValue &value, Values values, int entry,
                        bool everyEntry, uchar *record)
{
    qint64 number = 0;
    QString defect;
    const QJsonObject object = value.toObject();
    if (value.isObject() && object.size() == 1 && object.contains(rawKey)) {
        defect = values == Values::Typed ? QStringLiteral("cannot be given as a raw value")
                                         : encodeRaw(field, object.value(rawKey), number);
    } else if (!field.isEditable()) {
        const bool same = value.isDouble() && value.toDouble() == double(field.constant);
        defect = same ? QString() : QStringLiteral("cannot be set");
        number = field.constant;
    } else if (value.isDouble()) {
        defect = encodeNumber(field, value.toDouble(), values, number);
    } else if (value.isBool() && field.vocabulary == &vocabularies::offOn) {
        number = value.toBool() ? 1 : 0;
    } else if (value.isString() && (field.vocabulary || field.wire.count == 1)) {
        return text::set(field, value.toString(), record);
    } else {
        defect = QStringLiteral("is of a wrong kind");
    }
    if (!defect.isEmpty())
        return defect;
    for (int i = 0; i < field.wire.count; ++i)
        if (everyEntry || i == entry)
            putStored(field.wire, record, number, i);
    return {};
}

static QString setHex(const Field &field, const QString &digits, Values values, uchar *record)
{
    const QByteArray bytes = QByteArray::fromHex(digits.toLatin1());
    if (values == Values::Typed)
        return QStringLiteral("cannot be given as a raw value");
    if (bytes.size() != field.wire.size() || QString::fromLatin1(bytes.toHex()) != digits.toLower())
        return QStringLiteral("has a raw value that is not %1 hexadecimal bytes")
            .arg(field.wire.size());
    std::memcpy(record + field.wire.offset, bytes.constData(), std::size_t(bytes.size()));
    return {};
}

static QString setList(const Field &field, const QJsonArray &entries, Values values, uchar *record)
{
    if (entries.size() != field.wire.count)
        return QStringLiteral("has %1 entries instead of %2")
            .arg(entries.size())
            .arg(field.wire.count);
    QByteArray before(reinterpret_cast<const char *>(record + field.wire.offset),
                      field.wire.size());
    for (int entry = 0; entry < field.wire.count; ++entry) {
        QString defect = setEntry(field, entries.at(entry), values, entry, false, record);
        if (!defect.isEmpty()) {
            std::memcpy(record + field.wire.offset, before.constData(), std::size_t(before.size()));
            return defect;
        }
    }
    return {};
}

QString set(const Field &field, const QJsonValue &value, Values values, uchar *record)
{
    const QJsonObject object = value.toObject();
    if (object.size() == 1 && object.value(rawKey).isString())
        return setHex(field, object.value(rawKey).toString(), values, record);
    if (field.wire.isText) {
        if (!value.isString())
            return QStringLiteral("is no text");
        const QString typed = value.toString();
        QString defect = text::set(field, typed, record);
        if (defect.isEmpty() || values == Values::Typed || typed.size() > field.wire.size())
            return defect;
        QByteArray carried(field.wire.end(), '\0');
        auto *bytes = reinterpret_cast<uchar *>(carried.data());
        text::putCharacters(field, typed, bytes);
        if (!text::isPlainText(field, bytes) || text::characters(field, bytes) != typed)
            return defect;
        text::putCharacters(field, typed, record);
        return {};
    }
    if (value.isArray() && field.wire.count > 1)
        return setList(field, value.toArray(), values, record);
    if (field.wire.count > 1 && !field.oneForAll && field.isEditable())
        return QStringLiteral("is no list of %1 numbers").arg(field.wire.count);
    return setEntry(field, value, values, 0, true, record);
}

QStringList setFields(const Layout &layout, const QJsonObject &fields, Values values, uchar *record)
{
    QStringList defects;
    for (auto it = fields.begin(); it != fields.end(); ++it) {
        const Field *field = layout.field(it.key());
        const QString defect =
            field ? set(*field, it.value(), values, record) : QStringLiteral("is no field");
        if (!defect.isEmpty())
            defects << QStringLiteral("%1 %2").arg(it.key(), defect);
    }
    seal(layout, record);
    return defects;
}

QStringList missingSettings(const Layout &layout, const QJsonObject &fields)
{
    QStringList missing;
    for (const Field &field : layout)
        if (field.isEditable() && !fields.contains(QLatin1String(field.name)))
            missing << QString::fromLatin1(field.name);
    return missing;
}

QJsonObject describe(const Field &field)
{
    static constexpr const char *roles[] = {"setting", "write-only", "fixed", "free"};
    QJsonArray choices;
    if (field.vocabulary)
        for (const Choice &choice : *field.vocabulary)
            choices << QJsonObject{{QStringLiteral("stored"), choice.stored},
                                   {QStringLiteral("text"), QString::fromUtf8(choice.text)}};
    const bool hasRange = !field.vocabulary && !field.wire.isText;
    return {
        {QStringLiteral("name"), QString::fromLatin1(field.name)},
        {QStringLiteral("title"), QString::fromUtf8(field.title)},
        {QStringLiteral("unit"), QString::fromUtf8(field.unit)},
        {QStringLiteral("offset"), field.wire.offset},
        {QStringLiteral("size"), field.wire.size()},
        {QStringLiteral("count"), field.wire.count},
        {QStringLiteral("minimum"), hasRange ? field.range.minimum : QJsonValue()},
        {QStringLiteral("maximum"), hasRange ? field.range.maximum : QJsonValue()},
        {QStringLiteral("choices"), choices},
        {QStringLiteral("role"), QString::fromLatin1(roles[int(field.role)])},
    };
}

} // namespace json
