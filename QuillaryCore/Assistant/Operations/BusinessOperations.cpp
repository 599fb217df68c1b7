#include "QuillaryCore/Assistant/Description/DocumentDescription.h"
#include "QuillaryCore/Assistant/Operations/Operations.h"
#include "QuillaryCore/Assistant/Operations/PartyFields.h"
#include "QuillaryCore/Assistant/Review/DocumentReview.h"
#include "QuillaryCore/Assistant/Review/VATArea.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/Countries.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/NumberedKind.h"
#include "QuillaryCore/Model/TaxLabel.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TaxRates.h"
#include "QuillaryCore/Numbering/Numbering.h"
#include "QuillaryCore/Numbering/NumberingError.h"

#include <fmt/format.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

/// Of the reason for charging no tax. Unit: bytes.
constexpr std::size_t shownBytes = 2000;

constexpr std::array textFields = {TextField<Business>{"name", &Business::name},
                                   TextField<Business>{"phone", &Business::phone},
                                   TextField<Business>{"website", &Business::website},
                                   TextField<Business>{"address_line", &Business::addressLine},
                                   TextField<Business>{"postal_code", &Business::postalCode},
                                   TextField<Business>{"city", &Business::city},
                                   TextField<Business>{"state", &Business::state},
                                   TextField<Business>{"tax_id", &Business::taxID},
                                   TextField<Business>{"account_holder", &Business::accountHolder},
                                   TextField<Business>{"bank_name", &Business::bankName}};

void applyBank(Business& business, const Arguments& arguments)
{
    if (auto iban = ibanArgument(arguments)) {
        business.iban = std::move(*iban);
    }
    if (auto bic = bicArgument(arguments)) {
        business.bic = std::move(*bic);
    }
}

void applyTax(Business& business, const Arguments& arguments)
{
    if (auto vatID = vatIDArgument(arguments)) {
        business.vatID = std::move(*vatID);
    }
    if (const auto exempt = arguments.flag("tax_exempt")) {
        business.taxExempt = *exempt;
    }
    if (auto note = arguments.paragraphs("tax_exempt_note", Limits::textLength)) {
        business.taxExemptNote = std::move(*note);
    }
}

/// True when the country's usual currency, tax and paper were taken over.
bool applyCountry(const AssistantEnvironment& environment, Business& business, const Arguments& arguments)
{
    const std::optional<std::string> country = countryArgument(arguments);
    return country && setCountry(environment.context, business, *country);
}

struct NextNumber
{
    std::string_view key;
    std::string_view noun;
    NumberedKind kind;
};

constexpr std::array nextNumbers = {NextNumber{"invoice", "invoice", NumberedKind::invoice},
                                    NextNumber{"quote", "quote", NumberedKind::quote},
                                    NextNumber{"credit_note", "credit note", NumberedKind::creditNote},
                                    NextNumber{"client", "client", NumberedKind::client}};

/// The number that comes next, or why there is none. Both are empty where a pattern counts for each client by itself.
struct Upcoming
{
    std::string number;
    std::string problem;
};

Upcoming upcoming(const AssistantEnvironment& environment, NumberedKind kind)
{
    try {
        const Numbering::Next next = Numbering::peek(environment.context,
                                                     kind,
                                                     environment.clock.now(),
                                                     nullptr,
                                                     environment.ownBusiness(),
                                                     environment.calendar);
        return {.number = next.number, .problem = {}};
    } catch (const NumberingError& error) {
        const bool waitsForClient = error.reason() == NumberingError::Reason::missingClient ||
                                    error.reason() == NumberingError::Reason::missingClientNumber;
        return {.number = {}, .problem = waitsForClient ? "" : error.message()};
    }
}

JSON detailsData(const Business& business)
{
    return JSON::object({{"name", business.name},
                         {"email", business.email},
                         {"phone", business.phone},
                         {"website", business.website},
                         {"address_line", business.addressLine},
                         {"postal_code", business.postalCode},
                         {"city", business.city},
                         {"state", business.state},
                         {"country", business.countryCode},
                         {"vat_id", business.vatID},
                         {"tax_id", business.taxID},
                         {"account_holder", business.accountHolder},
                         {"bank_name", business.bankName},
                         {"iban", business.iban},
                         {"bic", business.bic},
                         {"tax_exempt", business.taxExempt},
                         {"tax_exempt_note", shortened(business.taxExemptNote, shownBytes)},
                         {"currency", business.currencyCode},
                         {"language", business.languageCode},
                         {"payment_terms_days", business.paymentTermsDays}});
}

std::string detailsText(const Business& business)
{
    std::string text;
    const JSON data = detailsData(business);
    for (const auto& [key, value] : *data.object()) {
        const std::string shown =
            value.boolean() != nullptr ? (*value.boolean() ? "yes" : "no") : value.text().value_or("");
        if (!shown.empty()) {
            text += fmt::format("{}: {}\n", key, plainText(shown));
        }
    }
    return text;
}

void appendRates(const AssistantEnvironment& environment, std::string& answer, JSON& data)
{
    JSON::Array rates;
    std::string text;
    for (const TaxRate* rate : TaxRates::all(environment.context)) {
        const std::string figure = rateFigure(rate->basisPoints);
        JSON entry = JSON::object({{"name", rate->name}, {"rate", JSON::Number{figure}}, {"default", rate->isDefault}});
        const std::string shown = fmt::format("{}{}% ({}{})",
                                              text.empty() ? "" : "; ",
                                              figure,
                                              plainText(rate->name),
                                              rate->isDefault ? ", default" : "");
        rates.push_back(std::move(entry));
        text += shown;
    }
    answer += fmt::format(
        "tax: {}; rates: {}\n", plainText(taxLabelText(environment.ownBusiness())), text.empty() ? "none" : text);
    data.set("tax_label", taxLabelText(environment.ownBusiness()));
    data.set("tax_rates", std::move(rates));
}

void appendNumbers(const AssistantEnvironment& environment, std::string& answer, JSON& data)
{
    JSON numbers = JSON::object({});
    std::string text;
    for (const NextNumber& next : nextNumbers) {
        if (const std::string number = upcoming(environment, next.kind).number; !number.empty()) {
            numbers.set(next.key, number);
            text += fmt::format("{} {} {}", text.empty() ? "" : ";", next.key, plainText(number));
        }
    }
    answer += text.empty() ? "" : fmt::format("next numbers:{}\n", text);
    data.set("next_numbers", std::move(numbers));
}

void appendProblems(const AssistantEnvironment& environment, std::string& answer, JSON& data)
{
    const Business& own = environment.ownBusiness();
    JSON::Array problems;
    const bool inEU = VATArea::of(own, Supply::services).isInEU();
    std::vector<ReviewProblem> found = DocumentReview::businessProblems(own, own.countryCode, inEU, own.taxExempt);
    for (const NextNumber& next : nextNumbers) {
        if (const std::string problem = upcoming(environment, next.kind).problem; !problem.empty()) {
            found.push_back({.problem = fmt::format("No {} can be numbered: {}", next.noun, problem),
                             .fix = "Correct the number format in Quillary › Settings › Numbering."});
        }
    }
    for (const ReviewProblem& entry : found) {
        if (problems.empty()) {
            answer += "Missing for legally complete invoices:\n";
        }
        answer += fmt::format("- {} {}\n", entry.problem, entry.fix);
        problems.push_back(JSON::object({{"problem", entry.problem}, {"fix", entry.fix}}));
    }
    if (problems.empty()) {
        answer += "Nothing is missing for legally complete invoices.\n";
    }
    data.set("problems", std::move(problems));
}

} // namespace

ToolResult BusinessOperations::profile(const AssistantEnvironment& environment)
{
    std::string answer = detailsText(environment.ownBusiness());
    JSON data = detailsData(environment.ownBusiness());
    appendRates(environment, answer, data);
    appendNumbers(environment, answer, data);
    appendProblems(environment, answer, data);
    return {.text = std::move(answer), .data = std::move(data)};
}

ToolResult BusinessOperations::update(const AssistantEnvironment& environment, const Arguments& arguments)
{
    Business& own = environment.context.edit(environment.ownBusiness());
    applyTexts(own, std::span<const TextField<Business>>(textFields), arguments, Limits::lineLength);
    if (auto email = emailArgument(arguments)) {
        own.email = std::move(*email);
    }
    const bool adopted = applyCountry(environment, own, arguments);
    applyTax(own, arguments);
    applyBank(own, arguments);
    ToolResult result = profile(environment);
    const std::string note = adopted ? fmt::format("Took over what is usual in {}: currency, tax and paper.\n",
                                                   environment.locale.countryName(own.countryCode))
                                     : "";
    result.text = "Saved your business details.\n" + note + result.text;
    result.summary = "Changed the business details";
    return result;
}

} // namespace Quillary
