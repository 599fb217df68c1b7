#include "QuillaryUI/Documents/DocumentPane.h"

#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/DocumentCommands.h"
#include "QuillaryUI/Documents/DocumentHead.h"
#include "QuillaryUI/Documents/DraftEditor.h"
#include "QuillaryUI/Library/DocumentPage.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Paper/LivePage.h"
#include "QuillaryUI/Paper/PaperView.h"

#include <QAction>
#include <QKeyEvent>
#include <QLabel>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace Quillary {

DocumentPane::DocumentPane(LibraryAccess& library, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_commands(new DocumentCommands(library, *this))
    , m_head(new DocumentHead(library, m_commands->menu(), this))
    , m_paper(new PaperView(library.press(), this))
    , m_page(new LivePage(library.press(), *m_paper))
    , m_split(new QSplitter(Qt::Horizontal, this))
    , m_empty(new QLabel(tr("Choose a document to see its page."), this))
{
    setObjectName(QStringLiteral("documentPane"));
    build();
    connectCommands();
    connect(&library, &LibraryAccess::changed, this, &DocumentPane::reload);
    connect(&library, &LibraryAccess::opened, this, &DocumentPane::reload);
    reload();
}

void DocumentPane::build()
{
    m_empty->setAlignment(Qt::AlignCenter);
    Theme::tint(*m_empty, palette().color(QPalette::PlaceholderText));
    m_split->setObjectName(QStringLiteral("editorAndPage"));
    m_split->setChildrenCollapsible(false);
    m_split->addWidget(m_paper);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_head);
    column->addWidget(m_split, 1);
    column->addWidget(m_empty, 1);
}

/// Only who edits needs it: the list and the first page are there sooner.
void DocumentPane::makeEditor()
{
    m_editor = new DraftEditor(m_library, m_split);
    m_split->insertWidget(0, m_editor);
    m_split->setStretchFactor(0, 1);
    m_split->setStretchFactor(1, 1);
    connect(m_commands, &DocumentCommands::madeClient, m_editor, &DraftEditor::setClient);
    connect(m_editor, &DraftEditor::wantedClient, m_commands, &DocumentCommands::askForClient);
    connect(m_editor, &DraftEditor::pageChanged, m_page, &LivePage::refresh);
    connect(m_editor, &DraftEditor::wantedClientRecord, this, &DocumentPane::wantedClient);
    connect(m_editor, &DraftEditor::wantedSettings, this, [this] { Q_EMIT wantedSection(QStringLiteral("settings")); });
    connect(m_editor, &DraftEditor::failed, this, &DocumentPane::failed);
}

void DocumentPane::connectCommands()
{
    connect(m_head, &DocumentHead::editClicked, this, [this] { m_isEditing ? endEditing() : beginEditing(); });
    connect(m_head, &DocumentHead::nextStepClicked, m_commands, &DocumentCommands::runNextStep);
    connect(m_head, &DocumentHead::wantedDocument, this, &DocumentPane::wantedDocument);
    connect(m_commands, &DocumentCommands::starting, this, &DocumentPane::flush);
    connect(m_commands, &DocumentCommands::wantedDocument, this, &DocumentPane::wantedDocument);
    connect(m_commands, &DocumentCommands::madeDraft, this, [this](std::int64_t key) {
        if (m_document == key) {
            beginEditing();
        }
    });
    connect(m_commands, &DocumentCommands::told, this, &DocumentPane::told);
    connect(m_commands, &DocumentCommands::failed, this, &DocumentPane::failed);
}

QList<QAction*> DocumentPane::documentActions() const
{
    return m_commands->actions();
}

const Document* DocumentPane::record() const
{
    return m_library.isOpen() ? m_library.context().find(Ref<Document>(m_document)) : nullptr;
}

void DocumentPane::setDocument(std::int64_t key)
{
    if (key == m_document) {
        return;
    }
    endEditing();
    m_document = key;
    m_commands->setDocument(key);
    m_page->show([this] { return page(); });
    reload();
}

/// With what is being typed, before it is saved.
std::optional<PageJob> DocumentPane::page()
{
    std::optional<PageJob> typed = m_isEditing ? m_editor->typedPage() : std::nullopt;
    return typed ? std::move(typed) : documentPage(m_library, m_document)();
}

void DocumentPane::flush()
{
    if (m_editor != nullptr) {
        m_editor->flush();
    }
}

QString DocumentPane::unsavedWork() const
{
    return m_editor == nullptr ? QString() : m_editor->unsavedWork();
}

bool DocumentPane::isDraft() const
{
    const Document* document = record();
    return document != nullptr && status(*document) == DocumentStatus::draft &&
           kind(*document) != DocumentKind::recurring;
}

void DocumentPane::beginEditing()
{
    if (!isDraft()) {
        return;
    }
    if (m_editor == nullptr) {
        makeEditor();
    }
    m_isEditing = true;
    reload();
    m_page->setTyped(true);
    Q_EMIT editingChanged(true);
    // Once the list has given way: a page that has too little room gets two fifths of it, else the user's own border
    // stays.
    QTimer::singleShot(0, this, [this] {
        const int least = m_split->width() * 2 / 5;
        if (m_paper->width() < least) {
            m_split->setSizes({m_split->width() - least, least});
        }
    });
    m_editor->begin();
}

void DocumentPane::endEditing()
{
    flush();
    if (m_isEditing) {
        m_isEditing = false;
        reload();
        m_page->setTyped(false);
        Q_EMIT editingChanged(false);
    }
}

void DocumentPane::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_isEditing) {
        endEditing();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void DocumentPane::reload()
{
    const bool isDraft = this->isDraft();
    if (m_isEditing && !isDraft) {
        endEditing(); // it was sent, or is gone
        return;
    }
    if (m_editor != nullptr) {
        m_editor->setDocument(m_isEditing ? m_document : 0); // saves what was typed in the one before
        m_editor->setVisible(m_isEditing);
    }
    const Document* document = record();
    m_head->setVisible(document != nullptr);
    m_split->setVisible(document != nullptr);
    m_empty->setVisible(document == nullptr);
    m_commands->offer(document);
    if (document == nullptr) {
        return;
    }
    m_head->setEditing(isDraft, m_isEditing);
    m_head->setNextStep(m_commands->nextStep());
    m_head->fill(*document);
    m_page->refresh();
}

} // namespace Quillary
