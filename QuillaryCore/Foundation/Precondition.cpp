#include "QuillaryCore/Foundation/Precondition.h"

#include <cstdio>
#include <cstdlib>

namespace Quillary {

void stopProgram(std::string_view rule, const std::source_location& where) noexcept
{
    // Neither allocation nor formatting of ours: the program may be stopping because one of them is broken.
    std::fprintf(stderr,
                 "quillary stopped: broken rule: %.*s (%s:%u, %s)\n",
                 static_cast<int>(rule.size()),
                 rule.data(),
                 where.file_name(),
                 static_cast<unsigned>(where.line()),
                 where.function_name());
    std::fflush(stderr);
    std::abort();
}

} // namespace Quillary
