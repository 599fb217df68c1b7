#pragma once

#include "QuillaryCore/Store/Field.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

struct Client;
struct Project;

/// An invoice, quote, credit note or recurring template.
///
/// Unit: money fields are minor units in `currencyCode`. A credit note stores negated quantities, fixed discounts and
/// fees, so that every sum adds it as it stands.
struct Document : Record<Document>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::optional<Instant> createdAt;
    std::int16_t kindRaw = 0;   ///< `DocumentKind`; an unknown value reads as no kind
    std::int16_t statusRaw = 0; ///< `DocumentStatus`; an unknown value reads as no status
    std::string number;
    std::optional<Instant> issueDate;
    std::optional<Instant> dueDate;
    std::int16_t paymentTermsDays = 0;
    std::optional<Instant> validUntil; ///< quotes
    std::string currencyCode;          ///< ISO 4217
    std::string languageCode;          ///< `DocumentLanguage`; an unknown code reads as English
    std::string title;
    std::string introText;
    std::string outroText;
    bool taxExempt = false;
    std::string taxExemptNote;
    std::int16_t deliveryKindRaw = 0; ///< `DeliveryKind`
    std::optional<Instant> deliveryStart;
    std::optional<Instant> deliveryEnd;
    std::int64_t cachedNetMinorUnits = 0;   ///< copy of `Totals::Result::net`
    std::int64_t cachedTotalMinorUnits = 0; ///< copy of `Totals::Result::total`
    std::optional<Instant> sentAt;
    std::optional<Instant> paidAt;
    std::optional<Instant> decidedAt;      ///< when a quote was accepted or declined
    std::optional<UUID> sourceDocumentID;  ///< a credit note's invoice, an invoice's quote or template
    std::string tags;                      ///< see `tagList`
    std::string madeBy;                    ///< what created the document: an assistant's name, or empty for the user
    std::int64_t cachedPaidMinorUnits = 0; ///< sum of the payments
    std::int64_t cachedLateFeesMinorUnits = 0; ///< sum of the reminders' fees
    std::int16_t recurrenceUnitRaw = 0;
    std::int16_t recurrenceInterval = 0;
    std::int16_t recurrenceAnchorDay = 0;
    std::optional<Instant> nextIssueDate;
    std::int16_t recurrenceEndRaw = 0;
    std::int16_t recurrenceEndCount = 0;
    std::optional<Instant> recurrenceEndDate;
    std::int32_t recurrenceCount = 0; ///< the number of invoices made from the template
    bool isPaused = false;
    bool recurringCreatesSent = false;
    std::int16_t billingPeriodRaw = 0;

    Ref<Client> client;
    Ref<Project> project;

    static constexpr std::string_view entityName = "Document";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &Document::uuid},
                          Field{"createdAt", &Document::createdAt},
                          Field{"kindRaw", &Document::kindRaw},
                          Field{"statusRaw", &Document::statusRaw},
                          Field{"number", &Document::number},
                          Field{"issueDate", &Document::issueDate},
                          Field{"dueDate", &Document::dueDate},
                          Field{"paymentTermsDays", &Document::paymentTermsDays},
                          Field{"validUntil", &Document::validUntil},
                          Field{"currencyCode", &Document::currencyCode},
                          Field{"languageCode", &Document::languageCode},
                          Field{"title", &Document::title},
                          Field{"introText", &Document::introText},
                          Field{"outroText", &Document::outroText},
                          Field{"taxExempt", &Document::taxExempt},
                          Field{"taxExemptNote", &Document::taxExemptNote},
                          Field{"deliveryKindRaw", &Document::deliveryKindRaw},
                          Field{"deliveryStart", &Document::deliveryStart},
                          Field{"deliveryEnd", &Document::deliveryEnd},
                          Field{"cachedNetMinorUnits", &Document::cachedNetMinorUnits},
                          Field{"cachedTotalMinorUnits", &Document::cachedTotalMinorUnits},
                          Field{"sentAt", &Document::sentAt},
                          Field{"paidAt", &Document::paidAt},
                          Field{"decidedAt", &Document::decidedAt},
                          Field{"sourceDocumentID", &Document::sourceDocumentID},
                          Field{"tags", &Document::tags},
                          Field{"madeBy", &Document::madeBy},
                          Field{"cachedPaidMinorUnits", &Document::cachedPaidMinorUnits},
                          Field{"cachedLateFeesMinorUnits", &Document::cachedLateFeesMinorUnits},
                          Field{"recurrenceUnitRaw", &Document::recurrenceUnitRaw},
                          Field{"recurrenceInterval", &Document::recurrenceInterval},
                          Field{"recurrenceAnchorDay", &Document::recurrenceAnchorDay},
                          Field{"nextIssueDate", &Document::nextIssueDate},
                          Field{"recurrenceEndRaw", &Document::recurrenceEndRaw},
                          Field{"recurrenceEndCount", &Document::recurrenceEndCount},
                          Field{"recurrenceEndDate", &Document::recurrenceEndDate},
                          Field{"recurrenceCount", &Document::recurrenceCount},
                          Field{"isPaused", &Document::isPaused},
                          Field{"recurringCreatesSent", &Document::recurringCreatesSent},
                          Field{"billingPeriodRaw", &Document::billingPeriodRaw}};
    }

    static constexpr auto references()
    {
        return std::tuple{Reference{"client", &Document::client, WhenTargetGoes::clear},
                          Reference{"project", &Document::project, WhenTargetGoes::clear}};
    }

    static constexpr auto indexes()
    {
        return std::array{Index{"Document_number", "number"},
                          Index{"Document_uuid", "uuid"},
                          Index{"Document_source", "sourceDocumentID", "sourceDocumentID IS NOT NULL"},
                          Index{"Document_client", "client"},
                          Index{"Document_project", "project", "project IS NOT NULL"},
                          Index{"Document_issueDate", "issueDate"},
                          Index{"Document_template", "nextIssueDate", "kindRaw = 3"},
                          // What is owed now, per client: all that the aging report reads. Only with the columns of its
                          // own condition does SQLite 3.40 know that it needn't look into the table.
                          Index{"Document_open",
                                "currencyCode, client, dueDate, cachedTotalMinorUnits, cachedLateFeesMinorUnits, "
                                "cachedPaidMinorUnits, kindRaw, statusRaw",
                                "kindRaw = 0 AND statusRaw = 1"},
                          Index{"Document_refunded", "paidAt", "kindRaw = 2 AND statusRaw = 2"}};
    }

    friend bool operator==(const Document&, const Document&) = default;
};

} // namespace Quillary
