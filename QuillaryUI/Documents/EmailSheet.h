#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Sheet.h"

#include <cstdint>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace Quillary {

struct MailDraft;
struct PreparedEmail;

/// The email with a document: whom it goes to, its words from the user's template, and the PDF. It becomes a draft of the
/// mail program; nothing is sent.
class EmailSheet : public Sheet
{
    Q_OBJECT

public:
    EmailSheet(LibraryAccess& library, std::int64_t document, QWidget* host);

    void begin();

    /// What is told of an email that is prepared.
    [[nodiscard]] static QString success(const PreparedEmail& email);

private:
    void build();
    void offerRecipients();
    void fillWords();
    [[nodiscard]] std::optional<QString> prepare();
    void print(MailDraft mail);

    LibraryAccess& m_library;
    std::int64_t m_document;
    QLineEdit* m_to;
    QLineEdit* m_subject;
    QPlainTextEdit* m_body;
    QLabel* m_attachment;
    QLabel* m_notes;
    QCheckBox* m_markSent;
    bool m_isComplete = true;
};

} // namespace Quillary
