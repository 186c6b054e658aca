#pragma once

#include "records/Layout.h"
#include "records/configurationFields.h"
#include "records/thermalCommPacket_Blend_R8_TypeDef.h"

namespace fields {

inline constexpr auto blend = [] {
    using namespace vocabularies;
    using R = thermalCommPacket_Blend_R8_TypeDef;
    return inOrder(joined(
        periphery<R>(), liveview<R>(), recording<R>(),
        extensions<R>(blendExtension0, blendExtension1), isotherms<R>(), sbus<R>(Role::Setting),
        rows(FIELD(R, sbus_view_mode_switch_mode, "sbus.view-mode-switch-mode",
                   "SBUS view mode switch mode", "", choice(sbusSwitchModes)),
             FIELD(R, vlc_ev_correction, "camera.exposure-correction", "Exposure correction", "",
                   number(-6, 6)),
             FIELD(R, vlc_adaptive_gradation, "camera.adaptive-gradation",
                   "Adaptive gradation correction", "", choice(offOnCapitals)),
             FIELD(R, vlc_white_balance, "camera.white-balance", "White balance", "",
                   choice(whiteBalanceModes)),
             FIELD(R, vlc_focus, "camera.focus", "Focus adjustment", "",
                   number(-31, 31, codecs::sonyFcbFocus))),
        rows(FIXED(R, 43, 0), FIXED(R, 45, 0), FIXED(R, 58, 1600), FIXED(R, 60, 1200),
             FIXED(R, 66, 0), FREE(R, 73), FIXED(R, 81, 0), FREE(R, 84), FREE(R, 193))));
}();

} // namespace fields

template <>
inline constexpr Layout layoutOf<thermalCommPacket_Blend_R8_TypeDef> =
    configurationLayout<thermalCommPacket_Blend_R8_TypeDef>(fields::blend);
