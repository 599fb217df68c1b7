#pragma once

#include "QuillaryCore/Store/Columns.h"
#include "QuillaryCore/Store/Schema.h"
#include "QuillaryCore/Store/Statement.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

namespace Quillary {

inline constexpr std::size_t maximumColumnCount = 128;

/// Some columns of a record: its attributes in their order, then its relationships. The key is not among them.
using ColumnSet = std::bitset<maximumColumnCount>;

/// A record as it was at one moment. Null: it didn't exist. Shared, because the row, the scopes that are open and the
/// undo history often keep the same moment.
using Image = std::shared_ptr<const void>;

/// One record in memory, and what else is known of it: as the file has it, as the open transaction has it, and as the
/// observers were told. The images mean something only while `isTouched`; an untouched record is the same everywhere.
struct AnyRow
{
    explicit AnyRow(std::int64_t rowKey)
        : key(rowKey)
    {
    }
    AnyRow(const AnyRow&) = delete;
    AnyRow& operator=(const AnyRow&) = delete;
    virtual ~AnyRow() = default;

    [[nodiscard]] virtual void* record() = 0;
    [[nodiscard]] virtual const void* record() const = 0;

    /// The targets under which `Context::related` has listed the record, one for each relationship.
    [[nodiscard]] virtual std::int64_t* listedTargets() = 0;

    /// The file has it as it is, and nobody may change it.
    void settle()
    {
        saved = nullptr;
        written = nullptr;
        observed = nullptr;
        isTouched = false;
        isOpen = false;
        isQueued = false;
    }

    std::int64_t key;
    Image saved;
    Image written;
    Image observed;
    Image released;              ///< as it was when nobody might change it any more; kept for the latest rows only
    bool isAlive = true;         ///< false from its deletion until that is saved or taken back
    bool isTouched = false;      ///< may differ from the file
    bool isOpen = false;         ///< somebody may still hold it for changing
    bool isQueued = false;       ///< closed since the last flush
    bool isInsertedHere = false; ///< everything that refers to it has been in this context's memory
    int scopeDepth = 0;          ///< the innermost open scope that knows its earlier state; 0: none
};

template <class T>
inline constexpr std::size_t referenceCount = std::tuple_size_v<decltype(T::references())>;

template <class T>
struct Row final : AnyRow
{
    explicit Row(std::int64_t rowKey)
        : AnyRow(rowKey)
    {
        value.ref = Ref<T>(rowKey);
    }

    [[nodiscard]] void* record() override { return &value; }
    [[nodiscard]] const void* record() const override { return &value; }
    [[nodiscard]] std::int64_t* listedTargets() override { return targets.data(); }

    T value;
    std::array<std::int64_t, referenceCount<T>> targets{};
};

/// The address of this variable stands for the type at run time.
template <class T>
inline constexpr char recordTag = 0;

/// An attribute that ties a record to another by identifier.
struct UUIDTie
{
    std::string attribute;
    std::string targetEntity;
    WhenTargetGoes whenTargetGoes;
    std::size_t column;
    std::string emptiedAtTarget; ///< see `UUIDReference`
};

/// What the store must know of one type of record, so that everything else is written once for all of them.
class RecordType
{
public:
    RecordType() = default;
    RecordType(const RecordType&) = delete;
    RecordType& operator=(const RecordType&) = delete;
    virtual ~RecordType() = default;

    [[nodiscard]] virtual const void* tag() const = 0;
    [[nodiscard]] const Entity& entity() const { return m_entity; }
    [[nodiscard]] const std::vector<UUIDTie>& uuidTies() const { return m_uuidTies; }
    [[nodiscard]] std::size_t columnCount() const { return m_entity.attributes.size() + m_entity.relationships.size(); }
    [[nodiscard]] const std::string& columnName(std::size_t column) const;

    /// The columns that lead to other records: relationships and ties by identifier.
    [[nodiscard]] ColumnSet referenceColumns() const;

    [[nodiscard]] virtual std::unique_ptr<AnyRow> makeRow(std::int64_t key) const = 0;

    /// What every inserted record is given: an identifier, and the time where it has a place for it.
    virtual void initialize(void* record, const UUID& uuid, Instant now) const = 0;

    [[nodiscard]] virtual Image image(const void* record) const = 0;
    virtual void restore(void* record, const void* image) const = 0;
    [[nodiscard]] virtual bool areEqual(const void* left, const void* right) const = 0;
    [[nodiscard]] virtual ColumnSet differences(const void* left, const void* right) const = 0;
    virtual void copy(const ColumnSet& columns, const void* from, void* to) const = 0;

    /// Reads all columns of a row, the first of them at `column` of the statement.
    virtual void read(void* record, const Statement& row, int column) const = 0;

    /// Binds the chosen columns one after the other, the first of them at `index`. Returns the index after the last.
    virtual int bind(const void* record, const ColumnSet& columns, Statement& statement, int index) const = 0;

    [[nodiscard]] virtual std::int64_t reference(const void* record, std::size_t relationship) const = 0;
    virtual void clearReference(void* record, std::size_t relationship) const = 0;
    virtual void clearUUID(void* record, std::size_t column) const = 0;
    [[nodiscard]] virtual std::optional<UUID> uuid(const void* record) const = 0;

    /// The identifier in a column. No value: it is empty, or the column holds something else.
    [[nodiscard]] virtual std::optional<UUID> uuidAt(const void* record, std::size_t column) const = 0;

protected:
    Entity m_entity;
    std::vector<UUIDTie> m_uuidTies;
};

template <class T>
class RecordTypeOf final : public RecordType
{
public:
    RecordTypeOf();

    [[nodiscard]] const void* tag() const override { return &recordTag<T>; }
    [[nodiscard]] std::unique_ptr<AnyRow> makeRow(std::int64_t key) const override
    {
        return std::make_unique<Row<T>>(key);
    }
    void initialize(void* record, const UUID& uuid, Instant now) const override;
    [[nodiscard]] Image image(const void* record) const override { return std::make_shared<const T>(typed(record)); }
    void restore(void* record, const void* image) const override { typed(record) = typed(image); }
    [[nodiscard]] bool areEqual(const void* left, const void* right) const override;
    [[nodiscard]] ColumnSet differences(const void* left, const void* right) const override;
    void copy(const ColumnSet& columns, const void* from, void* to) const override;
    void read(void* record, const Statement& row, int column) const override;
    int bind(const void* record, const ColumnSet& columns, Statement& statement, int index) const override;
    [[nodiscard]] std::int64_t reference(const void* record, std::size_t relationship) const override;
    void clearReference(void* record, std::size_t relationship) const override;
    void clearUUID(void* record, std::size_t column) const override;
    [[nodiscard]] std::optional<UUID> uuid(const void* record) const override { return typed(record).uuid; }
    [[nodiscard]] std::optional<UUID> uuidAt(const void* record, std::size_t column) const override;

private:
    static T& typed(void* record) { return *static_cast<T*>(record); }
    static const T& typed(const void* record) { return *static_cast<const T*>(record); }

    /// Calls `visit(member pointer, column)` for every column in order.
    template <class Visitor>
    static constexpr void forEachColumn(const Visitor& visit);

    /// Calls `visit(member pointer, relationship)` for every relationship in order.
    template <class Visitor>
    static constexpr void forEachReference(const Visitor& visit);

    void describeReferences();
    void describeIndexes();
};

template <class T>
template <class Visitor>
constexpr void RecordTypeOf<T>::forEachReference(const Visitor& visit)
{
    std::size_t relationship = 0;
    std::apply([&](const auto&... references) { (visit(references.member, relationship++), ...); }, T::references());
}

template <class T>
template <class Visitor>
constexpr void RecordTypeOf<T>::forEachColumn(const Visitor& visit)
{
    std::size_t column = 0;
    std::apply([&](const auto&... fields) { (visit(fields.member, column++), ...); }, T::fields());
    forEachReference([&](auto member, std::size_t /*relationship*/) { visit(member, column++); });
}

template <class T>
RecordTypeOf<T>::RecordTypeOf()
{
    static_assert(std::tuple_size_v<decltype(T::fields())> + referenceCount<T> <= maximumColumnCount);
    const T defaults;
    m_entity.name = T::entityName;
    std::apply(
        [&](const auto&... fields) {
            (m_entity.attributes.push_back(
                 {std::string(fields.name),
                  Column<std::remove_cvref_t<decltype(defaults.*fields.member)>>::type,
                  Column<std::remove_cvref_t<decltype(defaults.*fields.member)>>::defaultSQL(defaults.*fields.member),
                  std::string(fields.renamedFrom)}),
             ...);
        },
        T::fields());
    describeReferences();
    describeIndexes();
    if constexpr (requires { T::renamedFrom; }) {
        m_entity.renamedFrom = T::renamedFrom;
    }
    if constexpr (requires { T::clusteredBy; }) {
        m_entity.clusteredBy = T::clusteredBy;
    }
}

template <class T>
void RecordTypeOf<T>::describeReferences()
{
    const auto describe = [&]<class Target>(const Reference<T, Target>& reference) {
        m_entity.relationships.push_back(
            {std::string(reference.name), std::string(Target::entityName), reference.whenTargetGoes});
    };
    std::apply([&](const auto&... references) { (describe(references), ...); }, T::references());
    if constexpr (requires { T::uuidReferences(); }) {
        const auto tie = [&](const UUIDReference<T>& reference) {
            const auto attribute = std::ranges::find(m_entity.attributes, reference.name, &Attribute::name);
            const auto column = static_cast<std::size_t>(attribute - m_entity.attributes.begin());
            m_uuidTies.push_back({std::string(reference.name),
                                  std::string(reference.targetEntity),
                                  reference.whenTargetGoes,
                                  column,
                                  std::string(reference.emptiedAtTarget)});
        };
        std::apply([&](const auto&... references) { (tie(references), ...); }, T::uuidReferences());
    }
}

template <class T>
void RecordTypeOf<T>::describeIndexes()
{
    if constexpr (requires { T::indexes(); }) {
        for (const Index& index : T::indexes()) {
            m_entity.indexes.push_back(
                {std::string(index.name), std::string(index.columns), std::string(index.condition)});
        }
    }
}

template <class T>
void RecordTypeOf<T>::initialize(void* record, const UUID& uuid, Instant now) const
{
    T& inserted = typed(record);
    inserted.uuid = uuid;
    if constexpr (requires { inserted.createdAt = now; }) {
        inserted.createdAt = now;
    }
    if constexpr (requires { inserted.issueDate = now; }) {
        inserted.issueDate = now;
    }
}

template <class T>
bool RecordTypeOf<T>::areEqual(const void* left, const void* right) const
{
    bool equal = true;
    forEachColumn(
        [&](auto member, std::size_t /*column*/) { equal = equal && typed(left).*member == typed(right).*member; });
    return equal;
}

template <class T>
ColumnSet RecordTypeOf<T>::differences(const void* left, const void* right) const
{
    ColumnSet different;
    forEachColumn([&](auto member, std::size_t column) {
        if (!(typed(left).*member == typed(right).*member)) {
            different.set(column);
        }
    });
    return different;
}

template <class T>
void RecordTypeOf<T>::copy(const ColumnSet& columns, const void* from, void* to) const
{
    forEachColumn([&](auto member, std::size_t column) {
        if (columns.test(column)) {
            typed(to).*member = typed(from).*member;
        }
    });
}

template <class T>
void RecordTypeOf<T>::read(void* record, const Statement& row, int column) const
{
    T& loaded = typed(record);
    const auto readReference = [&]<class Target>(Ref<Target>& reference) {
        reference = Ref<Target>(row.integer(column++));
    };
    std::apply(
        [&](const auto&... fields) {
            (Column<std::remove_cvref_t<decltype(loaded.*fields.member)>>::read(row, column++, loaded.*fields.member),
             ...);
        },
        T::fields());
    forEachReference([&](auto member, std::size_t /*relationship*/) { readReference(loaded.*member); });
}

template <class T>
int RecordTypeOf<T>::bind(const void* record, const ColumnSet& columns, Statement& statement, int index) const
{
    forEachColumn([&](auto member, std::size_t column) {
        if (columns.test(column)) {
            statement.bind(index++, typed(record).*member);
        }
    });
    return index;
}

template <class T>
std::int64_t RecordTypeOf<T>::reference(const void* record, std::size_t relationship) const
{
    std::int64_t key = 0;
    forEachReference([&](auto member, std::size_t candidate) {
        if (candidate == relationship) {
            key = (typed(record).*member).key();
        }
    });
    return key;
}

template <class T>
void RecordTypeOf<T>::clearReference(void* record, std::size_t relationship) const
{
    forEachReference([&](auto member, std::size_t candidate) {
        if (candidate == relationship) {
            typed(record).*member = {};
        }
    });
}

template <class T>
std::optional<UUID> RecordTypeOf<T>::uuidAt(const void* record, std::size_t column) const
{
    std::optional<UUID> uuid;
    forEachColumn([&](auto member, std::size_t candidate) {
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(typed(record).*member)>, std::optional<UUID>>) {
            if (candidate == column) {
                uuid = typed(record).*member;
            }
        }
    });
    return uuid;
}

template <class T>
void RecordTypeOf<T>::clearUUID(void* record, std::size_t column) const
{
    forEachColumn([&](auto member, std::size_t candidate) {
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(typed(record).*member)>, std::optional<UUID>>) {
            if (candidate == column) {
                typed(record).*member = std::nullopt;
            }
        }
    });
}

} // namespace Quillary
