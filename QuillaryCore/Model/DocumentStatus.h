#pragma once

#include <cstdint>
#include <optional>

namespace Quillary {

struct Document;

/// How far a document has come, as stored in `Document::statusRaw`. What the user sees is `DisplayStatus`.
enum class DocumentStatus : std::int16_t {
    draft = 0,
    sent = 1,
    paid = 2,
    accepted = 3,
    declined = 4,
};

/// No value: a stored number that no status has.
[[nodiscard]] std::optional<DocumentStatus> documentStatusFromRaw(std::int16_t raw);

[[nodiscard]] std::optional<DocumentStatus> status(const Document& document);

} // namespace Quillary
