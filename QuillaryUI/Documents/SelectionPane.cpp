#include "QuillaryUI/Documents/SelectionPane.h"

#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/DocumentsRun.h"
#include "QuillaryUI/Documents/ReminderWriting.h"
#include "QuillaryUI/Documents/RemindersSheet.h"
#include "QuillaryUI/Documents/StatusText.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Lettering.h"
#include "QuillaryUI/Look/Sheet.h"
#include "QuillaryUI/Look/Theme.h"

#include <QAction>
#include <QFileDialog>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QStringList>
#include <QVBoxLayout>

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

namespace Quillary {

namespace {

using Failure = DocumentsRun::Failure;

constexpr int border = 24;
constexpr int buttonWidth = 240;
/// One undoable step; takes well below a tenth of a second.
constexpr std::size_t atOnce = 50;
/// Each with a write of its own to the disk.
constexpr std::size_t fewAtOnce = 5;
constexpr StatusAction allActions[] = {StatusAction::markSent,
                                       StatusAction::markPaid,
                                       StatusAction::markUnpaid,
                                       StatusAction::markDraft,
                                       StatusAction::markAccepted,
                                       StatusAction::markDeclined,
                                       StatusAction::reopen};

QString askForFolder(QWidget* parent)
{
    return QFileDialog::getExistingDirectory(parent, SelectionPane::tr("Save PDFs In"));
}

/// "12 invoices": never of one, which has a pane of its own.
QString countText(std::size_t count, DocumentKind kind)
{
    switch (kind) {
    case DocumentKind::quote:
        return SelectionPane::tr("%1 quotes").arg(count);
    case DocumentKind::creditNote:
        return SelectionPane::tr("%1 credit notes").arg(count);
    case DocumentKind::invoice:
    case DocumentKind::recurring:
        break;
    }
    return SelectionPane::tr("%1 invoices").arg(count);
}

/// Does one thing to each of a few documents, and gathers those that refuse.
std::vector<Failure> doToEach(const LibraryAccess& library,
                              const DocumentsRun::Keys& documents,
                              const std::function<void(const Document&)>& work)
{
    std::vector<Failure> failures;
    for (const std::int64_t key : documents) {
        const auto refusal = library.attempt([&] {
            if (const Document* document = library.context().find(Ref<Document>(key))) {
                work(*document);
            } else {
                throw UserError(utf8(SelectionPane::tr("It isn't there any more.")));
            }
        });
        if (refusal) {
            failures.push_back({key, *refusal});
        }
    }
    return failures;
}

/// The same within one step that can be undone.
std::vector<Failure> performAll(const LibraryAccess& library,
                                const QString& name,
                                const DocumentsRun::Keys& documents,
                                const std::function<void(const Document&)>& work)
{
    std::vector<Failure> failures;
    const auto refusal = library.perform(name, [&] { failures = doToEach(library, documents, work); });
    if (refusal) { // none of them was saved
        failures.clear();
        for (const std::int64_t key : documents) {
            failures.push_back({key, *refusal});
        }
    }
    return failures;
}

bool hasAny(const std::map<std::string, std::int64_t, std::less<>>& amounts)
{
    return std::ranges::any_of(amounts, [](const auto& amount) { return amount.second != 0; });
}

} // namespace

SelectionPane::SelectionPane(LibraryAccess& library, DocumentKind kind, DocumentsRun& run, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_kind(kind)
    , m_run(run)
    , m_host(parent)
    , m_chooseFolder(askForFolder)
    , m_heading(new QLabel(this))
    , m_facts(new QLabel(this))
    , m_buttons(new QVBoxLayout)
{
    setObjectName(QStringLiteral("selectionPane"));
    build();
    connect(&run, &DocumentsRun::busyChanged, this, [this](bool isBusy) {
        for (QAction* action : std::as_const(m_actions)) {
            action->setEnabled(!isBusy);
        }
    });
}

void SelectionPane::build()
{
    Lettering::set(*m_heading, 1.6);
    m_heading->setObjectName(QStringLiteral("selectionHeading"));
    m_facts->setObjectName(QStringLiteral("selectionFacts"));
    m_facts->setTextFormat(Qt::RichText);
    m_facts->setWordWrap(true);
    m_buttons->setSpacing(8);
    addStatusActions();
    m_remind = addAction(tr("Send Reminders…"),
                         QStringLiteral("remindAll"),
                         QKeySequence(QStringLiteral("Ctrl+Shift+R")),
                         &SelectionPane::askForReminders);
    m_save = addAction(tr("Save as PDFs…"),
                       QStringLiteral("saveAll"),
                       QKeySequence(QStringLiteral("Ctrl+Shift+S")),
                       &SelectionPane::savePDFs);
    m_remove = addAction(tr("Delete Drafts…"), QStringLiteral("deleteAll"), {}, &SelectionPane::askToDelete);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(border, border, border, border);
    column->setSpacing(16);
    column->addWidget(m_heading);
    column->addWidget(m_facts);
    column->addLayout(m_buttons);
    column->addStretch();
}

QAction* SelectionPane::addAction(const QString& text,
                                  const QString& name,
                                  const QKeySequence& keys,
                                  void (SelectionPane::*run)())
{
    auto* action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    if (run != nullptr) {
        connect(action, &QAction::triggered, this, run);
    }
    QWidget::addAction(action);
    m_actions.push_back(action);
    auto* button = new QPushButton(text, this);
    button->setObjectName(name + QStringLiteral("Button"));
    button->setMinimumWidth(buttonWidth);
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::changed, button, [action, button] {
        button->setVisible(action->isVisible());
        button->setEnabled(action->isEnabled());
    });
    m_buttons->addWidget(button, 0, Qt::AlignLeft);
    return action;
}

void SelectionPane::addStatusActions()
{
    for (const StatusAction status : allActions) {
        QAction* action =
            addAction(StatusText::action(status, m_kind), QStringLiteral("statusAll%1").arg(int(status)), {}, nullptr);
        connect(action, &QAction::triggered, this, [this, status] { applyToAll(status); });
        m_statusActions.push_back(action);
    }
}

void SelectionPane::setDocuments(Keys documents, const DocumentRows::Sum& sum, const DocumentRows::Summary& summary)
{
    m_documents = std::move(documents);
    m_heading->setText(countText(m_documents.size(), m_kind));
    showFacts(sum, summary);
    for (std::size_t place = 0; place < std::size(allActions); ++place) {
        m_statusActions[int(place)]->setVisible(std::ranges::find(summary.actions, allActions[place]) !=
                                                summary.actions.end());
    }
    m_remind->setVisible(m_kind == DocumentKind::invoice && summary.owesAll);
    m_areDrafts = summary.statuses.front() == m_documents.size();
    m_remove->setVisible(m_areDrafts);
}

void SelectionPane::showFacts(const DocumentRows::Sum& sum, const DocumentRows::Summary& summary)
{
    const Formats& formats = m_library.formats();
    QStringList lines;
    QString money = tr("%1 in total").arg(formats.sums(sum.totals));
    if (hasAny(sum.due)) {
        money += QStringLiteral("  ·  ") + tr("%1 open").arg(formats.sums(sum.due));
    }
    lines.push_back(money.toHtmlEscaped());
    QStringList statuses;
    for (const DisplayStatus status : allDisplayStatuses) {
        if (const std::size_t count = summary.statuses.at(static_cast<std::size_t>(status)); count != 0) {
            statuses.push_back(QStringLiteral("<span style='color:%1'>%2 %3</span>")
                                   .arg(Theme::statusColor(status).name(),
                                        QString::number(count),
                                        StatusText::word(status, m_kind).toHtmlEscaped()));
        }
    }
    lines.push_back(statuses.join(QStringLiteral("  ·  ")));
    if (summary.clients > 0) {
        lines.push_back(summary.clients == 1 ? tr("One client") : tr("%1 clients").arg(summary.clients));
    }
    if (summary.firstDue && m_kind != DocumentKind::creditNote) {
        const QString first = formats.date(summary.firstDue);
        const QString last = formats.date(summary.lastDue);
        const QString days = first == last ? first : tr("%1 to %2").arg(first, last);
        lines.push_back(
            (m_kind == DocumentKind::quote ? tr("Valid until %1") : tr("Due %1")).arg(days).toHtmlEscaped());
    }
    m_facts->setText(QStringLiteral("<p style='line-height:150%'>%1</p>").arg(lines.join(QStringLiteral("<br>"))));
}

/// Issuing can't be undone, so that each draft that goes out is a step of its own, which says so.
void SelectionPane::applyToAll(StatusAction action)
{
    const QString name = StatusText::action(action, m_kind);
    LibraryAccess& library = m_library;
    const auto apply = [&library, action](const Document& document) {
        DocumentActions::applyStatus(library.desk(), document, action, library.now());
    };
    const auto step = [&library, name, apply, isIssuing = m_areDrafts](const Keys& documents,
                                                                       const DocumentsRun::Done& done) {
        done(isIssuing ? doToEach(library, documents, apply) : performAll(library, name, documents, apply));
    };
    m_run.start({.title = name,
                 .documents = m_documents,
                 .atOnce = m_areDrafts ? fewAtOnce : atOnce,
                 .step = step,
                 .success = [name](int count) {
                     return count == 1 ? tr("%1: 1 document.").arg(name) : tr("%1: %2 documents.").arg(name).arg(count);
                 }});
}

void SelectionPane::savePDFs()
{
    const QString chosen = m_chooseFolder(this);
    if (chosen.isEmpty()) {
        return;
    }
    const std::filesystem::path folder(utf8(chosen));
    const auto step = [library = QPointer(&m_library), folder](const Keys& documents, const DocumentsRun::Done& done) {
        const std::int64_t key = documents.front();
        const Document* document = library->context().find(Ref<Document>(key));
        if (document == nullptr) {
            done({{key, tr("It isn't there any more.")}});
            return;
        }
        Context& context = library->context();
        const Calendar& calendar = library->formats().calendar();
        library->press().press(
            pageJob(context, *document, library->business(), calendar),
            [key, folder, done, name = pdfFileName(context, *document, library->business(), calendar)](
                const PrintResult& result) {
                if (const auto* error = std::get_if<PrintError>(&result)) {
                    done({{key, CoreText::sentence(error->message())}});
                    return;
                }
                std::vector<Failure> failures;
                try {
                    saveUniqueFile(folder, name, "pdf", std::get<PrintedPDF>(result).bytes);
                } catch (const UserError& error) {
                    failures.push_back({key, CoreText::sentence(error.message())});
                }
                done(std::move(failures));
            });
    };
    m_run.start({.title = tr("Saving PDFs"), .documents = m_documents, .step = step, .success = [chosen](int count) {
                     return count == 1 ? tr("1 PDF was saved in %1.").arg(chosen)
                                       : tr("%1 PDFs were saved in %2.").arg(count).arg(chosen);
                 }});
}

void SelectionPane::askForReminders()
{
    if (m_library.isOpen()) {
        auto* sheet = new RemindersSheet(m_library, m_documents, m_host);
        connect(sheet, &RemindersSheet::wanted, this, &SelectionPane::writeReminders);
        sheet->begin();
    }
}

void SelectionPane::writeReminders(const std::vector<PlannedReminder>& planned)
{
    const std::filesystem::path folder = m_library.environment().printer().downloadsFolder();
    auto byKey = std::make_shared<std::map<std::int64_t, PlannedReminder>>();
    Keys documents;
    for (const PlannedReminder& one : planned) {
        documents.push_back(one.document);
        byKey->emplace(one.document, one);
    }
    const auto step = [library = QPointer(&m_library), byKey, folder](const Keys& keys,
                                                                      const DocumentsRun::Done& done) {
        const std::int64_t key = keys.front();
        ReminderWriting::write(*library, byKey->at(key), folder, [key, done](const ReminderWriting::Outcome& outcome) {
            const auto* sentence = std::get_if<QString>(&outcome);
            done(sentence == nullptr ? std::vector<Failure>() : std::vector<Failure>{{key, *sentence}});
        });
    };
    const QString place = text(folder.string());
    m_run.start({.title = tr("Writing reminders"), .documents = documents, .step = step, .success = [place](int count) {
                     return count == 1 ? tr("1 reminder is recorded; its letter lies in %1.").arg(place)
                                       : tr("%1 reminders are recorded; the letters lie in %2.").arg(count).arg(place);
                 }});
}

void SelectionPane::askToDelete()
{
    auto* sheet = new Sheet(tr("Delete Drafts"), tr("Delete"), this);
    sheet->setExplanation(tr("Delete %1? Time that they billed becomes free again. Undo brings them back.")
                              .arg(countText(m_documents.size(), m_kind)));
    sheet->onAnswer([this] {
        deleteDrafts();
        return std::nullopt;
    });
    sheet->open(&sheet->answerButton());
}

void SelectionPane::deleteDrafts()
{
    LibraryAccess& library = m_library;
    m_run.start({.title = tr("Deleting drafts"),
                 .documents = m_documents,
                 .atOnce = atOnce,
                 .step =
                     [&library](const Keys& documents, const DocumentsRun::Done& done) {
                         done(performAll(library, tr("Delete Drafts"), documents, [&](const Document& document) {
                             DocumentActions::deleteDraft(library.desk(), document);
                         }));
                     },
                 .success =
                     [](int count) {
                         return count == 1 ? tr("1 draft was deleted.") : tr("%1 drafts were deleted.").arg(count);
                     }});
}

} // namespace Quillary
