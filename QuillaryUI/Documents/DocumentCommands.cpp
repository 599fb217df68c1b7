#include "QuillaryUI/Documents/DocumentCommands.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Review/DocumentReview.h"
#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryCore/Documents/CreditNotes.h"
#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/ClientSheet.h"
#include "QuillaryUI/Documents/DocumentOutput.h"
#include "QuillaryUI/Documents/MakeRecurringSheet.h"
#include "QuillaryUI/Documents/PaymentSheet.h"
#include "QuillaryUI/Documents/ReminderSheet.h"
#include "QuillaryUI/Documents/StatusText.h"
#include "QuillaryUI/Look/CoreText.h"

#include <QAction>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

DocumentCommands::DocumentCommands(LibraryAccess& library, QWidget& pane)
    : QObject(&pane)
    , m_library(library)
    , m_pane(pane)
    , m_output(new DocumentOutput(library, pane))
    , m_menu(new QMenu(&pane))
    , m_statusMenu(new QMenu(tr("Status"), &pane))
{
    build();
    connect(m_output, &DocumentOutput::told, this, &DocumentCommands::told);
    connect(m_output, &DocumentOutput::failed, this, &DocumentCommands::failed);
}

void DocumentCommands::build()
{
    m_pay = add(tr("Record Payment…"), "pay", "Ctrl+Shift+P", &DocumentCommands::askForPayment);
    m_remind = add(tr("Send Reminder…"), "remind", "Ctrl+Shift+R", &DocumentCommands::askForReminder);
    addOutput(tr("Email…"), "email", "Ctrl+E", &DocumentOutput::email);
    addOutput(tr("Save as PDF"), "savePDF", "Ctrl+Shift+S", &DocumentOutput::savePDF);
    addOutput(tr("Print…"), "print", "Ctrl+P", &DocumentOutput::print);
    add(tr("Duplicate"), "duplicate", "Ctrl+D", &DocumentCommands::duplicate);
    m_repeat =
        add(tr("New Invoice Like the Client's Last"), "repeatLast", "Ctrl+Shift+D", &DocumentCommands::repeatLast);
    m_toInvoice = add(tr("Make Invoice"), "makeInvoice", "Ctrl+I", &DocumentCommands::makeInvoice);
    m_credit = add(tr("Make Credit Note"), "makeCreditNote", "", &DocumentCommands::makeCreditNote);
    m_recurring = add(tr("Make Recurring…"), "makeRecurring", "", &DocumentCommands::makeRecurring);
    m_remove = add(tr("Delete Draft…"), "deleteDraft", "", &DocumentCommands::removeDraft);
    m_menu->addActions(m_actions);
    m_menu->insertMenu(m_remove, m_statusMenu);
}

QAction* DocumentCommands::addAction(const QString& text, const char* name, const char* keys)
{
    auto* action = new QAction(text, &m_pane);
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(QKeySequence(QString::fromLatin1(keys)));
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_pane.addAction(action);
    m_actions.push_back(action);
    return action;
}

QAction* DocumentCommands::add(const QString& text, const char* name, const char* keys, Run run)
{
    QAction* action = addAction(text, name, keys);
    connect(action, &QAction::triggered, this, [this, run] {
        Q_EMIT starting();
        if (const Document* document = record()) {
            (this->*run)(*document);
        }
    });
    return action;
}

void DocumentCommands::addOutput(const QString& text,
                                 const char* name,
                                 const char* keys,
                                 void (DocumentOutput::*run)(const Document&))
{
    connect(addAction(text, name, keys), &QAction::triggered, this, [this, run] {
        Q_EMIT starting();
        if (const Document* document = record()) {
            (m_output->*run)(*document);
        }
    });
}

const Document* DocumentCommands::record() const
{
    return m_library.isOpen() ? m_library.context().find(Ref<Document>(m_document)) : nullptr;
}

void DocumentCommands::offer(const Document* document)
{
    for (QAction* action : std::as_const(m_actions)) {
        action->setEnabled(document != nullptr);
    }
    if (document == nullptr) {
        return;
    }
    const auto kind = Quillary::kind(*document);
    const bool isInvoice = kind == DocumentKind::invoice;
    const bool isDraft = status(*document) == DocumentStatus::draft;
    offerSteps(*document);
    m_pay->setVisible(acceptsPayments(*document) && kind != DocumentKind::recurring);
    m_remind->setVisible(isInvoice && canSendReminder(m_library.context(), *document));
    m_toInvoice->setVisible(kind == DocumentKind::quote);
    m_credit->setVisible(isInvoice && !isDraft);
    m_repeat->setVisible(document->client.key() != 0);
    m_recurring->setVisible(isInvoice);
    m_remove->setVisible(isDraft);
}

void DocumentCommands::offerSteps(const Document& document)
{
    const auto kind = Quillary::kind(document);
    const std::vector<StatusAction> steps = statusActions(document);
    m_nextStep = steps.empty() ? std::nullopt : std::optional(steps.front());
    m_nextStepName = !m_nextStep                            ? QString()
                     : m_nextStep == StatusAction::markPaid ? m_pay->text()
                                                            : StatusText::action(*m_nextStep, kind);
    m_statusMenu->clear();
    for (const StatusAction step : steps) {
        m_statusMenu->addAction(StatusText::action(step, kind), this, [this, step] {
            Q_EMIT starting();
            applyStatus(step);
        });
    }
    m_statusMenu->menuAction()->setVisible(!steps.empty());
}

void DocumentCommands::runNextStep()
{
    Q_EMIT starting();
    const Document* document = record();
    if (document == nullptr || !m_nextStep) {
        return;
    }
    if (m_nextStep == StatusAction::markPaid) {
        askForPayment(*document);
    } else {
        applyStatus(*m_nextStep);
    }
}

void DocumentCommands::applyStatus(StatusAction action)
{
    const QString missing = action == StatusAction::markSent ? missingWords() : QString();
    showResult(m_library.attempt([&] {
        if (const Document* document = record()) {
            DocumentActions::applyStatus(m_library.desk(), *document, action, m_library.now());
        }
    }),
               missing.isEmpty() ? QString() : tr("Marked as sent, though something is missing: %1").arg(missing));
}

/// The first thing that the document can't be right without. It is no reason to refuse, since a document can be taken back
/// to a draft; but nobody should hear of it from the client first.
QString DocumentCommands::missingWords() const
{
    const Document* document = record();
    if (document == nullptr) {
        return {};
    }
    const AssistantEnvironment& environment = m_library.environment();
    const DocumentReview review = DocumentReview::review(
        environment.context, *document, environment.ownBusiness(), m_library.today(), environment.locale);
    if (!review.problems.empty()) {
        return CoreText::sentence(review.problems.front().problem);
    }
    const auto question = std::ranges::find(review.questions, true, &ReviewQuestion::isRequired);
    return question == review.questions.end() ? QString() : CoreText::sentence(question->text);
}

void DocumentCommands::showResult(const std::optional<QString>& refusal, const QString& success)
{
    if (refusal) {
        Q_EMIT failed(*refusal);
    } else if (!success.isEmpty()) {
        Q_EMIT told(success);
    }
}

void DocumentCommands::make(const QString& sentence, const std::function<const Document&()>& work)
{
    std::int64_t made = 0;
    const auto refusal = m_library.attempt([&] { made = work().ref.key(); });
    showResult(refusal, sentence);
    if (!refusal) {
        Q_EMIT wantedDocument(made);
    }
}

Instant DocumentCommands::newDay() const
{
    return m_library.formats().calendar().addingDays(m_library.now(), 0);
}

void DocumentCommands::duplicate(const Document& document)
{
    make(tr("A copy was made as a draft."),
         [&]() -> const Document& { return DocumentActions::duplicate(m_library.desk(), document, newDay(), {}); });
}

void DocumentCommands::makeInvoice(const Document& document)
{
    make(tr("A draft invoice was made from the quote."), [&]() -> const Document& {
        return DocumentActions::invoiceFromQuote(m_library.desk(), document, newDay(), {});
    });
}

void DocumentCommands::makeCreditNote(const Document& document)
{
    make(tr("A draft credit note was made for all that is left of the invoice."),
         [&]() -> const Document& { return CreditNotes::make(m_library.desk(), document, {.issueDate = newDay()}); });
}

/// The client's last invoice again, as a draft of today with its texts and terms as they are now.
void DocumentCommands::repeatLast(const Document& document)
{
    const Client* client = m_library.context().find(document.client);
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
        Q_EMIT madeDraft(made);
    }
}

void DocumentCommands::makeRecurring(const Document& document)
{
    auto* sheet = new MakeRecurringSheet(m_library, document.ref.key(), &DocumentOutput::sheetHost(m_pane));
    connect(sheet, &MakeRecurringSheet::made, this, [this](std::int64_t key) {
        Q_EMIT told(tr("The recurring invoice was made."));
        Q_EMIT wantedDocument(key);
    });
    sheet->begin();
}

void DocumentCommands::askForPayment(const Document& document)
{
    (new PaymentSheet(m_library, document.ref.key(), &DocumentOutput::sheetHost(m_pane)))->begin();
}

void DocumentCommands::askForReminder(const Document& document)
{
    (new ReminderSheet(m_library, document.ref.key(), &DocumentOutput::sheetHost(m_pane)))->begin();
}

void DocumentCommands::askForClient(const QString& name)
{
    auto* sheet = new ClientSheet(m_library, name, &DocumentOutput::sheetHost(m_pane));
    connect(sheet, &ClientSheet::made, this, &DocumentCommands::madeClient);
    sheet->begin();
}

void DocumentCommands::removeDraft(const Document& document)
{
    const Ref<Document> draft = document.ref; // another may be shown by the time of the answer
    const QString name = CoreText::sentence(documentName(document));
    QMessageBox question(QMessageBox::Question, tr("Delete Draft"), tr("Delete %1?").arg(name), {}, &m_pane);
    question.setInformativeText(tr("Time that it billed becomes free again. Undo brings it back."));
    QPushButton* yes = question.addButton(tr("Delete"), QMessageBox::DestructiveRole);
    question.addButton(QMessageBox::Cancel);
    question.exec();
    const Document* deleted = m_library.isOpen() ? m_library.context().find(draft) : nullptr;
    if (question.clickedButton() == yes && deleted != nullptr) {
        showResult(m_library.attempt([&] { DocumentActions::deleteDraft(m_library.desk(), *deleted); }),
                   tr("%1 was deleted.").arg(name));
    }
}

} // namespace Quillary
