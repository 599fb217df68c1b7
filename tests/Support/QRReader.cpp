#include "tests/Support/QRReader.h"

#include <ZXing/ReadBarcode.h>
#include <png.h>

#include <cstdint>
#include <vector>

namespace Quillary {

std::optional<std::string> readQRCode(std::string_view png)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, png.data(), png.size()) == 0) {
        return std::nullopt;
    }
    image.format = PNG_FORMAT_GRAY;
    std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(image));
    const png_color white{255, 255, 255}; // what a transparent picture is seen on
    if (png_image_finish_read(&image, &white, pixels.data(), 0, nullptr) == 0) {
        return std::nullopt;
    }
    ZXing::DecodeHints hints;
    hints.setFormats(ZXing::BarcodeFormat::QRCode);
    const auto result = ZXing::ReadBarcode(
        {pixels.data(), static_cast<int>(image.width), static_cast<int>(image.height), ZXing::ImageFormat::Lum}, hints);
    if (!result.isValid()) {
        return std::nullopt;
    }
    return result.text();
}

} // namespace Quillary
