#include "QuillaryCore/Model/PersonName.h"

#include <gtest/gtest.h>

#include <string_view>
#include <utility>

namespace Quillary {

namespace {

TEST(PersonNameTest, takesFullNamesApart)
{
    const std::pair<std::string_view, PersonName> cases[] = {
        {"Anna Schmidt", {"Anna", "Schmidt"}},
        {" Anna  Maria   Schmidt ", {"Anna Maria", "Schmidt"}},
        {"Schmidt", {"", "Schmidt"}},
        {"Schmidt, Anna Maria", {"Anna Maria", "Schmidt"}},
        {"van der Berg, Jan", {"Jan", "van der Berg"}},
        {"Jan van der Berg", {"Jan", "van der Berg"}},
        {"Maria DE LA Cruz", {"Maria", "DE LA Cruz"}},
        {"Karl Theodor von und zu Guttenberg", {"Karl Theodor", "von und zu Guttenberg"}},
        {"Van Morrison", {"Van", "Morrison"}}, // the first word is never a particle
        {"Martin Luther King Jr.", {"Martin Luther", "King Jr."}},
        {"Martin King, Jr.", {"Martin", "King, Jr."}},
        {"Schmidt,", {"", "Schmidt,"}},
        {"", {"", ""}},
    };
    for (const auto& [fullName, expected] : cases) {
        EXPECT_EQ(personName(fullName), expected) << fullName;
    }
}

} // namespace

} // namespace Quillary
