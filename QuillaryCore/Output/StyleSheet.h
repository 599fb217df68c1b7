#pragma once

#include "QuillaryCore/Output/TemplateSettings.h"

#include <string>
#include <string_view>

/// How a page looks. The rules are shared by the printer and the preview.
namespace Quillary::StyleSheet {

/// Appends the style sheet of a page: its variables, what all pages share, the design's additions, and last what keeps
/// any content and any accent colour legible.
void append(std::string& html, const TemplateSettings& settings);

/// What a letter adds, which has a paragraph and a few figures where a document has its lines.
void appendLetter(std::string& html);

/// What a table adds that fills the page, under the business's name instead of an address.
void appendTable(std::string& html);

/// What all pages share. It begins in the middle of the `:root` rule, after the height of the logo.
[[nodiscard]] std::string_view base();

/// What a design adds to it.
[[nodiscard]] std::string_view additions(TemplateDesign design);

/// Rules for an accent colour that is too light to be read on paper, or too light to carry white text: as text it is
/// deepened until its contrast is 4.5; as an area it is deepened where a little is enough, and otherwise carries dark
/// text instead. Empty when the colour serves as it is.
[[nodiscard]] std::string legibility(const TemplateSettings& settings);

} // namespace Quillary::StyleSheet
