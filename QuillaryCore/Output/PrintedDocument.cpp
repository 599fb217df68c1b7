#include "QuillaryCore/Output/PrintedDocument.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DeliveryKind.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Output/DocumentStrings.h"
#include "QuillaryCore/Output/PrintSource.h"
#include "QuillaryCore/Output/PrintedFigures.h"
#include "QuillaryCore/Output/PrintedParties.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>

namespace Quillary {

namespace {

using Key = DocumentStrings::Key;

/// Writes the rows beside the address.
class MetaTable
{
public:
    MetaTable(PrintedDocument& printed, const PrintSource& source)
        : m_printed(printed)
        , m_source(source)
    {
    }

    void fill()
    {
        constexpr std::size_t mostRows = 6;
        m_printed.meta.reserve(mostRows);
        add(Key::number, m_source.document.number);
        add(Key::date, m_source.issueDate());
        if (m_source.asksForPayment()) {
            add(Key::dueDate, m_source.dueDate());
        }
        if (m_source.kind == DocumentKind::quote) {
            add(Key::validUntil, m_source.document.validUntil);
        }
        if (m_source.business.showClientNumber && m_source.client != nullptr) {
            add(Key::clientNumber, m_source.client->number);
        }
        addDelivery();
    }

private:
    void add(Key label, std::string_view value)
    {
        if (const std::string_view text = trimmed(value); !text.empty()) {
            m_printed.meta.push_back({std::string(m_source.strings.text(label)), std::string(text)});
        }
    }

    void add(Key label, std::optional<Instant> date)
    {
        if (date) {
            add(label, m_source.day(*date));
        }
    }

    void addDelivery()
    {
        const Document& document = m_source.document;
        switch (deliveryKind(document)) {
        case DeliveryKind::none:
            break;
        case DeliveryKind::deliveryDate:
            add(Key::deliveryDate, document.deliveryStart);
            break;
        case DeliveryKind::serviceDate:
            add(Key::serviceDate, document.deliveryStart);
            break;
        case DeliveryKind::deliveryPeriod:
            addPeriod(Key::deliveryPeriod, Key::deliveryDate);
            break;
        case DeliveryKind::servicePeriod:
            addPeriod(Key::servicePeriod, Key::serviceDate);
            break;
        }
    }

    /// A period of one day, or with one end missing, is a date.
    void addPeriod(Key period, Key date)
    {
        const Document& document = m_source.document;
        const auto start = document.deliveryStart ? document.deliveryStart : document.deliveryEnd;
        const auto end = document.deliveryEnd ? document.deliveryEnd : document.deliveryStart;
        if (!start || !end) {
            return;
        }
        const std::string first = m_source.day(std::min(*start, *end));
        const std::string last = m_source.day(std::max(*start, *end));
        if (first == last) {
            add(date, first);
        } else {
            add(period, first + " – " + last);
        }
    }

    PrintedDocument& m_printed;
    const PrintSource& m_source;
};

/// "Credit note for invoice …"; empty when the invoice is gone.
std::string referenceLine(const PrintSource& source)
{
    if (source.kind != DocumentKind::creditNote || !source.document.sourceDocumentID) {
        return {};
    }
    const auto* const invoice = source.context.find<Document>(*source.document.sourceDocumentID);
    if (invoice == nullptr || invoice->number.empty() || !invoice->issueDate) {
        return {};
    }
    const std::string number = PrintSource::inSentence(invoice->number);
    const std::string date = source.day(*invoice->issueDate);
    return source.strings.format(Key::creditNoteFor, {{"number", number}, {"date", date}});
}

} // namespace

PrintedDocument PrintedDocument::from(Context& context,
                                      const Document& document,
                                      const Business& business,
                                      const Calendar& calendar,
                                      const Locale& locale)
{
    const PrintSource source(context, document, business, calendar, locale);
    PrintedDocument printed;
    printed.language = source.strings.language();
    printed.settings = TemplateSettings::of(business);
    printed.heading = source.strings.text(headingKey(document));
    printed.pageTitle.reserve(printed.heading.size() + 1 + document.number.size());
    printed.pageTitle = printed.heading;
    if (!document.number.empty()) {
        printed.pageTitle.append(1, ' ').append(document.number);
    }
    PrintedParties::addSeller(printed, source);
    PrintedParties::addBuyer(printed, source);
    MetaTable(printed, source).fill();
    printed.subtitle = trimmed(document.title);
    printed.reference = referenceLine(source);
    printed.intro = document.introText;
    PrintedFigures::add(printed, source);
    printed.outro = document.outroText;
    PrintedParties::addFooter(printed, source);
    return printed;
}

PrintedDocument
PrintedDocument::from(Context& context, const Document& document, const Business& business, const Calendar& calendar)
{
    return from(context, document, business, calendar, printLocale(Quillary::language(document), business.countryCode));
}

} // namespace Quillary
