#include "QuillaryCore/Assistant/Description/ClientDescription.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/MoneyOverview.h"
#include "QuillaryCore/Assistant/Operations/Operations.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Quantity.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>
#include <string>
#include <utility>

namespace Quillary {

namespace {

using Item = MoneyOverview::Item;

constexpr std::size_t listedOverdue = 20;
constexpr std::size_t listedNext = 5;
constexpr std::size_t listedDrafts = 10;

/// Writes one currency's overview as text and as data.
class OverviewDescriber
{
public:
    OverviewDescriber(const AssistantEnvironment& environment, const MoneyOverview& overview)
        : m_environment(environment)
        , m_overview(overview)
        , m_currency(plainText(overview.currencyCode))
        , m_data(JSON::object({{"currency", overview.currencyCode}}))
    {
    }

    void describe()
    {
        const std::span<const Item> open(m_overview.open);
        const auto next = open.subspan(m_overview.overdueCount);
        figure("open", "Open", m_overview.openTotal, open.size(), "invoice");
        figure("overdue", "Overdue", m_overview.overdueTotal, m_overview.overdueCount, "invoice");
        list("overdue_invoices", open.first(m_overview.overdueCount), listedOverdue, When::overdue);
        figure("not_due_yet",
               "Due next",
               checkedSubtract(m_overview.openTotal, m_overview.overdueTotal),
               next.size(),
               "invoice");
        list("due_next", next, listedNext, When::due);
        if (!m_overview.creditNotes.empty()) {
            figure("credit_notes",
                   "Credit notes not refunded or set off yet",
                   m_overview.creditTotal,
                   m_overview.creditNotes.size(),
                   "credit note");
            figure("open_less_credit",
                   "Open, less these",
                   checkedAdd(m_overview.openTotal, m_overview.creditTotal),
                   0,
                   "");
        }
        figure("drafts", "Drafts waiting", m_overview.draftTotal, m_overview.drafts.size(), "draft");
        list("draft_documents", m_overview.drafts, listedDrafts, When::dated);
        if (m_overview.unbilledThousandths != 0) {
            const std::string hours = Quantity::plainText(m_overview.unbilledThousandths);
            m_text += fmt::format("Unbilled time: {} {} ({} h)\n", amount(m_overview.unbilledValue), m_currency, hours);
            m_data.set("unbilled_time",
                       JSON::object({{"value", JSON::Number{amount(m_overview.unbilledValue)}},
                                     {"hours", JSON::Number{hours}}}));
        }
    }

    [[nodiscard]] const std::string& text() const { return m_text; }
    [[nodiscard]] const JSON& data() const { return m_data; }

    /// "open 119.00 EUR, overdue 0.00 EUR"
    [[nodiscard]] std::string summary() const
    {
        return fmt::format(
            "open {0} {2}, overdue {1} {2}", amount(m_overview.openTotal), amount(m_overview.overdueTotal), m_currency);
    }

private:
    enum class When { overdue, due, dated };

    [[nodiscard]] std::string amount(std::int64_t minorUnits) const
    {
        return Money(minorUnits, m_overview.currencyCode).plainText();
    }

    void
    figure(std::string_view key, std::string_view label, std::int64_t sum, std::size_t count, std::string_view noun)
    {
        m_text += fmt::format("{}: {} {}", label, amount(sum), m_currency);
        if (!noun.empty()) {
            m_text += fmt::format(" ({} {}{})", count, noun, count == 1 ? "" : "s");
        }
        m_text += '\n';
        JSON data = JSON::object({{"amount", JSON::Number{amount(sum)}}});
        if (!noun.empty()) {
            data.set("count", count);
        }
        m_data.set(key, std::move(data));
    }

    void list(std::string_view key, std::span<const Item> items, std::size_t limit, When when)
    {
        JSON::Array listed;
        for (const Item& item : items.first(std::min(limit, items.size()))) {
            if (const Document* document = m_environment.context.find(Ref<Document>(item.document))) {
                listed.push_back(describe(*document, item, when));
            }
        }
        if (items.size() > limit) {
            m_text += fmt::format("- … and {} more; find_documents lists them.\n", items.size() - limit);
        }
        m_data.set(key, std::move(listed));
    }

    JSON describe(const Document& document, const Item& item, When when)
    {
        const Client* client = m_environment.context.find(document.client);
        m_text += fmt::format("- {}{}: {} {}{}\n",
                              Lookup::reference(document),
                              client == nullptr ? "" : fmt::format(", {}", plainText(displayName(*client))),
                              amount(item.amount),
                              m_currency,
                              moment(item, when));
        JSON data = JSON::object({{"id", Lookup::idText(document.uuid)},
                                  {"number", document.number},
                                  {"client", client == nullptr ? JSON() : clientReference(*client)},
                                  {"amount", JSON::Number{amount(item.amount)}}});
        if (item.date) {
            data.set(when == When::dated ? "issue_date" : "due_date", isoText(m_environment.calendar.date(*item.date)));
        }
        if (when == When::overdue) {
            data.set("days_overdue", daysSince(item));
        }
        return data;
    }

    [[nodiscard]] int daysSince(const Item& item) const
    {
        return item.date ? m_environment.calendar.daysBetween(*item.date, m_environment.clock.now()) : 0;
    }

    [[nodiscard]] std::string moment(const Item& item, When when) const
    {
        if (!item.date) {
            return {};
        }
        const std::string date = isoText(m_environment.calendar.date(*item.date));
        const int days = daysSince(item);
        switch (when) {
        case When::overdue:
            return fmt::format(", {} day{} overdue (since {})", days, days == 1 ? "" : "s", date);
        case When::due:
            return days == 0 ? ", due today"
                             : fmt::format(", due {} (in {} day{})", date, -days, days == -1 ? "" : "s");
        case When::dated:
            return ", dated " + date;
        }
        return {};
    }

    const AssistantEnvironment& m_environment;
    const MoneyOverview& m_overview;
    std::string m_currency;
    std::string m_text;
    JSON m_data;
};

} // namespace

ToolResult OverviewOperations::money(const AssistantEnvironment& environment, const Arguments& /*arguments*/)
{
    const std::vector<MoneyOverview> overviews = MoneyOverview::of(environment);
    ToolResult result;
    JSON::Array currencies;
    std::string summaries;
    ResultLines lines(result.text);
    for (const MoneyOverview& overview : overviews) {
        OverviewDescriber describer(environment, overview);
        describer.describe();
        const std::string heading = overviews.size() > 1 ? "In " + plainText(overview.currencyCode) + ":\n" : "";
        if (lines.add(heading + describer.text(), describer.data())) {
            currencies.push_back(describer.data());
            summaries += (summaries.empty() ? "" : "; ") + describer.summary();
        }
    }
    if (overviews.empty()) {
        result.text = "Nothing is open or overdue, no draft waits, and no time is unbilled.";
    }
    result.summary = summaries.empty() ? "Nothing open" : "Money overview: " + summaries;
    result.data = JSON::object({{"more", overviews.size() - currencies.size()}, {"currencies", std::move(currencies)}});
    return result;
}

} // namespace Quillary
