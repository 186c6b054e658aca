#pragma once

#include <QMetaEnum>

/// Key of a value of an enumeration registered with Q_ENUM; empty for a value without a key.
template <class Enum>
QString keyText(Enum value)
{
    return QString::fromLatin1(QMetaEnum::fromType<Enum>().valueToKey(value));
}
