#pragma once

#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryUI/Look/FieldForm.h"

/// What is chosen from in several forms.
namespace Quillary::Choices {

/// By name. The value is the code: ISO 3166-1 alpha-2, ISO 4217, BCP 47.
[[nodiscard]] QList<FieldForm::Choice> countries(const Locale& locale);
/// The usual ones first.
[[nodiscard]] QList<FieldForm::Choice> currencies(const Locale& locale);
/// Those that documents can be written in, each in its own words.
[[nodiscard]] QList<FieldForm::Choice> languages();

/// With a first choice of its own, whose value is empty.
[[nodiscard]] QList<FieldForm::Choice> withNone(const QString& label, QList<FieldForm::Choice> choices);

} // namespace Quillary::Choices
