#include "QuillaryCore/Schedules/TimeInvoicing.h"

#include "QuillaryCore/Billing/Totals.h"
#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeMath.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <source_location>
#include <unordered_map>

namespace Quillary {

namespace {

using TimeInvoicing::Grouping;
using TimeInvoicing::Line;
using TimeInvoicing::Terms;

constexpr std::int64_t secondsPerHour = 3600;
constexpr std::int64_t thousand = 1000;

/// The entries of one line.
struct Group
{
    std::int64_t project = 0; ///< the key of the project they all belong to; 0: none, or several
    std::vector<const TimeEntry*> entries;
};

std::vector<const TimeEntry*> sortedByStart(std::span<const TimeEntry* const> entries)
{
    std::vector<const TimeEntry*> sorted(entries.begin(), entries.end());
    std::ranges::stable_sort(sorted, {}, [](const TimeEntry* entry) { return entry->start; });
    return sorted;
}

/// The groups in the order in which the first of their entries begins.
std::vector<Group> grouped(const std::vector<const TimeEntry*>& entries, Grouping grouping)
{
    std::vector<Group> groups;
    if (grouping == Grouping::oneLine && !entries.empty()) {
        const Ref<Project> first = entries.front()->project;
        const bool isShared =
            std::ranges::all_of(entries, [&](const TimeEntry* entry) { return entry->project == first; });
        return {{.project = isShared ? first.key() : 0, .entries = entries}};
    }
    std::unordered_map<std::int64_t, std::size_t> places; // of the projects' groups
    for (const TimeEntry* entry : entries) {
        const std::int64_t project = entry->project.key();
        const auto [place, isFirst] = places.try_emplace(project, groups.size());
        if (grouping == Grouping::eachEntry || isFirst) {
            groups.push_back({.project = project, .entries = {entry}});
        } else {
            groups[place->second].entries.push_back(entry);
        }
    }
    return groups;
}

/// Assembles the lines of one set of terms.
class LineMaker
{
public:
    LineMaker(Context& context, const Terms& terms, Instant now, const Calendar& calendar, const Locale& locale)
        : m_context(context)
        , m_terms(terms)
        , m_now(now)
        , m_calendar(calendar)
        , m_locale(locale)
    {
    }

    [[nodiscard]] Line make(const Group& group) const
    {
        const std::string project = projectName(Ref<Project>(group.project));
        Line line;
        line.title = project.empty() ? TimeInvoicing::workTitle(m_terms.language) : std::string_view(project);
        std::int64_t seconds = 0;
        for (const TimeEntry* entry : group.entries) {
            const std::int64_t billed =
                TimeMath::roundUp(TimeInvoicing::duration(*entry, m_now), m_terms.roundingMinutes);
            seconds = checkedAdd(seconds, billed);
            line.details += (line.details.empty() ? "" : "\n") + detail(*entry, billed, project.empty());
            if (entry->uuid) {
                line.entryIDs.push_back(*entry->uuid);
            }
        }
        line.quantityThousandths = TimeInvoicing::quantityThousandths(seconds);
        line.unitPriceMinorUnits = m_terms.hourlyRate;
        return line;
    }

private:
    [[nodiscard]] std::string projectName(Ref<Project> ref) const
    {
        const Project* project = m_context.find(ref);
        return project == nullptr ? "" : std::string(trimmed(project->name));
    }

    /// "- 3 March 2026, Website, Fixing the menu (1:30 h)"
    [[nodiscard]] std::string detail(const TimeEntry& entry, std::int64_t billed, bool namesProject) const
    {
        std::vector<std::string> parts;
        if (entry.start) {
            parts.push_back(m_locale.formatDate(m_calendar.date(*entry.start)));
        }
        if (namesProject) {
            parts.push_back(projectName(entry.project));
        }
        parts.push_back(replacing(trimmed(entry.note), "\n", " "));
        std::erase(parts, "");
        return fmt::format("- {} ({} h)", fmt::join(parts, ", "), TimeMath::hoursAndMinutes(billed));
    }

    Context& m_context;
    const Terms& m_terms;
    Instant m_now;
    const Calendar& m_calendar;
    const Locale& m_locale;
};

} // namespace

std::string_view TimeInvoicing::rawText(Grouping grouping)
{
    switch (grouping) {
    case Grouping::eachEntry:
        return "eachEntry";
    case Grouping::byProject:
        return "byProject";
    case Grouping::oneLine:
        return "oneLine";
    }
    stopProgram("a grouping is one of the three", std::source_location::current());
}

std::string_view TimeInvoicing::title(Grouping grouping)
{
    switch (grouping) {
    case Grouping::eachEntry:
        return "A line for each entry";
    case Grouping::byProject:
        return "A line for each project";
    case Grouping::oneLine:
        return "One line";
    }
    stopProgram("a grouping is one of the three", std::source_location::current());
}

std::int64_t TimeInvoicing::Line::amount() const
{
    return Totals::amount(quantityThousandths, unitPriceMinorUnits);
}

std::string_view TimeInvoicing::workTitle(DocumentLanguage language)
{
    switch (language) {
    case DocumentLanguage::english:
        return "Work";
    case DocumentLanguage::german:
        return "Leistungen";
    case DocumentLanguage::french:
        return "Prestations";
    case DocumentLanguage::spanish:
        return "Servicios";
    case DocumentLanguage::dutch:
        return "Werkzaamheden";
    case DocumentLanguage::italian:
        return "Prestazioni";
    }
    stopProgram("a document language is one of the six", std::source_location::current());
}

std::int64_t TimeInvoicing::duration(const TimeEntry& entry, Instant now)
{
    if (!entry.start) {
        return 0;
    }
    const auto length = std::chrono::floor<std::chrono::seconds>(entry.end.value_or(now) - *entry.start);
    return std::int64_t{length.count()};
}

std::int64_t TimeInvoicing::quantityThousandths(std::int64_t seconds)
{
    const std::int64_t counted = std::max<std::int64_t>(seconds, 0);
    return checkedAdd(checkedMultiply(counted, thousand), secondsPerHour / 2) / secondsPerHour;
}

std::vector<TimeInvoicing::Line> TimeInvoicing::lines(Context& context,
                                                      std::span<const TimeEntry* const> entries,
                                                      const Terms& terms,
                                                      Instant now,
                                                      const Calendar& calendar,
                                                      const Locale& locale)
{
    const LineMaker maker(context, terms, now, calendar, locale);
    std::vector<Line> made;
    for (const Group& group : grouped(sortedByStart(entries), terms.grouping)) {
        made.push_back(maker.make(group));
    }
    return made;
}

} // namespace Quillary
