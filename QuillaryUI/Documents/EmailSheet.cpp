#include "QuillaryUI/Documents/EmailSheet.h"

#include "QuillaryCore/Assistant/Operations/LetterMail.h"
#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Assistant/Review/DocumentReview.h"
#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Theme.h"

#include <QAction>
#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace Quillary {

namespace {

constexpr int sheetWidth = 640;
constexpr int bodyHeight = 220;

/// What goes on after the sheet has closed.
struct Road
{
    QPointer<LibraryAccess> library;
    QPointer<QWidget> pane; ///< hears of the outcome, in its signals
    std::int64_t key;
    std::string name;
    bool marksSent;

    void tell(const char* signal, const QString& sentence) const
    {
        if (pane) {
            QMetaObject::invokeMethod(pane, signal, Q_ARG(QString, sentence));
        }
    }

    void finish(const EmailOutcome& outcome) const;
};

void Road::finish(const EmailOutcome& outcome) const
{
    if (const auto* sentence = std::get_if<std::string>(&outcome)) {
        tell("failed", CoreText::sentence(*sentence));
        return;
    }
    const auto& email = std::get<PreparedEmail>(outcome);
    if (marksSent && library) {
        const auto refusal = library->attempt([&] {
            const Document* document = library->context().find(Ref<Document>(key));
            if (document != nullptr && status(*document) == DocumentStatus::draft) {
                DocumentActions::applyStatus(library->desk(), *document, StatusAction::markSent, library->now());
            }
        });
        if (refusal) {
            tell("failed", *refusal);
        }
    }
    tell("told", EmailSheet::success(email));
}

const Document* documentOf(const LibraryAccess& library, std::int64_t key)
{
    return library.isOpen() ? library.context().find(Ref<Document>(key)) : nullptr;
}

} // namespace

EmailSheet::EmailSheet(LibraryAccess& library, std::int64_t document, QWidget* host)
    : Sheet(tr("Email"), tr("Hand to Mail Program"), host)
    , m_library(library)
    , m_document(document)
    , m_to(new QLineEdit(this))
    , m_subject(new QLineEdit(this))
    , m_body(new QPlainTextEdit(this))
    , m_attachment(new QLabel(this))
    , m_notes(new QLabel(this))
    , m_markSent(new QCheckBox(tr("Mark it as sent"), this))
{
    setWidest(sheetWidth);
    build();
    onAnswer([this] { return prepare(); });
}

QString EmailSheet::success(const PreparedEmail& email)
{
    return email.isOpened
               ? tr("The email is open in your mail program. It goes out when you send it there.")
               : tr("Open this draft with your mail program and send it there: %1").arg(text(email.file.string()));
}

void EmailSheet::build()
{
    const std::pair<QWidget*, std::pair<const char*, QString>> names[] = {
        {m_to, {"emailTo", tr("To")}},
        {m_subject, {"emailSubject", tr("Subject")}},
        {m_body, {"emailBody", tr("Message")}},
        {m_attachment, {"emailAttachment", tr("Attached")}}};
    for (const auto& [widget, name] : names) {
        widget->setObjectName(QString::fromLatin1(name.first));
        widget->setAccessibleName(name.second);
        form().addRow(name.second, widget);
    }
    m_to->setPlaceholderText(tr("Addresses, with commas between them"));
    m_body->setFixedHeight(bodyHeight);
    m_body->setTabChangesFocus(true);
    m_notes->setObjectName(QStringLiteral("emailNotes"));
    m_notes->setWordWrap(true);
    Theme::tint(*m_notes, Theme::errorColor());
    m_markSent->setObjectName(QStringLiteral("emailMarksSent"));
    form().addRow(QString(), m_markSent);
    form().addRow(QString(), m_notes);
    connect(m_to, &QLineEdit::editingFinished, this, &EmailSheet::fillWords);
}

void EmailSheet::begin()
{
    const Document& document = *documentOf(m_library, m_document);
    const AssistantEnvironment& environment = m_library.environment();
    setExplanation(tr("A draft with %1 for your mail program. Nothing is sent from here.")
                       .arg(CoreText::sentence(documentName(document))));
    offerRecipients();
    m_attachment->setText(text(shownFileName(environment, document)) + QStringLiteral(".pdf"));
    const bool isDraft = status(document) == DocumentStatus::draft;
    m_isComplete =
        !isDraft || DocumentReview::review(
                        environment.context, document, environment.ownBusiness(), m_library.today(), environment.locale)
                        .canBeSent();
    m_markSent->setVisible(isDraft);
    m_markSent->setChecked(isDraft && m_isComplete);
    fillWords();
    open(m_to->text().isEmpty() ? static_cast<QWidget*>(m_to) : m_body);
}

/// The client's own address and those of its contact persons: the first is filled in, the others are a click away.
void EmailSheet::offerRecipients()
{
    Context& context = m_library.context();
    const Client* client = context.find(documentOf(m_library, m_document)->client);
    const std::vector<EmailRecipient> known =
        client == nullptr ? std::vector<EmailRecipient>() : EmailDraft::recipients(context, *client);
    if (!known.empty()) {
        m_to->setText(text(known.front().address));
    }
    if (known.size() < 2) {
        return;
    }
    auto* menu = new QMenu(this);
    for (const EmailRecipient& recipient : known) {
        const QString address = text(recipient.address);
        const QString label = recipient.name.empty() ? address : tr("%1 <%2>").arg(text(recipient.name), address);
        menu->addAction(QString(label).replace(QChar(u'&'), QStringLiteral("&&")), this, [this, address] {
            if (!m_to->text().contains(address, Qt::CaseInsensitive)) {
                m_to->setText(m_to->text().trimmed().isEmpty() ? address
                                                               : m_to->text() + QStringLiteral(", ") + address);
            }
        });
    }
    QAction* people = m_to->addAction(Theme::icon(QStringLiteral("clients")), QLineEdit::TrailingPosition);
    people->setObjectName(QStringLiteral("emailPeople"));
    people->setText(tr("People at the client"));
    people->setToolTip(people->text());
    connect(people, &QAction::triggered, this, [this, menu] {
        menu->popup(m_to->mapToGlobal(QPoint(m_to->width() - menu->sizeHint().width(), m_to->height())));
    });
}

/// The greeting depends on who reads it. What was typed stays.
void EmailSheet::fillWords()
{
    const Document* document = documentOf(m_library, m_document);
    if (document == nullptr) {
        return;
    }
    try {
        const LetterMail mail = letterMail(m_library.environment(), *document, nullptr, utf8(m_to->text().trimmed()));
        if (!m_subject->isModified()) {
            m_subject->setText(text(mail.draft.subject));
        }
        if (!m_body->document()->isModified()) {
            m_body->setPlainText(text(mail.draft.body));
            m_body->document()->setModified(false);
        }
        QStringList notes;
        if (!m_isComplete) {
            notes.push_back(tr("Something is missing in the document; its editor says what."));
        }
        for (const std::string& note : mail.notes) {
            notes.push_back(CoreText::sentence(note));
        }
        m_notes->setText(notes.join(QChar(u' ')));
    } catch (const UserError& error) {
        m_notes->setText(CoreText::sentence(error.message()));
    }
    m_notes->setVisible(!m_notes->text().isEmpty());
}

std::optional<QString> EmailSheet::prepare()
{
    const Document* document = documentOf(m_library, m_document);
    if (document == nullptr) {
        return tr("The document isn't there any more.");
    }
    const std::string typed = utf8(m_to->text().trimmed());
    return m_library.attempt([&] {
        MailDraft mail = letterMail(m_library.environment(), *document, nullptr, typed).draft;
        if (typed.empty()) {
            mail.to.clear(); // the mail program asks for it
        }
        mail.subject = utf8(m_subject->text().trimmed());
        mail.body = utf8(m_body->toPlainText());
        print(std::move(mail));
    });
}

void EmailSheet::print(MailDraft mail)
{
    const AssistantEnvironment& environment = m_library.environment();
    const Document& document = *documentOf(m_library, m_document);
    AssistantHost& host = environment.printer();
    const Road road{.library = &m_library,
                    .pane = parentWidget(),
                    .key = m_document,
                    .name = shownFileName(environment, document),
                    .marksSent = m_markSent->isChecked()};
    mail.attachments = {{.name = road.name + ".pdf", .pdf = {}}};
    host.printPage(pageJob(environment.context, document, environment.ownBusiness(), environment.calendar),
                   [&host, road, mail = std::move(mail)](PageOutcome page) mutable {
                       if (const auto* sentence = std::get_if<std::string>(&page)) {
                           road.tell("failed", CoreText::sentence(*sentence));
                           return;
                       }
                       mail.attachments.front().pdf = std::move(std::get<Bytes>(page));
                       host.prepareEmail(
                           std::move(mail), road.name, [road](const EmailOutcome& outcome) { road.finish(outcome); });
                   });
}

} // namespace Quillary
