#pragma once

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Tabular/KeyIndex.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;

/// Finds out whether a client is there already: in the library, or in an earlier row of the list.
///
/// The same are clients with one number, one VAT ID, one email address or one name, in whatever case, accents and
/// spacing. Only a name isn't enough where two rows of one list carry it with different numbers: who numbers his clients
/// knows which are two.
class ClientMatcher
{
public:
    /// What two clients share.
    enum class Trait : std::uint8_t { number, vatID, email, name };

    /// The client that another is a duplicate of.
    struct Match
    {
        Trait trait = Trait::number;
        std::string name;               ///< the client's name
        std::optional<std::size_t> row; ///< of the list; no value: it is in the library

        friend bool operator==(const Match&, const Match&) = default;
    };

    /// Knows the clients of the library, in one narrow query.
    void addLibrary(Context& context);

    /// What a client is compared by; the same texts mean the same to a person. Empty: nothing to compare.
    struct Keys
    {
        explicit Keys(const Client& client);

        [[nodiscard]] bool hasNumber() const { return !exactNumber.text().empty(); }

        std::string displayName;
        KeyIndex::Key exactNumber; ///< as it stands
        KeyIndex::Key number;
        KeyIndex::Key vatID;
        KeyIndex::Key email;
        KeyIndex::Key name;
    };

    /// Compares with all known, by the surest trait first. No value: there is none like it.
    [[nodiscard]] std::optional<Match> find(const Keys& keys) const;

    /// The earlier row with the same name and another number. No value: there is none.
    [[nodiscard]] std::optional<std::size_t> rowWithName(const Keys& keys) const;

    /// Makes a new client of the list known. `row` tells it in a match.
    void add(const Keys& keys, std::optional<std::size_t> row);

    /// Whether a client of the library or an added one carries exactly this number.
    [[nodiscard]] bool isTaken(const std::string& number) const
    {
        return m_numbers.find(KeyIndex::Key(number)).has_value();
    }

private:
    struct Known
    {
        std::string name;
        std::optional<std::size_t> row;
        bool hasNumber = false;
    };

    void expect(const Keys& keys) const;
    [[nodiscard]] const Known* known(const KeyIndex& index, const KeyIndex::Key& key) const;

    std::vector<Known> m_known;
    KeyIndex m_byNumber; ///< the numbers of an index are places in `m_known`
    KeyIndex m_byVATID;
    KeyIndex m_byEmail;
    KeyIndex m_byName;
    KeyIndex m_numbers; ///< as they stand
};

} // namespace Quillary
