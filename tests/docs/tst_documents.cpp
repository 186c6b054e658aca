#include "devices/KovoDevices.h"
#include "link/CRCService.h"
#include "link/FrameParser.h"
#include "support/referenceframes.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

/// What the documents claim, as far as it can be computed: bytes, links and pictures.
class tst_documents : public QObject
{
    Q_OBJECT

private slots:
    void framesInTheProtocolAreValid();
    void blockChecksumsInTheProtocolAreRight();
    void recordChecksumsInTheProtocolAreRight();
    void recordTablesHoldEveryByteOnce_data();
    void recordTablesHoldEveryByteOnce();
    void longestMessageIsAsTheProtocolSays();
    void partsBeforeADamagedOneAreLeftAsTheProtocolSays();
    void bodyWithoutEndIsAsLongAsTheProtocolSays();
    void codesOfTheProtocolAreHexadecimalWhereTheyAreBytes();
    void rangesInTheGuideAreThoseOfTheForm();
    void linksAndPicturesExist_data();
    void linksAndPicturesExist();
    void everyPictureIsUsed();

private:
    static QString text(const QString &name)
    {
        QFile file(QDir(DOCS_DIR).filePath(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    static QList<QRegularExpressionMatch> matches(const QString &pattern, const QString &in)
    {
        const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
        QList<QRegularExpressionMatch> found;
        for (auto it = expression.globalMatch(in); it.hasNext();)
            found << it.next();
        return found;
    }
    static QString section(const QString &heading)
    {
        return text("protocol.md").section("\n## " + heading + "\n", 1).section("\n## ", 0, 0);
    }
    /// The one number that the pattern captures in the protocol.
    static int number(const QString &pattern)
    {
        const auto found = matches(pattern, text("protocol.md").simplified());
        return found.count() == 1 ? found.first().captured(1).toInt() : -1;
    }
    /// Rows "| bytes | 0x... |" of the section with this heading.
    static QList<QPair<QByteArray, uint>> checksums(const QString &heading)
    {
        const QString section =
            text("protocol.md").section("## " + heading, 1).section("\n## ", 0, 0);
        QList<QPair<QByteArray, uint>> rows;
        for (const auto &row :
             matches(R"(^\| (none|[0-9A-F]{2}(?: [0-9A-F]{2})*) \| (0x[0-9A-F]+) \|)", section))
            rows << qMakePair(row.captured(1) == "none"
                                  ? QByteArray()
                                  : QByteArray::fromHex(row.captured(1).toLatin1()),
                              row.captured(2).toUInt(nullptr, 16));
        return rows;
    }
};

void tst_documents::framesInTheProtocolAreValid()
{
    const auto frames = matches("^    (4B 4F 56 4F( [0-9A-F]{2})+)$", text("protocol.md"));
    QVERIFY(frames.count() >= 8);
    for (const auto &match : frames) {
        const QByteArray frame = QByteArray::fromHex(match.captured(1).toLatin1());
        QVERIFY2(frame.size() >= 21 && (frame.size() - 21) % 4 == 0, qPrintable(match.captured(1)));
        // Everything between the magic and the CRC, enclosed anew, is the same frame.
        QCOMPARE(frame, reference::enclose(frame.mid(4, frame.size() - 9)));
        QCOMPARE(frame.mid(4, 4).toHex().toInt(nullptr, 16), frame.size() - 5);
    }
}

void tst_documents::blockChecksumsInTheProtocolAreRight()
{
    const auto rows = checksums("CRC-32 of a frame");
    QCOMPARE(rows.count(), 4);
    for (const auto &[bytes, crc] : rows)
        QCOMPARE(CRCService(bytes.constData(), uint(bytes.size()),
                            static_cast<CRCService::CRCServiceMode>(1))
                     .getCRC(),
                 crc);
}

void tst_documents::recordChecksumsInTheProtocolAreRight()
{
    KovoDevices devices(nullptr);
    auto rows = checksums("CRC-16 of a record");
    QCOMPARE(rows.count(), 2);
    const QString page = text("protocol.md");
    const auto header = matches("Header of a Blend: `([0-9A-F ]+)`", page);
    QCOMPARE(header.count(), 1);
    QByteArray record = QByteArray::fromHex(header.first().captured(1).toLatin1());
    QCOMPARE(record.size(), 12);
    record.append(193, '\0');
    const auto value = matches(R"(then 193 zero bytes \| (0x[0-9A-F]+))", page);
    const auto digits = matches(R"(ASCII 123456789 \| (0x[0-9A-F]+))", page);
    QCOMPARE(value.count() + digits.count(), 2);
    rows << qMakePair(record, value.first().captured(1).toUInt(nullptr, 16))
         << qMakePair(QByteArray("123456789"), digits.first().captured(1).toUInt(nullptr, 16));
    for (auto &[bytes, crc] : rows) {
        unsigned short computed = 0xFFFF;
        devices.calc_crc(reinterpret_cast<unsigned char *>(bytes.data()), bytes.size(), &computed);
        QCOMPARE(uint(computed), crc);
    }
}

void tst_documents::recordTablesHoldEveryByteOnce_data()
{
    QTest::addColumn<QString>("heading");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("size");
    QTest::newRow("Blend") << "Record of a Blend" << 0 << 207;
    QTest::newRow("Blend Zoom") << "Record of a Blend Zoom" << 42 << 223;
}

void tst_documents::recordTablesHoldEveryByteOnce()
{
    QFETCH(QString, heading);
    QFETCH(int, from);
    QFETCH(int, size);
    int next = from;
    const auto rows = matches(R"(^\| (\d[\d, to]*) \| (?:(\d+) bytes|(?:(\d+) x )?[ui](\d+)) \|)",
                              section(heading).section("\n### ", 0, 0));
    QVERIFY(rows.count() > 30);
    for (const auto &row : rows) {
        const QString offsets = row.captured(1);
        const int width = row.captured(2).isEmpty()
                              ? row.captured(4).toInt() / 8 * qMax(1, row.captured(3).toInt())
                              : row.captured(2).toInt();
        QStringList starts = offsets.split(", ");
        if (offsets.contains(" to ")) {
            starts.clear();
            for (int at = offsets.section(" to ", 0, 0).toInt();
                 at <= offsets.section(" to ", 1).toInt(); at += width)
                starts << QString::number(at);
        }
        for (const QString &start : qAsConst(starts)) {
            QVERIFY2(start.toInt() == next, qPrintable(row.captured(0)));
            next += width;
        }
    }
    QCOMPARE(next, size);
}

void tst_documents::longestMessageIsAsTheProtocolSays()
{
    const int payload = number("carries a payload of at most (\\d+)");
    const int message = number("its longest has (\\d+)");
    QCOMPARE(payload, 1008);
    for (const int size : {message, message + 4}) {
        FrameParser parser;
        int delivered = -1;
        for (int at = 0; at < size; at += payload) {
            const bool last = at + payload >= size;
            parser.feed(
                reference::frame(226, QByteArray(qMin(payload, size - at), 'x'), 1, last ? 1 : 2),
                [&](ComioInterfaceCommand_TypeDef, const QVector<uint8_t> &bytes) {
                    delivered = bytes.size();
                });
        }
        QCOMPARE(delivered, size == message ? message : -1);
    }
}

void tst_documents::partsBeforeADamagedOneAreLeftAsTheProtocolSays()
{
    const int harmless = number("with the code (\\d+), which means nothing");
    QCOMPARE(harmless, 203);
    FrameParser parser;
    QVector<QPair<uint, int>> messages;
    const auto feed = [&](const QByteArray &frame) {
        parser.feed(frame,
                    [&](ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &bytes) {
                        messages << qMakePair(uint(command), bytes.size());
                    });
    };
    const QByteArray first = reference::frame(202, "1234", 1, 2);
    const QByteArray second = reference::frame(202, "5678", 2, 2);
    QByteArray damaged = second;
    damaged[17] = 'x';
    for (const QByteArray &frame :
         {first, damaged, second, first, damaged, reference::frame(uint(harmless)), first, second})
        feed(frame);
    // The damaged part alone is missing; what was collected before goes with the harmless frame.
    QCOMPARE(messages,
             (QVector<QPair<uint, int>>{{1, 4}, {202, 8}, {1, 4}, {uint(harmless), 4}, {202, 8}}));
}

void tst_documents::bodyWithoutEndIsAsLongAsTheProtocolSays()
{
    const int said = number("as its body\\*\\*, some (\\d+) bytes");
    for (const int length : {0, 3}) {
        FrameParser parser;
        int heard = 0;
        const QByteArray frame = reference::frame(217);
        int swallowed = 0;
        const auto hear = [&](ComioInterfaceCommand_TypeDef, const QVector<uint8_t> &) { ++heard; };
        parser.feed(QByteArray("KOVO\0\0\0", 7) + char(length), hear);
        while (heard == 0 && swallowed < 2 * said) {
            parser.feed(frame, hear);
            swallowed += frame.size();
        }
        QVERIFY2(qAbs(swallowed - said) < 3 * frame.size(), qPrintable(QString::number(swallowed)));
    }
}

void tst_documents::codesOfTheProtocolAreHexadecimalWhereTheyAreBytes()
{
    // Numbers are decimal there unless they begin with 0x.
    const QString page = text("protocol.md");
    QVERIFY(page.contains("unless they\nbegin with 0x"));
    const auto zoom = matches(R"(^\| 117 \| [^|]+ \| 2 bytes: (\w+) )", page);
    QCOMPARE(zoom.count(), 1);
    QCOMPARE(zoom.first().captured(1).toInt(nullptr, 0), int('a'));
}

void tst_documents::rangesInTheGuideAreThoseOfTheForm()
{
    // Of each input its range, and of each label its input.
    QHash<QString, QPair<double, double>> ranges;
    QMultiHash<QString, QString> inputs;
    QFile form(FORM);
    QVERIFY(form.open(QIODevice::ReadOnly));
    QStringList open;
    QString property;
    QHash<QString, QHash<QString, QString>> properties;
    QXmlStreamReader xml(&form);
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::StartElement && xml.name() == "widget")
            open << xml.attributes().value("name").toString();
        else if (token == QXmlStreamReader::EndElement && xml.name() == "widget")
            open.removeLast();
        else if (token == QXmlStreamReader::StartElement && xml.name() == "property")
            property = xml.attributes().value("name").toString();
        else if (token == QXmlStreamReader::Characters && !xml.isWhitespace() && !open.isEmpty())
            properties[open.last()][property] = xml.text().toString();
    }
    const auto plain = [](QString label) {
        return label.remove('&').remove(QRegularExpression("[: ]*(\\(.*\\))?[: ]*$")).toLower();
    };
    for (auto it = properties.cbegin(); it != properties.cend(); ++it) {
        if (it->contains("buddy"))
            inputs.insert(plain(it->value("text")), it->value("buddy"));
        if (it->contains("minimum") && it->contains("maximum"))
            ranges[it.key()] = {it->value("minimum").toDouble(), it->value("maximum").toDouble()};
    }

    const QString tabs =
        text("guide.md").section("\n## The tabs, field by field\n", 1).section("\n## ", 0, 0);
    QStringList compared;
    for (const auto &row : matches(R"(^\| ([^|]+) \| (-?[\d.]+) to (-?[\d.]+)[^|]* \|)", tabs)) {
        const auto range = qMakePair(row.captured(2).toDouble(), row.captured(3).toDouble());
        const QStringList candidates = inputs.values(plain(row.captured(1)));
        if (candidates.isEmpty() || !ranges.contains(candidates.first()))
            continue;
        const bool found = std::any_of(candidates.begin(), candidates.end(),
                                       [&](const QString &name) { return ranges[name] == range; });
        QVERIFY2(found, qPrintable(row.captured(0)));
        compared << row.captured(1);
    }
    QVERIFY2(compared.count() >= 9, qPrintable(compared.join(", ")));
}

void tst_documents::linksAndPicturesExist_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("guide") << "guide.md";
    QTest::newRow("protocol") << "protocol.md";
}

void tst_documents::linksAndPicturesExist()
{
    QFETCH(QString, name);
    const QString page = text(name);
    QSet<QString> headings;
    for (const auto &heading : matches("^#+ (.*)$", page))
        headings << heading.captured(1)
                        .toLower()
                        .remove(QRegularExpression("[^a-z0-9 -]"))
                        .replace(' ', '-');
    const auto links = matches(R"(\]\(([^)]+)\))", page);
    QVERIFY(!links.isEmpty());
    for (const auto &link : links) {
        const QString target = link.captured(1);
        const bool exists = target.startsWith('#') ? headings.contains(target.mid(1))
                                                   : QFile::exists(QDir(DOCS_DIR).filePath(target));
        QVERIFY2(exists, qPrintable(target));
    }
}

void tst_documents::everyPictureIsUsed()
{
    const QString pages = text("guide.md") + text("protocol.md");
    for (const QString &picture : QDir(DOCS_DIR "/images").entryList(QDir::Files))
        QVERIFY2(pages.contains("images/" + picture), qPrintable(picture));
}

QTEST_GUILESS_MAIN(tst_documents)
#include "tst_documents.moc"
