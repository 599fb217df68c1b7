#include "QuillaryCore/Reports/TaxReport.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Model/ClientNames.h"
#include "QuillaryCore/Reports/DocumentTotals.h"
#include "QuillaryCore/Reports/ReportData.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <tuple>
#include <utility>

namespace Quillary {

namespace {

using ReportData::PaidDocument;

/// What an invoice was paid within the period, of its total.
struct Proportion
{
    std::int64_t paid;
    std::int64_t total;
};

/// A document that counts, with the columns that the report shows or needs.
struct Candidate
{
    std::int64_t key = 0;
    std::int64_t client = 0;
    std::optional<Instant> issueDate;
    Totals::Taxation taxation = Totals::Taxation::taxed;
    std::optional<Proportion> proportion; ///< no value: it counts wholly
    TaxReport::Entry entry;

    [[nodiscard]] std::int64_t part(std::int64_t amount) const
    {
        return proportion ? ReportData::share(proportion->paid, amount, proportion->total) : amount;
    }
};

Candidate candidate(const Statement& row)
{
    Candidate read;
    read.key = row.integer(0);
    read.client = row.integer(5);
    read.issueDate = row.instant(3);
    read.taxation = row.integer(4) != 0 ? Totals::Taxation::exempt : Totals::Taxation::taxed;
    read.entry.id = row.uuid(1);
    read.entry.number = row.text(2);
    return read;
}

class Reader
{
public:
    Reader(Context& context, const DateRange& range, std::string_view currencyCode)
        : m_context(context)
        , m_range(range)
        , m_currencyCode(currencyCode)
    {
    }

    void findInvoiced()
    {
        m_context.query(
            "SELECT id, uuid, number, issueDate, taxExempt, client, kindRaw FROM Document "
            "WHERE issueDate >= ?1 AND issueDate < ?2 AND kindRaw IN (0, 2) AND currencyCode = ?3 ORDER BY issueDate, "
            "id",
            [this](const Statement& row) {
                Candidate& read = m_candidates.emplace_back(candidate(row));
                read.entry.kind = row.integer(6) == 0 ? DocumentKind::invoice : DocumentKind::creditNote;
                read.entry.date = read.issueDate;
            },
            m_range.start,
            m_range.end,
            m_currencyCode);
    }

    void findPaid()
    {
        findPaidInvoices();
        findRefundedCreditNotes();
    }

    TaxReport finished(ReportBasis basis)
    {
        sortByDate();
        addFigures();
        addClients();
        TaxReport report{std::string(m_currencyCode), basis, {}, {}};
        for (auto& [rate, row] : m_rows) {
            report.rows.push_back(row);
        }
        report.entries.reserve(m_candidates.size());
        for (Candidate& counted : m_candidates) {
            report.entries.push_back(std::move(counted.entry));
        }
        return report;
    }

private:
    void findPaidInvoices()
    {
        std::vector<PaidDocument> paid = ReportData::paidDocuments(m_context, m_range);
        std::erase_if(paid, [](const PaidDocument& document) { return document.amount == 0; });
        ReportData::forEachPaid(m_context,
                                paid,
                                "SELECT id, uuid, number, issueDate, taxExempt, client, cachedTotalMinorUnits "
                                "FROM Document WHERE id BETWEEN ?1 AND ?2 AND kindRaw = 0 AND currencyCode = ?3 "
                                "AND cachedTotalMinorUnits <> 0 ORDER BY id",
                                m_currencyCode,
                                [this](const Statement& row, const PaidDocument& document) {
                                    Candidate& read = m_candidates.emplace_back(candidate(row));
                                    read.proportion = Proportion{document.amount, row.integer(6)};
                                    read.entry.date = document.lastPayment;
                                });
    }

    void findRefundedCreditNotes()
    {
        m_context.query(
            "SELECT id, uuid, number, issueDate, taxExempt, client, paidAt FROM Document "
            "WHERE kindRaw = 2 AND statusRaw = 2 AND paidAt >= ?1 AND paidAt < ?2 AND currencyCode = ?3",
            [this](const Statement& row) {
                Candidate& read = m_candidates.emplace_back(candidate(row));
                read.entry.kind = DocumentKind::creditNote;
                read.entry.date = row.instant(6);
            },
            m_range.start,
            m_range.end,
            m_currencyCode);
    }

    void sortByDate()
    {
        const auto order = [](const Candidate& counted) {
            return std::tuple(counted.issueDate, counted.key);
        };
        if (!std::ranges::is_sorted(m_candidates, {}, order)) { // they come so by invoice date
            std::ranges::sort(m_candidates, {}, order);
        }
    }

    void addFigures()
    {
        std::vector<Candidate*> byKey(m_candidates.size());
        std::ranges::transform(m_candidates, byKey.begin(), [](Candidate& counted) { return &counted; });
        std::ranges::sort(byKey, {}, &Candidate::key);
        std::vector<DocumentToTotal> documents(byKey.size());
        std::ranges::transform(byKey, documents.begin(), [](const Candidate* counted) {
            return DocumentToTotal{counted->key, counted->taxation};
        });
        calculateTotals(
            m_context, documents, [&](std::size_t place, const Totals::Result& totals) { add(totals, *byKey[place]); });
    }

    void add(const Totals::Result& totals, Candidate& counted)
    {
        if (counted.taxation == Totals::Taxation::exempt || totals.taxLines.empty()) {
            add(std::nullopt, counted.part(totals.net), 0, counted.entry);
            return;
        }
        for (const Totals::TaxLine& line : totals.taxLines) {
            add(line.basisPoints, counted.part(line.base), counted.part(line.tax), counted.entry);
        }
    }

    void add(std::optional<std::int32_t> rate, std::int64_t net, std::int64_t tax, TaxReport::Entry& entry)
    {
        TaxReport::Row& row = m_rows.try_emplace(rate, TaxReport::Row{rate.value_or(-1), rate, 0, 0}).first->second;
        row.net = checkedAdd(row.net, net);
        row.tax = checkedAdd(row.tax, tax);
        entry.net = checkedAdd(entry.net, net);
        entry.tax = checkedAdd(entry.tax, tax);
    }

    void addClients()
    {
        std::vector<std::int64_t> keys(m_candidates.size());
        std::ranges::transform(m_candidates, keys.begin(), &Candidate::client);
        const ClientNames clients(m_context, std::move(keys));
        for (Candidate& counted : m_candidates) {
            if (const ClientNames::Client* client = clients.find(counted.client)) {
                counted.entry.client = client->name;
            }
        }
    }

    Context& m_context;
    DateRange m_range;
    std::string_view m_currencyCode;
    std::deque<Candidate> m_candidates; ///< many and large: they stay where they were made
    std::map<std::optional<std::int32_t>, TaxReport::Row, std::greater<>> m_rows; ///< no rate comes last
};

} // namespace

std::int64_t TaxReport::Row::gross() const
{
    return checkedAdd(net, tax);
}

std::int64_t TaxReport::Entry::gross() const
{
    return checkedAdd(net, tax);
}

TaxReport::Row TaxReport::total() const
{
    Row sum{0, std::nullopt, 0, 0};
    for (const Row& row : rows) {
        sum.net = checkedAdd(sum.net, row.net);
        sum.tax = checkedAdd(sum.tax, row.tax);
    }
    return sum;
}

TaxReport TaxReport::make(Context& context, const DateRange& range, ReportBasis basis, std::string_view currencyCode)
{
    TaxReport report{std::string(currencyCode), basis, {}, {}};
    std::ignore = ReportData::readAtOnce(context, [&] {
        Reader reader(context, range, currencyCode);
        if (basis == ReportBasis::invoiced) {
            reader.findInvoiced();
        } else {
            reader.findPaid();
        }
        report = reader.finished(basis);
    });
    return report;
}

} // namespace Quillary
