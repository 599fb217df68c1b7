#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Operations/UnbilledTime.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Output/PrintedDocument.h"
#include "QuillaryCore/Schedules/TimeBilling.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace Quillary {

namespace {

constexpr std::string_view hourUnit = "hour";

} // namespace

void DocumentSession::addUnbilledTime()
{
    Context& context = m_environment.context;
    if (kind(m_document) == DocumentKind::quote) {
        throw AssistantError("“add_unbilled_time” belongs to invoices: a quote bills nothing.");
    }
    if (client() == nullptr) {
        throw AssistantError("“add_unbilled_time” needs a client.");
    }
    const std::vector<const TimeEntry*> entries = TimeBilling::unbilled(context, *client());
    const std::string name = plainText(displayName(*client()));
    if (entries.empty()) {
        throw AssistantError(fmt::format("{} has no unbilled time.", name));
    }
    const std::int64_t rate = hourlyRate(client(), business());
    if (rate != 0 && m_document.currencyCode != business().currencyCode) {
        throw AssistantError(
            fmt::format("The hourly rate is in {}, this document in {}. Set the document's currency to {}, or add the "
                        "hours with add_lines and their price.",
                        business().currencyCode,
                        m_document.currencyCode,
                        business().currencyCode));
    }
    const TimeInvoicing::Terms terms{.grouping = TimeInvoicing::Grouping::byProject,
                                     .hourlyRate = rate,
                                     .roundingMinutes = business().timeRoundingMinutes,
                                     .language = language(m_document)};
    const Locale& locale = printLocale(terms.language, business().countryCode);
    const Instant now = m_environment.clock.now();
    for (const TimeInvoicing::Line& line :
         TimeInvoicing::lines(context, entries, terms, now, m_environment.calendar, locale)) {
        addTimeLine(line, entries);
    }
    m_filledIn.push_back(
        fmt::format("{} time {} of {}", entries.size(), entries.size() == 1 ? "entry" : "entries", name));
}

void DocumentSession::addTimeLine(const TimeInvoicing::Line& proposed, const std::vector<const TimeEntry*>& entries)
{
    Context& context = m_environment.context;
    const std::int32_t sortIndex = nextSortIndex();
    LineItem& line = context.insert<LineItem>();
    line.document = m_document.ref;
    line.sortIndex = sortIndex;
    line.title = proposed.title;
    line.details = proposed.details;
    line.quantityThousandths = proposed.quantityThousandths;
    line.unitPriceMinorUnits = proposed.unitPriceMinorUnits;
    line.vatBasisPoints = defaultRate();
    Quillary::setUnit(line, std::string(hourUnit), UnitLibrary(context, business()), language(m_document));
    for (const TimeEntry* entry : entries) {
        if (entry->uuid && std::ranges::find(proposed.entryIDs, *entry->uuid) != proposed.entryIDs.end()) {
            TimeBilling::bill(context, *entry, m_document, line);
        }
    }
}

} // namespace Quillary
