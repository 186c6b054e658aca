#include "simulator/Faults.h"

#include <QStringList>

namespace {

struct Probability
{
    const char *kind;
    double Faults::*value;
    const char *usual;
};
constexpr Probability probabilities[] = {
    {"drop", &Faults::drop, "0.01"},          {"flip", &Faults::flip, "0.01"},
    {"garbage", &Faults::garbage, "0.2"},     {"truncate", &Faults::truncate, "0.1"},
    {"duplicate", &Faults::duplicate, "0.1"},
};

struct Number
{
    const char *kind;
    const char *unit;
    int Faults::*value;
    int lowest;
    int highest;
    const char *usual;
};
constexpr Number numbers[] = {
    {"delay", "MS", &Faults::delay, 0, 60000, "200"},
    {"split", "N", &Faults::split, 1, 1000, "3"},
    {"dribble", "MS", &Faults::dribble, 1, 1000, "1"},
    {"hangup", "N", &Faults::hangup, 1, 1000000000, "20"},
    {"storm", "BYTES_PER_S", &Faults::storm, 1, 100000000, "10000"},
};

struct Commands
{
    const char *kind;
    QVector<quint32> Faults::*codes;
};
constexpr Commands commandLists[] = {
    {"reject", &Faults::reject},
    {"silent", &Faults::silent},
};

QString wrongValue(const QString &text, const QString &expected)
{
    return QStringLiteral("Fault '%1': the value has to be %2.").arg(text, expected);
}

} // namespace

QString addFault(const QString &text, Faults &faults)
{
    const QString kind = text.section(':', 0, 0);
    const bool hasValue = text.contains(':');
    const QString value = text.section(':', 1);
    bool ok = false;

    for (const Probability &row : probabilities) {
        if (kind != QLatin1String(row.kind))
            continue;
        const double number = (hasValue ? value : QString::fromLatin1(row.usual)).toDouble(&ok);
        if (!ok || !(number >= 0 && number <= 1))
            return wrongValue(text, QStringLiteral("a probability from 0 to 1"));
        faults.*row.value = number;
        return {};
    }
    for (const Number &row : numbers) {
        if (kind != QLatin1String(row.kind))
            continue;
        const int number = (hasValue ? value : QString::fromLatin1(row.usual)).toInt(&ok);
        if (!ok || number < row.lowest || number > row.highest)
            return wrongValue(
                text, QStringLiteral("a number from %1 to %2").arg(row.lowest).arg(row.highest));
        faults.*row.value = number;
        return {};
    }
    for (const Commands &row : commandLists) {
        if (kind != QLatin1String(row.kind))
            continue;
        const quint32 code = value.toUInt(&ok, 0);
        if (!ok)
            return wrongValue(text, QStringLiteral("a command code"));
        (faults.*row.codes).append(code);
        return {};
    }
    return QStringLiteral("Unknown fault '%1': choose from %2.").arg(kind, faultKinds());
}

QString faultKinds()
{
    QStringList kinds;
    for (const Probability &row : probabilities)
        kinds << QStringLiteral("%1[:P]").arg(row.kind);
    for (const Number &row : numbers)
        kinds << QStringLiteral("%1[:%2]").arg(row.kind, row.unit);
    for (const Commands &row : commandLists)
        kinds << QStringLiteral("%1:CODE").arg(row.kind);
    return kinds.join(QStringLiteral(", "));
}
