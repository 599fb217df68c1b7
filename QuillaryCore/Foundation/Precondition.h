#pragma once

#include <source_location>
#include <string_view>

namespace Quillary {

/// Prints the broken rule with its place to standard error and aborts, in every build type.
[[noreturn]] void stopProgram(std::string_view rule, const std::source_location& where) noexcept;

/// States what a caller must guarantee; a programmer's mistake stops the program instead of making a wrong figure.
/// Input from people, files or assistants never reaches a precondition: it is refused earlier, with a sentence.
inline void
precondition(bool holds, std::string_view rule, const std::source_location& where = std::source_location::current())
{
    if (!holds) [[unlikely]] {
        stopProgram(rule, where);
    }
}

} // namespace Quillary
