#include "QuillaryCore/Letters/EmailPlaceholder.h"

#include "QuillaryCore/Foundation/Text.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace Quillary {

namespace {

struct Entry
{
    EmailPlaceholder placeholder;
    std::string_view id;
    std::string_view summary;
};

constexpr Entry entries[] = {
    {EmailPlaceholder::name, "name", "Who you're writing to"},
    {EmailPlaceholder::client, "client", "The client's name"},
    {EmailPlaceholder::document, "document", "Invoice, Quote or Credit Note, in the document's language"},
    {EmailPlaceholder::number, "number", "The document's number"},
    {EmailPlaceholder::title, "title", "The document's title"},
    {EmailPlaceholder::total, "total", "The total, e.g. €1,190.00"},
    {EmailPlaceholder::date, "date", "The document's date"},
    {EmailPlaceholder::dueDate, "due_date", "When an invoice is due"},
    {EmailPlaceholder::validUntil, "valid_until", "Until when a quote is valid"},
    {EmailPlaceholder::amountDue, "amount_due", "What's still owed, with late fees"},
    {EmailPlaceholder::payBy, "pay_by", "The new date a reminder asks to be paid by"},
    {EmailPlaceholder::lateFee, "late_fee", "The late fee this reminder adds"},
    {EmailPlaceholder::daysOverdue, "days_overdue", "How many days the invoice is overdue"},
    {EmailPlaceholder::business, "business", "Your business name"},
};

constexpr bool standInTheOrderOfThePlaceholders()
{
    for (std::size_t index = 0; index < std::size(entries); ++index) {
        if (static_cast<std::size_t>(entries[index].placeholder) != index ||
            allEmailPlaceholders.at(index) != entries[index].placeholder) {
            return false;
        }
    }
    return std::size(entries) == allEmailPlaceholders.size();
}
static_assert(standInTheOrderOfThePlaceholders());

const Entry& entry(EmailPlaceholder placeholder)
{
    return entries[static_cast<std::size_t>(placeholder)];
}

bool isOffered(EmailPlaceholder placeholder, EmailKind kind)
{
    const bool isReminder = reminderLevel(kind).has_value();
    switch (placeholder) {
    case EmailPlaceholder::dueDate:
        return kind != EmailKind::quote;
    case EmailPlaceholder::validUntil:
        return kind == EmailKind::quote;
    case EmailPlaceholder::amountDue:
        return kind == EmailKind::invoice || isReminder;
    case EmailPlaceholder::payBy:
    case EmailPlaceholder::lateFee:
    case EmailPlaceholder::daysOverdue:
        return isReminder;
    case EmailPlaceholder::name:
    case EmailPlaceholder::client:
    case EmailPlaceholder::document:
    case EmailPlaceholder::number:
    case EmailPlaceholder::title:
    case EmailPlaceholder::total:
    case EmailPlaceholder::date:
    case EmailPlaceholder::business:
        break;
    }
    return true;
}

} // namespace

std::string_view id(EmailPlaceholder placeholder)
{
    return entry(placeholder).id;
}

std::string token(EmailPlaceholder placeholder)
{
    return std::string("{").append(id(placeholder)).append("}");
}

std::string_view summary(EmailPlaceholder placeholder)
{
    return entry(placeholder).summary;
}

std::optional<EmailPlaceholder> emailPlaceholder(std::string_view word)
{
    const auto* const found = std::ranges::find(entries, std::string_view(lowerCasedASCII(word)), &Entry::id);
    return found == std::end(entries) ? std::nullopt : std::optional(found->placeholder);
}

std::vector<EmailPlaceholder> available(EmailKind kind)
{
    std::vector<EmailPlaceholder> result;
    std::ranges::copy_if(allEmailPlaceholders, std::back_inserter(result), [kind](EmailPlaceholder placeholder) {
        return isOffered(placeholder, kind);
    });
    return result;
}

} // namespace Quillary
