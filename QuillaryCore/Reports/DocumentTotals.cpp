#include "QuillaryCore/Reports/DocumentTotals.h"

#include "QuillaryCore/Model/KeyRuns.h"
#include "QuillaryCore/Store/Columns.h"
#include "QuillaryCore/Store/Context.h"

#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

// How many documents may lie unread between two that are wanted. Each has several lines, but seldom a discount or a fee.
constexpr std::int64_t reachOfLines = 4;
constexpr std::int64_t reachOfExtras = 256;

/// A sub-line counts with the top-level line of its own document that it belongs to; without one it is on no page.
constexpr std::string_view linesQuery =
    "SELECT line.document, line.quantityThousandths, line.unitPriceMinorUnits, line.vatBasisPoints "
    "FROM LineItem AS line WHERE line.document BETWEEN ?1 AND ?2 AND (line.parent = 0 OR EXISTS (SELECT 1 "
    "FROM LineItem AS top WHERE top.document = line.document AND top.id = line.parent AND top.parent = 0)) "
    "ORDER BY line.document";

constexpr std::string_view discountsQuery =
    "SELECT document, kindRaw, basisPoints, amountMinorUnits FROM Discount WHERE document BETWEEN ?1 AND ?2 "
    "ORDER BY document";

constexpr std::string_view feesQuery =
    "SELECT document, amountMinorUnits, vatBasisPoints FROM Fee WHERE document BETWEEN ?1 AND ?2 ORDER BY document";

template <class Integer>
Integer integer(const Statement& row, int column)
{
    Integer value{};
    Column<Integer>::read(row, column, value);
    return value;
}

/// Things of documents in the order of their documents, handed out document by document.
template <class Extra>
struct Extras
{
    std::vector<std::pair<std::int64_t, Extra>> all;
    std::size_t next = 0;
    std::vector<Extra> ofDocument;

    void moveTo(std::int64_t document)
    {
        ofDocument.clear();
        for (; next < all.size() && all[next].first <= document; ++next) {
            if (all[next].first == document) {
                ofDocument.push_back(all[next].second);
            }
        }
    }
};

class Reader
{
public:
    Reader(Context& context,
           std::span<const DocumentToTotal> documents,
           const std::function<void(std::size_t, const Totals::Result&)>& visit)
        : m_context(context)
        , m_documents(documents)
        , m_visit(visit)
    {
        m_keys.reserve(documents.size());
        for (const DocumentToTotal& document : documents) {
            m_keys.push_back(document.key);
        }
    }

    void run()
    {
        readDiscounts();
        readFees();
        forEachRun(m_keys, reachOfLines, [this](std::int64_t first, std::int64_t last) {
            m_context.query(linesQuery, [this](const Statement& row) { add(row); }, first, last);
        });
        finishBefore(m_documents.size());
    }

private:
    void readDiscounts()
    {
        const auto add = [this](const Statement& row) {
            const Totals::Discount discount{Totals::discountKindFromRaw(integer<std::int16_t>(row, 1)),
                                            integer<std::int32_t>(row, 2),
                                            row.integer(3)};
            m_discounts.all.emplace_back(row.integer(0), discount);
        };
        forEachRun(m_keys, reachOfExtras, [&](std::int64_t first, std::int64_t last) {
            m_context.query(discountsQuery, add, first, last);
        });
    }

    void readFees()
    {
        const auto add = [this](const Statement& row) {
            m_fees.all.emplace_back(row.integer(0), Totals::Fee{row.integer(1), integer<std::int32_t>(row, 2)});
        };
        forEachRun(m_keys, reachOfExtras, [&](std::int64_t first, std::int64_t last) {
            m_context.query(feesQuery, add, first, last);
        });
    }

    void add(const Statement& row)
    {
        const std::int64_t document = row.integer(0);
        if (m_keys[m_place] != document) {
            std::size_t place = m_place;
            while (place < m_keys.size() && m_keys[place] < document) {
                ++place;
            }
            finishBefore(place);
            if (place == m_keys.size() || m_keys[place] != document) {
                return;
            }
        }
        m_lines.push_back({row.integer(1), row.integer(2), integer<std::int32_t>(row, 3)});
    }

    /// The lines read so far belong to the document at `m_place`, those after it have none.
    void finishBefore(std::size_t end)
    {
        for (; m_place < end; ++m_place) {
            const DocumentToTotal& document = m_documents[m_place];
            m_discounts.moveTo(document.key);
            m_fees.moveTo(document.key);
            Totals::calculate(m_lines, m_discounts.ofDocument, m_fees.ofDocument, document.taxation, m_result);
            m_visit(m_place, m_result);
            m_lines.clear();
        }
    }

    Context& m_context;
    std::span<const DocumentToTotal> m_documents;
    const std::function<void(std::size_t, const Totals::Result&)>& m_visit;
    std::vector<std::int64_t> m_keys;
    std::size_t m_place = 0; ///< of the document whose lines are being read
    std::vector<Totals::Line> m_lines;
    Extras<Totals::Discount> m_discounts;
    Extras<Totals::Fee> m_fees;
    Totals::Result m_result;
};

} // namespace

void calculateTotals(Context& context,
                     std::span<const DocumentToTotal> documents,
                     const std::function<void(std::size_t, const Totals::Result&)>& visit)
{
    Reader(context, documents, visit).run();
}

} // namespace Quillary
