#include "QuillaryCore/Schedules/TimeBilling.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Model/TimeEntryBilling.h"
#include "QuillaryCore/Store/Context.h"

namespace Quillary {

std::vector<const TimeEntry*> TimeBilling::unbilled(Context& context, const Client& client)
{
    return context.fetch<TimeEntry>(
        "client = ? AND isBillable AND invoiceID IS NULL AND \"end\" IS NOT NULL AND start IS NOT NULL "
        "ORDER BY start, id",
        client.ref.key());
}

void TimeBilling::bill(Context& context, const TimeEntry& entry, const Document& invoice, const LineItem& line)
{
    precondition(!entry.invoiceID, "an entry is billed once");
    context.edit(entry).invoiceID = invoice.uuid;
    auto& link = context.insert<TimeEntryBilling>();
    link.entryID = entry.uuid;
    link.lineID = line.uuid;
}

std::vector<const TimeEntry*> TimeBilling::entries(Context& context, const LineItem& line)
{
    std::vector<const TimeEntry*> entries;
    if (!line.uuid) {
        return entries;
    }
    for (const TimeEntryBilling* link : context.fetch<TimeEntryBilling>("lineID = ?", *line.uuid)) {
        if (const TimeEntry* entry = link->entryID ? context.find<TimeEntry>(*link->entryID) : nullptr) {
            entries.push_back(entry);
        }
    }
    return entries;
}

void TimeBilling::release(Context& context, const LineItem& line)
{
    for (const LineItem* child : sortedChildren(context, line)) {
        release(context, *child);
    }
    if (!line.uuid) {
        return;
    }
    for (const TimeEntryBilling* link : context.fetch<TimeEntryBilling>("lineID = ?", *line.uuid)) {
        const TimeEntry* entry = link->entryID ? context.find<TimeEntry>(*link->entryID) : nullptr;
        if (entry != nullptr) {
            context.edit(*entry).invoiceID.reset();
        }
        context.erase(*link);
    }
}

} // namespace Quillary
