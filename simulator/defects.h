#pragma once

#include "camera/models.h"

/// Why the camera refuses `record` as its configuration; empty if it takes it. Up to three bytes of
/// frame padding may follow the record.
QString configurationDefect(const Model &model, const QByteArray &record);
/// The same for a factory record, which has nothing but a size to check.
QString factoryDefect(const Model &model, const QByteArray &record);
