#pragma once

#include "records/FactorySettingsRecords.h"
#include "records/Layout.h"
#include "records/fieldrows.h"

namespace fields {

/// The form takes seven characters, so that a zero byte ends the text.
constexpr Meaning serialNumber()
{
    return {codecs::plain, {0, 7}};
}

/// One row for each of the ten zoom positions of a table, whose name begins with `prefix`.
template <class Text>
constexpr std::array<Field, 10> zoomPositions(Wire first, const Text (&names)[10],
                                              const Text (&titles)[10])
{
    std::array<Field, 10> positions{};
    for (std::size_t zoom = 0; zoom < positions.size(); ++zoom) {
        Wire wire = first;
        wire.offset += static_cast<int>(zoom) * first.size();
        positions[zoom] = editable(
            wire, names[zoom], titles[zoom], "",
            number(static_cast<double>(wire.minimum()), static_cast<double>(wire.maximum())));
    }
    return positions;
}

#define TEN_NAMES(prefix)                                                                          \
    {                                                                                              \
        prefix "1", prefix "2", prefix "3", prefix "4", prefix "5", prefix "6", prefix "7",        \
            prefix "8", prefix "9", prefix "10"                                                    \
    }

inline constexpr auto blendZoomFactory = [] {
    using R = FactorySettings_QXBlendZoom_TypeDef;
    constexpr const char *ardviewNames[] = TEN_NAMES("ardview.zoom");
    constexpr const char *ardviewTitles[] = TEN_NAMES("Ardview X-Shift, Y-Shift, Scale, zoom ");
    constexpr const char *hdmiNames[] = TEN_NAMES("hdmi.zoom");
    constexpr const char *hdmiTitles[] = TEN_NAMES("HDMI output A to G, zoom ");
    constexpr const char *analogNames[] = TEN_NAMES("analog.zoom");
    constexpr const char *analogTitles[] = TEN_NAMES("Analog output A to G, zoom ");
    return joined(
        rows(fixed(WIRE(R, struct_version), "record.version", R::version),
             FIELD(R, device_serial_number, "serial-number", "Serial number", "", serialNumber())),
        zoomPositions(WireOf<std::array<le_i32, 3>>::at(offsetof(R, ardview_adjust)), ardviewNames,
                      ardviewTitles),
        zoomPositions(WireOf<FpgaDisplacement>::at(offsetof(R, hdmi_displacement)), hdmiNames,
                      hdmiTitles),
        zoomPositions(WireOf<FpgaDisplacement>::at(offsetof(R, analog_displacement)), analogNames,
                      analogTitles));
}();

#undef TEN_NAMES

inline constexpr auto blendFactory = [] {
    using R = FactorySettings_QXBlend_TypeDef;
    return rows(
        FIELD(R, device_serial_number, "serial-number", "Serial number", "", serialNumber()),
        FIELD(R, ardview_horizontal, "ardview.horizontal", "Ardview horizontal adjustment", "",
              number(-99, 99)),
        FIELD(R, ardview_vertical, "ardview.vertical", "Ardview vertical adjustment", "",
              number(-99, 99)),
        FIELD(R, liveview_horizontal, "liveview.horizontal", "Live view horizontal adjustment", "",
              number(0, 99, codecs::shifted<40>)),
        FIELD(R, liveview_vertical, "liveview.vertical", "Live view vertical adjustment", "",
              number(0, 99, codecs::shifted<12>)),
        FIELD(R, ardview_scale, "ardview.scale", "Ardview scale", "", number(1, 999)));
}();

} // namespace fields

template <>
inline constexpr Layout layoutOf<FactorySettings_QXBlendZoom_TypeDef>{
    0, 0, sizeof(FactorySettings_QXBlendZoom_TypeDef), fields::blendZoomFactory.data(),
    int(fields::blendZoomFactory.size())};

template <>
inline constexpr Layout layoutOf<FactorySettings_QXBlend_TypeDef>{
    0, 0, sizeof(FactorySettings_QXBlend_TypeDef), fields::blendFactory.data(),
    int(fields::blendFactory.size())};
