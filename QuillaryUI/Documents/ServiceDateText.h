#pragma once

#include <QString>

#include <optional>
#include <string>

namespace Quillary {

class Formats;
struct Document;

/// When the work was done, as a text field shows and reads it: a day, or two with a dash between them.
namespace ServiceDateText {

/// Empty: the document says nothing about it.
[[nodiscard]] QString of(const Document& document, const Formats& formats);

/// The argument of `update_document`. Days are read as the desktop's locale writes them, or as "YYYY-MM-DD". No value:
/// no day, or the second before the first.
[[nodiscard]] std::optional<std::string> argument(const QString& typed);

} // namespace ServiceDateText

} // namespace Quillary
