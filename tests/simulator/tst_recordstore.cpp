#include "simulator/DefaultRecords.h"
#include "simulator/RecordStore.h"

#include "support/records.h"

#include <QtTest>

#include <sys/stat.h>

namespace {

QByteArray changedConfiguration(const Model &model)
{
    QByteArray record = defaultConfiguration(model);
    record[20] = 1;
    return records::sealed(record);
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_RecordStore : public QObject
{
    Q_OBJECT

    const Model &m_model = *models::ofOptionName("blend-zoom");

    Camera::Settings settings() const { return {&m_model, {}, 20190912, {}, {}, {}, {}}; }

private slots:
    void neverReplacesWhatIsNoFile()
    {
        QTemporaryDir directory;
        const RecordStore store(directory.path(), m_model);
        const QString pipe = store.path(Camera::Record::Configuration);
        QCOMPARE(::mkfifo(QFile::encodeName(pipe), 0600), 0);
        QVERIFY(!store.save(Camera::Record::Configuration, defaultConfiguration(m_model)));
        struct stat status;
        QCOMPARE(::lstat(QFile::encodeName(pipe), &status), 0);
        QVERIFY(S_ISFIFO(status.st_mode));
    }

    void keepsBothRecordsAcrossRunsForEachModel()
    {
        QTemporaryDir directory;
        const QString path = directory.filePath("camera/state");
        const QByteArray record = changedConfiguration(m_model);
        const QByteArray factory = defaultFactoryRecord(m_model, "42");
        {
            const RecordStore store(path, m_model);
            auto first = settings();
            QCOMPARE(loadRecords(first, store, {}, {}), QString());
            QCOMPARE(first.configuration, defaultConfiguration(m_model));
            QVERIFY(store.save(Camera::Record::Configuration, record));
            QVERIFY(store.save(Camera::Record::Factory, factory));
        }
        auto second = settings();
        QCOMPARE(loadRecords(second, RecordStore(path, m_model), {}, {}), QString());
        QCOMPARE(second.configuration, record);
        QCOMPARE(second.factory, factory);
        QCOMPARE(Camera(second).handle(116, {}).payload.mid(8), QByteArray("42", 3));

        const Model &blend = *models::ofOptionName("blend");
        Camera::Settings other{&blend, {}, 20190912, {}, {}, {}, {}};
        QCOMPARE(loadRecords(other, RecordStore(path, blend), {}, {}), QString());
        QCOMPARE(other.configuration, defaultConfiguration(blend));
        QCOMPARE(content(RecordStore(path, m_model).path(Camera::Record::Configuration)), record);
    }

    void prefersNamedFilesOverTheStateDirectory()
    {
        QTemporaryDir directory;
        const RecordStore store(directory.path(), m_model);
        auto kept = settings();
        QCOMPARE(loadRecords(kept, store, {}, {}), QString());

        const QByteArray record = changedConfiguration(m_model);
        write(directory.filePath("c.bin"), record);
        write(directory.filePath("f.bin"), defaultFactoryRecord(m_model, "77"));
        auto named = settings();
        QCOMPARE(
            loadRecords(named, store, directory.filePath("c.bin"), directory.filePath("f.bin")),
            QString());
        QCOMPARE(named.configuration, record);
        QCOMPARE(content(store.path(Camera::Record::Configuration)), record);
        QCOMPARE(Camera(named).handle(116, {}).payload.mid(8), QByteArray("77", 3));
    }

    void refusesFilesThatHoldNoRecord_data()
    {
        const QByteArray good = defaultConfiguration(m_model);
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("short") << good.left(100);
        QTest::newRow("long") << good + QByteArray(5000, '\0');
        QTest::newRow("corrupt") << QByteArray(good).replace(50, 1, "\x55");
        QTest::newRow("other model") << defaultConfiguration(*models::ofOptionName("blend"));
    }
    void refusesFilesThatHoldNoRecord()
    {
        QFETCH(QByteArray, bytes);
        QTemporaryDir directory;
        const QString path = directory.filePath("record.bin");
        write(path, bytes);
        auto target = settings();
        const QString error = loadRecords(target, RecordStore({}, m_model), path, {});
        QVERIFY2(error.startsWith(path + " is no record of a blend-zoom camera: "),
                 qPrintable(error));

        const RecordStore store(directory.path(), m_model);
        write(store.path(Camera::Record::Configuration), bytes);
        target = settings();
        QVERIFY(!loadRecords(target, store, {}, {}).isEmpty());
        QCOMPARE(content(store.path(Camera::Record::Configuration)), bytes);
    }

    void refusesAFactoryFileOfTheWrongSize()
    {
        QTemporaryDir directory;
        const QString path = directory.filePath("factory.bin");
        write(path, QByteArray(415, '\0'));
        auto target = settings();
        QVERIFY(loadRecords(target, RecordStore({}, m_model), {}, path).contains("415 bytes"));
    }

    void saysWhatCannotBeReadOrKept()
    {
        QTemporaryDir directory;
        auto target = settings();
        const QString missing = directory.filePath("missing.bin");
        QVERIFY(loadRecords(target, RecordStore({}, m_model), missing, {})
                    .startsWith("cannot read " + missing));

        write(directory.filePath("file"), "x");
        target = settings();
        const QString inside = directory.filePath("file/state");
        QCOMPARE(loadRecords(target, RecordStore(inside, m_model), {}, {}),
                 "cannot keep records in " + inside);
    }
};

QTEST_GUILESS_MAIN(tst_RecordStore)
#include "tst_recordstore.moc"
