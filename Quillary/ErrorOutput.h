#pragma once

#include <string_view>

namespace Quillary {

/// What a program that serves others says on standard error. Nobody may be left to read it, which must neither end nor
/// stop the program.
namespace ErrorOutput {

/// Writes what can be written at once, and drops the rest.
void write(std::string_view text) noexcept;

/// The same, with a line break after it.
void writeLine(std::string_view sentence) noexcept;

/// Lets a write to a pipe that nobody reads fail, where it otherwise ends the program. A program started from this one
/// gets the usual behaviour back.
void surviveBrokenPipes() noexcept;

} // namespace ErrorOutput

} // namespace Quillary
