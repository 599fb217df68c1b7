#pragma once

#include <string>
#include <vector>

namespace Quillary {

struct CommandAnswer;
class CommandSession;

/// What is to be done to a document, as it was typed.
struct DocumentChangeRequest
{
    std::string document;
    std::string date;               ///< YYYY-MM-DD; empty: today
    std::vector<std::string> lines; ///< "3" or "3=1.5": a line's number, and how much of it
    bool withFees = false;
    std::string action; ///< "sent", "paid", "accepted" …
    std::string amount;
    std::string method;
    std::string note;
    std::string removedPayment; ///< its number in `document show`, or its id
    std::vector<std::string> tags;
    std::string project;
};

/// The operations on one document behind `quillary document`. Each throws `UserError` with one sentence.
namespace DocumentChanges {

[[nodiscard]] CommandAnswer show(CommandSession& session, const DocumentChangeRequest& request);
[[nodiscard]] CommandAnswer creditNote(CommandSession& session, const DocumentChangeRequest& request);
[[nodiscard]] CommandAnswer invoice(CommandSession& session, const DocumentChangeRequest& request);
[[nodiscard]] CommandAnswer duplicate(CommandSession& session, const DocumentChangeRequest& request);
[[nodiscard]] CommandAnswer status(CommandSession& session, const DocumentChangeRequest& request);
[[nodiscard]] CommandAnswer pay(CommandSession& session, const DocumentChangeRequest& request);
[[nodiscard]] CommandAnswer tag(CommandSession& session, const DocumentChangeRequest& request);
[[nodiscard]] CommandAnswer project(CommandSession& session, const DocumentChangeRequest& request);
[[nodiscard]] CommandAnswer remove(CommandSession& session, const DocumentChangeRequest& request);

} // namespace DocumentChanges

} // namespace Quillary
