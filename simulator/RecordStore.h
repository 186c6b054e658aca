#pragma once

#include "simulator/Camera.h"

#include <QString>

/// The records of one simulated camera on disk, so that they outlive the program: two files a model
/// in one directory ("blend-zoom-configuration.bin", "blend-zoom-factory.bin").
class RecordStore
{
public:
    /// An empty directory stores nothing, successfully.
    RecordStore(const QString &directory, const Model &model);

    /// Creates the directory; false if that fails or it is not writable.
    bool prepare() const;
    /// Path of a record's file; empty if no directory was given.
    QString path(Camera::Record record) const;
    /// Replaces the file as a whole or leaves it as it was; never what is no regular file.
    bool save(Camera::Record record, const QByteArray &bytes) const;

private:
    QString m_directory;
    QString m_model;
};

/// Fills in both records of `settings`, from `configurationFile` and `factoryFile` where given,
/// else from the store, else with defaults. Returns what is wrong, empty on success.
QString loadRecords(Camera::Settings &settings, const RecordStore &store,
                    const QString &configurationFile, const QString &factoryFile);
