#include "QuillaryCore/Samples/SampleLibrary.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/Payments.h"
#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/DeliveryKind.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Output/TemplateSettings.h"
#include "QuillaryCore/Samples/SampleLogo.h"
#include "QuillaryCore/Samples/SampleTexts.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace Quillary {

namespace {

using std::chrono::March;

constexpr CalendarDate today = std::chrono::year(2026) / March / 16;
constexpr std::int64_t one = 1000; ///< thousandths

/// Quantity, price and unit of a line, the same in every language.
struct Figures
{
    std::int64_t quantityThousandths;
    std::int64_t unitPriceMinorUnits;
    std::string_view unit;
};

enum class Rate { standard, reduced };

class Builder
{
public:
    Builder(Context& context, const Calendar& calendar, const SampleTexts& texts, DocumentLanguage language)
        : m_context(context)
        , m_calendar(calendar)
        , m_texts(texts)
        , m_language(language)
    {
    }

    const Business& addBusiness(std::string_view currencyCode);
    std::vector<SampleLibrary::Sample> addDocuments();

    /// Reminders of the overdue invoice, and of one that is not among the documents.
    std::vector<SampleLibrary::Letter> addLetters();

private:
    const Client& addClient(const SampleParty& party, std::string_view number);
    Document& addDocument(std::string_view name, DocumentKind kind, std::string_view number, const Client& client);
    Document& makeDocument(DocumentKind kind, std::string_view number, const Client& client);
    const LineItem& addLine(const Document& document,
                            const SampleLineText& text,
                            const Figures& figures,
                            Rate rate = Rate::standard,
                            const LineItem* parent = nullptr);
    void addSmallJob(const Document& document);
    void addTimeSheet(const Document& document, int lines);

    const Document& addFullInvoice();
    void addPartlyPaidInvoice();
    void addOverdueInvoice();
    void addReverseChargeInvoice();
    void addLongInvoices();
    void addQuote();
    void addCreditNote(const Document& invoice);
    void addTemplate();

    [[nodiscard]] Instant daysFromToday(int days) const
    {
        return m_calendar.addingDays(m_calendar.storedDay(today), days);
    }

    Context& m_context;
    const Calendar& m_calendar;
    const SampleTexts& m_texts;
    DocumentLanguage m_language;
    const Business* m_business = nullptr;
    std::unique_ptr<UnitLibrary> m_units;
    const Client* m_homeClient = nullptr;
    const Client* m_foreignClient = nullptr;
    const Document* m_overdue = nullptr;
    std::int32_t m_nextIndex = 0;
    std::vector<SampleLibrary::Sample> m_samples;
};

const Business& Builder::addBusiness(std::string_view currencyCode)
{
    auto& business = m_context.insert<Business>();
    business.name = m_texts.business.name;
    business.addressLine = m_texts.business.addressLine;
    business.postalCode = m_texts.business.postalCode;
    business.city = m_texts.business.city;
    business.state = m_texts.business.state;
    business.countryCode = m_texts.business.countryCode;
    business.vatID = m_texts.business.vatID;
    business.taxID = m_texts.taxID;
    business.phone = m_texts.phone;
    business.email = m_texts.email;
    business.website = m_texts.website;
    business.accountHolder = m_texts.business.name;
    business.bankName = m_texts.bankName;
    business.iban = m_texts.iban;
    business.bic = m_texts.bic;
    business.upiID = "studio@examplebank";
    business.currencyCode = currencyCode.empty() ? m_texts.currencyCode : currencyCode;
    business.languageCode = code(m_language);
    business.paymentTermsDays = 14;
    business.reminderPaymentDays = 7;
    business.showClientNumber = true;
    business.showSellerContact = true;
    business.showPaymentQRCode = true;
    business.footerNote = m_texts.footerNote;
    business.logoData = sampleLogo(TemplateSettings::defaultAccent);
    m_business = &business;
    m_units = std::make_unique<UnitLibrary>(m_context, business);
    m_homeClient = &addClient(m_texts.homeClient, "K-1007");
    m_foreignClient = &addClient(m_texts.foreignClient, "K-1012");
    return business;
}

std::vector<SampleLibrary::Sample> Builder::addDocuments()
{
    const Document& invoice = addFullInvoice();
    addPartlyPaidInvoice();
    addOverdueInvoice();
    addReverseChargeInvoice();
    addLongInvoices();
    addQuote();
    addCreditNote(invoice);
    addTemplate();
    for (const SampleLibrary::Sample& sample : m_samples) {
        updateCachedTotals(m_context, *sample.document);
    }
    return std::move(m_samples);
}

const Client& Builder::addClient(const SampleParty& party, std::string_view number)
{
    auto& client = m_context.insert<Client>();
    client.number = number;
    client.name = party.name;
    client.addressLine = party.addressLine;
    client.postalCode = party.postalCode;
    client.city = party.city;
    client.state = party.state;
    client.countryCode = party.countryCode;
    client.vatID = party.vatID;
    return client;
}

Document& Builder::addDocument(std::string_view name, DocumentKind kind, std::string_view number, const Client& client)
{
    Document& document = makeDocument(kind, number, client);
    m_samples.push_back({std::string(name), &document});
    return document;
}

Document& Builder::makeDocument(DocumentKind kind, std::string_view number, const Client& client)
{
    auto& document = m_context.insert<Document>();
    document.kindRaw = static_cast<std::int16_t>(kind);
    document.statusRaw = static_cast<std::int16_t>(DocumentStatus::sent);
    document.number = number;
    document.issueDate = daysFromToday(0);
    document.paymentTermsDays = m_business->paymentTermsDays;
    if (kind == DocumentKind::invoice) {
        document.dueDate = daysFromToday(document.paymentTermsDays);
    }
    document.currencyCode = m_business->currencyCode;
    document.languageCode = m_business->languageCode;
    document.client = client.ref;
    return document;
}

const LineItem& Builder::addLine(
    const Document& document, const SampleLineText& text, const Figures& figures, Rate rate, const LineItem* parent)
{
    auto& line = m_context.insert<LineItem>();
    line.document = document.ref;
    if (parent != nullptr) {
        line.parent = parent->ref;
    }
    line.sortIndex = m_nextIndex++;
    line.title = text.title;
    line.details = text.details;
    line.quantityThousandths = figures.quantityThousandths;
    line.unitPriceMinorUnits = figures.unitPriceMinorUnits;
    line.vatBasisPoints = rate == Rate::standard ? m_texts.standardRate : m_texts.reducedRate;
    setUnit(line, figures.unit, *m_units, m_language);
    return line;
}

/// Two lines at one rate.
void Builder::addSmallJob(const Document& document)
{
    addLine(document, m_texts.design, {8 * one, 9'500, "hour"});
    addLine(document, m_texts.hosting, {12 * one, 1'490, "month"});
}

void Builder::addTimeSheet(const Document& document, int lines)
{
    for (int index = 0; index < lines; ++index) {
        const SampleLineText& text = m_texts.support.at(static_cast<std::size_t>(index) % m_texts.support.size());
        addLine(document, text, {std::int64_t{250} * (1 + index % 7), 9'500, "hour"});
    }
}

/// Sub-lines, two rates, a discount and a fee.
const Document& Builder::addFullInvoice()
{
    Document& invoice = addDocument("invoice", DocumentKind::invoice, "2026-0042", *m_homeClient);
    invoice.title = m_texts.invoiceTitle;
    invoice.introText = m_texts.invoiceIntro;
    invoice.outroText = m_texts.invoiceOutro;
    invoice.deliveryKindRaw = static_cast<std::int16_t>(DeliveryKind::servicePeriod);
    invoice.deliveryStart = daysFromToday(-43);
    invoice.deliveryEnd = daysFromToday(-3);
    addLine(invoice, m_texts.design, {24 * one, 9'500, "hour"});
    const LineItem& build = addLine(invoice, m_texts.build, {one, 0, ""});
    addLine(invoice, m_texts.templates, {12'500, 9'500, "hour"}, Rate::standard, &build);
    addLine(invoice, m_texts.editor, {one, 64'000, "flatRate"}, Rate::standard, &build);
    addLine(invoice, m_texts.handbook, {10 * one, 2'800, "piece"}, Rate::reduced);
    addLine(invoice, m_texts.training, {2 * one, 88'000, "day"});

    auto& discount = m_context.insert<Discount>();
    discount.document = invoice.ref;
    discount.title = m_texts.discountTitle;
    discount.basisPoints = 500;
    auto& fee = m_context.insert<Fee>();
    fee.document = invoice.ref;
    fee.title = m_texts.feeTitle;
    fee.amountMinorUnits = 1'250;
    fee.vatBasisPoints = m_texts.standardRate;
    return invoice;
}

void Builder::addPartlyPaidInvoice()
{
    const Document& invoice = addDocument("invoice-partly-paid", DocumentKind::invoice, "2026-0038", *m_homeClient);
    addSmallJob(invoice);
    recordPayment(m_context, invoice, {.amountMinorUnits = 50'000, .date = daysFromToday(-2), .note = {}});
}

void Builder::addOverdueInvoice()
{
    Document& invoice = addDocument("invoice-overdue", DocumentKind::invoice, "2026-0011", *m_homeClient);
    invoice.issueDate = daysFromToday(-70);
    invoice.dueDate = daysFromToday(-56);
    invoice.deliveryKindRaw = static_cast<std::int16_t>(DeliveryKind::deliveryDate);
    invoice.deliveryStart = daysFromToday(-75);
    addSmallJob(invoice);
    recordPayment(m_context, invoice, {.amountMinorUnits = 30'000, .date = daysFromToday(-50), .note = {}});
    addReminder(m_context, invoice, ReminderLevel::first, 0, daysFromToday(-40), daysFromToday(-30));
    addReminder(m_context, invoice, ReminderLevel::second, 1'000, daysFromToday(-20), daysFromToday(-10));
    m_overdue = &invoice;
}

std::vector<SampleLibrary::Letter> Builder::addLetters()
{
    Document& abroad = makeDocument(DocumentKind::invoice, "2026-0019", *m_foreignClient);
    abroad.issueDate = daysFromToday(-30);
    abroad.dueDate = daysFromToday(-16);
    addSmallJob(abroad);
    updateCachedTotals(m_context, abroad);
    const auto notice = [this](ReminderLevel level, std::int64_t fee) {
        return ReminderNotice{.details = {.level = level, .feeMinorUnits = fee, .payBy = daysFromToday(10)},
                              .date = daysFromToday(0)};
    };
    return {
        {.name = "reminder-1", .document = &abroad, .reminder = notice(ReminderLevel::first, 0)},
        {.name = "reminder-2", .document = m_overdue, .reminder = recordedNotice(*lastReminder(m_context, *m_overdue))},
        {.name = "reminder-3", .document = m_overdue, .reminder = notice(ReminderLevel::final, 1'500)}};
}

void Builder::addReverseChargeInvoice()
{
    Document& invoice = addDocument("invoice-reverse-charge", DocumentKind::invoice, "2026-0043", *m_foreignClient);
    invoice.taxExempt = true;
    invoice.taxExemptNote = m_texts.reverseChargeNote;
    invoice.deliveryKindRaw = static_cast<std::int16_t>(DeliveryKind::serviceDate);
    invoice.deliveryStart = daysFromToday(-5);
    addSmallJob(invoice);
}

/// About three and forty pages.
void Builder::addLongInvoices()
{
    constexpr int linesOfThreePages = 48;
    constexpr int linesOfFortyPages = 860;
    Document& three = addDocument("invoice-3-pages", DocumentKind::invoice, "2026-0044", *m_homeClient);
    three.title = m_texts.supportTitle;
    three.outroText = m_texts.invoiceOutro;
    addTimeSheet(three, linesOfThreePages);
    Document& forty = addDocument("invoice-40-pages", DocumentKind::invoice, "2026-0045", *m_homeClient);
    forty.title = m_texts.supportTitle;
    addTimeSheet(forty, linesOfFortyPages);
}

/// For a client whose name is written from right to left, with an option that doesn't count.
void Builder::addQuote()
{
    constexpr SampleParty negev = {"סטודיו נגב בע״מ", "18 Rothschild Blvd", "6688121", "Tel Aviv", "", "IL", ""};
    Document& quote = addDocument("quote", DocumentKind::quote, "Q-2026-007", addClient(negev, "K-1021"));
    quote.validUntil = daysFromToday(30);
    quote.title = m_texts.quoteTitle;
    quote.introText = m_texts.quoteIntro;
    quote.outroText = m_texts.quoteOutro;
    addLine(quote, m_texts.design, {40 * one, 9'500, "hour"});
    addLine(quote, m_texts.handbook, {250 * one, 640, "piece"}, Rate::reduced);
    addLine(quote, m_texts.training, {one, 88'000, "day"});
    const LineItem& options = addLine(quote, m_texts.optionHeading, {0, 0, ""});
    addLine(quote, m_texts.option, {0, 145'000, "day"}, Rate::standard, &options);
}

void Builder::addCreditNote(const Document& invoice)
{
    Document& creditNote = addDocument("credit-note", DocumentKind::creditNote, "2026-0046", *m_homeClient);
    creditNote.sourceDocumentID = invoice.uuid;
    creditNote.introText = m_texts.creditIntro;
    addLine(creditNote, m_texts.handbook, {-3 * one, 2'800, "piece"}, Rate::reduced);
    addLine(creditNote, m_texts.training, {-one, 88'000, "day"});
}

/// Monthly, for a client with a Japanese name.
void Builder::addTemplate()
{
    constexpr SampleParty tokyo = {
        "東京デザイン株式会社", "1-1-2 Oshiage, Sumida-ku", "131-0045", "Tokyo", "", "JP", ""};
    Document& monthly = addDocument("recurring", DocumentKind::recurring, "", addClient(tokyo, "K-1030"));
    monthly.nextIssueDate = daysFromToday(16);
    monthly.recurrenceUnitRaw = 1; // month
    monthly.recurrenceInterval = 1;
    const CalendarDate next = m_calendar.date(*monthly.nextIssueDate);
    monthly.recurrenceAnchorDay = static_cast<std::int16_t>(unsigned{next.day()});
    monthly.title = m_texts.supportTitle;
    addLine(monthly, m_texts.support.front(), {one, 24'000, "flatRate"});
    addLine(monthly, m_texts.hosting, {one, 1'490, "month"});
}

} // namespace

SampleLibrary::SampleLibrary(DocumentLanguage language, std::string_view currencyCode)
    : m_clock(Calendar("UTC").storedDay(today))
    , m_store(Store::Location::inMemory(), DataModel::records(), DataModel::history(), m_clock, m_uuids)
    , m_context(m_store, m_clock, m_uuids)
{
    Builder builder(m_context, m_calendar, sampleTexts(language), language);
    m_business = &builder.addBusiness(currencyCode);
    m_samples = builder.addDocuments();
    m_letters = builder.addLetters();
    m_context.save();
}

SampleLibrary::~SampleLibrary() = default;

} // namespace Quillary
