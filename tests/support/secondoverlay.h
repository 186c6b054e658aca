#pragma once

#include "factory/overlay.h"

#include <QtGlobal>

#include <cmath>

/// Second computations. The scale is a fraction E / 256, so every truncated product or quotient is
/// one exact division of 64-bit integers; only the viewer's scale is prescribed in double steps.
namespace second {

using overlay::Ardview;
using overlay::Displacement;
using Int = qint64;

inline Ardview ardview(const Displacement &v)
{
    const Int e = v.e;
    const Int halfX = (e * 640 / 256 - v.c) / 2;
    const Int halfY = (e * 2 - v.d) / 2;
    Ardview out;
    out.xShift = int((v.f * e - halfX * 256) / 256 + (1920 - v.c) / 2 - v.a);
    out.yShift = int((1080 - v.d) / 2 - v.b + (v.g * e - halfY * 256) / 256);
    const double thousandths = v.e / 1000.0;
    const double inverse = 1.0 / thousandths;
    out.scale = int(std::trunc(inverse * 256.0));
    return out;
}

inline int notNegative(Int value)
{
    return value < 0 ? 0 : int(value);
}

inline Displacement analog(const Displacement &v)
{
    const Int e = v.e;
    const Int width = e * 640 / 256;
    const Int height = e * 512 / 256;
    const Int halfE = e / 2;
    Displacement out;
    out.a = v.f != 0 ? 0 : notNegative(v.a - (1920 - width) / 2 + (720 - width / 2) / 2);
    out.b = v.g != 0 ? 0 : notNegative((1080 - height) / 2 - v.b + (625 - height / 2) / 2);
    out.c = width >= 1442 ? 720 : int(width / 2);
    out.d = height >= 1154 ? 576 : int(height / 2);
    out.e = int(halfE);
    const Int t = (width - v.c) / 2 * 256 / e;
    const Int u = (height - v.d) / 2 * 256 / e;
    out.f = t <= 0 ? 0 : int(t - v.f + (width / 2 - 720) / 2 * 256 / halfE);
    out.g = u <= 0 ? 0 : int(u - v.g + (height / 2 - 576) / 2 * 256 / halfE);
    return out;
}

} // namespace second
