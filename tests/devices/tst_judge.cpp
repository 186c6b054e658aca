// The window's check of a record and the judge without a window agree on every record.

#include "devices/KovoDevices.h"
#include "support/captureddiagnostics.h"
#include "support/layouts.h"
#include "support/modal.h"

#include <QMessageBox>

class TestJudge : public QObject
{
    Q_OBJECT

    /// The defect that the prescribed lines and boxes of the window tell.
    static Defect defectTold(const QByteArray &record, bool boxExpected)
    {
        KovoDevices devices(nullptr);
        CapturedDiagnostics lines;
        QString box;
        bool valid = false;
        const auto check = [&] { valid = devices.isValidControlStruct(records::payload(record)); };
        if (boxExpected) {
            modal::Answer<QMessageBox> answer([&](QMessageBox *shown) {
                box = shown->text();
                shown->button(QMessageBox::Ok)->click();
            });
            check();
        } else {
            check();
        }
        const QString told = lines.err() + lines.out();
        if (valid)
            return told.isEmpty() ? Defect::None : Defect(-1);
        const std::pair<const char *, Defect> texts[] = {
            {"shorter than its header", Defect::NoHeader},
            {"Device is not known", Defect::UnknownDevice},
            {"Device not implemented", Defect::NotImplemented},
            {"too short, expected", Defect::TooShort},
            {"unknown data length", Defect::WrongLength},
            {"CRC not OK", Defect::WrongCrc},
        };
        for (const auto &[text, defect] : texts)
            if (told.contains(text))
                return defect;
        return box.contains("This software tool") ? Defect::Newer
               : box.contains("device firmware")  ? Defect::Older
                                                  : Defect(-1);
    }

private slots:
    void agreesWithTheWindow()
    {
        QRandomGenerator random(42);
        QVector<int> seen(int(Defect::WrongCrc) + 1, 0);
        for (int round = 0; round < 3000; ++round) {
            QByteArray record =
                randomRecord(round % 2 ? layouts::blend : layouts::blendZoom, random);
            switch (random.bounded(6)) {
            case 0:
                records::put<quint32>(record, 0,
                                      random.bounded(2) ? records::key20 : random.generate());
                break;
            case 1:
                records::put<quint32>(record, 4, random.generate());
                break;
            case 2:
                if (random.bounded(20) == 0) // boxes take their time
                    records::put<quint32>(record, 8, 20150000 + random.bounded(100000));
                break;
            case 3:
                record[random.bounded(12, record.size())] = char(random.generate());
                break;
            default:
                break;
            }
            if (random.bounded(4) == 0)
                record.resize(random.bounded(260));
            const Defect defect = judge(record).defect;
            const bool box = defect == Defect::Older || defect == Defect::Newer;
            QCOMPARE(int(defectTold(record, box)), int(defect));
            ++seen[int(defect)];
        }
        for (const int times : qAsConst(seen))
            QVERIFY(times > 0);
    }
};

QTEST_MAIN(TestJudge)
#include "tst_judge.moc"
