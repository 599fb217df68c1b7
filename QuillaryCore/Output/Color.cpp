#include "QuillaryCore/Output/Color.h"

#include "QuillaryCore/Foundation/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace Quillary {

namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

constexpr std::size_t channelValues = 256;

double linear(std::uint8_t channel)
{
    static const std::array<double, channelValues> byChannel = [] {
        std::array<double, channelValues> table{};
        for (std::size_t index = 0; index < table.size(); ++index) {
            const double value = static_cast<double>(index) / 255.0;
            table.at(index) = value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        }
        return table;
    }();
    return byChannel[channel];
}

double luminance(const Color& color)
{
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

std::uint8_t mixed(int channel, int percent, int other)
{
    return static_cast<std::uint8_t>((channel * percent + other * (100 - percent) + 50) / 100);
}

} // namespace

std::optional<Color> Color::parse(std::string_view text)
{
    if (text.starts_with('#')) {
        text.remove_prefix(1);
    }
    std::uint32_t value = 0;
    for (const char character : upperCasedASCII(text)) {
        const std::size_t digit = hexDigits.find(character);
        if (digit == std::string_view::npos) {
            return std::nullopt;
        }
        value = value << 4U | static_cast<std::uint32_t>(digit);
    }
    if (text.size() != 6) {
        return std::nullopt;
    }
    return Color{static_cast<std::uint8_t>(value >> 16U),
                 static_cast<std::uint8_t>(value >> 8U),
                 static_cast<std::uint8_t>(value)};
}

std::string Color::hex() const
{
    std::string text = "#";
    for (const std::uint8_t channel : {red, green, blue}) {
        text += hexDigits[channel / 16U];
        text += hexDigits[channel % 16U];
    }
    return text;
}

Color Color::tint(int percent) const
{
    return {mixed(red, percent, 255), mixed(green, percent, 255), mixed(blue, percent, 255)};
}

Color Color::deepened(const Color& ground, double contrastWanted) const
{
    Color result = *this;
    for (int percent = 99; percent >= 0 && contrast(result, ground) < contrastWanted; --percent) {
        result = {mixed(red, percent, 0), mixed(green, percent, 0), mixed(blue, percent, 0)};
    }
    return result;
}

double contrast(const Color& left, const Color& right)
{
    const double first = luminance(left) + 0.05;
    const double second = luminance(right) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

} // namespace Quillary
