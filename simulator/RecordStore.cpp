#include "simulator/RecordStore.h"

#include "simulator/DefaultRecords.h"
#include "simulator/defects.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace {

/// Serial number of a camera that was given none.
constexpr char defaultSerial[] = "1701234";

using Defect = QString (*)(const Model &, const QByteArray &);

/// Reads `named`, or else `kept` if that exists, into `record`, which otherwise stays empty.
QString load(QByteArray &record, const QString &named, const QString &kept, const Model &model,
             Defect defectOf, const Layout *layout)
{
    QString path = named;
    if (path.isEmpty() && QFileInfo::exists(kept))
        path = kept;
    if (path.isEmpty())
        return {};

    // Opening a pipe would wait until somebody writes into it.
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile())
        return QStringLiteral("cannot read %1: it is no regular file").arg(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
    // One byte more than any record and its padding tells a file that is too long.
    record = file.read(layout ? layout->size + 4 : 4);
    const QString defect = defectOf(model, record);
    if (!defect.isEmpty())
        return QStringLiteral("%1 is no record of a %2 camera: %3")
            .arg(path, QString::fromLatin1(model.optionName), defect);
    if (layout)
        record.truncate(layout->size);
    return {};
}

} // namespace

RecordStore::RecordStore(const QString &directory, const Model &model)
    : m_directory(directory), m_model(QString::fromLatin1(model.optionName))
{
}

bool RecordStore::prepare() const
{
    return m_directory.isEmpty() ||
           (QDir().mkpath(m_directory) && QFileInfo(m_directory).isWritable());
}

QString RecordStore::path(Camera::Record record) const
{
    if (m_directory.isEmpty())
        return {};
    const QString kind = record == Camera::Record::Factory ? QStringLiteral("factory")
                                                           : QStringLiteral("configuration");
    return QStringLiteral("%1/%2-%3.bin").arg(m_directory, m_model, kind);
}

bool RecordStore::save(Camera::Record record, const QByteArray &bytes) const
{
    if (m_directory.isEmpty())
        return true;
    const QFileInfo kept(path(record));
    if (kept.exists() && !kept.isFile())
        return false;
    QSaveFile file(kept.filePath());
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
           file.commit();
}

QString loadRecords(Camera::Settings &settings, const RecordStore &store,
                    const QString &configurationFile, const QString &factoryFile)
{
    const Model &model = *settings.model;
    QString error =
        load(settings.configuration, configurationFile, store.path(Camera::Record::Configuration),
             model, configurationDefect, model.configuration);
    if (error.isEmpty())
        error = load(settings.factory, factoryFile, store.path(Camera::Record::Factory), model,
                     factoryDefect, model.factory);
    if (!error.isEmpty())
        return error;

    if (settings.configuration.isEmpty())
        settings.configuration = defaultConfiguration(model);
    if (settings.factory.isEmpty())
        settings.factory = defaultFactoryRecord(
            model, settings.serial.isNull() ? QByteArray(defaultSerial) : settings.serial);
    if (settings.serial.isNull() && factorySerial(model, settings.factory).isNull())
        settings.serial = defaultSerial;

    if (!model.hasRecords())
        return {};
    if (!store.prepare() || !store.save(Camera::Record::Configuration, settings.configuration) ||
        !store.save(Camera::Record::Factory, settings.factory))
        return QStringLiteral("cannot keep records in %1")
            .arg(QFileInfo(store.path(Camera::Record::Factory)).path());
    return {};
}
