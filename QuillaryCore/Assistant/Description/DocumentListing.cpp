#include "QuillaryCore/Assistant/Description/DocumentListing.h"

#include "QuillaryCore/Assistant/Description/ClientDescription.h"
#include "QuillaryCore/Assistant/Description/DocumentDescription.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Money/Money.h"

#include <fmt/format.h>

#include <utility>

namespace Quillary {

std::string DocumentListing::text(const Document& document) const
{
    const Calendar& calendar = m_environment.calendar;
    const Client* client = m_environment.context.find(document.client);
    const std::string currency = plainText(document.currencyCode);
    std::string text = fmt::format(
        "{}, {}", Lookup::reference(document), title(displayStatus(document, m_today, calendar), kind(document)));
    if (client != nullptr) {
        text += fmt::format(", for {} [{}]", plainText(displayName(*client)), Lookup::idText(client->uuid));
    }
    if (!document.title.empty()) {
        text += fmt::format(", “{}”", plainText(document.title));
    }
    const std::pair<std::string_view, const std::optional<Instant>&> dates[] = {
        {"dated", document.issueDate}, {"due", document.dueDate}, {"valid until", document.validUntil}};
    for (const auto& [label, date] : dates) {
        if (date) {
            text += fmt::format(", {} {}", label, isoText(calendar.date(*date)));
        }
    }
    text += fmt::format(", total {} {}", Money(document.cachedTotalMinorUnits, currency).plainText(), currency);
    if (acceptsPayments(document)) {
        const Money due(cachedAmountDueMinorUnits(document), currency);
        text += fmt::format(", amount due {} {}", due.plainText(), currency);
    }
    return text;
}

JSON DocumentListing::data(const Document& document) const
{
    const Calendar& calendar = m_environment.calendar;
    const std::optional<DocumentKind> documentKind = kind(document);
    JSON data = JSON::object({{"id", Lookup::idText(document.uuid)},
                              {"kind", documentKind ? JSON(kindWord(*documentKind)) : JSON()},
                              {"number", document.number},
                              {"title", document.title},
                              {"status", rawText(displayStatus(document, m_today, calendar))}});
    if (const Client* client = m_environment.context.find(document.client)) {
        data.set("client", clientReference(*client));
    }
    const std::pair<std::string_view, const std::optional<Instant>&> dates[] = {
        {"issue_date", document.issueDate}, {"due_date", document.dueDate}, {"valid_until", document.validUntil}};
    for (const auto& [key, date] : dates) {
        if (date) {
            data.set(key, isoText(calendar.date(*date)));
        }
    }
    data.set("currency", document.currencyCode);
    data.set("total", JSON::Number{Money(document.cachedTotalMinorUnits, document.currencyCode).plainText()});
    if (acceptsPayments(document)) {
        data.set("amount_due",
                 JSON::Number{Money(cachedAmountDueMinorUnits(document), document.currencyCode).plainText()});
    }
    return data;
}

} // namespace Quillary
