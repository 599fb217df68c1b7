#include "Quillary/SampleHistory.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/Payments.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Samples/SampleLibrary.h"

#include <fmt/format.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <vector>

namespace Quillary {

namespace {

constexpr int invoices = 48;
constexpr int daysBetween = 9;
constexpr std::int64_t one = 1'000; ///< in thousandths

/// What the invoices were for, in whole hundreds: some months are better than others.
constexpr std::array<std::int64_t, 11> hundreds = {84, 121, 37, 158, 66, 240, 95, 143, 52, 187, 110};

void addInvoice(SampleLibrary& samples, int place, Ref<Client> client)
{
    Context& context = samples.context();
    const Business& business = samples.business();
    const Instant today = samples.calendar().startOfDay(context.clock().now());
    Document& invoice = context.insert<Document>();
    invoice.statusRaw = static_cast<std::int16_t>(DocumentStatus::sent);
    invoice.issueDate = samples.calendar().addingDays(today, -daysBetween * (invoices - place));
    invoice.dueDate = samples.calendar().addingDays(*invoice.issueDate, business.paymentTermsDays);
    const int year = static_cast<int>(samples.calendar().date(*invoice.issueDate).year());
    invoice.number = fmt::format("{}-{:04}", year, 100 + place);
    invoice.paymentTermsDays = business.paymentTermsDays;
    invoice.currencyCode = business.currencyCode;
    invoice.languageCode = business.languageCode;
    invoice.client = client;
    LineItem& line = context.insert<LineItem>();
    line.document = invoice.ref;
    line.title = "Editorial design";
    line.quantityThousandths = one;
    line.unitPriceMinorUnits = hundreds.at(static_cast<std::size_t>(place) % hundreds.size()) * 100'00;
    line.vatBasisPoints = 2'000;
    updateCachedTotals(context, invoice);
    constexpr int paidAfterDays = 17;
    const bool isOld = place + 3 < invoices;
    if (isOld && place % 13 != 12) { // one is forgotten now and then
        recordPayment(context,
                      invoice,
                      {.amountMinorUnits = invoice.cachedTotalMinorUnits,
                       .date = samples.calendar().addingDays(*invoice.issueDate, paidAfterDays + place % 5),
                       .note = {}});
    }
}

} // namespace

void addHistory(SampleLibrary& samples)
{
    std::vector<Ref<Client>> clients;
    for (const Client* client : samples.context().fetch<Client>("")) {
        clients.push_back(client->ref);
    }
    auto scope = samples.context().beginScope("Samples");
    for (int place = 0; place < invoices; ++place) {
        addInvoice(samples, place, clients.at(static_cast<std::size_t>(place * place + place / 3) % clients.size()));
    }
    scope.commit();
}

} // namespace Quillary
