#include "QuillaryCore/Foundation/UUID.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>
#include <unordered_set>

namespace Quillary {

namespace {

TEST(UUIDTest, readsTheCanonicalFormInEitherCase)
{
    const auto uuid = UUID::parse("3f2504e0-4F89-41d3-9A0C-0305e82c3301");
    ASSERT_TRUE(uuid);
    EXPECT_EQ(uuid->text(), "3F2504E0-4F89-41D3-9A0C-0305E82C3301");
    const UUID::Bytes bytes = {
        0x3F, 0x25, 0x04, 0xE0, 0x4F, 0x89, 0x41, 0xD3, 0x9A, 0x0C, 0x03, 0x05, 0xE8, 0x2C, 0x33, 0x01};
    EXPECT_EQ(uuid->bytes(), bytes);
}

TEST(UUIDTest, refusesOtherForms)
{
    const std::string_view cases[] = {
        "",
        "3F2504E04F8941D39A0C0305E82C3301",       // without hyphens
        "{3F2504E0-4F89-41D3-9A0C-0305E82C3301}", //
        "3F2504E0-4F89-41D3-9A0C-0305E82C330",    // one digit short
        "3F2504E0-4F89-41D3-9A0C-0305E82C33011",  //
        "3F2504E0-4F89-41D3-9A0C-0305E82C330G",   //
        "3F2504E04-F89-41D3-9A0C-0305E82C3301",   // a hyphen in the wrong place
        "3F2504E0-4F89-41D3-9A0C-0305E82C33 1",   //
    };
    for (const std::string_view text : cases) {
        EXPECT_EQ(UUID::parse(text), std::nullopt) << text;
    }
}

/// Version 4 and the variant of RFC 9562 stand in the text at fixed places.
void expectVersion4(const UUID& uuid)
{
    const std::string text = uuid.text();
    EXPECT_EQ(text[14], '4') << text;
    EXPECT_NE(std::string_view("89AB").find(text[19]), std::string_view::npos) << text;
    EXPECT_EQ(UUID::parse(text), uuid);
}

TEST(UUIDTest, randomOnesAreVersion4AndDiffer)
{
    RandomUUIDSource source;
    std::unordered_set<UUID> seen;
    for (int count = 0; count < 1000; ++count) {
        const UUID uuid = source.next();
        expectVersion4(uuid);
        EXPECT_TRUE(seen.insert(uuid).second) << uuid.text();
    }
}

TEST(UUIDTest, countedOnesRepeatAndNeverCollide)
{
    CountingUUIDSource first(41);
    CountingUUIDSource second(42);
    EXPECT_EQ(first.next().text(), "00000000-0000-4000-8000-000000000029");
    EXPECT_EQ(first.next(), second.next());
    std::set<std::string> seen;
    // Seeds that differ in one bit each: no bit of the count may be lost under the version's bits.
    for (unsigned bit = 0; bit < 64; ++bit) {
        CountingUUIDSource source(std::uint64_t{1} << bit);
        const UUID uuid = source.next();
        expectVersion4(uuid);
        EXPECT_TRUE(seen.insert(uuid.text()).second) << bit;
    }
}

} // namespace

} // namespace Quillary
