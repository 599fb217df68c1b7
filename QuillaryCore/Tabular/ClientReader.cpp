#include "QuillaryCore/Tabular/ClientReader.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/Validation.h"
#include "QuillaryCore/Tabular/EmailCell.h"
#include "QuillaryCore/Tabular/ImportCell.h"
#include "QuillaryCore/Tabular/ImportText.h"
#include "QuillaryCore/Tabular/NameCells.h"
#include "QuillaryCore/Tabular/PostalCell.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace Quillary {

namespace {

using Reason = ImportWarning::Reason;

/// How much of a cell is shown in a sentence. Unit: characters.
constexpr std::size_t quotedLength = 60;

std::string inQuotes(std::string_view text)
{
    const std::string_view start = graphemePrefix(text, quotedLength);
    return fmt::format("“{}{}”", start, start.size() < text.size() ? "…" : "");
}

void appendLine(std::string& text, std::string_view line)
{
    if (!line.empty()) {
        text += text.empty() ? "" : "\n";
        text += line;
    }
}

} // namespace

/// Reads one row.
class ClientReader::RowReader
{
public:
    RowReader(ClientReader& reader, const CSVRow& row, ReadClient& result)
        : m_reader(reader)
        , m_row(row)
        , m_result(result)
    {
    }

    void read()
    {
        readName();
        readContacts();
        readAddress();
        readCodes();
        readIDs();
        Client& client = m_result.client;
        for (const std::size_t column : m_reader.m_columns.columns(ClientField::notes)) {
            appendLine(client.notes, ImportCell::lines(m_row.cell(column)));
        }
        appendLine(client.notes, m_keptText);
        limit(client.notes, "notes", Limits::textLength);
        m_result.isEmpty =
            client.name.empty() && client.firstName.empty() && client.lastName.empty() && client.email.empty();
        if (!m_result.isEmpty && client.name.empty() && client.firstName.empty() && client.lastName.empty()) {
            warn(Reason::noName, "There is no name; the email address stands for it.");
        }
    }

private:
    /// The first cell of a field's columns that says something.
    [[nodiscard]] std::string text(ClientField field) const
    {
        for (const std::size_t column : m_reader.m_columns.columns(field)) {
            if (std::string found = ImportCell::line(m_row.cell(column)); !found.empty()) {
                return found;
            }
        }
        return {};
    }

    void warn(Reason reason, std::string_view message) { m_result.warnings.push_back({reason, std::string(message)}); }

    /// Puts what the client has no place for into the notes, under the heading that it had.
    void keep(ClientField field, std::string_view value)
    {
        const auto& columns = m_reader.m_columns.columns(field);
        const auto holds = [&](std::size_t column) {
            return !ImportCell::line(m_row.cell(column)).empty();
        };
        const auto column = std::ranges::find_if(columns, holds);
        precondition(column != columns.end(), "what is kept stands in a cell");
        appendLine(m_keptText, fmt::format("{}: {}", m_reader.m_columns.title(*column), value));
    }

    void warnAndKeep(Reason reason, ClientField field, std::string_view value, std::string_view message)
    {
        warn(reason, fmt::format("{}; it is kept in the notes.", message));
        keep(field, value);
    }

    void limit(std::string& value, std::string_view what, std::size_t characters = Limits::lineLength)
    {
        if (value.size() > characters && graphemeCount(value) > characters) {
            value = trimmed(graphemePrefix(value, characters));
            warn(Reason::tooLong, fmt::format("Only the first {} characters of the {} are kept.", characters, what));
        }
    }

    void warnIfShortened(std::string_view value)
    {
        if (ImportCell::isShortenedNumber(value)) {
            warn(Reason::shortenedNumber,
                 fmt::format("{} is what a spreadsheet program left of a longer number.", inQuotes(value)));
        }
    }

    void readName()
    {
        NameCells cells{.company = text(ClientField::company),
                        .name = text(ClientField::name),
                        .first = text(ClientField::firstName),
                        .last = text(ClientField::lastName),
                        .kind = std::nullopt,
                        .hasCompanyColumn = !m_reader.m_columns.columns(ClientField::company).empty()};
        const std::string kindText = text(ClientField::kind);
        if (!kindText.empty()) {
            cells.kind = remembered(m_reader.m_kinds, kindText, ImportText::kind);
            if (!cells.kind) {
                warnAndKeep(Reason::unknownKind,
                            ClientField::kind,
                            kindText,
                            fmt::format("{} is neither a company nor a person", inQuotes(kindText)));
            }
        }
        ClientNames names = clientNames(std::move(cells));
        Client& client = m_result.client;
        client.kindRaw = static_cast<std::int16_t>(names.kind);
        client.name = std::move(names.name);
        client.firstName = std::move(names.first);
        client.lastName = std::move(names.last);
        m_result.contactPerson = std::move(names.contactPerson);
        limit(client.name, "name");
        limit(client.firstName, "first name");
        limit(client.lastName, "last name");
        limit(m_result.contactPerson, "contact person");
    }

    void readContacts()
    {
        Client& client = m_result.client;
        const std::string emailText = text(ClientField::email);
        EmailCell email = emailCell(emailText);
        if (email.isValid) {
            client.email = std::move(email.address);
        } else if (!emailText.empty()) {
            warnAndKeep(Reason::invalidEmail,
                        ClientField::email,
                        emailText,
                        fmt::format("{} is no email address", inQuotes(emailText)));
        }
        for (const std::string& other : email.others) {
            keep(ClientField::email, other);
        }
        client.phone = text(ClientField::phone);
        client.website = text(ClientField::website);
        warnIfShortened(client.phone);
        limit(client.email, "email address");
        limit(client.phone, "phone number");
        limit(client.website, "website");
    }

    void readAddress()
    {
        Client& client = m_result.client;
        for (const std::size_t column : m_reader.m_columns.columns(ClientField::street)) {
            if (client.addressLine.empty()) {
                client.addressLine = ImportCell::lines(m_row.cell(column));
            }
        }
        for (const std::size_t column : m_reader.m_columns.columns(ClientField::street2)) {
            appendLine(client.addressLine, ImportCell::lines(m_row.cell(column)));
        }
        PostalCell postal = postalCell(text(ClientField::postalCode), text(ClientField::city));
        client.postalCode = std::move(postal.code);
        client.city = std::move(postal.city);
        client.state = text(ClientField::state);
        limit(client.addressLine, "address");
        limit(client.postalCode, "postal code");
        limit(client.city, "city");
        limit(client.state, "state");
    }

    template <class Value, class Reader>
    static const std::optional<Value>& remembered(Cache<Value>& cache, const std::string& text, const Reader& read)
    {
        const auto known = cache.find(text);
        return known != cache.end() ? known->second : cache.emplace(text, read(text)).first->second;
    }

    void readCodes()
    {
        Client& client = m_result.client;
        if (const std::string country = text(ClientField::country); !country.empty()) {
            const auto& code = remembered(m_reader.m_countries, country, ImportText::countryCode);
            client.countryCode = code.value_or("");
            if (!code) {
                warnAndKeep(Reason::unknownCountry,
                            ClientField::country,
                            country,
                            fmt::format("{} is no known country", inQuotes(country)));
            }
        }
        if (const std::string currency = text(ClientField::currency); !currency.empty()) {
            const auto& code = remembered(m_reader.m_currencies, currency, ImportText::currencyCode);
            client.currencyCode = code.value_or("");
            if (!code) {
                warnAndKeep(Reason::unknownCurrency,
                            ClientField::currency,
                            currency,
                            fmt::format("{} is no known currency", inQuotes(currency)));
            }
        }
        if (const std::string language = text(ClientField::language); !language.empty()) {
            const auto& known = remembered(m_reader.m_languages, language, ImportText::language);
            client.languageCode = known ? std::string(code(*known)) : "";
            if (!known) {
                warnAndKeep(Reason::unknownLanguage,
                            ClientField::language,
                            language,
                            fmt::format("Documents can't be written in {}", inQuotes(language)));
            }
        }
    }

    void readIDs()
    {
        Client& client = m_result.client;
        client.number = text(ClientField::number);
        const std::string vatID = text(ClientField::vatID);
        client.taxID = text(ClientField::taxID);
        warnIfShortened(client.number);
        warnIfShortened(vatID);
        warnIfShortened(client.taxID);
        if (!vatID.empty()) {
            const bool hasDigit = vatID.find_first_of("0123456789") != std::string::npos; // "exempt" is none
            const bool isValid = hasDigit && Validation::isValidVATID(vatID);
            if (isValid) {
                client.vatID = Validation::compactVATID(vatID);
            } else {
                warnAndKeep(Reason::invalidVATID,
                            ClientField::vatID,
                            vatID,
                            fmt::format("{} doesn't have the form of a VAT ID", inQuotes(vatID)));
            }
        }
        limit(client.number, "client number");
        limit(client.vatID, "VAT ID");
        limit(client.taxID, "tax ID");
    }

    ClientReader& m_reader;
    const CSVRow& m_row;
    ReadClient& m_result;
    std::string m_keptText; ///< lines for the notes
};

ClientReader::ClientReader(ImportColumns columns)
    : m_columns(std::move(columns))
{
}

ReadClient ClientReader::read(const CSVRow& row)
{
    ReadClient result;
    RowReader(*this, row, result).read();
    return result;
}

} // namespace Quillary
