#pragma once

#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"
#include "tests/Documents/DocumentLibrary.h"

#include <string>
#include <vector>

namespace Quillary {

/// A library with templates, on 7 March 2025.
struct RecurringLibrary : DocumentLibrary
{
    /// Monthly from the first of a month, with one line.
    Document& monthly(std::string_view next)
    {
        Document& made = document(DocumentKind::recurring);
        made.uuid = UUID::parse("6F9619FF-8B86-D011-B42D-00C04FC964FF");
        made.title = "Support {month}";
        made.client = client.ref;
        made.issueDate = on("2020-01-01");
        made.nextIssueDate = on(next);
        made.paymentTermsDays = 10;
        made.recurrenceUnitRaw = 1;
        made.recurrenceInterval = 1;
        made.recurrenceAnchorDay = 1;
        line(made, 1000, 10'000, 1900).uuid = UUID::parse("6F9619FF-8B86-D011-B42D-00C04FC964F0");
        return made;
    }

    [[nodiscard]] Instant on(std::string_view date) const { return calendar.storedDay(parseISODate(date).value()); }

    [[nodiscard]] std::string dayOf(std::optional<Instant> instant) const
    {
        return instant ? isoText(calendar.date(*instant)) : "none";
    }

    /// Numbers and dates, such as "INV-2025-001 2025-01-01".
    [[nodiscard]] std::vector<std::string> told(const std::vector<const Document*>& invoices) const
    {
        std::vector<std::string> texts;
        texts.reserve(invoices.size());
        for (const Document* invoice : invoices) {
            texts.push_back(invoice->number + " " + dayOf(invoice->issueDate));
        }
        return texts;
    }

    std::vector<const Document*> makeDue(std::size_t limit = RecurringInvoices::mostPerRun)
    {
        return RecurringInvoices::makeDue(context, clock.now(), limit, calendar);
    }
};

} // namespace Quillary
