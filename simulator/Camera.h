#pragma once

#include "camera/models.h"

#include <functional>

/// The simulated camera as the command table describes one: a request in, its answer out. Knows
/// neither line nor frames.
class Camera
{
public:
    enum class Record { Configuration, Factory };

    struct Settings
    {
        const Model *model;
        QByteArray serial; ///< null: the one that the factory record names
        quint32 firmware;  ///< date as the decimal number yyyymmdd
        QByteArray configuration;
        QByteArray factory;
        /// Milliseconds since the Unix epoch.
        std::function<qint64()> clock;
        /// Keeps a record that was written; false refuses the write. May be empty.
        std::function<bool(Record, const QByteArray &)> store;
    };

    struct Answer
    {
        quint32 command;
        QByteArray payload;
        QString note; ///< what the camera made of the request, for the log; may be empty
    };

    explicit Camera(const Settings &settings);

    /// Answers one request; `payload` may end in frame padding. Writes are refused with
    /// command + 200, a code that is no request is answered with COMIO_CMD_UNKNOWN.
    Answer handle(quint32 command, const QByteArray &payload);

    bool isStreamingGps() const { return m_streamsGps; }
    /// The message that a streaming camera sends once a second; sentence types take turns.
    Answer gpsMessage();

    /// Back to what a camera is after power-on: stored settings, no stream.
    void restart();

    /// The configuration in effect: the stored one until live settings replace it.
    const QByteArray &activeConfiguration() const { return m_active; }

private:
    struct Outcome
    {
        bool accepted = true;
        QByteArray payload;
        QString note;
    };
    struct Row
    {
        quint32 command;
        Outcome (Camera::*handler)(const QByteArray &);
    };
    static const Row rows[];
    static Outcome refused(const QString &why) { return {false, {}, why}; }

    Outcome acknowledge(const QByteArray &);
    Outcome identity(const QByteArray &);
    Outcome readConfiguration(const QByteArray &);
    Outcome writeConfiguration(const QByteArray &);
    Outcome useLiveSettings(const QByteArray &);
    Outcome readFactory(const QByteArray &);
    Outcome writeFactory(const QByteArray &);
    Outcome sbus(const QByteArray &);
    Outcome trigger(const QByteArray &);
    Outcome switchGps(const QByteArray &);
    Outcome gpsText(const QByteArray &);
    Outcome focus(const QByteArray &);
    Outcome displacement(const QByteArray &);
    bool stored(Record record, const QByteArray &bytes) const;

    Settings m_settings;
    QByteArray m_serial;
    QByteArray m_active;
    bool m_streamsGps = false;
    bool m_ggaIsNext = true;
};
