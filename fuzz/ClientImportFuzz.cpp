// Whatever a client list holds, what comes into the library keeps its limits and its forms, and the same list brings
// nobody a second time.

#include "QuillaryCore/Foundation/Clock.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Countries.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryCore/Tabular/CSV.h"
#include "QuillaryCore/Tabular/ClientImport.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>

using namespace Quillary;

namespace {

void check(const Client& client)
{
    for (const std::string* text : {&client.number,
                                    &client.name,
                                    &client.firstName,
                                    &client.lastName,
                                    &client.email,
                                    &client.phone,
                                    &client.website,
                                    &client.postalCode,
                                    &client.city,
                                    &client.state,
                                    &client.vatID,
                                    &client.taxID}) {
        precondition(isValidUTF8(*text) && graphemeCount(*text) <= Limits::lineLength, "a field keeps its limit");
        precondition(text->find_first_of("\r\n\t") == std::string::npos, "a field is one line");
    }
    precondition(graphemeCount(client.notes) <= Limits::textLength, "notes keep their limit");
    precondition(!displayName(client).empty(), "every client has a name");
    precondition(!client.number.empty(), "every client has a number");
    precondition(client.countryCode.empty() || Countries::isKnown(client.countryCode), "a country is a known one");
    precondition(client.currencyCode.empty() || Currencies::isKnown(client.currencyCode), "a currency is a known one");
}

/// An empty library, made once: each text is imported and taken back.
struct Library
{
    FixedClock clock{Instant(std::chrono::milliseconds(1'700'000'000'000))};
    CountingUUIDSource uuids{1};
    Store store{Store::Location::inMemory(), DataModel::records(), DataModel::history(), clock, uuids};
    Context context{store, clock, uuids};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Library library;
    Context& context = library.context;
    const Scope scope = context.beginScope("Import"); // never committed
    Business business;
    business.clientNumberFormat = "C-{###}";
    try {
        const CSV csv(std::string(reinterpret_cast<const char*>(data), size));
        const ImportColumns columns = ImportColumns::recognised(csv.rows());
        ClientImport import(csv.rows(), columns, &context);
        import.run(context, business, Calendar("UTC"));
        const auto clients = context.fetch<Client>("");
        precondition(clients.size() == import.count(ImportStatus::isNew), "each new client is imported once");
        std::set<std::string> numbers;
        for (const Client* client : clients) {
            check(*client);
            precondition(numbers.insert(client->number).second, "no number is given twice");
        }
        const ClientImport again(csv.rows(), columns, &context);
        for (const ClientImport::Row& row : again.rows()) {
            // A name of nothing but accents compares with none.
            precondition(row.status != ImportStatus::isNew || folded(displayName(row.read.client)).empty(),
                         "nobody is new twice");
        }
    } catch (const CSV::Failure&) {
        return 0;
    }
    return 0;
}
