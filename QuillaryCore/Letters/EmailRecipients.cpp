#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UTF8.h"
#include "QuillaryCore/Letters/EmailDraft.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Model/ContactPersons.h"

#include <algorithm>
#include <cstddef>

namespace Quillary {

namespace {

/// Cuts the first character off a text and returns it.
std::string_view takeCharacter(std::string_view& text)
{
    const std::string_view character = text.substr(0, decodeFirst(text).length);
    text.remove_prefix(character.size());
    return character;
}

bool isWhiteSpace(std::string_view character)
{
    return trimmed(character).empty();
}

bool hasWhiteSpace(std::string_view text)
{
    while (!text.empty()) {
        if (isWhiteSpace(takeCharacter(text))) {
            return true;
        }
    }
    return false;
}

/// [^@\s]+@[^@\s]+\.[^@\s.]{2,} from end to end.
bool isAddress(std::string_view address)
{
    constexpr std::size_t shortestEnding = 2;
    const std::size_t at = address.find('@');
    if (at == 0 || at == std::string_view::npos || address.find('@', at + 1) != std::string_view::npos) {
        return false;
    }
    const std::size_t dot = address.rfind('.');
    if (dot == std::string_view::npos || dot < at + 2) { // nothing stands before the dot
        return false;
    }
    std::size_t endingLength = 0;
    for (std::string_view ending = address.substr(dot + 1); !ending.empty(); ++endingLength) {
        takeCharacter(ending);
    }
    return endingLength >= shortestEnding && !hasWhiteSpace(address);
}

/// Whom a list names, without white space or names around the addresses.
class AddressList
{
public:
    explicit AddressList(std::string_view typed)
    {
        bool isQuoted = false;
        std::size_t start = 0;
        for (std::size_t index = 0; index < typed.size(); ++index) {
            isQuoted = isQuoted != (typed[index] == '"');
            if (!isQuoted && separators.contains(typed[index])) {
                addEntry(typed.substr(start, index - start));
                start = index + 1;
            }
        }
        addEntry(typed.substr(start));
    }

    [[nodiscard]] std::vector<std::string> taken() { return std::move(m_addresses); }

private:
    static constexpr std::string_view separators = ",;\n\r";

    void addEntry(std::string_view entry)
    {
        entry = trimmed(entry);
        const std::size_t bracket = entry.rfind('<');
        if (entry.ends_with('>') && bracket != std::string_view::npos) {
            add(trimmed(entry.substr(bracket + 1, entry.size() - bracket - 2)));
        } else {
            addWords(entry);
        }
    }

    void addWords(std::string_view entry)
    {
        std::string_view word = entry.substr(0, 0);
        while (!entry.empty()) {
            const std::string_view character = takeCharacter(entry);
            if (isWhiteSpace(character)) {
                add(word);
                word = entry.substr(0, 0);
            } else {
                word = {word.empty() ? character.data() : word.data(), word.size() + character.size()};
            }
        }
        add(word);
    }

    void add(std::string_view address)
    {
        const auto isSame = [&](const std::string& other) {
            return lowerCasedASCII(other) == lowerCasedASCII(address);
        };
        if (!address.empty() && std::ranges::none_of(m_addresses, isSame)) {
            m_addresses.emplace_back(address);
        }
    }

    std::vector<std::string> m_addresses;
};

} // namespace

std::vector<EmailRecipient> EmailDraft::recipients(Context& context, const Client& client)
{
    std::vector<EmailRecipient> result;
    const auto add = [&result](std::string_view name, std::string_view typed) {
        for (std::string& address : addresses(typed)) {
            const auto isSame = [&address](const EmailRecipient& other) {
                return lowerCasedASCII(other.address) == lowerCasedASCII(address);
            };
            if (std::ranges::none_of(result, isSame)) {
                result.push_back({std::string(name), std::move(address)});
            }
        }
    };
    const std::string clientName = displayName(client);
    add(clientName, client.email);
    for (const ContactPerson* contact : contactPersons(context, client)) {
        const std::string_view name = trimmed(contact->name);
        add(name.empty() ? clientName : name, contact->email);
    }
    return result;
}

std::vector<std::string> EmailDraft::addresses(std::string_view typed)
{
    return AddressList(typed).taken();
}

std::vector<std::string> EmailDraft::invalidAddresses(std::string_view typed)
{
    std::vector<std::string> result = addresses(typed);
    std::erase_if(result, isAddress);
    return result;
}

} // namespace Quillary
