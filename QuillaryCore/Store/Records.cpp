#include "QuillaryCore/Store/Records.h"

namespace Quillary {

Schema Records::schema(int version) const
{
    Schema schema;
    schema.version = version;
    for (const auto& type : m_types) {
        schema.entities.push_back(type->entity());
    }
    return schema;
}

} // namespace Quillary
