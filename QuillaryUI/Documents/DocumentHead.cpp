#include "QuillaryUI/Documents/DocumentHead.h"

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/RelatedDocuments.h"
#include "QuillaryUI/Documents/StatusText.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Lettering.h"
#include "QuillaryUI/Look/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace Quillary {

namespace {

constexpr int border = 16;
constexpr int leastForOneRow = 600;

} // namespace

DocumentHead::DocumentHead(const LibraryAccess& library, QMenu& menu, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_name(Lettering::label(this, "documentName", 1.3, QFont::Bold))
    , m_status(Lettering::label(this, "documentStatus", 1.0, QFont::Bold))
    , m_related(new RelatedDocuments(library, this))
    , m_edit(new QPushButton(this))
    , m_next(new QPushButton(this))
    , m_locked(new QLabel(this))
    , m_row(new QBoxLayout(QBoxLayout::LeftToRight))
{
    build(menu);
    connect(m_related, &RelatedDocuments::wantedDocument, this, &DocumentHead::wantedDocument);
    connect(m_edit, &QPushButton::clicked, this, &DocumentHead::editClicked);
    connect(m_next, &QPushButton::clicked, this, &DocumentHead::nextStepClicked);
}

void DocumentHead::build(QMenu& menu)
{
    m_edit->setObjectName(QStringLiteral("editDraft"));
    m_next->setObjectName(QStringLiteral("nextStep"));
    m_next->setDefault(true);
    auto* more = new QToolButton(this);
    more->setText(tr("More"));
    more->setObjectName(QStringLiteral("moreActions"));
    more->setAccessibleName(tr("More actions"));
    more->setIcon(Theme::icon(QStringLiteral("more")));
    more->setPopupMode(QToolButton::InstantPopup);
    more->setMenu(&menu);
    m_locked->setObjectName(QStringLiteral("documentLocked"));
    m_locked->setWordWrap(true);
    m_locked->setContentsMargins(border, 0, border, border / 2);
    Theme::tint(*m_locked, palette().color(QPalette::PlaceholderText));

    m_name->setWordWrap(true);  // a long one takes a second line
    m_name->setMinimumWidth(1); // and a long word no wider window
    m_name->setTextFormat(Qt::PlainText);

    auto* names = new QVBoxLayout;
    names->setSpacing(2);
    names->addWidget(m_name);
    names->addWidget(m_status);
    names->addWidget(m_related);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(border / 2);
    buttons->addWidget(m_edit);
    buttons->addWidget(m_next);
    buttons->addWidget(more);
    buttons->addStretch();
    m_row->setContentsMargins(border, border, border, border / 2);
    m_row->setSpacing(border / 2);
    m_row->addLayout(names, 1);
    m_row->addLayout(buttons);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(m_row);
    column->addWidget(m_locked);
}

/// Beside a wide list the buttons stand below the name.
void DocumentHead::resizeEvent(QResizeEvent* event)
{
    m_row->setDirection(width() < leastForOneRow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    QWidget::resizeEvent(event);
}

void DocumentHead::fill(const Document& document)
{
    const Client* client = m_library.context().find(document.client);
    const QString name = CoreText::sentence(documentName(document));
    m_name->setText(client != nullptr ? tr("%1 · %2").arg(name, text(displayName(*client))) : name);
    const Calendar& calendar = m_library.formats().calendar();
    const DisplayStatus shown = displayStatus(document, m_library.today(), calendar);
    m_status->setText(StatusText::sentence(shown, daysOverdue(document, m_library.today(), calendar), kind(document)));
    Theme::tint(*m_status, Theme::statusColor(shown));
    m_locked->setText(kind(document) == DocumentKind::invoice
                          ? tr("This document has been sent, so it stays as it is. To correct it, take it back to "
                               "draft under More ▸ Status, or credit it.")
                          : tr("This document has been sent, so it stays as it is. To correct it, take it back to "
                               "draft under More ▸ Status."));
    m_locked->setVisible(status(document) != DocumentStatus::draft && kind(document) != DocumentKind::recurring);
    m_related->fill(document);
}

void DocumentHead::setEditing(bool canEdit, bool isEditing)
{
    m_edit->setVisible(canEdit);
    m_edit->setText(isEditing ? tr("Done") : tr("Edit"));
}

void DocumentHead::setNextStep(const QString& words)
{
    m_next->setVisible(!words.isEmpty());
    if (!words.isEmpty()) {
        m_next->setText(words);
        m_next->setShortcut(QKeySequence(QStringLiteral("Ctrl+Return"))); // which new words take away
    }
}

} // namespace Quillary
