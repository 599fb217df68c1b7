#include "QuillaryCore/Foundation/NameBasedUUID.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace Quillary {
namespace {

// The standard's own example and others; expected values from Python's uuid5.
TEST(NameBasedUUIDTest, followsTheStandard)
{
    const UUID space = *UUID::parse("6ba7b810-9dad-11d1-80b4-00c04fd430c8");
    const std::pair<std::string, std::string_view> cases[] = {
        {"www.example.com", "2ED6657D-E927-568B-95E1-2665A8AEA6A2"},
        {"", "4EBD0208-8328-5D69-8C44-EC50939C0967"},
        {"Ä", "9575EDE8-E42B-540D-B1FC-359F8EAF030D"},
        {std::string(1000, 'x'), "F6D12730-A238-51ED-BF69-3689855F9BBF"},
    };
    for (const auto& [name, expected] : cases) {
        EXPECT_EQ(nameBasedUUID(space, name).text(), expected) << name.size();
    }
}

} // namespace
} // namespace Quillary
