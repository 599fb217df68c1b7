#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"
#include "QuillaryUI/Documents/LinesModel.h"

#include <QScrollArea>
#include <QTimer>

#include <functional>
#include <map>
#include <string>

class QComboBox;
class QDateEdit;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;
class QVBoxLayout;

namespace Quillary {

class ClientPicker;
class LinesTable;

/// The form in which a draft is made. What is typed is saved as it is typed, at the latest a second after the last key;
/// what can't be saved is told under its field, which keeps it.
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

    /// Puts the keyboard where the first answer is needed.
    void begin();

Q_SIGNALS:
    /// The user wants a client that isn't there.
    void wantedClient(const QString& name);

private:
    void build();
    void buildHead(QFormLayout& form);
    void buildTexts(QFormLayout& form);
    void addRow(QFormLayout& form, const QString& label, const std::string& field, QWidget* widget);
    QLineEdit* lineField(QFormLayout& form, const QString& label, const std::string& field);
    QPlainTextEdit* textField(QFormLayout& form, const QString& label, const std::string& field);
    void reload();
    void fill();
    void fillReview();
    void fillTotals();
    [[nodiscard]] bool isKept(const QWidget& field) const;
    void put(QLineEdit& field, const QString& text);
    void put(QPlainTextEdit& field, const QString& text);
    void typed(const std::string& field, std::function<JSON()> value);
    void change(const std::string& field, JSON value);
    void changeTax(int choice);
    void changeDiscount();
    void changeServiceDate();
    void tell(const std::string& field, const QString& sentence);
    void showField(const QString& field);

    DraftDesk m_desk;
    LinesModel* m_lines;
    bool m_isFilling = false;
    bool m_isOther = false; ///< another document is being shown
    QTimer m_pause;         ///< after the last key
    std::map<std::string, std::function<JSON()>> m_unsaved;

    ClientPicker* m_client = nullptr;
    QDateEdit* m_issueDate = nullptr;
    QSpinBox* m_terms = nullptr;
    QLineEdit* m_title = nullptr;
    QLineEdit* m_serviceDate = nullptr;
    QPlainTextEdit* m_intro = nullptr;
    LinesTable* m_table = nullptr;
    QLineEdit* m_discount = nullptr;
    QComboBox* m_tax = nullptr;
    QLineEdit* m_taxNote = nullptr;
    QPlainTextEdit* m_outro = nullptr;
    QComboBox* m_language = nullptr;
    QLineEdit* m_currency = nullptr;
    QLabel* m_totals = nullptr;
    QLabel* m_review = nullptr;
    std::map<std::string, QLabel*> m_errors;
    std::map<std::string, QWidget*> m_fields;
};

} // namespace Quillary
