#pragma once

#include "QuillaryCore/Assistant/Arguments.h"
#include "QuillaryCore/Assistant/AssistantActions.h"
#include "QuillaryCore/Assistant/ToolResult.h"

namespace Quillary {

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

[[nodiscard]] ToolResult find(const AssistantEnvironment& environment, const Arguments& arguments);
[[nodiscard]] ToolResult create(const AssistantEnvironment& environment, const Arguments& arguments);
[[nodiscard]] ToolResult update(const AssistantEnvironment& environment, const Arguments& arguments);

} // namespace ClientOperations

namespace DocumentOperations {

[[nodiscard]] ToolResult create(const AssistantEnvironment& environment, const Arguments& arguments);
[[nodiscard]] ToolResult update(const AssistantEnvironment& environment, const Arguments& arguments);
[[nodiscard]] ToolResult show(const AssistantEnvironment& environment, const Arguments& arguments);

/// An image of the first page, about 1,200 pixels wide and at most 500 kB, with the figures as text.
void preview(const AssistantEnvironment& environment, const Arguments& arguments, const AssistantActions::Reply& reply);

/// Saves the PDF into a folder under the user's file-name pattern, never over an existing file.
void exportPDF(const AssistantEnvironment& environment,
               const Arguments& arguments,
               const AssistantActions::Reply& reply);

} // namespace DocumentOperations

} // namespace Quillary
