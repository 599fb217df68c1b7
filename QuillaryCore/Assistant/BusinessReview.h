#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

struct Business;

/// What is missing before a document can be sent, and how to mend it.
struct ReviewProblem
{
    std::string problem;
    std::string fix;

    friend bool operator==(const ReviewProblem&, const ReviewProblem&) = default;
};

/// What a document's lawful issue asks of the business's own details. `country` is the business's ISO code and `inEU`
/// whether it is a member state; `taxExempt` is the document's.
[[nodiscard]] std::vector<ReviewProblem>
businessProblems(const Business& business, std::string_view country, bool inEU, bool taxExempt);

} // namespace Quillary
