#pragma once

#include <optional>

/// Arithmetic of the overlay: where the camera's FPGA lays the scaled infrared picture (640 x 512)
/// over the visible one. Integers are 32 bits wide and wrap around; every integer division and
/// every step from double to integer truncates toward zero.
namespace overlay {

/// Placement of the infrared picture on one video output.
struct Displacement
{
    int a = 0; ///< horizontal position, output pixels
    int b = 0; ///< vertical position, output lines
    int c = 0; ///< visible width, output pixels
    int d = 0; ///< visible height, output lines
    int e = 0; ///< scale of the infrared picture, 256 means 1:1
    int f = 0; ///< horizontal crop of the infrared picture, 0 means none
    int g = 0; ///< vertical crop of the infrared picture, 0 means none
};

/// Placement in the desktop viewer.
struct Ardview
{
    int xShift = 0;
    int yShift = 0;
    int scale = 0;
};

/// Cuts off the fraction; values beyond 32 bits give the nearest 32-bit number, NaN gives 0.
int truncated(double value);

/// Scale in 1/256 units as a factor: value / 256.
double scaleHDMI256(int value);

/// Viewer placement that belongs to an HDMI placement; nothing where it would divide by zero (E =
/// 0).
std::optional<Ardview> ardviewFromHdmi(const Displacement &hdmi);

/// Analog placement that belongs to an HDMI placement; nothing where it would divide by zero: E =
/// 0, and E = 1 or -1 (whose half is 0) when a crop is to be computed.
std::optional<Displacement> analogFromHdmi(const Displacement &hdmi);

/// Visible width and height on the analog output (720 x 576) of a picture scaled for HDMI.
int analogWidth(int width);
int analogHeight(int height);

/// What the share calculation of a scale change needs to know.
struct ScaleChange
{
    int e = 0; ///< new scale, 0 or more
    int a = 0;
    int b = 0;
    int resX = 0; ///< resolution of the output
    int resY = 0;
};

/// Calculated shares of C, D, F and G. A crop whose formula would divide by zero has no value.
struct Shares
{
    int c = 0;
    int d = 0;
    std::optional<int> f;
    std::optional<int> g;
};

/// On HDMI the visible part ends at the output's edge: the overhang beyond A (or B) is cut off.
Shares hdmiShares(const ScaleChange &change);
/// On the analog output the visible part is limited to the resolution less one, regardless of A.
Shares analogShares(const ScaleChange &change);

/// A sensor behind a lens; lengths in millimetres.
struct Camera
{
    double sizeX = 0;
    double sizeY = 0;
    double focalLength = 0;
};

/// Fields of view in degrees.
struct FieldOfView
{
    double horizontal = 0;
    double vertical = 0;
};

FieldOfView fieldOfView(const Camera &camera);

/// Starting point of the optics computation: the resolution of the HDMI output, that of the
/// infrared sensor, and the size in output pixels at which the infrared picture fits the visible.
struct Optics
{
    int resX = 0;
    int resY = 0;
    int irResX = 0;
    int scaledX = 0;
    int scaledY = 0;
};

/// Placement from the optics. On an axis that crops, the position is 0 and the calculated share of
/// the crop has no value if the scale is 0.
struct OpticsPlacement
{
    double scale = 0; ///< scaledX / irResX, 0 for an irResX of 0
    int e = 0;
    bool cropsX = false; ///< the infrared picture fills the output's width
    int a = 0;
    int c = 0;
    std::optional<int> f;
    bool cropsY = false; ///< the infrared picture fills the output's height
    int b = 0;
    int d = 0;
    std::optional<int> g;
};

OpticsPlacement placementFromOptics(const Optics &optics);

/// Horizontal position that centres the infrared picture, 0 if it fills the output.
int centredA(int resX, int scaledX);

/// What the parallax between the two lenses depends on.
struct Sight
{
    int resX = 0;            ///< output pixels
    double fieldOfViewH = 0; ///< of the visible camera, degrees
    double distance = 0;     ///< metres to the target
    double disparity = 0;    ///< metres between the lenses
};

struct Parallax
{
    double imageAreaX = 0;         ///< width of the scene at that distance, metres
    double pixelPerCentimeter = 0; ///< of the scene, at most maximumPixelPerCentimeter
    int shift = 0;                 ///< output pixels
};

constexpr double maximumPixelPerCentimeter = 1000.0;

/// Offset of the lenses in the picture; nothing if the scene has no width.
std::optional<Parallax> parallax(const Sight &sight);

} // namespace overlay
