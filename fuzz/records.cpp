// The judge of configuration records, without a window.
//
// Input: one byte with the kind of the record (bits 0 and 1), then the record.

#include "configurationrecords.h"
#include "judge.h"
#include "records/Layout.h"

#include <algorithm>
#include <memory>

namespace {

/// Valid, judged a second time from the bytes alone.
bool isValid(const QByteArray &bytes)
{
    for (const QByteArray &model : {records::blend(), records::blendZoom()}) {
        const QByteArray record = bytes.left(model.size());
        if (bytes.startsWith(model.left(configuration::headerSize)) &&
            record.size() == model.size() && records::sealed(record) == record)
            return true;
    }
    return false;
}

/// The verdict on bytes behind which nothing may be read.
Verdict judged(const QByteArray &bytes)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    const std::unique_ptr<uchar[]> alone(new uchar[size]);
    std::copy_n(bytes.constData(), size, alone.get());
    return judge(alone.get(), bytes.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, std::size_t size)
{
    Input input(bytes, size);
    QByteArray record = configuration::fromInput(input.number<quint8>() & 3, input);
    const Verdict verdict = judged(record);
    judge(verdict.isValid() == isValid(record), "valid records are taken, no others");

    const bool lacksLayout = verdict.defect == Defect::NoHeader ||
                             verdict.defect == Defect::UnknownDevice ||
                             verdict.defect == Defect::NotImplemented;
    judge(lacksLayout == !verdict.layout, "whatever names a supported model has its layout");
    if (verdict.layout && record.size() >= verdict.layout->size) {
        seal(*verdict.layout, record);
        judge(judged(record).isValid(), "a sealed record is valid");
    }
    return 0;
}
