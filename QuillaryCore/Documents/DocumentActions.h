#pragma once

#include "QuillaryCore/Billing/Payments.h"
#include "QuillaryCore/Billing/StatusActions.h"
#include "QuillaryCore/Documents/Desk.h"
#include "QuillaryCore/Foundation/Instant.h"

#include <span>
#include <string>

namespace Quillary {

struct Document;
struct Payment;
struct Project;

/// What people do to documents, each in a scope of its own. What can't be done throws: `DocumentError` with a sentence
/// for the screen, and everything is as it was.
namespace DocumentActions {

/// A draft of an invoice with the contents of a quote, which becomes accepted if it was sent. One for each quote.
/// `issueDate` is a `Calendar::storedDay`, `madeBy` an assistant's name, or empty for the user; also below.
/// Throws also: `NumberingError`.
const Document& invoiceFromQuote(const Desk& desk, const Document& quote, Instant issueDate, const std::string& madeBy);

/// A draft of the same kind and contents. A template's copy has its schedule, begins on the date and is paused. A credit
/// note of an invoice can't be made twice. Throws also: `NumberingError`.
const Document& duplicate(const Desk& desk, const Document& source, Instant issueDate, const std::string& madeBy);

/// One of the actions open to the document; docs/status-actions.md.
void applyStatus(const Desk& desk, const Document& document, StatusAction action, Instant now);

/// Records money for an invoice, its draft included. A date after `now`'s day is refused.
const Payment& pay(const Desk& desk, const Document& document, const PaymentDetails& details, Instant now);

/// Takes a payment back; a paid invoice is open again when something is owed then.
void takeBackPayment(const Desk& desk, const Payment& payment);

/// Replaces all tags.
void setTags(const Desk& desk, const Document& document, std::span<const std::string> tags);

/// Null: the document belongs to no project any more.
void setProject(const Desk& desk, const Document& document, const Project* project);

/// Deletes a draft, or a recurring template, and frees the time that it billed. True: its number is free again.
/// Refused when money was recorded for it.
bool deleteDraft(const Desk& desk, const Document& document);

} // namespace DocumentActions

} // namespace Quillary
