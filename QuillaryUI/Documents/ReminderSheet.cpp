#include "QuillaryUI/Documents/ReminderSheet.h"

#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Letters/EmailDraft.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/EmailSheet.h"
#include "QuillaryUI/Documents/ReminderWriting.h"
#include "QuillaryUI/Documents/TypedNumber.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/DateField.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QLineEdit>
#include <QPointer>

#include <variant>
#include <vector>

namespace Quillary {

ReminderSheet::ReminderSheet(LibraryAccess& library, std::int64_t document, QWidget* host)
    : Sheet(tr("Send Reminder"), tr("Write Letter"), host)
    , m_library(library)
    , m_document(document)
    , m_level(new QComboBox(this))
    , m_fee(new QLineEdit(this))
    , m_payBy(new QDateEdit(this))
    , m_email(new QCheckBox(tr("Prepare an email with the letter"), this))
    , m_to(new QLineEdit(this))
{
    for (const ReminderLevel level : {ReminderLevel::first, ReminderLevel::second, ReminderLevel::final}) {
        m_level->addItem(CoreText::word(title(level)), int(level));
    }
    m_level->setObjectName(QStringLiteral("reminderLevel"));
    m_fee->setObjectName(QStringLiteral("reminderFee"));
    m_payBy->setObjectName(QStringLiteral("reminderPayBy"));
    DateField::dress(*m_payBy);
    form().addRow(tr("Level"), m_level);
    form().addRow(tr("Late fee"), m_fee);
    form().addRow(tr("To be paid by"), m_payBy);
    offerEmail();
    connect(m_level, &QComboBox::activated, this, &ReminderSheet::changeLevel);
    onAnswer([this] { return write(); });
}

void ReminderSheet::offerEmail()
{
    m_email->setObjectName(QStringLiteral("reminderEmail"));
    m_to->setObjectName(QStringLiteral("reminderEmailTo"));
    m_to->setPlaceholderText(tr("Addresses, with commas between them"));
    form().addRow(QString(), m_email);
    form().addRow(tr("To"), m_to);
    form().setRowVisible(m_to, false);
    connect(m_email, &QCheckBox::toggled, this, [this](bool isWanted) { form().setRowVisible(m_to, isWanted); });
}

Instant ReminderSheet::today() const
{
    const Calendar& calendar = m_library.formats().calendar();
    return calendar.storedDay(calendar.date(m_library.now()));
}

void ReminderSheet::begin()
{
    const Document& document = *m_library.context().find(Ref<Document>(m_document));
    setExplanation(tr("The letter for %1 is saved as a PDF in your downloads. Nothing is sent by itself.")
                       .arg(CoreText::sentence(documentName(document))));
    Context& context = m_library.context();
    if (const Client* client = context.find(document.client)) {
        const std::vector<EmailRecipient> known = EmailDraft::recipients(context, *client);
        m_to->setText(known.empty() ? QString() : text(known.front().address));
    }
    show(nextReminder(m_library.context(), document, m_library.business(), today(), m_library.formats().calendar()));
    open(m_level);
}

void ReminderSheet::show(const ReminderDetails& details)
{
    const Document& document = *m_library.context().find(Ref<Document>(m_document));
    m_level->setCurrentIndex(m_level->findData(int(details.level)));
    m_fee->setText(m_library.formats().amount(details.feeMinorUnits, document.currencyCode));
    m_payBy->setDate(m_library.formats().qDate(details.payBy));
}

void ReminderSheet::changeLevel()
{
    if (const Document* document = m_library.isOpen() ? m_library.context().find(Ref<Document>(m_document)) : nullptr) {
        show(reminderOfLevel(m_library.context(),
                             *document,
                             m_library.business(),
                             ReminderLevel(m_level->currentData().toInt()),
                             today(),
                             m_library.formats().calendar()));
    }
}

std::optional<QString> ReminderSheet::write()
{
    const Document* document = m_library.isOpen() ? m_library.context().find(Ref<Document>(m_document)) : nullptr;
    if (document == nullptr) {
        return tr("The invoice isn't there any more.");
    }
    const Formats& formats = m_library.formats();
    const auto fee = TypedNumber::amount(m_fee->text(), document->currencyCode, formats.locale());
    if (!fee) {
        return tr("Write the fee as a number such as %1, or 0 for none.")
            .arg(formats.amount(500, document->currencyCode));
    }
    const ReminderNotice notice{.details = {.level = ReminderLevel(m_level->currentData().toInt()),
                                            .feeMinorUnits = *fee,
                                            .payBy = formats.stored(m_payBy->date())},
                                .date = today()};
    if (const auto refusal =
            checkReminder(m_library.context(), *document, notice.details, notice.date, formats.calendar())) {
        return CoreText::sentence(*refusal);
    }
    print(notice);
    return std::nullopt;
}

void ReminderSheet::print(const ReminderNotice& notice)
{
    // The sheet is gone by then; whoever opened it hears of the outcome through the pane.
    const QPointer<QWidget> pane = parentWidget();
    const auto tellFrom = [pane](const char* signal, const QString& sentence) {
        if (pane) {
            QMetaObject::invokeMethod(pane, signal, Q_ARG(QString, sentence));
        }
    };
    ReminderWriting::write(
        m_library,
        {.document = m_document,
         .notice = notice,
         .emailTo = m_email->isChecked() ? std::optional(utf8(m_to->text().trimmed())) : std::nullopt},
        m_library.environment().printer().downloadsFolder(),
        [tellFrom](const ReminderWriting::Outcome& outcome) {
            if (const auto* sentence = std::get_if<QString>(&outcome)) {
                tellFrom("failed", *sentence);
                return;
            }
            const auto& written = std::get<WrittenReminder>(outcome);
            const QString recorded = tr("The reminder is recorded; its letter is %1").arg(text(written.file.string()));
            tellFrom("told",
                     written.email ? tr("%1. %2").arg(recorded, EmailSheet::success(*written.email)) : recorded);
        });
}

} // namespace Quillary
