#include "factory/overlay.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace overlay {

namespace {

constexpr double pi = 3.141592653589793;

constexpr int hdmiWidth = 1920;
constexpr int hdmiHeight = 1080;
constexpr int analogPictureWidth = 720;
constexpr int analogPictureHeight = 576;
constexpr int analogFrameHeight = 625; // the vertical centring counts the whole frame

int scaledIrWidth(int e)
{
    return (e * 640) / 256;
}

int scaledIrHeight(int e)
{
    return 2 * e; // 512 lines * e / 256
}

/// Half of a distance in whole pixels, before it meets a scale.
int half(int distance)
{
    return distance / 2;
}

/// Infrared pixels to crop from each side for `overhang` output pixels; 0 without an overhang.
std::optional<int> cropShare(int overhang, int e)
{
    if (overhang < 0)
        return 0;
    if (e == 0)
        return std::nullopt;
    return ((overhang + 1) * 128) / e;
}

std::optional<int> opticsCrop(int scaled, int resolution, double scale)
{
    if (scale == 0.0)
        return std::nullopt;
    return truncated(half(scaled - resolution) / scale);
}

} // namespace

int truncated(double value)
{
    using Limits = std::numeric_limits<int>;
    if (std::isnan(value))
        return 0;
    if (value >= static_cast<double>(Limits::max()))
        return Limits::max();
    if (value <= static_cast<double>(Limits::min()))
        return Limits::min();
    return static_cast<int>(value);
}

double scaleHDMI256(int value)
{
    return value * 0.00390625;
}

std::optional<Ardview> ardviewFromHdmi(const Displacement &hdmi)
{
    const auto &[a, b, c, d, e, f, g] = hdmi;
    if (e == 0)
        return std::nullopt;
    const double s = scaleHDMI256(e);
    Ardview out;
    out.xShift = truncated(f * s - half(scaledIrWidth(e) - c)) + (half(hdmiWidth - c) - a);
    out.yShift = (half(hdmiHeight - d) - b) + truncated(g * s - half(scaledIrHeight(e) - d));
    out.scale = truncated((1.0 / (e / 1000.0)) * 256.0);
    return out;
}

int analogWidth(int width)
{
    return width > 1441 ? analogPictureWidth : width / 2;
}

int analogHeight(int height)
{
    return height > 1153 ? analogPictureHeight : height / 2;
}

std::optional<Displacement> analogFromHdmi(const Displacement &hdmi)
{
    const auto &[a, b, c, d, e, f, g] = hdmi;
    if (e == 0)
        return std::nullopt;
    const double s = scaleHDMI256(e);
    const int w = truncated(s * 640.0);
    const int h = truncated(s * 512.0);
    const int w2 = w / 2;
    const int h2 = h / 2;
    const double hs = scaleHDMI256(e / 2);

    const int t = truncated(half(w - c) / s);
    const int u = truncated(half(h - d) / s);
    if (hs == 0.0 && (t > 0 || u > 0))
        return std::nullopt;

    Displacement out;
    if (f == 0)
        out.a = std::max(0, (a - half(hdmiWidth - w)) + half(analogPictureWidth - w2));
    if (g == 0)
        out.b = std::max(0, (half(hdmiHeight - h) - b) + half(analogFrameHeight - h2));
    out.c = analogWidth(w);
    out.d = analogHeight(h);
    out.e = e / 2;
    if (t > 0)
        out.f = t - f + truncated(half(w2 - analogPictureWidth) / hs);
    if (u > 0)
        out.g = u - g + truncated(half(h2 - analogPictureHeight) / hs);
    return out;
}

Shares hdmiShares(const ScaleChange &change)
{
    const int w = scaledIrWidth(change.e);
    const int h = scaledIrHeight(change.e);
    const int over = change.a + w - change.resX;
    const int overV = change.b + h - change.resY;
    Shares out;
    out.c = over < 0 ? w : w - (over + 1);
    out.d = overV < 0 ? h : h - (overV + 1);
    out.f = cropShare(over, change.e);
    out.g = cropShare(overV, change.e);
    return out;
}

Shares analogShares(const ScaleChange &change)
{
    const int w = scaledIrWidth(change.e);
    const int h = scaledIrHeight(change.e);
    Shares out;
    out.c = w >= change.resX ? change.resX - 1 : w;
    out.d = h >= change.resY ? change.resY - 1 : h;
    out.f = cropShare(change.a + w - change.resX, change.e);
    out.g = cropShare(change.b + h - change.resY, change.e);
    return out;
}

FieldOfView fieldOfView(const Camera &camera)
{
    const auto degrees = [&](double size) {
        return 2.0 * std::atan((size / 2.0) / camera.focalLength) * 180.0 / pi;
    };
    return {degrees(camera.sizeX), degrees(camera.sizeY)};
}

int centredA(int resX, int scaledX)
{
    return resX <= scaledX ? 0 : truncated((resX - scaledX) * 0.5);
}

OpticsPlacement placementFromOptics(const Optics &optics)
{
    const auto &[resX, resY, irResX, scaledX, scaledY] = optics;
    OpticsPlacement out;
    if (irResX != 0)
        out.scale = static_cast<double>(scaledX) / irResX;
    out.e = truncated(out.scale * 256);

    out.cropsX = resX <= scaledX;
    out.a = centredA(resX, scaledX);
    out.c = std::min(scaledX, resX);
    out.f = out.cropsX ? opticsCrop(scaledX, resX, out.scale) : 0;

    out.cropsY = resY <= scaledY;
    out.b = out.cropsY ? 0 : half(resY - scaledY);
    out.d = std::min(scaledY, resY);
    out.g = out.cropsY ? opticsCrop(scaledY, resY, out.scale) : 0;
    return out;
}

std::optional<Parallax> parallax(const Sight &sight)
{
    Parallax out;
    out.imageAreaX = 2 * sight.distance * std::tan(sight.fieldOfViewH / 180.0 * pi * 0.5);
    if (out.imageAreaX == 0.0)
        return std::nullopt;
    out.pixelPerCentimeter = std::clamp(sight.resX / (out.imageAreaX * 100),
                                        -maximumPixelPerCentimeter, maximumPixelPerCentimeter);
    out.shift = truncated(sight.disparity * 100 * out.pixelPerCentimeter);
    return out;
}

} // namespace overlay
