#include "app/recordDefect.h"

#include "records/Layout.h"

#include <QCoreApplication>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(recordDefect)
};

} // namespace

QString recordDefect(const QVector<unsigned char> &record)
{
    const Verdict verdict = judge(record.constData(), record.size());
    switch (verdict.defect) {
    case Defect::None:
        break;
    case Defect::NoHeader:
        return record.isEmpty() ? Text::tr("empty")
                                : Text::tr("too short: %1 bytes").arg(verdict.found);
    case Defect::UnknownDevice:
        return Text::tr("of no known camera");
    case Defect::NotImplemented:
        return Text::tr("of a Quorvix 2.0, whose settings this tool does not know");
    case Defect::Older:
        return Text::tr("of version %1, older than this tool reads").arg(verdict.found);
    case Defect::Newer:
        return Text::tr("of version %1, newer than this tool knows").arg(verdict.found);
    case Defect::TooShort:
        return Text::tr("too short: %1 bytes instead of %2")
            .arg(verdict.found)
            .arg(verdict.layout->size);
    case Defect::WrongLength:
        return Text::tr("wrong data length: %1").arg(verdict.found);
    case Defect::WrongCrc:
        return Text::tr("wrong checksum");
    }
    return {};
}
