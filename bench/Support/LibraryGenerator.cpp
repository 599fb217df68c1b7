#include "bench/Support/LibraryGenerator.h"

#include "QuillaryCore/Foundation/Clock.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Store/Store.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace Quillary {

namespace {

using std::chrono::days;

constexpr int businessDays = 5 * 365;
constexpr int documentsPerSave = 1000;
constexpr std::array<std::int32_t, 2> taxRates = {1900, 700};

constexpr std::array<std::string_view, 24> vocabulary = {
    "Website", "design", "for", "Müller", "hosting", "of", "the", "new",   "catalogue", "workshop", "and",  "travel",
    "Åse",     "repair", "set", "garden", "photo",   "in", "two", "rooms", "Schröder",  "plan",     "with", "delivery"};

std::int64_t halfAwayFromZero(std::int64_t numerator, std::int64_t divisor)
{
    const std::int64_t doubled = 2 * numerator + (numerator < 0 ? -divisor : divisor);
    return doubled / (2 * divisor);
}

} // namespace

LibraryGenerator::LibraryGenerator(Context& context, LibrarySize size)
    : m_context(context)
    , m_size(size)
{
}

int LibraryGenerator::pick(int count)
{
    // SplitMix64: the standard library's distributions differ from one implementation to another.
    m_state += 0x9e3779b97f4a7c15;
    std::uint64_t mixed = m_state;
    mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9;
    mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111eb;
    return static_cast<int>((mixed >> 33) % static_cast<std::uint64_t>(count));
}

std::string LibraryGenerator::word()
{
    return std::string(vocabulary.at(static_cast<std::size_t>(pick(static_cast<int>(vocabulary.size())))));
}

std::string LibraryGenerator::words(int count)
{
    std::string text = word();
    for (int index = 1; index < count; ++index) {
        text += ' ' + word();
    }
    return text;
}

void LibraryGenerator::run()
{
    insertBusiness();
    for (int number = 1; number <= m_size.clients; ++number) {
        insertClient(number);
    }
    m_context.save();
    m_context.forgetUnchanged();
    for (int number = 1; number <= m_size.documents; ++number) {
        insertDocument(number);
        if (number % documentsPerSave == 0) {
            m_context.save();
            m_context.forgetUnchanged();
        }
    }
    m_context.save();
    m_context.forgetUnchanged();
}

void LibraryGenerator::makeLibrary(const std::filesystem::path& folder, LibrarySize size)
{
    // The mark is named after the schema too: a library of another schema is made anew.
    const std::filesystem::path done =
        folder / fmt::format("{}-{}-{}", size.documents, size.clients, DataModel::fingerprint(DataModel::model()));
    if (std::filesystem::exists(done)) {
        return;
    }
    std::filesystem::remove_all(folder);
    const FixedClock clock(today);
    CountingUUIDSource uuids;
    Store store(Store::Location::directory(folder), DataModel::records(), DataModel::history(), clock, uuids);
    Context context(store, clock, uuids);
    LibraryGenerator(context, size).run();
    std::filesystem::create_directory(done);
}

void LibraryGenerator::insertBusiness()
{
    auto& business = m_context.insert<Business>();
    business.name = "Example & Daughters";
    business.addressLine = "Lindenweg 3";
    business.postalCode = "12345";
    business.city = "Berlin";
    business.countryCode = "DE";
    business.currencyCode = "EUR";
    business.languageCode = "de";
    business.paymentTermsDays = 14;
}

void LibraryGenerator::insertClient(int number)
{
    auto& client = m_context.insert<Client>();
    if (number == 1) {
        m_firstClientKey = client.ref.key();
    }
    client.number = fmt::format("C-{:05}", number);
    client.name = fmt::format("{} {} Ltd", words(2), number);
    client.email = fmt::format("office{}@example.com", number);
    client.addressLine = fmt::format("{} Street {}", word(), 1 + pick(200));
    client.postalCode = fmt::format("{:05}", pick(100'000));
    client.city = word();
    client.countryCode = pick(5) == 0 ? "FR" : "DE";
    client.languageCode = "de";
}

void LibraryGenerator::insertDocument(int number)
{
    auto& document = m_context.insert<Document>();
    const int age = businessDays - 1 - static_cast<int>(std::int64_t{number - 1} * businessDays / m_size.documents);
    const int kind = pick(100);
    document.kindRaw = static_cast<std::int16_t>(kind < 88   ? DocumentKind::invoice
                                                 : kind < 96 ? DocumentKind::quote
                                                             : DocumentKind::creditNote);
    document.issueDate = today - days(age);
    document.createdAt = document.issueDate;
    document.dueDate = *document.issueDate + days(14);
    document.paymentTermsDays = 14;
    document.statusRaw =
        static_cast<std::int16_t>(age < 10 && pick(3) == 0 ? DocumentStatus::draft : DocumentStatus::sent);
    document.number = fmt::format("INV-{}-{:06}", 2021 + (number - 1) / (m_size.documents / 5 + 1), number);
    document.currencyCode = "EUR";
    document.languageCode = "de";
    document.title = words(2 + pick(3));
    document.introText = "Thank you for your order. We hereby charge as agreed:";
    document.outroText = "Please pay within 14 days without deduction.";
    document.client = Ref<Client>(m_firstClientKey + pick(m_size.clients));
    insertLines(document);
    insertPayments(document);
}

void LibraryGenerator::insertLines(Document& document)
{
    const int lineCount = 3 + pick(8);
    const std::int64_t sign = document.kindRaw == static_cast<std::int16_t>(DocumentKind::creditNote) ? -1 : 1;
    std::array<std::int64_t, taxRates.size()> nets{};
    for (int index = 0; index < lineCount; ++index) {
        const auto rate = static_cast<std::size_t>(pick(10) == 0 ? 1 : 0);
        auto& line = m_context.insert<LineItem>();
        line.document = document.ref;
        line.sortIndex = index;
        line.title = words(2 + pick(4));
        line.details = pick(3) == 0 ? words(8) : "";
        line.quantityThousandths = sign * 500 * (1 + pick(20));
        line.unitPriceMinorUnits = 100 + pick(50'000);
        line.vatBasisPoints = taxRates.at(rate);
        line.unit = "hour";
        line.unitSingular = "Stunde";
        line.unitPlural = "Stunden";
        nets.at(rate) += halfAwayFromZero(line.quantityThousandths * line.unitPriceMinorUnits, 1000);
    }
    document.cachedNetMinorUnits = nets[0] + nets[1];
    document.cachedTotalMinorUnits = document.cachedNetMinorUnits + halfAwayFromZero(nets[0] * taxRates[0], 10'000) +
                                     halfAwayFromZero(nets[1] * taxRates[1], 10'000);
}

void LibraryGenerator::insertPayments(Document& document)
{
    const bool isSentInvoice = document.kindRaw == static_cast<std::int16_t>(DocumentKind::invoice) &&
                               document.statusRaw == static_cast<std::int16_t>(DocumentStatus::sent);
    if (!isSentInvoice) {
        return;
    }
    document.sentAt = document.issueDate;
    const int delay = pick(40);
    const bool isPaid = *document.issueDate + days(delay) <= today && pick(50) != 0;
    const bool isPartly = !isPaid && pick(3) == 0;
    if (isPaid || isPartly) {
        auto& payment = m_context.insert<Payment>();
        payment.document = document.ref;
        payment.date = std::min(*document.issueDate + days(delay), today);
        payment.amountMinorUnits = isPaid ? document.cachedTotalMinorUnits : document.cachedTotalMinorUnits / 2;
        payment.method = "bankTransfer";
        document.cachedPaidMinorUnits = payment.amountMinorUnits;
        if (isPaid) {
            document.statusRaw = static_cast<std::int16_t>(DocumentStatus::paid);
            document.paidAt = payment.date;
        }
    } else if (*document.dueDate < today) {
        auto& reminder = m_context.insert<Reminder>();
        reminder.document = document.ref;
        reminder.date = std::min(*document.dueDate + days(7), today);
        reminder.level = 1;
        reminder.payBy = *reminder.date + days(7);
    }
}

} // namespace Quillary
