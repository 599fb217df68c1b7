#include "QuillaryCore/Output/PrintSource.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Output/HTMLText.h"
#include "QuillaryCore/Output/PrintedTerms.h"
#include "QuillaryCore/Store/Context.h"

namespace Quillary {

PrintSource::PrintSource(Context& theContext,
                         const Document& theDocument,
                         const Business& theBusiness,
                         const Calendar& theCalendar,
                         const Locale& theLocale)
    : context(theContext)
    , document(theDocument)
    , business(theBusiness)
    , calendar(theCalendar)
    , locale(theLocale)
    , strings(language(theDocument))
    , kind(Quillary::kind(theDocument).value_or(DocumentKind::invoice))
    , client(theContext.find(theDocument.client))
    , m_fractionDigits(Money::fractionDigits(theDocument.currencyCode))
{
}

std::string PrintSource::money(std::int64_t minorUnits) const
{
    return locale.formatCurrency(minorUnits, m_fractionDigits, document.currencyCode);
}

std::string PrintSource::day(Instant instant) const
{
    return locale.formatDate(calendar.date(instant));
}

std::string PrintSource::percentage(std::int32_t basisPoints) const
{
    return PrintedTerms::percentage(basisPoints, locale, strings.language());
}

std::string PrintSource::inSentence(std::string_view value)
{
    constexpr std::string_view leftToRightMark = "\u200E";
    if (!HTMLText::hasRightToLeft(value)) {
        return std::string(value);
    }
    return std::string(leftToRightMark).append(value).append(leftToRightMark);
}

bool PrintSource::asksForPayment() const
{
    return kind == DocumentKind::invoice || kind == DocumentKind::recurring;
}

std::optional<Instant> PrintSource::issueDate() const
{
    return kind == DocumentKind::recurring && document.nextIssueDate ? document.nextIssueDate : document.issueDate;
}

std::optional<Instant> PrintSource::dueDate() const
{
    const auto issued = issueDate();
    if (kind == DocumentKind::recurring && issued) {
        return calendar.addingDays(*issued, document.paymentTermsDays);
    }
    return document.dueDate;
}

bool PrintSource::crossesBorder() const
{
    return client != nullptr && !client->countryCode.empty() && !business.countryCode.empty() &&
           upperCasedASCII(client->countryCode) != upperCasedASCII(business.countryCode);
}

} // namespace Quillary
