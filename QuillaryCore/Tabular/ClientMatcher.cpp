#include "QuillaryCore/Tabular/ClientMatcher.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Validation.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Tabular/ImportCell.h"

#include <utility>

namespace Quillary {

namespace {

/// Two texts with one key are the same to a person. Empty: there is nothing to compare.
std::string key(std::string_view text)
{
    std::string result = folded(trimmed(text));
    if (result.find("  ") != std::string::npos || result.find('\n') != std::string::npos) {
        result = ImportCell::line(result);
    }
    return result;
}

std::string vatIDKey(std::string_view text)
{
    const bool hasDigit = text.find_first_of("0123456789") != std::string_view::npos;
    return hasDigit ? Validation::compactVATID(text) : std::string();
}

Client clientOf(const Statement& row)
{
    Client client;
    client.kindRaw = static_cast<std::int16_t>(row.integer(0));
    client.number = row.text(1);
    client.name = row.text(2);
    client.firstName = row.text(3);
    client.lastName = row.text(4);
    client.email = row.text(5);
    client.vatID = row.text(6);
    return client;
}

} // namespace

void ClientMatcher::addLibrary(Context& context)
{
    const auto note = [this](const Statement& row) {
        this->note(clientOf(row), std::nullopt);
    };
    context.query("SELECT kindRaw, number, name, firstName, lastName, email, vatID FROM Client ORDER BY id", note);
}

void ClientMatcher::add(const Client& client, std::size_t row)
{
    note(client, row);
}

void ClientMatcher::note(const Client& client, std::optional<std::size_t> row)
{
    const auto place = static_cast<std::uint32_t>(m_known.size());
    std::string name = displayName(client);
    const auto put = [place](Index& index, std::string text) {
        if (!text.empty()) {
            index.emplace(std::move(text), place); // the first that has it keeps it
        }
    };
    put(m_byNumber, key(client.number));
    put(m_byVATID, vatIDKey(client.vatID));
    put(m_byEmail, key(client.email));
    put(m_byName, key(name));
    if (!client.number.empty()) {
        m_numbers.insert(client.number);
    }
    m_known.push_back({std::move(name), row, !client.number.empty()});
}

const ClientMatcher::Known* ClientMatcher::known(const Index& index, const std::string& key) const
{
    const auto found = key.empty() ? index.end() : index.find(key);
    return found == index.end() ? nullptr : &m_known[found->second];
}

std::optional<ClientMatcher::Match> ClientMatcher::find(const Client& client) const
{
    const auto match = [](Trait trait, const Known& other) {
        return Match{trait, other.name, other.row};
    };
    if (const Known* other = known(m_byNumber, key(client.number))) {
        return match(Trait::number, *other);
    }
    if (const Known* other = known(m_byVATID, vatIDKey(client.vatID))) {
        return match(Trait::vatID, *other);
    }
    if (const Known* other = known(m_byEmail, key(client.email))) {
        return match(Trait::email, *other);
    }
    const Known* other = known(m_byName, key(displayName(client)));
    const bool areNumberedApart = other != nullptr && other->row && other->hasNumber && !client.number.empty();
    return other == nullptr || areNumberedApart ? std::nullopt : std::optional(match(Trait::name, *other));
}

std::optional<std::size_t> ClientMatcher::rowWithName(const Client& client) const
{
    const Known* other = known(m_byName, key(displayName(client)));
    return other == nullptr ? std::nullopt : other->row;
}

} // namespace Quillary
