#include "tests/Reports/MixedLibrary.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Reminder.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>

namespace Quillary {

namespace {

constexpr std::array<std::int32_t, 4> rates = {1900, 700, 0, 550};
constexpr int clientCount = 40;
constexpr int days = 5 * 365;

} // namespace

int MixedLibrary::pick(int from, int to)
{
    // The standard library's distributions differ from one implementation to another.
    return from + static_cast<int>(m_random() % static_cast<std::uint32_t>(to - from + 1));
}

void MixedLibrary::make(const std::filesystem::path& folder, int documents)
{
    const FixedClock clock(today);
    CountingUUIDSource uuids;
    Store store(Store::Location::directory(folder), DataModel::records(), DataModel::history(), clock, uuids);
    Context context(store, clock, uuids);
    context.insert<Business>().currencyCode = "EUR";
    insertClients(context);
    for (int number = 1; number <= documents; ++number) {
        insertDocument(context, number);
    }
    context.save();
    store.connection().checkpoint();
}

void MixedLibrary::insertClients(Context& context)
{
    for (int number = 1; number <= clientCount; ++number) {
        auto& client = context.insert<Client>();
        client.kindRaw = static_cast<std::int16_t>(pick(0, 1));
        client.name = oneIn(3) ? "" : fmt::format("Åse {}{} \"Ltd\"", number, oneIn(2) ? "," : "");
        client.firstName = oneIn(2) ? "" : fmt::format("={}", number);
        client.lastName = oneIn(2) ? "" : fmt::format("Schröder {}", number);
        client.email = oneIn(2) ? "" : fmt::format("c{}@example.com", number);
        client.number = fmt::format("C-{}", number);
        m_clients.push_back(client.ref);
    }
}

void MixedLibrary::insertDocument(Context& context, int number)
{
    auto& document = context.insert<Document>();
    const int kind = pick(1, 100);
    document.kindRaw = static_cast<std::int16_t>(kind < 75 ? 0 : kind < 85 ? 1 : kind < 97 ? 2 : 3);
    document.statusRaw = static_cast<std::int16_t>(oneIn(12) ? pick(0, 5) : pick(0, 2));
    document.number = fmt::format("{}-{:04}", oneIn(50) ? "-X" : "INV", number);
    document.issueDate = std::nullopt;
    if (!oneIn(30)) {
        // On whole hours, so that many fall on the first instant of a day, a month, a year.
        document.issueDate =
            today - std::chrono::hours(12) - std::chrono::days(pick(0, days)) + std::chrono::hours(pick(0, 23));
        document.dueDate = *document.issueDate + std::chrono::days(pick(-5, 60));
    }
    if (oneIn(15)) {
        document.dueDate.reset();
    }
    document.currencyCode = oneIn(10) ? "USD" : "EUR";
    document.taxExempt = oneIn(9);
    if (!oneIn(20)) {
        document.client = m_clients[static_cast<std::size_t>(pick(0, clientCount - 1))];
    }
    if (document.statusRaw == 2 && !oneIn(10)) {
        document.paidAt = document.issueDate.value_or(today) + std::chrono::hours(pick(0, 2000));
    }
    insertLines(context, document);
    insertExtras(context, document);
    updateCachedTotals(context, document);
    insertPayments(context, document);
}

void MixedLibrary::insertLines(Context& context, const Document& document)
{
    Ref<LineItem> top;
    const int count = oneIn(25) ? 0 : pick(1, 7);
    const int sign = document.kindRaw == 2 || oneIn(20) ? -1 : 1;
    for (int index = 0; index < count; ++index) {
        auto& line = context.insert<LineItem>();
        line.document = document.ref;
        line.sortIndex = pick(0, 3);
        line.quantityThousandths = std::int64_t{sign} * pick(-500, 9000);
        line.unitPriceMinorUnits = oneIn(12) ? 0 : pick(-200, 9999);
        line.vatBasisPoints = rates.at(static_cast<std::size_t>(pick(0, 3)));
        if (top && oneIn(3)) {
            line.parent = top;
        } else if (oneIn(60)) {
            line.parent = Ref<LineItem>(987'654'321); // a line that is gone
        } else {
            top = line.ref;
        }
    }
}

void MixedLibrary::insertExtras(Context& context, const Document& document)
{
    for (int count = oneIn(4) ? pick(1, 3) : 0; count > 0; --count) {
        auto& discount = context.insert<Discount>();
        discount.document = document.ref;
        discount.kindRaw = static_cast<std::int16_t>(pick(0, 2));
        discount.basisPoints = pick(0, 6000);
        discount.amountMinorUnits = pick(-100, 20'000);
        discount.sortIndex = count;
    }
    for (int count = oneIn(5) ? pick(1, 2) : 0; count > 0; --count) {
        auto& fee = context.insert<Fee>();
        fee.document = document.ref;
        fee.amountMinorUnits = pick(-200, 2000);
        fee.vatBasisPoints = rates.at(static_cast<std::size_t>(pick(0, 3)));
        fee.sortIndex = count;
    }
}

void MixedLibrary::insertPayments(Context& context, Document& document)
{
    for (int count = oneIn(2) ? pick(1, 3) : 0; count > 0; --count) {
        auto& payment = context.insert<Payment>();
        payment.document = document.ref;
        if (!oneIn(25)) {
            payment.date = document.issueDate.value_or(today) + std::chrono::hours(pick(-100, 9000));
        }
        payment.amountMinorUnits =
            oneIn(4) ? document.cachedTotalMinorUnits : document.cachedTotalMinorUnits * pick(-10, 70) / 100;
        document.cachedPaidMinorUnits += payment.amountMinorUnits;
    }
    if (oneIn(6)) {
        auto& reminder = context.insert<Reminder>();
        reminder.document = document.ref;
        reminder.feeMinorUnits = pick(0, 1500);
        document.cachedLateFeesMinorUnits = reminder.feeMinorUnits;
    }
}

} // namespace Quillary
