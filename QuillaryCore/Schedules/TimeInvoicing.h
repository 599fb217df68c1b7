#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Model/DocumentLanguage.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;
struct TimeEntry;

/// Turns tracked time into proposed lines of an invoice.
namespace TimeInvoicing {

enum class Grouping : std::uint8_t { eachEntry, byProject, oneLine };

inline constexpr std::array allGroupings = {Grouping::eachEntry, Grouping::byProject, Grouping::oneLine};

/// "eachEntry", "byProject", "oneLine": the stored text.
[[nodiscard]] std::string_view rawText(Grouping grouping);
[[nodiscard]] std::string_view title(Grouping grouping);

struct Line
{
    std::string title;
    std::string details;                  ///< one line of text for each entry
    std::int64_t quantityThousandths = 0; ///< of an hour
    std::int64_t unitPriceMinorUnits = 0; ///< the hourly rate
    std::vector<UUID> entryIDs;           ///< the entries billed on it

    /// Quantity × price, as the document's totals form it.
    [[nodiscard]] std::int64_t amount() const;

    friend bool operator==(const Line&, const Line&) = default;
};

/// How entries become lines.
struct Terms
{
    Grouping grouping = Grouping::byProject;
    std::int64_t hourlyRate = 0; ///< minor units
    std::int64_t roundingMinutes = 0;
    DocumentLanguage language = DocumentLanguage::english;
};

/// What a line is called that belongs to no one project.
[[nodiscard]] std::string_view workTitle(DocumentLanguage language);

/// How long an entry lasted; one that is running, until now. Unit: seconds. An entry without a start lasted no time.
[[nodiscard]] std::int64_t duration(const TimeEntry& entry, Instant now);

/// Seconds as thousandths of an hour, rounded to the nearest with halves up: the quantity of a line.
[[nodiscard]] std::int64_t quantityThousandths(std::int64_t seconds);

/// The lines for some entries, in the order of their starts. Each entry is rounded by itself, before any grouping.
[[nodiscard]] std::vector<Line> lines(Context& context,
                                      std::span<const TimeEntry* const> entries,
                                      const Terms& terms,
                                      Instant now,
                                      const Calendar& calendar,
                                      const Locale& locale);

} // namespace TimeInvoicing

} // namespace Quillary
