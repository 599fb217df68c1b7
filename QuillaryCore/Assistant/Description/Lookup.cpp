#include "QuillaryCore/Assistant/Description/Lookup.h"

#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Search/CatalogSearch.h"
#include "QuillaryCore/Search/LibrarySearch.h"
#include "QuillaryCore/Search/ProjectSearch.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

using Hit = TextHit;
using Rank = TextRank;

constexpr std::size_t listedCandidates = 5;

/// Leaves those that bear exactly this name, if there are any; else those that hold it as it was asked for.
void keepMeant(TextHits& hits)
{
    const auto isExact = [](const Hit& hit) {
        return hit.rank == Rank::exact && hit.isOwn;
    };
    const auto isWhole = [](const Hit& hit) {
        return hit.rank < Rank::words;
    };
    if (hits.anyOf(isExact)) {
        hits.keepIf(isExact);
    } else if (hits.anyOf(isWhole)) {
        hits.keepIf(isWhole);
    }
}

/// The only hit, if it is what was meant: its name, or a word of it, begins with what was asked for. A few letters from
/// the middle, a city or a slip in typing name nobody.
template <class Record>
const Record* onlyMeant(Context& context, const TextHits& hits)
{
    if (hits.size() != 1) {
        return nullptr;
    }
    const Hit only = hits.best(1).front();
    return only.isOwn && only.rank <= Rank::word ? context.find(Ref<Record>(only.key)) : nullptr;
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
std::string listed(Context& context, const TextHits& hits)
{
    std::string list;
    for (const Hit& hit : hits.best(listedCandidates)) {
        if (const Record* record = context.find(Ref<Record>(hit.key))) {
            list += (list.empty() ? "" : "; ") + candidate(*record);
        }
    }
    return hits.size() > listedCandidates ? fmt::format("{}; and {} more", list, hits.size() - listedCandidates) : list;
}

/// Throws the question that a name leaves open: which of several, or whether it is one of these at all.
template <class Record>
[[noreturn]] void ask(Context& context, const TextHits& hits, std::string_view asked, std::string_view otherwise)
{
    const std::string list = listed<Record>(context, hits);
    const bool isNear = hits.size() == 1 || hits.best(1).front().rank == Rank::similar;
    throw AssistantError(
        isNear ? fmt::format("Nothing is called {}. Did you mean {}? {}", inQuotes(asked), list, otherwise)
               : fmt::format("{} fits several. Which one? {}.", inQuotes(asked), list));
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
    return fmt::format("{} [{}]", documentName(document), idText(document.uuid));
}

std::string Lookup::reference(const CatalogItem& item)
{
    return fmt::format("{} [{}]", plainText(item.name), idText(item.uuid));
}

std::string Lookup::reference(const Project& project)
{
    return fmt::format("{} [{}]", plainText(project.name), idText(project.uuid));
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
    TextHits hits = environment.librarySearch().documents(asked);
    // A title or a client names no document: what is meant bears this number, in whatever spelling.
    keepMeant(hits);
    hits.keepIf([](const Hit& hit) { return hit.isOwn; });
    if (hits.isEmpty()) {
        throw AssistantError(
            fmt::format("There's no document with the id or number {}. find_documents lists them.", inQuotes(asked)));
    }
    const Document* only = context.find(Ref<Document>(hits.best(1).front().key));
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
    TextHits hits = environment.librarySearch().clients(asked);
    keepMeant(hits);
    if (hits.isEmpty()) {
        throw AssistantError(
            fmt::format("There's no client {}. find_clients lists them, create_client adds one.", inQuotes(asked)));
    }
    if (const Client* only = onlyMeant<Client>(context, hits)) {
        return *only;
    }
    ask<Client>(context, hits, asked, "If not, create_client adds one.");
}

const Project& Lookup::project(Context& context, std::string_view idOrName)
{
    const std::string_view asked = trimmed(idOrName);
    if (const Project* found = named<Project>(context, asked)) {
        return *found;
    }
    const ProjectSearch search(context);
    TextHits hits = search.projects(asked);
    keepMeant(hits);
    if (asked.empty() || hits.isEmpty()) {
        throw AssistantError(fmt::format("There's no project {}.", inQuotes(asked)));
    }
    if (const Project* only = onlyMeant<Project>(context, hits)) {
        return *only;
    }
    ask<Project>(context, hits, asked, "If not, there's no such project yet.");
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
    const CatalogSearch search(context);
    TextHits hits = search.items(asked);
    keepMeant(hits);
    if (hits.isEmpty()) {
        throw AssistantError(
            fmt::format("There's no catalog item {}. find_catalog_items lists them.", inQuotes(asked)));
    }
    if (const CatalogItem* only = onlyMeant<CatalogItem>(context, hits)) {
        return *only;
    }
    ask<CatalogItem>(context, hits, asked, "find_catalog_items lists all.");
}

} // namespace Quillary
