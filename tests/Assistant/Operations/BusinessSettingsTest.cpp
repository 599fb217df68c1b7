#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"

#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Foundation/Text.h"
#include "tests/Assistant/AssistantLibrary.h"

#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {
namespace {

class BusinessSettingsTest : public testing::Test
{
protected:
    /// Sets a value and gives what is shown of it then, or the sentence that refuses it.
    std::string set(std::string_view name, std::string_view typed)
    {
        const AssistantEnvironment current = library.environment();
        auto scope = library.context.beginScope("Settings");
        try {
            BusinessSettings::set(current, name, typed);
        } catch (const AssistantError& error) {
            return error.message();
        }
        scope.commit();
        return BusinessSettings::entry(current, name).text;
    }

    AssistantLibrary library;
};

TEST_F(BusinessSettingsTest, namesEveryAttributeOfTheModelOnce)
{
    std::set<std::string> names;
    for (const BusinessSettings::Entry& entry : BusinessSettings::all(library.environment())) {
        EXPECT_TRUE(names.insert(entry.name).second) << entry.name;
        EXPECT_EQ(BusinessSettings::nameOf(entry.name), entry.name);
    }
    EXPECT_EQ(names.size(), std::tuple_size_v<decltype(Business::fields())> - 2); // without uuid and createdAt
    for (const std::string_view name : split(
             "country vat_id show_payment_qr_code late_fee late_fee_percent hourly_rate tax_label accent_color upi_id",
             ' ')) {
        EXPECT_TRUE(names.contains(std::string(name))) << name;
    }
    EXPECT_EQ(BusinessSettings::nameOf("Show-Payment-QR-Code"), "show_payment_qr_code");
    EXPECT_EQ(BusinessSettings::nameOf("hourlyRateMinorUnits"), "hourly_rate");
    EXPECT_THROW(std::ignore = BusinessSettings::nameOf("uuid"), AssistantError);
}

TEST_F(BusinessSettingsTest, checksWhatIsTyped)
{
    struct Case
    {
        std::string_view name;
        std::string_view typed;
        std::string_view answer; ///< the value as it is stored, or the sentence
    };
    const Case cases[] = {
        {"name", "  Studio\tNord ", "Studio Nord"},
        {"footer_note", "One\nTwo", "One\nTwo"},
        {"email", "nobody", "“email” must be an email address such as name@example.com."},
        {"vat_id", "de 136 695 976", "DE136695976"},
        {"iban", "DE89 3704 0044 0532 0130 00", "DE89370400440532013000"},
        {"iban", "DE89 3704", "“iban” isn't a valid IBAN: its check digits or its length are wrong."},
        {"upi_id", "me", "“upi_id” isn't a UPI ID such as name@bank."},
        {"invoice_number_format", "R{###}", "R{###}"},
        {"invoice_number_format", "R{yyyy}", "Add a counter such as {###} so every number is different."},
        {"invoice_number_format", " ", "Enter a format."},
        {"invoice_number_format", "R\t{##}", "The format can't contain tabs or line breaks."},
        {"client_number_format", "{client}{##}", "Client numbers can't include {client} or a per-client counter."},
        {"template", "Modern", "modern"},
        {"template", "baroque", "“template” must be one of classic, modern, minimal, bold, compact."},
        {"paper_size", "us-letter", "usLetter"},
        {"accent_color", "1f4e8c", "#1F4E8C"},
        {"accent_color", "blue", "“accent_color” must be a colour written as #RRGGBB, such as #1F4E8C."},
        {"language", "pl", "“language” must be one of en, de, fr, es, nl, it."},
        {"tax_label", "sales tax", "“tax_label” must be one of vat, gst, sales_tax, tax, custom."},
        {"tax_label", "salesTax", "sales_tax"},
        {"show_payment_qr_code", "yes", "yes"},
        {"show_payment_qr_code", "maybe", "“show_payment_qr_code” must be true or false."},
        {"payment_terms_days", "3651", "“payment_terms_days” must be a whole number from 0 to 3650."},
        {"late_fee_from_level", "0", "“late_fee_from_level” must be a whole number from 1 to 3."},
        {"time_rounding_minutes", "7", "“time_rounding_minutes” must be one of 0, 5, 6, 10, 15, 30, 60."},
        {"late_fee_percent", "5.5", "5.5"},
        {"hourly_rate", "90.5", "90.50"},
        {"hourly_rate", "-1", "“hourly_rate” can't be negative: a rate is 0 or more."},
        {"currency", "JPY", "“currency” can't become JPY: the hourly rate or the late fee has more decimals than it."},
        {"hourly_rate", "90", "90.00"},
        {"currency", "jpy", "JPY"},
        {"hourly_rate", "91", "91"}, // in yen now
        {"hidden_units", "hour, Stück", "hour,piece"},
        {"hidden_units", "parsec", "“hidden_units” names “parsec”, which is no unit of ours."},
        {"logo", "picture.png", "“logo” is read from a file."},
        {"nonsense", "1", "There is no setting “nonsense”."},
    };
    for (const Case& example : cases) {
        EXPECT_EQ(set(example.name, example.typed), example.answer) << example.name << " " << example.typed;
    }
}

TEST_F(BusinessSettingsTest, showsWhatAPatternMakesNow)
{
    EXPECT_EQ(BusinessSettings::entry(library.environment(), "invoice_number_format").note, "next: INV-2026-001");
    set("invoice_number_format", "{client}-{###,c}");
    EXPECT_EQ(BusinessSettings::entry(library.environment(), "invoice_number_format").note, "next: C-0001-001");
    set("file_name_format", "{number} {title}");
    EXPECT_EQ(BusinessSettings::entry(library.environment(), "file_name_format").note, "example: 2026-001 Website.pdf");
}

} // namespace
} // namespace Quillary
