#pragma once

#include "QuillaryCore/Store/Field.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

/// The user's own business; a library holds one.
struct Business : Record<Business>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::optional<Instant> createdAt;
    std::string name;
    std::string email;
    std::string phone;
    std::string website;
    std::string addressLine;
    std::string postalCode;
    std::string city;
    std::string state;
    std::string countryCode; ///< ISO 3166-1 alpha-2
    std::string vatID;
    std::string taxID;
    Bytes logoData; ///< PNG
    std::string accountHolder;
    std::string bankName;
    std::string iban; ///< ISO 13616
    std::string bic;  ///< ISO 9362
    std::string accountNumber;
    std::string bankCode;
    std::string upiID;        ///< name@bank
    std::string currencyCode; ///< ISO 4217
    std::string languageCode; ///< `DocumentLanguage`
    std::int16_t paymentTermsDays = 0;
    std::int16_t taxLabelRaw = 0; ///< `TaxLabel`
    std::string customTaxLabel;
    bool taxExempt = false;
    std::string taxExemptNote;
    std::string invoiceNumberFormat; ///< `NumberFormat` pattern
    std::string quoteNumberFormat;
    std::string creditNoteNumberFormat;
    std::string clientNumberFormat;
    std::string fileNameFormat; ///< `FileNameFormat` pattern
    std::string hiddenUnits;    ///< codes of built-in units hidden from pickers, separated by commas
    std::string templateID;     ///< `TemplateDesign`
    std::string accentColorHex; ///< "#RRGGBB"
    std::string templateFont;   ///< `TemplateFont`
    std::string logoPosition;   ///< `LogoPosition`
    std::string logoSize;       ///< `LogoSize`
    std::string paperSize;      ///< `PaperSize`
    bool showClientNumber = false;
    bool showSellerContact = false;
    bool showPaymentQRCode = false;
    std::string footerNote;
    std::int64_t hourlyRateMinorUnits = 0; ///< in `currencyCode`
    std::int16_t timeRoundingMinutes = 0;
    std::int16_t reminderPaymentDays = 0;
    std::int16_t lateFeeKindRaw = 0;    ///< `LateFeeKind`
    std::int64_t lateFeeMinorUnits = 0; ///< in `currencyCode`
    std::int32_t lateFeeBasisPoints = 0;
    std::int16_t lateFeeFromLevel = 0; ///< the first reminder level that carries a fee, 1 to 3; 0 means the second
    std::string invoiceIntroText;
    std::string invoiceOutroText;
    std::string quoteIntroText;
    std::string quoteOutroText;

    static constexpr std::string_view entityName = "Business";

    // The patterns that a new business starts with.
    static constexpr std::string_view defaultInvoiceFormat = "INV-{yyyy}-{###,y}";
    static constexpr std::string_view defaultQuoteFormat = "Q-{yyyy}-{###,y}";
    static constexpr std::string_view defaultCreditNoteFormat = "CN-{yyyy}-{###,y}";
    static constexpr std::string_view defaultClientFormat = "C-{####}";
    static constexpr std::string_view defaultFileNameFormat = "{type} {number} - {client}";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &Business::uuid},
                          Field{"createdAt", &Business::createdAt},
                          Field{"name", &Business::name},
                          Field{"email", &Business::email},
                          Field{"phone", &Business::phone},
                          Field{"website", &Business::website},
                          Field{"addressLine", &Business::addressLine},
                          Field{"postalCode", &Business::postalCode},
                          Field{"city", &Business::city},
                          Field{"state", &Business::state},
                          Field{"countryCode", &Business::countryCode},
                          Field{"vatID", &Business::vatID},
                          Field{"taxID", &Business::taxID},
                          Field{"logoData", &Business::logoData},
                          Field{"accountHolder", &Business::accountHolder},
                          Field{"bankName", &Business::bankName},
                          Field{"iban", &Business::iban},
                          Field{"bic", &Business::bic},
                          Field{"accountNumber", &Business::accountNumber},
                          Field{"bankCode", &Business::bankCode},
                          Field{"upiID", &Business::upiID},
                          Field{"currencyCode", &Business::currencyCode},
                          Field{"languageCode", &Business::languageCode},
                          Field{"paymentTermsDays", &Business::paymentTermsDays},
                          Field{"taxLabelRaw", &Business::taxLabelRaw},
                          Field{"customTaxLabel", &Business::customTaxLabel},
                          Field{"taxExempt", &Business::taxExempt},
                          Field{"taxExemptNote", &Business::taxExemptNote},
                          Field{"invoiceNumberFormat", &Business::invoiceNumberFormat},
                          Field{"quoteNumberFormat", &Business::quoteNumberFormat},
                          Field{"creditNoteNumberFormat", &Business::creditNoteNumberFormat},
                          Field{"clientNumberFormat", &Business::clientNumberFormat},
                          Field{"fileNameFormat", &Business::fileNameFormat},
                          Field{"hiddenUnits", &Business::hiddenUnits},
                          Field{"templateID", &Business::templateID},
                          Field{"accentColorHex", &Business::accentColorHex},
                          Field{"templateFont", &Business::templateFont},
                          Field{"logoPosition", &Business::logoPosition},
                          Field{"logoSize", &Business::logoSize},
                          Field{"paperSize", &Business::paperSize},
                          Field{"showClientNumber", &Business::showClientNumber},
                          Field{"showSellerContact", &Business::showSellerContact},
                          Field{"showPaymentQRCode", &Business::showPaymentQRCode},
                          Field{"footerNote", &Business::footerNote},
                          Field{"hourlyRateMinorUnits", &Business::hourlyRateMinorUnits},
                          Field{"timeRoundingMinutes", &Business::timeRoundingMinutes},
                          Field{"reminderPaymentDays", &Business::reminderPaymentDays},
                          Field{"lateFeeKindRaw", &Business::lateFeeKindRaw},
                          Field{"lateFeeMinorUnits", &Business::lateFeeMinorUnits},
                          Field{"lateFeeBasisPoints", &Business::lateFeeBasisPoints},
                          Field{"lateFeeFromLevel", &Business::lateFeeFromLevel},
                          Field{"invoiceIntroText", &Business::invoiceIntroText},
                          Field{"invoiceOutroText", &Business::invoiceOutroText},
                          Field{"quoteIntroText", &Business::quoteIntroText},
                          Field{"quoteOutroText", &Business::quoteOutroText}};
    }

    static constexpr auto references() { return std::tuple{}; }

    friend bool operator==(const Business&, const Business&) = default;
};

} // namespace Quillary
