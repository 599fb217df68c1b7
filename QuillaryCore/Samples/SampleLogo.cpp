#include "QuillaryCore/Samples/SampleLogo.h"

#include "QuillaryCore/Foundation/Precondition.h"

#include <png.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Quillary {

namespace {

constexpr int side = 320;

struct Point
{
    double x;
    double y;
};

/// How much of a pixel lies inside an edge, from its distance to it (negative inside).
double coverage(double distance)
{
    return std::clamp(0.5 - distance, 0.0, 1.0);
}

double distanceToCircle(Point point, Point centre, double radius)
{
    return std::hypot(point.x - centre.x, point.y - centre.y) - radius;
}

/// How much of a pixel is white: the leaf, which two circles share, less its vein.
double leaf(Point point)
{
    constexpr double offset = 62;
    constexpr double radius = 132;
    const double half = 0.5 * side;
    const double first = distanceToCircle(point, {half - offset, half - offset}, radius);
    const double second = distanceToCircle(point, {half + offset, half + offset}, radius);
    // The two circles lie on the falling diagonal, so the leaf and its vein run along the rising one.
    const double vein = std::abs(point.x + point.y - side) / std::sqrt(2.0) - 3.5;
    const double tip = (point.x - point.y) / std::sqrt(2.0) - 40; // the vein ends before the tip
    return coverage(std::max(first, second)) * (1 - coverage(std::max(vein, tip)));
}

std::uint8_t mixed(std::uint8_t channel, double white)
{
    return static_cast<std::uint8_t>(std::lround(channel + (255 - channel) * white));
}

} // namespace

Bytes sampleLogo(const Color& color)
{
    std::vector<std::uint8_t> pixels;
    pixels.reserve(std::size_t{4} * side * side);
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            const Point point{column + 0.5, row + 0.5};
            const double white = leaf(point);
            const double disc = coverage(distanceToCircle(point, {0.5 * side, 0.5 * side}, 0.5 * side - 1));
            pixels.insert(pixels.end(),
                          {mixed(color.red, white),
                           mixed(color.green, white),
                           mixed(color.blue, white),
                           static_cast<std::uint8_t>(std::lround(255 * disc))});
        }
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = side;
    image.height = side;
    image.format = PNG_FORMAT_RGBA;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    Bytes bytes(size);
    const int written = png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels.data(), 0, nullptr);
    precondition(written != 0, "a picture of a fixed size can be written");
    bytes.resize(size);
    return bytes;
}

} // namespace Quillary
