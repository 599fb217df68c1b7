#pragma once

#include <QString>

#include <string_view>

/// The core speaks English: to assistants, on the command line, in files. Where a window shows its words, they pass
/// through here.
namespace Quillary::CoreText {

/// A word or sentence of a closed set, such as "Partly Paid", in the language of the windows. As it is when there is no
/// translation: what it says was perhaps a person's own.
[[nodiscard]] QString word(std::string_view english);

/// A finished sentence or name of the core: "Aurora's address is missing; invoices must show it.". What was filled in
/// stays where it is a person's own; figures, dates and countries are written as the desktop writes them. As it is when
/// it isn't known, and always in English windows.
[[nodiscard]] QString sentence(std::string_view english);

/// A refusal names an argument in quotes: “vat_id”. People know the field by its label.
void nameField(QString& sentence, const QString& name, const QString& label);

} // namespace Quillary::CoreText
