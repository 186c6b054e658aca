#include "devices/KovoDevices.h"
#include "link/CRCService.h"
#include "support/referenceframes.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

/// What the documents claim, as far as it can be computed: bytes, links and pictures.
class tst_documents : public QObject
{
    Q_OBJECT

private slots:
    void framesInTheProtocolAreValid();
    void blockChecksumsInTheProtocolAreRight();
    void recordChecksumsInTheProtocolAreRight();
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
