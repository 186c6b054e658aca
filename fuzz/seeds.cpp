// Writes the seed corpora of the fuzz targets into the folder named on the command line, always the
// same. What the bytes before the content mean stands at the head of each target.

#include "support/records.h"
#include "support/referenceframes.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <limits>

namespace {

struct Seed
{
    QByteArray name;
    QByteArray bytes;
};
using Seeds = QVector<Seed>;

QByteArray byte(int value)
{
    return QByteArray(1, static_cast<char>(value));
}

template <class T>
QByteArray little(T value)
{
    QByteArray bytes(sizeof value, '\0');
    qToLittleEndian<T>(value, bytes.data());
    return bytes;
}

/// Bytes that count up from `first`.
QByteArray ramp(int size, int first = 0)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(first + i);
    return bytes;
}

QByteArray withCuts(const QByteArray &cuts, const QByteArray &steps)
{
    return byte(cuts.size()) + cuts + steps;
}

QByteArray longWithCuts(const QByteArray &cuts, const QByteArray &steps)
{
    return byte(cuts.size() | 7 << 5) + cuts + steps;
}

QByteArray asItIs(const QByteArray &bytes)
{
    return byte(0) + byte(bytes.size()) + bytes;
}

/// A frame of `content`, filled up to `size` bytes; `kind` 1 whole, 2 to be damaged by what
/// follows.
QByteArray frameStep(quint16 command, const QByteArray &content = {}, quint16 size = 0,
                     int part = 1, int count = 1, int kind = 1)
{
    return byte(kind) + little(command) + byte(part) + byte(count) + byte(content.size()) +
           content + little(size);
}

QByteArray damagedStep(quint16 command, quint16 at, int bit)
{
    return frameStep(command, ramp(8), 0, 1, 1, 2) + little(at) + byte(bit);
}

QByteArray repeat(int times)
{
    return byte(4) + byte(times);
}

QByteArray filler(char value, quint16 size)
{
    return byte(5) + byte(value) + little(size);
}

Seeds frames()
{
    const QByteArray configuration = frameStep(202, ramp(223));
    return {
        {"empty", {}},
        {"request", withCuts(byte(1), frameStep(102))},
        {"reply", withCuts(byte(0) + byte(200) + byte(7), configuration)},
        {"raw-frame", withCuts(byte(3), asItIs(reference::frame(202, ramp(32))))},
        {"repeated-magic", withCuts({}, asItIs("KKOVO" + reference::frame(216, ramp(8)).mid(4)))},
        {"two-parts", withCuts(byte(5), frameStep(202, ramp(100), 100, 1, 2) +
                                            frameStep(202, ramp(123), 123, 2, 2))},
        {"damaged", withCuts(byte(16), damagedStep(202, 18, 3) + frameStep(216, ramp(20)))},
        {"damaged-amid-parts",
         withCuts(byte(9), frameStep(202, ramp(12), 12, 1, 2) + damagedStep(202, 30, 0) +
                               frameStep(202, ramp(12), 12, 2, 2))},
        {"short-regions", withCuts(byte(2), byte(3) + byte(4) + ramp(4) + byte(3) + byte(8) +
                                                ramp(8) + byte(3) + byte(0))},
        {"longest-frame", withCuts(byte(255), frameStep(202, ramp(16), 1008))},
        {"length-1024", withCuts(byte(1), byte(6) + QByteArray("\0\0\4\0", 4) + frameStep(102))},
        {"length-1025", withCuts(byte(1), byte(6) + QByteArray("\0\0\4\1", 4) + frameStep(102))},
        {"length-odd", withCuts(byte(1), byte(6) + QByteArray("\0\0\0\x15", 4) + filler('a', 40) +
                                             frameStep(102))},
        {"truncated", withCuts(byte(11), configuration + byte(7) + little<quint16>(77) +
                                             configuration + configuration)},
        {"storm", longWithCuts(byte(64) + byte(1) + byte(190), configuration + repeat(40))},
        {"reassembly-limit", longWithCuts(byte(250), frameStep(202, ramp(8), 1008, 1, 2) +
                                                         repeat(102) + frameStep(102))},
        {"buffer-limit", longWithCuts(byte(255) + byte(100),
                                      byte(6) + QByteArray(4, '\0') + filler('K', 65535) +
                                          filler('O', 65535) + filler('V', 65535) +
                                          filler('O', 65535) + filler('!', 100) + frameStep(102))},
    };
}

/// A record whose every byte between header and CRC is made from `number`.
QByteArray filled(QByteArray record, int number, int step = 0)
{
    for (int i = 12; i < record.size() - 2; ++i)
        record[i] = static_cast<char>(number + step * i);
    return record;
}

QByteArray bodyOf(const QByteArray &record)
{
    return record.mid(12, record.size() - 14);
}

QByteArray withVersion(QByteArray record, quint32 version)
{
    records::put<quint32>(record, 8, version);
    return record.chopped(2);
}

/// Records with the kind that rebuilds them: 0 as they are, 1 and 2 bodies, 3 with their header.
struct Record
{
    const char *name;
    int kind;
    QByteArray bytes;
};

QVector<Record> configurations()
{
    const QByteArray blend = records::blend();
    const QByteArray zoom = records::blendZoom();
    QByteArray wrongLength = zoom;
    records::put<quint32>(wrongLength, 4, 208);
    return {
        {"blend", 0, records::sealed(filled(blend, 1))},
        {"zoom", 0, records::sealed(filled(zoom, 1))},
        {"zoom-padded", 0, records::sealed(zoom) + '\0'},
        {"zoom-short", 0, records::sealed(zoom).chopped(1)},
        {"zoom-unsealed", 0, filled(zoom, 2)},
        {"header-only", 0, blend.left(12)},
        {"blend-zeros", 1, bodyOf(blend)},
        {"blend-ones", 1, bodyOf(filled(blend, 0xFF))},
        {"blend-ramp", 1, bodyOf(filled(blend, 0, 1))},
        {"zoom-zeros", 2, bodyOf(zoom)},
        {"zoom-ones", 2, bodyOf(filled(zoom, 0xFF))},
        {"zoom-ramp", 2, bodyOf(filled(zoom, 7, 3))},
        {"zoom-older", 3, withVersion(zoom, 20190804)},
        {"zoom-newer", 3, withVersion(zoom, 20190806)},
        {"zoom-length", 3, wrongLength.chopped(2)},
    };
}

QByteArray factoryRecord(const QByteArray &serial, const QByteArray &tables)
{
    return little<quint32>(20170904) + serial.leftJustified(12, '\0') +
           tables.leftJustified(400, '\0', true);
}

QByteArray blendFactoryRecord(std::initializer_list<qint32> numbers)
{
    QByteArray record = QByteArray("1700999").leftJustified(12, '\0');
    for (const qint32 number : numbers)
        record += little(number);
    return record;
}

QByteArray numbers(std::initializer_list<qint32> column, int times)
{
    QByteArray bytes;
    for (const qint32 number : column)
        bytes += little(number);
    return bytes.repeated(times);
}

Seeds factory()
{
    constexpr qint32 low = std::numeric_limits<qint32>::min();
    constexpr qint32 high = std::numeric_limits<qint32>::max();
    return {
        {"zoom", byte(8) + factoryRecord("1700999", ramp(400))},
        {"zoom-cancelled", byte(0) + factoryRecord("1234567", ramp(400, 9))},
        {"zoom-erased", byte(8) + QByteArray(416, '\xFF')},
        {"zoom-short", byte(8) + factoryRecord("1700999", {}).chopped(1)},
        {"blend", byte(1) + blendFactoryRecord({-20, 20, 45, 17, 480})},
        {"blend-erased", byte(1) + QByteArray(32, '\xFF')},
        {"blend-extremes", byte(1) + blendFactoryRecord({low, high, low, low, high})},
        {"blend-short", byte(1) + blendFactoryRecord({1, 2, 3, 4})},
        {"other-device", byte(2) + QByteArray(32, '\1')},
        {"cells-typical", byte(16) + numbers({483, 188, 945, 756, 378, 0, 0}, 5) +
                              numbers({30, 0, 1832, 1079, 733, 2, 42}, 5)},
        {"cells-low", byte(16) + numbers({low}, 70)},
        {"cells-high", byte(16) + numbers({high}, 70)},
        {"cells-scale", byte(16) + numbers({low, high, low, high, 0, 1, low}, 2) +
                            numbers({0, 0, low, high, 1, 0, 0}, 4) +
                            numbers({high, high, high, low, -1, high, low}, 4)},
    };
}

Seeds files()
{
    Seeds seeds = {
        {"factory", byte(1 | 2 | 16) + byte(0) + factoryRecord("1700999", ramp(400))},
        {"factory-long", byte(1 | 2 | 16) + byte(9) + factoryRecord("", ramp(400))},
        {"factory-path", byte(1 | 2) + byte(0) + factoryRecord("../x", {})},
        {"factory-short", byte(1 | 2) + byte(0) + QByteArray(415, '1')},
        {"factory-blend", byte(2) + byte(0) + factoryRecord("1700999", {})},
        {"factory-missing", byte(1 | 2 | 32) + byte(0)},
        {"factory-folder", byte(1 | 2 | 32) + byte(1)},
        {"factory-endless", byte(1 | 2 | 32) + byte(3)},
        {"configuration-folder", byte(1 | 32) + byte(1)},
        {"configuration-missing", byte(32) + byte(0)},
        {"configuration-endless", byte(32) + byte(3)},
        {"configuration-long", byte(1 | 2 << 2) + byte(255) + bodyOf(records::blendZoom())},
    };
    for (const Record &record : configurations())
        seeds.append({record.name, byte(1 | record.kind << 2) + byte(0) + record.bytes});
    return seeds;
}

// Steps of a session, as session.cpp reads them. `flags`: 8 answers with Ok, 16 waits for the next.

QByteArray sized(const QByteArray &bytes)
{
    return byte(bytes.size()) + bytes;
}

QByteArray messageStep(int code, int length, int flags = 8, int damage = 0, int parts = 0)
{
    return byte(flags) + little<quint16>(static_cast<quint16>(code)) + byte(parts) +
           little<quint16>(static_cast<quint16>(length)) + sized(ramp(7, code)) +
           little<quint16>(static_cast<quint16>(damage));
}

QByteArray recordStep(int kind, const QByteArray &content, int flags = 8)
{
    return byte(1 | flags) + byte(kind) + sized(content);
}

QByteArray identityStep(int model, const QByteArray &serial, int flags = 8)
{
    return byte(2 | flags) + byte(model) + sized(serial);
}

QByteArray actStep(int widget, qint32 value, int flags = 8)
{
    return byte(4 | flags) + little<quint16>(static_cast<quint16>(widget)) + little(value);
}

QByteArray typeStep(int widget, const QByteArray &text)
{
    return byte(5 | 8) + little<quint16>(static_cast<quint16>(widget)) + byte(widget) + sized(text);
}

QByteArray pressStep(int widget, int key)
{
    return byte(6 | 8) + little<quint16>(static_cast<quint16>(widget)) + byte(key);
}

QByteArray commandStep(int what, const QByteArray &content = {}, int flags = 8)
{
    return byte(7 | flags) + byte(what) + content;
}

/// A step for each number of a range, in sessions of `size` steps.
template <class Step>
void addSessions(Seeds &seeds, const QByteArray &name, int from, int to, int size, Step step)
{
    for (int first = from; first < to; first += size) {
        QByteArray steps = byte(first / size & 1);
        for (int number = first; number < qMin(first + size, to); ++number)
            steps += step(number);
        seeds.append({name + '-' + QByteArray::number(first), steps});
    }
}

Seeds session()
{
    constexpr int widgets = 512; // some more than there are
    constexpr int steps = 96;
    enum Command { Action, Connect, PullOut, File };
    const QByteArray known = identityStep(0, "1700999") + recordStep(1, ramp(193));
    Seeds seeds = {
        {"identified", byte(3) + known + identityStep(1, "1700999") + recordStep(2, ramp(209)) +
                           identityStep(2, "1") + identityStep(4, "") + identityStep(8, "")},
        {"refused-at-once", byte(0) + messageStep(316, 0, 24).repeated(40) + messageStep(0, 4)},
        {"refused-and-closed", byte(1) + messageStep(316, 0, 16).repeated(5) + recordStep(0, "no") +
                                   messageStep(316, 0) + commandStep(Connect)},
        {"damaged", byte(1) + messageStep(202, 224, 24, 9) + messageStep(223, 32, 24, 300) +
                        messageStep(226, 90, 8, 33) + messageStep(223, 32)},
        {"in-parts", byte(0) + messageStep(226, 1008, 8, 0, 0x21).repeated(90) +
                         messageStep(226, 4, 8, 0, 0x22)},
        {"cut-frames", byte(0) + byte(3) + sized("KOVO\0\0\4\0cut") + byte(3) +
                           sized(QByteArray("KOVO\0\0\0\3", 8)) + messageStep(0, 0)},
        {"pulled-out", byte(1) + known + commandStep(PullOut) + commandStep(Connect) +
                           messageStep(316, 0, 24) + commandStep(PullOut) + known},
        {"factory", byte(1) + recordStep(2 << 2 | 1, "1") + identityStep(0, "2") +
                        recordStep(2 << 2, "3") + recordStep(2 << 2 | 1, "4", 0)},
    };
    QByteArray files = byte(0);
    for (const int model : {0, 1, 2}) {
        files += identityStep(model, "1700999") + commandStep(File | 1 << 4, ramp(193));
        for (int action = 0; action < 6; ++action)
            files += commandStep(Action | action << 2);
        files += commandStep(File | 4) + commandStep(Action) + commandStep(Action | 1 << 2);
    }
    seeds.append({"files", files});
    addSessions(seeds, "codes", 0, 400, steps, [](int code) {
        return messageStep(code, code * 37 % 1009, code % 3 == 0 ? 24 : code % 3 == 1 ? 8 : 0);
    });
    addSessions(seeds, "acts", 0, widgets, steps, [](int i) { return actStep(i, i * 77); });
    addSessions(seeds, "extremes", 0, widgets, steps, [](int i) {
        return actStep(i, i & 1 ? std::numeric_limits<qint32>::max()
                                : std::numeric_limits<qint32>::min());
    });
    addSessions(seeds, "texts", 0, widgets, steps, [](int i) {
        return typeStep(i, i & 1 ? QByteArray("-9999999999") : QByteArray("0.29\n\xE9"));
    });
    addSessions(seeds, "keys", 0, widgets, steps, [](int i) { return pressStep(i, i & 0x8F); });
    return seeds;
}

bool write(const QDir &root, const char *target, const Seeds &seeds)
{
    const QString folder = root.filePath(QString::fromLatin1(target));
    for (const Seed &seed : seeds) {
        QFile file(QDir(folder).filePath(QString::fromLatin1(seed.name)));
        if (!QDir().mkpath(folder) || !file.open(QIODevice::WriteOnly) ||
            file.write(seed.bytes) != seed.bytes.size())
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "Usage: fuzz_seeds FOLDER\n");
        return 2;
    }
    const QDir root(QDir(QFile::decodeName(argv[1])).absolutePath());
    Seeds configuration;
    for (const Record &record : configurations())
        configuration.append({record.name, byte(record.kind | 4 | 8) + record.bytes});
    const bool written = write(root, "frames", frames()) && write(root, "records", configuration) &&
                         write(root, "configuration", configuration) &&
                         write(root, "factory", factory()) && write(root, "files", files()) &&
                         write(root, "session", session());
    return written ? 0 : 1;
}
