#include "Quillary/Commands/LetterReport.h"

#include "Quillary/Commands/LetterFiles.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/LetterMail.h"
#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Store/Field.h"

#include <fmt/format.h>

#include <utility>

namespace Quillary {

namespace {

std::string clientName(const AssistantEnvironment& environment, const Document& document)
{
    const Client* client = environment.context.find(document.client);
    return client == nullptr ? "" : plainText(displayName(*client));
}

/// "14 days overdue", for what is overdue; else when it is due.
std::string overdueText(const AssistantEnvironment& environment, const Document& document)
{
    const int days = daysOverdue(document, environment.clock.now(), environment.calendar);
    if (days > 0) {
        return fmt::format("{} {} overdue", days, days == 1 ? "day" : "days");
    }
    return document.dueDate
               ? fmt::format("not overdue, due on {}", isoText(environment.calendar.date(*document.dueDate)))
               : "without a due date";
}

} // namespace

void LetterReport::add(std::string_view line)
{
    m_text.append(line).append("\n");
}

void LetterReport::tellReminder(const AssistantEnvironment& environment,
                                const Document& document,
                                const ReminderNotice& reminder)
{
    const ReminderFigures figures = reminderFigures(environment.context, document, reminder);
    const Money fee(reminder.details.feeMinorUnits, document.currencyCode);
    const Money due(figures.amountDue, document.currencyCode);
    const std::string payBy = isoText(environment.calendar.date(reminder.details.payBy));
    const std::string name = clientName(environment, document);
    add(fmt::format("{} of {}{}{}: {}.",
                    title(reminder.details.level),
                    Lookup::reference(document),
                    name.empty() ? "" : ", ",
                    name,
                    overdueText(environment, document)));
    add(fmt::format("Late fee {}, amount due {}, to be paid by {}.",
                    fee.formatted(environment.locale),
                    due.formatted(environment.locale),
                    payBy));
    data = JSON::object({{"document", Lookup::idText(document.uuid)},
                         {"number", document.number},
                         {"client", name},
                         {"days_overdue", daysOverdue(document, environment.clock.now(), environment.calendar)},
                         {"level", static_cast<std::int64_t>(reminder.details.level)},
                         {"late_fee", JSON(JSON::Number{fee.plainText()})},
                         {"amount_due", JSON(JSON::Number{due.plainText()})},
                         {"currency", document.currencyCode},
                         {"pay_by", payBy}});
}

void LetterReport::tellTakenBack(const AssistantEnvironment& environment,
                                 const Document& document,
                                 const ReminderNotice& reminder)
{
    const Money due(amountDueMinorUnits(environment.context, document), document.currencyCode);
    add(fmt::format("Took back the {} of {} for {}. Amount due: {}.",
                    title(reminder.details.level),
                    isoText(environment.calendar.date(reminder.date)),
                    Lookup::reference(document),
                    due.formatted(environment.locale)));
    data = JSON::object({{"document", Lookup::idText(document.uuid)},
                         {"number", document.number},
                         {"level", static_cast<std::int64_t>(reminder.details.level)},
                         {"amount_due", JSON(JSON::Number{due.plainText()})},
                         {"currency", document.currencyCode},
                         {"taken_back", true}});
}

void LetterReport::tellFile(std::string_view key, std::string_view label, const std::filesystem::path& file)
{
    const std::string path = std::filesystem::absolute(file).lexically_normal().string();
    add(fmt::format("{}: {}", label, path));
    data.set(std::string(key), path);
}

void LetterReport::tellMail(const LetterMail& mail,
                            LetterFiles& files,
                            const std::filesystem::path& folder,
                            std::string_view name)
{
    const std::string message = mail.draft.message();
    tellFile("mail", "Mail", files.save(folder, name, "eml", Bytes(message.begin(), message.end())));
    const std::string to = addressList(mail.draft);
    add(fmt::format("      to {}, “{}”", to.empty() ? "nobody yet" : to, plainText(mail.draft.subject)));
    data.set("to", to);
    data.set("subject", mail.draft.subject);
    JSON::Array notes;
    for (const std::string& note : mail.notes) {
        add(note);
        notes.emplace_back(note);
    }
    data.set("notes", std::move(notes));
}

void LetterReport::print(std::string_view output) const
{
    if (output == "json") {
        fmt::print("{}\n", data.pretty());
    } else {
        fmt::print("{}", m_text);
    }
}

} // namespace Quillary
