#include "QuillaryCore/Foundation/NameBasedUUID.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace Quillary {
namespace {

// The standard's own example, and lengths around the borders of the hash's blocks; expected values from Python's uuid5.
TEST(NameBasedUUIDTest, followsTheStandard)
{
    const UUID space = *UUID::parse("6ba7b810-9dad-11d1-80b4-00c04fd430c8");
    const std::pair<std::string, std::string_view> cases[] = {
        {"www.example.com", "2ED6657D-E927-568B-95E1-2665A8AEA6A2"},
        {"", "4EBD0208-8328-5D69-8C44-EC50939C0967"},
        {std::string(39, 'x'), "2F80C0D1-1C62-579F-8D68-E61AD5592C9B"},
        {std::string(40, 'x'), "E56FD57A-7633-5E1D-8F80-70E05AC413E5"},
        {std::string(47, 'x'), "A112377B-8258-5EF7-B5B0-D2540BC03ABB"},
        {std::string(48, 'x'), "83993B6C-DEA9-55CA-BE5B-9989C85943FC"},
        {"Ä", "9575EDE8-E42B-540D-B1FC-359F8EAF030D"},
        {std::string(1000, 'x'), "F6D12730-A238-51ED-BF69-3689855F9BBF"},
    };
    for (const auto& [name, expected] : cases) {
        EXPECT_EQ(nameBasedUUID(space, name).text(), expected) << name.size();
    }
}

} // namespace
} // namespace Quillary
