#include "QuillaryCore/Assistant/Review/DocumentReview.h"

#include "QuillaryCore/Assistant/Review/DocumentReviewer.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Model/Business.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cstddef>
#include <utility>

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

std::string line(const ReviewQuestion& question, std::size_t number)
{
    std::string text = fmt::format(
        "{}. {}{} → set {}.", number, question.text, question.isRequired ? "" : " (optional)", question.field);
    std::string_view separator = " Options: ";
    for (const ReviewOption& option : question.options) {
        const std::string value = option.value.text().value_or(option.value.dump());
        text += fmt::format("{}{} [{}]", separator, option.label, value);
        separator = "; ";
    }
    return text;
}

std::string questionSection(const std::vector<ReviewQuestion>& questions)
{
    std::string text = "Ask the user (only these; one message):";
    for (std::size_t index = 0; index < questions.size(); ++index) {
        text += "\n" + line(questions[index], index + 1);
    }
    return text;
}

std::string problemSection(const std::vector<ReviewProblem>& problems)
{
    std::string text = "Before it can be sent:";
    for (const ReviewProblem& entry : problems) {
        text += fmt::format("\n- {} {}", entry.problem, entry.fix);
    }
    return text;
}

bool hasRequired(const std::vector<ReviewQuestion>& questions)
{
    return std::ranges::any_of(questions, &ReviewQuestion::isRequired);
}

JSON data(const ReviewQuestion& question)
{
    JSON::Array options;
    for (const ReviewOption& option : question.options) {
        options.push_back(JSON::object({{"value", option.value}, {"label", option.label}}));
    }
    return JSON::object({{"question", question.text},
                         {"field", question.field},
                         {"required", question.isRequired},
                         {"why", question.why},
                         {"options", std::move(options)}});
}

} // namespace

DocumentReview DocumentReview::review(Context& context,
                                      const Document& document,
                                      const Business& business,
                                      Instant today,
                                      const Locale& locale,
                                      const std::vector<std::string>& filledIn)
{
    DocumentReview result = DocumentReviewer(context, document, business, today, locale).review();
    for (const std::string& item : filledIn) {
        result.filledIn.push_back(plainText(item));
    }
    return result;
}

std::vector<ReviewProblem>
DocumentReview::businessProblems(const Business& business, std::string_view country, bool inEU, bool taxExempt)
{
    std::vector<ReviewProblem> problems;
    const auto add = [&](std::string problem) {
        problems.push_back({.problem = std::move(problem),
                            .fix = "Set it once with update_business_profile, or in Quillary › Settings › Business.",
                            .field = "update_business_profile"});
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

bool DocumentReview::canBeSent() const
{
    return isReady() && !hasRequired(questions);
}

std::string DocumentReview::text() const
{
    std::vector<std::string> sections;
    if (!questions.empty()) {
        sections.push_back(questionSection(questions));
    }
    if (!problems.empty()) {
        sections.push_back(problemSection(problems));
    }
    if (!filledIn.empty()) {
        sections.push_back(fmt::format("Filled in: {}", fmt::join(filledIn, "; ")));
    }
    if (problems.empty() && questions.empty()) {
        sections.emplace_back(
            "Ready: nothing required is missing. Show the preview and ask before marking it sent or emailing it.");
    } else if (problems.empty() && !hasRequired(questions)) {
        sections.emplace_back("Nothing required is missing, but ask the question above first: it changes this invoice. "
                              "Then show the preview.");
    }
    return fmt::format("{}", fmt::join(sections, "\n\n"));
}

JSON DocumentReview::json() const
{
    JSON::Array asked;
    for (const ReviewQuestion& question : questions) {
        asked.push_back(data(question));
    }
    JSON::Array missing;
    for (const ReviewProblem& entry : problems) {
        missing.push_back(JSON::object({{"problem", entry.problem}, {"fix", entry.fix}}));
    }
    return JSON::object({{"ready", isReady()},
                         {"questions", std::move(asked)},
                         {"problems", std::move(missing)},
                         {"filled_in", JSON::Array(filledIn.begin(), filledIn.end())}});
}

} // namespace Quillary
