#pragma once

#include "QuillaryCore/Model/NumberedKind.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QObject>

#include <optional>

class QLineEdit;

namespace Quillary {

class FieldForm;

/// What the form of number patterns can do beyond keeping them: offers patterns, shows with every key what a pattern makes,
/// and lets a series continue elsewhere. Belongs to its form.
class NumberingForm : public QObject
{
    Q_OBJECT

public:
    /// The form has a field for each kind's pattern; those for the series are added before and named by `seriesField`.
    NumberingForm(LibraryAccess& library, FieldForm& form);

    /// "next_invoice": where the series of a kind continues.
    [[nodiscard]] static QString seriesField(NumberedKind kind);
    [[nodiscard]] static std::optional<NumberedKind> seriesKind(const QString& field);

    /// Shows where the series stand.
    void refresh();

    /// Continues a series. Throws: `UserError`.
    void continueWith(NumberedKind kind, const QString& typed);

private:
    void offer(NumberedKind kind, QLineEdit& line);
    void showExample(NumberedKind kind, const QString& pattern);

    LibraryAccess& m_library;
    FieldForm& m_form;
};

} // namespace Quillary
