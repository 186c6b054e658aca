#pragma once

#include "records/thermalCommPacket_Blend_R8_TypeDef.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"
#include "support/widgetvalues.h"
#include "support/windowundertest.h"

#include <QSignalBlocker>

#include <cstring>

/// The form of one model and its record as bytes.
class ConfigurationForm : public WindowUnderTest
{
public:
    explicit ConfigurationForm(bool zoom) : m_zoom(zoom)
    {
        chooseModel(zoom ? 0xA0AF139E : 0xC92A6CE6);
    }

    bool isZoom() const { return m_zoom; }

    void read(const QByteArray &record)
    {
        if (m_zoom) {
            const auto packet = as<thermalCommPacket_Blend_Zoom_R13_TypeDef>(record);
            window.config2ui_qxblendzoom(&packet);
        } else {
            const auto packet = as<thermalCommPacket_Blend_R8_TypeDef>(record);
            window.config2ui_qxblend(&packet);
        }
    }

    /// What the form makes of a buffer of `fill` bytes.
    QByteArray written(char fill = '\0')
    {
        if (m_zoom)
            return written<thermalCommPacket_Blend_Zoom_R13_TypeDef>(
                fill, [this](auto &record) { return window.ui2config_qxblendzoom(record); });
        return written<thermalCommPacket_Blend_R8_TypeDef>(
            fill, [this](auto &record) { return window.ui2config_qxblend(record); });
    }

    QString value(const char *name) { return widgetvalues::value(widget(name)); }

    /// Sets a widget alone, without the interlocks that follow from it.
    void set(const char *name, const QString &value)
    {
        const QSignalBlocker blocker(widget(name));
        widgetvalues::setValue(widget(name), value);
    }

private:
    template <class Record>
    static Record as(const QByteArray &bytes)
    {
        Record record;
        if (bytes.size() != int(sizeof record))
            qFatal("%d bytes are no record", bytes.size());
        std::memcpy(&record, bytes.constData(), sizeof record);
        return record;
    }

    template <class Record, class Write>
    static QByteArray written(char fill, Write write)
    {
        Record record;
        std::memset(&record, fill, sizeof record);
        if (!write(record))
            qFatal("a record is always built");
        return QByteArray(reinterpret_cast<const char *>(&record), sizeof record);
    }

    bool m_zoom;
};
