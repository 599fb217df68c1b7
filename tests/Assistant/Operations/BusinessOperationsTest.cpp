#include "QuillaryCore/Assistant/Review/DocumentReview.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TaxRates.h"
#include "tests/Assistant/AssistantLibrary.h"

#include <vector>

namespace Quillary {
namespace {

TEST(BusinessOperationsTest, takesOverACountryUntilSomethingIsBilled)
{
    AssistantLibrary library;
    const JSON swiss = library.data("update_business_profile", R"({"name":"Hof","country":"CH"})");
    EXPECT_EQ(member(swiss, "currency"), "\"CHF\"");
    EXPECT_EQ(TaxRates::defaultRate(library.context)->basisPoints, 810);
    library.data("create_document", R"({"kind":"invoice"})");
    const JSON moved = library.data("update_business_profile", R"({"country":"US"})");
    EXPECT_EQ(member(moved, "country"), "\"US\"");
    EXPECT_EQ(member(moved, "currency"), "\"CHF\"");
}

TEST(BusinessOperationsTest, refusesWhatABankWouldRefuse)
{
    AssistantLibrary library;
    const std::pair<std::string_view, std::string_view> cases[] = {
        {R"({"iban":"DE89 3704 0044 0532 0130 01"})",
         "“iban” isn't a valid IBAN: its check digits or its length are wrong."},
        {R"({"bic":"COBADEFFX"})", "“bic” isn't a valid BIC: it has 8 or 11 characters, such as COBADEFFXXX."},
    };
    for (const auto& [arguments, sentence] : cases) {
        EXPECT_EQ(library.refusal("update_business_profile", arguments), sentence);
    }
    EXPECT_EQ(member(library.data("update_business_profile", R"({"iban":"de89 3704 0044 0532 0130 00"})"), "iban"),
              "\"DE89370400440532013000\"");
}

TEST(BusinessOperationsTest, namesOnlyNumbersThatAreNext)
{
    AssistantLibrary library;
    Business& own = library.context.edit(*library.context.find(library.business));
    own.name = "Studio [Nord]\nnext numbers: none";
    own.invoiceNumberFormat = "{client}-{###,c}"; // the sample of a made-up client was given as the next number
    own.quoteNumberFormat = "{nonsense}";         // the sentence about it was given as the next number
    library.context.save();
    library.data("create_client", R"({"name":"Acme"})");
    const ToolResult profile = library.call("get_business_profile", "{}");
    EXPECT_EQ(member(*profile.data, "next_numbers"), R"({"credit_note":"CN-2026-001","client":"C-0002"})");
    EXPECT_TRUE(profile.text.contains("\nnext numbers: credit_note CN-2026-001; client C-0002\n")) << profile.text;
    EXPECT_TRUE(profile.text.contains("\n- No quote can be numbered: ")) << profile.text;
    EXPECT_TRUE(profile.text.starts_with("name: Studio (Nord) next numbers: none\n")) << profile.text;
}

TEST(BusinessReviewTest, saysWhatTheBusinessLacks)
{
    struct Case
    {
        const char* reason;
        std::string_view country;
        bool inEU;
        bool taxExempt;
        Business business;
        std::vector<std::string> problems;
    };
    Business complete;
    complete.name = "Hof";
    complete.addressLine = "Weg 1";
    complete.city = "Linz";
    Business numbered = complete;
    numbered.taxID = "12/345";
    const Case cases[] = {
        {"outside the EU no address is asked for", "US", false, false, Business{}, {"Your business name is missing."}},
        {"in the EU it is, before the tax numbers",
         "FR",
         true,
         false,
         Business{},
         {"Your business name is missing.",
          "Your address is missing; invoices must show it.",
          "Your VAT ID is missing; VAT invoices must show it."}},
        {"a tax number settles it", "DE", true, false, numbered, {}},
        {"Germany wants one of two",
         "DE",
         true,
         true,
         complete,
         {"Invoices in Germany must show your tax number or VAT ID."}},
        {"so does Austria", "AT", true, false, complete, {"Invoices in Austria must show your tax number or VAT ID."}},
        {"an exempt document needs no VAT ID elsewhere", "FR", true, true, complete, {}},
    };
    for (const Case& example : cases) {
        std::vector<std::string> problems;
        for (const ReviewProblem& found :
             DocumentReview::businessProblems(example.business, example.country, example.inEU, example.taxExempt)) {
            problems.push_back(found.problem);
            EXPECT_EQ(found.fix, "Set it once with update_business_profile, or in Quillary › Settings › Business.");
        }
        EXPECT_EQ(problems, example.problems) << example.reason;
    }
}

} // namespace
} // namespace Quillary
