#pragma once

#include <QString>
#include <QVector>

/// What is wrong with a record that the tool refused, in words for the operator ("wrong checksum");
/// empty for a valid one. Looks at the same things in the same order as
/// KovoDevices::isValidControlStruct, and says nothing on the streams.
QString recordDefect(const QVector<unsigned char> &record);
