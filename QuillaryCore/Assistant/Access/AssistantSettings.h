#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantAccess.h"
#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/JSON.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// What the user said about one assistant; `waiting`: it has called, and nobody has decided yet.
enum class AssistantApproval { allowed, denied, waiting };

/// An assistant that has called, or that the user named.
struct KnownAssistant
{
    std::string name; ///< as `ShownText::assistantName` makes it
    AssistantApproval approval = AssistantApproval::waiting;
    std::optional<Instant> askedAt = {}; ///< when one that waits last called

    friend bool operator==(const KnownAssistant&, const KnownAssistant&) = default;
};

/// The user's preferences about AI assistants.
///
/// Invariant, kept by the operations and checked by `read`: each name occurs once.
struct AssistantSettings
{
    /// More names than this don't wait; the one that called longest ago gives way.
    static constexpr std::size_t mostWaiting = 50;

    bool isOn = false; ///< nothing is open to assistants until the user says so

    /// Drafts are what assistants are for, and nothing of theirs leaves the house.
    AssistantAccess access = AssistantAccess::drafts;

    std::vector<KnownAssistant> assistants = {}; ///< in the order in which they became known

    /// Null: not known.
    [[nodiscard]] const KnownAssistant* find(std::string_view name) const;

    /// Keeps the user's word; no longer waiting.
    void decide(std::string_view name, AssistantApproval approval);

    /// Keeps a name that called and was not decided on. Of one that was, nothing changes.
    void keepWaiting(std::string_view name, Instant now);

    /// Returns whether the name was known.
    bool forget(std::string_view name);

    [[nodiscard]] JSON json() const;

    /// No value: anything that `json` doesn't write. Half-understood settings could open what the user closed.
    [[nodiscard]] static std::optional<AssistantSettings> read(std::string_view text);

    friend bool operator==(const AssistantSettings&, const AssistantSettings&) = default;
};

} // namespace Quillary
