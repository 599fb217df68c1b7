#pragma once

#include "QuillaryCore/Letters/EmailKind.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// What an email's text may leave to be filled in, in the order in which it is offered.
enum class EmailPlaceholder {
    name,
    client,
    document,
    number,
    title,
    total,
    date,
    dueDate,
    validUntil,
    amountDue,
    payBy,
    lateFee,
    daysOverdue,
    business,
};

inline constexpr std::array allEmailPlaceholders = {EmailPlaceholder::name,
                                                    EmailPlaceholder::client,
                                                    EmailPlaceholder::document,
                                                    EmailPlaceholder::number,
                                                    EmailPlaceholder::title,
                                                    EmailPlaceholder::total,
                                                    EmailPlaceholder::date,
                                                    EmailPlaceholder::dueDate,
                                                    EmailPlaceholder::validUntil,
                                                    EmailPlaceholder::amountDue,
                                                    EmailPlaceholder::payBy,
                                                    EmailPlaceholder::lateFee,
                                                    EmailPlaceholder::daysOverdue,
                                                    EmailPlaceholder::business};

/// "due_date": the word between the braces.
[[nodiscard]] std::string_view id(EmailPlaceholder placeholder);

/// "{due_date}", as it stands in a text.
[[nodiscard]] std::string token(EmailPlaceholder placeholder);

/// What it stands for: one English phrase for the list beside the text.
[[nodiscard]] std::string_view summary(EmailPlaceholder placeholder);

/// The placeholder of a word, in whatever case it is written. No value: another word.
[[nodiscard]] std::optional<EmailPlaceholder> emailPlaceholder(std::string_view word);

/// The placeholders that have something to say in an email of a kind, in the order of the enumeration.
[[nodiscard]] std::vector<EmailPlaceholder> available(EmailKind kind);

} // namespace Quillary
