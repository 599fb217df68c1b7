#include "QuillaryCore/Assistant/Operations/RecordFields.h"

#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/CustomUnit.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TaxRates.h"
#include "QuillaryCore/Model/TextPreset.h"
#include "QuillaryCore/Model/Units.h"
#include "tests/Assistant/AssistantLibrary.h"

#include <gtest/gtest.h>

#include <string>

namespace Quillary {
namespace {

class RecordFieldsTest : public testing::Test
{
protected:
    template <class Record>
    Record& add(std::string_view json)
    {
        const JSON given = *JSON::parse(json);
        return addRecord<Record>(library.environment(), Arguments(given));
    }

    template <class Record>
    std::string refusal(std::string_view json)
    {
        auto scope = library.context.beginScope("Add");
        try {
            add<Record>(json);
        } catch (const AssistantError& error) {
            return error.message();
        }
        return "";
    }

    AssistantLibrary library;
};

TEST_F(RecordFieldsTest, fillsAndChecksProducts)
{
    const CustomUnit& crate = add<CustomUnit>(R"({"singular": "crate", "plural": "crates", "code": "cr"})");
    const CatalogItem& item = add<CatalogItem>(
        R"({"name": "Apples", "price": "1250", "currency": "jpy", "unit": "Crates", "tax_rate": "7"})");
    EXPECT_EQ(item.unitPriceMinorUnits, 1250); // yen have no decimals, whichever order the fields came in
    EXPECT_EQ(item.unit, Units::unitID(crate));
    EXPECT_EQ(library.context.find<TaxRate>(*item.taxRateID)->basisPoints, 700);
    EXPECT_EQ(add<CatalogItem>(R"({"name": "Pears"})").currencyCode, "EUR");

    const std::pair<std::string_view, std::string_view> cases[] = {
        {R"({"price": "1"})", "“name” is missing."},
        {R"({"name": "apples"})", "“name” “apples” is there already."},
        {R"({"name": "Figs", "tax_rate": "8"})", "“tax_rate” is none of your tax rates: 19, 7, 0."},
        {R"({"name": "Figs", "currency": "XXX1"})", "“currency” must be an ISO currency code such as EUR."},
    };
    for (const auto& [json, sentence] : cases) {
        EXPECT_EQ(refusal<CatalogItem>(json), sentence);
    }
    removeRecord(library.environment(), crate);
    EXPECT_EQ(item.unit, "") << "nothing is counted in a unit that is gone";
}

TEST_F(RecordFieldsTest, keepsOneDefaultRateAndTheOrder)
{
    const TaxRate& before = *TaxRates::defaultRate(library.context);
    const TaxRate& rate = add<TaxRate>(R"({"name": "New", "rate": "16", "default": true})");
    EXPECT_FALSE(before.isDefault);
    EXPECT_EQ(TaxRates::defaultRate(library.context), &rate);
    EXPECT_EQ(TaxRates::all(library.context).back(), &rate);
    EXPECT_EQ(refusal<TaxRate>(R"({"name": "Much", "rate": "101"})"),
              "“rate” must be a percentage from 0 to 100 with at most two decimals, such as 19 or 5.5.");
}

TEST_F(RecordFieldsTest, changesProjectsAndTexts)
{
    const Project& project = add<Project>(R"({"name": "Website"})");
    const JSON archived = *JSON::parse(R"({"archived": true})");
    editRecord(library.environment(), Arguments(archived), project);
    EXPECT_TRUE(project.isArchived);
    EXPECT_EQ(project.name, "Website");
    const JSON nameless = *JSON::parse(R"({"name": ""})");
    EXPECT_THROW(editRecord(library.environment(), Arguments(nameless), project), AssistantError);

    EXPECT_EQ(add<TextPreset>(R"({"title": "Thanks", "kind": "Outro", "text": "Thank you.\nBye"})").kindRaw, 1);
    EXPECT_EQ(refusal<TextPreset>(R"({"title": "X", "kind": "middle"})"), "“kind” must be intro or outro.");
}

} // namespace
} // namespace Quillary
