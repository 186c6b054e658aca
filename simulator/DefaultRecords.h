#pragma once

#include "camera/models.h"

/// Records of a camera as an operator would have set it up, valid by header, version and CRC-16.
/// Empty for a model without records.
QByteArray defaultConfiguration(const Model &model);
/// `serial` fills the serial number field, cut after twelve bytes.
QByteArray defaultFactoryRecord(const Model &model, const QByteArray &serial);

/// The serial number that a factory record names; null if none was ever set.
QByteArray factorySerial(const Model &model, const QByteArray &record);
