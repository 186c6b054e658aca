#include "records/text.h"

#include "records/fieldvalue.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace text {

static QString number(const Field &field, double shown)
{
    return QString::number(shown, 'f', field.codec.decimals);
}

static QString entryOf(const Field &field, const uchar *record, int entry)
{
    const qint64 raw = stored(field.wire, record, entry);
    QString shownText;
    if (!field.vocabulary)
        shownText = number(field, field.codec.shown(raw));
    else if (const int position = field.vocabulary->positionRead(raw); position >= 0)
        shownText = QString::fromUtf8(field.vocabulary->at(position).text);
    if (isExact(field, record, entry))
        return shownText;
    return QStringLiteral("%1 [%2]").arg(shownText).arg(raw).trimmed();
}

QString valueOf(const Field &field, const uchar *record)
{
    if (field.wire.isText)
        return isPlainText(field, record) ? characters(field, record) : hex(field, record);
    if (!field.isEditable() && field.wire.count > 1)
        return hex(field, record);
    QStringList entries;
    for (int entry = 0; entry < field.wire.count; ++entry)
        entries << entryOf(field, record, entry);
    if (field.oneForAll && entries.count(entries.constFirst()) == entries.size())
        return entries.constFirst();
    return entries.join(QStringLiteral(", "));
}

QString valueWithUnit(const Field &field, const uchar *record)
{
    return QStringLiteral("%1 %2")
        .arg(valueOf(field, record), QString::fromUtf8(field.unit))
        .trimmed();
}

static QString withoutUnit(const Field &field, const QString &value)
{
    const QString unit = QString::fromUtf8(field.unit);
    const QString trimmed = value.trimmed();
    return trimmed.endsWith(unit) ? trimmed.chopped(unit.size()).trimmed() : trimmed;
}

QString rangeOf(const Field &field)
{
    return QStringLiteral("%1 to %2 %3")
        .arg(number(field, field.range.minimum), number(field, field.range.maximum),
             QString::fromUtf8(field.unit))
        .trimmed();
}

bool hasDecimalsOf(const Field &field, double number)
{
    const double scale = std::pow(10, field.codec.decimals);
    return std::abs(number) < 1e12 && std::round(number * scale) / scale == number;
}

QString numberDefect(const Field &field, double number)
{
    if (!hasDecimalsOf(field, number))
        return field.codec.decimals == 0
                   ? QStringLiteral("is no whole number")
                   : QStringLiteral("has more than %1 decimals").arg(field.codec.decimals);
    if (!field.range.contains(number))
        return QStringLiteral("is not within %1").arg(rangeOf(field));
    return {};
}

static QString setChoice(const Field &field, const QString &value, uchar *record)
{
    int position = field.vocabulary->positionOf(value);
    if (position < 0) {
        bool isNumber = false;
        const qint64 number = withoutUnit(field, value).toLongLong(&isNumber);
        position = isNumber ? field.vocabulary->positionOf(number) : -1;
    }
    if (position < 0) {
        QStringList choices;
        for (const Choice &choice : *field.vocabulary)
            choices << QStringLiteral("\"%1\"").arg(QString::fromUtf8(choice.text));
        return QStringLiteral("is none of %1").arg(choices.join(QStringLiteral(", ")));
    }
    putStored(field.wire, record, field.vocabulary->at(position).stored);
    return {};
}

static QString parseNumber(const Field &field, const QString &value, double &parsed)
{
    static const QRegularExpression decimal(QStringLiteral("^[+-]?[0-9]+(\\.[0-9]+)?$"));
    const QString digits = withoutUnit(field, value);
    if (!decimal.match(digits).hasMatch())
        return QStringLiteral("is no number");
    parsed = digits.toDouble();
    return numberDefect(field, parsed);
}

static QString setNumbers(const Field &field, const QString &value, uchar *record)
{
    const QStringList entries = value.split(QLatin1Char(','));
    const int count = field.wire.count;
    if (entries.size() != count && !(field.oneForAll && entries.size() == 1))
        return count == 1
                   ? QStringLiteral("is no number")
                   : QStringLiteral("has %1 numbers instead of %2").arg(entries.size()).arg(count);
    std::vector<double> numbers;
    for (const QString &entry : entries) {
        double number = 0;
        QString defect = parseNumber(field, entry, number);
        if (!defect.isEmpty())
            return defect;
        numbers.push_back(number);
    }
    numbers.resize(std::size_t(count), numbers.front());
    for (int entry = 0; entry < count; ++entry)
        putStored(field.wire, record, field.codec.stored(numbers[std::size_t(entry)]), entry);
    return {};
}

static QString setCharacters(const Field &field, const QString &value, uchar *record)
{
    const bool plain = std::all_of(value.begin(), value.end(), [](QChar character) {
        return character.unicode() >= 0x20 && character.unicode() < 0x7F;
    });
    if (!plain)
        return QStringLiteral("has characters that are not ASCII");
    if (value.size() > field.range.maximum)
        return QStringLiteral("is longer than %1 characters").arg(field.range.maximum);
    putCharacters(field, value, record);
    return {};
}

QString set(const Field &field, const QString &value, uchar *record)
{
    if (!field.isEditable())
        return QStringLiteral("cannot be set");
    if (field.wire.isText)
        return setCharacters(field, value, record);
    return field.vocabulary ? setChoice(field, value, record) : setNumbers(field, value, record);
}

QString characters(const Field &field, const uchar *record)
{
    const auto *bytes = reinterpret_cast<const char *>(record + field.wire.offset);
    return QString::fromLatin1(bytes, int(qstrnlen(bytes, uint(field.wire.size()))));
}

void putCharacters(const Field &field, const QString &characters, uchar *record)
{
    const QByteArray bytes =
        characters.toLatin1().left(field.wire.size()).leftJustified(field.wire.size(), '\0');
    std::memcpy(record + field.wire.offset, bytes.constData(), std::size_t(bytes.size()));
}

bool isPlainText(const Field &field, const uchar *record)
{
    const uchar *begin = record + field.wire.offset;
    const uchar *end = begin + field.wire.size();
    const uchar *zero = std::find(begin, end, 0);
    return std::all_of(begin, zero, [](uchar byte) { return byte >= 0x20 && byte < 0x7F; }) &&
           std::all_of(zero, end, [](uchar byte) { return byte == 0; });
}

QString hex(const Field &field, const uchar *record)
{
    const auto *bytes = reinterpret_cast<const char *>(record + field.wire.offset);
    return QString::fromLatin1(QByteArray::fromRawData(bytes, field.wire.size()).toHex());
}

} // namespace text
