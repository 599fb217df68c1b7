// Whatever bytes lie in the assistants' settings and log are refused, or mean what is written back.

#include "QuillaryCore/Assistant/Access/ActivityEntry.h"
#include "QuillaryCore/Assistant/Access/AssistantSettings.h"
#include "QuillaryCore/Assistant/Access/ShownText.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"

#include <string>

using namespace Quillary;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the fuzzer hands over bytes
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (const auto settings = AssistantSettings::read(text)) {
        precondition(AssistantSettings::read(settings->json().pretty()) == settings, "settings are read back");
    }
    if (const auto entry = ActivityEntry::read(text)) {
        const std::string line = entry->json().dump();
        precondition(line.find('\n') == std::string::npos, "an entry is one line");
        precondition(ActivityEntry::read(line) == entry, "an entry is read back");
    }
    const std::string name = ShownText::assistantName(text);
    precondition(!name.empty() && !hasControlCharacter(name) && isValidUTF8(name), "a name can be shown");
    precondition(ShownText::assistantName(name) == name, "a name stays what it is");
    return 0;
}
