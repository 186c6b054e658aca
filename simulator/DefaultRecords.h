#pragma once

#include "simulator/CameraModel.h"

/// Records of a camera as an operator would have set it up, valid by header, version and CRC-16.
/// Empty for a model without records.
QByteArray defaultConfiguration(const CameraModel &model);
/// `serial` fills the serial number field, cut after twelve bytes.
QByteArray defaultFactoryRecord(const CameraModel &model, const QByteArray &serial);

/// The serial number that a factory record names; null if none was ever set.
QByteArray factorySerial(const CameraModel &model, const QByteArray &record);
