#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"
#include "QuillaryUI/Documents/DraftFields.h"
#include "QuillaryUI/Documents/LinesModel.h"

#include <QScrollArea>
#include <QTimer>

class QComboBox;
class QDateEdit;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QToolButton;
class QVBoxLayout;

namespace Quillary {

class ClientPicker;
class FeesModel;
class LinesTable;
class ProjectBox;
class ReviewPanel;

/// The form in which a draft is made. What is typed shows on the page at once and is saved as it is typed, at the latest a
/// second after the last key; what can't be saved is told under its field, which keeps it.
class DraftEditor : public QScrollArea
{
    Q_OBJECT

public:
    explicit DraftEditor(LibraryAccess& library, QWidget* parent = nullptr);

    /// Shows a draft; 0: none. What was typed in the one before is saved first.
    void setDocument(std::int64_t key);
    [[nodiscard]] std::int64_t document() const { return m_desk.key(); }

    /// Saves what was typed and not saved yet.
    void flush();

    /// The page with what is being typed. No value: nothing is, or it can't be saved like that.
    [[nodiscard]] std::optional<PageJob> typedPage();

    /// Puts the keyboard where the first answer is needed.
    void begin();

Q_SIGNALS:
    /// The user wants a client that isn't there.
    void wantedClient(const QString& name);
    /// What the page shows has changed, saved or not.
    void pageChanged();
    /// What is missing stands with a client, or in the settings.
    void wantedClientRecord(std::int64_t key);
    void wantedSettings();
    void failed(const QString& sentence);

private:
    void build();
    void buildReview();
    void buildHead(QFormLayout& form);
    void buildDates(QFormLayout& form);
    void buildLines(QVBoxLayout& column);
    void buildTexts(QFormLayout& form);
    void buildFees(QFormLayout& form);
    void buildTax(QFormLayout& form);
    void buildMore(QVBoxLayout& column);
    void buildPrintedIn(QFormLayout& form);
    QPlainTextEdit* presetField(QFormLayout& form, const QString& label, const std::string& field);
    void reload();
    void fill();
    void fillDates(const Document& draft);
    void fillTax(const Document& draft);
    void fillTotals(const Document& draft);
    [[nodiscard]] bool canCopyLast(const Document& draft) const;
    void whenTyped();
    void change(const std::string& field, JSON value);
    void changeTax(int choice);
    [[nodiscard]] std::optional<JSON> readDiscount(const QString& typed) const;
    void showField(const QString& field);

    DraftDesk m_desk;
    DraftFields* m_fields;
    LinesModel* m_lines;
    FeesModel* m_fees;
    QTimer m_pause; ///< after the last key

    ReviewPanel* m_review = nullptr;
    ClientPicker* m_client = nullptr;
    QFormLayout* m_head = nullptr;
    QDateEdit* m_issueDate = nullptr;
    QWidget* m_termsRow = nullptr;
    QSpinBox* m_terms = nullptr;
    QLabel* m_due = nullptr;
    QDateEdit* m_validUntil = nullptr;
    QLineEdit* m_title = nullptr;
    QLineEdit* m_serviceDate = nullptr;
    QPlainTextEdit* m_intro = nullptr;
    LinesTable* m_table = nullptr;
    QPushButton* m_copyLast = nullptr;
    QLineEdit* m_discount = nullptr;
    QComboBox* m_tax = nullptr;
    QFormLayout* m_texts = nullptr;
    QLineEdit* m_taxNote = nullptr;
    QPlainTextEdit* m_outro = nullptr;
    QToolButton* m_more = nullptr;
    ProjectBox* m_project = nullptr;
    QLineEdit* m_tags = nullptr;
    QComboBox* m_language = nullptr;
    QLineEdit* m_currency = nullptr;
    QLabel* m_totals = nullptr;
};

} // namespace Quillary
