#include "QuillaryCore/Foundation/NameBasedUUID.h"

#include <uuid/uuid.h>

namespace Quillary {

UUID nameBasedUUID(const UUID& space, std::string_view name)
{
    UUID::Bytes bytes{};
    uuid_generate_sha1(bytes.data(), space.bytes().data(), name.data(), name.size());
    return UUID(bytes);
}

} // namespace Quillary
