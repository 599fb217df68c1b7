#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace Quillary {

/// The series that hand out numbers.
enum class NumberedKind {
    invoice,
    quote,
    creditNote,
    client,
};

inline constexpr std::array allNumberedKinds = {
    NumberedKind::invoice, NumberedKind::quote, NumberedKind::creditNote, NumberedKind::client};

/// "invoice", "quote", "creditNote", "client": the first part of a sequence key in the library.
[[nodiscard]] std::string_view id(NumberedKind kind);
[[nodiscard]] std::optional<NumberedKind> numberedKindFromID(std::string_view id);

/// "Invoices", "Credit notes": the English heading of the screen.
[[nodiscard]] std::string_view title(NumberedKind kind);

/// Whether a pattern of this kind may name the client: all but the clients' own numbers.
[[nodiscard]] bool allowsClient(NumberedKind kind);

} // namespace Quillary
