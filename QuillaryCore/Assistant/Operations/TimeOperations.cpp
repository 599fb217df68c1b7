#include "QuillaryCore/Assistant/Description/ClientDescription.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/Operations.h"
#include "QuillaryCore/Assistant/Operations/UnbilledTime.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Quantity.h"
#include "QuillaryCore/Schedules/TimeMath.h"

#include <fmt/format.h>

#include <string>
#include <utility>

namespace Quillary {

namespace {

/// Writes the unbilled time of one client after another, as text and as data.
class TimeDescriber
{
public:
    explicit TimeDescriber(const AssistantEnvironment& environment)
        : m_context(environment.context)
        , m_currency(environment.ownBusiness().currencyCode)
    {
    }

    [[nodiscard]] std::string text(const UnbilledTime& time) const
    {
        const Client* client = m_context.find(Ref<Client>(time.client));
        std::string text = fmt::format("{}: {} h, {} {}",
                                       client == nullptr ? "Without a client" : Lookup::reference(*client),
                                       Quantity::plainText(time.hoursThousandths()),
                                       amount(time.value()),
                                       m_currency);
        if (time.hourlyRate == 0) {
            text += " (no hourly rate is set)";
        }
        for (const UnbilledProject& project : time.projects) {
            const Project* record = m_context.find(Ref<Project>(project.project));
            text += fmt::format("\n   {}: {} h × {} = {}, {} {}",
                                record == nullptr
                                    ? "Without a project"
                                    : fmt::format("{} [{}]", plainText(record->name), Lookup::idText(record->uuid)),
                                Quantity::plainText(project.hoursThousandths()),
                                amount(time.hourlyRate),
                                amount(time.value(project)),
                                project.entries,
                                project.entries == 1 ? "entry" : "entries");
        }
        if (time.runningSeconds > 0) {
            text += fmt::format("\n   A timer is running: {} h so far, not counted until it is stopped.",
                                TimeMath::hoursAndMinutes(time.runningSeconds));
        }
        return text;
    }

    [[nodiscard]] JSON data(const UnbilledTime& time) const
    {
        const Client* client = m_context.find(Ref<Client>(time.client));
        JSON::Array projects;
        for (const UnbilledProject& project : time.projects) {
            const Project* record = m_context.find(Ref<Project>(project.project));
            projects.push_back(JSON::object({{"id", record == nullptr ? JSON() : JSON(Lookup::idText(record->uuid))},
                                             {"name", record == nullptr ? JSON() : JSON(record->name)},
                                             {"hours", hours(project.hoursThousandths())},
                                             {"value", JSON::Number{amount(time.value(project))}},
                                             {"entries", project.entries}}));
        }
        return JSON::object({{"client", client == nullptr ? JSON() : clientReference(*client)},
                             {"hours", hours(time.hoursThousandths())},
                             {"hourly_rate", JSON::Number{amount(time.hourlyRate)}},
                             {"value", JSON::Number{amount(time.value())}},
                             {"currency", m_currency},
                             {"projects", std::move(projects)},
                             {"running_seconds", time.runningSeconds}});
    }

    [[nodiscard]] std::string amount(std::int64_t minorUnits) const
    {
        return Money(minorUnits, m_currency).plainText();
    }

    [[nodiscard]] static JSON hours(std::int64_t thousandths) { return JSON::Number{Quantity::plainText(thousandths)}; }

    [[nodiscard]] const std::string& currency() const { return m_currency; }

private:
    Context& m_context;
    std::string m_currency;
};

} // namespace

ToolResult TimeOperations::unbilled(const AssistantEnvironment& environment, const Arguments& arguments)
{
    std::optional<Ref<Client>> only;
    if (const auto named = arguments.line("client", Limits::lineLength); named && !named->empty()) {
        only = Lookup::client(environment, *named).ref;
    }
    const TimeDescriber describer(environment);
    ToolResult result;
    ResultLines lines(result.text);
    JSON::Array clients;
    std::int64_t hours = 0;
    std::int64_t value = 0;
    std::size_t left = 0;
    for (const UnbilledTime& time : unbilledTime(environment, only)) {
        hours = checkedAdd(hours, time.hoursThousandths());
        value = checkedAdd(value, time.value());
        if (JSON data = describer.data(time); lines.add(describer.text(time), data)) {
            clients.push_back(std::move(data));
        } else {
            ++left;
        }
    }
    if (left > 0) {
        result.text += fmt::format("… and {} more clients; name one to see its time.\n", left);
    }
    const std::string total =
        fmt::format("{} h, {} {}", Quantity::plainText(hours), describer.amount(value), describer.currency());
    result.text += clients.empty() ? "There is no unbilled time." : "Together: " + total;
    result.summary = "Unbilled time: " + total;
    result.data = JSON::object({{"clients", std::move(clients)},
                                {"more", left},
                                {"totals",
                                 JSON::array({JSON::object({{"currency", describer.currency()},
                                                            {"hours", TimeDescriber::hours(hours)},
                                                            {"value", JSON::Number{describer.amount(value)}}})})}});
    return result;
}

} // namespace Quillary
