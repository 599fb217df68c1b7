#pragma once

#include "QuillaryCore/Letters/EmailKind.h"
#include "QuillaryCore/Letters/EmailText.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"

#include <optional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTableWidget;

namespace Quillary {

class EmailPreview;
class FieldForm;

/// The words that emails begin with, for each kind and language: changed beside what a reader would see.
class EmailTextsPage : public Section
{
    Q_OBJECT

public:
    explicit EmailTextsPage(LibraryAccess& library, QWidget* parent = nullptr);

    void flush() override;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* buildChoices();
    QWidget* buildTexts();
    QWidget* buildPlaceholders();
    void choose();
    void refresh();
    void markOwn();
    void showPlaceholders();
    void preview();
    void insertPlaceholder();
    void restore();
    [[nodiscard]] std::optional<QString> save(const QString& name, const QString& value);
    [[nodiscard]] EmailText typed() const;

    /// Whose words stand in the fields: what was typed is saved for these, also when others have just been chosen.
    struct Shown
    {
        EmailKind kind = EmailKind::invoice;
        DocumentLanguage language = DocumentLanguage::english;
        friend bool operator==(const Shown&, const Shown&) = default;
    };

    void exchange(const Shown& chosen);
    [[nodiscard]] QString identifier(const Shown& shown) const;
    void begin();

    LibraryAccess& m_library;
    Shown m_chosen;
    bool m_hasChosen = false; ///< not before the page is first shown
    QComboBox* m_kind;
    QComboBox* m_language;
    QLabel* m_origin;
    QPushButton* m_restore;
    FieldForm* m_form;
    QLineEdit* m_subject;
    QPlainTextEdit* m_body;
    bool m_isInSubject = false; ///< the keyboard was there last
    QTableWidget* m_placeholders;
    EmailPreview* m_preview;
};

} // namespace Quillary
