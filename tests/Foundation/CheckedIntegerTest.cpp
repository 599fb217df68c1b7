#include "QuillaryCore/Foundation/CheckedInteger.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <tuple>

namespace Quillary {

namespace {

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

TEST(CheckedIntegerTest, narrowsOnlyWhatFits)
{
    EXPECT_EQ(narrowed<std::int64_t>(Int128{largest}), largest);
    EXPECT_EQ(narrowed<std::int64_t>(Int128{largest} + 1), std::nullopt);
    EXPECT_EQ(narrowed<std::int64_t>(Int128{smallest}), smallest);
    EXPECT_EQ(narrowed<std::int64_t>(Int128{smallest} - 1), std::nullopt);
    EXPECT_EQ(narrowed<std::int32_t>(largest), std::nullopt);
    EXPECT_EQ(narrowed<std::uint64_t>(std::int64_t{-1}), std::nullopt); // the same bits, another number
    EXPECT_EQ(narrowed<std::int64_t>(std::numeric_limits<std::uint64_t>::max()), std::nullopt);
    EXPECT_EQ(narrowed<std::int8_t>(-128), std::int8_t{-128});
}

TEST(CheckedIntegerTest, reachesTheLimits)
{
    EXPECT_EQ(checkedAdd(largest - 1, 1), largest);
    EXPECT_EQ(checkedSubtract(smallest + 1, 1), smallest);
    EXPECT_EQ(checkedSubtract(-1, largest), smallest);
    EXPECT_EQ(checkedMultiply(smallest / 2, 2), smallest);
}

TEST(CheckedIntegerDeathTest, stopsBeyondTheLimits)
{
    EXPECT_DEATH(std::ignore = checkedAdd(largest, 1), "broken rule: a sum of amounts fits 64 bits");
    EXPECT_DEATH(std::ignore = checkedAdd(smallest, -1), "broken rule: a sum of amounts fits 64 bits");
    EXPECT_DEATH(std::ignore = checkedSubtract(smallest, 1), "broken rule: a difference of amounts fits 64 bits");
    EXPECT_DEATH(std::ignore = checkedSubtract(0, smallest), "broken rule: a difference of amounts fits 64 bits");
    EXPECT_DEATH(std::ignore = checkedMultiply(smallest, -1), "broken rule: a product of amounts fits 64 bits");
}

} // namespace

} // namespace Quillary
