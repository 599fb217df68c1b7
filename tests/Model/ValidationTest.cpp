#include "QuillaryCore/Model/Validation.h"

#include "QuillaryCore/Foundation/Text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace Quillary {

namespace {

/// Asks for each of the texts, which bars stand between.
void expectEach(bool (*isValid)(std::string_view), std::string_view valid, std::string_view invalid)
{
    for (const std::string_view text : split(valid, '|')) {
        EXPECT_TRUE(isValid(text)) << text;
    }
    for (const std::string_view text : split(invalid, '|')) {
        EXPECT_FALSE(isValid(text)) << text;
    }
}

} // namespace

TEST(ValidationTest, checksIBANs)
{
    // Valid ones are the examples of the IBAN registry. The others: a digit off, check digits turned round, too short,
    // too long, no such country, a letter among the check digits, dashes, a digit of another script.
    expectEach(Validation::isValidIBAN,
               "DE89 3704 0044 0532 0130 00|de89370400440532013000|\tGB29\u00a0NWBK 6016 1331 9268 19\n|"
               "NO9386011117947|MT84MALT011000012345MTLCAST001S|LC55HEMM000100010012001200023015|"
               "FR14 2004 1010 0505 0001 3M02 606",
               "DE89370400440532013001|DE98370400440532013000|DE8937040044053201300|NO93860111179470|"
               "XX89370400440532013000|DEA9370400440532013000|DE89-3704-0044-0532-0130-00|"
               "DE8937040044053201300\u0660||DE");
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
    expectEach(Validation::isValidBIC,
               "DEUTDEFF|deut de ff 500|NEDSZAJJXXX|CABAXKPR",
               "DEUTDEFF5|DEUTDEF|DEUTZZFF|DEUTDE-F|DEUTDEFF50000|");
}

TEST(ValidationTest, checksUPIIDs)
{
    expectEach(Validation::isValidUPI,
               "name@bank| a.b-c_9@okaxis |9876543210@ybl",
               "name|@bank|name@|a b@bank|name@ba nk|name@bank@x|name@bank.com|n@b");
}

TEST(ValidationTest, checksVATIDsByCountry)
{
    expectEach(Validation::isValidVATID,
               "DE123456789|de 123 456 789|ATU12345678|NL123456789B01|EL123456789|FRAB123456789|"
               "ESX1234567X|ES12345678A|IE1234567WA|CHE-123.456.789 MWST|CHE123456789|NO 123456789 MVA|"
               "XI123456789|GBGD123|IN29ABCDE1234F1Z5",
               "DE12345678|AT12345678|NL123456789C01|ES123456789|RO1|US<script>|DE|");
}

TEST(ValidationTest, checksEmailAddresses)
{
    expectEach(Validation::isValidEmail,
               "a@b.de|a.b+c@d-e.co.uk|ä@ö.de|a@b.éé",
               "a@b|a@b.c|@b.de|a@.de|a@b.de.|a@b@c.de|a b@c.de|a@b.de\u00a0|a@b.d\ne|");
}

TEST(ValidationTest, checksColours)
{
    expectEach(Validation::isValidHexColor, "#1F4e8C", "1F4E8C|#1F4E8|#1F4E8G|");
}

} // namespace Quillary
