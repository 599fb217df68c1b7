#pragma once

#include "QuillaryCore/Documents/Desk.h"
#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Model/DocumentKind.h"

#include <string>

namespace Quillary {

struct Client;
struct Document;

/// The numbers of drafts: a draft has one from the beginning, and gives it back when it goes before a later one was
/// given out.
namespace DraftNumbers {

/// Takes the next number of a kind's series. Empty for a recurring template, which has none, and where the pattern
/// counts per client and none is chosen: such a draft is numbered when it gets its client.
/// Throws: `NumberingError`.
[[nodiscard]] std::string take(const Desk& desk, DocumentKind kind, Instant issueDate, const Client* client);

/// Gives the number of a document back; the document keeps the text. False: it has none, or a later one is in use, so
/// that the number stays taken. `issueDate` and `client` are those that the number was taken with.
bool giveBack(const Desk& desk, const Document& document, Instant issueDate, const Client* client);

/// The same with the document's own date and client.
bool giveBack(const Desk& desk, const Document& document);

} // namespace DraftNumbers

} // namespace Quillary
