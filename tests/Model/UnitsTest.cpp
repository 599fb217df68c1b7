#include "QuillaryCore/Model/Units.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/CustomUnit.h"
#include "tests/Model/TestLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace Quillary {

namespace {

using testing::ElementsAre;

class UnitsTest : public testing::Test, protected TestLibrary
{
protected:
    CustomUnit& custom(std::string singular, std::string plural, std::int32_t sortIndex = 0)
    {
        auto& unit = context.insert<CustomUnit>();
        unit.singular = std::move(singular);
        unit.plural = std::move(plural);
        unit.sortIndex = sortIndex;
        return unit;
    }

    Business business;
};

} // namespace

TEST(BuiltInUnitsTest, haveWordsInEveryLanguage)
{
    std::set<std::string_view> codes;
    for (const BuiltInUnit& unit : Units::builtIn()) {
        EXPECT_TRUE(codes.insert(unit.code).second) << unit.code;
        EXPECT_THAT(unit.rec20, testing::SizeIs(testing::AllOf(testing::Ge(2U), testing::Le(3U)))) << unit.code;
        EXPECT_EQ(unit.code.find_first_of(",: "), std::string_view::npos) << unit.code << " is stored in lists";
        for (const DocumentLanguage language : allDocumentLanguages) {
            const auto& words = unit.words.at(static_cast<std::size_t>(language));
            EXPECT_FALSE(words.singular.empty()) << unit.code << " " << code(language);
            EXPECT_FALSE(words.plural.empty()) << unit.code << " " << code(language);
            const bool isCapital = std::isupper(static_cast<unsigned char>(words.singular.front())) != 0;
            EXPECT_EQ(isCapital, language == DocumentLanguage::german) << unit.code << " " << words.singular;
        }
    }
    for (const std::string_view needed :
         split("hour day week month year minute piece flatRate page word kilogram litre "
               "metre squareMetre kilometre set night person",
               ' ')) {
        EXPECT_TRUE(codes.contains(needed)) << needed;
    }
}

TEST(BuiltInUnitsTest, fallBackToEnglish)
{
    const BuiltInUnit unit{"x", "C62", {{{"thing", "things"}, {"Ding", ""}}}};
    EXPECT_EQ(unit.singular(DocumentLanguage::german), "Ding");
    EXPECT_EQ(unit.plural(DocumentLanguage::german), "things");
    EXPECT_EQ(unit.singular(DocumentLanguage::italian), "thing");
}

TEST(BuiltInUnitsTest, goByTheirNames)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"hour", "hour"},
        {"Hours", "hour"},
        {" Std. ", "hour"},
        {"heures", "hour"},
        {"flat rate", "flatRate"},
        {"flatRate", "flatRate"},
        {"Pauschale", "flatRate"},
        {"dia", "day"}, // accents are seldom typed
        {"STUCK", "piece"},
        {"square meters", "squareMetre"},
        {"m²", "squareMetre"},
        {"m2", "squareMetre"},
        {"m", "metre"},
        {"liter", "litre"},
        {"dozen", "dozen"}, // boxes in Dutch; English comes first
        {"people", "person"},
        {"foot", "foot"},
        {"", "none"},
        {"jar", "none"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(Units::named(text).value_or("none"), expected) << text;
    }
}

TEST(BuiltInUnitsTest, takeTheSingularByLanguage)
{
    struct Case
    {
        std::int64_t quantity;
        bool inEnglish;
        bool inFrench;
    };
    const Case cases[] = {{1000, true, true},
                          {-1000, true, true},
                          {0, false, true},
                          {500, false, true},
                          {1999, false, true},
                          {2000, false, false},
                          {-2000, false, false},
                          {1001, false, true}};
    for (const Case& row : cases) {
        EXPECT_EQ(Units::isSingular(row.quantity, DocumentLanguage::english), row.inEnglish) << row.quantity;
        EXPECT_EQ(Units::isSingular(row.quantity, DocumentLanguage::french), row.inFrench) << row.quantity;
    }
}

TEST_F(UnitsTest, labelsALine)
{
    const CustomUnit& jar = custom("jar", "jars");
    const CustomUnit& single = custom("Fuhre", "");
    const UnitLibrary library(context, business);
    struct Case
    {
        std::string_view reason;
        std::string unit;
        std::int64_t quantity;
        DocumentLanguage language;
        std::string_view expected;
    };
    const Case cases[] = {
        {"built in", "hour", 2500, DocumentLanguage::german, "Stunden"},
        {"built in, singular", "hour", 1000, DocumentLanguage::german, "Stunde"},
        {"one and a half in French", "hour", 1500, DocumentLanguage::french, "heure"},
        {"a unit of the user's own, in any language", Units::unitID(jar), 2000, DocumentLanguage::german, "jars"},
        {"one word for both", Units::unitID(single), 2000, DocumentLanguage::german, "Fuhre"},
        {"no unit", "", 2000, DocumentLanguage::german, ""},
        {"a unit that has gone", "custom:00000000-0000-0000-0000-000000000000", 2000, DocumentLanguage::german, "kept"},
    };
    for (const Case& row : cases) {
        LineItem line;
        line.unit = row.unit;
        line.unitSingular = "was";
        line.unitPlural = "kept";
        line.quantityThousandths = row.quantity;
        EXPECT_EQ(unitLabel(line, row.language, library), row.expected) << row.reason;
    }
}

TEST_F(UnitsTest, keepTheirWordsWithTheLine)
{
    CustomUnit& jar = custom("jar", "jars");
    LineItem line;
    const std::string unitID = Units::unitID(jar);
    EXPECT_EQ(unitID, "custom:" + jar.uuid->text());
    setUnit(line, unitID, UnitLibrary(context, business), DocumentLanguage::english);
    EXPECT_EQ(line.unit + line.unitSingular + line.unitPlural, unitID + "jarjars");

    context.erase(jar);
    const UnitLibrary later(context, business);
    setUnit(line, line.unit, later, DocumentLanguage::german); // choosing it again must not lose the words
    EXPECT_EQ(unitLabel(line, DocumentLanguage::german, later), "jars");

    setUnit(line, "day", later, DocumentLanguage::german);
    EXPECT_EQ(line.unitSingular + line.unitPlural, "TagTage");
    setUnit(line, "custom:gone", later, DocumentLanguage::german);
    EXPECT_EQ(line.unitSingular + line.unitPlural, "");
    setUnit(line, "", later, DocumentLanguage::german);
    EXPECT_EQ(line.unit, "");
}

TEST_F(UnitsTest, areOfferedWithoutTheHiddenOnes)
{
    business.hiddenUnits = " mile,foot ,,foot,unknown";
    EXPECT_THAT(Units::hiddenUnits(business), ElementsAre("mile", "foot", "unknown"));
    const CustomUnit& last = custom("z", "z", 2);
    const CustomUnit& first = custom("a", "a", 1);
    const UnitLibrary library(context, business);
    const std::vector<std::string>& offered = library.offered();
    EXPECT_EQ(std::ranges::find(offered, "mile"), offered.end());
    EXPECT_EQ(offered.size(), Units::builtIn().size());
    EXPECT_EQ(offered.front(), "hour");
    EXPECT_THAT(std::vector(offered.end() - 2, offered.end()), ElementsAre(Units::unitID(first), Units::unitID(last)));
    EXPECT_TRUE(library.words("mile", DocumentLanguage::english)) << "old lines still print a hidden unit";

    Units::setHiddenUnits(business, std::vector<std::string>{"page", "word"});
    EXPECT_THAT(Units::hiddenUnits(business), ElementsAre("page", "word"));
}

TEST_F(UnitsTest, ofTheUserComeFirstByName)
{
    CustomUnit& hour = custom("Hour", "Hours");
    hour.code = "HUR";
    const UnitLibrary library(context, business);
    EXPECT_EQ(library.named("hours"), Units::unitID(hour));
    EXPECT_EQ(library.named(Units::unitID(hour)), Units::unitID(hour));
    EXPECT_EQ(library.named("Stunde"), "hour");
    EXPECT_EQ(library.named(" "), std::nullopt);
    EXPECT_EQ(library.rec20(Units::unitID(hour)), "HUR");
    EXPECT_EQ(library.rec20("flatRate"), "LS");
    EXPECT_EQ(library.rec20("gone"), "C62");
}

} // namespace Quillary
