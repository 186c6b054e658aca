#pragma once

#include "records/Layout.h"
#include "records/configurationFields.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"

namespace fields {

inline constexpr auto blendZoom = [] {
    using namespace vocabularies;
    using R = thermalCommPacket_Blend_Zoom_R13_TypeDef;
    return inOrder(joined(
        periphery<R>(), liveview<R>(), recording<R>(),
        extensions<R>(blendZoomExtension0, blendZoomExtension1), isotherms<R>(),
        sbus<R>(Role::WriteOnly),
        rows(
            FIELD(R, sbus_zoom, "sbus.zoom", "SBUS zoom", "", choice(sbusChannels)),
            FIELD(R, sbus_zoom_mode, "sbus.zoom-mode", "SBUS zoom mode", "", choice(sbusZoomModes)),
            FIELD(R, sbus_inverted, "sbus.inverted", "SBUS signal inverted", "", choice(offOn)),
            FIELD(R, analog_video_mode, "video.analog", "Video standard", "",
                  choice(analogVideoModes)),
            FIELD(R, hdmi_video_mode, "video.hdmi", "HDMI video mode", "", choice(hdmiVideoModes)),
            FIELD(R, vlc_model, "camera.model", "Camera model", "", choice(visibleCameras)),
            FIELD(R, vlc_ae_mode, "camera.exposure-mode", "Exposure mode", "",
                  choice(exposureModes)),
            FIELD(R, vlc_ae_shutter_speed, "camera.shutter-speed", "Shutter speed", "",
                  choice(shutterSpeeds)),
            FIELD(R, tamron_focus_mode, "camera.focus-mode", "Focus mode", "",
                  choice(tamronFocusModes)),
            FIELD(R, tamron_focus_position, "camera.focus-position", "Focus position", "",
                  number(4096, 45056)),
            FIELD(R, vibration_compensation, "camera.vibration-compensation",
                  "Vibration Compensation", "", choice(vibrationCompensations)),
            FIELD(R, zoom_step, "camera.zoom", "Zoom factor", "",
                  number(1, 10, codecs::shifted<-1>)),
            FIELD(R, jpeg_quality_daylight, "recording.jpeg-quality", "JPEG quality", "%",
                  number(1, 99)),
            FIELD(R, image_output, "recording.output", "Image output", "", choice(imageOutputs)),
            FIELD(R, advanced_sync, "recording.advanced-sync", "Advanced sync", "",
                  choice(offOnCapitals)),
            FIELD(R, ir_test_mode, "test.ir-camera", "IR camera test mode", "", choice(testModes))),
        rows(FIXED(R, 45, 0), FIXED(R, 47, 0), FIXED(R, 61, 8), FIXED_BYTE(R, 64, 64, 0x11),
             FIXED_BYTE(R, 64, 65, 0x01), FIXED_BYTE(R, 64, 66, 0x03), FIXED_BYTE(R, 64, 67, 0x03),
             FIXED(R, 68, 7), FIXED(R, 73, 0x8000), FIXED(R, 75, 0x80), FIXED(R, 85, 0),
             FIXED(R, 94, 0), FIXED(R, 99, 115200), FIXED_BYTE(R, 103, 103, 8),
             FIXED_BYTE(R, 103, 104, 0), FIXED_BYTE(R, 103, 105, 1), FIXED_BYTE(R, 103, 106, 0),
             FIXED(R, 209, 3000), FIXED(R, 213, 0), FREE(R, 214))));
}();

} // namespace fields

template <>
inline constexpr Layout layoutOf<thermalCommPacket_Blend_Zoom_R13_TypeDef> =
    configurationLayout<thermalCommPacket_Blend_Zoom_R13_TypeDef>(fields::blendZoom);
