#include "QuillaryCore/Model/Validation.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace Quillary {

using Case = std::pair<std::string_view, bool>;

TEST(ValidationTest, checksIBANs)
{
    // Valid ones are the examples of the IBAN registry.
    const Case cases[] = {
        {"DE89 3704 0044 0532 0130 00", true},
        {"de89370400440532013000", true},
        {"\tGB29\u00a0NWBK 6016 1331 9268 19\n", true},
        {"NO9386011117947", true},
        {"MT84MALT011000012345MTLCAST001S", true},
        {"LC55HEMM000100010012001200023015", true},
        {"FR14 2004 1010 0505 0001 3M02 606", true},
        {"DE89370400440532013001", false}, // one digit off
        {"DE98370400440532013000", false}, // check digits turned round
        {"DE8937040044053201300", false},  // too short for its country
        {"NO93860111179470", false},       // too long for its country
        {"XX89370400440532013000", false}, // no such country
        {"DEA9370400440532013000", false}, // a letter among the check digits
        {"DE89-3704-0044-0532-0130-00", false},
        {"DE8937040044053201300\u0660", false}, // a digit of another script
        {"", false},
        {"DE", false},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(Validation::isValidIBAN(text), expected) << text;
    }
    EXPECT_EQ(Validation::compactIBAN(" de89 3704\u202f0044 "), "DE8937040044");
    EXPECT_FALSE(Validation::isValidIBAN(std::string(8'000'000, ' ') + "DE89370400440532013000"));
}

TEST(ValidationTest, refusesCheckDigitsThatAreNeverHandedOut)
{
    // Of the three pairs that leave the same remainder, only the one from 02 to 98 is given out.
    int valid = 0;
    for (int check = 0; check < 100; ++check) {
        const std::string digits = (check < 10 ? "0" : "") + std::to_string(check);
        valid += Validation::isValidIBAN("DE" + digits + "370400440532013000") ? 1 : 0;
    }
    EXPECT_EQ(valid, 1);
}

TEST(ValidationTest, checksBICs)
{
    const Case cases[] = {
        {"DEUTDEFF", true},
        {"deut de ff 500", true},
        {"NEDSZAJJXXX", true},
        {"CABAXKPR", true},
        {"DEUTDEFF5", false},
        {"DEUTDEF", false},
        {"DEUTZZFF", false},
        {"DEUTDE-F", false},
        {"DEUTDEFF50000", false},
        {"", false},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(Validation::isValidBIC(text), expected) << text;
    }
}

TEST(ValidationTest, checksUPIIDs)
{
    const Case cases[] = {
        {"name@bank", true},
        {" a.b-c_9@okaxis ", true},
        {"9876543210@ybl", true},
        {"name", false},
        {"@bank", false},
        {"name@", false},
        {"a b@bank", false},
        {"name@ba nk", false},
        {"name@bank@x", false},
        {"name@bank.com", false},
        {"n@b", false},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(Validation::isValidUPI(text), expected) << text;
    }
}

TEST(ValidationTest, checksVATIDsByCountry)
{
    const Case cases[] = {
        {"DE123456789", true},
        {"de 123 456 789", true},
        {"DE12345678", false},
        {"ATU12345678", true},
        {"AT12345678", false},
        {"NL123456789B01", true},
        {"NL123456789C01", false},
        {"EL123456789", true},
        {"FRAB123456789", true},
        {"ESX1234567X", true},
        {"ES12345678A", true},
        {"ES123456789", false},
        {"IE1234567WA", true},
        {"CHE-123.456.789 MWST", true},
        {"CHE123456789", true},
        {"NO 123456789 MVA", true},
        {"XI123456789", true},
        {"GBGD123", true},
        {"RO1", false},
        {"IN29ABCDE1234F1Z5", true}, // other countries: letters and digits
        {"US<script>", false},
        {"DE", false},
        {"", false},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(Validation::isValidVATID(text), expected) << text;
    }
}

TEST(ValidationTest, checksEmailAddresses)
{
    const Case cases[] = {
        {"a@b.de", true},
        {"a.b+c@d-e.co.uk", true},
        {"ä@ö.de", true},
        {"a@b.éé", true},
        {"a@b", false},
        {"a@b.c", false},
        {"@b.de", false},
        {"a@.de", false},
        {"a@b.de.", false},
        {"a@b@c.de", false},
        {"a b@c.de", false},
        {"a@b.de\u00a0", false},
        {"a@b.d\ne", false},
        {"", false},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(Validation::isValidEmail(text), expected) << text;
    }
}

TEST(ValidationTest, checksColours)
{
    const Case cases[] = {{"#1F4e8C", true}, {"1F4E8C", false}, {"#1F4E8", false}, {"#1F4E8G", false}, {"", false}};
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(Validation::isValidHexColor(text), expected) << text;
    }
}

} // namespace Quillary
