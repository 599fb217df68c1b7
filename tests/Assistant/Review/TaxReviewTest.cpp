#include "tests/Assistant/Review/ReviewDesk.h"

namespace Quillary {
namespace {

TEST(TaxReviewTest, asksForTheServiceDateWhereTheLawWantsIt)
{
    struct Place
    {
        std::string_view country;
        std::string_view question;
    };
    const Place places[] = {
        {"DE", serviceDate},
        {"AT", serviceDate},
        {"GB", serviceDate},
        {"IM", serviceDate},
        {"NO", serviceDate},
        {"FR", optionalServiceDate},
        {"PL", optionalServiceDate},
        {"MC", optionalServiceDate},
        {"CH", optionalServiceDate},
        {"LI", optionalServiceDate},
        {"US", ""},
        {"AU", ""},
        {"IN", ""},
    };
    for (const Place& place : places) {
        const std::string business = fmt::format(
            R"({{"name":"Hof","address_line":"Weg 1","city":"Ort","tax_id":"1","country":"{}"}})", place.country);
        const std::string client =
            fmt::format(R"({{"name":"Acme","address_line":"Weg 2","city":"Ort","country":"{}"}})", place.country);
        Desk desk(business, client, R"("kind":"invoice","client":"Acme","add_lines":[{"title":"W","unit_price":900}])");
        const std::string expected = place.question.empty() ? std::string(ready)
                                     : place.question == serviceDate
                                         ? asked({std::string(place.question)})
                                         : sections(asked({std::string(place.question)}), askFirst);
        EXPECT_EQ(desk.review().text(), expected) << place.country;
        desk.update(R"("service_date":"invoice_date")");
        EXPECT_EQ(desk.review().text(), ready) << place.country;
    }
}

constexpr std::string_view askForVATID =
    "If they're a VAT-registered business, what's their VAT ID? (Then reverse charge usually applies.) (optional) → "
    "set update_client vat_id. Options: They have none: charge VAT as usual [none]";
constexpr std::string_view askForReverseCharge =
    "with a VAT ID. Use reverse charge (no VAT, with the note)? (optional) → set reverse_charge. Options: Yes, reverse "
    "charge [true]; No, charge VAT as usual [false]";
constexpr std::string_view askForOutside =
    "Invoice without VAT, with the note? (optional) → set outside_eu. Options: Yes, without VAT [true]; No, charge VAT "
    "as usual [false]";

TEST(TaxReviewTest, asksHowAClientAbroadIsTaxed)
{
    struct Abroad
    {
        const char* reason;
        std::string_view client; ///< members beside name and street
        std::string question;    ///< empty: none
        std::string_view business = german;
    };
    const auto unknown = [](std::string_view place) {
        return fmt::format("Acme is in {}. {}", place, askForVATID);
    };
    const auto registeredIn = [](std::string_view place) {
        return fmt::format("Acme is a business in {} {}", place, askForReverseCharge);
    };
    const auto outsideIn = [](std::string_view place) {
        return fmt::format("Acme is a business outside the EU ({}). {}", place, askForOutside);
    };
    const Abroad cases[] = {
        {"at home", R"("country":"DE")", ""},
        {"nowhere in particular", R"("country":"")", ""},
        {"the EU without a VAT ID", R"("country":"NL")", unknown("the Netherlands")},
        {"with one", R"("country":"AT","vat_id":"ATU12345678")", registeredIn("Austria")},
        {"Greece gives numbers that begin with EL", R"("country":"GR","vat_id":"EL123456789")", registeredIn("Greece")},
        {"the VAT ID tells the country", R"("vat_id":"EL123456789")", registeredIn("Greece")},
        {"registered here as well", R"("country":"AT","vat_id":"DE123456789")", ""},
        {"a number that no member state gave", R"("country":"AT","vat_id":"CHE123456789MWST")", unknown("Austria")},
        {"a private person in the EU", R"("country":"AT","is_person":true)", ""},
        {"who said that there is none", R"("country":"AT","vat_id":"None")", ""},
        {"Switzerland", R"("country":"CH")", outsideIn("Switzerland")},
        {"a private person there", R"("country":"CH","is_person":true)", ""},
        {"Northern Ireland is the EU for goods only",
         R"("country":"GB","vat_id":"XI123456789")",
         outsideIn("United Kingdom")},
        {"the Canary Islands aren't Spain for VAT",
         R"("country":"ES","postal_code":"35 001")",
         outsideIn("Canary Islands")},
        {"Monaco is France for VAT", R"("country":"MC")", "", french},
        {"and abroad for others", R"("country":"MC")", unknown("Monaco")},
        {"no EU VAT to leave out", R"("country":"AT","vat_id":"ATU12345678")", "", british},
    };
    for (const Abroad& row : cases) {
        const std::string client =
            fmt::format(R"({{"name":"Acme","address_line":"Weg 2","city":"Ort",{}}})", row.client);
        Desk desk(row.business, client, invoice);
        const std::string expected =
            row.question.empty() ? std::string(ready) : sections(asked({row.question}), askFirst);
        EXPECT_EQ(desk.review().text(), expected) << row.reason;
    }
}

TEST(TaxReviewTest, countsNorthernIrelandToTheEUForGoods)
{
    Desk desk(german,
              R"({"name":"Acme","address_line":"Road 2","city":"Derry","country":"GB","vat_id":"XI123456789"})",
              invoice);
    desk.library.context.edit(desk.document()).deliveryKindRaw = 1;
    desk.library.context.save();
    EXPECT_EQ(
        desk.review().text(),
        sections(asked({fmt::format("Acme is a business in Northern Ireland {}", askForReverseCharge)}), askFirst));
}

TEST(TaxReviewTest, checksADocumentWithoutTax)
{
    const std::string untaxed = std::string(invoice) + R"(,"tax_exempt":true)";
    const std::string reversed = std::string(invoice) + R"(,"reverse_charge":true)";
    const std::string outside = std::string(invoice) + R"(,"outside_eu":true)";
    const std::string domestic = reversed + R"(,"tax_exempt_note":"§ 13b UStG")";
    constexpr std::string_view unregistered =
        R"({"name":"Hof","address_line":"Weg 1","city":"Bonn","country":"DE","tax_id":"12/345"})";
    constexpr std::string_view small =
        R"({"name":"Hof","address_line":"Weg 1","city":"Bonn","country":"DE","tax_id":"1","tax_exempt":true})";
    const std::string noReason = "The invoice is tax-exempt but doesn't say why. Set tax_exempt_note to the reason, as "
                                 "your tax rules word it.";
    const Case cases[] = {
        {"a reason is missing", local, untaxed, before({noReason})},
        {"not outside the EU", local, untaxed, std::string(ready), american},
        {"the business's own exemption", local, std::string(invoice), before({noReason}), small},
        {"all is there", registered, reversed, std::string(ready)},
        {"no VAT ID of the client",
         austrian,
         reversed,
         before({"Reverse charge needs Acme's VAT ID. Ask for it and set it with update_client."})},
        {"no VAT ID of one's own",
         registered,
         reversed,
         before({"Reverse charge needs your VAT ID. Set it once with update_business_profile, or in Quillary › "
                 "Settings › Business."}),
         unregistered},
        {"a client at home",
         local,
         reversed,
         before({"Reverse charge needs a client in another EU country; Acme is in Germany. Set reverse_charge to false "
                 "with update_document, or correct the country with update_client."})},
        {"for a national reason of its own", local, domestic, std::string(ready)},
        {"a client inside the EU",
         austrian,
         outside,
         before({"The note says that the client is outside the EU; Acme is in Austria. Set outside_eu to false with "
                 "update_document, or correct the country with update_client."})},
    };
    expectReviews(cases);
}

TEST(TaxReviewTest, findsTheTaxMissingThatAnExemptBusinessMeantToCharge)
{
    // The draft had neither tax nor a reason, and was called ready.
    Desk desk(german, local, invoice);
    desk.library.data("update_business_profile", R"({"tax_exempt":true,"tax_exempt_note":"§ 19 UStG"})");
    desk.id = *desk.library
                   .data("create_document",
                         R"({"kind":"invoice","client":"Acme","tax_exempt":false,"service_date":"today",
                            "add_lines":[{"title":"Work","unit_price":900}]})")
                   .find("id")
                   ->string();
    EXPECT_EQ(desk.review().text(),
              before({"The invoice is taxed, but line 1 (“Work”) bears no VAT. Set tax_exempt to true with "
                      "update_document, or the tax_rate of each with change_lines."}));
    desk.update(R"("change_lines":[{"line":1,"tax_rate":19}])");
    EXPECT_EQ(desk.review().text(), ready);
    desk.update(R"("change_lines":[{"line":1,"tax_rate":0}])");
    EXPECT_FALSE(desk.review().isReady()) << "it has no tax again, and no reason";
    desk.update(R"("tax_exempt":true)");
    EXPECT_EQ(desk.review().text(), ready);
}

} // namespace
} // namespace Quillary
