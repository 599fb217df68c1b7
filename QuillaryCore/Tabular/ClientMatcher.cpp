#include "QuillaryCore/Tabular/ClientMatcher.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Validation.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Tabular/ImportCell.h"

#include <algorithm>
#include <utility>

namespace Quillary {

namespace {

/// Two texts with one key are the same to a person. Empty: there is nothing to compare.
std::string key(std::string_view text)
{
    return ImportCell::singleSpaced(folded(trimmed(text)));
}

std::string vatIDKey(std::string_view text)
{
    const bool hasDigit = std::ranges::any_of(text, [](char byte) { return byte >= '0' && byte <= '9'; });
    return hasDigit ? Validation::compactVATID(text) : std::string();
}

void read(const Statement& row, Client& client)
{
    client.kindRaw = static_cast<std::int16_t>(row.integer(0));
    client.number = row.text(1);
    client.name = row.text(2);
    client.firstName = row.text(3);
    client.lastName = row.text(4);
    client.email = row.text(5);
    client.vatID = row.text(6);
}

} // namespace

ClientMatcher::Keys::Keys(const Client& client)
    : displayName(Quillary::displayName(client))
    , exactNumber(client.number)
    , number(key(client.number))
    , vatID(vatIDKey(client.vatID))
    , email(key(client.email))
    , name(key(displayName))
{
}

void ClientMatcher::addLibrary(Context& context)
{
    Client client; // one for all: its texts keep their room
    const auto note = [this, &client](const Statement& row) {
        read(row, client);
        add(Keys(client), std::nullopt);
    };
    context.query("SELECT kindRaw, number, name, firstName, lastName, email, vatID FROM Client ORDER BY id", note);
}

void ClientMatcher::expect(const Keys& keys) const
{
    m_byNumber.expect(keys.number);
    m_byVATID.expect(keys.vatID);
    m_byEmail.expect(keys.email);
    m_byName.expect(keys.name);
    m_numbers.expect(keys.exactNumber);
}

void ClientMatcher::add(const Keys& keys, std::optional<std::size_t> row)
{
    expect(keys);
    const auto place = static_cast<std::uint32_t>(m_known.size());
    const auto put = [place](KeyIndex& index, const KeyIndex::Key& key) {
        if (!key.text().empty()) {
            index.insert(key, place);
        }
    };
    put(m_byNumber, keys.number);
    put(m_byVATID, keys.vatID);
    put(m_byEmail, keys.email);
    put(m_byName, keys.name);
    put(m_numbers, keys.exactNumber);
    m_known.push_back({keys.displayName, row, keys.hasNumber()});
}

const ClientMatcher::Known* ClientMatcher::known(const KeyIndex& index, const KeyIndex::Key& key) const
{
    const auto found = key.text().empty() ? std::nullopt : index.find(key);
    return found ? &m_known[*found] : nullptr;
}

std::optional<ClientMatcher::Match> ClientMatcher::find(const Keys& keys) const
{
    expect(keys);
    const auto match = [](Trait trait, const Known& other) {
        return Match{trait, other.name, other.row};
    };
    if (const Known* other = known(m_byNumber, keys.number)) {
        return match(Trait::number, *other);
    }
    if (const Known* other = known(m_byVATID, keys.vatID)) {
        return match(Trait::vatID, *other);
    }
    if (const Known* other = known(m_byEmail, keys.email)) {
        return match(Trait::email, *other);
    }
    const Known* other = known(m_byName, keys.name);
    const bool areNumberedApart = other != nullptr && other->row && other->hasNumber && keys.hasNumber();
    return other == nullptr || areNumberedApart ? std::nullopt : std::optional(match(Trait::name, *other));
}

std::optional<std::size_t> ClientMatcher::rowWithName(const Keys& keys) const
{
    const Known* other = known(m_byName, keys.name);
    return other == nullptr ? std::nullopt : other->row;
}

} // namespace Quillary
