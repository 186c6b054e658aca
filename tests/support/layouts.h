#pragma once

#include "records/layouts.h"
#include "support/records.h"

#include <QRandomGenerator>
#include <QTest>

// Rows for tests that hold for every layout, and records to test them with.

Q_DECLARE_METATYPE(const Layout *)

inline void everyConfigurationLayout()
{
    QTest::addColumn<const Layout *>("layout");
    QTest::newRow("Blend") << &layouts::blend;
    QTest::newRow("Blend Zoom") << &layouts::blendZoom;
}

inline void everyLayout()
{
    everyConfigurationLayout();
    QTest::newRow("Blend factory") << &layouts::blendFactory;
    QTest::newRow("Blend Zoom factory") << &layouts::blendZoomFactory;
}

inline uchar *bytesOf(QByteArray &record)
{
    return reinterpret_cast<uchar *>(record.data());
}

inline const uchar *bytesOf(const QByteArray &record)
{
    return reinterpret_cast<const uchar *>(record.constData());
}

/// A record whose header and CRC are right and whose other bytes are anything.
inline QByteArray randomRecord(const Layout &layout, QRandomGenerator &random)
{
    QByteArray record(layout.size, '\0');
    for (char &byte : record)
        byte = static_cast<char>(random.generate());
    if (&layout != &layouts::blend && &layout != &layouts::blendZoom)
        return record;
    record.replace(0, 12,
                   (&layout == &layouts::blend ? records::blend() : records::blendZoom()).left(12));
    return records::sealed(record);
}
