#include "QuillaryUI/Documents/DocumentPane.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryCore/Documents/CreditNotes.h"
#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/ClientSheet.h"
#include "QuillaryUI/Documents/DraftEditor.h"
#include "QuillaryUI/Documents/EmailSheet.h"
#include "QuillaryUI/Documents/MakeRecurringSheet.h"
#include "QuillaryUI/Documents/PaymentSheet.h"
#include "QuillaryUI/Documents/ReminderSheet.h"
#include "QuillaryUI/Documents/StatusText.h"
#include "QuillaryUI/Library/DocumentPage.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Paper/LivePage.h"
#include "QuillaryUI/Paper/PaperPrinting.h"
#include "QuillaryUI/Paper/PaperView.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSplitter>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace Quillary {

namespace {

constexpr int border = 16;

QLabel* label(QWidget* parent, const char* name, double size, bool isBold)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * size);
    font.setBold(isBold);
    label->setFont(font);
    return label;
}

} // namespace

DocumentPane::DocumentPane(LibraryAccess& library, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_paper(new PaperView(library.press(), this))
    , m_page(new LivePage(library.press(), *m_paper))
    , m_editor(new DraftEditor(library, this))
    , m_split(new QSplitter(Qt::Horizontal, this))
    , m_name(label(this, "documentName", 1.3, true))
    , m_status(label(this, "documentStatus", 1.0, true))
    , m_related(label(this, "relatedDocuments", 1.0, false))
    , m_locked(label(this, "documentLocked", 1.0, false))
    , m_edit(new QPushButton(this))
    , m_next(new QPushButton(this))
    , m_more(new QToolButton(this))
    , m_menu(new QMenu(this))
    , m_statusMenu(new QMenu(tr("Status"), this))
    , m_head(new QWidget(this))
    , m_empty(new QLabel(tr("Choose a document to see its page."), this))
{
    setObjectName(QStringLiteral("documentPane"));
    build();
    connect(m_editor, &DraftEditor::wantedClient, this, &DocumentPane::askForClient);
    connect(m_editor, &DraftEditor::pageChanged, m_page, &LivePage::refresh);
    connect(m_editor, &DraftEditor::wantedClientRecord, this, &DocumentPane::wantedClient);
    connect(m_editor, &DraftEditor::wantedSettings, this, [this] { Q_EMIT wantedSection(QStringLiteral("settings")); });
    connect(m_editor, &DraftEditor::failed, this, &DocumentPane::failed);
    connect(m_related, &QLabel::linkActivated, this, [this](const QString& key) {
        Q_EMIT wantedDocument(key.toLongLong());
    });
    connect(&library, &LibraryAccess::changed, this, &DocumentPane::reload);
    connect(&library, &LibraryAccess::opened, this, &DocumentPane::reload);
    setDocument(0);
    reload();
}

void DocumentPane::buildActions()
{
    m_pay = addAction(tr("Record Payment…"),
                      QStringLiteral("pay"),
                      QKeySequence(QStringLiteral("Ctrl+Shift+P")),
                      &DocumentPane::askForPayment);
    m_remind = addAction(tr("Send Reminder…"),
                         QStringLiteral("remind"),
                         QKeySequence(QStringLiteral("Ctrl+Shift+R")),
                         &DocumentPane::askForReminder);
    m_email =
        addAction(tr("Email…"), QStringLiteral("email"), QKeySequence(QStringLiteral("Ctrl+E")), &DocumentPane::email);
    m_save = addAction(tr("Save as PDF"),
                       QStringLiteral("savePDF"),
                       QKeySequence(QStringLiteral("Ctrl+Shift+S")),
                       &DocumentPane::savePDF);
    m_print =
        addAction(tr("Print…"), QStringLiteral("print"), QKeySequence(QStringLiteral("Ctrl+P")), &DocumentPane::print);
    m_duplicate = addAction(
        tr("Duplicate"), QStringLiteral("duplicate"), QKeySequence(QStringLiteral("Ctrl+D")), &DocumentPane::duplicate);
    m_repeat = addAction(tr("New Invoice Like the Client's Last"),
                         QStringLiteral("repeatLast"),
                         QKeySequence(QStringLiteral("Ctrl+Shift+D")),
                         &DocumentPane::repeatLast);
    m_toInvoice = addAction(tr("Make Invoice"),
                            QStringLiteral("makeInvoice"),
                            QKeySequence(QStringLiteral("Ctrl+I")),
                            &DocumentPane::makeInvoice);
    m_credit = addAction(tr("Make Credit Note"), QStringLiteral("makeCreditNote"), {}, &DocumentPane::makeCreditNote);
    m_recurring = addAction(tr("Make Recurring…"), QStringLiteral("makeRecurring"), {}, &DocumentPane::makeRecurring);
    m_remove = addAction(tr("Delete Draft…"), QStringLiteral("deleteDraft"), {}, &DocumentPane::removeDraft);
    for (QAction* action : std::as_const(m_actions)) {
        m_menu->addAction(action);
    }
    m_menu->insertMenu(m_remove, m_statusMenu);
}

void DocumentPane::buildHead()
{
    m_edit->setObjectName(QStringLiteral("editDraft"));
    connect(m_edit, &QPushButton::clicked, this, [this] { m_isEditing ? endEditing() : beginEditing(); });
    m_next->setObjectName(QStringLiteral("nextStep"));
    m_next->setShortcut(QKeySequence(QStringLiteral("Ctrl+Return")));
    m_next->setDefault(true);
    connect(m_next, &QPushButton::clicked, this, &DocumentPane::runNext);
    m_more->setText(tr("More"));
    m_more->setObjectName(QStringLiteral("moreActions"));
    m_more->setAccessibleName(tr("More actions"));
    m_more->setIcon(Theme::icon(QStringLiteral("more")));
    m_more->setPopupMode(QToolButton::InstantPopup);
    m_more->setMenu(m_menu);

    auto* names = new QVBoxLayout;
    names->setSpacing(2);
    names->addWidget(m_name);
    names->addWidget(m_status);
    names->addWidget(m_related);
    auto* head = new QHBoxLayout(m_head);
    head->setContentsMargins(border, border, border, border / 2);
    head->addLayout(names, 1);
    head->addWidget(m_edit);
    head->addWidget(m_next);
    head->addWidget(m_more);
}

void DocumentPane::build()
{
    buildActions();
    buildHead();
    m_related->setTextFormat(Qt::RichText);
    m_related->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    m_related->setWordWrap(true);
    m_locked->setWordWrap(true);
    m_locked->setContentsMargins(border, 0, border, border / 2);
    Theme::tint(*m_locked, palette().color(QPalette::PlaceholderText));
    m_empty->setAlignment(Qt::AlignCenter);
    Theme::tint(*m_empty, palette().color(QPalette::PlaceholderText));

    m_split->setObjectName(QStringLiteral("editorAndPage"));
    m_split->setChildrenCollapsible(false);
    m_split->addWidget(m_editor);
    m_split->addWidget(m_paper);
    m_split->setStretchFactor(0, 1);
    m_split->setStretchFactor(1, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_head);
    column->addWidget(m_locked);
    column->addWidget(m_split, 1);
    column->addWidget(m_empty, 1);
}

QAction*
DocumentPane::addAction(const QString& text, const QString& name, const QKeySequence& keys, void (DocumentPane::*run)())
{
    auto* action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, [this, run] {
        flush();
        if (record() != nullptr) {
            (this->*run)();
        }
    });
    QWidget::addAction(action);
    m_actions.push_back(action);
    return action;
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
    m_editor->flush();
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
    m_isEditing = true;
    reload();
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
    const Document* document = record();
    const bool isDraft = this->isDraft();
    if (m_isEditing && !isDraft) {
        endEditing(); // it was sent, or is gone
        return;
    }
    m_head->setVisible(document != nullptr);
    m_split->setVisible(document != nullptr);
    m_empty->setVisible(document == nullptr);
    m_editor->setVisible(m_isEditing);
    m_edit->setVisible(isDraft);
    m_edit->setText(m_isEditing ? tr("Done") : tr("Edit"));
    m_locked->setVisible(document != nullptr && !isDraft && kind(*document) != DocumentKind::recurring);
    for (QAction* action : std::as_const(m_actions)) {
        action->setEnabled(document != nullptr);
    }
    m_editor->setDocument(m_isEditing ? m_document : 0);
    if (document == nullptr) {
        return;
    }
    const Client* client = m_library.context().find(document->client);
    m_name->setText(client != nullptr
                        ? tr("%1 · %2").arg(CoreText::sentence(documentName(*document)), text(displayName(*client)))
                        : CoreText::sentence(documentName(*document)));
    const Calendar& calendar = m_library.formats().calendar();
    const DisplayStatus shown = displayStatus(*document, m_library.today(), calendar);
    m_status->setText(
        StatusText::sentence(shown, daysOverdue(*document, m_library.today(), calendar), kind(*document)));
    Theme::tint(*m_status, Theme::statusColor(shown));
    m_locked->setText(
        tr("This document has been sent, so it stays as it is. To correct it, take it back to draft under "
           "More ▸ Status, or credit it."));
    fillActions(*document);
    fillRelated(*document);
    m_page->refresh();
}

void DocumentPane::fillActions(const Document& document)
{
    const auto kind = Quillary::kind(document);
    const bool isInvoice = kind == DocumentKind::invoice;
    const bool isDraft = status(document) == DocumentStatus::draft;
    const std::vector<StatusAction> steps = statusActions(document);
    m_nextStep = steps.empty() ? std::nullopt : std::optional(steps.front());
    const bool asksToPay = m_nextStep == StatusAction::markPaid;
    m_next->setVisible(m_nextStep.has_value());
    if (m_nextStep) {
        m_next->setText(asksToPay ? tr("Record Payment…") : StatusText::action(*m_nextStep, kind));
    }
    m_statusMenu->clear();
    for (const StatusAction step : steps) {
        m_statusMenu->addAction(StatusText::action(step, kind), this, [this, step] {
            flush();
            applyStatus(step);
        });
    }
    m_statusMenu->menuAction()->setVisible(!steps.empty());
    m_pay->setVisible(acceptsPayments(document) && kind != DocumentKind::recurring);
    m_remind->setVisible(isInvoice && canSendReminder(m_library.context(), document));
    m_toInvoice->setVisible(kind == DocumentKind::quote);
    m_credit->setVisible(isInvoice && !isDraft);
    m_repeat->setVisible(document.client.key() != 0);
    m_recurring->setVisible(isInvoice);
    m_remove->setVisible(isDraft);
}

/// What the document was made from, and what was made from it, each a click away.
void DocumentPane::fillRelated(const Document& document)
{
    const auto link = [this](const Document& other) {
        const DisplayStatus shown = displayStatus(other, m_library.today(), m_library.formats().calendar());
        const bool isTemplate = kind(other) == DocumentKind::recurring;
        const QString name =
            isTemplate && !other.title.empty() ? text(other.title) : CoreText::sentence(documentName(other));
        const QString words = isTemplate ? name : tr("%1 (%2)").arg(name, StatusText::word(shown, kind(other)));
        return QStringLiteral("<a href=\"%1\">%2</a>").arg(other.ref.key()).arg(words.toHtmlEscaped());
    };
    Context& context = m_library.context();
    QStringList parts;
    const Document* source = document.sourceDocumentID ? context.find<Document>(*document.sourceDocumentID) : nullptr;
    if (source != nullptr) {
        parts.push_back(
            (kind(document) == DocumentKind::creditNote ? tr("Credits %1") : tr("From %1")).arg(link(*source)));
    }
    QStringList made;
    for (const Document* derived : derivedDocuments(context, document)) {
        made.push_back(link(*derived));
    }
    if (!made.empty()) {
        parts.push_back(tr("Led to %1").arg(made.join(QStringLiteral(", "))));
    }
    m_related->setText(parts.join(QStringLiteral(" &nbsp;·&nbsp; ")));
    m_related->setVisible(!parts.empty());
}

void DocumentPane::showResult(const std::optional<QString>& refusal, const QString& success)
{
    if (refusal) {
        Q_EMIT failed(*refusal);
    } else if (!success.isEmpty()) {
        Q_EMIT told(success);
    }
}

void DocumentPane::applyStatus(StatusAction action)
{
    showResult(
        m_library.attempt([&] { DocumentActions::applyStatus(m_library.desk(), *record(), action, m_library.now()); }),
        {});
}

void DocumentPane::runNext()
{
    flush();
    if (m_nextStep == StatusAction::markPaid) {
        askForPayment();
    } else if (m_nextStep) {
        applyStatus(*m_nextStep);
    }
}

void DocumentPane::make(const QString& name, const std::function<const Document&()>& work)
{
    std::int64_t made = 0;
    const auto refusal = m_library.attempt([&] { made = work().ref.key(); });
    showResult(refusal, {});
    if (!refusal) {
        Q_EMIT told(name);
        Q_EMIT wantedDocument(made);
    }
}

/// The client's last invoice again, as a draft of today with its texts and terms as they are now.
void DocumentPane::repeatLast()
{
    const Client* client = m_library.context().find(record()->client);
    if (client == nullptr) {
        return;
    }
    std::int64_t made = 0;
    const auto refusal = m_library.perform(tr("New Invoice"), [&] {
        const JSON wish = JSON::object({{"client", Lookup::idText(client->uuid)}, {"copy_last_invoice", true}});
        DocumentSession session = DocumentSession::create(m_library.environment(), "invoice");
        session.apply(Arguments(wish));
        made = session.document().ref.key();
    });
    showResult(refusal, tr("A draft like the client's last invoice was made."));
    if (!refusal) {
        Q_EMIT wantedDocument(made);
        if (m_document == made) {
            beginEditing();
        }
    }
}

void DocumentPane::makeRecurring()
{
    auto* sheet = new MakeRecurringSheet(m_library, m_document, this);
    connect(sheet, &MakeRecurringSheet::made, this, [this](std::int64_t key) {
        Q_EMIT told(tr("The recurring invoice was made."));
        Q_EMIT wantedDocument(key);
    });
    sheet->begin();
}

void DocumentPane::duplicate()
{
    make(tr("A copy was made as a draft."), [this]() -> const Document& {
        const Instant day = m_library.formats().calendar().addingDays(m_library.now(), 0);
        return DocumentActions::duplicate(m_library.desk(), *record(), day, {});
    });
}

void DocumentPane::makeInvoice()
{
    make(tr("A draft invoice was made from the quote."), [this]() -> const Document& {
        const Instant day = m_library.formats().calendar().addingDays(m_library.now(), 0);
        return DocumentActions::invoiceFromQuote(m_library.desk(), *record(), day, {});
    });
}

void DocumentPane::makeCreditNote()
{
    make(tr("A draft credit note was made for all that is left of the invoice."), [this]() -> const Document& {
        const Instant day = m_library.formats().calendar().addingDays(m_library.now(), 0);
        return CreditNotes::make(m_library.desk(), *record(), {.issueDate = day});
    });
}

void DocumentPane::askForPayment()
{
    (new PaymentSheet(m_library, m_document, this))->begin();
}

void DocumentPane::askForReminder()
{
    (new ReminderSheet(m_library, m_document, this))->begin();
}

void DocumentPane::askForClient(const QString& name)
{
    auto* sheet = new ClientSheet(m_library, name, this);
    connect(sheet, &ClientSheet::made, this, [this](const QString& id) {
        const Document* document = record();
        if (document != nullptr) {
            DraftDesk desk(m_library);
            desk.setDocument(m_document);
            showResult(desk.change(tr("Change Document"), "client", utf8(id)), {});
        }
    });
    sheet->begin();
}

void DocumentPane::savePDF()
{
    const Document& document = *record();
    const Calendar& calendar = m_library.formats().calendar();
    const std::string name = pdfFileName(m_library.context(), document, m_library.business(), calendar);
    const std::filesystem::path folder = m_library.environment().printer().downloadsFolder();
    m_library.press().press(pageJob(m_library.context(), document, m_library.business(), calendar),
                            [self = QPointer(this), name, folder](const PrintResult& result) {
                                if (!self) {
                                    return;
                                }
                                const auto* pdf = std::get_if<PrintedPDF>(&result);
                                if (pdf == nullptr) {
                                    Q_EMIT self->failed(text(std::get<PrintError>(result).message()));
                                    return;
                                }
                                try {
                                    const auto file = saveUniqueFile(folder, name, "pdf", pdf->bytes);
                                    Q_EMIT self->told(tr("Saved as %1").arg(text(file.string())));
                                } catch (const UserError& error) {
                                    Q_EMIT self->failed(text(error.message()));
                                }
                            });
}

/// The printer is chosen first; the page is made anew then, so that what lies on the paper is what the library holds.
void DocumentPane::print()
{
    const Document& document = *record();
    const PageJob job = pageJob(m_library.context(), document, m_library.business(), m_library.formats().calendar());
    auto* dialog = new QPrintDialog(this); // its printer goes with it
    dialog->setObjectName(QStringLiteral("printDialog"));
    dialog->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                       QAbstractPrintDialog::PrintCollateCopies);
    PaperPrinting::prepare(*dialog->printer(), job.geometry, CoreText::sentence(documentName(document)));
    connect(dialog, &QDialog::rejected, dialog, &QObject::deleteLater);
    connect(dialog, &QDialog::accepted, this, [this, dialog, job] {
        m_library.press().press(job, [self = QPointer(this), asked = QPointer(dialog)](const PrintResult& result) {
            if (self && asked) {
                self->printPages(*asked, result);
            }
        });
    });
    dialog->open();
}

void DocumentPane::printPages(QPrintDialog& dialog, const PrintResult& result)
{
    dialog.deleteLater();
    if (const auto* error = std::get_if<PrintError>(&result)) {
        Q_EMIT failed(text(error->message()));
        return;
    }
    try {
        PaperPrinting::print(m_library.press(), std::get<PrintedPDF>(result), *dialog.printer(), window());
    } catch (const PrintError& error) {
        Q_EMIT failed(text(error.message()));
    }
}

void DocumentPane::email()
{
    (new EmailSheet(m_library, m_document, this))->begin();
}

void DocumentPane::removeDraft()
{
    const QString name = CoreText::sentence(documentName(*record()));
    QMessageBox question(QMessageBox::Question, tr("Delete Draft"), tr("Delete %1?").arg(name), {}, this);
    question.setInformativeText(tr("Time that it billed becomes free again. Undo brings it back."));
    QPushButton* yes = question.addButton(tr("Delete"), QMessageBox::DestructiveRole);
    question.addButton(QMessageBox::Cancel);
    question.exec();
    if (question.clickedButton() == yes && record() != nullptr) {
        showResult(m_library.attempt([&] { DocumentActions::deleteDraft(m_library.desk(), *record()); }),
                   tr("%1 was deleted.").arg(name));
    }
}

} // namespace Quillary
