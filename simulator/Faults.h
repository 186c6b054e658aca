#pragma once

#include <QString>
#include <QVector>

/// What goes wrong between the simulated camera and its client. Everything off by default.
struct Faults
{
    double drop = 0;         ///< probability that a byte is lost
    double flip = 0;         ///< probability that one bit of a byte is turned
    double garbage = 0;      ///< probability of random bytes before a frame
    double truncate = 0;     ///< probability that a frame ends early
    double duplicate = 0;    ///< probability that a frame is sent twice
    int delay = 0;           ///< ms before each frame
    int split = 1;           ///< parts in which each frame is sent, some ms apart
    int dribble = 0;         ///< ms between two bytes
    int hangup = 0;          ///< frames after which the line goes away for a second, 0: never
    int storm = 0;           ///< bytes of unasked frames a second
    QVector<quint32> reject; ///< commands answered with command + 200 whatever they carry
    QVector<quint32> silent; ///< commands that are ignored
};

/// Adds one fault of the form KIND[:VALUE]. Returns what is wrong with it, empty if nothing.
QString addFault(const QString &text, Faults &faults);
/// The kinds with their values, for the help text.
QString faultKinds();
