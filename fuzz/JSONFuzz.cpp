// Whatever bytes arrive as JSON are refused or come back as they were sent.

#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Money/Decimal.h"

#include <string>

using namespace Quillary;

namespace {

void requireUsable(const JSON& value)
{
    if (value.number() != nullptr) {
        const auto decimal = value.decimalText();
        precondition(!decimal || Decimal::parse(*decimal).has_value(), "a number is a decimal");
        const auto integer = value.integer();
        precondition(!integer || Decimal::fromInteger(*integer, 0) == Decimal::parse(decimal.value()).value(),
                     "an integer is the number");
    }
    if (const auto* array = value.array()) {
        for (const JSON& element : *array) {
            requireUsable(element);
        }
    }
    if (const auto* object = value.object()) {
        for (const auto& [key, member] : *object) {
            precondition(value.find(key) == &member, "a key occurs once");
            requireUsable(member);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the fuzzer hands over bytes
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto value = JSON::parse(text);
    if (!value) {
        return 0;
    }
    requireUsable(*value);
    const std::string line = value->dump();
    precondition(isValidUTF8(line), "a line is well-formed text");
    precondition(line.find('\n') == std::string::npos, "a line is one line");
    precondition(JSON::parse(line) == value, "a line is read back");
    precondition(JSON::parse(value->pretty()) == value, "what is written for people is read back");
    return 0;
}
