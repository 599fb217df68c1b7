#pragma once

#include <stdexcept>
#include <string>

namespace Quillary {

/// Something that a person or the outside world has to mend. Carries the finished sentence for the screen.
/// Derived errors add a `Reason` for code.
class UserError : public std::runtime_error
{
public:
    explicit UserError(const std::string& message)
        : std::runtime_error(message)
    {
    }

    /// The finished sentence, UTF-8.
    [[nodiscard]] std::string message() const { return what(); }
};

} // namespace Quillary
