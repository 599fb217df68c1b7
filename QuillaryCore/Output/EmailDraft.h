#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Output/EmailTemplates.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

class Context;
struct Business;
struct Document;

/// The words of the email that a document is sent with.
namespace EmailDraft {

/// The words between braces with what replaces them.
using Values = std::vector<std::pair<std::string_view, std::string>>;

/// Replaces every {word} that has a value, in whatever case it is written; other words in braces stay. Values are not
/// searched again.
[[nodiscard]] std::string fill(std::string_view text, const Values& values);

/// The values of a document, written as its language and the business's country write them.
[[nodiscard]] Values values(Context& context,
                            const Document& document,
                            const Business& business,
                            std::string_view recipientName,
                            const Calendar& calendar);

/// Subject and body for a document, in its language: the user's own text where there is one, filled.
[[nodiscard]] EmailText text(Context& context,
                             const Document& document,
                             const Business& business,
                             std::string_view recipientName,
                             const Calendar& calendar);

} // namespace EmailDraft

} // namespace Quillary
