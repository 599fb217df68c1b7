#pragma once

#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/NumberedKind.h"
#include "QuillaryCore/Numbering/NumberFormatError.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// A pattern offered in the settings, with the words that describe it.
struct NumberPreset
{
    std::string_view title;
    std::string pattern;

    friend bool operator==(const NumberPreset&, const NumberPreset&) = default;
};

/// The patterns offered for a kind, in the order of the menu. Each is accepted by `setFormat`.
[[nodiscard]] std::vector<NumberPreset> presets(NumberedKind kind);

/// The pattern that a new business starts with.
[[nodiscard]] std::string_view defaultFormat(NumberedKind kind);

/// The stored pattern of a kind, as it was typed; may be one that doesn't parse.
[[nodiscard]] const std::string& format(NumberedKind kind, const Business& business);

/// Stores a pattern unchanged, if it parses. No value: it is stored; else it isn't, and this is why.
[[nodiscard]] std::optional<NumberFormatError>
setFormat(NumberedKind kind, std::string_view pattern, Business& business);

} // namespace Quillary
