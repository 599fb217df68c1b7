#include "QuillaryCore/Letters/EmailDraft.h"

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryCore/Foundation/Placeholders.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Output/DocumentStrings.h"
#include "QuillaryCore/Output/PrintedDocument.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace Quillary {

namespace {

std::optional<std::string> valueOf(std::string_view word, const EmailDraft::Values& values)
{
    const auto placeholder = emailPlaceholder(word);
    const auto value = placeholder ? values.find(*placeholder) : values.end();
    return value == values.end() ? std::nullopt : std::optional(value->second);
}

void addReminder(EmailDraft::Values& values,
                 const EmailDraft::Matter& matter,
                 const Locale& locale,
                 Instant today,
                 const Calendar& calendar)
{
    const ReminderDetails& details = matter.reminder->details;
    values[EmailPlaceholder::payBy] = locale.formatDate(calendar.date(details.payBy));
    values[EmailPlaceholder::lateFee] = Money(details.feeMinorUnits, matter.document.currencyCode).formatted(locale);
    values[EmailPlaceholder::daysOverdue] = std::to_string(daysOverdue(matter.document, today, calendar));
}

} // namespace

std::string EmailDraft::fill(std::string_view text, const Values& values)
{
    return fillPlaceholders(text, [&values](const std::string& word) { return valueOf(word, values); });
}

EmailText EmailDraft::fill(const EmailText& text, const Values& values)
{
    return {std::string(trimmed(fill(text.subject, values))), fill(text.body, values)};
}

std::vector<std::string> EmailDraft::unfilled(const EmailText& text, const Values& values)
{
    std::vector<std::string> result;
    std::set<std::string> known;
    const auto note = [&](const std::string& word) -> std::optional<std::string> {
        if (word.empty() || word.find_first_of("{ \t\n") != std::string::npos) {
            return std::nullopt;
        }
        if (!valueOf(word, values) && known.insert(lowerCasedASCII(word)).second) {
            result.push_back("{" + word + "}");
        }
        return std::string();
    };
    for (const std::string& part : {text.subject, text.body}) {
        static_cast<void>(fillPlaceholders(part, note));
    }
    return result;
}

EmailDraft::Values EmailDraft::values(Context& context, const Matter& matter, Instant today, const Calendar& calendar)
{
    const Document& document = matter.document;
    const DocumentLanguage printed = language(document);
    const Locale& locale = printLocale(printed, matter.business.countryCode);
    const Client* client = context.find(document.client);
    const std::string clientName = client == nullptr ? "" : displayName(*client);
    const std::string_view name = trimmed(matter.recipientName);
    const auto money = [&](std::int64_t minorUnits) {
        return Money(minorUnits, document.currencyCode).formatted(locale);
    };
    const std::int64_t due = matter.reminder == nullptr
                                 ? amountDueMinorUnits(context, document)
                                 : reminderFigures(context, document, *matter.reminder).amountDue;
    Values values = {{EmailPlaceholder::name, name.empty() ? clientName : std::string(name)},
                     {EmailPlaceholder::client, clientName},
                     {EmailPlaceholder::document, std::string(DocumentStrings(printed).text(headingKey(document)))},
                     {EmailPlaceholder::number, document.number},
                     {EmailPlaceholder::title, document.title},
                     {EmailPlaceholder::total, money(calculateTotals(context, document).total)},
                     {EmailPlaceholder::amountDue, money(due)},
                     {EmailPlaceholder::business, matter.business.name}};
    const std::pair<EmailPlaceholder, const std::optional<Instant>&> dates[] = {
        {EmailPlaceholder::date, document.issueDate},
        {EmailPlaceholder::dueDate, document.dueDate},
        {EmailPlaceholder::validUntil, document.validUntil}};
    for (const auto& [placeholder, date] : dates) {
        if (date) {
            values[placeholder] = locale.formatDate(calendar.date(*date));
        }
    }
    if (matter.reminder != nullptr) {
        addReminder(values, matter, locale, today, calendar);
    }
    return values;
}

} // namespace Quillary
