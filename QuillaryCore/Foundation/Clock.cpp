#include "QuillaryCore/Foundation/Clock.h"

namespace Quillary {

Instant SystemClock::now() const
{
    return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

} // namespace Quillary
