#include "Quillary/Commands/OverdueCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/OpenLibrary.h"
#include "Quillary/TextTable.h"
#include "QuillaryCore/Billing/OverdueInvoices.h"
#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Money/Money.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <map>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

using Alignment = TextTable::Alignment;

/// Writes the invoices of an open library; what it returns holds on to nothing.
class OverdueList
{
public:
    OverdueList(Context& context, const Business& business, const AppEnvironment& environment)
        : m_context(context)
        , m_environment(environment)
        , m_invoices(overdueInvoices(context, business, environment.clock().now(), environment.calendar()))
    {
    }

    [[nodiscard]] std::string text() const
    {
        if (m_invoices.empty()) {
            return "No invoice is overdue.\n";
        }
        constexpr std::size_t widestClient = 30;
        TextTable table({{.heading = "Number"},
                         {.heading = "Client", .widest = widestClient},
                         {.heading = "Due"},
                         {.heading = "Days", .alignment = Alignment::right},
                         {.heading = "Open", .alignment = Alignment::right},
                         {.heading = "Reminded"},
                         {.heading = "Next"}});
        std::map<std::string, std::int64_t> sums;
        for (const OverdueInvoice& invoice : m_invoices) {
            const Document& document = *invoice.document;
            table.addRow({document.number,
                          clientName(document),
                          day(document.dueDate),
                          std::to_string(invoice.daysOverdue),
                          money(invoice.amountDueMinorUnits, document),
                          invoice.lastLevel ? std::string(title(*invoice.lastLevel)) : "",
                          next(invoice)});
            std::int64_t& sum = sums[document.currencyCode];
            sum = checkedAdd(sum, invoice.amountDueMinorUnits);
        }
        table.addRule();
        std::string heading = fmt::format("{} overdue", m_invoices.size());
        for (const auto& [currencyCode, sum] : sums) {
            const std::string amount = Money(sum, currencyCode).formatted(m_environment.locale());
            table.addRow({std::exchange(heading, ""), "", "", "", amount});
        }
        return table.text();
    }

    [[nodiscard]] JSON json() const
    {
        JSON::Array list;
        for (const OverdueInvoice& invoice : m_invoices) {
            list.push_back(json(invoice));
        }
        return JSON::object({{"invoices", std::move(list)}});
    }

private:
    [[nodiscard]] std::string clientName(const Document& document) const
    {
        const Client* client = m_context.find(document.client);
        return client == nullptr ? "" : displayName(*client);
    }

    [[nodiscard]] std::string day(const std::optional<Instant>& instant) const
    {
        return instant ? isoText(m_environment.calendar().date(*instant)) : "";
    }

    [[nodiscard]] std::string money(std::int64_t minorUnits, const Document& document) const
    {
        return Money(minorUnits, document.currencyCode).formatted(m_environment.locale());
    }

    [[nodiscard]] std::string next(const OverdueInvoice& invoice) const
    {
        switch (invoice.next) {
        case OverdueStep::markPaid:
            return "mark it as paid";
        case OverdueStep::wait:
            return fmt::format("{} after {}", title(invoice.reminder.level), day(invoice.waitsUntil));
        case OverdueStep::remind:
            break;
        }
        const std::int64_t fee = invoice.reminder.feeMinorUnits;
        return fmt::format("{} now{}",
                           title(invoice.reminder.level),
                           fee == 0 ? "" : fmt::format(", late fee {}", money(fee, *invoice.document)));
    }

    [[nodiscard]] JSON json(const OverdueInvoice& invoice) const
    {
        constexpr std::string_view steps[] = {"remind", "wait", "mark_paid"};
        const Document& document = *invoice.document;
        const auto number = [&document](std::int64_t minorUnits) {
            return JSON(JSON::Number{Money(minorUnits, document.currencyCode).plainText()});
        };
        return JSON::object(
            {{"document", document.uuid ? JSON(document.uuid->text()) : JSON()},
             {"number", document.number},
             {"client", clientName(document)},
             {"due_date", day(document.dueDate)},
             {"days_overdue", invoice.daysOverdue},
             {"amount_due", number(invoice.amountDueMinorUnits)},
             {"currency", document.currencyCode},
             {"last_level", invoice.lastLevel ? JSON(static_cast<std::int64_t>(*invoice.lastLevel)) : JSON()},
             {"waits_until", invoice.waitsUntil ? JSON(day(invoice.waitsUntil)) : JSON()},
             {"next", steps[static_cast<std::size_t>(invoice.next)]},
             {"next_level", static_cast<std::int64_t>(invoice.reminder.level)},
             {"next_fee", number(invoice.reminder.feeMinorUnits)}});
    }

    Context& m_context;
    const AppEnvironment& m_environment;
    std::vector<OverdueInvoice> m_invoices;
};

std::string answer(const CommandSetting& setting, bool asJSON)
{
    OpenLibrary open(setting.library, setting.environment);
    const OverdueList list(open.context(), open.business(), setting.environment);
    return asJSON ? list.json().pretty() + "\n" : list.text();
}

} // namespace

OverdueCommand::OverdueCommand(CLI::App& app)
    : m_app(app.add_subcommand("overdue", "Lists the overdue invoices and what comes next for each."))
{
    m_app->add_option("--output", m_output, "How to answer: text or json.")->check(CLI::IsMember({"text", "json"}));
}

bool OverdueCommand::wasGiven() const
{
    return m_app->parsed();
}

int OverdueCommand::run(const CommandSetting& setting) const
{
    // The library is let go of before anything is printed, for whoever waits for it.
    fmt::print("{}", answer(setting, m_output == "json"));
    return 0;
}

} // namespace Quillary
