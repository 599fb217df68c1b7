#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Store/Ref.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// A stored blob.
using Bytes = std::vector<std::uint8_t>;

/// What every record begins with: its own reference, set by the context that inserted or loaded it.
template <class Self>
struct Record // NOLINT(bugprone-crtp-constructor-accessibility): records are plain values, made by anybody
{
    Ref<Self> ref;

    friend bool operator==(const Record&, const Record&) = default;
};

/// One stored attribute of a record. Its type follows from the member, its default from a default-made record.
template <class Owner, class Value>
struct Field
{
    std::string_view name;
    Value Owner::* member;
    std::string_view renamedFrom = {}; ///< the attribute's name in older schemas; empty when it was never renamed
};

template <class Owner, class Value>
Field(const char*, Value Owner::*) -> Field<Owner, Value>;
template <class Owner, class Value>
Field(const char*, Value Owner::*, const char*) -> Field<Owner, Value>;

/// What becomes of a record whose target is deleted.
enum class WhenTargetGoes {
    clear, ///< the reference is emptied, the record stays
    erase, ///< the record belonged to its target and goes with it
};

/// A to-one relationship; the to-many side is `Context::related`.
template <class Owner, class Target>
struct Reference
{
    std::string_view name;
    Ref<Target> Owner::* member;
    WhenTargetGoes whenTargetGoes;
};

template <class Owner, class Target>
Reference(const char*, Ref<Target> Owner::*, WhenTargetGoes) -> Reference<Owner, Target>;

/// A tie by identifier instead of by key: the attribute holds the `uuid` of a record of the entity named. For extension
/// records, which belong to a record that doesn't know them.
template <class Owner>
struct UUIDReference
{
    std::string_view name;
    std::optional<UUID> Owner::* member;
    std::string_view targetEntity;
    WhenTargetGoes whenTargetGoes;

    /// The identifier of the target that is emptied when the last record tied to it goes, for an extension record that
    /// says where its target's own reference came from. Empty: the target stays as it is.
    std::string_view emptiedAtTarget = {};
};

template <class Owner>
UUIDReference(const char*, std::optional<UUID> Owner::*, const char*, WhenTargetGoes) -> UUIDReference<Owner>;
template <class Owner>
UUIDReference(const char*, std::optional<UUID> Owner::*, const char*, WhenTargetGoes, const char*)
    -> UUIDReference<Owner>;

/// An index of a record's table: columns as SQL writes them, and for a partial index the rows it covers.
struct Index
{
    std::string_view name;
    std::string_view columns;
    std::string_view condition = {};
};

} // namespace Quillary
