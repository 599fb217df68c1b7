#pragma once

#include "QuillaryCore/Store/RecordType.h"

#include <memory>
#include <vector>

namespace Quillary {

/// The types of record that a library holds, in schema order. Made once, kept by whoever opens stores.
class Records
{
public:
    /// `Records::of<Client, ContactPerson>()`. The targets of all relationships must be among the types.
    template <class... Types>
    [[nodiscard]] static Records of()
    {
        Records records;
        (records.m_types.push_back(std::make_unique<RecordTypeOf<Types>>()), ...);
        return records;
    }

    [[nodiscard]] const std::vector<std::unique_ptr<const RecordType>>& types() const { return m_types; }

    /// The schema that these types describe.
    [[nodiscard]] Schema schema(int version) const;

private:
    std::vector<std::unique_ptr<const RecordType>> m_types;
};

/// The schema of a list of record types: `schemaOf<Client, ContactPerson>(1)`.
template <class... Types>
[[nodiscard]] Schema schemaOf(int version)
{
    return Records::of<Types...>().schema(version);
}

} // namespace Quillary
