#pragma once

#include "QuillaryCore/Model/DocumentLanguage.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace Quillary {

/// A made-up company.
struct SampleParty
{
    std::string_view name;
    std::string_view addressLine;
    std::string_view postalCode;
    std::string_view city;
    std::string_view state;
    std::string_view countryCode;
    std::string_view vatID;
};

/// Title and details of a line.
struct SampleLineText
{
    std::string_view title;
    std::string_view details;
};

/// All words of the sample documents in one language: a design studio of that language's country, its clients and its
/// work. Every name is made up; account numbers are the published examples of their standards.
struct SampleTexts
{
    SampleParty business;
    SampleParty homeClient;
    SampleParty foreignClient;
    std::string_view currencyCode;
    std::int32_t standardRate; ///< basis points
    std::int32_t reducedRate;
    std::string_view phone;
    std::string_view email;
    std::string_view website;
    std::string_view taxID;
    std::string_view bankName;
    std::string_view iban;
    std::string_view bic;
    std::string_view footerNote;

    std::string_view invoiceTitle;
    std::string_view invoiceIntro;
    std::string_view invoiceOutro;
    std::string_view quoteTitle;
    std::string_view quoteIntro;
    std::string_view quoteOutro;
    std::string_view creditIntro;
    std::string_view supportTitle;
    std::string_view reverseChargeNote;
    std::string_view discountTitle;
    std::string_view feeTitle;

    SampleLineText design;
    SampleLineText build; ///< a heading
    SampleLineText templates;
    SampleLineText editor;
    SampleLineText handbook;
    SampleLineText training;
    SampleLineText hosting;
    SampleLineText optionHeading;
    SampleLineText option;
    std::array<SampleLineText, 6> support; ///< entries of a time sheet
};

[[nodiscard]] const SampleTexts& sampleTexts(DocumentLanguage language);

} // namespace Quillary
