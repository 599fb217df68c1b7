#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/NumberSequence.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Store/Store.h"
#include "tests/Assistant/AssistantLibrary.h"

#include <fmt/format.h>

namespace Quillary {
namespace {

class DocumentSessionTest : public testing::Test
{
protected:
    /// Updates the document that `create` made.
    JSON update(std::string_view members)
    {
        return library.data("update_document", fmt::format(R"({{"document":"{}",{}}})", id, members));
    }

    std::string refusedUpdate(std::string_view members)
    {
        return library.refusal("update_document", fmt::format(R"({{"document":"{}",{}}})", id, members));
    }

    JSON create(std::string_view members)
    {
        JSON made = library.data("create_document", fmt::format("{{{}}}", members));
        id = *made.find("id")->string();
        return made;
    }

    const Document& document() { return *library.context.find<Document>(*UUID::parse(id)); }

    AssistantLibrary library;
    std::string id;
};

TEST_F(DocumentSessionTest, fillsADraftFromTheClientAndTheBusiness)
{
    library.data("create_client",
                 R"({"name":"Lumière SARL","language":"fr","currency":"CHF","payment_terms_days":30})");
    const JSON made = create(R"("kind":"invoice","client":"lumiere","add_lines":[{"title":"Conseil","quantity":1.5,
                                "unit":"hour","unit_price":99.99}])");
    EXPECT_EQ(member(made, "number"), "\"INV-2026-001\"");
    EXPECT_EQ(member(made, "issue_date"), "\"2026-03-17\"");
    EXPECT_EQ(member(made, "due_date"), "\"2026-04-16\"");
    EXPECT_EQ(member(made, "currency"), "\"CHF\"");
    EXPECT_EQ(member(made, "language"), "\"fr\"");
    EXPECT_EQ(member(made, "net"), "149.99"); // 149.985, a tie
    EXPECT_EQ(member(made, "total"), "178.49");
    EXPECT_EQ(document().madeBy, "Test Assistant");
    EXPECT_EQ(document().cachedTotalMinorUnits, 17849);
    const LineItem* line = library.context.first<LineItem>("");
    EXPECT_EQ(line->vatBasisPoints, 1900);
    EXPECT_EQ(line->unitPlural, "heures");
}

TEST_F(DocumentSessionTest, leavesNothingOfAnotherClientBehind)
{
    library.data("create_client", R"({"name":"Lumière","language":"fr","currency":"CHF","payment_terms_days":60})");
    library.data("create_client", R"({"name":"Plain"})");
    create(R"("kind":"invoice","client":"lumiere")");
    JSON moved = update(R"("client":"Plain")");
    EXPECT_EQ(member(moved, "currency") + member(moved, "language") + member(moved, "due_date"),
              R"("EUR""en""2026-03-31")");
    create(R"("kind":"invoice","currency":"USD","client":"lumiere")"); // what was said outlives the client
    moved = update(R"("client":"Plain")");
    EXPECT_EQ(member(moved, "currency"), "\"USD\"");
}

TEST_F(DocumentSessionTest, refusesMoreLinesThanADocumentHoldsAtOnce)
{
    create(R"("kind":"invoice","add_lines":[{"title":"A"}])");
    std::string many = "{}";
    for (int count = 1; count < 60'000; ++count) {
        many += ",{}";
    }
    EXPECT_EQ(refusedUpdate(R"("add_lines":[)" + many + "]"), "A document can have at most 5000 lines.");
    EXPECT_EQ(library.context.count<LineItem>(""), 1);
}

TEST_F(DocumentSessionTest, takesBackEverythingWhenOneArgumentIsRefused)
{
    create(R"("kind":"invoice","add_lines":[{"title":"A","unit_price":10}])");
    const std::string sentences[] = {
        refusedUpdate(R"("title":"New","add_lines":[{"title":"B","unit_price":"1e30"}])"),
        refusedUpdate(R"("title":"New","remove_lines":[1],"issue_date":"2026-02-30")"),
        refusedUpdate(R"("title":"New","change_lines":[{"line":2,"quantity":3}])"),
        refusedUpdate(R"("title":"New","reverse_charge":true,"tax_exempt":true)"),
        refusedUpdate(R"("title":"New","add_lines":[{"unit":"furlong"}])"),
        refusedUpdate(R"("title":"New","add_lines":[{"quantity":1000000000,"unit_price":100000000000}])"),
        library.refusal("create_document", R"({"kind":"invoice","currency":"XYZ"})"),
        library.refusal("create_document", R"({"kind":"quote","payment_terms_days":3})"),
    };
    for (const std::string& sentence : sentences) {
        EXPECT_FALSE(sentence.empty());
    }
    EXPECT_FALSE(library.context.hasChanges());
    EXPECT_EQ(document().title, "");
    EXPECT_EQ(document().cachedTotalMinorUnits, 1190);
    EXPECT_EQ(library.context.count<LineItem>(""), 1);
    EXPECT_EQ(library.context.count<Document>(""), 1);
    // A refused draft has used up no number.
    EXPECT_EQ(member(create(R"("kind":"invoice")"), "number"), "\"INV-2026-002\"");
}

TEST_F(DocumentSessionTest, numbersLinesAsTheyStoodBeforeTheCall)
{
    create(R"("kind":"invoice","add_lines":[{"title":"A"},{"title":"B"},{"title":"C"}])");
    const JSON changed = update(
        R"("remove_lines":[1],"change_lines":[{"line":2,"title":"B2"},{"line":3,"quantity":2}],"add_lines":[{"title":"D"}])");
    std::string titles;
    for (const JSON& line : *changed.find("lines")->array()) {
        titles += *line.find("title")->string() + "×" + line.find("quantity")->decimalText().value_or("?") + " ";
    }
    EXPECT_EQ(titles, "B2×1 C×2 D×1 ");
}

TEST_F(DocumentSessionTest, replacesAndRemovesTheDiscount)
{
    create(R"("kind":"invoice","discount_percent":10,"add_lines":[{"title":"A","unit_price":200}])");
    EXPECT_EQ(member(update(R"("title":"T")"), "net"), "180.00");
    EXPECT_EQ(member(update(R"("discount_amount":5)"), "net"), "195.00");
    EXPECT_EQ(member(update(R"("discount_percent":0)"), "net"), "200.00");
}

TEST_F(DocumentSessionTest, keepsTheTaxTreatmentAndItsNoteInTheDocumentsLanguage)
{
    create(R"("kind":"invoice","reverse_charge":true,"language":"de","add_lines":[{"title":"A","unit_price":100}])");
    EXPECT_EQ(document().cachedTotalMinorUnits, 10000);
    EXPECT_TRUE(document().taxExemptNote.starts_with("Steuerschuldnerschaft"));
    update(R"("language":"it")");
    EXPECT_TRUE(document().taxExemptNote.starts_with("Inversione contabile"));
    update(R"("tax_exempt_note":"Own words","language":"en")");
    EXPECT_EQ(document().taxExemptNote, "Own words");
    EXPECT_EQ(taxTreatment(library.context, document()), TaxTreatment::reverseCharge);
    update(R"("outside_eu":false)"); // says nothing about reverse charge
    EXPECT_EQ(taxTreatment(library.context, document()), TaxTreatment::reverseCharge);
    update(R"("reverse_charge":false)");
    EXPECT_EQ(taxTreatment(library.context, document()), TaxTreatment::standard);
    EXPECT_EQ(document().cachedTotalMinorUnits, 11900);
}

TEST_F(DocumentSessionTest, printsTheReasonThatBelongsToTheTreatment)
{
    const std::pair<std::string_view, std::pair<std::string_view, std::string_view>> mentions[] = {
        {"en", {"Reverse charge", "Article 44 of Directive 2006/112/EC"}},
        {"de", {"Steuerschuldnerschaft des Leistungsempfängers", "Artikel 44 der Richtlinie 2006/112/EG"}},
        {"fr", {"Autoliquidation", "article 44 de la directive 2006/112/CE"}},
        {"es", {"Inversión del sujeto pasivo", "artículo 44 de la Directiva 2006/112/CE"}},
        {"nl", {"Btw verlegd", "artikel 44 van Richtlijn 2006/112/EG"}},
        {"it", {"Inversione contabile", "articolo 44 della direttiva 2006/112/CE"}},
    };
    create(
        R"("kind":"invoice","add_lines":[{"title":"A","unit_price":100},{"title":"B","unit_price":1,"tax_rate":7}])");
    for (const auto& [language, mention] : mentions) {
        update(fmt::format(R"("language":"{}","reverse_charge":true)", language));
        EXPECT_TRUE(document().taxExemptNote.starts_with(mention.first)) << document().taxExemptNote;
        update(R"("outside_eu":true)");
        EXPECT_NE(document().taxExemptNote.find(mention.second), std::string::npos) << document().taxExemptNote;
    }
    update(R"("tax_exempt":true)"); // another reason than the one that was printed
    EXPECT_EQ(document().taxExemptNote, "");
    EXPECT_EQ(taxTreatment(library.context, document()), TaxTreatment::exempt);
    update(R"("tax_exempt":false)"); // each line has its own rate again
    EXPECT_EQ(document().cachedTotalMinorUnits, 12007);
    EXPECT_EQ(document().taxExemptNote, "");
}

TEST_F(DocumentSessionTest, goesBackToTheBusinesssOwnExemption)
{
    library.data("update_business_profile", R"({"tax_exempt":true,"tax_exempt_note":"§ 19 UStG"})");
    const JSON made = create(R"("kind":"invoice","add_lines":[{"title":"A","unit_price":100}])");
    EXPECT_EQ(member(*made.find("review"), "filled_in"), R"(["no VAT: § 19 UStG"])");
    update(R"("reverse_charge":true)");
    EXPECT_TRUE(document().taxExemptNote.starts_with("Reverse charge"));
    update(R"("reverse_charge":false)");
    EXPECT_EQ(document().taxExemptNote, "§ 19 UStG");
    EXPECT_EQ(taxTreatment(library.context, document()), TaxTreatment::exempt);
}

TEST_F(DocumentSessionTest, movesTheNumberOnlyWhileItIsTheNewest)
{
    create(R"("kind":"invoice")");
    EXPECT_EQ(member(update(R"("issue_date":"2025-12-31")"), "number"), "\"INV-2025-001\"");
    EXPECT_EQ(member(update(R"("issue_date":"2026-01-02")"), "number"), "\"INV-2026-001\"");
    const std::string first = id;
    create(R"("kind":"invoice")");
    id = first;
    EXPECT_EQ(member(update(R"("issue_date":"2025-12-31")"), "number"), "\"INV-2026-001\"");
}

TEST_F(DocumentSessionTest, numbersADraftOnceItsPatternsClientIsKnown)
{
    library.context.edit(*library.context.find(library.business)).invoiceNumberFormat = "{client}-{###,c}";
    library.context.save();
    library.data("create_client", R"({"name":"Acme"})");
    EXPECT_EQ(member(create(R"("kind":"invoice")"), "number"), "\"\"");
    EXPECT_EQ(member(update(R"("client":"Acme")"), "number"), "\"C-0001-001\"");
}

TEST_F(DocumentSessionTest, keepsFiguresWhenTheCurrencyChanges)
{
    create(R"("kind":"invoice","currency":"EUR","add_lines":[{"title":"A","unit_price":90}])");
    EXPECT_EQ(member(update(R"("currency":"JPY")"), "net"), "90");
    EXPECT_EQ(member(update(R"("currency":"KWD")"), "net"), "90.000");
    update(R"("change_lines":[{"line":1,"unit_price":90.125}])");
    EXPECT_EQ(refusedUpdate(R"("currency":"EUR")"),
              "The currency can't become EUR: the price 90.125 has more decimals than it.");
}

TEST_F(DocumentSessionTest, neverRelabelsAPriceThatIsKnownInItsCurrency)
{
    CatalogItem& item = library.context.insert<CatalogItem>();
    item.name = "Hosting";
    item.unitPriceMinorUnits = 9000;
    item.currencyCode = "EUR";
    library.data("create_client", R"({"name":"Yankee","currency":"USD"})");
    create(R"("kind":"invoice","add_lines":[{"catalog_item":"hosting"},{"title":"Own","unit_price":5}])");
    for (const std::string_view change : {R"("currency":"USD")", R"("client":"Yankee")"}) {
        EXPECT_EQ(
            refusedUpdate(change),
            "The currency can't become USD: line 1 (“Hosting”) comes from the catalog, where it is priced in EUR. "
            "Give its price in USD in the same call (change_lines with unit_price), remove the line first, or "
            "set “currency” to EUR.");
    }
    const JSON changed = update(R"("currency":"USD","change_lines":[{"line":1,"unit_price":99}])");
    EXPECT_EQ(member(changed, "net"), "104.00");
    EXPECT_EQ(member(*changed.find("review"), "filled_in"), R"(["prices kept as figures: 5.00 EUR is now 5.00 USD"])");
}

TEST_F(DocumentSessionTest, keepsTheAnswersWhenTheSameClientIsNamedAgain)
{
    // Currency, language and terms went back to the client's own.
    library.data("create_client", R"({"name":"Lumière","language":"fr","currency":"CHF","payment_terms_days":60})");
    create(R"("kind":"invoice","client":"lumiere")");
    update(R"("currency":"EUR","language":"de","payment_terms_days":7)");
    const JSON again = update(R"("client":"Lumière")");
    EXPECT_EQ(member(again, "currency") + member(again, "language") + member(again, "due_date"),
              R"("EUR""de""2026-03-24")");
    EXPECT_EQ(member(*again.find("review"), "filled_in"), "[]");
}

TEST_F(DocumentSessionTest, changesNoTemplate)
{
    // It was given a number, which no invoice got then.
    create(R"("kind":"quote")");
    Document& changed = library.context.edit(document());
    changed.kindRaw = 3;
    changed.number.clear();
    library.context.save();
    EXPECT_EQ(refusedUpdate(R"("title":"New")"),
              fmt::format("Recurring Invoice without a number [{}] is a template, which only the user changes, in "
                          "Quillary. The invoices made from it can be changed while they are drafts.",
                          id));
    const JSON shown = library.data("get_document", fmt::format(R"({{"document":"[{}]"}})", id));
    EXPECT_EQ(member(shown, "number"), "\"\"");
    EXPECT_EQ(shown.find("review"), nullptr);
    EXPECT_EQ(member(create(R"("kind":"invoice")"), "number"), "\"INV-2026-001\"");
}

TEST_F(DocumentSessionTest, letsAPrintedReasonGoWithItsTreatment)
{
    const std::string_view lines = R"("add_lines":[{"title":"A","unit_price":100}])";
    // The German reason stood on as the user's own, because the language changed in the same call.
    create(fmt::format(R"("kind":"invoice","reverse_charge":true,"language":"de",{})", lines));
    update(R"("language":"en","tax_exempt":true)");
    EXPECT_EQ(document().taxExemptNote, "");
    create(fmt::format(R"("kind":"invoice","outside_eu":true,"language":"de",{})", lines));
    update(R"("language":"fr","reverse_charge":true)");
    EXPECT_TRUE(document().taxExemptNote.starts_with("Autoliquidation")) << document().taxExemptNote;
    // The answer that is given once more leaves the user's words alone.
    update(R"("tax_exempt_note":"§ 13b UStG")");
    update(R"("reverse_charge":true)");
    EXPECT_EQ(document().taxExemptNote, "§ 13b UStG");
    update(R"("outside_eu":true)");
    EXPECT_TRUE(document().taxExemptNote.starts_with("TVA non applicable")) << document().taxExemptNote;
}

TEST_F(DocumentSessionTest, saysOfAnExemptBusinessOnlyWhatHolds)
{
    library.data("update_business_profile", R"({"tax_exempt":true,"tax_exempt_note":"§ 19 UStG"})");
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"", R"(["no VAT: § 19 UStG"])"},
        {R"(,"tax_exempt":false)", "[]"},
        {R"(,"reverse_charge":true)", "[]"},
    };
    for (const auto& [choice, filledIn] : cases) {
        const JSON made = create(fmt::format(R"("kind":"invoice"{})", choice));
        EXPECT_EQ(member(*made.find("review"), "filled_in"), filledIn) << choice;
    }
}

TEST_F(DocumentSessionTest, asksForPaymentOnlyInInvoices)
{
    library.data("create_client", R"({"name":"Acme","payment_terms_days":30})");
    const JSON quote = create(R"("kind":"quote","client":"Acme")");
    EXPECT_EQ(member(*quote.find("review"), "filled_in"), "[]");
    library.context.edit(document()).kindRaw = 2;
    library.context.save();
    EXPECT_EQ(member(update(R"("issue_date":"2026-03-20")"), "due_date"), "");
    EXPECT_EQ(refusedUpdate(R"("payment_terms_days":3)"),
              "“payment_terms_days” belongs to invoices: a credit note asks for no payment.");
}

TEST_F(DocumentSessionTest, takesTheServiceDateBack)
{
    const JSON dated = create(R"("kind":"invoice","service_date":"This_Month")");
    EXPECT_EQ(member(dated, "service_end"), "\"2026-03-31\"");
    const JSON cleared = update(R"("service_date":"")");
    EXPECT_EQ(member(cleared, "service_start") + member(cleared, "service_end"), "");
    EXPECT_EQ(document().deliveryKindRaw, 0);
}

TEST_F(DocumentSessionTest, copiesTheNewestIssuedInvoiceInTheDraftsLanguage)
{
    library.data("create_client", R"({"name":"Acme"})");
    create(
        R"("kind":"invoice","client":"Acme","add_lines":[{"title":"Sent","quantity":2,"unit":"hour","unit_price":1}])");
    library.context.edit(document()).statusRaw = 1;
    library.context.save();
    create(R"("kind":"invoice","client":"Acme","issue_date":"2026-04-01","add_lines":[{"title":"Half-made"}])");
    create(R"("kind":"invoice","client":"Acme","issue_date":"2026-05-01")"); // empty, and was taken for the last
    const JSON copy = create(R"("kind":"invoice","client":"Acme","language":"de","copy_last_invoice":true)");
    const JSON& line = copy.find("lines")->array()->front();
    EXPECT_EQ(member(line, "title") + member(line, "unit"), R"("Sent""Stunden")");
    EXPECT_EQ(member(*copy.find("review"), "filled_in"), R"(["lines of INV-2026-001"])");
}

TEST_F(DocumentSessionTest, showsFiguresThatAddUp)
{
    create(R"("kind":"invoice","add_lines":[{"title":"A","unit_price":100,"tax_rate":7.5}])");
    library.context.edit(document()).statusRaw = 1;
    Reminder& reminder = library.context.insert<Reminder>();
    reminder.document = document().ref;
    reminder.feeMinorUnits = 500;
    library.context.save();
    const std::string which = fmt::format(R"({{"document":"{}"}})", id);
    library.data("record_payment", fmt::format(R"({{"document":"{}","amount":50,"method":"cash"}})", id));
    const ToolResult shown = library.call("get_document", which);
    EXPECT_TRUE(shown.text.ends_with("Tax 7.5% on 100.00: 7.50\nTotal: 107.50\nLate fees: 5.00\n"
                                     "Payment of 50.00 on 2026-03-17, Cash\nPaid: 50.00\nAmount due: 62.50"))
        << shown.text;
    EXPECT_EQ(member(*shown.data, "late_fees") + member(*shown.data, "paid"), "5.0050.00");
    EXPECT_EQ(member(shown.data->find("lines")->array()->front(), "tax_rate"), "7.5"); // as the tool's own argument
}

TEST_F(DocumentSessionTest, copiesTheLastInvoiceWithItsSubLines)
{
    library.data("create_client", R"({"name":"Acme"})");
    create(
        R"("kind":"invoice","client":"Acme","add_lines":[{"title":"A","unit_price":10},{"title":"B","unit_price":5}])");
    const LineItem* first = library.context.first<LineItem>("title = ?", std::string("A"));
    library.context.edit(*library.context.first<LineItem>("title = ?", std::string("B"))).parent = first->ref;
    library.context.save();
    const JSON copy = create(R"("kind":"invoice","client":"Acme","copy_last_invoice":true)");
    EXPECT_EQ(member(copy, "net"), "15.00");
    EXPECT_EQ(member(copy.find("lines")->array()->at(1), "sub_line"), "true");
    EXPECT_EQ(library.context.count<LineItem>(""), 4);
}

TEST_F(DocumentSessionTest, fillsALineFromTheCatalog)
{
    CatalogItem& item = library.context.insert<CatalogItem>();
    item.name = "Hosting";
    item.unit = "month";
    item.unitPriceMinorUnits = 1250;
    item.currencyCode = "EUR";
    library.context.save();
    EXPECT_EQ(member(create(R"("kind":"quote","add_lines":[{"catalog_item":"hosting","quantity":12}])"), "net"),
              "150.00");
    EXPECT_EQ(library.refusal("create_document",
                              R"({"kind":"quote","currency":"USD","add_lines":[{"catalog_item":"hosting"}]})"),
              "“add_lines 1: unit_price” is needed: “Hosting” is priced in EUR, the document is in USD.");
}

TEST_F(DocumentSessionTest, leavesAnIssuedInvoiceAlone)
{
    create(R"("kind":"invoice","add_lines":[{"title":"A","unit_price":10}])");
    library.context.edit(document()).statusRaw = 1;
    library.context.save();
    EXPECT_EQ(refusedUpdate(R"("title":"New")"),
              "INV-2026-001 is no draft any more, so it can't be changed. To correct an invoice that was sent, make a "
              "credit note for it and a new invoice.");
}

TEST_F(DocumentSessionTest, keepsWhatSomebodyElseIsTyping)
{
    create(R"("kind":"invoice")");
    library.context.edit(document()).title = "half-typed";
    library.refusal("update_document", fmt::format(R"({{"document":"{}","issue_date":"soon"}})", id));
    EXPECT_EQ(document().title, "half-typed");
    update(R"("footer":"Thanks")");
    EXPECT_EQ(document().title, "half-typed");
    EXPECT_TRUE(library.context.hasChanges()); // still unsaved, the footer is not
    library.context.rollback();
    EXPECT_EQ(document().title, "");
    EXPECT_EQ(document().outroText, "Thanks");
}

} // namespace
} // namespace Quillary
