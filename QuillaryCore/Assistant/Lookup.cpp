#include "QuillaryCore/Assistant/Lookup.h"

#include "QuillaryCore/Assistant/ToolResult.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t listedCandidates = 5;

std::string quoted(std::string_view text)
{
    constexpr std::size_t longest = 60;
    const std::string clean = repairedUTF8(text.substr(0, longest * 16));
    const std::string_view shown = graphemePrefix(clean, longest);
    return fmt::format("“{}{}”", shown, shown.size() < text.size() ? "…" : "");
}

std::string describe(const Client& client)
{
    return fmt::format(
        "{}{} [{}]", displayName(client), client.city.empty() ? "" : ", " + client.city, Lookup::idText(client.uuid));
}

std::string describe(const Document& document)
{
    const std::optional<DocumentKind> documentKind = kind(document);
    return fmt::format(
        "{} {} [{}]", documentKind ? title(*documentKind) : "Document", document.number, Lookup::idText(document.uuid));
}

std::string describe(const CatalogItem& item)
{
    return fmt::format("{} [{}]", item.name, Lookup::idText(item.uuid));
}

template <class Record>
const Record& onlyOne(const std::vector<const Record*>& candidates, std::string_view asked)
{
    if (candidates.size() == 1) {
        return *candidates.front();
    }
    std::string list;
    for (std::size_t index = 0; index < std::min(candidates.size(), listedCandidates); ++index) {
        list += list.empty() ? "" : "; ";
        list += describe(*candidates[index]);
    }
    if (candidates.size() > listedCandidates) {
        list += fmt::format("; and {} more", candidates.size() - listedCandidates);
    }
    throw AssistantError(fmt::format("{} fits several. Which one? {}.", quoted(asked), list));
}

/// How well a text answers a query: 0 is the same, 1 begins with it, 2 has a word that begins with it, 3 holds it.
std::optional<int> rank(std::string_view text, std::string_view foldedQuery)
{
    if (text.empty()) {
        return std::nullopt;
    }
    const std::string candidate = folded(text);
    const std::size_t position = candidate.find(foldedQuery);
    if (position == std::string::npos) {
        return std::nullopt;
    }
    if (position == 0) {
        return candidate.size() == foldedQuery.size() ? 0 : 1;
    }
    return candidate[position - 1] == ' ' ? 2 : 3;
}

std::optional<int> better(std::optional<int> left, std::optional<int> right)
{
    if (!left || !right) {
        return left ? left : right;
    }
    return std::min(*left, *right);
}

std::optional<int> rank(Context& context, const Client& client, std::string_view foldedQuery)
{
    std::optional<int> best = rank(displayName(client), foldedQuery);
    for (const std::string* text : {&client.number, &client.email, &client.city, &client.name}) {
        best = better(best, rank(*text, foldedQuery));
    }
    for (const ContactPerson* contact : context.related<&ContactPerson::client>(client)) {
        best = better(best, better(rank(contact->name, foldedQuery), rank(contact->email, foldedQuery)));
    }
    return best;
}

/// A client that answers a query, and where it stood before the best were put first.
struct Hit
{
    int rank;
    std::size_t order;
    const Client* client;
};

std::vector<Hit> rankedClients(Context& context, std::string_view query)
{
    const std::string foldedQuery = folded(trimmed(query));
    const std::vector<const Client*> all = context.fetch<Client>("1 ORDER BY createdAt DESC, id DESC");
    context.prefetch<&ContactPerson::client>(std::span(all));
    std::vector<Hit> found;
    for (const Client* client : all) {
        if (const std::optional<int> place = rank(context, *client, foldedQuery)) {
            found.push_back({.rank = *place, .order = found.size(), .client = client});
        }
    }
    std::ranges::sort(found, {}, [](const Hit& hit) { return std::pair(hit.rank, hit.order); });
    return found;
}

} // namespace

std::string Lookup::idText(const std::optional<UUID>& uuid)
{
    return uuid ? uuid->text() : "no id";
}

const Document& Lookup::document(Context& context, std::string_view idOrNumber)
{
    const std::string_view asked = trimmed(idOrNumber);
    if (const std::optional<UUID> uuid = UUID::parse(asked)) {
        if (const Document* found = context.find<Document>(*uuid)) {
            return *found;
        }
    }
    const std::vector<const Document*> found =
        asked.empty() ? std::vector<const Document*>() : context.fetch<Document>("number = ?", std::string(asked));
    if (found.empty()) {
        throw AssistantError(fmt::format("There's no document with the id or number {}.", quoted(asked)));
    }
    return onlyOne(found, asked);
}

const Client& Lookup::client(Context& context, std::string_view idOrName)
{
    const std::string_view asked = trimmed(idOrName);
    if (const std::optional<UUID> uuid = UUID::parse(asked)) {
        if (const Client* found = context.find<Client>(*uuid)) {
            return *found;
        }
    }
    if (asked.empty()) {
        throw AssistantError("Which client? Give an id or a name.");
    }
    const std::vector<Hit> ranked = rankedClients(context, asked);
    if (ranked.empty()) {
        throw AssistantError(
            fmt::format("There's no client {}. find_clients lists them, create_client adds one.", quoted(asked)));
    }
    std::vector<const Client*> best;
    for (const Hit& hit : ranked) {
        // Who bears exactly this name is meant; of those that only hold it none is guessed at.
        if (hit.rank == ranked.front().rank || ranked.front().rank != 0) {
            best.push_back(hit.client);
        }
    }
    return onlyOne(best, asked);
}

const CatalogItem& Lookup::catalogItem(Context& context, std::string_view idOrName)
{
    const std::string_view asked = trimmed(idOrName);
    if (const std::optional<UUID> uuid = UUID::parse(asked)) {
        if (const CatalogItem* found = context.find<CatalogItem>(*uuid)) {
            return *found;
        }
    }
    std::vector<const CatalogItem*> same;
    std::vector<const CatalogItem*> similar;
    const std::string foldedQuery = folded(asked);
    for (const CatalogItem* item : context.fetch<CatalogItem>("1 ORDER BY name, id")) {
        if (const std::optional<int> place = rank(item->name, foldedQuery)) {
            (*place == 0 ? same : similar).push_back(item);
        }
    }
    if (same.empty() && (similar.empty() || asked.empty())) {
        throw AssistantError(fmt::format("There's no catalog item {}.", quoted(asked)));
    }
    return onlyOne(same.empty() ? similar : same, asked);
}

std::vector<const Client*> Lookup::clients(Context& context, std::string_view query, std::size_t limit)
{
    if (trimmed(query).empty()) {
        return context.fetch<Client>("1 ORDER BY createdAt DESC, id DESC LIMIT ?", static_cast<std::int64_t>(limit));
    }
    std::vector<const Client*> result;
    for (const Hit& hit : rankedClients(context, query)) {
        if (result.size() == limit) {
            break;
        }
        result.push_back(hit.client);
    }
    return result;
}

} // namespace Quillary
