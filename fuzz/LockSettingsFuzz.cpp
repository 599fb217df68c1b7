// Whatever bytes lie in the lock's file are refused, or mean what is written back.

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Lock/LockSettings.h"

#include <string>

using namespace Quillary;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the fuzzer hands over bytes
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (const auto settings = LockSettings::read(text)) {
        precondition(LockSettings::read(settings->json().pretty()) == settings, "the lock is read back");
        const auto later = settings->lastWrongAt.value_or(Instant()) + std::chrono::minutes(1);
        precondition(settings->wait(later) <= std::chrono::seconds(300), "nobody is kept out for long");
    }
    return 0;
}
