#include "QuillaryCore/Numbering/Numbering.h"

#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/NumberSequence.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Numbering/NumberPatterns.h"
#include "QuillaryCore/Numbering/NumberingError.h"
#include "QuillaryCore/Store/Store.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <optional>
#include <string>
#include <utility>

namespace Quillary {

namespace {

using namespace std::chrono_literals;

using Reason = NumberingError::Reason;

constexpr std::int64_t largestInteger = std::numeric_limits<std::int64_t>::max();

Instant noon(std::chrono::year_month_day day)
{
    return std::chrono::sys_days(day) + 12h;
}

/// What an operation refuses with. No value: it succeeds.
template <class Operation>
std::optional<Reason> refusal(const Operation& operation)
{
    try {
        static_cast<void>(operation());
        return std::nullopt;
    } catch (const NumberingError& error) {
        return error.reason();
    }
}

/// A library with what numbering reads, and short forms of its operations for invoices of March 2025.
class NumberingTest : public testing::Test
{
protected:
    NumberingTest()
    {
        for (const NumberedKind kind : allNumberedKinds) {
            usePattern(kind, defaultFormat(kind));
        }
    }

    void usePattern(NumberedKind kind, std::string_view pattern)
    {
        ASSERT_EQ(setFormat(kind, pattern, business), std::nullopt) << pattern;
    }

    const Document& addDocument(std::int16_t kindRaw, std::string_view number)
    {
        auto& document = context.insert<Document>();
        document.kindRaw = kindRaw;
        document.number = number;
        return document;
    }

    const Client& addClient(std::string_view number)
    {
        auto& client = context.insert<Client>();
        client.number = number;
        return client;
    }

    void addSequence(std::string_view key, std::int64_t lastValue)
    {
        auto& row = context.insert<NumberSequence>();
        row.key = key;
        row.lastValue = lastValue;
    }

    std::vector<std::int64_t> storedValues(std::string_view key)
    {
        std::vector<std::int64_t> values;
        for (const NumberSequence* row : context.fetch<NumberSequence>("key = ?", key)) {
            values.push_back(row->lastValue);
        }
        return values;
    }

    std::string assign(NumberedKind kind = NumberedKind::invoice, const Client* client = nullptr)
    {
        return Numbering::assign(context, kind, march, client, business, utc);
    }

    Numbering::Next peek(NumberedKind kind = NumberedKind::invoice, const Client* client = nullptr)
    {
        return Numbering::peek(context, kind, march, client, business, utc);
    }

    bool release(std::string_view number, const Client* client = nullptr)
    {
        return Numbering::releaseIfNewest(context, number, NumberedKind::invoice, march, client, business, utc);
    }

    const Instant march = noon(2025y / 3 / 7);
    const Calendar utc = Numbering::calendar("UTC");
    FixedClock clock{march};
    CountingUUIDSource uuids;
    Records records = Records::of<Business, Client, Project, Document, NumberSequence>();
    SchemaHistory history{.current = records.schema(1), .older = {}};
    Store store{Store::Location::inMemory(), records, history, clock, uuids};
    Context context{store, clock, uuids};
    Business business;
};

TEST_F(NumberingTest, countsUpAndStartsAgainEachYear)
{
    const Instant nextYear = noon(2026y / 1 / 1);
    const auto invoice = NumberedKind::invoice;
    EXPECT_EQ(assign(), "INV-2025-001");
    EXPECT_EQ(assign(), "INV-2025-002");
    EXPECT_EQ(Numbering::assign(context, invoice, nextYear, nullptr, business, utc), "INV-2026-001");
    EXPECT_EQ(assign(), "INV-2025-003") << "an invoice dated back continues its own year";
    EXPECT_EQ(storedValues("invoice|y2025"), std::vector<std::int64_t>{3});
    EXPECT_EQ(storedValues("invoice|y2026"), std::vector<std::int64_t>{1});
}

TEST_F(NumberingTest, peekingWritesNothing)
{
    EXPECT_EQ(peek(), (Numbering::Next{"INV-2025-001", 1}));
    EXPECT_EQ(peek(), (Numbering::Next{"INV-2025-001", 1}));
    EXPECT_EQ(Numbering::example(context, NumberedKind::invoice, march, business, utc), "INV-2025-001");
    EXPECT_FALSE(context.hasChanges());
}

TEST_F(NumberingTest, skipsNumbersInUse)
{
    addSequence("invoice|y2025", 2);
    addDocument(0, "INV-2025-003");
    EXPECT_EQ(peek(), (Numbering::Next{"INV-2025-004", 4}));
    EXPECT_EQ(assign(), "INV-2025-004");
    EXPECT_EQ(storedValues("invoice|y2025"), std::vector<std::int64_t>{4});
    EXPECT_EQ(assign(), "INV-2025-005");
}

TEST_F(NumberingTest, looksWhereANumberWouldClash)
{
    struct Case
    {
        std::string_view existing;
        NumberedKind kind;
        std::int16_t existingKindRaw;
        bool isSkipped;
    };
    const Case cases[] = {
        {"1", NumberedKind::invoice, 0, true},
        {"1", NumberedKind::invoice, 2, true}, // invoices and credit notes share one pool
        {"1", NumberedKind::creditNote, 0, true},
        {"1", NumberedKind::creditNote, 2, true},
        {"1", NumberedKind::quote, 1, true},
        {"1", NumberedKind::invoice, 1, false}, // a quote may carry an invoice's number
        {"1", NumberedKind::quote, 0, false},
        {"1", NumberedKind::quote, 2, false},
        {"1", NumberedKind::invoice, 3, false}, // templates carry no number of their own
        {"1", NumberedKind::invoice, 7, false}, // a kind that can't be read
        {"1", NumberedKind::client, 0, false},
        {"01", NumberedKind::invoice, 0, false}, // the whole number, exactly
        {"1 ", NumberedKind::invoice, 0, false},
    };
    for (const Case& example : cases) {
        usePattern(example.kind, "{#}");
        const Document& document = addDocument(example.existingKindRaw, example.existing);
        EXPECT_EQ(peek(example.kind).counter, example.isSkipped ? 2 : 1)
            << title(example.kind) << " beside kind " << example.existingKindRaw << ' ' << example.existing;
        context.erase(document);
    }
    addClient("1");
    EXPECT_EQ(peek(NumberedKind::client).counter, 2);
    EXPECT_EQ(peek(NumberedKind::invoice).counter, 1);
    usePattern(NumberedKind::invoice, "é{#}");
    addDocument(0, "É1");
    EXPECT_EQ(peek().counter, 1) << "case counts";
}

TEST_F(NumberingTest, readsTheLargestOfSeveralRowsAndSetsThemAll)
{
    addSequence("invoice|y2025", 4);
    addSequence("invoice|y2025", 9);
    addSequence("invoice|y2025", -3); // damage
    addSequence("Invoice|y2025", 50); // another series
    EXPECT_EQ(assign(), "INV-2025-010");
    EXPECT_EQ(storedValues("invoice|y2025"), (std::vector<std::int64_t>{10, 10, 10}));
    EXPECT_TRUE(release("INV-2025-010"));
    EXPECT_EQ(storedValues("invoice|y2025"), (std::vector<std::int64_t>{9, 9, 9}));
}

TEST_F(NumberingTest, givesBackOnlyTheNewestNumber)
{
    assign();
    assign();
    addSequence("invoice|y2024", 0);
    const auto releasedOn = [this](Instant date, std::string_view number) {
        return Numbering::releaseIfNewest(context, number, NumberedKind::invoice, date, nullptr, business, utc);
    };
    EXPECT_FALSE(release("")) << "a draft without a number";
    EXPECT_FALSE(release("INV-2025-001")) << "not the newest";
    EXPECT_FALSE(release("inv-2025-002"));
    EXPECT_FALSE(releasedOn(noon(2026y / 1 / 1), "INV-2025-002")) << "the date leads to another series";
    EXPECT_FALSE(releasedOn(noon(2024y / 1 / 1), "INV-2024-000")) << "nothing was handed out there";
    EXPECT_EQ(storedValues("invoice|y2025"), std::vector<std::int64_t>{2});

    EXPECT_TRUE(release("INV-2025-002"));
    EXPECT_FALSE(release("INV-2025-002")) << "once";
    EXPECT_EQ(assign(), "INV-2025-002");

    business.invoiceNumberFormat = "{client}-{###,c}";
    EXPECT_FALSE(release("INV-2025-002")) << "the new pattern needs a client";
    business.invoiceNumberFormat = "{";
    EXPECT_FALSE(release("INV-2025-002")) << "no pattern, no series";
    business.invoiceNumberFormat = "R{yy}/{#,y}";
    EXPECT_TRUE(release("R25/2")) << "a changed pattern continues its series";
}

TEST_F(NumberingTest, theUserSetsWhereASeriesContinues)
{
    const auto next = [this] {
        return Numbering::nextCounter(context, NumberedKind::quote, march, nullptr, business, utc);
    };
    const auto setNext = [this](std::int64_t value) {
        Numbering::setNextCounter(context, value, NumberedKind::quote, march, nullptr, business, utc);
    };
    EXPECT_EQ(next(), 1);
    setNext(100);
    addDocument(1, "Q-2025-100");
    EXPECT_EQ(next(), 100) << "what the user typed, in use or not";
    EXPECT_EQ(assign(NumberedKind::quote), "Q-2025-101");
    setNext(1);
    EXPECT_EQ(assign(NumberedKind::quote), "Q-2025-001");
    EXPECT_DEATH(setNext(0), "a counter starts at 1 or later");
}

TEST_F(NumberingTest, countsPerClient)
{
    usePattern(NumberedKind::invoice, "{client}-{###,c}");
    const Client& acme = addClient("C-0007");
    const Client& beta = addClient("C-0008");
    EXPECT_EQ(assign(NumberedKind::invoice, &acme), "C-0007-001");
    EXPECT_EQ(assign(NumberedKind::invoice, &acme), "C-0007-002");
    EXPECT_EQ(assign(NumberedKind::invoice, &beta), "C-0008-001");
    EXPECT_FALSE(release("C-0007-002", &beta)) << "another client's series";
    EXPECT_TRUE(release("C-0007-002", &acme));

    const Client& unnumbered = addClient("");
    auto& foreign = context.insert<Client>();
    foreign.number = "C-0009";
    foreign.uuid = std::nullopt;
    EXPECT_EQ(refusal([&] { return peek(NumberedKind::invoice, nullptr); }), Reason::missingClient);
    EXPECT_EQ(refusal([&] { return peek(NumberedKind::invoice, &foreign); }), Reason::missingClient);
    EXPECT_EQ(refusal([&] { return peek(NumberedKind::invoice, &unnumbered); }), Reason::missingClientNumber);
    EXPECT_FALSE(release("-001", &unnumbered));
    usePattern(NumberedKind::invoice, "{client}-{###}");
    EXPECT_EQ(refusal([&] { return assign(NumberedKind::invoice, nullptr); }), Reason::missingClientNumber);
}

TEST_F(NumberingTest, refusesWithTheSentenceOfThePattern)
{
    business.invoiceNumberFormat = "";
    try {
        static_cast<void>(peek());
        FAIL() << "an empty pattern makes no number";
    } catch (const NumberingError& error) {
        EXPECT_EQ(error.reason(), Reason::invalidFormat);
        EXPECT_EQ(error.formatError(), NumberFormatError(NumberFormatError::Reason::empty));
        EXPECT_EQ(error.message(), "Enter a format.");
    }
}

TEST_F(NumberingTest, givesUpAfterTenThousandUsedNumbers)
{
    usePattern(NumberedKind::invoice, "{#}");
    for (std::size_t number = 1; number < Numbering::maximumCandidates; ++number) {
        addDocument(static_cast<std::int16_t>(number % 2 == 0 ? 0 : 2), std::to_string(number));
    }
    EXPECT_EQ(peek(), (Numbering::Next{"10000", 10'000})) << "the last candidate is tried";
    addDocument(0, "10000");
    try {
        static_cast<void>(assign());
        FAIL() << "all candidates are used";
    } catch (const NumberingError& error) {
        EXPECT_EQ(error.message(), "Couldn't find an unused number. Check the format in Settings › Numbering.");
    }
    EXPECT_TRUE(storedValues("invoice|all").empty()) << "nothing was handed out";
    addSequence("invoice|all", 1);
    EXPECT_EQ(peek().number, "10001") << "the search starts behind the last counter";
}

TEST_F(NumberingTest, aCounterAtItsEndIsNoPrecondition)
{
    addSequence("invoice|y2025", largestInteger);
    EXPECT_EQ(refusal([&] { return peek(); }), Reason::noFreeNumber);
    EXPECT_EQ(
        refusal([&] { return Numbering::nextCounter(context, NumberedKind::invoice, march, nullptr, business, utc); }),
        Reason::noFreeNumber);
    addSequence("quote|y2025", largestInteger - 1);
    EXPECT_EQ(assign(NumberedKind::quote), "Q-2025-9223372036854775807");
}

TEST_F(NumberingTest, showsAnExampleInTheSettings)
{
    struct Case
    {
        NumberedKind kind;
        std::string_view pattern;
        std::string_view clientPattern;
        std::string_view sample;
    };
    const Case cases[] = {
        {NumberedKind::invoice, "INV-{yyyy}-{###,y}", "C-{####}", "INV-2025-007"}, // 6 is taken
        {NumberedKind::invoice, "{client}-{###,y}", "C-{####}", "C-0001-006"},     // no search: the client is made up
        {NumberedKind::invoice, "{client}-{###,c}", "K{yy}{##}", "K2501-001"},     // a new client starts at 1
        {NumberedKind::invoice, "INV-{#,c}", "C-{####}", "INV-1"},
        {NumberedKind::client, "C-{##}", "C-{##}", "C-02"},
    };
    addSequence("invoice|y2025", 5);
    addDocument(0, "INV-2025-006");
    addDocument(0, "C-0001-006");
    addClient("C-01");
    for (const auto& [kind, pattern, clientPattern, sample] : cases) {
        usePattern(NumberedKind::client, clientPattern);
        usePattern(kind, pattern);
        EXPECT_EQ(Numbering::example(context, kind, march, business, utc), sample) << pattern;
    }
    usePattern(NumberedKind::invoice, "{client}-{###}");
    business.clientNumberFormat = "C-";
    EXPECT_EQ(refusal([&] { return Numbering::example(context, NumberedKind::invoice, march, business, utc); }),
              Reason::invalidFormat);
}

TEST_F(NumberingTest, aNumberAssignedAfterAFailedLookUpIsNeverSaved)
{
    addClient("C-0001");
    context.save();
    addDocument(0, "pending");
    context.rollback();
    store.connection().execute("ALTER TABLE Document RENAME TO Hidden");
    EXPECT_EQ(peek().number, "INV-2025-001") << "a look-up that fails finds nothing";
    EXPECT_NO_THROW(context.save());

    EXPECT_EQ(assign(), "INV-2025-001");
    EXPECT_THROW(context.save(), StoreError);
    context.rollback();
    store.connection().execute("ALTER TABLE Hidden RENAME TO Document");
    EXPECT_EQ(assign(), "INV-2025-001");
    EXPECT_NO_THROW(context.save());
    EXPECT_EQ(storedValues("invoice|y2025"), std::vector<std::int64_t>{1});
}

TEST_F(NumberingTest, anotherTimeZoneIsAnotherDay)
{
    const Instant newYear = std::chrono::sys_days(2025y / 12 / 31) + 23h + 30min;
    const auto numberIn = [&](const Calendar& calendar) {
        return Numbering::assign(context, NumberedKind::invoice, newYear, nullptr, business, calendar);
    };
    const Calendar berlin = Numbering::calendar("Europe/Berlin");
    const Calendar newYork = Numbering::calendar("America/New_York");
    EXPECT_EQ(numberIn(berlin), "INV-2026-001");
    EXPECT_EQ(numberIn(newYork), "INV-2025-001");
    EXPECT_FALSE(Numbering::releaseIfNewest(
        context, "INV-2026-001", NumberedKind::invoice, newYear, nullptr, business, newYork));
    EXPECT_TRUE(
        Numbering::releaseIfNewest(context, "INV-2026-001", NumberedKind::invoice, newYear, nullptr, business, berlin));
}

TEST_F(NumberingTest, countersAreSavedWithTheirDocuments)
{
    const TempFolder folder;
    const auto run = [&](bool saves) {
        Store library(Store::Location::directory(folder.path()), records, history, clock, uuids);
        Context work(library, clock, uuids);
        const std::string number = Numbering::assign(work, NumberedKind::invoice, march, nullptr, business, utc);
        work.insert<Document>().number = number;
        if (saves) {
            work.save();
        }
        return number;
    };
    EXPECT_EQ(run(true), "INV-2025-001");
    EXPECT_EQ(run(false), "INV-2025-002");
    EXPECT_EQ(run(true), "INV-2025-002") << "what was not saved was not handed out";
    EXPECT_EQ(run(true), "INV-2025-003");
}

} // namespace

} // namespace Quillary
