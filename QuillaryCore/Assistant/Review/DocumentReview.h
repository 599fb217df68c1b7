#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/JSON.h"

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;
class Locale;
struct Business;
struct Document;

/// An answer to offer: what to send, and what it means to the user.
struct ReviewOption
{
    JSON value; ///< exactly as the field takes it
    std::string label;

    friend bool operator==(const ReviewOption&, const ReviewOption&) = default;
};

/// Something only the user knows.
struct ReviewQuestion
{
    std::string text;
    std::string field;       ///< the argument of update_document that answers it, or "update_client " and one of its
    bool isRequired = false; ///< the document can't be right without the answer
    std::string why;
    std::vector<ReviewOption> options;

    friend bool operator==(const ReviewQuestion&, const ReviewQuestion&) = default;
};

/// What is missing before a document can be sent, and how to mend it.
struct ReviewProblem
{
    std::string problem;
    std::string fix;
    std::string field =
        {}; ///< where it is mended, for a window: as `ReviewQuestion::field`, or "update_business_profile"

    friend bool operator==(const ReviewProblem&, const ReviewProblem&) = default;
};

/// What a draft still lacks, and the few questions that only the user can answer. The rules and their sources stand in
/// docs/review.md. Everything is English, for an assistant to read; text from records is made harmless by `plainText`.
struct DocumentReview
{
    std::vector<ReviewQuestion> questions; ///< here and below in the order of the checks
    std::vector<ReviewProblem> problems;
    std::vector<std::string> filledIn; ///< what the business's and the client's settings filled in

    /// Reviews one document; it changes nothing. `today` is the start of the day; `filledIn` comes from the session that
    /// made the document what it is.
    [[nodiscard]] static DocumentReview review(Context& context,
                                               const Document& document,
                                               const Business& business,
                                               Instant today,
                                               const Locale& locale,
                                               const std::vector<std::string>& filledIn = {});

    /// The problems of the business profile alone. `country` is the business's ISO code, `inEU` whether the EU's VAT
    /// applies there, `taxExempt` the document's.
    [[nodiscard]] static std::vector<ReviewProblem>
    businessProblems(const Business& business, std::string_view country, bool inEU, bool taxExempt);

    /// True when there is no problem.
    [[nodiscard]] bool isReady() const { return problems.empty(); }

    /// True when there is neither a problem nor a question that the document can't be right without.
    [[nodiscard]] bool canBeSent() const;

    /// The sections that are not empty, a blank line between them, without a line break at the end.
    [[nodiscard]] std::string text() const;

    /// The same as an object with "ready", "questions", "problems" and "filled_in".
    [[nodiscard]] JSON json() const;
};

} // namespace Quillary
