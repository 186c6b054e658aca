#include "support/captureddiagnostics.h"
#include "support/configurationfields.h"
#include "support/configurationform.h"
#include "support/records.h"

#include <memory>

using configurationfields::Field;
using configurationfields::Sample;

/// Every field of the configuration records, one at a time: the same tests for both records.
class TestMainWindowFields : public QObject
{
    Q_OBJECT

    static bool zoomRow()
    {
        QFETCH_GLOBAL(bool, zoom);
        return zoom;
    }
    static Field field()
    {
        QFETCH(int, field);
        return field < 0 ? configurationfields::extensions(zoomRow()).at(field == -2 ? 0 : 1)
                         : configurationfields::all().at(std::size_t(field));
    }
    static int offset() { return zoomRow() ? field().zoomOffset : field().blendOffset; }
    static bool shown()
    {
        return offset() >= 0 && (zoomRow() ? field().shownByZoom : field().shownByBlend);
    }

    static void fields()
    {
        QTest::addColumn<int>("field");
        for (const Field &field : configurationfields::all())
            QTest::newRow(field.widget) << int(&field - configurationfields::all().data());
        QTest::newRow("cBext0mode") << -2;
        QTest::newRow("cBext1mode") << -1;
    }

    /// The record with the sample's bytes in their place, if it has one, and all others zero.
    static QByteArray record(const Sample &sample)
    {
        QByteArray record = zoomRow() ? records::blendZoom() : records::blend();
        if (offset() >= 0)
            record.replace(offset(), sample.bytes.size(), sample.bytes);
        return records::sealed(record);
    }

    CapturedDiagnostics m_lines;
    std::unique_ptr<ConfigurationForm> m_form;

private slots:
    void initTestCase_data()
    {
        QTest::addColumn<bool>("zoom");
        QTest::newRow("Blend") << false;
        QTest::newRow("Blend Zoom") << true;
    }
    void init()
    {
        if (!m_form || m_form->isZoom() != zoomRow())
            m_form = std::make_unique<ConfigurationForm>(zoomRow());
    }
    void cleanupTestCase() { m_form.reset(); }

    void fieldIsShown_data() { fields(); }
    void fieldIsShown()
    {
        const Field tested = field();
        for (const Sample &sample : tested.samples) {
            if (sample.use == configurationfields::Write)
                continue;
            // A field that the record lacks, or that is only written, keeps its widget as it is.
            const bool kept = !shown() || sample.use == configurationfields::Kept;
            for (const QString &before : tested.othersThan(sample)) {
                m_form->set(tested.widget, before);
                m_form->read(record(sample));
                QVERIFY2(
                    m_form->value(tested.widget) == (kept ? before : sample.value),
                    qPrintable(sample.bytes.toHex() + " shows " + m_form->value(tested.widget)));
            }
        }
    }

    void widgetIsWrittenToItsBytesOnly_data() { fields(); }
    void widgetIsWrittenToItsBytesOnly()
    {
        const Field tested = field();
        QByteArray expected = m_form->written();
        for (const Sample &sample : tested.samples) {
            if (sample.use == configurationfields::Read || sample.use == configurationfields::Kept)
                continue;
            m_form->set(tested.widget, sample.value);
            if (offset() >= 0)
                expected.replace(offset(), sample.bytes.size(), sample.bytes);
            const QByteArray written = m_form->written();
            QVERIFY2(written == records::sealed(expected),
                     qPrintable(sample.value + " gives " +
                                written.mid(offset(), sample.bytes.size()).toHex()));
        }
        m_form->set(tested.widget, tested.samples.front().value);
    }
};

QTEST_MAIN(TestMainWindowFields)
#include "tst_mainwindow_fields.moc"
