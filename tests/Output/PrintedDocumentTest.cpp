#include "QuillaryCore/Output/PrintedDocument.h"

#include "QuillaryCore/Billing/Payments.h"
#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/DeliveryKind.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/TaxLabel.h"
#include "QuillaryCore/Output/PrintedTerms.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "tests/Support/QRReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Quillary {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Emphasis = PrintedDocument::Emphasis;
using Row = PrintedDocument::Row;
using TotalsRow = PrintedDocument::TotalsRow;

/// Spaces that don't break are spaces to a reader.
std::string plain(std::string_view value)
{
    std::string text(value);
    for (const std::string_view space : {"\u00A0", "\u202F"}) {
        for (std::size_t at = text.find(space); at != std::string::npos; at = text.find(space)) {
            text.replace(at, space.size(), " ");
        }
    }
    return text;
}

/// "label=value", and for the totals "total:label=value".
std::vector<std::string> texts(const std::vector<Row>& rows)
{
    std::vector<std::string> result;
    result.reserve(rows.size());
    for (const Row& row : rows) {
        result.push_back(plain(row.label + "=" + row.value));
    }
    return result;
}

std::vector<std::string> texts(const std::vector<TotalsRow>& rows)
{
    std::vector<std::string> result;
    for (const TotalsRow& row : rows) {
        constexpr std::string_view names[] = {"", "total:", "paid:", "due:"};
        result.push_back(std::string(names[static_cast<std::size_t>(row.emphasis)]) +
                         plain(row.label + "=" + row.value));
    }
    return result;
}

class PrintedDocumentTest : public testing::Test
{
protected:
    PrintedDocumentTest()
    {
        business.name = "Atelier Lindqvist";
        business.addressLine = "Lindenstr. 14";
        business.postalCode = "10115";
        business.city = "Berlin";
        business.countryCode = "DE";
        business.vatID = "DE123456789";
        business.taxID = "30/123/45678";
        business.iban = "de89370400440532013000";
        business.bic = "cobadeff";
        business.currencyCode = "EUR";
        client = &context.insert<Client>();
        client->name = "Nordwind AG";
        client->addressLine = "Hafenstr. 3";
        client->postalCode = "20457";
        client->city = "Hamburg";
        client->countryCode = "DE";
        client->number = "K-7";
        document = &addDocument(DocumentKind::invoice);
    }

    Document& addDocument(DocumentKind kind)
    {
        auto& added = context.insert<Document>();
        added.kindRaw = static_cast<std::int16_t>(kind);
        added.statusRaw = static_cast<std::int16_t>(DocumentStatus::sent);
        added.number = "2025-001";
        added.issueDate = day(7);
        added.currencyCode = "EUR";
        added.languageCode = "de";
        added.client = client->ref;
        return added;
    }

    LineItem& addLine(std::int64_t quantity, std::int64_t price, std::int32_t rate, const LineItem* parent = nullptr)
    {
        auto& line = context.insert<LineItem>();
        line.document = document->ref;
        line.parent = parent == nullptr ? Ref<LineItem>() : parent->ref;
        line.sortIndex = nextIndex++;
        line.title = "Line";
        line.quantityThousandths = quantity;
        line.unitPriceMinorUnits = price;
        line.vatBasisPoints = rate;
        return line;
    }

    /// Noon of a day in March 2025.
    [[nodiscard]] Instant day(unsigned number) const
    {
        return calendar.storedDay(std::chrono::year(2025) / std::chrono::March / std::chrono::day(number));
    }

    PrintedDocument printed() { return PrintedDocument::from(context, *document, business, calendar); }

    FixedClock clock{Instant(1'741'000'000'000ms)};
    CountingUUIDSource uuids;
    Store store{Store::Location::inMemory(), DataModel::records(), DataModel::history(), clock, uuids};
    Context context{store, clock, uuids};
    Calendar calendar{"Europe/Berlin"};
    Business business;
    Client* client = nullptr;
    Document* document = nullptr;
    std::int32_t nextIndex = 0;
};

TEST_F(PrintedDocumentTest, showsWhatTheTaxOfficeAsksFor)
{
    addLine(2'500, 10'000, 1900);
    document->dueDate = day(21);
    document->deliveryKindRaw = static_cast<std::int16_t>(DeliveryKind::servicePeriod);
    document->deliveryStart = day(1);
    document->deliveryEnd = day(5);
    business.showClientNumber = true;
    client->vatID = "DE987654321";
    client->taxID = "12/345";
    const PrintedDocument page = printed();
    EXPECT_EQ(page.pageTitle, "Rechnung 2025-001");
    EXPECT_EQ(page.sender, "Atelier Lindqvist · Lindenstr. 14 · 10115 Berlin");
    EXPECT_EQ(page.buyerName, "Nordwind AG");
    EXPECT_THAT(page.buyerAddress, ElementsAre("Hafenstr. 3", "20457 Hamburg"));
    EXPECT_THAT(page.buyerIdentifiers, ElementsAre("USt-IdNr. DE987654321", "Steuernummer 12/345"));
    EXPECT_THAT(texts(page.meta),
                ElementsAre("Nummer=2025-001",
                            "Datum=07.03.2025",
                            "Fällig am=21.03.2025",
                            "Kundennr.=K-7",
                            "Leistungszeitraum=01.03.2025 – 05.03.2025"));
    EXPECT_THAT(texts(page.totals),
                ElementsAre("Netto=250,00 €", "USt. 19 % auf 250,00 €=47,50 €", "total:Gesamtbetrag=297,50 €"));
    EXPECT_THAT(page.footerLines, ElementsAre("USt-IdNr. DE123456789 · Steuernummer 30/123/45678"));
    const PrintedDocument::Payment payment = page.payment.value_or(PrintedDocument::Payment());
    EXPECT_EQ(plain(payment.sentence), "Bitte überweisen Sie 297,50 € bis zum 21.03.2025.");
    EXPECT_THAT(texts(payment.bank),
                ElementsAre("Kontoinhaber=Atelier Lindqvist", "IBAN=DE89 3704 0044 0532 0130 00", "BIC=COBADEFF"));
}

TEST_F(PrintedDocumentTest, showsTheRowsOfEachKind)
{
    addLine(1'000, 10'000, 1900);
    for (const DocumentKind kind : {DocumentKind::quote, DocumentKind::creditNote, DocumentKind::recurring}) {
        document->kindRaw = static_cast<std::int16_t>(kind);
        document->dueDate = day(21);
        document->validUntil = day(30);
        document->nextIssueDate = day(31);
        document->paymentTermsDays = 14;
        const PrintedDocument page = printed();
        const bool isTemplate = kind == DocumentKind::recurring;
        EXPECT_EQ(page.payment.has_value(), isTemplate);
        if (kind == DocumentKind::quote) {
            EXPECT_THAT(texts(page.meta), ElementsAre("Nummer=2025-001", "Datum=07.03.2025", "Gültig bis=30.03.2025"));
        } else if (isTemplate) { // as its next invoice, fourteen days after the last of March
            EXPECT_EQ(page.heading, "Rechnung");
            EXPECT_THAT(texts(page.meta), ElementsAre("Nummer=2025-001", "Datum=31.03.2025", "Fällig am=14.04.2025"));
        } else {
            EXPECT_THAT(texts(page.meta), ElementsAre("Nummer=2025-001", "Datum=07.03.2025"));
        }
    }
}

TEST_F(PrintedDocumentTest, showsTheDayOrPeriodOfDelivery)
{
    struct Case
    {
        DeliveryKind kind;
        std::optional<unsigned> start;
        std::optional<unsigned> end;
        std::string_view expected;
    };
    const Case cases[] = {
        {DeliveryKind::none, 1, 5, ""},
        {DeliveryKind::deliveryDate, 1, 5, "Lieferdatum=01.03.2025"},
        {DeliveryKind::serviceDate, {}, 5, ""},
        {DeliveryKind::deliveryPeriod, 1, 5, "Lieferzeitraum=01.03.2025 – 05.03.2025"},
        {DeliveryKind::deliveryPeriod, 5, 1, "Lieferzeitraum=01.03.2025 – 05.03.2025"},
        {DeliveryKind::servicePeriod, 5, 5, "Leistungsdatum=05.03.2025"}, // one day is no period
        {DeliveryKind::servicePeriod, {}, 5, "Leistungsdatum=05.03.2025"},
        {DeliveryKind::servicePeriod, {}, {}, ""},
    };
    document->number.clear();
    document->issueDate.reset();
    for (const auto& [kind, start, end, expected] : cases) {
        document->deliveryKindRaw = static_cast<std::int16_t>(kind);
        document->deliveryStart = start ? std::optional(day(*start)) : std::nullopt;
        document->deliveryEnd = end ? std::optional(day(*end)) : std::nullopt;
        const auto rows = texts(printed().meta);
        EXPECT_EQ(rows.empty() ? "" : rows.front(), expected);
    }
}

TEST_F(PrintedDocumentTest, showsRatesInAColumnOnlyWhereTheyDiffer)
{
    addLine(1'000, 10'000, 1900);
    EXPECT_FALSE(printed().hasTaxRateColumn);
    addLine(1'000, 5'000, 750);
    const PrintedDocument page = printed();
    ASSERT_TRUE(page.hasTaxRateColumn);
    EXPECT_EQ(page.lines[0].taxRate, "19");
    EXPECT_EQ(page.lines[1].taxRate, "7,5");
    document->taxExempt = true;
    EXPECT_FALSE(printed().hasTaxRateColumn);
}

TEST_F(PrintedDocumentTest, showsLinesWithTheirUnits)
{
    LineItem& hours = addLine(2'500, 10'000, 1900);
    hours.unit = "hour";
    hours.unitSingular = "hour"; // kept from a time when the document was English
    hours.unitPlural = "hours";
    LineItem& heading = addLine(1'000, 0, 1900);
    LineItem& pallet = addLine(1'000, 1'234'567, 1900, &heading);
    pallet.unit = "custom:X";
    pallet.unitSingular = "Palette";
    pallet.unitPlural = "Paletten";
    addLine(3'000, 0, 1900); // given away: still a figure
    addLine(0, 5'000, 1900); // an option
    LineItem& note = addLine(0, 0, 1900);
    note.details = "- a";
    const PrintedDocument page = printed();
    ASSERT_EQ(page.lines.size(), 6U);
    EXPECT_EQ(page.lines[0].quantity, "2,5 Stunden");
    EXPECT_EQ(page.lines[1].quantity, ""); // above its sub-lines, without a price
    EXPECT_EQ(page.lines[1].amount, "");
    EXPECT_EQ(page.lines[2].quantity, "1 Palette");
    EXPECT_EQ(plain(page.lines[2].amount), "12.345,67 €");
    EXPECT_TRUE(page.lines[2].isSubLine);
    EXPECT_EQ(plain(page.lines[3].amount), "0,00 €");
    EXPECT_EQ(plain(page.lines[4].unitPrice), "50,00 €");
    EXPECT_TRUE(page.lines[4].quantity.empty() && page.lines[4].amount.empty());
    EXPECT_EQ(page.lines[5].unitPrice, "");
    EXPECT_EQ(page.lines[5].details, "- a");
}

TEST_F(PrintedDocumentTest, showsDiscountsAndFees)
{
    addLine(1'000, 20'000, 1900);
    auto& percentage = context.insert<Discount>();
    percentage.document = document->ref;
    percentage.basisPoints = 750;
    auto& fixed = context.insert<Discount>();
    fixed.document = document->ref;
    fixed.sortIndex = 1;
    fixed.title = "Treue";
    fixed.kindRaw = 1;
    fixed.amountMinorUnits = 1'500;
    auto& fee = context.insert<Fee>();
    fee.document = document->ref;
    fee.amountMinorUnits = 1'000;
    fee.vatBasisPoints = 1900;
    EXPECT_THAT(texts(printed().totals),
                ElementsAre("Zwischensumme=200,00 €",
                            "Rabatt 7,5 %=-15,00 €",
                            "Treue=-15,00 €",
                            "Zuschlag=10,00 €",
                            "Netto=180,00 €",
                            "USt. 19 % auf 180,00 €=34,20 €",
                            "total:Gesamtbetrag=214,20 €"));
}

TEST_F(PrintedDocumentTest, showsWhatIsStillOwed)
{
    addLine(1'000, 10'000, 0);
    business.showPaymentQRCode = true;
    recordPayment(context, *document, {.amountMinorUnits = 4'000, .date = day(8), .note = {}});
    addReminder(context, *document, ReminderLevel::second, 500, day(20), day(30));
    const PrintedDocument page = printed();
    EXPECT_THAT(texts(page.totals),
                ElementsAre("Netto=100,00 €",
                            "USt. 0 % auf 100,00 €=0,00 €",
                            "total:Gesamtbetrag=100,00 €",
                            "Mahngebühr=5,00 €",
                            "paid:Bereits bezahlt=-40,00 €",
                            "due:Offener Betrag=65,00 €"));
    // Asks for the rest, in words and in the code.
    const PrintedDocument::Payment payment = page.payment.value_or(PrintedDocument::Payment());
    EXPECT_EQ(plain(payment.sentence), "Bitte überweisen Sie 65,00 € bis zum 30.03.2025.");
    const Bytes& code = payment.qrCode;
    EXPECT_EQ(readQRCode({reinterpret_cast<const char*>(code.data()), code.size()}),
              "BCD\n002\n1\nSCT\nCOBADEFF\nAtelier Lindqvist\nDE89370400440532013000\nEUR65.00\n\n\n2025-001");
    recordPayment(context, *document, {.amountMinorUnits = 7'000, .date = day(9), .note = {}}); // five too many
    EXPECT_FALSE(printed().payment);
    EXPECT_EQ(texts(printed().totals).back(), "due:Offener Betrag=-5,00 €");
}

TEST_F(PrintedDocumentTest, asksForPaymentOnReceiptWithoutATerm)
{
    addLine(1'000, 10'000, 0);
    const std::pair<std::optional<Instant>, std::string_view> cases[] = {
        {std::nullopt, "Bitte überweisen Sie 100,00 € sofort nach Erhalt."},
        {day(7), "Bitte überweisen Sie 100,00 € sofort nach Erhalt."}, // due on the day of issue
        {day(8), "Bitte überweisen Sie 100,00 € bis zum 08.03.2025."},
    };
    for (const auto& [dueDate, expected] : cases) {
        document->dueDate = dueDate;
        EXPECT_EQ(plain(printed().payment.value_or(PrintedDocument::Payment()).sentence), expected);
    }
}

TEST_F(PrintedDocumentTest, asksNobodyToPayAPaidInvoice)
{
    addLine(1'000, 10'000, 0);
    document->statusRaw = static_cast<std::int16_t>(DocumentStatus::paid); // without a payment: from another program
    EXPECT_FALSE(printed().payment);
}

TEST_F(PrintedDocumentTest, printsACreditNoteWithItsNegativeFigures)
{
    const Document* invoice = document;
    document = &addDocument(DocumentKind::creditNote);
    document->sourceDocumentID = invoice->uuid;
    addLine(-2'000, 5'000, 1900);
    const PrintedDocument page = printed();
    EXPECT_EQ(page.reference, "Gutschrift zur Rechnung 2025-001 vom 07.03.2025");
    EXPECT_EQ(page.lines[0].quantity, "-2");
    EXPECT_EQ(texts(page.totals).back(), "total:Gesamtbetrag=-119,00 €");
    context.erase(*invoice);
    EXPECT_EQ(printed().reference, "");
}

TEST_F(PrintedDocumentTest, saysWhyThereIsNoTax)
{
    addLine(1'000, 10'000, 1900);
    document->taxExemptNote = "Note";
    business.taxExempt = true;
    business.taxExemptNote = "Kleinunternehmer";
    EXPECT_EQ(printed().exemptNote, ""); // this document is taxed
    document->taxExempt = true;
    EXPECT_EQ(printed().exemptNote, "Note");
    document->taxExemptNote.clear();
    EXPECT_EQ(printed().exemptNote, "Kleinunternehmer");
}

TEST_F(PrintedDocumentTest, namesCountriesAcrossABorder)
{
    client->countryCode = "at";
    document->languageCode = "fr";
    const PrintedDocument page = printed();
    EXPECT_EQ(page.buyerAddress.back(), "Autriche");
    EXPECT_EQ(page.sellerAddress.back(), "Allemagne");
    EXPECT_EQ(page.sender, "Atelier Lindqvist · Lindenstr. 14 · 10115 Berlin · Allemagne");
    business.countryCode = "";
    EXPECT_EQ(printed().buyerAddress.back(), "20457 Hamburg");
}

TEST_F(PrintedDocumentTest, leavesOutALogoThatIsNoPicture)
{
    business.logoData = {'G', 'I', 'F', '8', '9', 'a', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_THAT(printed().logo, IsEmpty());
    business.logoData = {0x89, 'P', 'N', 'G'};
    EXPECT_THAT(printed().logo, IsEmpty());
}

TEST_F(PrintedDocumentTest, survivesADocumentWithoutAnything)
{
    document = &context.insert<Document>();
    document->issueDate.reset();
    document->kindRaw = 7;
    business = Business();
    const PrintedDocument page = printed();
    EXPECT_EQ(page.pageTitle, "Invoice");
    EXPECT_THAT(page.meta, IsEmpty());
    EXPECT_FALSE(page.payment);
}

TEST(PrintedTermsTest, namesTaxInTheDocumentsLanguage)
{
    struct Case
    {
        std::string_view country;
        std::string_view expected;
        TaxLabel label;
        DocumentLanguage language;
    };
    const Case cases[] = {
        {"DE", "USt.", TaxLabel::vat, DocumentLanguage::german},
        {"CH", "MWST", TaxLabel::vat, DocumentLanguage::german},
        {"CH", "TVA", TaxLabel::vat, DocumentLanguage::french},
        {"AU", "GST", TaxLabel::gst, DocumentLanguage::french},
        {"US", "Sales Tax", TaxLabel::salesTax, DocumentLanguage::english},
        {"JP", "JCT", TaxLabel::custom, DocumentLanguage::italian},
    };
    for (const auto& [country, expected, label, language] : cases) {
        Business business;
        business.taxLabelRaw = static_cast<std::int16_t>(label);
        business.countryCode = country;
        business.customTaxLabel = " JCT ";
        EXPECT_EQ(PrintedTerms::tax(business, language), expected);
    }
    EXPECT_EQ(PrintedTerms::vatID("in", DocumentLanguage::german), "GSTIN");
    EXPECT_EQ(PrintedTerms::vatID("AT", DocumentLanguage::german), "USt-IdNr.");
}

} // namespace

} // namespace Quillary
