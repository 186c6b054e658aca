// The calibration of a camera from end to end: the tool, the simulated camera with its stored
// record, and the files between them, operated as production does.

#include "support/captureddiagnostics.h"
#include "support/factoryrecords.h"
#include "support/files.h"
#include "support/modal.h"
#include "support/records.h"
#include "support/secondoverlay.h"
#include "support/simulatorprocess.h"
#include "support/windowundertest.h"

#include <QDir>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {

const QString stored = QStringLiteral("<<< Device replied with COMIO_CMD_SET_SERIAL_REPLY_OK\n");

/// The numbers of a record from `offset` on, zoom position by zoom position.
template <class T>
QVector<int> numbers(const QByteArray &record, int offset, int count)
{
    QVector<int> values;
    for (int i = 0; i < count; ++i)
        values << records::get<T>(record, offset + i * int(sizeof(T)));
    return values;
}

QVector<int> hdmiOf(const QByteArray &record)
{
    return numbers<qint16>(record, 136, 70);
}

QVector<int> analogOf(const QByteArray &record)
{
    return numbers<qint16>(record, 276, 70);
}

QVector<int> ardviewOf(const QByteArray &record)
{
    return numbers<qint32>(record, 16, 30);
}

/// Numbers of a table, zoom position by zoom position.
QVector<int> shown(const QTableWidget *table)
{
    QVector<int> values;
    for (int column = 0; column < table->columnCount(); ++column)
        for (int row = 0; row < table->rowCount(); ++row)
            values << table->item(row, column)->text().toInt();
    return values;
}

/// What both buttons derive from an HDMI table.
struct Derived
{
    explicit Derived(const QVector<int> &hdmi)
    {
        for (int at = 0; at < hdmi.size(); at += 7) {
            const overlay::Displacement column = {hdmi[at],     hdmi[at + 1], hdmi[at + 2],
                                                  hdmi[at + 3], hdmi[at + 4], hdmi[at + 5],
                                                  hdmi[at + 6]};
            const overlay::Ardview viewer = second::ardview(column);
            ardview << viewer.xShift << viewer.yShift << viewer.scale;
            const overlay::Displacement video = second::analog(column);
            analog << video.a << video.b << video.c << video.d << video.e << video.f << video.g;
        }
    }

    QVector<int> ardview;
    QVector<int> analog;
};

} // namespace

/// The tool with its factory buttons, and a camera of `model` that keeps its records in files.
class FactorySession
{
public:
    explicit FactorySession(const QString &model) : m_model(model)
    {
        tool.window.showFactoryButtons();
        tool.window.show();
    }

    bool connectAndRead()
    {
        return camera.start({"--model", m_model, "--state", m_directory.path()}) &&
               tool.connectTo(camera.path()) && QTest::qWaitFor([this] { return !tool.busy(); });
    }

    /// The factory record as the camera keeps it.
    QByteArray record() const
    {
        return files::contentOf(file(QStringLiteral("%1-factory.bin").arg(m_model)));
    }
    QString file(const QString &name) const { return m_directory.filePath(name); }

    /// How many requests of this command code the camera has logged.
    int requests(int code)
    {
        return camera.log()
            .filter(QRegularExpression(QStringLiteral("^<- .*\\(%1\\)").arg(code)))
            .size();
    }

    void click(const char *name) { tool.get<QPushButton>(name)->click(); }
    /// Clicks a button whose record comes from the camera, and takes the record over.
    bool readBy(const char *button)
    {
        modal::Answer<QMessageBox> question([](QMessageBox *box) {
            QCOMPARE(box->windowTitle(), QStringLiteral("Read Settings?"));
            box->button(QMessageBox::Ok)->click();
        });
        click(button);
        return QTest::qWaitFor([&] { return question.given(); });
    }

    QTableWidget *table(const char *name) { return tool.get<QTableWidget>(name); }
    QSpinBox *box(const char *name) { return tool.get<QSpinBox>(name); }
    QLineEdit *serialNumber() { return tool.get<QLineEdit>("leSerialNumber"); }

    bool shows(const QByteArray &record)
    {
        return shown(table("tw_QXBZ_hdmi")) == hdmiOf(record) &&
               shown(table("tw_QXBZ_analog")) == analogOf(record) &&
               shown(table("tw_QXBZ_ardview")) == ardviewOf(record) &&
               serialNumber()->text().toLatin1().leftJustified(12, '\0') == record.mid(4, 12);
    }

    /// Changes the serial number and every number of the tables.
    void spoil()
    {
        serialNumber()->setText(QStringLiteral("spoilt"));
        for (const char *name : {"tw_QXBZ_hdmi", "tw_QXBZ_analog", "tw_QXBZ_ardview"})
            for (int row = 0; row < table(name)->rowCount(); ++row)
                for (int column = 0; column < table(name)->columnCount(); ++column)
                    table(name)->item(row, column)->setText(QStringLiteral("-9"));
    }

    /// Types a number into a cell.
    void type(QTableWidget *table, int row, int column, const QString &number)
    {
        table->editItem(table->item(row, column));
        auto *editor = table->viewport()->findChild<QSpinBox *>();
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, number);
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(table->item(row, column)->text(), number);
    }

    CapturedDiagnostics lines;
    SimulatorProcess camera;
    WindowUnderTest tool;

private:
    QString m_model;
    QTemporaryDir m_directory;
};

class TestFactorySession : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { modal::useQtDialogs(); }

    void zoomIsReadCalibratedStoredAndReadBack()
    {
        FactorySession s(QStringLiteral("blend-zoom"));
        QVERIFY(s.connectAndRead());
        const QByteArray before = s.record();
        QCOMPARE(before.size(), 416);
        QVERIFY(!s.shows(before)); // a fresh form is another unit's
        QVERIFY(s.readBy("pbFactorySettings"));
        QTRY_VERIFY(s.shows(before));

        s.type(s.table("tw_QXBZ_hdmi"), 0, 1, QStringLiteral("35"));
        QVector<int> hdmi = hdmiOf(before);
        QVERIFY(hdmi[7] != 35);
        hdmi[7] = 35; // A of zoom position 2
        s.click("btnCalcADFromHDMI");
        s.click("btnCalcAVFromHDMI");
        const Derived derived(hdmi);
        const QByteArray expected =
            zoomRecord(before.mid(4, 12), derived.ardview, hdmi, derived.analog);
        s.lines.clear();
        s.click("pbSetFactorySettings");
        QTRY_VERIFY(s.lines.out().contains(stored));
        QCOMPARE(s.record().toHex(), expected.toHex());

        QVERIFY(QDir(s.file({})).mkdir(QStringLiteral("unit")));
        {
            modal::Answer<QFileDialog> folder(modal::choose(s.file("unit")));
            s.click("pb_WriteFile");
        }
        const QString unit = s.file("unit/") + s.serialNumber()->text();
        QCOMPARE(files::contentOf(unit + ".dat").toHex(), expected.toHex());
        QVERIFY(files::contentOf(unit + ".txt").contains("\nHDMI:\nA 479,35,0,"));

        s.spoil();
        QVERIFY(!s.shows(expected));
        {
            modal::Answer<QFileDialog> file(modal::choose(unit + ".dat"));
            QVERIFY(s.readBy("pb_ReadFile"));
        }
        QVERIFY(s.shows(expected));

        s.spoil();
        QVERIFY(s.readBy("pbGetFactorySettings"));
        QTRY_VERIFY(s.shows(expected));
        QTRY_COMPARE(s.requests(111), 2);
        QCOMPARE(s.requests(110), 1); // none but the button has written
    }

    void editorMovesThePictureAndKeepsTheValues()
    {
        FactorySession s(QStringLiteral("blend-zoom"));
        QVERIFY(s.connectAndRead());
        QVERIFY(s.readBy("pbFactorySettings"));
        QTRY_VERIFY(s.shows(s.record()));
        s.box("sbTamronZoom")->setValue(2);
        s.click("pb_TestWindow");
        auto *editor = s.tool.widget("LiveEdit");
        QVERIFY(editor->isEnabled());

        QVector<int> hdmi = hdmiOf(s.record());
        QCOMPARE(hdmi.mid(7, 7), (QVector<int>{27, 0, 1832, 1079, 733, 2, 42}));
        s.click("pbGetHDMI");
        QTest::keyClick(editor, 'd');
        const auto moved = [&](const char *line) { return s.camera.log().contains(line); };
        QTRY_VERIFY(moved("<- COMIO_CMD_SET_DISPLACEMENT_HDMI (130), 16 bytes: "
                          "A 28, B 0, C 1832, D 1079, E 733, F 2, G 42"));
        s.click("pbSetHDMI");
        hdmi[7] = 28;
        QCOMPARE(shown(s.table("tw_QXBZ_hdmi")), hdmi);

        editor->findChild<QTabWidget *>()->setCurrentIndex(1);
        QVector<int> analog = analogOf(s.record());
        QCOMPARE(analog.mid(7, 7), (QVector<int>{21, 50, 798, 599, 366, 40, 46}));
        s.click("pbGetAnaloge");
        QTest::keyClick(editor, 'k');
        QTRY_VERIFY(moved("<- COMIO_CMD_SET_DISPLACEMENT_ANALOG (131), 16 bytes: "
                          "A 21, B 50, C 798, D 599, E 366, F 40, G 45"));
        s.click("pbSetAnaloge");
        analog[13] = 45;
        QCOMPARE(shown(s.table("tw_QXBZ_analog")), analog);
        QCOMPARE(shown(s.table("tw_QXBZ_hdmi")), hdmi);
        QCOMPARE(s.requests(130), 1);
        QCOMPARE(s.requests(131), 1);
        QCOMPARE(s.requests(110), 0);
    }

    void blendIsReadWithoutAWriteAndATurnIsStoredOnce()
    {
        FactorySession s(QStringLiteral("blend"));
        QVERIFY(s.connectAndRead());
        const QByteArray before = s.record();
        const QVector<int> read = numbers<qint32>(before, 12, 5);
        QCOMPARE(before.size(), 32);
        s.click("pbFactorySettings");
        auto *horizontal = s.box("sbLiveViewHorizontalAdjustment");
        QTRY_COMPARE(horizontal->value(), read[2] - 40);
        QCOMPARE(s.box("sbHorizontalAdjustement")->value(), read[0]);
        QCOMPARE(s.box("sbVerticalAdjustment")->value(), read[1]);
        QCOMPARE(s.box("sbLiveViewVerticalAdjustment")->value(), read[3] - 12);
        QCOMPARE(s.box("sbScale")->value(), read[4]);

        s.lines.clear();
        QTest::keyClick(horizontal, Qt::Key_Up);
        QTRY_VERIFY(s.lines.out().contains(stored));
        QCOMPARE(s.record().toHex(),
                 blendRecord(before.left(12), {read[0], read[1], read[2] + 1, read[3], read[4]})
                     .toHex());
        s.click("pbGetFactorySettings");
        QTRY_COMPARE(s.requests(111), 2);
        QCOMPARE(s.requests(110), 1); // the turn alone, not the read before it
    }

    void cleanup() { QVERIFY(!QApplication::activeModalWidget()); }
};

QTEST_MAIN(TestFactorySession)
#include "tst_factorysession.moc"
