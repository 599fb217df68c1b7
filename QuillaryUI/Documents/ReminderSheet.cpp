#include "QuillaryUI/Documents/ReminderSheet.h"

#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Letters/LetterFileName.h"
#include "QuillaryCore/Letters/ReminderLetter.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/TypedNumber.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDateEdit>
#include <QFormLayout>
#include <QLineEdit>
#include <QLocale>
#include <QPointer>

namespace Quillary {

namespace {

/// What goes on after the sheet has closed: the letter is written, and then the reminder recorded.
struct Letter
{
    QPointer<LibraryAccess> library;
    std::int64_t document;
    ReminderNotice notice;
    std::filesystem::path folder;
    std::string name;
};

/// The sentence that says what became of it. Throws: `UserError`.
QString record(const Letter& letter, const PrintResult& result)
{
    if (const auto* error = std::get_if<PrintError>(&result)) {
        throw UserError(error->message());
    }
    const auto file = saveUniqueFile(letter.folder, letter.name, "pdf", std::get<PrintedPDF>(result).bytes);
    const ReminderDetails& details = letter.notice.details;
    const auto refusal = letter.library->perform(ReminderSheet::tr("Send Reminder"), [&] {
        const Document* document = letter.library->context().find(Ref<Document>(letter.document));
        if (document == nullptr) {
            throw UserError("The invoice isn't there any more.");
        }
        addReminder(letter.library->context(),
                    *document,
                    details.level,
                    details.feeMinorUnits,
                    letter.notice.date,
                    details.payBy);
    });
    if (refusal) {
        std::filesystem::remove(file); // a letter of a reminder that there isn't
        throw UserError(utf8(*refusal));
    }
    return ReminderSheet::tr("The reminder is recorded; its letter is %1").arg(text(file.string()));
}

} // namespace

ReminderSheet::ReminderSheet(LibraryAccess& library, std::int64_t document, QWidget* host)
    : Sheet(tr("Send Reminder"), tr("Write Letter"), host)
    , m_library(library)
    , m_document(document)
    , m_level(new QComboBox(this))
    , m_fee(new QLineEdit(this))
    , m_payBy(new QDateEdit(this))
{
    for (const ReminderLevel level : {ReminderLevel::first, ReminderLevel::second, ReminderLevel::final}) {
        m_level->addItem(QCoreApplication::translate("ReminderLevel", std::string(title(level)).c_str()), int(level));
    }
    m_payBy->setCalendarPopup(true);
    m_payBy->setDisplayFormat(QLocale().dateFormat(QLocale::ShortFormat));
    form().addRow(tr("Level"), m_level);
    form().addRow(tr("Late fee"), m_fee);
    form().addRow(tr("To be paid by"), m_payBy);
    connect(m_level, &QComboBox::activated, this, &ReminderSheet::changeLevel);
    onAnswer([this] { return write(); });
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
                       .arg(text(documentName(document))));
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
        return text(*refusal);
    }
    print(notice);
    return std::nullopt;
}

void ReminderSheet::print(const ReminderNotice& notice)
{
    Context& context = m_library.context();
    const Document& document = *context.find(Ref<Document>(m_document));
    const Calendar& calendar = m_library.formats().calendar();
    const Letter letter{.library = &m_library,
                        .document = m_document,
                        .notice = notice,
                        .folder = m_library.environment().printer().downloadsFolder(),
                        .name = LetterFileName::ofReminder(
                            context, document, m_library.business(), notice.details.level, notice.date, calendar)};
    // The sheet is gone by then; whoever opened it hears of the outcome through the pane.
    const QPointer<QWidget> pane = parentWidget();
    const auto tellFrom = [pane](const char* signal, const QString& sentence) {
        if (pane) {
            QMetaObject::invokeMethod(pane, signal, Q_ARG(QString, sentence));
        }
    };
    m_library.press().press(pageJob(ReminderLetter::printed(context, document, m_library.business(), notice, calendar)),
                            [letter, tellFrom](const PrintResult& result) {
                                if (!letter.library || !letter.library->isOpen()) {
                                    return;
                                }
                                try {
                                    tellFrom("told", record(letter, result));
                                } catch (const UserError& error) {
                                    tellFrom("failed", text(error.message()));
                                }
                            });
}

} // namespace Quillary
