#include "QuillaryUI/Documents/DraftEditor.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/FilledIn.h"
#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/ClientPicker.h"
#include "QuillaryUI/Documents/DraftCharges.h"
#include "QuillaryUI/Documents/DraftDates.h"
#include "QuillaryUI/Documents/DraftFields.h"
#include "QuillaryUI/Documents/DraftFiling.h"
#include "QuillaryUI/Documents/LinesModel.h"
#include "QuillaryUI/Documents/LinesPanel.h"
#include "QuillaryUI/Documents/PresetButton.h"
#include "QuillaryUI/Documents/ReviewPanel.h"
#include "QuillaryUI/Look/Theme.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace Quillary {

namespace {

constexpr int pause = 600; ///< milliseconds; with saving well below a second
constexpr int border = 20;
constexpr int leastWidth = 560;

/// One column of labels over several forms.
void alignLabels(std::initializer_list<const QFormLayout*> forms)
{
    std::vector<QWidget*> labels;
    int width = 0;
    for (const QFormLayout* form : forms) {
        for (int row = 0; row < form->rowCount(); ++row) {
            const QLayoutItem* item = form->itemAt(row, QFormLayout::LabelRole);
            if (item != nullptr && item->widget() != nullptr) {
                labels.push_back(item->widget());
                width = std::max(width, item->widget()->sizeHint().width());
            }
        }
    }
    for (QWidget* label : labels) {
        label->setMinimumWidth(width);
    }
}

} // namespace

DraftEditor::DraftEditor(LibraryAccess& library, QWidget* parent)
    : QScrollArea(parent)
    , m_desk(library)
    , m_fields(new DraftFields(m_desk, this))
{
    setObjectName(QStringLiteral("draftEditor"));
    setFocusPolicy(Qt::NoFocus); // its fields have it
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setMinimumWidth(leastWidth);
    build();
    m_pause.setSingleShot(true);
    m_pause.setInterval(pause);
    connect(&m_pause, &QTimer::timeout, this, &DraftEditor::flush);
    connect(&library, &LibraryAccess::changed, this, &DraftEditor::reload);
    connect(&library, &LibraryAccess::opened, this, [this] {
        m_desk.retry();
        reload();
    });
    connect(&library, &LibraryAccess::closing, this, &DraftEditor::flush);
    connect(&m_desk, &DraftDesk::waitingChanged, this, &DraftEditor::showWaiting);
    connect(&m_desk, &DraftDesk::refused, this, &DraftEditor::failed);
    connect(m_fields, &DraftFields::typing, this, &DraftEditor::whenTyped);
    connect(&m_lines->lines(), &LinesModel::typing, this, &DraftEditor::whenTyped);
}

void DraftEditor::build()
{
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(border, border, border, border);
    column->setSpacing(12);
    setWidget(page);
    buildWaiting();
    column->addWidget(m_waiting);
    buildReview();
    column->addWidget(m_review);
    auto* head = new QFormLayout;
    column->addLayout(head);
    buildHead(*head);
    m_lines = new LinesPanel(m_desk, *m_fields, page);
    column->addWidget(m_lines);
    auto* texts = new QFormLayout;
    column->addLayout(texts);
    buildTexts(*texts);
    m_filing = new DraftFiling(m_desk, *m_fields, page);
    column->addWidget(m_filing);
    column->addStretch();
    alignLabels({head, texts, &m_filing->form()});
}

void DraftEditor::buildWaiting()
{
    m_waiting = new QLabel(widget());
    m_waiting->setObjectName(QStringLiteral("notSavedYet"));
    m_waiting->setWordWrap(true);
    m_waiting->setTextFormat(Qt::RichText);
    m_waiting->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    Theme::tint(*m_waiting, Theme::errorColor());
    m_waiting->hide();
    connect(m_waiting, &QLabel::linkActivated, this, [this] {
        m_desk.retry();
        showWaiting();
    });
}

void DraftEditor::buildReview()
{
    m_review = new ReviewPanel(m_desk, widget());
    connect(m_review, &ReviewPanel::wantedField, this, &DraftEditor::showField);
    connect(m_review, &ReviewPanel::wantedNewClient, this, [this] { Q_EMIT wantedClient({}); });
    connect(m_review, &ReviewPanel::wantedClient, this, &DraftEditor::wantedClientRecord);
    connect(m_review, &ReviewPanel::wantedSettings, this, &DraftEditor::wantedSettings);
    connect(m_review, &ReviewPanel::failed, this, &DraftEditor::failed);
}

void DraftEditor::buildHead(QFormLayout& form)
{
    buildClient(form);
    m_dates = new DraftDates(m_desk, *m_fields, form, this);
    m_title = m_fields->addLine(form, tr("Title"), "title");
    m_intro = presetField(form, tr("Introduction"), "intro");
}

void DraftEditor::buildClient(QFormLayout& form)
{
    m_client = new ClientPicker(m_desk.library());
    connect(m_client, &ClientPicker::picked, this, [this](std::int64_t key) {
        if (const Client* client = m_desk.library().context().find(Ref<Client>(key))) {
            setClient(text(Lookup::idText(client->uuid)));
        }
    });
    connect(m_client, &ClientPicker::wantedNew, this, &DraftEditor::wantedClient);
    m_fields->addRow(form, tr("Client"), "client", m_client);
}

QPlainTextEdit* DraftEditor::presetField(QFormLayout& form, const QString& label, const std::string& field)
{
    QPlainTextEdit* edit = m_fields->makeText(field);
    auto* presets = new PresetButton(
        m_desk.library(), field == "intro" ? PresetButton::Kind::intro : PresetButton::Kind::outro, *edit);
    connect(presets, &PresetButton::failed, this, &DraftEditor::failed);
    auto* both = new QWidget;
    auto* row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(edit, 1);
    row->addWidget(presets, 0, Qt::AlignTop);
    m_fields->addRow(form, label, field, edit, both);
    return edit;
}

void DraftEditor::buildTexts(QFormLayout& form)
{
    m_charges = new DraftCharges(m_desk, *m_fields, form, this);
    m_outro = presetField(form, tr("Closing text"), "footer");
}

void DraftEditor::setDocument(std::int64_t key)
{
    if (key == m_desk.key()) {
        return;
    }
    flush();
    m_desk.setDocument(key);
    m_fields->forget();
    m_desk.look([this](const Document& draft) { m_fields->fill(true, [&] { fill(draft); }); });
}

void DraftEditor::reload()
{
    m_desk.look([this](const Document& draft) { m_fields->fill(false, [&] { fill(draft); }); });
}

void DraftEditor::setClient(const QString& id)
{
    m_fields->tell("client", m_desk.change(tr("Change Document"), "client", utf8(id)).value_or(QString()));
}

void DraftEditor::fill(const Document& draft)
{
    if (m_fields->isOther() || !m_client->hasFocus() || m_client->client() != draft.client.key()) {
        m_client->setClient(draft.client.key());
    }
    m_dates->fill(draft);
    m_fields->put(*m_title, text(draft.title));
    m_fields->put(*m_intro, text(draft.introText));
    m_lines->fill(draft);
    m_charges->fill(draft);
    m_fields->put(*m_outro, text(draft.outroText));
    m_filing->fill(draft);
    m_fields->showFilledIn(FilledIn::fields(m_desk.library().environment(), draft));
    m_review->reload();
}

void DraftEditor::showField(const QString& field)
{
    QWidget* found = m_fields->widget(utf8(field));
    QWidget* place = found == nullptr ? m_fields->widget("lines") : found;
    if (!place->isVisibleTo(widget())) {
        m_filing->open();
    }
    ensureWidgetVisible(place);
    place->setFocus(Qt::OtherFocusReason);
}

void DraftEditor::begin()
{
    const Document* draft = m_desk.document();
    if (draft == nullptr) {
        return;
    }
    if (!draft->client) {
        m_client->setFocus(Qt::OtherFocusReason);
    } else {
        m_lines->begin();
    }
}

void DraftEditor::whenTyped()
{
    m_pause.start();
    Q_EMIT pageChanged();
}

std::optional<PageJob> DraftEditor::typedPage()
{
    const LinesModel& lines = m_lines->lines();
    if (!m_fields->hasUnsaved() && !lines.isTyping()) {
        return std::nullopt;
    }
    JSON arguments = JSON::object({});
    m_fields->addUnsaved(arguments);
    lines.addTyping(arguments);
    std::optional<PageJob> job;
    m_desk.preview(arguments, [&](const Document& draft) {
        const LibraryAccess& library = m_desk.library();
        m_lines->showTotals(draft);
        job = pageJob(library.context(), draft, library.business(), library.formats().calendar());
    });
    return job;
}

void DraftEditor::flush()
{
    m_pause.stop();
    m_desk.retry();
    m_lines->lines().saveTyping();
    m_fields->save();
}

/// The window tells of it, too: the form may not be in sight.
void DraftEditor::showWaiting()
{
    m_waiting->setVisible(m_desk.isWaiting());
    m_waiting->setText(tr("Not saved yet: %1 <a href=\"again\">Try again</a>").arg(m_desk.reason().toHtmlEscaped()));
    if (m_desk.isWaiting()) {
        Q_EMIT failed(unsavedWork());
        QTimer::singleShot(0, this, &DraftEditor::reload); // nothing else tells of it
    }
}

QString DraftEditor::unsavedWork() const
{
    return m_desk.isWaiting()
               ? tr("%1 What you typed is kept here, and saved as soon as that works.").arg(m_desk.reason())
               : QString();
}

} // namespace Quillary
