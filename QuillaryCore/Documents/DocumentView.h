#pragma once

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Documents/DocumentRows.h"
#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Model/DocumentKind.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

class Context;

/// What a list of documents shows and in which order, in words that stay true: "this month" moves on with the days.
struct DocumentView
{
    /// When a document was issued. The months are whole ones, this one included.
    enum class Period { anyTime, thisMonth, threeMonths, twelveMonths };
    static constexpr std::array allPeriods = {
        Period::anyTime, Period::thisMonth, Period::threeMonths, Period::twelveMonths};

    std::string text = {};
    std::optional<DisplayStatus> status = {};
    Period period = Period::anyTime;
    std::optional<int> dueWithinDays = {}; ///< due today or so many days ahead, and unless a status is asked for, open
    std::string tag = {};
    std::string currencyCode = {};
    std::optional<DocumentRows::Key> client = {};
    std::optional<DocumentRows::Key> project = {}; ///< 0: those of no project
    DocumentRows::Column sortColumn = DocumentRows::Column::issueDate;
    DocumentRows::Order order = DocumentRows::Order::descending;

    friend bool operator==(const DocumentView&, const DocumentView&) = default;

    /// What it comes to today.
    [[nodiscard]] DocumentRows::Filter filter(Instant today, const Calendar& calendar) const;
};

/// The tags that documents of a kind bear, each once, without regard to case in alphabetical order.
[[nodiscard]] std::vector<std::string> usedTags(Context& context, DocumentKind kind);

/// The currencies of the documents of a kind, by their codes.
[[nodiscard]] std::vector<std::string> usedCurrencies(Context& context, DocumentKind kind);

} // namespace Quillary
