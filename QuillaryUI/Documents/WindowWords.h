#pragma once

#include <QString>

namespace Quillary::WindowWords {

/// A refusal of an operation as somebody at the window reads it: arguments are the fields of the editor, and there are no
/// calls to make.
[[nodiscard]] QString refusal(QString sentence);

/// The field of the editor that an argument of `update_document` is shown in. Empty: none.
[[nodiscard]] QString field(const QString& argument);

} // namespace Quillary::WindowWords
