#include "QuillaryCore/Output/PrintedTerms.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/TaxLabel.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Quillary::PrintedTerms {

namespace {

/// A word in each language, in the order of `DocumentLanguage`.
using Word = std::array<std::string_view, allDocumentLanguages.size()>;

constexpr Word vatWords = {"VAT", "USt.", "TVA", "IVA", "Btw", "IVA"};
constexpr Word salesTaxWords = {"Sales Tax",
                                "Verkaufssteuer",
                                "Taxe de vente",
                                "Impuesto sobre ventas",
                                "Verkoopbelasting",
                                "Imposta sulle vendite"};
constexpr Word taxWords = {"Tax", "Steuer", "Taxe", "Impuesto", "Belasting", "Imposta"};
constexpr Word vatIDWords = {"VAT ID", "USt-IdNr.", "N° TVA", "NIF-IVA", "Btw-nummer", "Partita IVA"};
constexpr Word swissVATWords = {"VAT no.", "MWST-Nr.", "N° TVA", "N.º de IVA", "Btw-nummer", "N. IVA"};
constexpr Word feeWords = {"Fee", "Zuschlag", "Frais", "Recargo", "Toeslag", "Spese"};

struct NationalTerm
{
    std::string_view countryCode;
    std::string_view word;
};

/// Numbers that go by their name at home in every language.
constexpr NationalTerm nationalTerms[] = {
    {"AU", "ABN"}, {"CA", "GST/HST no."}, {"IN", "GSTIN"}, {"NZ", "GST no."}, {"SG", "GST reg. no."}};

std::string_view in(DocumentLanguage language, const Word& word)
{
    return word.at(static_cast<std::size_t>(language));
}

} // namespace

std::string tax(const Business& business, DocumentLanguage language)
{
    switch (taxLabel(business)) {
    case TaxLabel::vat:
        // The Swiss tax has its own German abbreviation.
        return std::string(language == DocumentLanguage::german && upperCasedASCII(business.countryCode) == "CH"
                               ? "MWST"
                               : in(language, vatWords));
    case TaxLabel::gst:
        return "GST";
    case TaxLabel::salesTax:
        return std::string(in(language, salesTaxWords));
    case TaxLabel::tax:
        return std::string(in(language, taxWords));
    case TaxLabel::custom:
        break;
    }
    const std::string_view custom = trimmed(business.customTaxLabel);
    return std::string(custom.empty() ? in(language, taxWords) : custom);
}

std::string_view vatID(std::string_view countryCode, DocumentLanguage language)
{
    const std::string code = upperCasedASCII(countryCode);
    if (code == "CH" || code == "LI") {
        return in(language, swissVATWords);
    }
    const auto* const national = std::ranges::find(nationalTerms, code, &NationalTerm::countryCode);
    return national == std::end(nationalTerms) ? in(language, vatIDWords) : national->word;
}

std::string_view fee(DocumentLanguage language)
{
    return in(language, feeWords);
}

std::string percentage(std::int32_t basisPoints, const Locale& locale, DocumentLanguage language)
{
    std::string text = locale.formatDecimal(basisPoints, 2, 0);
    switch (language) {
    case DocumentLanguage::german:
    case DocumentLanguage::french:
    case DocumentLanguage::spanish:
        text += "\u00A0%"; // not to be torn apart at a line's end
        break;
    case DocumentLanguage::english:
    case DocumentLanguage::dutch:
    case DocumentLanguage::italian:
        text += '%';
        break;
    }
    return text;
}

} // namespace Quillary::PrintedTerms
