#include "QuillaryCore/Documents/DocumentRows.h"

#include "QuillaryCore/Documents/DocumentError.h"
#include "QuillaryCore/Documents/DocumentFilter.h"
#include "QuillaryCore/Documents/DocumentView.h"
#include "QuillaryCore/Documents/DraftLines.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "tests/Documents/DocumentLibrary.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {
namespace {

using Column = DocumentRows::Column;
using Order = DocumentRows::Order;

class DocumentRowsTest : public testing::Test
{
protected:
    std::vector<std::string> numbers(const DocumentRows::Filter& filter, Column column, Order order) const
    {
        std::vector<std::string> numbers;
        for (const std::uint32_t place : rows.arranged(filter, column, order)) {
            numbers.emplace_back(rows.row(place).number);
        }
        return numbers;
    }

    /// What a list read anew would hold.
    void expectSameAsReadAnew()
    {
        DocumentRows anew(DocumentKind::invoice);
        anew.load(library.context, library.start, library.calendar);
        ASSERT_EQ(rows.size(), anew.size());
        for (std::uint32_t place = 0; place < rows.size(); ++place) {
            const DocumentRows::Row left = rows.row(place);
            const DocumentRows::Row right = anew.row(place);
            EXPECT_EQ(left.key, right.key);
            EXPECT_EQ(left.number, right.number);
            EXPECT_EQ(left.clientName, right.clientName);
            EXPECT_EQ(left.status, right.status);
            EXPECT_EQ(left.totalMinorUnits, right.totalMinorUnits);
            EXPECT_EQ(rows.place(left.key), place);
        }
        for (const char* text : {"n", "n-1", "client", "client 19"}) {
            EXPECT_EQ(rows.arranged({.text = text}, Column::total, Order::ascending),
                      anew.arranged({.text = text}, Column::total, Order::ascending))
                << text;
        }
    }

    DocumentLibrary library;
    DocumentRows rows{DocumentKind::invoice};
};

TEST_F(DocumentRowsTest, narrowsAndSorts)
{
    Client& other = library.context.insert<Client>();
    other.name = "Schröder";
    Document& first = library.invoice("B-1");
    first.cachedTotalMinorUnits = 300;
    first.dueDate = library.day(-2);
    Document& second = library.invoice("A-2");
    second.cachedTotalMinorUnits = 100;
    second.client = other.ref;
    second.tags = "Travel, Food";
    second.issueDate = library.day(-1);
    Document& third = library.invoice("C-3", DocumentStatus::draft);
    third.cachedTotalMinorUnits = 200;
    third.title = "Website";
    library.document(DocumentKind::quote, DocumentStatus::sent).number = "Q";
    Document& unreadable = library.invoice("D-4", DocumentStatus::draft); // nobody loses it
    unreadable.kindRaw = 99;
    unreadable.client = Ref<Client>();
    unreadable.issueDate = {};
    rows.load(library.context, library.start, library.calendar);

    struct Case
    {
        DocumentRows::Filter filter;
        Column column;
        Order order;
        std::vector<std::string> numbers;
    };
    const Case cases[] = {
        {{}, Column::issueDate, Order::descending, {"A-2", "C-3", "B-1", "D-4"}}, // equal days: the newer first
        {{}, Column::issueDate, Order::ascending, {"D-4", "C-3", "B-1", "A-2"}},
        {{}, Column::number, Order::ascending, {"A-2", "B-1", "C-3", "D-4"}},
        {{}, Column::client, Order::descending, {"A-2", "C-3", "B-1", "D-4"}},
        {{}, Column::total, Order::descending, {"B-1", "C-3", "A-2", "D-4"}},
        {{}, Column::status, Order::ascending, {"C-3", "D-4", "A-2", "B-1"}},
        {{.text = "SCHRODER"}, Column::number, Order::ascending, {"A-2"}},
        {{.text = "acme web"}, Column::number, Order::ascending, {"C-3"}}, // words, in any order
        {{.text = "travel"}, Column::number, Order::ascending, {"A-2"}},
        {{.statuses = {DisplayStatus::overdue, DisplayStatus::draft}},
         Column::number,
         Order::ascending,
         {"B-1", "C-3", "D-4"}},
        {{.start = library.day(-5)}, Column::number, Order::ascending, {"A-2"}},
        {{.end = library.day(-5)}, Column::number, Order::ascending, {"B-1", "C-3"}},
        {{.tag = "food"}, Column::number, Order::ascending, {"A-2"}},
        {{.tag = "foo"}, Column::number, Order::ascending, {}}, // a whole tag
        {{.client = other.ref.key()}, Column::number, Order::ascending, {"A-2"}},
        {{.client = 0}, Column::number, Order::ascending, {"D-4"}},
        {{.project = 0}, Column::number, Order::ascending, {"A-2", "B-1", "C-3", "D-4"}},
        {{.dueEnd = library.day(0)}, Column::number, Order::ascending, {"B-1"}}, // no day, not due
        {{.currencyCode = "USD"}, Column::number, Order::ascending, {}},
    };
    for (const Case& example : cases) {
        EXPECT_EQ(numbers(example.filter, example.column, example.order), example.numbers) << example.filter.text;
    }
    const auto all = rows.arranged({}, Column::number, Order::ascending);
    EXPECT_EQ(rows.sum(all).totals.at("EUR"), 600);
    EXPECT_EQ(rows.counts()[static_cast<std::size_t>(DisplayStatus::draft)], 2U);
}

TEST_F(DocumentRowsTest, findsWhatIsDueSoon)
{
    for (const int days : {-1, 0, 7, 8}) {
        library.invoice(fmt::format("{:+}", days)).dueDate = library.day(days);
    }
    Document& partly = library.invoice("partly");
    partly.dueDate = library.day(3);
    partly.cachedTotalMinorUnits = 200;
    partly.cachedPaidMinorUnits = 100;
    library.invoice("draft", DocumentStatus::draft).dueDate = library.day(3);
    library.invoice("paid", DocumentStatus::paid).dueDate = library.day(3);
    rows.load(library.context, library.start, library.calendar);
    const DocumentView soon{.dueWithinDays = 7};
    EXPECT_THAT(numbers(soon.filter(library.start, library.calendar), Column::dueDate, Order::ascending),
                testing::ElementsAre("+0", "partly", "+7"));
    const DocumentView paid{.status = DisplayStatus::paid, .dueWithinDays = 7};
    EXPECT_THAT(numbers(paid.filter(library.start, library.calendar), Column::dueDate, Order::ascending),
                testing::ElementsAre("paid"));
}

TEST_F(DocumentRowsTest, followsEveryChange)
{
    std::mt19937 random(7);
    std::vector<ChangeSet> told;
    const Subscription subscription = library.context.onChanged([&](const ChangeSet& set) { told.push_back(set); });
    rows.load(library.context, library.start, library.calendar);
    for (int round = 0; round < 200; ++round) {
        const auto invoices = library.context.fetch<Document>("kindRaw = 0");
        const Document* some = invoices.empty() ? nullptr : invoices[random() % invoices.size()];
        switch (random() % 5) {
        case 0:
            library.invoice(fmt::format("N-{}", round)).issueDate = library.day(-int(random() % 30));
            break;
        case 1:
            library.document(DocumentKind::quote, DocumentStatus::sent);
            break;
        case 2:
            if (some != nullptr) {
                library.context.edit(*some).issueDate = library.day(-int(random() % 30));
            }
            break;
        case 3:
            if (some != nullptr) {
                library.context.erase(*some);
            }
            break;
        default:
            library.context.edit(library.client).name = fmt::format("Client {}", round);
        }
        library.context.save();
    }
    ASSERT_FALSE(told.empty());
    for (int round = 0; round < 20; ++round) { // again and again, until most of what is kept is what was
        for (const ChangeSet& set : told) {
            rows.update(library.context, set, library.start, library.calendar);
        }
    }
    expectSameAsReadAnew();
}

TEST_F(DocumentRowsTest, findsAndSortsAsOneWouldByHand)
{
    // Few letters in few places, so that words meet everywhere: at borders, across them, in clients and tags alone.
    std::mt19937 random(11);
    const char* const letters[] = {"a", "B", "ab", "Ä", "ß", "é", "-", "1", " ", "東"};
    const auto text = [&](std::size_t longest) {
        std::string result;
        for (std::size_t count = random() % (longest + 1); count > 0; --count) {
            result += letters[random() % std::size(letters)];
        }
        return result;
    };
    std::vector<Ref<Client>> clients = {{}};
    for (int count = 0; count < 7; ++count) {
        Client& client = library.context.insert<Client>();
        client.name = "c" + text(4);
        clients.push_back(client.ref);
    }
    for (int count = 0; count < 300; ++count) {
        Document& document = library.invoice(text(4));
        document.title = text(random() % 50 == 0 ? 200 : 8);
        document.client = clients[random() % clients.size()];
        document.cachedTotalMinorUnits = std::int64_t(random() % 10);
        document.issueDate = library.day(int(random() % 5));
        if (random() % 4 == 0) {
            document.tags = text(3) + "," + text(3);
        }
    }
    rows.load(library.context, library.start, library.calendar);
    std::vector<std::string> texts;
    for (std::uint32_t place = 0; place < rows.size(); ++place) {
        const DocumentRows::Row row = rows.row(place);
        const std::string& tags = library.context.find(Ref<Document>(row.key))->tags;
        texts.push_back(folded(fmt::format("{}\n{}\n{}\n{}", row.number, row.title, row.clientName, tags)));
    }
    std::size_t found = 0;
    for (std::size_t round = 0; round < 500; ++round) {
        const std::string query = text(1 + round % 5);
        const std::string sought = folded(query);
        std::vector<std::uint32_t> expected;
        for (std::uint32_t place = 0; place < rows.size(); ++place) {
            if (std::ranges::all_of(split(sought, ' '),
                                    [&](std::string_view word) { return texts[place].contains(word); })) {
                expected.push_back(place);
            }
        }
        std::ranges::stable_sort(expected, std::greater(), [&](auto place) { return rows.row(place).totalMinorUnits; });
        ASSERT_EQ(rows.arranged({.text = query}, Column::total, Order::descending), expected) << query;
        found += expected.size();
        // The order of all is kept until another one is asked for.
        const Column other = round % 2 == 0 ? Column::total : Column::number;
        ASSERT_EQ(rows.arranged({}, other, Order::descending).size(), rows.size());
    }
    EXPECT_GT(found, 1000U);
}

TEST_F(DocumentRowsTest, readsTheFirstScreenAlone)
{
    for (int day = 0; day < 10; ++day) {
        library.invoice(fmt::format("N-{}", day)).issueDate = library.day(day);
    }
    rows.load(library.context, library.start, library.calendar, 3);
    EXPECT_FALSE(rows.isWhole());
    EXPECT_THAT(numbers({}, Column::issueDate, Order::descending), testing::ElementsAre("N-9", "N-8", "N-7"));
}

TEST(DraftLinesTest, movesALineWithItsSubLines)
{
    DocumentLibrary library;
    const Document& draft = library.invoice("N-1", DocumentStatus::draft);
    LineItem& first = library.line(draft, 1000, 100, 0);
    first.title = "a";
    LineItem& second = library.line(draft, 1000, 100, 0);
    second.title = "b";
    LineItem& below = library.line(draft, 1000, 100, 0);
    below.title = "b1";
    below.parent = second.ref;
    library.line(draft, 1000, 100, 0).title = "c";
    const auto titles = [&] {
        std::string text;
        for (const LineItem* line : linesInOrder(library.context, draft)) {
            text += line->title + " ";
        }
        return text;
    };
    ASSERT_EQ(titles(), "a b b1 c ");
    DraftLines::move(library.context, draft, 1, 4); // to the end
    EXPECT_EQ(titles(), "a c b b1 ");
    DraftLines::move(library.context, draft, 2, 0);
    EXPECT_EQ(titles(), "b b1 a c ");
    EXPECT_THROW(DraftLines::move(library.context, draft, 4, 0), DocumentError);

    // Into the line above and out of it: nothing changes its place on the page.
    const auto levels = [&] {
        std::string text;
        for (const LineItem* line : linesInOrder(library.context, draft)) {
            text += line->parent ? "-" + line->title + " " : line->title + " ";
        }
        return text;
    };
    DraftLines::nest(library.context, draft, 2);
    EXPECT_EQ(levels(), "b -b1 -a c ");
    DraftLines::unnest(library.context, draft, 1); // what stands below it becomes its own
    EXPECT_EQ(levels(), "b b1 -a c ");
    DraftLines::nest(library.context, draft, 1);
    EXPECT_EQ(levels(), "b -b1 -a c ");
    EXPECT_THROW(DraftLines::nest(library.context, draft, 0), DocumentError);
    EXPECT_THROW(DraftLines::nest(library.context, draft, 1), DocumentError);
    EXPECT_THROW(DraftLines::unnest(library.context, draft, 3), DocumentError);
    library.context.edit(draft).statusRaw = std::int16_t(DocumentStatus::sent);
    EXPECT_THROW(DraftLines::move(library.context, draft, 0, 2), DocumentError);
}

} // namespace
} // namespace Quillary
