#include "Quillary/Commands/DocumentList.h"

#include "Quillary/Commands/CommandSession.h"
#include "Quillary/TextTable.h"
#include "QuillaryCore/Assistant/Description/DocumentDescription.h"
#include "QuillaryCore/Assistant/Description/DocumentListing.h"
#include "QuillaryCore/Documents/DocumentFilter.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Reports/ReportPeriod.h"
#include "QuillaryCore/Search/LibrarySearch.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <vector>

namespace Quillary {

namespace {

constexpr std::size_t widestName = 30;

/// "credit-note", "Credit_Note" and "creditNote" are one word.
std::string bare(std::string_view word)
{
    return replacing(replacing(replacing(lowerCasedASCII(word), "-", ""), "_", ""), " ", "");
}

DocumentKind typedKind(const std::string& typed)
{
    constexpr std::array kinds = {
        DocumentKind::invoice, DocumentKind::quote, DocumentKind::creditNote, DocumentKind::recurring};
    const auto* const found =
        std::ranges::find_if(kinds, [&](DocumentKind kind) { return bare(kindWord(kind)) == bare(typed); });
    if (found == kinds.end()) {
        throw UserError(fmt::format("There is no kind “{}”: invoice, quote, credit-note and recurring are.", typed));
    }
    return *found;
}

/// "open" is all that was sent and isn't settled yet.
std::vector<DisplayStatus> typedStatus(const std::string& typed)
{
    if (bare(typed) == "open") {
        return {DisplayStatus::sent, DisplayStatus::partlyPaid, DisplayStatus::overdue};
    }
    std::string words = "open";
    for (const DisplayStatus status : allDisplayStatuses) {
        if (bare(rawText(status)) == bare(typed)) {
            return {status};
        }
        words += fmt::format(", {}", rawText(status));
    }
    throw UserError(fmt::format("There is no status “{}”; there are {}.", typed, words));
}

DocumentFilter filterOf(CommandSession& session, const DocumentListRequest& request)
{
    DocumentFilter filter;
    const Calendar& calendar = session.environment().calendar;
    if (!request.kind.empty()) {
        filter.kind = typedKind(request.kind);
    }
    if (!request.status.empty()) {
        filter.statuses = typedStatus(request.status);
    }
    if (!request.period.empty()) {
        const auto period = ReportPeriod::parse(request.period, calendar.date(session.now()));
        if (!period) {
            throw UserError(fmt::format("There is no period “{}”. Write for example this-quarter, last-month, 2026, "
                                        "2026-Q3, 2026-07 or 2026-01..2026-03.",
                                        request.period));
        }
        filter.start = period->range(calendar).start;
        filter.end = period->range(calendar).end;
    }
    if (!request.client.empty()) {
        filter.client = session.client(request.client).ref;
    }
    if (!request.project.empty()) {
        filter.project = session.project(request.project).ref;
    }
    filter.tag = std::string(trimmed(request.tag));
    if (!trimmed(request.text).empty()) {
        filter.among.emplace();
        session.environment().librarySearch().documents(request.text).forEach([&](const LibrarySearch::Hit& hit) {
            filter.among->insert(hit.key);
        });
    }
    return filter;
}

std::vector<std::string> row(CommandSession& session, const Document& document)
{
    const Calendar& calendar = session.environment().calendar;
    const auto day = [&](const std::optional<Instant>& date) {
        return date ? isoText(calendar.date(*date)) : std::string();
    };
    const auto amount = [&](std::int64_t minorUnits) {
        return Money(minorUnits, document.currencyCode).plainText();
    };
    const Client* client = session.context().find(document.client);
    const std::optional<DocumentKind> known = kind(document);
    return {document.number,
            std::string(known ? title(*known) : "Document"),
            std::string(title(displayStatus(document, session.now(), calendar), known)),
            day(document.issueDate),
            day(document.dueDate ? document.dueDate : document.validUntil),
            client == nullptr ? "" : displayName(*client),
            document.title,
            amount(document.cachedTotalMinorUnits),
            acceptsPayments(document) ? amount(cachedAmountDueMinorUnits(document)) : "",
            document.currencyCode};
}

JSON rowData(CommandSession& session, const DocumentListing& listing, const Document& document)
{
    JSON data = listing.data(document);
    JSON::Array tags;
    for (std::string& tag : tagList(document)) {
        tags.emplace_back(std::move(tag));
    }
    data.set("tags", std::move(tags));
    if (const Project* project = session.context().find(document.project)) {
        data.set("project", project->name);
    }
    return data;
}

} // namespace

CommandAnswer listDocuments(CommandSession& session, const DocumentListRequest& request)
{
    const std::vector<Ref<Document>> found =
        filterOf(session, request).find(session.context(), session.now(), session.environment().calendar);
    const std::size_t shown = request.limit == 0 ? found.size() : std::min(found.size(), request.limit);
    TextTable table({{.heading = "Number"},
                     {.heading = "Kind"},
                     {.heading = "Status"},
                     {.heading = "Date"},
                     {.heading = "Due, valid"},
                     {.heading = "Client", .widest = widestName},
                     {.heading = "Title", .widest = widestName},
                     {.heading = "Total", .alignment = TextTable::Alignment::right},
                     {.heading = "Due", .alignment = TextTable::Alignment::right},
                     {.heading = ""}});
    const DocumentListing listing(session.environment());
    JSON::Array documents;
    for (std::size_t index = 0; index < shown; ++index) {
        const Document& document = *session.context().find(found[index]);
        table.addRow(row(session, document));
        documents.push_back(rowData(session, listing, document));
    }
    std::string text = found.empty() ? "There are no such documents.\n" : table.text();
    if (shown < found.size()) {
        text += fmt::format("… and {} more; --limit 0 shows all.\n", found.size() - shown);
    }
    return {.text = std::move(text),
            .data = JSON::object({{"documents", std::move(documents)}, {"more", found.size() - shown}})};
}

} // namespace Quillary
