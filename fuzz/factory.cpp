// Factory records and the arithmetic of the overlay: a record of any content comes back from the
// form as far as the form can show it, and any number in a cell can be computed with.
//
// Input: one byte with the device (modulo 4), whether the payload is filled up to the size of a
// record (bit 2), whether modal windows are answered with Ok (bit 3) and whether the rest of the
// input are not a payload but 32-bit numbers for the cells of the HDMI table (bit 4).

#include "factory/overlay.h"
#include "factorydialog.h"
#include "support/wire.h"

namespace {

constexpr KovoDeviceCRCKey_TypeDef devices[] = {KovoDevice_QXBlendZoom, KovoDevice_QXBlend,
                                                KovoDevice_QX20, KovoDevice_QXBlendZoom};
constexpr int zoomRecordSize = 416;
constexpr int blendRecordSize = 32;
constexpr int zoomSerialOffset = 4;
constexpr int zoomTablesOffset = 16;

FactoryDialog &factory()
{
    static auto *factory = new FactoryDialog;
    return *factory;
}

void judgeZoomRecord(const QByteArray &payload, bool ok, const QByteArray &before)
{
    const QByteArray after = factory().recordOfForm();
    judgeEqual(
        shownSerialNumber(payload.mid(zoomSerialOffset, 12), before.mid(zoomSerialOffset, 12))
            .toHex(),
        after.mid(zoomSerialOffset, 12).toHex(), "the form's serial number is");
    const QByteArray &tables = ok ? payload : before;
    judgeEqual(tables.mid(zoomTablesOffset, zoomRecordSize - zoomTablesOffset).toHex(),
               after.mid(zoomTablesOffset).toHex(), "the form's tables are");
    judgeEqual(wire::littleEndian<quint32>(20170904).toHex(), after.left(4).toHex(),
               "the form's version is");
}

/// The record that the form of a Blend sends.
QByteArray sentBlendRecord()
{
    factory().sent.clear();
    factory().dialog.on_pbSetFactorySettings_clicked();
    judge(factory().sent.size() == 1, "a write is one frame");
    QByteArray stream = factory().sent.first();
    const auto message = wire::take(stream);
    judge(message && message->command == 110 && message->payload.size() == blendRecordSize,
          "a write carries a Blend record");
    return message->payload;
}

void judgeBlendRecord(const QByteArray &payload, const QByteArray &before)
{
    struct Field
    {
        int wireOffset; ///< added to the form's number on the wire
        int minimum;
        int maximum;
    };
    const Field fields[] = {{0, -99, 99}, {0, -99, 99}, {40, 0, 99}, {12, 0, 99}, {0, 1, 999}};

    QByteArray expected = shownSerialNumber(payload.left(12), before.left(12));
    for (const Field &field : fields) {
        const int at = expected.size();
        const auto number = qFromLittleEndian<qint32>(payload.constData() + at);
        const auto shown =
            std::clamp<qint64>(qint64(number) - field.wireOffset, field.minimum, field.maximum);
        expected += number == -1
                        ? before.mid(at, 4)
                        : wire::littleEndian(static_cast<qint32>(shown + field.wireOffset));
    }
    judgeEqual(expected.toHex(), sentBlendRecord().toHex(), "the form makes");
}

void parse(const QByteArray &payload, KovoDeviceCRCKey_TypeDef device, bool ok)
{
    const bool zoom = device == KovoDevice_QXBlendZoom;
    const bool blend = device == KovoDevice_QXBlend;
    const QByteArray zoomBefore = factory().recordOfForm();
    const QByteArray blendBefore = blend ? sentBlendRecord() : QByteArray();
    factory().sent.clear();

    const bool taken =
        factory().dialog.parseFactorySettings(QVector<uint8_t>(payload.begin(), payload.end()));
    judge(factory().sent.isEmpty(), "showing a record sends nothing");
    judge(taken == ((zoom && payload.size() >= zoomRecordSize) ||
                    (blend && payload.size() >= blendRecordSize)),
          "records that are long enough are taken, no others");
    if (taken && zoom)
        judgeZoomRecord(payload, ok, zoomBefore);
    else if (taken)
        judgeBlendRecord(payload, blendBefore);
    else
        judgeEqual(zoomBefore.toHex(), factory().recordOfForm().toHex(), "the form makes");
}

/// Texts of the cells, one line a row.
QByteArray cells(const char *name)
{
    const auto *table = factory().get<QTableWidget>(name);
    QByteArray texts;
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 0; column < table->columnCount(); ++column)
            texts += table->item(row, column)->text().toUtf8() + ' ';
        texts += '\n';
    }
    return texts;
}

void setHdmiCells(Input &input)
{
    auto *table = factory().get<QTableWidget>("tw_QXBZ_hdmi");
    for (int column = 0; column < table->columnCount() && !input.atEnd(); ++column)
        for (int row = 0; row < table->rowCount(); ++row)
            table->item(row, column)->setText(QString::number(input.number<qint32>()));
}

void deriveTables()
{
    const QByteArray hdmi = cells("tw_QXBZ_hdmi");
    QByteArray analog = cells("tw_QXBZ_analog");
    factory().dialog.on_btnCalcADFromHDMI_clicked();
    judgeEqual(analog, cells("tw_QXBZ_analog"), "after deriving the Ardview table the analog is");
    const QByteArray ardview = cells("tw_QXBZ_ardview");

    factory().dialog.on_btnCalcAVFromHDMI_clicked();
    judgeEqual(ardview, cells("tw_QXBZ_ardview"), "after deriving the analog table the Ardview is");
    analog = cells("tw_QXBZ_analog");

    factory().dialog.on_btnCalcADFromHDMI_clicked();
    factory().dialog.on_btnCalcAVFromHDMI_clicked();
    judgeEqual(ardview, cells("tw_QXBZ_ardview"), "derived again the Ardview table is");
    judgeEqual(analog, cells("tw_QXBZ_analog"), "derived again the analog table is");
    judgeEqual(hdmi, cells("tw_QXBZ_hdmi"), "after the derivations the HDMI table is");
}

void computePlacements(Input &input)
{
    const auto number = [&] { return input.number<qint32>(); };
    const overlay::ScaleChange change{number() & 0x7FFFFFFF, number(), number(), number(),
                                      number()};
    overlay::hdmiShares(change);
    overlay::analogShares(change);
    overlay::placementFromOptics({number(), number(), number(), number(), number()});
    overlay::parallax({number(), number() / 1000.0, number() / 1000.0, number() / 1000.0});
    overlay::fieldOfView({number() / 1000.0, number() / 1000.0, number() / 1000.0});
    overlay::centredA(number(), number());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, std::size_t size)
{
    Desktop &desktop = Desktop::instance();
    Input input(bytes, size);
    const auto mode = input.number<quint8>();
    const KovoDeviceCRCKey_TypeDef device = devices[mode & 3];
    const bool filled = mode & 4;
    const bool ok = mode & 8;
    desktop.answer(ok);
    factory().devices.setDevice(device);

    if (mode & 16) {
        Input numbers = input;
        setHdmiCells(input);
        computePlacements(numbers);
    } else {
        QByteArray payload = input.rest();
        const int whole = device == KovoDevice_QXBlend ? blendRecordSize : zoomRecordSize;
        if (filled && payload.size() < whole)
            payload = payload.leftJustified(whole, '\0');
        parse(payload, device, ok);
    }
    deriveTables();
    Desktop::settle();
    return 0;
}
