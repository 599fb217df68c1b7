#pragma once

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Billing/StatusActions.h"
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
#include <unordered_map>
#include <vector>

namespace Quillary {

class Context;
struct Client;
struct Document;
struct Project;

/// The list of all documents of one kind, in memory: narrowing, sorting, counting and summing ask the library nothing.
///
/// Unit: amounts are minor units of the row's currency. Belongs to the thread of its context.
class DocumentRows
{
public:
    using Key = std::int64_t;

    struct Row
    {
        Key key = 0;
        DisplayStatus status = DisplayStatus::draft; ///< as of the day of `load` or `update`
        int daysOverdue = 0;
        std::string number;
        std::string title;
        std::string clientName; ///< empty without a client
        std::string currencyCode;
        std::string foldedText; ///< what a search looks through: number, title, client, tags
        std::string foldedTags; ///< each between line breaks
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
    [[nodiscard]] std::size_t size() const { return m_rows.size(); }

    /// The places of the rows that fit, in the order asked for; equal ones newest first.
    [[nodiscard]] std::vector<std::uint32_t> arranged(const Filter& filter, Column column, Order order) const;

    [[nodiscard]] const Row& row(std::uint32_t place) const { return m_rows[place]; }

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
    void
    read(Context& context, std::string_view condition, std::int64_t value, Instant today, const Calendar& calendar);
    void reload(Context& context, std::span<const Key> keys, Instant today, const Calendar& calendar);
    void index();

    DocumentKind m_kind;
    bool m_isWhole = false;
    std::vector<Row> m_rows; ///< newest first
    std::unordered_map<Key, std::uint32_t> m_places;
};

} // namespace Quillary
