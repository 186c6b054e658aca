#include "records/layouts.h"

#include "records/blendFields.h"
#include "records/blendZoomFields.h"
#include "records/factoryFields.h"

namespace layouts {

const Layout &blend = layoutOf<thermalCommPacket_Blend_R8_TypeDef>;
const Layout &blendZoom = layoutOf<thermalCommPacket_Blend_Zoom_R13_TypeDef>;
const Layout &blendFactory = layoutOf<FactorySettings_QXBlend_TypeDef>;
const Layout &blendZoomFactory = layoutOf<FactorySettings_QXBlendZoom_TypeDef>;

static_assert(ownsEveryByte(layoutOf<thermalCommPacket_Blend_R8_TypeDef>));
static_assert(ownsEveryByte(layoutOf<thermalCommPacket_Blend_Zoom_R13_TypeDef>));
static_assert(ownsEveryByte(layoutOf<FactorySettings_QXBlend_TypeDef>));
static_assert(ownsEveryByte(layoutOf<FactorySettings_QXBlendZoom_TypeDef>));

const Layout *configurationOf(quint32 key)
{
    for (const Layout *layout : {&layoutOf<thermalCommPacket_Blend_R8_TypeDef>,
                                 &layoutOf<thermalCommPacket_Blend_Zoom_R13_TypeDef>})
        if (layout->key == key)
            return layout;
    return nullptr;
}

} // namespace layouts
