#include "QuillaryCore/Store/UpgradePlan.h"

#include "QuillaryCore/Foundation/Precondition.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace Quillary {

namespace {

/// The value of each column, and the table in the oldest schema from which the rows come.
struct Origin
{
    std::string source;
    std::map<std::string, std::string> values;
};

using Origins = std::map<std::string, Origin>; ///< by the entity's name in the version reached so far

template <class Named>
const Named* findNamed(const std::vector<Named>& all, std::string_view name)
{
    const auto found = std::ranges::find(all, name, &Named::name);
    return found == all.end() ? nullptr : &*found;
}

/// Whether `item` states a renaming that happens in this very step. The statement stays in the code for as long as
/// older libraries exist, so later steps see it too: there the earlier version already has both name and statement, or
/// the old name is in use again for something new.
template <class Named>
bool isRenamedHere(const Named& item, const std::vector<Named>& earlier, const std::vector<Named>& later)
{
    if (item.renamedFrom.empty() || findNamed(earlier, item.renamedFrom) == nullptr) {
        return false;
    }
    const Named* same = findNamed(earlier, item.name);
    if (same == nullptr) {
        return true;
    }
    const Named* oldNameNow = findNamed(later, item.renamedFrom);
    return same->renamedFrom != item.renamedFrom && (oldNameNow == nullptr || !oldNameNow->renamedFrom.empty());
}

/// For each name in the later version, the name it had in the earlier one. Names that are new are absent.
template <class Named>
std::map<std::string, std::string> earlierNames(const std::vector<Named>& earlier, const std::vector<Named>& later)
{
    std::map<std::string, std::string> names;
    std::set<std::string> taken;
    for (const Named& item : later) {
        if (isRenamedHere(item, earlier, later)) {
            names[item.name] = item.renamedFrom;
            precondition(taken.insert(item.renamedFrom).second, "one old name is renamed to one new name");
        }
    }
    for (const Named& item : later) {
        if (!names.contains(item.name) && !taken.contains(item.name) && findNamed(earlier, item.name) != nullptr) {
            names[item.name] = item.name;
        }
    }
    return names;
}

int widthRank(AttributeType type)
{
    switch (type) {
    case AttributeType::boolean:
        return 1;
    case AttributeType::int16:
        return 2;
    case AttributeType::int32:
        return 3;
    case AttributeType::int64:
        return 4;
    case AttributeType::uuid:
    case AttributeType::date:
    case AttributeType::text:
    case AttributeType::binary:
        return 0;
    }
    return 0;
}

bool keepsValues(AttributeType from, AttributeType to)
{
    return from == to || (widthRank(from) != 0 && widthRank(to) > widthRank(from));
}

std::string defaultValue(const Attribute& attribute)
{
    return attribute.defaultSQL.empty() ? "NULL" : attribute.defaultSQL;
}

/// The stored value. A damaged row that lacks a value that is never optional gets the default instead of stopping the
/// upgrade.
std::string storedValue(const Attribute& attribute)
{
    const std::string column = quotedName(attribute.name);
    return attribute.defaultSQL.empty() ? column : fmt::format("coalesce({}, {})", column, attribute.defaultSQL);
}

Origins startingWith(const Schema& oldest)
{
    Origins origins;
    for (const Entity& entity : oldest.entities) {
        Origin& origin = origins[entity.name];
        origin.source = entity.name;
        for (const Attribute& attribute : entity.attributes) {
            origin.values[attribute.name] = storedValue(attribute);
        }
        for (const Relationship& relationship : entity.relationships) {
            origin.values[relationship.name] = quotedName(relationship.name);
        }
    }
    return origins;
}

/// The origin of one entity after a step in which it existed on both sides.
Origin afterStep(const Origin& before,
                 const Entity& earlier,
                 const Entity& later,
                 const std::map<std::string, std::string>& entityNames)
{
    Origin after{before.source, {}};
    const auto names = earlierNames(earlier.attributes, later.attributes);
    for (const Attribute& attribute : later.attributes) {
        const auto known = names.find(attribute.name);
        if (known == names.end()) {
            after.values[attribute.name] = defaultValue(attribute);
            continue;
        }
        const AttributeType oldType = findNamed(earlier.attributes, known->second)->type;
        precondition(keepsValues(oldType, attribute.type), "the type of a stored attribute only widens");
        after.values[attribute.name] = before.values.at(known->second);
    }
    for (const Relationship& relationship : later.relationships) {
        const Relationship* old = findNamed(earlier.relationships, relationship.name);
        const auto target = entityNames.find(relationship.target);
        const bool sameTarget = old != nullptr && target != entityNames.end() && target->second == old->target;
        if (sameTarget && before.values.contains(relationship.name)) {
            after.values[relationship.name] = before.values.at(relationship.name);
        }
    }
    return after;
}

Origins afterStep(const Origins& before, const Schema& earlier, const Schema& later)
{
    Origins after;
    const auto names = earlierNames(earlier.entities, later.entities);
    for (const Entity& entity : later.entities) {
        const auto known = names.find(entity.name);
        if (known == names.end() || !before.contains(known->second)) {
            continue; // new in this step, or in an earlier one: it has no rows yet
        }
        const Entity& old = *findNamed(earlier.entities, known->second);
        after[entity.name] = afterStep(before.at(known->second), old, entity, names);
    }
    return after;
}

void add(UpgradePlan::Table& table, const Origin& origin, const std::string& name)
{
    if (const auto value = origin.values.find(name); value != origin.values.end()) {
        table.columns.push_back({name, value->second});
    }
}

} // namespace

UpgradePlan UpgradePlan::make(std::span<const Schema* const> versions)
{
    precondition(!versions.empty(), "an upgrade starts at a version");
    Origins origins = startingWith(*versions.front());
    for (std::size_t i = 1; i < versions.size(); ++i) {
        origins = afterStep(origins, *versions[i - 1], *versions[i]);
    }
    UpgradePlan plan;
    for (const Entity& entity : versions.back()->entities) {
        const auto origin = origins.find(entity.name);
        if (origin == origins.end()) {
            continue;
        }
        Table table{entity.name, origin->second.source, {}};
        for (const Attribute& attribute : entity.attributes) {
            add(table, origin->second, attribute.name);
        }
        for (const Relationship& relationship : entity.relationships) {
            add(table, origin->second, relationship.name);
        }
        plan.tables.push_back(std::move(table));
    }
    return plan;
}

} // namespace Quillary
