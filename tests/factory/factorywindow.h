#pragma once

#include "devices/KovoDevices.h"
#include "factory/FactorySettings.h"
#include "link/kovoPacketManager.h"
#include "support/captureddiagnostics.h"
#include "support/factoryrecords.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableWidget>
#include <QVector>

/// Boxes of the Blend in the order of their numbers in the record.
inline constexpr const char *blendBoxes[] = {"sbHorizontalAdjustement", "sbVerticalAdjustment",
                                             "sbLiveViewHorizontalAdjustment",
                                             "sbLiveViewVerticalAdjustment", "sbScale"};
inline constexpr const char *tableNames[] = {"tw_QXBZ_hdmi", "tw_QXBZ_analog", "tw_QXBZ_ardview"};

/// The factory dialog with what the main window gives it, and what it sends and says.
struct FactoryWindow
{
    FactoryWindow()
    {
        dialog.setPacketManager(&packetManager);
        dialog.setDevices(&devices);
        QObject::connect(&devices, SIGNAL(signalDeviceChanged(KovoDeviceCRCKey_TypeDef)), &dialog,
                         SLOT(slotDeviceChanged(KovoDeviceCRCKey_TypeDef)));
    }

    template <class T = QWidget>
    T *widget(const char *name)
    {
        auto *found = dialog.findChild<T *>(QLatin1String(name));
        if (found == nullptr)
            qFatal("no widget %s", name);
        return found;
    }
    QTableWidget *table(const char *name) { return widget<QTableWidget>(name); }
    QLineEdit *serialNumber() { return widget<QLineEdit>("leSerialNumber"); }

    bool call(const char *slot) { return QMetaObject::invokeMethod(&dialog, slot); }
    void click(const char *button) { widget<QAbstractButton>(button)->click(); }

    /// Texts of all cells, row by row.
    QVector<QString> cells(const char *name)
    {
        QVector<QString> texts;
        QTableWidget *from = table(name);
        for (int row = 0; row < from->rowCount(); ++row)
            for (int column = 0; column < from->columnCount(); ++column)
                texts << from->item(row, column)->text();
        return texts;
    }
    QVector<QString> column(const char *name, int column)
    {
        QVector<QString> texts;
        QTableWidget *from = table(name);
        for (int row = 0; row < from->rowCount(); ++row)
            texts << from->item(row, column)->text();
        return texts;
    }

    CapturedDiagnostics said;
    kovoPacketManager packetManager{nullptr};
    KovoDevices devices{nullptr};
    FactorySettings dialog;
    QSignalSpy sent{&dialog, &FactorySettings::signalSendPackage};
};
