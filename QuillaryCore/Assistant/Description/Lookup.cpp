#include "QuillaryCore/Assistant/Description/Lookup.h"

#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Search/CatalogSearch.h"
#include "QuillaryCore/Search/LibrarySearch.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

using Hit = TextIndex::Hit;
using Rank = TextIndex::Rank;

constexpr std::size_t listedCandidates = 5;

/// Leaves those that bear exactly this name, if there are any; else those that hold it as it was asked for.
void keepMeant(std::vector<Hit>& hits)
{
    const auto isExact = [](const Hit& hit) {
        return hit.rank == Rank::exact && hit.isOwn;
    };
    const auto isWhole = [](const Hit& hit) {
        return hit.rank < Rank::words;
    };
    if (std::ranges::any_of(hits, isExact)) {
        std::erase_if(hits, [&](const Hit& hit) { return !isExact(hit); });
    } else if (std::ranges::any_of(hits, isWhole)) {
        std::erase_if(hits, [&](const Hit& hit) { return !isWhole(hit); });
    }
}

/// Whether the only hit is what was meant: its name, or a word of it, begins with what was asked for. A few letters
/// from the middle, a city or a slip in typing name nobody.
bool isMeant(const std::vector<Hit>& hits)
{
    return hits.size() == 1 && hits.front().isOwn && hits.front().rank <= Rank::word;
}

/// A record among others that a call may mean: clients of one name and city differ by their number at least.
std::string candidate(const Client& client)
{
    const std::string number = plainText(client.number);
    return fmt::format("{}{}{}", number.empty() ? "" : "no. ", number, number.empty() ? "" : ", ") +
           Lookup::reference(client);
}

template <class Record>
std::string candidate(const Record& record)
{
    return Lookup::reference(record);
}

template <class Record>
std::string listed(Context& context, std::vector<Hit> hits)
{
    const std::size_t count = hits.size();
    LibrarySearch::keepBest(hits, listedCandidates);
    std::string list;
    for (const Hit& hit : hits) {
        if (const Record* record = context.find(Ref<Record>(hit.key))) {
            list += (list.empty() ? "" : "; ") + candidate(*record);
        }
    }
    return count > listedCandidates ? fmt::format("{}; and {} more", list, count - listedCandidates) : list;
}

/// Throws the question that a name leaves open: which of several, or whether it is one of these at all.
template <class Record>
[[noreturn]] void
ask(Context& context, const std::vector<Hit>& hits, std::string_view asked, std::string_view otherwise)
{
    const std::string list = listed<Record>(context, hits);
    const bool isNear = hits.size() == 1 || hits.front().rank == Rank::similar;
    throw AssistantError(
        isNear ? fmt::format("Nothing is called {}. Did you mean {}? {}", Quillary::quoted(asked), list, otherwise)
               : fmt::format("{} fits several. Which one? {}.", Quillary::quoted(asked), list));
}

template <class Record>
const Record* named(Context& context, std::string_view asked)
{
    const std::optional<UUID> uuid = Lookup::idIn(asked);
    return uuid ? context.find<Record>(*uuid) : nullptr;
}

} // namespace

std::string Lookup::idText(const std::optional<UUID>& uuid)
{
    return uuid ? uuid->text() : "no id";
}

std::optional<UUID> Lookup::idIn(std::string_view asked)
{
    std::string_view id = trimmed(asked);
    if (id.starts_with('[') && id.ends_with(']')) {
        id = trimmed(id.substr(1, id.size() - 2));
    }
    return UUID::parse(id);
}

std::string Lookup::reference(const Client& client)
{
    const std::string city = plainText(client.city);
    return fmt::format(
        "{}{}{} [{}]", plainText(displayName(client)), city.empty() ? "" : ", ", city, idText(client.uuid));
}

std::string Lookup::reference(const Document& document)
{
    const std::optional<DocumentKind> documentKind = kind(document);
    const std::string number = plainText(document.number);
    return fmt::format("{} {} [{}]",
                       documentKind ? title(*documentKind) : "Document",
                       number.empty() ? "without a number" : number,
                       idText(document.uuid));
}

std::string Lookup::reference(const CatalogItem& item)
{
    return fmt::format("{} [{}]", plainText(item.name), idText(item.uuid));
}

const Document& Lookup::document(const AssistantEnvironment& environment, std::string_view idOrNumber)
{
    Context& context = environment.context;
    const std::string_view asked = trimmed(idOrNumber);
    if (asked.empty()) {
        throw AssistantError("Which document? Give an id or a number.");
    }
    if (const Document* found = named<Document>(context, asked)) {
        return *found;
    }
    const std::string number(asked);
    const std::vector<const Document*> same = context.fetch<Document>("number = ?", number);
    if (same.size() == 1) {
        return *same.front();
    }
    std::vector<Hit> hits = environment.librarySearch().documents(asked);
    // A title or a client names no document: what is meant bears this number, in whatever spelling.
    keepMeant(hits);
    std::erase_if(hits, [](const Hit& hit) { return !hit.isOwn; });
    if (hits.empty()) {
        throw AssistantError(fmt::format("There's no document with the id or number {}. find_documents lists them.",
                                         Quillary::quoted(asked)));
    }
    const Document* only = context.find(Ref<Document>(hits.front().key));
    if (hits.size() == 1 && only != nullptr && folded(only->number) == folded(asked)) {
        return *only;
    }
    ask<Document>(context, hits, asked, "find_documents lists all.");
}

const Document& Lookup::document(const AssistantEnvironment& environment, const Arguments& arguments)
{
    return document(environment, arguments.line("document", Limits::lineLength).value_or(""));
}

const Client& Lookup::client(const AssistantEnvironment& environment, std::string_view idOrName)
{
    Context& context = environment.context;
    const std::string_view asked = trimmed(idOrName);
    if (asked.empty()) {
        throw AssistantError("Which client? Give an id or a name.");
    }
    if (const Client* found = named<Client>(context, asked)) {
        return *found;
    }
    std::vector<Hit> hits = environment.librarySearch().clients(asked);
    keepMeant(hits);
    if (hits.empty()) {
        throw AssistantError(fmt::format("There's no client {}. find_clients lists them, create_client adds one.",
                                         Quillary::quoted(asked)));
    }
    if (isMeant(hits)) {
        if (const Client* only = context.find(Ref<Client>(hits.front().key))) {
            return *only;
        }
    }
    ask<Client>(context, hits, asked, "If not, create_client adds one.");
}

const CatalogItem& Lookup::catalogItem(Context& context, std::string_view idOrName)
{
    const std::string_view asked = trimmed(idOrName);
    if (asked.empty()) {
        throw AssistantError("Which catalog item? Give an id or a name.");
    }
    if (const CatalogItem* found = named<CatalogItem>(context, asked)) {
        return *found;
    }
    std::vector<Hit> hits = findCatalogItems(context, asked);
    keepMeant(hits);
    if (hits.empty()) {
        throw AssistantError(
            fmt::format("There's no catalog item {}. find_catalog_items lists them.", Quillary::quoted(asked)));
    }
    if (isMeant(hits)) {
        if (const CatalogItem* only = context.find(Ref<CatalogItem>(hits.front().key))) {
            return *only;
        }
    }
    ask<CatalogItem>(context, hits, asked, "find_catalog_items lists all.");
}

} // namespace Quillary
