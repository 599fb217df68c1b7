#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Output/DocumentStrings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

class Context;
struct Business;
struct Client;
struct Document;

/// What a page is made from, and how its values are written. Refers to records and a locale that live elsewhere.
class PrintSource
{
public:
    PrintSource(Context& context,
                const Document& document,
                const Business& business,
                const Calendar& calendar,
                const Locale& locale);

    Context& context;
    const Document& document;
    const Business& business;
    const Calendar& calendar;
    const Locale& locale;
    DocumentStrings strings;
    DocumentKind kind;    ///< an unreadable kind is an invoice
    const Client* client; ///< null: the document has none

    /// Minor units of the document's currency, as the locale writes money.
    [[nodiscard]] std::string money(std::int64_t minorUnits) const;

    /// The day of an instant, as the locale writes it.
    [[nodiscard]] std::string day(Instant instant) const;

    /// A rate with its sign. Unit: basis points.
    [[nodiscard]] std::string percentage(std::int32_t basisPoints) const;

    /// A value within one of our sentences: what is written from right to left gets marks on both sides, so that the
    /// words and figures around it keep their places.
    [[nodiscard]] static std::string inSentence(std::string_view value);

    /// True for what asks for money: invoices, and templates, which are shown as the next invoice made from them.
    [[nodiscard]] bool asksForPayment() const;

    [[nodiscard]] std::optional<Instant> issueDate() const;
    [[nodiscard]] std::optional<Instant> dueDate() const;

    /// True when client and business are in different countries.
    [[nodiscard]] bool crossesBorder() const;

private:
    int m_fractionDigits;
};

} // namespace Quillary
