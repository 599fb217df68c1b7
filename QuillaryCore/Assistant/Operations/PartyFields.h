#pragma once

#include "QuillaryCore/Assistant/Tools/Arguments.h"

#include <span>
#include <string>
#include <string_view>

namespace Quillary {

/// One plain text argument and the field of a business or client that it fills.
template <class Record>
struct TextField
{
    std::string_view argument;
    std::string Record::* member;
};

// The checks that a business's and a client's details share. Each throws `AssistantError` that names the argument; an
// empty text clears the field and needs no check.

/// ISO 3166-1 alpha-2, upper-cased.
[[nodiscard]] std::optional<std::string> countryArgument(const Arguments& arguments);

/// An email address of the usual form.
[[nodiscard]] std::optional<std::string> emailArgument(const Arguments& arguments);

/// A VAT ID as it is compared and stored: upper case, without the spaces, dots, dashes and slashes between its groups.
[[nodiscard]] std::string compactVATID(std::string_view text);

/// A compact VAT ID with at least one digit, in its country's form where that is known. "none" clears the field.
[[nodiscard]] std::optional<std::string> vatIDArgument(const Arguments& arguments);

/// "none": there is no VAT ID, which is more than not knowing one.
[[nodiscard]] bool saysNone(std::string_view vatID);

/// A valid IBAN without spaces, and a valid BIC, both in upper case.
[[nodiscard]] std::optional<std::string> ibanArgument(const Arguments& arguments);
[[nodiscard]] std::optional<std::string> bicArgument(const Arguments& arguments);

/// Fills every given text field. True when one was given.
template <class Record>
void applyTexts(Record& record,
                std::span<const TextField<Record>> fields,
                const Arguments& arguments,
                std::size_t limit)
{
    for (const TextField<Record>& field : fields) {
        if (auto text = arguments.line(field.argument, limit)) {
            record.*field.member = std::move(*text);
        }
    }
}

} // namespace Quillary
