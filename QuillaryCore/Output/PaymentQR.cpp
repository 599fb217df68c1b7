#include "QuillaryCore/Output/PaymentQR.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/Validation.h"

#include <qrencode.h>

#include <fmt/format.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>

namespace Quillary::PaymentQR {

namespace {

constexpr std::size_t longestName = 70;
constexpr std::size_t longestReference = 140;
constexpr std::size_t longestNote = 80;
constexpr std::int64_t amountLimit = 100'000'000'000; ///< in cents: one thousand million euros

/// Without line breaks and other control characters, trimmed, at most `length` characters.
std::string oneLine(std::string_view text, std::size_t length)
{
    std::string line = repairedUTF8(text);
    std::ranges::replace_if(
        line, [](char character) { return static_cast<unsigned char>(character) < ' ' || character == 0x7F; }, ' ');
    return std::string(graphemePrefix(trimmed(line), length));
}

/// "1190.00": both currencies have two minor digits.
std::string decimalText(const Money& amount)
{
    return fmt::format("{}.{:02}", amount.minorUnits() / 100, amount.minorUnits() % 100);
}

bool standsInQuery(char character)
{
    constexpr std::string_view signs = "-._~!$'()*,:@/?";
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z') || signs.find(character) != std::string_view::npos;
}

/// A value of a query: everything that does not stand there by itself (RFC 3986), or divides its items, as %XX. A plus
/// sign is among them, for payment apps would read it as a space.
std::string percentEncoded(std::string_view text)
{
    std::string result;
    for (const char character : text) {
        if (standsInQuery(character)) {
            result += character;
        } else {
            result += fmt::format("%{:02X}", static_cast<unsigned char>(character));
        }
    }
    return result;
}

struct QRcodeDeleter
{
    void operator()(QRcode* code) const { QRcode_free(code); }
};

std::unique_ptr<QRcode, QRcodeDeleter> encode(std::string_view payload)
{
    constexpr std::size_t mostBytes = 2'331; // a code of version 40 with error correction M
    if (payload.empty() || payload.size() > mostBytes) {
        return nullptr;
    }
    const auto* const bytes = reinterpret_cast<const unsigned char*>(payload.data());
    return std::unique_ptr<QRcode, QRcodeDeleter>(
        QRcode_encodeData(static_cast<int>(payload.size()), bytes, 0, QR_ECLEVEL_M));
}

/// One byte a pixel: 1 is black.
std::vector<std::uint8_t> drawn(const QRcode& code, std::size_t scale, std::size_t& side)
{
    constexpr std::size_t quietModules = 4;
    const auto modules = static_cast<std::size_t>(code.width);
    side = (modules + 2 * quietModules) * scale;
    std::vector<std::uint8_t> pixels(side * side, 0);
    for (std::size_t row = 0; row < modules; ++row) {
        const auto first = pixels.begin() + static_cast<std::ptrdiff_t>((row + quietModules) * scale * side);
        for (std::size_t column = 0; column < modules; ++column) {
            if ((code.data[row * modules + column] & 1U) != 0) {
                const auto start = first + static_cast<std::ptrdiff_t>((column + quietModules) * scale);
                std::fill(start, start + static_cast<std::ptrdiff_t>(scale), std::uint8_t{1});
            }
        }
        for (std::size_t copy = 1; copy < scale; ++copy) {
            const auto line = static_cast<std::ptrdiff_t>(side);
            std::copy(first, first + line, first + static_cast<std::ptrdiff_t>(copy) * line);
        }
    }
    return pixels;
}

/// Whom the money goes to.
std::string_view payee(const Business& business)
{
    return business.accountHolder.empty() ? business.name : business.accountHolder;
}

} // namespace

std::optional<Obstacle> obstacle(const Business& business)
{
    const std::string currency = upperCasedASCII(business.currencyCode);
    if (currency == "INR") {
        const std::string_view payeeID = trimmed(business.upiID);
        return payeeID.empty()                    ? std::optional(Obstacle::noUPI)
               : !Validation::isValidUPI(payeeID) ? std::optional(Obstacle::wrongUPI)
                                                  : std::nullopt;
    }
    if (currency != "EUR") {
        return Obstacle::otherCurrency;
    }
    if (trimmed(business.iban).empty()) {
        return Obstacle::noIBAN;
    }
    if (!Validation::isValidIBAN(business.iban)) {
        return Obstacle::wrongIBAN;
    }
    return oneLine(payee(business), longestName).empty() ? std::optional(Obstacle::noName) : std::nullopt;
}

std::optional<std::string> payload(Context& context,
                                   const Document& document,
                                   const Business& business,
                                   std::optional<std::int64_t> amountMinorUnits)
{
    if (kind(document) != DocumentKind::invoice) {
        return std::nullopt;
    }
    const std::string currency = upperCasedASCII(document.currencyCode);
    if (currency != "EUR" && currency != "INR") {
        return std::nullopt;
    }
    const Money amount(amountMinorUnits ? *amountMinorUnits : amountDueMinorUnits(context, document), currency);
    return currency == "EUR" ? epcPayload(payee(business), business.iban, business.bic, amount, document.number)
                             : upiPayload(business.upiID, payee(business), amount, document.number);
}

std::optional<std::string> epcPayload(
    std::string_view name, std::string_view iban, std::string_view bic, const Money& amount, std::string_view reference)
{
    const std::string holder = oneLine(name, longestName);
    const bool isPayable = amount.minorUnits() > 0 && amount.minorUnits() < amountLimit;
    if (amount.currencyCode() != "EUR" || !isPayable || !Validation::isValidIBAN(iban) || holder.empty()) {
        return std::nullopt;
    }
    // Service tag, version, character set (UTF-8), credit transfer; at the end no purpose and no structured reference.
    return fmt::format("BCD\n002\n1\nSCT\n{}\n{}\n{}\nEUR{}\n\n\n{}",
                       Validation::isValidBIC(bic) ? Validation::compactIBAN(bic) : std::string(),
                       holder,
                       Validation::compactIBAN(iban),
                       decimalText(amount),
                       oneLine(reference, longestReference));
}

std::optional<std::string>
upiPayload(std::string_view upiID, std::string_view name, const Money& amount, std::string_view note)
{
    const std::string_view payeeID = trimmed(upiID);
    if (amount.currencyCode() != "INR" || amount.minorUnits() < 1 || !Validation::isValidUPI(payeeID)) {
        return std::nullopt;
    }
    return fmt::format("upi://pay?pa={}&pn={}&am={}&cu=INR&tn={}",
                       percentEncoded(payeeID),
                       percentEncoded(repairedUTF8(trimmed(name))),
                       decimalText(amount),
                       percentEncoded(repairedUTF8(graphemePrefix(note, longestNote))));
}

std::optional<Bytes> png(std::string_view payload, int scale)
{
    precondition(scale >= 1 && scale <= 64, "a QR code is drawn with 1 to 64 pixels to the module");
    const auto code = encode(payload);
    if (code == nullptr) {
        return std::nullopt;
    }
    std::size_t side = 0;
    const std::vector<std::uint8_t> pixels = drawn(*code, static_cast<std::size_t>(scale), side);
    constexpr std::array<std::uint8_t, 6> whiteAndBlack = {255, 255, 255, 0, 0, 0};

    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(side);
    image.height = static_cast<png_uint_32>(side);
    image.format = PNG_FORMAT_RGB_COLORMAP;
    image.colormap_entries = 2;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    Bytes bytes(size);
    const int written = png_image_write_to_memory(
        &image, bytes.data(), &size, 0, pixels.data(), static_cast<png_int_32>(side), whiteAndBlack.data());
    if (written == 0) {
        return std::nullopt;
    }
    bytes.resize(size);
    return bytes;
}

} // namespace Quillary::PaymentQR
