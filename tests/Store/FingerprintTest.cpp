#include "QuillaryCore/Store/Fingerprint.h"

#include "QuillaryCore/Store/LibraryTables.h"
#include "tests/Store/OldLibraries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

TEST(FingerprintTest, staysTheSameForAllTime)
{
    // Libraries on people's disks are recognised by these. Both computed by an independent program.
    EXPECT_EQ(fingerprint(Schema{}), "6c62272e07bb014262b821756295c58d"); // the algorithm's own starting value
    EXPECT_EQ(fingerprint(OldLibraries::schema(4)), "2a5402cc64738de814c035d5aac6bab3");
}

TEST(FingerprintTest, countsWhatAValueIsStoredUnderAndNothingElse)
{
    using Change = std::function<void(Schema&)>;
    const std::pair<Change, std::string_view> kept[] = {
        {[](Schema& schema) { schema.version = 9; }, "version"},
        {[](Schema& schema) { std::ranges::reverse(schema.entities); }, "order of entities"},
        {[](Schema& schema) { std::ranges::reverse(schema.entities[0].attributes); }, "order of attributes"},
        {[](Schema& schema) { schema.entities[0].attributes[1].defaultSQL = "'other'"; }, "default"},
        {[](Schema& schema) { schema.entities[0].attributes[1].renamedFrom = "old"; }, "statement of a renaming"},
        {[](Schema& schema) { schema.entities[1].relationships[0].whenTargetGoes = WhenTargetGoes::erase; },
         "delete rule"},
        {[](Schema& schema) { schema.entities[1].indexes.clear(); }, "index"},
        {[](Schema& schema) { schema.entities[2].clusteredBy.clear(); }, "clustering"},
    };
    const std::pair<Change, std::string_view> counted[] = {
        {[](Schema& schema) { schema.entities.pop_back(); }, "entity gone"},
        {[](Schema& schema) { schema.entities[0].name += "s"; }, "entity renamed"},
        {[](Schema& schema) { schema.entities[0].attributes.pop_back(); }, "attribute gone"},
        {[](Schema& schema) {
             schema.entities[1].attributes.push_back(schema.entities[0].attributes.back());
             schema.entities[0].attributes.pop_back();
         },
         "attribute moved to another entity"},
        {[](Schema& schema) { schema.entities[0].attributes[1].type = AttributeType::binary; }, "type widened"},
        {[](Schema& schema) { schema.entities[1].relationships.clear(); }, "relationship gone"},
        {[](Schema& schema) {
             schema.entities[1].attributes.push_back({"customer", AttributeType::int64, "0", ""});
             schema.entities[1].relationships.clear();
         },
         "relationship turned into a number"},
    };
    const Schema& original = OldLibraries::schema(4);
    for (const auto& [change, what] : kept) {
        Schema changed = original;
        change(changed);
        EXPECT_EQ(fingerprint(changed), fingerprint(original)) << what;
    }
    std::set<std::string> seen{fingerprint(original)};
    for (const auto& [change, what] : counted) {
        Schema changed = original;
        change(changed);
        EXPECT_TRUE(seen.insert(fingerprint(changed)).second) << what;
    }
}

TEST(FingerprintTest, readsTheSameFromAFileOfThatVersion)
{
    for (int version = 1; version <= 4; ++version) {
        const auto connection = Connection::inMemory();
        LibraryTables::createEntities(*connection, OldLibraries::schema(version));
        LibraryTables::createInformation(*connection, UUID(UUID::Bytes{}), Instant(), version);
        EXPECT_EQ(fingerprintOfFile(*connection), fingerprint(OldLibraries::schema(version))) << version;
        connection->execute("ALTER TABLE Line ADD COLUMN more TEXT");
        EXPECT_NE(fingerprintOfFile(*connection), fingerprint(OldLibraries::schema(version))) << version;
    }
}

} // namespace

} // namespace Quillary
