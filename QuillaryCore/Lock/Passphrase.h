#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What is kept of a passphrase: a text from which it can't be computed, and that costs whoever tries a tenth of a
/// second and 64 MiB a guess.
///
/// Source: Argon2id (RFC 9106) with libsodium's bounds for interactive use, its parameters and salt in the text.
namespace Quillary::Passphrase {

inline constexpr std::size_t shortest = 6;      ///< Unit: characters
inline constexpr std::size_t longest = 1'000;   ///< Unit: bytes
inline constexpr std::size_t longestHash = 127; ///< Unit: bytes

/// Another text each time. Throws: `UserError` where the memory for it isn't there.
[[nodiscard]] std::string hash(std::string_view passphrase);

/// Whether a text is one that `hash` makes. Says nothing about any passphrase.
[[nodiscard]] bool isHash(std::string_view text);

[[nodiscard]] bool matches(std::string_view passphrase, const std::string& hash);

} // namespace Quillary::Passphrase
