#include "QuillaryCore/Store/UpgradePlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Quillary {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using enum AttributeType;

Attribute word(const std::string& name, const std::string& renamedFrom = {})
{
    return {name, text, "'" + name + "'", renamedFrom}; // the default tells where a value came from
}

Schema oneEntity(std::vector<Attribute> attributes)
{
    return {.version = 0,
            .entities = {{.name = "Thing",
                          .attributes = std::move(attributes),
                          .relationships = {},
                          .indexes = {},
                          .renamedFrom = "",
                          .clusteredBy = ""}}};
}

UpgradePlan plan(const std::vector<Schema>& versions)
{
    std::vector<const Schema*> pointers;
    pointers.reserve(versions.size());
    for (const Schema& schema : versions) {
        pointers.push_back(&schema);
    }
    return UpgradePlan::make(pointers);
}

std::string values(const UpgradePlan& plan)
{
    std::string result;
    for (const auto& [name, value] : plan.tables.at(0).columns) {
        result.append(name).append("=").append(value).append(" ");
    }
    return result;
}

/// A stored value as the plan reads it.
std::string stored(const std::string& name)
{
    return "coalesce(\"" + name + "\", '" + name + "')";
}

TEST(UpgradePlanTest, followsNamesThroughRenamings)
{
    using Versions = std::vector<std::vector<Attribute>>;
    struct Case
    {
        const char* reason;
        Versions versions;
        std::string expected;
    };
    const Case cases[] = {
        {"renamed", {{word("a")}, {word("b", "a")}}, "b=" + stored("a") + " "},
        {"renamed twice", {{word("a")}, {word("b", "a")}, {word("c", "b")}}, "c=" + stored("a") + " "},
        {"the statement stays in the code after the renaming",
         {{word("b", "a")}, {word("b", "a")}},
         "b=" + stored("b") + " "},
        {"the old name is in use again: it is something new",
         {{word("a")}, {word("b", "a")}, {word("b", "a"), word("a")}},
         "b=" + stored("a") + " a='a' "},
        {"and stays apart in later versions",
         {{word("b", "a"), word("a")}, {word("b", "a"), word("a"), word("c")}},
         "b=" + stored("b") + " a=" + stored("a") + " c='c' "},
        {"even where the older version was written down without its statements",
         {{word("b"), word("a")}, {word("b", "a"), word("a")}},
         "b=" + stored("b") + " a=" + stored("a") + " "},
        {"the old name is in use again in the same step",
         {{word("a")}, {word("b", "a"), word("a")}},
         "b=" + stored("a") + " a='a' "},
        {"swapped",
         {{word("a"), word("b")}, {word("a", "b"), word("b", "a")}},
         "a=" + stored("b") + " b=" + stored("a") + " "},
        {"renamed over one that was dropped", {{word("a"), word("b")}, {word("a", "b")}}, "a=" + stored("b") + " "},
        {"dropped and added again: the old values are gone",
         {{word("a"), word("b")}, {word("b")}, {word("a"), word("b")}},
         "a='a' b=" + stored("b") + " "},
        {"renamed from a name that this library never had", {{word("x")}, {word("b", "a")}}, "b='b' "},
    };
    for (const auto& [reason, versions, expected] : cases) {
        std::vector<Schema> schemas;
        for (const auto& attributes : versions) {
            schemas.push_back(oneEntity(attributes));
        }
        EXPECT_EQ(values(plan(schemas)), expected) << reason;
    }
}

TEST(UpgradePlanTest, readsOptionalValuesAsTheyAre)
{
    const std::vector<Attribute> attributes{{"day", date, "", ""}, {"blob", binary, "", ""}};
    EXPECT_EQ(values(plan({oneEntity(attributes), oneEntity(attributes)})), "day=\"day\" blob=\"blob\" ");
    EXPECT_EQ(values(plan({oneEntity({}), oneEntity(attributes)})), "day=NULL blob=NULL ");
}

TEST(UpgradePlanTest, emptiesReferencesThatLeadElsewhere)
{
    const auto world = [](const std::string& target, const std::string& person, const std::string& renamedFrom) {
        Schema schema = oneEntity({});
        schema.entities[0].relationships = {{"owner", target, WhenTargetGoes::clear}};
        for (const std::string& name : {person, std::string("Firm")}) {
            Entity entity;
            entity.name = name;
            entity.renamedFrom = name == "Firm" ? "" : renamedFrom;
            schema.entities.push_back(entity);
        }
        return schema;
    };
    const Schema old = world("Person", "Person", "");
    EXPECT_EQ(values(plan({old, world("Person", "Person", "")})), "owner=\"owner\" ");
    EXPECT_EQ(values(plan({old, world("Human", "Human", "Person")})), "owner=\"owner\" "); // only the name is new
    EXPECT_EQ(values(plan({old, world("Firm", "Person", "")})), "");
    EXPECT_EQ(values(plan({old, world("Firm", "Person", ""), old})), ""); // back again, but the keys are lost
}

TEST(UpgradePlanTest, fillsOnlyTablesThatHadRows)
{
    Schema gone = oneEntity({});
    gone.entities[0].name = "Other";
    EXPECT_THAT(plan({oneEntity({}), gone}).tables, IsEmpty());
    EXPECT_THAT(plan({oneEntity({}), gone, oneEntity({})}).tables, IsEmpty()); // a new one under the old name
    gone.entities[0].renamedFrom = "Thing";
    EXPECT_THAT(plan({oneEntity({}), gone}).tables, ElementsAre(UpgradePlan::Table{"Other", "Thing", {}}));
}

TEST(UpgradePlanTest, letsTypesWidenAndNothingElse)
{
    const auto change = [](AttributeType from, AttributeType to) {
        return plan({oneEntity({{"a", from, "0", ""}}), oneEntity({{"a", to, "0", ""}})});
    };
    EXPECT_EQ(values(change(boolean, int16)), "a=coalesce(\"a\", 0) ");
    EXPECT_EQ(values(change(int16, int64)), "a=coalesce(\"a\", 0) ");
    EXPECT_DEATH(change(int64, int32), "only widens");
    EXPECT_DEATH(change(int16, text), "only widens");
    EXPECT_DEATH(change(uuid, binary), "only widens");
}

} // namespace

} // namespace Quillary
