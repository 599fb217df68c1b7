#pragma once

#include "QuillaryCore/Documents/DocumentView.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QFrame>

class QComboBox;
class QFormLayout;

namespace Quillary {

class ClientPicker;

/// What a list is seldom narrowed by: client, project, tag, when it is due, currency. Each choice works at once; Escape
/// or a click elsewhere puts it away.
class DocumentFilterPopup : public QFrame
{
    Q_OBJECT

public:
    DocumentFilterPopup(LibraryAccess& library, DocumentKind kind, QWidget* parent);

    /// Reads what there is to choose from, and opens below `anchor`.
    void open(const DocumentView& view, const QWidget& anchor);

Q_SIGNALS:
    /// The view with the user's choices; what else it holds is as it was given.
    void picked(const Quillary::DocumentView& view);

private:
    void fill();
    void show(const DocumentView& view);
    void take();
    QComboBox* addBox(QFormLayout& form, const QString& label, const char* name);

    LibraryAccess& m_library;
    DocumentKind m_kind;
    DocumentView m_view;
    ClientPicker* m_client;
    QComboBox* m_project = nullptr;
    QComboBox* m_tag = nullptr;
    QComboBox* m_due = nullptr; ///< null: documents of this kind are never due
    QComboBox* m_currency = nullptr;
    QFormLayout* m_form;
};

/// "Due within 7 days"; of a quote "Ends within 7 days".
[[nodiscard]] QString dueWithinText(int days, DocumentKind kind);

} // namespace Quillary
