#include "QuillaryUI/Documents/EditedPage.h"

#include "QuillaryUI/Documents/DraftEditor.h"
#include "QuillaryUI/Library/DocumentPage.h"
#include "QuillaryUI/Paper/LivePage.h"
#include "QuillaryUI/Paper/PaperView.h"

#include <QTimer>

#include <utility>

namespace Quillary {

EditedPage::EditedPage(LibraryAccess& library, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent)
    , m_library(library)
    , m_paper(new PaperView(library.press(), this))
    , m_page(new LivePage(library.press(), *m_paper))
{
    setObjectName(QStringLiteral("editorAndPage"));
    setChildrenCollapsible(false);
    addWidget(m_paper);
}

/// Only who edits needs it: the list and the first page are there sooner.
void EditedPage::makeEditor()
{
    m_editor = new DraftEditor(m_library, this);
    insertWidget(0, m_editor);
    setStretchFactor(0, 1);
    setStretchFactor(1, 1);
    connect(m_editor, &DraftEditor::pageChanged, m_page, &LivePage::refresh);
    connect(m_editor, &DraftEditor::wantedClient, this, &EditedPage::wantedClient);
    connect(m_editor, &DraftEditor::wantedClientRecord, this, &EditedPage::wantedClientRecord);
    connect(m_editor, &DraftEditor::wantedSettings, this, &EditedPage::wantedSettings);
    connect(m_editor, &DraftEditor::failed, this, &EditedPage::failed);
}

void EditedPage::setDocument(std::int64_t key)
{
    if (key != m_document) {
        endEditing();
        m_document = key;
        m_page->show([this] { return page(); });
    }
}

/// With what is being typed, before it is saved.
std::optional<PageJob> EditedPage::page()
{
    std::optional<PageJob> typed = m_isEditing ? m_editor->typedPage() : std::nullopt;
    return typed ? std::move(typed) : documentPage(m_library, m_document)();
}

void EditedPage::beginEditing()
{
    if (m_editor == nullptr) {
        makeEditor();
    }
    m_isEditing = true;
}

/// A page that has too little room gets two fifths of it, else the user's own border stays.
void EditedPage::beginTyping()
{
    m_page->setTyped(true);
    QTimer::singleShot(0, this, [this] {
        const int least = width() * 2 / 5;
        if (m_paper->width() < least) {
            setSizes({width() - least, least});
        }
    });
    m_editor->begin();
}

void EditedPage::endEditing()
{
    flush();
    m_isEditing = false;
    m_page->setTyped(false);
}

void EditedPage::reload()
{
    if (m_editor != nullptr) {
        m_editor->setDocument(m_isEditing ? m_document : 0); // saves what was typed in the one before
        m_editor->setVisible(m_isEditing);
    }
    if (m_document != 0) {
        m_page->refresh();
    }
}

void EditedPage::flush()
{
    if (m_editor != nullptr) {
        m_editor->flush();
    }
}

QString EditedPage::unsavedWork() const
{
    return m_editor == nullptr ? QString() : m_editor->unsavedWork();
}

void EditedPage::setClient(const QString& id)
{
    if (m_editor != nullptr) {
        m_editor->setClient(id);
    }
}

} // namespace Quillary
