#pragma once

#include "QuillaryCore/Store/Field.h"

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

class Context;
struct Client;
struct Document;

/// What the user was asked. The values are stored in `ReviewAnswer::topicRaw`.
enum class ReviewTopic : std::int16_t {
    currency = 0,     ///< a currency that isn't the client's usual one is meant
    taxTreatment = 1, ///< tax is charged as usual to a client abroad
    freeLine = 2,     ///< a line costs nothing
    untaxedLine = 3,  ///< a line bears no tax
    vatID = 4,        ///< a client has no VAT ID
};

/// The answers whose whole content is "yes, it is meant like that": the records they belong to look the same before and
/// after, so that without these the same question would come again and again.
namespace ReviewAnswers {

/// Everything the user has confirmed on a topic of a document.
[[nodiscard]] std::set<std::string, std::less<>> of(Context& context, const Document& document, ReviewTopic topic);

void remember(Context& context, const Document& document, ReviewTopic topic, std::string_view answer);

/// True when the user said that the client has no VAT ID.
[[nodiscard]] bool hasNoVATID(Context& context, const Client& client);

void setHasNoVATID(Context& context, const Client& client, bool hasNone);

} // namespace ReviewAnswers

/// A fact about a document or a client that its own record has no field for, tied to it by `uuid`.
struct ReviewAnswer : Record<ReviewAnswer>
{
    std::optional<UUID> uuid;       ///< set on insertion; absent only in damaged or foreign data
    std::optional<UUID> documentID; ///< one of the two is set
    std::optional<UUID> clientID;
    std::int16_t topicRaw = 0; ///< `ReviewTopic`
    std::string answer;        ///< what was confirmed; its form is the topic's

    static constexpr std::string_view entityName = "ReviewAnswer";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &ReviewAnswer::uuid},
                          Field{"documentID", &ReviewAnswer::documentID},
                          Field{"clientID", &ReviewAnswer::clientID},
                          Field{"topicRaw", &ReviewAnswer::topicRaw},
                          Field{"answer", &ReviewAnswer::answer}};
    }

    static constexpr auto references() { return std::tuple{}; }

    static constexpr auto uuidReferences()
    {
        return std::tuple{UUIDReference{"documentID", &ReviewAnswer::documentID, "Document", WhenTargetGoes::erase},
                          UUIDReference{"clientID", &ReviewAnswer::clientID, "Client", WhenTargetGoes::erase}};
    }

    static constexpr auto indexes()
    {
        return std::array{Index{"ReviewAnswer_document", "documentID", "documentID IS NOT NULL"},
                          Index{"ReviewAnswer_client", "clientID", "clientID IS NOT NULL"}};
    }

    friend bool operator==(const ReviewAnswer&, const ReviewAnswer&) = default;
};

} // namespace Quillary
