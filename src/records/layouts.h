#pragma once

#include "records/Layout.h"

/// The records that the tool knows.
namespace layouts {

extern const Layout &blend;     ///< configuration, revision 8
extern const Layout &blendZoom; ///< configuration, revision 13
extern const Layout &blendFactory;
extern const Layout &blendZoomFactory;

/// The configuration record of the model with that key; null if none is known.
const Layout *configurationOf(quint32 key);

} // namespace layouts
