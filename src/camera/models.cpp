#include "camera/models.h"

#include "records/blendFields.h"
#include "records/blendZoomFields.h"
#include "records/factoryFields.h"
#include "records/vocabularies.h"

#include <algorithm>

namespace {

using vocabularies::sbusDeactivated;

constexpr qint64 channel(int number)
{
    return number - 1;
}

template <class T, std::size_t N>
constexpr Span<T> span(const T (&items)[N])
{
    return {items, N};
}

constexpr const char *blendGroups[] = {
    "comboBoxPort",
    "btConnectDisconnect",
    "gb_pheriphery_externalshutter",
    "label_sbus_Overlay",
    "cbSbusOverlay",
    "gbSonyFCBCameraAdjustements",
    "gbSonyFCBFocus",
    "label_sbuschannel_viewmode_switcthmode",
    "cbSbusViewModeSwitchMode",
};

constexpr const char *blendZoomGroups[] = {
    "comboBoxPort",
    "btConnectDisconnect",
    "gb_pheriphery_externalshutter",
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
    "gb_vlc_ae",
};

constexpr const char *blendFactoryGroups[] = {
    "gb_QXB_LiveViewAdjustements",
    "gb_QXB_ArdviewAdjustements",
};

constexpr const char *blendZoomFactoryGroups[] = {
    "gb_QXBZ_analog",
    "gb_QXBZ_hdmi",
    "gb_QXBZ_ardview",
};

/// The presets of a gimbal, with what the models do not have in common.
template <std::size_t N>
constexpr auto gimbalPresets(const Preset (&ofTheModel)[N])
{
    constexpr Preset before[] = {
        {"isotherms.state", 0, true},
        {"isotherms.switch-mode", 1, false},
        {"sbus.colour-map", channel(6), false},
        {"sbus.colour-map-switch-mode", 1, false},
        {"sbus.ffc", channel(4), false},
        {"sbus.isotherms", channel(8), false},
        {"sbus.isotherm-transparency", sbusDeactivated, false},
        {"sbus.isotherm-lower", channel(9), false},
        {"sbus.isotherm-middle", channel(10), false},
        {"sbus.isotherm-upper", channel(11), false},
        {"sbus.overlay", sbusDeactivated, false},
        {"sbus.trigger", channel(2), false},
        {"sbus.view-mode", channel(5), false},
    };
    constexpr Preset after[] = {
        {"trigger.mode", 1, true},
        {"trigger.frame-mode", 0, true},
        {"liveview.overlay", 0, true},
    };
    std::array<Preset, std::size(before) + N + std::size(after)> all{};
    std::size_t next = 0;
    for (const Preset &preset : before)
        all[next++] = preset;
    for (const Preset &preset : ofTheModel)
        all[next++] = preset;
    for (const Preset &preset : after)
        all[next++] = preset;
    return all;
}

constexpr auto blendGimbal = gimbalPresets({
    {"sbus.zoom", sbusDeactivated, false},
    {"sbus.zoom-mode", 0, false},
    {"sbus.view-mode-switch-mode", 1, false},
});

constexpr auto blendZoomGimbal = gimbalPresets({
    {"sbus.zoom", channel(7), false},
    {"sbus.zoom-mode", 2, false},
});

constexpr Preset blendSbusTrigger[] = {
    {"sbus.overlay", sbusDeactivated, true},
    {"sbus.zoom", sbusDeactivated, true},
};

constexpr Model rows[] = {
    {keyWithoutRecord, "Quorvix 2.0", nullptr, "2.0"},
    {
        thermalCommPacket_Blend_R8_TypeDef::deviceKey,
        "Quorvix Blend",
        "QX Blend",
        "blend",
        20170807,
        QT_TRANSLATE_NOOP("MainWindow",
                          "<p>Outdated firmware detected.<br>Please update the firmware.</p>"),
        "KovoDevices::isValidControlStruct unknown control struct version",
        &layoutOf<thermalCommPacket_Blend_R8_TypeDef>,
        &layoutOf<FactorySettings_QXBlend_TypeDef>,
        {&vocabularies::blendExtension0, &vocabularies::blendExtension1},
        span(blendGroups),
        span(blendFactoryGroups),
        {blendGimbal.data(), int(blendGimbal.size())},
        false,
        span(blendSbusTrigger),
    },
    {
        thermalCommPacket_Blend_Zoom_R13_TypeDef::deviceKey,
        "Quorvix Blend Zoom",
        "QX Blend Zoom",
        "blend-zoom",
        20180122,
        QT_TRANSLATE_NOOP("MainWindow",
                          "<p>Outdated firmware detected.<br>Please update to firmware 1.4.x.</p>"),
        "KovoDevices::isValidControlStruct() unsupported control struct version",
        &layoutOf<thermalCommPacket_Blend_Zoom_R13_TypeDef>,
        &layoutOf<FactorySettings_QXBlendZoom_TypeDef>,
        {&vocabularies::blendZoomExtension0, &vocabularies::blendZoomExtension1},
        span(blendZoomGroups),
        span(blendZoomFactoryGroups),
        {blendZoomGimbal.data(), int(blendZoomGimbal.size())},
        true,
        {},
    },
};

template <class Condition>
const Model *find(Condition condition)
{
    const Model *model = std::find_if(std::begin(rows), std::end(rows), condition);
    return model == std::end(rows) ? nullptr : model;
}

} // namespace

namespace models {

Span<Model> all()
{
    return span(rows);
}

const Model *ofKey(quint32 key)
{
    return find([=](const Model &model) { return model.key == key; });
}

const Model *ofLongName(const QString &name)
{
    return find([&](const Model &model) {
        return name.compare(QLatin1String(model.longName), Qt::CaseInsensitive) == 0;
    });
}

const Model *ofOptionName(const QString &name)
{
    return find([&](const Model &model) { return name == QLatin1String(model.optionName); });
}

} // namespace models
