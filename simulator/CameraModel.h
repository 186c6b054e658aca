#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// What the simulated camera has to know about a model. The 2.0 has no records here: it tells its
/// identity and refuses whatever concerns records.
struct CameraModel
{
    const char *name; ///< as on the command line
    quint32 key;
    quint32 configurationVersion; ///< date as the decimal number yyyymmdd
    int configurationSize;        ///< bytes, header and CRC-16 included; 0: no records
    int factorySize;              ///< bytes

    bool hasRecords() const { return configurationSize > 0; }
};

/// The model of that name, null if there is none.
const CameraModel *findModel(const QString &name);
QStringList modelNames();

/// Why the camera refuses `record` as its configuration; empty if it takes it. Up to three bytes of
/// frame padding may follow the record.
QString configurationDefect(const CameraModel &model, const QByteArray &record);
/// The same for a factory record, which has nothing but a size to check.
QString factoryDefect(const CameraModel &model, const QByteArray &record);
