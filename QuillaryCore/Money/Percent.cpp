#include "QuillaryCore/Money/Percent.h"

#include "QuillaryCore/Foundation/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>

namespace Quillary::Percent {

namespace {

/// The value of one to `most` digits. No value: any other text.
std::optional<std::int32_t> digits(std::string_view text, std::size_t most)
{
    if (text.empty() || text.size() > most) {
        return std::nullopt;
    }
    std::int32_t value = 0;
    for (const char byte : text) {
        if (byte < '0' || byte > '9') {
            return std::nullopt;
        }
        value = value * 10 + (byte - '0');
    }
    return value;
}

} // namespace

std::optional<std::int32_t> basisPoints(std::string_view text)
{
    constexpr std::int32_t hundredPercent = 10000;
    text = trimmed(text);
    if (text.ends_with('%')) {
        text = trimmed(text.substr(0, text.size() - 1));
    }
    const std::size_t point = text.find_first_of(".,");
    const auto whole = digits(text.substr(0, point), 3);
    std::optional<std::int32_t> fraction = 0;
    if (point != std::string_view::npos) {
        const std::string_view fractionText = text.substr(point + 1);
        fraction = digits(fractionText, 2);
        if (fraction && fractionText.size() == 1) {
            *fraction *= 10;
        }
    }
    if (!whole || !fraction || *whole * 100 + *fraction > hundredPercent) {
        return std::nullopt;
    }
    return *whole * 100 + *fraction;
}

std::string format(std::int32_t basisPoints)
{
    // Rates are never negative; should damaged data hold one, its sign is shown once and in front.
    const char* sign = basisPoints < 0 ? "-" : "";
    const std::int64_t size = std::abs(std::int64_t{basisPoints});
    const std::int64_t whole = size / 100;
    const std::int64_t rest = size % 100;
    if (rest == 0) {
        return fmt::format("{}{}%", sign, whole);
    }
    if (rest % 10 == 0) {
        return fmt::format("{}{}.{}%", sign, whole, rest / 10);
    }
    return fmt::format("{}{}.{:02}%", sign, whole, rest);
}

} // namespace Quillary::Percent
