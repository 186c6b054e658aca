#pragma once

#include <QByteArray>

#include <array>

/// What the simulated camera senses at a moment, `msecs` being milliseconds since the Unix epoch.

/// Levels of SBUS channels 1 to 16, sweeping smoothly within 0..2000, each at its own pace.
std::array<quint16, 16> sbusLevels(qint64 msecs);

/// Position and motion of an aircraft that flies a circle, as NMEA 0183 sentences from '$' to the
/// checksum, without line end.
QByteArray ggaSentence(qint64 msecs);
QByteArray rmcSentence(qint64 msecs);

/// Focus adjustment as the visible camera finds it, -31..31.
qint8 driftingFocus(qint64 msecs);
