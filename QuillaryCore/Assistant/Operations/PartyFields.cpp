#include "QuillaryCore/Assistant/Operations/PartyFields.h"

#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Countries.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/Validation.h"

namespace Quillary {

std::optional<std::string> countryArgument(const Arguments& arguments)
{
    std::optional<std::string> country = arguments.line("country", Limits::lineLength);
    if (country) {
        *country = upperCasedASCII(*country);
        if (!country->empty() && !Countries::isKnown(*country)) {
            arguments.refuse("country", "must be a two-letter ISO country code such as DE.");
        }
    }
    return country;
}

std::optional<std::string> emailArgument(const Arguments& arguments)
{
    std::optional<std::string> email = arguments.line("email", Limits::lineLength);
    if (email && !email->empty() && !Validation::isValidEmail(*email)) {
        arguments.refuse("email", "must be an email address such as name@example.com.");
    }
    return email;
}

std::string compactVATID(std::string_view text)
{
    return Validation::compactVATID(plainText(text));
}

std::optional<std::string> vatIDArgument(const Arguments& arguments)
{
    std::optional<std::string> vatID = arguments.line("vat_id", Limits::lineLength);
    if (vatID && saysNone(*vatID)) {
        return "";
    }
    if (vatID && !vatID->empty()) {
        *vatID = compactVATID(*vatID);
        const bool hasDigit = vatID->find_first_of("0123456789") != std::string::npos; // "UNKNOWN" is none
        if (!hasDigit || !Validation::isValidVATID(*vatID)) {
            arguments.refuse("vat_id", "doesn't have the form of a VAT ID, such as ATU12345678 or DE123456789.");
        }
    }
    return vatID;
}

bool saysNone(std::string_view vatID)
{
    return lowerCasedASCII(trimmed(vatID)) == "none";
}

std::optional<std::string> ibanArgument(const Arguments& arguments)
{
    std::optional<std::string> iban = arguments.line("iban", Limits::lineLength);
    if (iban) {
        *iban = Validation::compactIBAN(*iban);
        if (!iban->empty() && !Validation::isValidIBAN(*iban)) {
            arguments.refuse("iban", "isn't a valid IBAN: its check digits or its length are wrong.");
        }
    }
    return iban;
}

std::optional<std::string> bicArgument(const Arguments& arguments)
{
    std::optional<std::string> bic = arguments.line("bic", Limits::lineLength);
    if (bic) {
        *bic = upperCasedASCII(replacing(*bic, " ", ""));
        if (!bic->empty() && !Validation::isValidBIC(*bic)) {
            arguments.refuse("bic", "isn't a valid BIC: it has 8 or 11 characters, such as COBADEFFXXX.");
        }
    }
    return bic;
}

} // namespace Quillary
