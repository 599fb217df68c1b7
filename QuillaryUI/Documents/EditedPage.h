#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QSplitter>

#include <cstdint>
#include <optional>

namespace Quillary {

class DraftEditor;
class LivePage;
class PaperView;

/// The page of a document. While it is edited its editor stands beside it, and the page shows what is typed.
class EditedPage : public QSplitter
{
    Q_OBJECT

public:
    explicit EditedPage(LibraryAccess& library, QWidget* parent = nullptr);

    /// Shows another one; 0: none. What is edited is ended first.
    void setDocument(std::int64_t key);

    /// The editor comes at the next `reload`.
    void beginEditing();
    /// Once whatever stood beside it has given way: makes room for the page, and puts the keyboard into the editor.
    void beginTyping();
    void endEditing();
    [[nodiscard]] bool isEditing() const { return m_isEditing; }

    /// The document has changed.
    void reload();

    /// Saves what was typed and not saved yet.
    void flush();
    /// What would be lost if the program ended now, as a sentence. Empty: nothing.
    [[nodiscard]] QString unsavedWork() const;

    /// The client that was wanted is there.
    void setClient(const QString& id);

Q_SIGNALS:
    /// The user wants a client that isn't there.
    void wantedClient(const QString& name);
    /// What is missing stands with a client, or in the settings.
    void wantedClientRecord(std::int64_t key);
    void wantedSettings();
    void failed(const QString& sentence);

private:
    void makeEditor();
    [[nodiscard]] std::optional<PageJob> page();

    LibraryAccess& m_library;
    std::int64_t m_document = 0;
    bool m_isEditing = false;
    PaperView* m_paper;
    LivePage* m_page;
    DraftEditor* m_editor = nullptr; ///< made when somebody first edits
};

} // namespace Quillary
