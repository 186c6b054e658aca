#include "simulator/defects.h"

/// Also of a record that this model does not have, whose layout is null.
static QString sizeDefect(const Layout *layout, int size)
{
    if (!layout)
        return QStringLiteral("this model has no records");
    const int padded = (layout->size + 3) / 4 * 4;
    if (size >= layout->size && size <= padded)
        return {};
    return QStringLiteral("%1 bytes instead of %2").arg(size).arg(layout->size);
}

QString configurationDefect(const Model &model, const QByteArray &record)
{
    QString wrongSize = sizeDefect(model.configuration, record.size());
    if (!wrongSize.isEmpty())
        return wrongSize;

    const Verdict verdict = judge(record);
    if (verdict.layout != model.configuration)
        return QStringLiteral("wrong device key 0x%1")
            .arg(verdict.layout ? verdict.layout->key : verdict.found, 8, 16, QChar('0'));
    switch (verdict.defect) {
    case Defect::WrongLength:
        return QStringLiteral("wrong data length %1").arg(verdict.found);
    case Defect::Older:
    case Defect::Newer:
        return QStringLiteral("wrong version %1").arg(verdict.found);
    case Defect::WrongCrc:
        return QStringLiteral("wrong CRC-16");
    default:
        return {};
    }
}

QString factoryDefect(const Model &model, const QByteArray &record)
{
    return sizeDefect(model.factory, record.size());
}
