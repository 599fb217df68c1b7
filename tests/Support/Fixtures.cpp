#include "tests/Support/Fixtures.h"

namespace Quillary {

std::filesystem::path fixture(std::string_view name)
{
    return std::filesystem::path(QUILLARY_FIXTURES) / name;
}

} // namespace Quillary
