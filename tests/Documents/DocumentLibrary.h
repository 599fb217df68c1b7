#pragma once

#include "QuillaryCore/Documents/Desk.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Fee.h"
#include "tests/Model/TestLibrary.h"

#include <string>

namespace Quillary {

/// A library with a business and one client on 7 March 2025, and the desk to work at.
struct DocumentLibrary : TestLibrary
{
    Calendar calendar{"Europe/Berlin"};
    Business& business = newBusiness();
    Client& client = newClient();

    [[nodiscard]] Desk desk() { return {context, business, calendar}; }

    [[nodiscard]] Instant day(int daysFromStart) const { return calendar.addingDays(start, daysFromStart); }

    /// An invoice for the client, numbered and dated.
    Document& invoice(std::string number, DocumentStatus status = DocumentStatus::sent)
    {
        Document& made = document(DocumentKind::invoice, status);
        made.number = std::move(number);
        made.issueDate = day(-10);
        made.client = client.ref;
        return made;
    }

    LineItem& line(const Document& document, std::int64_t quantity, std::int64_t price, std::int32_t rate)
    {
        LineItem& made = TestLibrary::line(document, price, rate);
        made.quantityThousandths = quantity;
        made.sortIndex = static_cast<std::int32_t>(context.related<&LineItem::document>(document).size());
        return made;
    }

    Discount& fixedDiscount(const Document& document, std::int64_t amount)
    {
        auto& made = context.insert<Discount>();
        made.document = document.ref;
        made.kindRaw = 1;
        made.amountMinorUnits = amount;
        return made;
    }

    Discount& percentDiscount(const Document& document, std::int32_t basisPoints)
    {
        auto& made = context.insert<Discount>();
        made.document = document.ref;
        made.basisPoints = basisPoints;
        return made;
    }

    Fee& fee(const Document& document, std::int64_t amount, std::int32_t rate)
    {
        auto& made = context.insert<Fee>();
        made.document = document.ref;
        made.amountMinorUnits = amount;
        made.vatBasisPoints = rate;
        return made;
    }

private:
    Business& newBusiness()
    {
        auto& made = context.insert<Business>();
        made.name = "Studio Nord";
        made.currencyCode = "EUR";
        made.languageCode = "en";
        made.paymentTermsDays = 14;
        made.invoiceNumberFormat = Business::defaultInvoiceFormat;
        made.quoteNumberFormat = Business::defaultQuoteFormat;
        made.creditNoteNumberFormat = Business::defaultCreditNoteFormat;
        made.clientNumberFormat = Business::defaultClientFormat;
        made.invoiceIntroText = "Thank you for your order.";
        made.invoiceOutroText = "Please pay in time.";
        made.quoteIntroText = "We are glad to offer:";
        return made;
    }

    Client& newClient()
    {
        auto& made = context.insert<Client>();
        made.name = "Acme";
        made.number = "C-0001";
        return made;
    }
};

} // namespace Quillary
