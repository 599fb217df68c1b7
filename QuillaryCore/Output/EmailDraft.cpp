#include "QuillaryCore/Output/EmailDraft.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Foundation/Placeholders.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Output/DocumentStrings.h"
#include "QuillaryCore/Output/PrintedDocument.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>

namespace Quillary {

namespace {

EmailKind emailKind(const Document& document)
{
    switch (kind(document).value_or(DocumentKind::invoice)) {
    case DocumentKind::quote:
        return EmailKind::quote;
    case DocumentKind::creditNote:
        return EmailKind::creditNote;
    case DocumentKind::invoice:
    case DocumentKind::recurring:
        break;
    }
    return EmailKind::invoice;
}

} // namespace

std::string EmailDraft::fill(std::string_view text, const Values& values)
{
    return fillPlaceholders(text, [&](const std::string& word) {
        const auto value = std::ranges::find(values, word, &Values::value_type::first);
        return value == values.end() ? std::nullopt : std::optional(value->second);
    });
}

EmailDraft::Values EmailDraft::values(Context& context,
                                      const Document& document,
                                      const Business& business,
                                      std::string_view recipientName,
                                      const Calendar& calendar)
{
    const DocumentLanguage printed = language(document);
    const Locale locale = printLocale(printed, business.countryCode);
    const Client* client = context.find(document.client);
    const std::string clientName = client == nullptr ? "" : displayName(*client);
    const std::string_view name = trimmed(recipientName);
    const auto money = [&](std::int64_t minorUnits) {
        return Money(minorUnits, document.currencyCode).formatted(locale);
    };
    Values values = {{"name", name.empty() ? clientName : std::string(name)},
                     {"client", clientName},
                     {"document", std::string(DocumentStrings(printed).text(headingKey(document)))},
                     {"number", document.number},
                     {"title", document.title},
                     {"total", money(calculateTotals(context, document).total)},
                     {"amount_due", money(amountDueMinorUnits(context, document))},
                     {"business", business.name}};
    const std::pair<std::string_view, const std::optional<Instant>&> dates[] = {
        {"date", document.issueDate}, {"due_date", document.dueDate}, {"valid_until", document.validUntil}};
    for (const auto& [word, date] : dates) {
        if (date) {
            values.emplace_back(word, locale.formatDate(calendar.date(*date)));
        }
    }
    return values;
}

EmailText EmailDraft::text(Context& context,
                           const Document& document,
                           const Business& business,
                           std::string_view recipientName,
                           const Calendar& calendar)
{
    const EmailText words = EmailTemplates::text(context, emailKind(document), language(document));
    const Values filled = values(context, document, business, recipientName, calendar);
    return {std::string(trimmed(fill(words.subject, filled))), fill(words.body, filled)};
}

} // namespace Quillary
