#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"

#include <QScrollArea>
#include <QTimer>

#include <optional>
#include <string>

class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace Quillary {

class ClientPicker;
class DraftCharges;
class DraftDates;
class DraftFields;
class DraftFiling;
class LinesPanel;
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

    /// Takes a client by their id.
    void setClient(const QString& id);

    /// What the library couldn't take yet, as a sentence. Empty: nothing.
    [[nodiscard]] QString unsavedWork() const;

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
    void buildWaiting();
    void buildReview();
    void buildHead(QFormLayout& form);
    void buildClient(QFormLayout& form);
    void buildTexts(QFormLayout& form);
    QPlainTextEdit* presetField(QFormLayout& form, const QString& label, const std::string& field);
    void reload();
    void fill(const Document& draft);
    void showWaiting();
    void whenTyped();
    void showField(const QString& field);

    DraftDesk m_desk;
    DraftFields* m_fields;
    QTimer m_pause; ///< after the last key

    QLabel* m_waiting = nullptr; ///< says why what was typed isn't saved yet
    ReviewPanel* m_review = nullptr;
    ClientPicker* m_client = nullptr;
    DraftDates* m_dates = nullptr;
    QLineEdit* m_title = nullptr;
    QPlainTextEdit* m_intro = nullptr;
    LinesPanel* m_lines = nullptr;
    DraftCharges* m_charges = nullptr;
    QPlainTextEdit* m_outro = nullptr;
    DraftFiling* m_filing = nullptr;
};

} // namespace Quillary
