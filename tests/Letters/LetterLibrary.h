#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "tests/Model/TestLibrary.h"

namespace Quillary {

/// A library with an invoice over 1,190.00 EUR to Acme, in German and 26 days overdue.
struct LetterLibrary : TestLibrary
{
    LetterLibrary()
    {
        business.name = "Studio Nord";
        business.countryCode = "DE";
        client.name = "Acme";
        invoice.number = "2025-001";
        invoice.languageCode = "de";
        invoice.client = client.ref;
        invoice.issueDate = day(-40);
        invoice.dueDate = day(-26);
        line(invoice, 100'000, 1900);
    }

    [[nodiscard]] Instant day(int daysFromToday) const { return calendar.addingDays(start, daysFromToday); }

    Calendar calendar{"Europe/Berlin"};
    Business business;
    Client& client = context.insert<Client>();
    Document& invoice = document(DocumentKind::invoice, DocumentStatus::sent);
};

} // namespace Quillary
