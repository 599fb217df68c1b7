#include "QuillaryCore/Output/PrintedParties.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Output/PostalAddress.h"
#include "QuillaryCore/Output/PrintSource.h"
#include "QuillaryCore/Output/PrintedDocument.h"
#include "QuillaryCore/Output/PrintedTerms.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

namespace Quillary::PrintedParties {

namespace {

using Key = DocumentStrings::Key;

constexpr std::string_view separator = " · ";

void add(std::vector<std::string>& lines, std::string_view line)
{
    const std::string_view text = trimmed(line);
    if (!text.empty()) {
        lines.emplace_back(text);
    }
}

/// "USt-IdNr. DE123456789"
void addLabelled(std::vector<std::string>& lines, std::string_view label, std::string_view value)
{
    const std::string_view text = trimmed(value);
    if (!text.empty()) {
        std::string& line = lines.emplace_back();
        line.reserve(label.size() + 1 + text.size());
        line.append(label).append(1, ' ').append(text);
    }
}

std::string joined(std::string_view first, std::span<const std::string> others)
{
    std::size_t size = first.size();
    for (const std::string& text : others) {
        size += separator.size() + text.size();
    }
    std::string result;
    result.reserve(size);
    result = first;
    for (const std::string& text : others) {
        result.append(result.empty() ? std::string_view() : separator).append(text);
    }
    return result;
}

bool isPNG(const Bytes& bytes)
{
    constexpr std::array<std::uint8_t, 16> beginning = {
        0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13, 'I', 'H', 'D', 'R'};
    return bytes.size() > beginning.size() && std::ranges::equal(std::span(bytes).first(beginning.size()), beginning);
}

} // namespace

Bytes logo(const Business& business)
{
    return isPNG(business.logoData) ? business.logoData : Bytes();
}

void addSeller(PrintedDocument& printed, const PrintSource& source)
{
    const Business& business = source.business;
    printed.logo = logo(business);
    printed.sellerName = trimmed(business.name);
    printed.sellerAddress = PostalAddress::of(business).lines();
    if (source.crossesBorder()) {
        printed.sellerAddress.push_back(source.locale.countryName(business.countryCode));
    }
    if (business.showSellerContact) {
        add(printed.sellerContact, business.phone);
        add(printed.sellerContact, business.email);
        add(printed.sellerContact, business.website);
    }
    printed.sender = joined(printed.sellerName, printed.sellerAddress);
}

void addBuyer(PrintedDocument& printed, const PrintSource& source)
{
    if (source.client == nullptr) {
        return;
    }
    const Client& client = *source.client;
    printed.buyerName = displayName(client);
    printed.buyerAddress = PostalAddress::of(client).lines();
    if (source.crossesBorder()) {
        printed.buyerAddress.push_back(source.locale.countryName(client.countryCode));
    }
    const DocumentStrings& strings = source.strings;
    addLabelled(printed.buyerIdentifiers, PrintedTerms::vatID(client.countryCode, strings.language()), client.vatID);
    addLabelled(printed.buyerIdentifiers, strings.text(Key::taxNumber), client.taxID);
}

void addFooter(PrintedDocument& printed, const PrintSource& source)
{
    const Business& business = source.business;
    const DocumentStrings& strings = source.strings;
    std::vector<std::string> identifiers;
    addLabelled(identifiers, PrintedTerms::vatID(business.countryCode, strings.language()), business.vatID);
    addLabelled(identifiers, strings.text(Key::taxNumber), business.taxID);
    if (identifiers.size() > 1) {
        identifiers = {joined({}, identifiers)};
    }
    printed.footerLines = std::move(identifiers);
    printed.footNote = trimmed(business.footerNote);
}

} // namespace Quillary::PrintedParties
