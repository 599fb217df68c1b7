#include "QuillaryCore/Model/ClientNames.h"

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/KeyRuns.h"
#include "QuillaryCore/Store/Columns.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>

namespace Quillary {

namespace {

/// How many clients may lie unread between two that are wanted.
constexpr std::int64_t reach = 16;

} // namespace

ClientNames::ClientNames(Context& context, std::vector<std::int64_t> keys)
{
    std::ranges::sort(keys);
    keys.erase(std::ranges::unique(keys).begin(), keys.end());
    m_clients.reserve(keys.size());
    auto wanted = keys.begin();
    Quillary::Client fields; // only what the display name is made from
    const auto take = [&](const Statement& row) {
        const std::int64_t key = row.integer(0);
        wanted = std::find_if(wanted, keys.end(), [key](std::int64_t next) { return next >= key; });
        if (wanted == keys.end() || *wanted != key) {
            return;
        }
        Column<std::int16_t>::read(row, 2, fields.kindRaw);
        fields.name = row.text(3);
        fields.firstName = row.text(4);
        fields.lastName = row.text(5);
        fields.email = row.text(6);
        fields.number = row.text(7);
        m_clients.push_back({key, row.uuid(1), displayName(fields)});
    };
    forEachRun(keys, reach, [&](std::int64_t first, std::int64_t last) {
        context.query("SELECT id, uuid, kindRaw, name, firstName, lastName, email, number FROM Client "
                      "WHERE id BETWEEN ?1 AND ?2 ORDER BY id",
                      take,
                      first,
                      last);
    });
}

const ClientNames::Client* ClientNames::find(std::int64_t key) const
{
    const auto found = std::ranges::lower_bound(m_clients, key, {}, &Client::key);
    return found == m_clients.end() || found->key != key ? nullptr : &*found;
}

} // namespace Quillary
