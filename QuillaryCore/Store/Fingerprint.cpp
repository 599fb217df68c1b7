#include "QuillaryCore/Store/Fingerprint.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Store/LibraryTables.h"

#include <fmt/format.h>

#include <cstdint>
#include <map>
#include <set>
#include <string_view>

namespace Quillary {

namespace {

__extension__ using Hash = unsigned __int128;

constexpr Hash offsetBasis = (Hash{0x6c62272e07bb0142} << 64) | Hash{0x62b821756295c58d};
constexpr Hash prime = (Hash{1} << 88) | Hash{0x13b};

/// The columns of each table, every one as "name TYPE"; sorted, so that the order of declaration doesn't count.
using Shape = std::map<std::string, std::set<std::string>>;

void add(Hash& hash, std::string_view text)
{
    for (const char character : text) {
        hash ^= static_cast<unsigned char>(character);
        hash *= prime;
    }
    hash ^= Hash{'\n'}; // no name holds a line break, so no two shapes run together into one text
    hash *= prime;
}

std::string digest(const Shape& shape)
{
    Hash hash = offsetBasis;
    for (const auto& [table, columns] : shape) {
        add(hash, table);
        for (const std::string& column : columns) {
            add(hash, column);
        }
        add(hash, {});
    }
    return fmt::format("{:016x}{:016x}", static_cast<std::uint64_t>(hash >> 64), static_cast<std::uint64_t>(hash));
}

} // namespace

std::string fingerprint(const Schema& schema)
{
    Shape shape;
    for (const Entity& entity : schema.entities) {
        auto& columns = shape[entity.name];
        for (const Attribute& attribute : entity.attributes) {
            columns.insert(fmt::format("{} {}", attribute.name, columnType(attribute.type)));
        }
        for (const Relationship& relationship : entity.relationships) {
            columns.insert(fmt::format("{} {}", relationship.name, relationshipColumnType));
        }
    }
    return digest(shape);
}

std::string fingerprintOfFile(Connection& connection)
{
    Shape shape;
    Statement columns(connection,
                      "SELECT tables.name, columns.name, columns.type FROM sqlite_master AS tables, "
                      "pragma_table_info(tables.name) AS columns WHERE tables.type = 'table'");
    while (columns.step()) {
        const std::string table(columns.text(0));
        if (LibraryTables::isOwnTable(table)) {
            continue;
        }
        auto& names = shape[table];
        if (columns.text(1) != "id") {
            names.insert(fmt::format("{} {}", columns.text(1), columns.text(2)));
        }
    }
    return digest(shape);
}

} // namespace Quillary
