#pragma once

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Billing/StatusActions.h"
#include "QuillaryCore/Documents/RowTexts.h"
#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Store/ChangeSet.h"
#include "QuillaryCore/Store/Ref.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;
class Statement;
struct Document;

/// The list of all documents of one kind, in memory: narrowing, sorting, counting and summing ask the library nothing.
///
/// Unit: amounts are minor units of the row's currency. Belongs to the thread of its context.
class DocumentRows
{
public:
    using Key = std::int64_t;

    /// What a list shows of a document. Its texts are valid until the rows change.
    struct Row
    {
        Key key = 0;
        DisplayStatus status = DisplayStatus::draft; ///< as of the day of `load` or `update`
        std::string_view number;
        std::string_view title;
        std::string_view clientName; ///< empty without a client
        std::string_view currencyCode;
        std::optional<Instant> issueDate;
        std::optional<Instant> dueDate; ///< of a quote the last day that it stands
        std::int64_t totalMinorUnits = 0;
        std::int64_t dueMinorUnits = 0; ///< open, with late fees; 0 for what asks for no money
        Key client = 0;                 ///< 0: none
        Key project = 0;                ///< 0: none
    };

    enum class Column { number, title, client, issueDate, dueDate, total, due, status };
    enum class Order { ascending, descending };

    /// What is shown of them.
    struct Filter
    {
        std::string text = {};                    ///< words that all occur, without regard to case and accents
        std::vector<DisplayStatus> statuses = {}; ///< any of them; none: all
        std::optional<Instant> start = {};        ///< issued then or later
        std::optional<Instant> end = {};          ///< and before this
        std::optional<Instant> dueStart = {};     ///< due then or later
        std::optional<Instant> dueEnd = {};       ///< and before this
        std::string tag = {};                     ///< empty: all
        std::string currencyCode = {};            ///< empty: all
        std::optional<Key> client = {};           ///< 0: those of nobody
        std::optional<Key> project = {};          ///< 0: those of no project

        friend bool operator==(const Filter&, const Filter&) = default;
    };

    explicit DocumentRows(DocumentKind kind)
        : m_kind(kind)
    {
    }

    /// Reads the newest `limit` documents, or all, newest first. `today` is the start of the day.
    void load(Context& context, Instant today, const Calendar& calendar, std::optional<std::size_t> limit = {});

    /// Brings in what a notification told. False: nothing in it concerns this list.
    bool update(Context& context, const ChangeSet& changes, Instant today, const Calendar& calendar);

    /// Forgets all rows.
    void clear();

    [[nodiscard]] bool isWhole() const { return m_isWhole; }
    [[nodiscard]] std::size_t size() const { return m_slots.size(); }

    /// The places of the rows that fit, in the order asked for; equal ones newest first.
    [[nodiscard]] std::vector<std::uint32_t> arranged(const Filter& filter, Column column, Order order) const;

    [[nodiscard]] Row row(std::uint32_t place) const;
    [[nodiscard]] Key key(std::uint32_t place) const { return m_facts[m_slots[place]].key; }

    /// No value: it isn't in the list.
    [[nodiscard]] std::optional<std::uint32_t> place(Key key) const;

    /// How many have each status, by its place in `allDisplayStatuses`.
    [[nodiscard]] std::array<std::size_t, allDisplayStatuses.size()> counts() const;

    struct Sum
    {
        std::size_t count = 0;
        std::map<std::string, std::int64_t, std::less<>> totals; ///< by currency
        std::map<std::string, std::int64_t, std::less<>> due;
    };
    [[nodiscard]] Sum sum(std::span<const std::uint32_t> places) const;

    /// What several documents have in common.
    struct Summary
    {
        std::array<std::size_t, allDisplayStatuses.size()> statuses{}; ///< by place in `allDisplayStatuses`
        std::size_t clients = 0;                                       ///< how many different ones
        std::optional<Instant> firstDue;
        std::optional<Instant> lastDue;
        std::vector<StatusAction> actions; ///< open to each of them, the usual next step first
        bool owesAll = false;              ///< each is sent, and something is open on it
    };
    [[nodiscard]] Summary summary(std::span<const std::uint32_t> places) const;

private:
    // A row stays in its slot, which counts the rows that were ever read; its place follows from the order. What one pass
    // over all rows needs lies side by side.

    using Slot = RowTexts::Slot;
    using Places = std::vector<std::uint32_t>;
    using Marks = std::vector<std::uint8_t>; ///< 1 or 0

    struct Facts
    {
        Key key;
        std::optional<Instant> issueDate;
        std::optional<Instant> dueDate;
        Key project;
        DisplayStatus status;
    };

    struct Amounts
    {
        std::int64_t total;
        std::int64_t due;
        std::uint32_t currency; ///< place in `m_currencies`
    };

    struct Arranged
    {
        Column column;
        Order order;
        Places places;
    };

    void read(Context& context,
              std::string_view condition,
              std::int64_t first,
              std::int64_t second,
              Instant today,
              const Calendar& calendar);
    void add(const Statement& row, Document& facts, Instant today, const Calendar& calendar);
    [[nodiscard]] std::uint32_t currency(std::string_view code);
    [[nodiscard]] bool remove(std::span<const Key> keys);
    void arrangeFrom(Slot first);
    [[nodiscard]] std::optional<Slot> slot(Key key) const;
    [[nodiscard]] bool isNewer(Slot left, Slot right) const;

    [[nodiscard]] std::optional<Marks> fitting(const Filter& filter) const;
    [[nodiscard]] bool fits(Slot slot, const Filter& filter, std::string_view tag) const;
    [[nodiscard]] const Places& allBy(Column column, Order order) const;
    void sort(Places& places, Column column, Order order) const;

    DocumentKind m_kind;
    bool m_isWhole = false;
    std::vector<Facts> m_facts;     ///< by slot
    std::vector<Amounts> m_amounts; ///< by slot
    RowTexts m_texts;               ///< by slot
    std::vector<bool> m_isGone;     ///< by slot
    std::vector<std::string> m_currencies;
    std::map<std::string, std::uint32_t, std::less<>> m_currencyPlaces; ///< in `m_currencies`
    std::vector<Slot> m_slots;                                          ///< by place: the newest first
    std::vector<Slot> m_slotsByKey;                                     ///< ascending
    Places m_places;                                                    ///< by slot; of those in `m_slots`
    mutable std::optional<Arranged> m_arranged;                         ///< all rows in the order asked for last
};

} // namespace Quillary
