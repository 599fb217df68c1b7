#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/NumberedKind.h"
#include "QuillaryCore/Store/Context.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Decides which number a document or client gets next, and keeps the counters.
///
/// Each operation takes the kind, the day of the document, its client (null where there is none yet), the business with
/// its patterns and the calendar of the device's time zone. Counters change in the context only; saving them is the
/// caller's, together with the document or client that carries the number. Invoices and credit notes share one pool of
/// numbers although each counts by itself, so no two of them ever carry the same one.
///
/// Two devices may hand out one counter before they meet: of several rows with one key the largest value counts, and
/// numbers that documents or clients already carry are skipped.
///
/// Throws, where nothing else is said: `NumberingError`; `StoreError` when the counters can't be read.
namespace Quillary::Numbering {

/// A number and the counter that made it.
struct Next
{
    std::string number;
    std::int64_t counter = 0;

    friend bool operator==(const Next&, const Next&) = default;
};

/// How many used numbers are skipped before the search gives up.
inline constexpr std::size_t maximumCandidates = 10'000;

/// The calendar that all date parts of numbers come from: Gregorian, in the device's time zone (an IANA name).
[[nodiscard]] Calendar calendar(std::string_view timeZone);

/// The number that `assign` would give now. Writes nothing. A number whose use can't be looked up counts as free.
[[nodiscard]] Next peek(Context& context,
                        NumberedKind kind,
                        Instant date,
                        const Client* client,
                        const Business& business,
                        const Calendar& calendar);

/// Hands out the next number and records its counter. Counters of numbers already in use are passed over for good.
/// After a look-up that failed, the context refuses to save: the number may exist already.
[[nodiscard]] std::string assign(Context& context,
                                 NumberedKind kind,
                                 Instant date,
                                 const Client* client,
                                 const Business& business,
                                 const Calendar& calendar);

/// Hands out `count` numbers at once, for an import, and records the counter. `isTaken` tells of every number that is in
/// use or about to be; what it says is believed, so the library isn't asked once per number. Counters of numbers that are
/// taken are passed over for good, those right behind the last number too, however many they are.
[[nodiscard]] std::vector<std::string> assignMany(Context& context,
                                                  std::size_t count,
                                                  const std::function<bool(const std::string&)>& isTaken,
                                                  NumberedKind kind,
                                                  Instant date,
                                                  const Business& business,
                                                  const Calendar& calendar);

/// Gives a number back when its document or client is deleted or numbered anew, so that the next one gets it.
/// False, and nothing changed: it isn't the newest of the series that date and client lead to now.
/// Throws: only `StoreError`.
bool releaseIfNewest(Context& context,
                     std::string_view number,
                     NumberedKind kind,
                     Instant date,
                     const Client* client,
                     const Business& business,
                     const Calendar& calendar);

/// The counter from which the next number's search starts; numbers in use aren't skipped.
[[nodiscard]] std::int64_t nextCounter(Context& context,
                                       NumberedKind kind,
                                       Instant date,
                                       const Client* client,
                                       const Business& business,
                                       const Calendar& calendar);

/// Sets where the series continues. `value` is at least 1; anything less stops the program.
void setNextCounter(Context& context,
                    std::int64_t value,
                    NumberedKind kind,
                    Instant date,
                    const Client* client,
                    const Business& business,
                    const Calendar& calendar);

/// The sample beside the pattern in the settings: the next number, or for a pattern that needs the client one made with
/// a made-up client number. A changed copy of the business shows a pattern that isn't stored yet.
[[nodiscard]] std::string
example(Context& context, NumberedKind kind, Instant date, const Business& business, const Calendar& calendar);

} // namespace Quillary::Numbering
