#include "simulator/Camera.h"

#include "simulator/DefaultRecords.h"
#include "simulator/SimulatedSignals.h"
#include "simulator/defects.h"

#include "link/ComioInterfaceCommand.h"

#include <QStringList>
#include <QtEndian>

namespace {

template <class T>
void append(QByteArray &bytes, T value)
{
    char image[sizeof value];
    qToLittleEndian<T>(value, image);
    bytes.append(image, sizeof image);
}

int differences(const QByteArray &a, const QByteArray &b)
{
    int count = 0;
    for (int i = 0; i < qMin(a.size(), b.size()); ++i)
        count += a.at(i) != b.at(i);
    return count;
}

} // namespace

const Camera::Row Camera::rows[] = {
    {COMIO_CMD_SET_CONFIG, &Camera::writeConfiguration},
    {COMIO_CMD_GET_CONFIG, &Camera::readConfiguration},
    {COMIO_CMD_GET_CONTROL_STRUCT, &Camera::readConfiguration},
    {COMIO_CMD_SET_SERIAL, &Camera::writeFactory},
    {COMIO_CMD_GET_FACTORY_SETTINGS, &Camera::readFactory},
    {COMIO_CMD_GET_DEVICE_ID, &Camera::identity},
    {COMIO_CMD_VLC_PREVIEW_ZOOM, &Camera::acknowledge},
    {COMIO_CMD_SBUS_LEVELS, &Camera::sbus},
    {COMIO_CMD_SET_LIVE_SETTINGS, &Camera::useLiveSettings},
    {COMIO_CMD_GET_SBUS_LEVELS, &Camera::sbus},
    {COMIO_CMD_TRIGGER, &Camera::trigger},
    {COMIO_CMD_GPS_STREAM, &Camera::switchGps},
    {COMIO_CMD_GPS_STREAM_DATA, &Camera::gpsText},
    {COMIO_CMD_VLC_AUTO_ADJUST_FOCUS, &Camera::focus},
    {COMIO_CMD_SET_DISPLACEMENT_HDMI, &Camera::displacement},
    {COMIO_CMD_SET_DISPLACEMENT_ANALOG, &Camera::displacement},
    {COMIO_CMD_DO_FFC, &Camera::acknowledge},
    {COMIO_CMD_IR_ADJUST, &Camera::acknowledge},
    {COMIO_CMD_ALL_BITS_SET, &Camera::acknowledge},
};

Camera::Camera(const Settings &settings)
    : m_settings(settings)
    , m_serial(settings.serial.isNull() ? factorySerial(*settings.model, settings.factory)
                                        : settings.serial)
    , m_active(settings.configuration)
{
}

Camera::Answer Camera::handle(quint32 command, const QByteArray &payload)
{
    for (const Row &row : rows) {
        if (row.command != command)
            continue;
        const Outcome outcome = (this->*row.handler)(payload);
        return {outcome.accepted ? replyOk(command) : replyFail(command), outcome.payload,
                outcome.note};
    }
    return {COMIO_CMD_UNKNOWN, {}, {}};
}

Camera::Answer Camera::gpsMessage()
{
    return {replyOk(COMIO_CMD_GPS_STREAM_DATA), gpsText({}).payload, {}};
}

void Camera::restart()
{
    m_active = m_settings.configuration;
    m_streamsGps = false;
}

Camera::Outcome Camera::acknowledge(const QByteArray &)
{
    return {};
}

Camera::Outcome Camera::identity(const QByteArray &)
{
    QByteArray reply;
    append<quint32>(reply, m_settings.model->key);
    append<quint32>(reply, m_settings.firmware);
    reply.append(m_serial).append('\0');
    return {true, reply, {}};
}

Camera::Outcome Camera::readConfiguration(const QByteArray &)
{
    if (!m_settings.model->hasRecords())
        return refused(QStringLiteral("this model has no records"));
    return {true, m_settings.configuration, {}};
}

Camera::Outcome Camera::writeConfiguration(const QByteArray &payload)
{
    const QString defect = configurationDefect(*m_settings.model, payload);
    if (!defect.isEmpty())
        return refused(defect);
    const QByteArray record = payload.left(m_settings.model->configuration->size);
    if (!stored(Record::Configuration, record))
        return refused(QStringLiteral("could not be stored"));
    const int changed = differences(record, m_settings.configuration);
    m_settings.configuration = record;
    m_active = record;
    return {true, {}, QStringLiteral("stored, %1 bytes changed").arg(changed)};
}

Camera::Outcome Camera::useLiveSettings(const QByteArray &payload)
{
    const QString defect = configurationDefect(*m_settings.model, payload);
    if (!defect.isEmpty())
        return refused(defect);
    const QByteArray record = payload.left(m_settings.model->configuration->size);
    const int changed = differences(record, m_active);
    m_active = record;
    return {true, {}, QStringLiteral("in use, %1 bytes changed, not stored").arg(changed)};
}

Camera::Outcome Camera::readFactory(const QByteArray &)
{
    if (!m_settings.model->hasRecords())
        return refused(QStringLiteral("this model has no records"));
    return {true, m_settings.factory, {}};
}

Camera::Outcome Camera::writeFactory(const QByteArray &payload)
{
    const QString defect = factoryDefect(*m_settings.model, payload);
    if (!defect.isEmpty())
        return refused(defect);
    if (!stored(Record::Factory, payload))
        return refused(QStringLiteral("could not be stored"));
    m_settings.factory = payload;
    const QByteArray serial = factorySerial(*m_settings.model, payload);
    if (!serial.isNull())
        m_serial = serial;
    return {true, {}, QStringLiteral("stored, serial number ") + QString::fromLatin1(m_serial)};
}

// NOLINTNEXTLINE(readability-make-member-function-const): the table holds one type of handler
Camera::Outcome Camera::sbus(const QByteArray &)
{
    QByteArray reply;
    for (const quint16 level : sbusLevels(m_settings.clock()))
        append<quint16>(reply, level);
    return {true, reply, {}};
}

Camera::Outcome Camera::trigger(const QByteArray &payload)
{
    return {true, {}, payload.startsWith('\1') ? QStringLiteral("start") : QStringLiteral("stop")};
}

Camera::Outcome Camera::switchGps(const QByteArray &payload)
{
    m_streamsGps = payload.startsWith('\1');
    return {true, {}, m_streamsGps ? QStringLiteral("start") : QStringLiteral("stop")};
}

Camera::Outcome Camera::gpsText(const QByteArray &)
{
    const qint64 now = m_settings.clock();
    QByteArray sentence = m_ggaIsNext ? ggaSentence(now) : rmcSentence(now);
    m_ggaIsNext = !m_ggaIsNext;
    return {true, sentence.append('\0'), {}};
}

// NOLINTNEXTLINE(readability-make-member-function-const): the table holds one type of handler
Camera::Outcome Camera::focus(const QByteArray &)
{
    const qint8 value = driftingFocus(m_settings.clock());
    return {true, QByteArray(1, value), QStringLiteral("focus %1").arg(value)};
}

Camera::Outcome Camera::displacement(const QByteArray &payload)
{
    constexpr int count = 7;
    if (payload.size() < count * int(sizeof(qint16)))
        return refused(QStringLiteral("%1 bytes instead of 14").arg(payload.size()));
    QStringList values;
    for (int i = 0; i < count; ++i) {
        const auto value = qFromLittleEndian<qint16>(payload.constData() + sizeof(qint16) * i);
        values << QStringLiteral("%1 %2").arg(QChar('A' + i)).arg(value);
    }
    return {true, {}, values.join(QStringLiteral(", "))};
}

bool Camera::stored(Record record, const QByteArray &bytes) const
{
    return !m_settings.store || m_settings.store(record, bytes);
}
