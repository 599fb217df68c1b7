#pragma once

#include "QuillaryCore/Letters/EmailDraft.h"
#include "QuillaryCore/Letters/EmailKind.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QStringList>
#include <QWidget>

class QComboBox;
class QLabel;

namespace Quillary {

struct Document;

/// An email as its reader would see it, with made-up values or those of the newest document that it could go with.
class EmailPreview : public QWidget
{
    Q_OBJECT

public:
    explicit EmailPreview(LibraryAccess& library, QWidget* parent = nullptr);

    /// Of which kind and in which language the emails are from now on; `readValues` follows. While the library is open.
    void begin(EmailKind kind, DocumentLanguage language);

    /// The values as they are now.
    void readValues();

    /// With every key: nothing is read from the library for it.
    void showText(const EmailText& typed);

    /// The placeholders in a text that such an email has nothing to put in the place of.
    [[nodiscard]] QStringList unknown(const EmailText& typed) const;

Q_SIGNALS:
    /// Other values fill it: it is to be shown anew.
    void changed();

private:
    void build();
    void fillMatters();
    [[nodiscard]] const Document* newest() const;
    [[nodiscard]] EmailDraft::Values valuesOf(const Document& document) const;

    LibraryAccess& m_library;
    EmailKind m_kind = EmailKind::invoice;
    DocumentLanguage m_language = DocumentLanguage::english;
    QComboBox* m_matter; ///< what it is filled with
    QLabel* m_subject;
    QLabel* m_body;
    EmailDraft::Values m_values;
    EmailDraft::Values m_samples;
};

} // namespace Quillary
