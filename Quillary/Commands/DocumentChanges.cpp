#include "Quillary/Commands/DocumentChanges.h"

#include "Quillary/Commands/CommandSession.h"
#include "QuillaryCore/Assistant/Description/DocumentDescription.h"
#include "QuillaryCore/Assistant/Description/DocumentListing.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Tools/Arguments.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Documents/CreditNotes.h"
#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Foundation/PlainText.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Quantity.h"

#include <fmt/format.h>

#include <array>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

/// What was done, and how the document stands now.
CommandAnswer changed(CommandSession& session, const std::string& what, const Document& document)
{
    const DocumentListing listing(session.environment());
    return {.text = fmt::format("{}\n{}\n", what, listing.text(document)), .data = listing.data(document)};
}

/// "3" or "3=1.5".
CreditNotes::Chosen chosenLine(const std::string& typed)
{
    const std::size_t sign = typed.find('=');
    const JSON given = JSON::object({{"line", typed.substr(0, sign)}});
    const Arguments arguments(given);
    CreditNotes::Chosen chosen;
    chosen.line = static_cast<std::size_t>(
        arguments.wholeNumber("line", 1, static_cast<std::int64_t>(Limits::linesPerDocument)).value_or(0));
    if (sign != std::string::npos) {
        const JSON amount = JSON::object({{"line", typed.substr(sign + 1)}});
        chosen.quantityThousandths = Arguments(amount).quantity("line", Limits::quantityThousandths);
    }
    return chosen;
}

/// What of an invoice isn't credited yet, where something is credited at all.
void addLeft(CommandSession& session, const Document& invoice, CommandAnswer& answer)
{
    const CreditNotes::Left left = CreditNotes::left(session.desk(), invoice);
    if (left.creditNotes.empty()) {
        return;
    }
    JSON::Array lines;
    answer.text +=
        fmt::format("Credited by: {}\n", derivedNumbers(session.context(), invoice, DocumentKind::creditNote));
    for (std::size_t index = 0; index < left.lines.size(); ++index) {
        const CreditNotes::LineLeft& entry = left.lines[index];
        const std::string quantity = Quantity::plainText(entry.quantityThousandths);
        answer.text += fmt::format("Left to credit of line {}: {}\n", index + 1, quantity);
        lines.push_back(JSON::object({{"line", index + 1}, {"quantity", JSON::Number{quantity}}}));
    }
    answer.data.set("left_to_credit", std::move(lines));
}

/// The payments with the numbers by which one is taken back.
void addPayments(CommandSession& session, const Document& document, CommandAnswer& answer)
{
    JSON::Array list;
    for (const Payment* payment : sortedPayments(session.context(), document)) {
        const std::string day = payment->date ? isoText(session.environment().calendar.date(*payment->date)) : "";
        const std::string amount = Money(payment->amountMinorUnits, document.currencyCode).plainText();
        list.push_back(JSON::object({{"number", list.size() + 1},
                                     {"id", Lookup::idText(payment->uuid)},
                                     {"amount", JSON::Number{amount}},
                                     {"date", day},
                                     {"method", payment->method},
                                     {"note", payment->note}}));
        answer.text +=
            fmt::format("Payment {}: {} {}, {}\n", list.size(), amount, plainText(document.currencyCode), day);
    }
    if (!list.empty()) {
        answer.data.set("recorded_payments", std::move(list));
    }
}

struct ActionWord
{
    std::string_view word;
    StatusAction action;
};

constexpr std::array actionWords = {ActionWord{"sent", StatusAction::markSent},
                                    ActionWord{"paid", StatusAction::markPaid},
                                    ActionWord{"refunded", StatusAction::markPaid},
                                    ActionWord{"unpaid", StatusAction::markUnpaid},
                                    ActionWord{"not-refunded", StatusAction::markUnpaid},
                                    ActionWord{"draft", StatusAction::markDraft},
                                    ActionWord{"accepted", StatusAction::markAccepted},
                                    ActionWord{"declined", StatusAction::markDeclined},
                                    ActionWord{"reopen", StatusAction::reopen}};

StatusAction typedAction(const std::string& typed)
{
    std::string words;
    for (const ActionWord& entry : actionWords) {
        if (entry.word == lowerCasedASCII(typed)) {
            return entry.action;
        }
        words += fmt::format("{}{}", words.empty() ? "" : ", ", entry.word);
    }
    throw UserError(fmt::format("{} is no status to set; there are {}.", inQuotes(typed), words));
}

const Payment& typedPayment(CommandSession& session, const Document& document, const std::string& typed)
{
    const std::vector<const Payment*> payments = sortedPayments(session.context(), document);
    if (payments.empty()) {
        throw UserError(fmt::format("No payment is recorded for {}.", documentName(document)));
    }
    const std::optional<UUID> uuid = Lookup::idIn(typed);
    for (const Payment* payment : payments) {
        if (uuid && payment->uuid == uuid) {
            return *payment;
        }
    }
    const JSON given = JSON::object({{"remove", typed}});
    const auto number = Arguments(given).wholeNumber("remove", 1, static_cast<std::int64_t>(payments.size()));
    return *payments.at(static_cast<std::size_t>(number.value_or(0)) - 1);
}

PaymentMethod typedMethod(const std::string& typed)
{
    if (typed.empty()) {
        return PaymentMethod::bankTransfer;
    }
    std::string words;
    for (const PaymentMethod method : allPaymentMethods) {
        const std::string bareWord = lowerCasedASCII(rawText(method));
        if (bareWord == lowerCasedASCII(replacing(replacing(typed, "-", ""), "_", ""))) {
            return method;
        }
        words += fmt::format("{}{}", words.empty() ? "" : ", ", rawText(method));
    }
    throw UserError(fmt::format("There is no way to pay {}; there are {}.", inQuotes(typed), words));
}

CommandAnswer takeBack(CommandSession& session, const Document& document, const std::string& typed)
{
    const Payment& payment = typedPayment(session, document, typed);
    const std::string amount = Money(payment.amountMinorUnits, document.currencyCode).plainText();
    DocumentActions::takeBackPayment(session.desk(), payment);
    return changed(
        session, fmt::format("Took back the payment of {} {}.", amount, plainText(document.currencyCode)), document);
}

} // namespace

CommandAnswer DocumentChanges::show(CommandSession& session, const DocumentChangeRequest& request)
{
    const Document& document = session.document(request.document);
    DocumentDescription description =
        DocumentDescription::describe(session.context(), document, session.now(), session.environment().calendar);
    CommandAnswer answer{.text = std::move(description.text), .data = std::move(description.data)};
    answer.text += answer.text.ends_with('\n') ? "" : "\n";
    addPayments(session, document, answer);
    addLeft(session, document, answer);
    return answer;
}

CommandAnswer DocumentChanges::creditNote(CommandSession& session, const DocumentChangeRequest& request)
{
    const Document& invoice = session.document(request.document);
    CreditNotes::Request credit{.issueDate = session.day(request.date), .withFees = request.withFees};
    for (const std::string& line : request.lines) {
        credit.lines.push_back(chosenLine(line));
    }
    const Document& made = CreditNotes::make(session.desk(), invoice, credit);
    return changed(session, fmt::format("Made a credit note for {}.", documentName(invoice)), made);
}

CommandAnswer DocumentChanges::invoice(CommandSession& session, const DocumentChangeRequest& request)
{
    const Document& quote = session.document(request.document);
    const Document& made = DocumentActions::invoiceFromQuote(session.desk(), quote, session.day(request.date), "");
    return changed(session, fmt::format("Made an invoice from {}.", documentName(quote)), made);
}

CommandAnswer DocumentChanges::duplicate(CommandSession& session, const DocumentChangeRequest& request)
{
    const Document& source = session.document(request.document);
    const Document& made = DocumentActions::duplicate(session.desk(), source, session.day(request.date), "");
    return changed(session, fmt::format("Duplicated {}.", documentName(source)), made);
}

CommandAnswer DocumentChanges::status(CommandSession& session, const DocumentChangeRequest& request)
{
    const Document& document = session.document(request.document);
    const StatusAction action = typedAction(request.action);
    DocumentActions::applyStatus(session.desk(), document, action, session.now());
    return changed(session, fmt::format("{}: {}.", title(action, kind(document)), documentName(document)), document);
}

CommandAnswer DocumentChanges::pay(CommandSession& session, const DocumentChangeRequest& request)
{
    const Document& document = session.document(request.document);
    if (!request.removedPayment.empty()) {
        return takeBack(session, document, request.removedPayment);
    }
    const JSON given = CommandSession::typed({{"amount", request.amount}, {"note", request.note}});
    const Arguments arguments(given);
    const std::int64_t amount =
        arguments.amount("amount", "payment", document.currencyCode, Sign::any, Limits::paymentMinorUnits)
            .value_or(acceptsPayments(document) ? amountDueMinorUnits(session.context(), document) : 0);
    if (amount == 0 && request.amount.empty() && acceptsPayments(document)) {
        throw UserError(
            fmt::format("Nothing is due on {}. To record more, give its --amount.", documentName(document)));
    }
    DocumentActions::pay(session.desk(),
                         document,
                         {.amountMinorUnits = amount,
                          .date = session.day(request.date),
                          .method = typedMethod(request.method),
                          .note = arguments.line("note", Limits::lineLength).value_or("")},
                         session.now());
    return changed(session,
                   fmt::format("Recorded {} {} for {}.",
                               Money(amount, document.currencyCode).plainText(),
                               plainText(document.currencyCode),
                               documentName(document)),
                   document);
}

CommandAnswer DocumentChanges::tag(CommandSession& session, const DocumentChangeRequest& request)
{
    const Document& document = session.document(request.document);
    DocumentActions::setTags(session.desk(), document, request.tags);
    std::string tags;
    JSON::Array list;
    for (const std::string& tag : tagList(document)) {
        tags += (tags.empty() ? "" : ", ") + plainText(tag);
        list.emplace_back(tag);
    }
    CommandAnswer answer = changed(
        session, fmt::format("Tags of {}: {}.", documentName(document), tags.empty() ? "none" : tags), document);
    answer.data.set("tags", std::move(list));
    return answer;
}

CommandAnswer DocumentChanges::project(CommandSession& session, const DocumentChangeRequest& request)
{
    const Document& document = session.document(request.document);
    const Project* project = request.project.empty() ? nullptr : &session.project(request.project);
    DocumentActions::setProject(session.desk(), document, project);
    CommandAnswer answer = changed(session,
                                   fmt::format("Project of {}: {}.",
                                               documentName(document),
                                               project == nullptr ? "none" : plainText(project->name)),
                                   document);
    answer.data.set("project", project == nullptr ? JSON() : JSON(project->name));
    return answer;
}

CommandAnswer DocumentChanges::remove(CommandSession& session, const DocumentChangeRequest& request)
{
    const Document& document = session.document(request.document);
    const std::string name = documentName(document);
    const std::string id = Lookup::idText(document.uuid);
    const bool isNumberFree = DocumentActions::deleteDraft(session.desk(), document);
    return {.text = fmt::format("Deleted the draft {}.{}\n", name, isNumberFree ? " Its number is free again." : ""),
            .data = JSON::object({{"id", id}, {"number_is_free", isNumberFree}})};
}

} // namespace Quillary
