#include "QuillaryCore/Billing/LateFees.h"
#include "QuillaryCore/Letters/EmailDraft.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Output/DocumentStrings.h"
#include "QuillaryCore/Output/PrintedDocument.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

namespace Quillary {

namespace {

struct Words
{
    std::string_view name;
    std::string_view client;
    std::string_view title;
    std::string_view business; ///< while the user's own has no name
};

/// In the order of `DocumentLanguage`.
constexpr std::array<Words, allDocumentLanguages.size()> words = {{
    {"Emma Clark", "Clark & Sons Ltd", "Website redesign", "Northfield Studio"},
    {"Anna Weber", "Weber Holzbau GmbH", "Neugestaltung der Website", "Studio Nordlicht"},
    {"Camille Martin", "Menuiserie Martin", "Refonte du site web", "Atelier du Nord"},
    {"Lucía García", "Muebles García S.L.", "Rediseño del sitio web", "Estudio Norte"},
    {"Sanne de Vries", "De Vries Timmerwerken", "Nieuwe website", "Studio Noord"},
    {"Giulia Rossi", "Rossi Arredamenti", "Nuovo sito web", "Studio Nord"},
}};

constexpr std::int64_t total = 1190; ///< in whole units of the currency
constexpr int usualTerms = 14;

/// A business that never chose leaves no days at all.
int days(std::int16_t chosen)
{
    return chosen > 0 ? chosen : usualTerms;
}

/// Each reminder comes when the payment time of the one before it is over.
int overdueDays(ReminderLevel level, int reminderDays)
{
    return 1 + (static_cast<int>(level) - 1) * (reminderDays + 1);
}

DocumentStrings::Key heading(EmailKind kind)
{
    switch (kind) {
    case EmailKind::quote:
        return DocumentStrings::Key::quote;
    case EmailKind::creditNote:
        return DocumentStrings::Key::creditNote;
    case EmailKind::invoice:
    case EmailKind::reminder:
    case EmailKind::secondReminder:
    case EmailKind::finalNotice:
        break;
    }
    return DocumentStrings::Key::invoice;
}

} // namespace

EmailDraft::Values EmailDraft::sampleValues(
    EmailKind kind, DocumentLanguage language, const Business& business, Instant today, const Calendar& calendar)
{
    const Words& made = words.at(static_cast<std::size_t>(language));
    const Locale& locale = printLocale(language, business.countryCode);
    std::int64_t amount = total;
    for (int digit = 0; digit < Money::fractionDigits(business.currencyCode); ++digit) {
        amount *= 10;
    }
    const auto money = [&](std::int64_t minorUnits) {
        return Money(minorUnits, business.currencyCode).formatted(locale);
    };
    const auto day = [&](int daysFromToday) {
        return locale.formatDate(calendar.date(calendar.addingDays(today, daysFromToday)));
    };
    const std::optional<ReminderLevel> level = reminderLevel(kind);
    const int reminderDays = days(business.reminderPaymentDays);
    const int overdue = level ? overdueDays(*level, reminderDays) : 0;
    const int terms = days(business.paymentTermsDays);
    const int issued = level ? -overdue - terms : 0;
    const std::int64_t fee = level ? lateFee(business, *level, amount, business.currencyCode) : 0;
    const auto year = static_cast<int>(calendar.date(calendar.addingDays(today, issued)).year());

    Values values = {
        {EmailPlaceholder::name, std::string(made.name)},
        {EmailPlaceholder::client, std::string(made.client)},
        {EmailPlaceholder::document, std::string(DocumentStrings(language).text(heading(kind)))},
        {EmailPlaceholder::number, std::to_string(year) + "-042"},
        {EmailPlaceholder::title, std::string(made.title)},
        {EmailPlaceholder::total, money(amount)},
        {EmailPlaceholder::date, day(issued)},
        {EmailPlaceholder::dueDate, day(issued + terms)},
        {EmailPlaceholder::validUntil, day(terms)},
        {EmailPlaceholder::amountDue, money(amount + fee)},
        {EmailPlaceholder::payBy, day(reminderDays)},
        {EmailPlaceholder::lateFee, money(fee)},
        {EmailPlaceholder::daysOverdue, std::to_string(overdue)},
        {EmailPlaceholder::business, business.name.empty() ? std::string(made.business) : business.name},
    };
    const std::vector<EmailPlaceholder> offered = available(kind);
    std::erase_if(values,
                  [&offered](const auto& value) { return std::ranges::find(offered, value.first) == offered.end(); });
    return values;
}

} // namespace Quillary
