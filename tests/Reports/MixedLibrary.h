#pragma once

#include "QuillaryCore/Foundation/Clock.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"

#include <cstdint>
#include <filesystem>
#include <random>
#include <vector>

namespace Quillary {

/// A library with five years of mixed documents: every kind and status, two currencies, exempt ones, ones without lines,
/// date or client; sub-lines, discounts above the subtotal, fees at rates of their own; payments in part, too much and
/// back; late fees; and sub-lines that belong to nothing, as damaged files have them.
/// The same seed makes the same library.
class MixedLibrary
{
public:
    static constexpr Instant today{std::chrono::sys_days(CalendarDate(std::chrono::year(2026) / 6 / 30)) +
                                   std::chrono::hours(12)};

    explicit MixedLibrary(std::uint32_t seed)
        : m_random(seed)
    {
    }

    /// Makes it in a folder and closes it.
    void make(const std::filesystem::path& folder, int documents);

private:
    int pick(int from, int to);
    bool oneIn(int count) { return pick(1, count) == 1; }

    void insertClients(Context& context);
    void insertDocument(Context& context, int number);
    void insertLines(Context& context, const Document& document);
    void insertExtras(Context& context, const Document& document);
    void insertPayments(Context& context, Document& document);

    std::mt19937 m_random;
    std::vector<Ref<Client>> m_clients;
};

} // namespace Quillary
