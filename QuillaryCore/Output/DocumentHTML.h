#pragma once

#include <string>

namespace Quillary {

struct PrintedDocument;

/// The page of a document.
namespace DocumentHTML {

/// One self-contained page: style sheet, logo and QR code are inside, it runs no script and loads nothing.
///
/// Every text is escaped where it is placed (`HTMLText`); intro, outro and details pass through `MarkdownLight`. No
/// text can leave its element, whatever it holds.
[[nodiscard]] std::string render(const PrintedDocument& document);

} // namespace DocumentHTML

} // namespace Quillary
