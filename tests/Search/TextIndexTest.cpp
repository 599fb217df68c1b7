#include "QuillaryCore/Search/TextIndex.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Search/TypingSlips.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace Quillary {
namespace {

using Rank = TextRank;

/// The keys of the best hits, in their order.
std::string found(const TextIndex& index, std::string_view query)
{
    const TextHits hits = index.find(query);
    std::string keys;
    for (const TextHit& hit : hits.best()) {
        keys += std::to_string(hit.key) + " ";
    }
    return keys;
}

void put(TextIndex& index,
         TextIndex::Key key,
         std::vector<std::string_view> own,
         std::vector<std::string_view> further = {})
{
    index.put(key, 0, own, further);
}

TEST(TextIndexTest, ranksExactThenBeginningThenInsideThenSlips)
{
    TextIndex index;
    put(index, 1, {"C-0001", "Schröder & Söhne"}, {"Köln"});
    put(index, 2, {"C-0002", "Schroder"}, {"Berlin"});
    put(index, 3, {"C-0003", "Bau Schröder"});
    put(index, 4, {"C-0004", "Möbelschröder"}, {"Schröder, Eva"});
    put(index, 5, {"C-0005", "Łódź Æon ＡＢＣ"});
    put(index, 6, {"C-0006", "Berlin Bakery"});
    put(index, 7, {"C-0007", "Weiß, two\nlines"});
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"SCHRODER", "2 1 3 4 "}, // its own words before those of a contact person
        {"schröder söhne", "1 "}, // all the words, in other places
        {"sohne schroder", "1 "},
        {"c-0003", "3 "},
        {"0003", "3 "},
        {"ö", "7 5 4 3 2 1 "}, // one letter, inside words
        {"lodz", "5 "},
        {"æon", "5 "},
        {"abc", "5 "},      // full width
        {"berlin", "6 2 "}, // a name before a city
        {"weiss", "7 "},
        {"two lines", "7 "},
        {"Schrödre", "3 2 1 4 "},  // neighbours swapped
        {"shcroeder", "3 2 1 4 "}, // two slips
        {"Bualin Bakery", "6 "},
        {"xschxröxder", ""}, // three are too many
        {"C-0008", ""},      // a number near by is another number
        {"c3", ""},
        {"c 00007", "7 "}, // the same number
        {"koln", "1 "},
        {"kol", "1 "},
        {"kel", ""}, // short words must be right
        {"   ", ""},
        {"", ""},
    };
    for (const auto& [query, expected] : cases) {
        EXPECT_EQ(found(index, query), expected) << query;
    }
}

TEST(TextIndexTest, forgetsWhatWasRemovedOrEnteredAnew)
{
    TextIndex index;
    put(index, 1, {"Alpha"});
    put(index, 2, {"Beta"});
    put(index, 1, {"Gamma"});
    EXPECT_EQ(found(index, "alpha"), "");
    EXPECT_EQ(found(index, "gamma"), "1 ");
    EXPECT_EQ(found(index, "a"), "2 1 ");
    index.remove(2);
    index.remove(3);
    EXPECT_EQ(found(index, "beta"), "");
    EXPECT_EQ(index.all().size(), 1U);
    put(index, 4, {});
    put(index, 5, {"Delta"});
    EXPECT_EQ(found(index, "delta"), "5 ");
}

// The scan reads 64 places at a time and the last few one by one, and looks no further in a record than it must: held
// against a plain look at every place of made-up records, with queries of one to five letters.
TEST(TextIndexTest, findsWhatAPlainLookFinds)
{
    std::uint32_t state = 1;
    const auto pick = [&state](std::uint32_t count) {
        state = state * 1'664'525 + 1'013'904'223;
        return (state >> 16U) % count;
    };
    const auto text = [&] {
        std::string result;
        for (std::uint32_t left = pick(30); left > 0; --left) {
            result += "aab -c"[pick(6)];
        }
        return std::string(trimmed(replacing(result, "c", "β")));
    };
    struct Record
    {
        std::string own;
        std::string further;
    };
    std::vector<Record> records(200);
    TextIndex index;
    for (std::size_t key = 0; key < records.size(); ++key) {
        records[key] = {.own = text(), .further = text()};
        put(index, static_cast<TextIndex::Key>(key), {records[key].own}, {records[key].further});
    }
    const auto rankIn = [](const std::string& held, const std::string& query, bool isOwn) {
        std::optional<Rank> best;
        for (std::size_t place = held.find(query); place != std::string::npos; place = held.find(query, place + 1)) {
            const bool beginsWord = place == 0 || held[place - 1] == ' ' || held[place - 1] == '-';
            const Rank atStart = !isOwn ? Rank::word : held == query ? Rank::exact : Rank::beginning;
            best = std::min(best.value_or(Rank::inside), place == 0 ? atStart : beginsWord ? Rank::word : Rank::inside);
        }
        return best;
    };
    for (const std::string query : {"a", "b", "-", "β", "aβ", "aa", "ab", "aab", "a-b", "abaab", "b a"}) {
        std::map<TextIndex::Key, std::pair<Rank, bool>> expected;
        for (std::size_t key = 0; key < records.size(); ++key) {
            const auto own = rankIn(records[key].own, query, true);
            const auto further = rankIn(records[key].further, query, false);
            if (own && (!further || *own <= *further)) {
                expected[static_cast<TextIndex::Key>(key)] = {*own, true};
            } else if (further) {
                expected[static_cast<TextIndex::Key>(key)] = {*further, false};
            }
        }
        std::map<TextIndex::Key, std::pair<Rank, bool>> hits;
        index.find(query).forEach([&](const TextHit& hit) {
            if (hit.rank < Rank::words) {
                hits[hit.key] = {hit.rank, hit.isOwn};
            }
        });
        EXPECT_EQ(hits, expected) << query;
    }
}

// Only as many are put in order as are shown, and these are the best of all.
TEST(TextIndexTest, ordersTheBestOnly)
{
    TextIndex index;
    for (TextIndex::Key key = 0; key < 300; ++key) {
        const std::string_view name = key % 3 == 0 ? "ab" : key % 3 == 1 ? "ba b" : "cbc";
        index.put(key, key % 7, std::array<std::string_view, 1>{name}, {});
    }
    const TextHits hits = index.find("b");
    const std::vector<TextHit> all = hits.best();
    EXPECT_EQ(all.size(), 300U);
    EXPECT_TRUE(std::ranges::is_sorted(all, std::less()));
    for (const std::size_t limit : {0U, 1U, 7U, 299U}) {
        const std::vector<TextHit> best = hits.best(limit);
        ASSERT_EQ(best.size(), limit);
        for (std::size_t place = 0; place < limit; ++place) {
            EXPECT_EQ(best[place].key, all[place].key) << limit;
        }
    }
}

// Every text within the allowed slips of a word is found, whatever the slip and wherever it is: held against a table
// of all texts with one or two slips, made here by hand.
TEST(TextIndexTest, findsEveryTextThatIsNearEnough)
{
    const auto variants = [](const std::string& word) {
        std::set<std::string> result;
        for (std::size_t place = 0; place <= word.size(); ++place) {
            result.insert(std::string(word).insert(place, 1, 'q'));
            if (place < word.size()) {
                result.insert(std::string(word).erase(place, 1));
                result.insert(std::string(word).replace(place, 1, 1, 'q'));
            }
            if (place + 1 < word.size()) {
                std::string swapped = word;
                std::swap(swapped[place], swapped[place + 1]);
                result.insert(swapped);
            }
        }
        return result;
    };
    for (const std::string word : {"abcd", "abcdefg", "abcdefgh", "abcdefghijk"}) {
        std::set<std::string> near = variants(word);
        if (TypingSlips::allowed(word.size()) == 2) {
            for (const std::string& once : variants(word)) {
                // A second slip in the same place would be one that the alignment does not forgive.
                for (const std::string& twice : variants(once)) {
                    const auto letters = TypingSlips::letters(twice);
                    if (TypingSlips::between(TypingSlips::letters(word), letters, 2) <= 2) {
                        near.insert(twice);
                    }
                }
            }
        }
        TextIndex index;
        TextIndex::Key key = 0;
        for (const std::string& text : near) {
            if (text != word && !text.contains(word)) {
                index.put(++key, 0, std::array<std::string_view, 1>{text}, {});
            }
        }
        EXPECT_EQ(index.find(word).size(), static_cast<std::size_t>(key)) << word;
    }
}

TEST(TypingSlipsTest, countsSlips)
{
    const std::tuple<std::u32string_view, std::u32string_view, int> cases[] = {
        {U"abc", U"abc", 0},
        {U"abc", U"acb", 1},
        {U"abc", U"ac", 1},
        {U"abc", U"xabc", 1},
        {U"abcd", U"badc", 2},
        {U"abc", U"cba", 2},
        {U"kitten", U"sitting", 3},
        {U"", U"ab", 2},
    };
    for (const auto& [left, right, expected] : cases) {
        EXPECT_EQ(TypingSlips::between(left, right, 3), expected);
        EXPECT_EQ(TypingSlips::between(right, left, 3), expected);
        EXPECT_EQ(TypingSlips::between(left, right, 1), std::min(expected, 2));
    }
}

} // namespace
} // namespace Quillary
