#pragma once

#include <optional>
#include <string>

namespace Quillary {

struct CommandAnswer;
class CommandSession;

/// What was typed after `quillary recurring create|edit|pause|resume|delete`; what is empty was not.
struct RecurringRequest
{
    std::string document;  ///< the invoice to make a template from
    std::string recurring; ///< the template, as `findRecurring` reads it
    std::optional<std::string> title;
    std::string client;
    std::string unit;
    std::optional<int> interval;
    std::optional<int> day;
    std::string next;
    std::optional<int> count;
    std::string until;
    std::string servicePeriod;
    bool isEndless = false;
    bool sends = false;
    bool drafts = false;
    bool makesUp = false;

    /// Whether anything was typed that changes a template.
    [[nodiscard]] bool changesAnything() const;
};

/// What `quillary recurring` does to one template. Each answers with the template as it is then.
namespace RecurringChanges {

CommandAnswer create(CommandSession& session, const RecurringRequest& request);
CommandAnswer edit(CommandSession& session, const RecurringRequest& request);
CommandAnswer pause(CommandSession& session, const RecurringRequest& request);
CommandAnswer resume(CommandSession& session, const RecurringRequest& request);
CommandAnswer remove(CommandSession& session, const RecurringRequest& request);

} // namespace RecurringChanges

} // namespace Quillary
