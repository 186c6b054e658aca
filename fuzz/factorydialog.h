#pragma once

#include "Input.h"
#include "desktop.h"
#include "factory/FactorySettings.h"
#include "judge.h"

#include <QLineEdit>
#include <QSpinBox>
#include <QTableWidget>

/// The factory dialog with its companions, and what it sends.
struct FactoryDialog
{
    FactoryDialog()
    {
        dialog.setPacketManager(&packetManager);
        dialog.setDevices(&devices);
        QObject::connect(&devices, &KovoDevices::signalDeviceChanged, &dialog,
                         &FactorySettings::slotDeviceChanged);
        QObject::connect(&dialog, &FactorySettings::signalSendPackage,
                         [this](const QByteArray &frame) { sent.append(frame); });
    }

    template <class Widget>
    Widget *get(const char *name)
    {
        auto *widget = dialog.findChild<Widget *>(QString::fromLatin1(name));
        judge(widget != nullptr, name);
        return widget;
    }

    QByteArray recordOfForm()
    {
        const FactorySettings_QXBlendZoom_TypeDef record = dialog.ui2struct_QXBlendZoom();
        return QByteArray(reinterpret_cast<const char *>(&record), sizeof record);
    }

    kovoPacketManager packetManager{nullptr};
    KovoDevices devices{nullptr};
    FactorySettings dialog;
    QList<QByteArray> sent;
};

/// The serial number field of a record, in the twelve bytes that the form makes of it.
inline QByteArray shownSerialNumber(const QByteArray &field, const QByteArray &before)
{
    if (field == QByteArray(12, '\xFF'))
        return before;
    const int end = field.indexOf('\0');
    return (end < 0 ? field : field.left(end)).left(7).leftJustified(12, '\0');
}
