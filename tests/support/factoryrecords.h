#pragma once

#include <QByteArray>
#include <QVector>

/// Bytes of a Blend record from its serial number and five numbers.
inline QByteArray blendRecord(const QByteArray &serial, const QVector<int> &numbers)
{
    QByteArray bytes = serial.leftJustified(12, '\0');
    for (const int value : numbers)
        for (int shift = 0; shift < 32; shift += 8)
            bytes += char(unsigned(value) >> shift & 0xFF);
    return bytes;
}

/// Bytes of a Blend Zoom record, built without the record type.
inline QByteArray zoomRecord(QByteArray serial, const QVector<int> &ardview,
                             const QVector<int> &hdmi, const QVector<int> &analog)
{
    QByteArray bytes = QByteArray::fromHex("98c83301");
    bytes += serial.leftJustified(12, '\0');
    for (const int value : ardview)
        for (int shift = 0; shift < 32; shift += 8)
            bytes += char(unsigned(value) >> shift & 0xFF);
    for (const QVector<int> *table : {&hdmi, &analog})
        for (const int value : *table)
            for (int shift = 0; shift < 16; shift += 8)
                bytes += char(unsigned(value) >> shift & 0xFF);
    return bytes;
}

/// The tables of a fresh form, zoom position by zoom position.
inline QVector<int> initialArdview()
{
    return {23, -20, 620, 5, -1, 350, 0, 0, 230, 0, 0, 180, 0, 0, 140,
            0,  0,   130, 0, 0,  120, 0, 0, 110, 0, 0, 100, 0, 0, 100};
}
inline QVector<int> initialHdmi()
{
    return {483, 188, 945,  756,  378,  0,   0,   30, 0, 1832, 1079, 733,  2,   42,
            0,   0,   1919, 1079, 1100, 104, 106, 0,  0, 1919, 1079, 1450, 158, 146,
            0,   0,   1919, 1079, 1840, 195, 166, 0,  0, 1919, 1079, 2250, 220, 180,
            0,   0,   1919, 1079, 2550, 231, 188, 0,  0, 1919, 1079, 2900, 243, 195,
            0,   0,   1919, 1079, 3300, 254, 201, 0,  0, 1919, 1079, 3700, 262, 205};
}
inline QVector<int> initialAnalog()
{
    return {21, 50, 471, 378, 189,  0,   0,   21, 50, 798, 599, 366,  40,  46,
            21, 50, 798, 599, 550,  134, 116, 21, 50, 798, 599, 725,  178, 150,
            21, 50, 798, 599, 920,  208, 178, 21, 50, 798, 599, 1125, 229, 187,
            21, 50, 798, 599, 1275, 239, 195, 21, 50, 798, 599, 1450, 249, 203,
            21, 50, 798, 599, 1650, 258, 209, 21, 50, 798, 599, 1850, 264, 214};
}
