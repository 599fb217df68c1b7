#include "QuillaryUI/Documents/DocumentPane.h"

#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/DocumentCommands.h"
#include "QuillaryUI/Documents/DocumentHead.h"
#include "QuillaryUI/Documents/EditedPage.h"
#include "QuillaryUI/Look/Theme.h"

#include <QAction>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace Quillary {

DocumentPane::DocumentPane(LibraryAccess& library, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_commands(new DocumentCommands(library, *this))
    , m_head(new DocumentHead(library, m_commands->menu(), this))
    , m_content(new EditedPage(library, this))
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
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_head);
    column->addWidget(m_content, 1);
    column->addWidget(m_empty, 1);
}

void DocumentPane::connectCommands()
{
    connect(m_head, &DocumentHead::editClicked, this, [this] { isEditing() ? endEditing() : beginEditing(); });
    connect(m_head, &DocumentHead::nextStepClicked, m_commands, &DocumentCommands::runNextStep);
    connect(m_head, &DocumentHead::wantedDocument, this, &DocumentPane::wantedDocument);
    connect(m_commands, &DocumentCommands::starting, this, &DocumentPane::flush);
    connect(m_commands, &DocumentCommands::wantedDocument, this, &DocumentPane::wantedDocument);
    connect(m_commands, &DocumentCommands::madeDraft, this, [this](std::int64_t key) {
        if (m_document == key) {
            beginEditing();
        }
    });
    connect(m_commands, &DocumentCommands::madeClient, m_content, &EditedPage::setClient);
    connect(m_content, &EditedPage::wantedClient, m_commands, &DocumentCommands::askForClient);
    connect(m_content, &EditedPage::wantedClientRecord, this, &DocumentPane::wantedClient);
    connect(m_content, &EditedPage::wantedSettings, this, [this] { Q_EMIT wantedSection(QStringLiteral("settings")); });
    connect(m_content, &EditedPage::failed, this, &DocumentPane::failed);
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
    m_content->setDocument(key);
    reload();
}

bool DocumentPane::isEditing() const
{
    return m_content->isEditing();
}

void DocumentPane::flush()
{
    m_content->flush();
}

QString DocumentPane::unsavedWork() const
{
    return m_content->unsavedWork();
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
    m_content->beginEditing();
    reload();
    Q_EMIT editingChanged(true);
    m_content->beginTyping(); // now that the list has given way
}

void DocumentPane::endEditing()
{
    const bool wasEditing = isEditing();
    m_content->endEditing();
    if (wasEditing) {
        reload();
        Q_EMIT editingChanged(false);
    }
}

void DocumentPane::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && isEditing()) {
        endEditing();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void DocumentPane::reload()
{
    const bool isDraft = this->isDraft();
    if (isEditing() && !isDraft) {
        endEditing(); // it was sent, or is gone
        return;
    }
    m_content->reload();
    const Document* document = record();
    m_head->setVisible(document != nullptr);
    m_content->setVisible(document != nullptr);
    m_empty->setVisible(document == nullptr);
    m_commands->offer(document);
    if (document == nullptr) {
        return;
    }
    m_head->setEditing(isDraft, isEditing());
    m_head->setNextStep(m_commands->nextStep());
    m_head->fill(*document);
}

} // namespace Quillary
