#pragma once

#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Clock.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

struct Business;
struct Document;

/// A library in memory with a made-up business, its clients and a document of every kind, in one language: what the
/// designs are looked at with. The same arguments give the same records to the last identifier.
class SampleLibrary
{
public:
    /// A document and what its files are called: letters, digits and dashes.
    struct Sample
    {
        std::string name;
        const Document* document;
    };

    /// A reminder of a document and what its files are called.
    struct Letter
    {
        std::string name;
        const Document* document;
        ReminderNotice reminder;
    };

    /// An empty `currencyCode` means the currency of the language's country; prices keep their minor units in any other.
    explicit SampleLibrary(DocumentLanguage language, std::string_view currencyCode = {});
    SampleLibrary(const SampleLibrary&) = delete;
    SampleLibrary& operator=(const SampleLibrary&) = delete;
    ~SampleLibrary();

    [[nodiscard]] Context& context() { return m_context; }
    [[nodiscard]] const Calendar& calendar() const { return m_calendar; }

    /// The sender. To print in another design, change a copy: a page can be made for a business that is not stored.
    [[nodiscard]] const Business& business() const { return *m_business; }

    /// Invoices in every state (one of three, one of forty pages), a quote, a credit note and a template.
    [[nodiscard]] const std::vector<Sample>& samples() const { return m_samples; }

    /// One of each level: an invoice abroad with nothing but its total, and one with fees and a payment.
    [[nodiscard]] const std::vector<Letter>& letters() const { return m_letters; }

private:
    FixedClock m_clock;
    CountingUUIDSource m_uuids;
    Store m_store;
    Context m_context;
    Calendar m_calendar{"UTC"};
    const Business* m_business = nullptr;
    std::vector<Sample> m_samples;
    std::vector<Letter> m_letters;
};

} // namespace Quillary
