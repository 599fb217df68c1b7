#include "tests/Store/OldLibraries.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Store/LibraryFile.h"
#include "QuillaryCore/Store/LibraryTables.h"
#include "QuillaryCore/Store/StoreError.h"

#include <fmt/format.h>

#include <algorithm>
#include <csignal>
#include <limits>
#include <sys/wait.h>
#include <unistd.h>

namespace Quillary::OldLibraries {

namespace fs = std::filesystem;

namespace {

using enum AttributeType;

const Attribute uuidAttribute{"uuid", uuid, "", ""};

Entity order(AttributeType amount, const std::string& customerEntity)
{
    // A reserved word for a name: everything must be quoted.
    return {.name = "Order",
            .attributes = {uuidAttribute,
                           {"number", text, "''", ""},
                           {"amount", amount, "0", ""},
                           {"issued", date, "", ""},
                           {"picture", binary, "", ""}},
            .relationships = {{"customer", customerEntity, WhenTargetGoes::clear}},
            .indexes = {{"Order_number", "number", ""}, {"Order_open", "customer, amount", "amount > 0"}},
            .renamedFrom = "",
            .clusteredBy = ""};
}

Entity line(const std::string& clusteredBy)
{
    return {.name = "Line",
            .attributes = {uuidAttribute, {"text", text, "''", ""}},
            .relationships = {{"order", "Order", WhenTargetGoes::erase}, {"parent", "Line", WhenTargetGoes::erase}},
            .indexes = {},
            .renamedFrom = "",
            .clusteredBy = clusteredBy};
}

Entity plain(const std::string& name, std::vector<Attribute> attributes, const std::string& renamedFrom = {})
{
    attributes.insert(attributes.begin(), uuidAttribute);
    return {.name = name,
            .attributes = std::move(attributes),
            .relationships = {},
            .indexes = {},
            .renamedFrom = renamedFrom,
            .clusteredBy = ""};
}

Schema made(int version)
{
    switch (version) {
    case 1:
        return {1,
                {plain("Customer", {{"name", text, "''", ""}, {"fax", text, "''", ""}, {"discount", int16, "0", ""}}),
                 order(int64, "Customer"),
                 line(""),
                 plain("Stamp", {{"text", text, "''", ""}})}};
    case 2:
        return {2,
                {plain("Customer",
                       {{"name", text, "''", ""}, {"language", text, "'en'", ""}, {"discount", int32, "0", ""}}),
                 order(int64, "Customer"),
                 line(""),
                 plain("Payment", {{"amount", int64, "0", ""}})}};
    case 3:
        return {3,
                {plain("Client",
                       {{"title", text, "''", "name"}, {"language", text, "'de'", ""}, {"discount", int32, "0", ""}},
                       "Customer"),
                 order(int64, "Client"),
                 line("order"),
                 plain("Payment", {{"amount", int64, "0", ""}})}};
    default:
        return {4,
                {plain("Client",
                       {{"fullName", text, "''", "title"},
                        {"name", text, "'short'", ""},
                        {"language", text, "'de'", ""},
                        {"discount", int64, "7", ""},
                        {"isVIP", boolean, "0", ""}},
                       "Customer"),
                 order(int64, "Client"),
                 line("order"),
                 plain("Note", {{"text", text, "'it''s new'", ""}})}};
    }
}

void addRows(Connection& connection, int version, int orders)
{
    const std::string customer = version < 3 ? "Customer" : "Client";
    const char* nameColumn = version < 3 ? "name" : (version == 3 ? "title" : "fullName");
    Statement clients(connection,
                      fmt::format("INSERT INTO {} (id, uuid, {}, discount) VALUES (?, ?, ?, ?)", customer, nameColumn));
    const std::pair<int, const char*> people[] = {{7, "Zoë \"Z\" O'Hara"}, {12, ""}}; // keys with gaps
    for (const auto& [key, name] : people) {
        const UUID uuid(UUID::Bytes{static_cast<std::uint8_t>(key)}); // bound values live until the statement has run
        clients.bind(1, key);
        clients.bind(2, uuid);
        clients.bind(3, name);
        clients.bind(4, std::numeric_limits<std::int16_t>::max());
        clients.run();
    }
    Statement orderRow(
        connection, "INSERT INTO \"Order\" (id, number, amount, issued, picture, customer) VALUES (?, ?, ?, ?, ?, ?)");
    Statement lineRow(connection, "INSERT INTO Line (id, text, \"order\", parent) VALUES (?, ?, ?, ?)");
    const Bytes picture{0, 1, 0xff, '\''};
    const Bytes noPicture;
    for (int key = 1; key <= orders; ++key) {
        const std::string number = fmt::format("RE-{}", key);
        orderRow.bind(1, key);
        orderRow.bind(2, number);
        orderRow.bind(3, key == 1 ? std::numeric_limits<std::int64_t>::min() : std::int64_t{key} * 100);
        orderRow.bind(4, key % 2 == 0 ? std::optional(Instant(std::chrono::milliseconds(key))) : std::nullopt);
        orderRow.bind(5, key == 2 ? picture : noPicture);
        orderRow.bind(6, key % 3 == 0 ? 12 : 7);
        orderRow.run();
        for (int number3 = 1; number3 <= 3; ++number3) {
            // Keys that fall while the orders rise: clustering has to sort.
            lineRow.bind(1, orders * 3 + 1 - (key * 3 - 3 + number3));
            lineRow.bind(2, number3 == 1 ? "first" : "");
            lineRow.bind(3, key);
            lineRow.bind(4, 0);
            lineRow.run();
        }
    }
}

} // namespace

const Schema& schema(int version)
{
    static const std::vector<Schema> all{made(1), made(2), made(3), made(4)};
    return all.at(static_cast<std::size_t>(version) - 1);
}

SchemaHistory history(int version)
{
    SchemaHistory result{schema(version), {}};
    for (int older = 1; older < version; ++older) {
        result.older.push_back(schema(older));
    }
    return result;
}

std::unique_ptr<Connection> make(const fs::path& file, int version, int orders)
{
    LibraryFile::removeWithCompanions(file);
    auto connection = std::make_unique<Connection>(file, Connection::Access::readWrite);
    connection->execute("PRAGMA wal_autocheckpoint = 0");
    connection->begin();
    LibraryTables::createEntities(*connection, schema(version));
    LibraryTables::createInformation(
        *connection, UUID(UUID::Bytes{9, 9}), Instant(std::chrono::milliseconds(1234)), version);
    connection->commit();
    connection->begin();
    addRows(*connection, version, orders);
    connection->execute(fmt::format("INSERT INTO {} VALUES ('{}', 40), ('Order', 4000), ('Stamp', 3)",
                                    LibraryTables::keysTable,
                                    version < 3 ? "Customer" : "Client"));
    connection->commit();
    return connection;
}

void makeAndCrash(const fs::path& file, int version, int orders)
{
    const pid_t child = fork();
    if (child == 0) {
        try {
            const auto connection = make(file, version, orders);
            kill(getpid(), SIGKILL);
        } catch (const StoreError& error) {
            fmt::print(stderr, "{} {}\n", error.message(), error.details());
        }
        _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    precondition(WIFSIGNALED(status), "the library was made");
}

std::string contents(const fs::path& file)
{
    // Without a log no file may appear beside the one that is looked at.
    Connection connection(file,
                          LibraryFile::hasLog(file) ? Connection::Access::readOnly : Connection::Access::immutable);
    std::vector<std::string> tables;
    Statement list(connection, "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name");
    while (list.step()) {
        tables.emplace_back(list.text(0));
    }
    std::string result;
    for (const std::string& table : tables) {
        result += table + '\n';
        Statement rows(connection, fmt::format("SELECT * FROM {} ORDER BY 1", quotedName(table)));
        while (rows.step()) {
            for (int column = 0; column < rows.columnCount(); ++column) {
                result +=
                    fmt::format("  {}={}", rows.columnName(column), rows.isNull(column) ? "NULL" : rows.text(column));
            }
            result += '\n';
        }
    }
    return result;
}

std::vector<std::string> names(const fs::path& folder)
{
    std::vector<std::string> result;
    for (const auto& entry : fs::directory_iterator(folder)) {
        result.push_back(entry.path().filename().string());
    }
    std::ranges::sort(result);
    return result;
}

} // namespace Quillary::OldLibraries
