#pragma once

#include "QuillaryCore/Assistant/Operations/AssistantActions.h"
#include "QuillaryCore/Assistant/Review/DocumentReview.h"
#include "QuillaryCore/Assistant/Tools/Arguments.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"

#include <string>
#include <vector>

namespace Quillary {

struct Document;

// The operations behind the tools, a file a subject. They throw `AssistantError` for unusable arguments; the caller
// holds the scope that takes back what a failed one began.

namespace BusinessOperations {

/// The business's details, defaults, next numbers and what is missing on its invoices.
[[nodiscard]] ToolResult profile(const AssistantEnvironment& environment);

/// Fills in the given details. The first country given in a library without documents brings its usual currency, tax
/// and paper with it.
[[nodiscard]] ToolResult update(const AssistantEnvironment& environment, const Arguments& arguments);

} // namespace BusinessOperations

namespace ClientOperations {

/// Adds a client with a number of its own, unless it seems to be there already: then the answer names that one.
[[nodiscard]] ToolResult create(const AssistantEnvironment& environment, const Arguments& arguments);
[[nodiscard]] ToolResult update(const AssistantEnvironment& environment, const Arguments& arguments);

} // namespace ClientOperations

namespace FindOperations {

/// The best hits for a query, the newest for an empty one, and how many more there are.
[[nodiscard]] ToolResult clients(const AssistantEnvironment& environment, const Arguments& arguments);
[[nodiscard]] ToolResult catalogItems(const AssistantEnvironment& environment, const Arguments& arguments);
[[nodiscard]] ToolResult documents(const AssistantEnvironment& environment, const Arguments& arguments);

} // namespace FindOperations

namespace TimeOperations {

/// Tracked time on no invoice: hours and value for each client and project.
[[nodiscard]] ToolResult unbilled(const AssistantEnvironment& environment, const Arguments& arguments);

} // namespace TimeOperations

namespace OverviewOperations {

/// What is open, overdue and due next, what waits as a draft or as unbilled time; for each currency by itself.
[[nodiscard]] ToolResult money(const AssistantEnvironment& environment, const Arguments& arguments);

} // namespace OverviewOperations

namespace SendingOperations {

/// Marks a ready draft as sent; from then on its number and content are final.
[[nodiscard]] ToolResult markSent(const AssistantEnvironment& environment, const Arguments& arguments);

/// Records money for an invoice that was sent, at most what is due on it.
[[nodiscard]] ToolResult recordPayment(const AssistantEnvironment& environment, const Arguments& arguments);

/// Deletes a draft that an assistant made; its number and its time entries are free again.
[[nodiscard]] ToolResult discard(const AssistantEnvironment& environment, const Arguments& arguments);

/// Lays the email with the PDF before the user, who sends it or not.
void email(const AssistantEnvironment& environment, const Arguments& arguments, const AssistantActions::Reply& reply);

} // namespace SendingOperations

namespace DocumentOperations {

[[nodiscard]] ToolResult create(const AssistantEnvironment& environment, const Arguments& arguments);
[[nodiscard]] ToolResult update(const AssistantEnvironment& environment, const Arguments& arguments);
[[nodiscard]] ToolResult show(const AssistantEnvironment& environment, const Arguments& arguments);

/// The review of a document as of now.
[[nodiscard]] DocumentReview reviewed(const AssistantEnvironment& environment,
                                      const Document& document,
                                      const std::vector<std::string>& filledIn = {});

/// An image of the first page, about 1,200 pixels wide and at most 500 kB, with the figures as text.
void preview(const AssistantEnvironment& environment, const Arguments& arguments, const AssistantActions::Reply& reply);

/// Saves the PDF into a folder under the user's file-name pattern, never over an existing file.
void exportPDF(const AssistantEnvironment& environment,
               const Arguments& arguments,
               const AssistantActions::Reply& reply);

} // namespace DocumentOperations

} // namespace Quillary
