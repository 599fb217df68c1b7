#include "QuillaryCore/Assistant/BusinessReview.h"

#include "QuillaryCore/Model/Business.h"

#include <fmt/format.h>

namespace Quillary {

namespace {

/// Countries whose invoices must carry a tax number when there is no VAT ID.
std::string_view taxNumberCountry(std::string_view country)
{
    if (country == "DE") {
        return "Germany";
    }
    return country == "AT" ? "Austria" : "";
}

} // namespace

std::vector<ReviewProblem>
businessProblems(const Business& business, std::string_view country, bool inEU, bool taxExempt)
{
    std::vector<ReviewProblem> problems;
    const auto add = [&](std::string problem) {
        problems.push_back({.problem = std::move(problem),
                            .fix = "Set it once with update_business_profile, or in Quillary › Settings › Business."});
    };
    if (business.name.empty()) {
        add("Your business name is missing.");
    }
    if (inEU && (business.addressLine.empty() || business.city.empty())) {
        add("Your address is missing; invoices must show it.");
    }
    if (!business.vatID.empty() || !business.taxID.empty()) {
        return problems;
    }
    if (const std::string_view name = taxNumberCountry(country); !name.empty()) {
        add(fmt::format("Invoices in {} must show your tax number or VAT ID.", name));
    } else if (inEU && !taxExempt) {
        add("Your VAT ID is missing; VAT invoices must show it.");
    }
    return problems;
}

} // namespace Quillary
