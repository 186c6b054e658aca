#include "simulator/SimulatedSignals.h"

#include <QDateTime>

#include <cmath>

namespace {

constexpr double pi = 3.141592653589793;

/// -1..1, once around in `period` milliseconds; `phase` in turns.
double wave(qint64 msecs, int period, double phase = 0)
{
    return std::sin(2 * pi * (double(msecs % period) / period + phase));
}

QByteArray sealed(const QByteArray &body)
{
    quint8 sum = 0;
    for (const char c : body)
        sum ^= static_cast<quint8>(c);
    return '$' + body + '*' + QByteArray::number(sum, 16).rightJustified(2, '0').toUpper();
}

/// NMEA's degrees and minutes in one number: 4807.25000 is 48 degrees, 7.25 minutes.
QByteArray degreesMinutes(int degrees, double minutes, int degreeDigits)
{
    return QByteArray::number(degrees).rightJustified(degreeDigits, '0') +
           QByteArray::number(minutes, 'f', 5).rightJustified(8, '0');
}

constexpr int lap = 120000; // milliseconds

QByteArray position(qint64 msecs)
{
    return degreesMinutes(47, 30 + 0.4 * wave(msecs, lap), 2) + ",N," +
           degreesMinutes(9, 15 + 0.6 * wave(msecs, lap, 0.25), 3) + ",E";
}

QByteArray utc(qint64 msecs, const char *format)
{
    return QDateTime::fromMSecsSinceEpoch(msecs, Qt::UTC)
        .toString(QLatin1String(format))
        .toLatin1();
}

} // namespace

std::array<quint16, 16> sbusLevels(qint64 msecs)
{
    std::array<quint16, 16> levels{};
    for (int channel = 0; channel < 16; ++channel) {
        const double level = 1000 + 1000 * wave(msecs, 6000 + 500 * channel, channel / 16.0);
        levels[channel] = static_cast<quint16>(std::lround(level));
    }
    return levels;
}

QByteArray ggaSentence(qint64 msecs)
{
    const double altitude = 480 + 20 * wave(msecs, lap);
    return sealed("GPGGA," + utc(msecs, "HHmmss.zzz").chopped(1) + ',' + position(msecs) +
                  ",1,09,0.9," + QByteArray::number(altitude, 'f', 1) + ",M,48.0,M,,");
}

QByteArray rmcSentence(qint64 msecs)
{
    const double course = 360.0 * double(msecs % lap) / lap;
    return sealed("GPRMC," + utc(msecs, "HHmmss.zzz").chopped(1) + ",A," + position(msecs) +
                  ",24.5," + QByteArray::number(course, 'f', 1) + ',' + utc(msecs, "ddMMyy") +
                  ",,,A");
}

qint8 driftingFocus(qint64 msecs)
{
    return static_cast<qint8>(std::lround(31 * wave(msecs, 40000)));
}
