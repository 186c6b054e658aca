#pragma once

#include "support/captureddiagnostics.h"
#include "support/records.h"
#include "support/windowundertest.h"

#include <QSet>
#include <QStatusBar>

using records::key20;
using records::keyBlend;
using records::keyBlendZoom;

/// Every widget that comes and goes with the model.
inline const QSet<QString> modelWidgets = {"gb_pheriphery_externalshutter",
                                           "gb_pheriphery_externalshutteroptions",
                                           "comboBoxPort",
                                           "btConnectDisconnect",
                                           "gbSonyFCBCameraAdjustements",
                                           "gbSonyFCBFocus",
                                           "gbTamronFocus",
                                           "gbSonyFCBZoom",
                                           "gbTamronVibrationCompensation",
                                           "gbTamronZoom",
                                           "gb_videoMode",
                                           "gb_hdmivideoMode",
                                           "gb_compressionQuality",
                                           "gb_compressionQuality_slider",
                                           "gbImageOutput",
                                           "gbSyncMode",
                                           "gbSbusConnectionOptions",
                                           "gbTestModes",
                                           "gb_exp_uart",
                                           "gb_vlc_ae",
                                           "cbSbusZoom",
                                           "cbSbusZoomMode",
                                           "label_sbuschannel_zoom",
                                           "label_sbuschannel_zoommode",
                                           "label_sbuschannel_viewmode_switcthmode",
                                           "cbSbusViewModeSwitchMode",
                                           "label_sbus_Overlay",
                                           "cbSbusOverlay"};

inline const QSet<QString> blendWidgets = {"comboBoxPort",
                                           "btConnectDisconnect",
                                           "gb_pheriphery_externalshutter",
                                           "label_sbus_Overlay",
                                           "cbSbusOverlay",
                                           "gbSonyFCBCameraAdjustements",
                                           "gbSonyFCBFocus",
                                           "label_sbuschannel_viewmode_switcthmode",
                                           "cbSbusViewModeSwitchMode"};

inline const QSet<QString> zoomWidgets = {"comboBoxPort",
                                          "gb_pheriphery_externalshutter",
                                          "btConnectDisconnect",
                                          "gbTamronFocus",
                                          "gbTamronVibrationCompensation",
                                          "gbTamronZoom",
                                          "gb_videoMode",
                                          "gb_hdmivideoMode",
                                          "gb_compressionQuality_slider",
                                          "gbImageOutput",
                                          "gbSyncMode",
                                          "gbSbusConnectionOptions",
                                          "gbTestModes",
                                          "cbSbusZoom",
                                          "cbSbusZoomMode",
                                          "label_sbuschannel_zoom",
                                          "label_sbuschannel_zoommode",
                                          "gb_vlc_ae"};

/// The window on the screen, with its diagnostics and perhaps a camera that the test plays.
class ModelWindow : public WindowUnderTest
{
public:
    ModelWindow() { window.show(); }

    QSet<QString> shownModelWidgets()
    {
        QSet<QString> shown;
        for (const QString &name : modelWidgets)
            if (!widget(qPrintable(name))->isHidden())
                shown << name;
        return shown;
    }

    /// All widgets of the form that are hidden and none of the model's.
    QSet<QString> otherHiddenWidgets()
    {
        QSet<QString> hidden;
        for (const QWidget *child : window.centralWidget()->findChildren<QWidget *>())
            if (child->isHidden() && !child->objectName().startsWith("qt_") &&
                !child->objectName().isEmpty() && !modelWidgets.contains(child->objectName()) &&
                !pageNames.contains(child->objectName()))
                hidden << child->objectName();
        return hidden;
    }

    QStringList items(const char *name)
    {
        const auto *box = get<QComboBox>(name);
        QStringList texts;
        for (int i = 0; i < box->count(); ++i)
            texts << box->itemText(i);
        return texts;
    }

    int deviceIndex() { return get<QComboBox>("cBDevice")->currentIndex(); }
    QString status() const { return window.statusBar()->currentMessage(); }
    bool connected()
    {
        return get<QPushButton>("btConnectDisconnect")->text() == QLatin1String("Disconnect");
    }

    CapturedDiagnostics lines;

private:
    /// Of the pages, a tab widget hides all but one.
    const QSet<QString> pageNames = {"tab_5", "tab_4",        "tabSerial", "tab_SBUS",
                                     "tab_3", "tab_liveview", "tabVLC",    "tab_2"};
};
