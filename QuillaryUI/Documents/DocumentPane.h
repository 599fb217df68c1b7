#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QList>
#include <QWidget>

#include <cstdint>

class QAction;
class QLabel;

namespace Quillary {

class DocumentCommands;
class DocumentHead;
class EditedPage;
struct Document;

/// One document: its page and what can be done to it. While a draft is edited its editor stands beside the page, and the
/// list gives way.
class DocumentPane : public QWidget
{
    Q_OBJECT

public:
    explicit DocumentPane(LibraryAccess& library, QWidget* parent = nullptr);

    /// 0: nothing is chosen.
    void setDocument(std::int64_t key);
    [[nodiscard]] std::int64_t document() const { return m_document; }

    /// Opens the editor of a draft and puts the keyboard into it. Nothing for what is no draft.
    void beginEditing();
    void endEditing();
    [[nodiscard]] bool isEditing() const;
    void flush();
    /// What would be lost if the program ended now, as a sentence. Empty: nothing.
    [[nodiscard]] QString unsavedWork() const;

    /// What can be done to the document, for the window's menu.
    [[nodiscard]] QList<QAction*> documentActions() const;

Q_SIGNALS:
    /// Another document is to be shown, such as the copy that was just made.
    void wantedDocument(std::int64_t key);
    void wantedClient(std::int64_t key);
    void wantedSection(const QString& name);
    void editingChanged(bool isEditing);
    /// Something went well, in a sentence.
    void told(const QString& sentence);
    /// Something went wrong, in a sentence.
    void failed(const QString& sentence);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] const Document* record() const;
    [[nodiscard]] bool isDraft() const;
    void build();
    void connectCommands();
    void reload();

    LibraryAccess& m_library;
    std::int64_t m_document = 0;
    DocumentCommands* m_commands;
    DocumentHead* m_head;
    EditedPage* m_content;
    QLabel* m_empty;
};

} // namespace Quillary
