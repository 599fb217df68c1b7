#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Store/Context.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace Quillary {

struct Document;

/// How large a made-up library is. The default is the size that Quillary is designed for.
struct LibrarySize
{
    int documents = 100'000; ///< over the five years that end at `LibraryGenerator::today`
    int clients = 10'000;
};

/// Fills a library with the business of a made-up company: mostly invoices (paid, partly paid, overdue, drafts), some
/// quotes and credit notes, 3 to 10 lines each (6.5 on average) at two tax rates, a discount or a fee now and then,
/// payments, reminders. Cached figures are those that the totals would give. The same size makes the same library.
class LibraryGenerator
{
public:
    /// The last day of the generated business: 2026-06-30 12:00 UTC.
    static constexpr Instant today{std::chrono::sys_days(CalendarDate(std::chrono::year(2026) / 6 / 30)) +
                                   std::chrono::hours(12)};

    /// `context` belongs to an empty library of the data model. Saves as it goes and forgets what it saved.
    LibraryGenerator(Context& context, LibrarySize size);

    void run();

    /// Makes a library in a folder, unless one of this size was made there before.
    static void makeLibrary(const std::filesystem::path& folder, LibrarySize size);

private:
    /// One of `count` equally likely numbers from 0.
    int pick(int count);
    [[nodiscard]] std::string word();
    [[nodiscard]] std::string words(int count);

    void insertBusiness();
    void insertClient(int number);
    void insertDocument(int number);
    void insertLines(Document& document);
    void insertPayments(Document& document);

    Context& m_context;
    LibrarySize m_size;
    std::uint64_t m_state = 1;
    std::int64_t m_firstClientKey = 0;
};

} // namespace Quillary
