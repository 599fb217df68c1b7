#pragma once

#include "QuillaryCore/Documents/Desk.h"
#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Schedules/RecurringText.h"

#include <map>
#include <memory>

namespace Quillary {

struct Client;
struct Document;

/// Makes the invoices of one run from their templates; for `RecurringInvoices`.
class InvoiceMaker
{
public:
    explicit InvoiceMaker(const Desk& desk)
        : m_desk(desk)
    {
    }

    struct Occurrence
    {
        const Document& invoice;
        bool isNew;
    };

    /// Makes and saves the invoice of a date and moves the template on. Throws: `RecurringError`, `StoreError`.
    Occurrence make(const Document& recurring, CalendarDate day);

private:
    const Document& create(const Document& recurring, const Client& client, CalendarDate day, const UUID& uuid);
    void state(Document& invoice, const Document& recurring, const ServicePeriod& period) const;
    void fillTexts(Document& invoice, CalendarDate day, const ServicePeriod& period);
    [[nodiscard]] const RecurringText::Filler& filler(DocumentLanguage language);

    Desk m_desk;
    std::map<DocumentLanguage, std::unique_ptr<RecurringText::Filler>> m_fillers;
};

} // namespace Quillary
