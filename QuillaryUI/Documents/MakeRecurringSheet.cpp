#include "QuillaryUI/Documents/MakeRecurringSheet.h"

#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Schedules/RecurringSetup.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/DateField.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStringList>

#include <chrono>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t shownDates = 5;
constexpr int mostInvoices = 999;
constexpr int usualCount = 12;

CalendarDate calendarDate(QDate date)
{
    return CalendarDate(std::chrono::year(date.year()),
                        std::chrono::month(unsigned(date.month())),
                        std::chrono::day(unsigned(date.day())));
}

QDateEdit* dateField(QWidget* parent)
{
    auto* edit = new QDateEdit(parent);
    DateField::dress(*edit);
    return edit;
}

} // namespace

MakeRecurringSheet::MakeRecurringSheet(LibraryAccess& library, std::int64_t invoice, QWidget* host)
    : Sheet(tr("Make Recurring"), tr("Make Recurring"), host)
    , m_library(library)
    , m_invoice(invoice)
    , m_interval(new QSpinBox(this))
    , m_unit(new QComboBox(this))
    , m_next(dateField(this))
    , m_end(new QComboBox(this))
    , m_count(new QSpinBox(this))
    , m_lastDay(dateField(this))
    , m_createsSent(new QCheckBox(tr("Mark its invoices as sent at once"), this))
    , m_dates(new QLabel(this))
{
    build();
    onAnswer([this] { return make(); });
}

void MakeRecurringSheet::build()
{
    m_interval->setObjectName(QStringLiteral("recurringInterval"));
    m_interval->setAccessibleName(tr("Every how many"));
    m_interval->setRange(1, RecurringSetup::mostUnits);
    m_unit->setAccessibleName(tr("Weeks, months, quarters or years"));
    const std::pair<RecurrenceUnit, QString> units[] = {{RecurrenceUnit::week, tr("weeks")},
                                                        {RecurrenceUnit::month, tr("months")},
                                                        {RecurrenceUnit::quarter, tr("quarters")},
                                                        {RecurrenceUnit::year, tr("years")}};
    for (const auto& [unit, words] : units) {
        m_unit->addItem(words, int(unit));
    }
    m_unit->setCurrentIndex(1);
    auto* rhythm = new QHBoxLayout;
    rhythm->addWidget(m_interval);
    rhythm->addWidget(m_unit, 1);
    m_end->addItem(tr("Never"), int(RecurrenceEnd::never));
    m_end->addItem(tr("After a number of invoices"), int(RecurrenceEnd::afterCount));
    m_end->addItem(tr("On a date"), int(RecurrenceEnd::onDate));
    m_count->setRange(1, mostInvoices);
    m_count->setValue(usualCount);
    m_count->setAccessibleName(tr("Invoices in all"));
    m_dates->setObjectName(QStringLiteral("recurringPreview"));
    m_dates->setWordWrap(true);
    form().addRow(tr("Every"), rhythm);
    form().addRow(tr("Next invoice"), m_next);
    form().addRow(tr("Ends"), m_end);
    form().addRow(tr("Invoices in all"), m_count);
    form().addRow(tr("Last day"), m_lastDay);
    form().addRow(QString(), m_createsSent);
    form().addRow(QString(), m_dates);
    connect(m_interval, &QSpinBox::valueChanged, this, &MakeRecurringSheet::showDates);
    connect(m_unit, &QComboBox::activated, this, &MakeRecurringSheet::showDates);
    connect(m_next, &QDateEdit::dateChanged, this, [this] {
        m_hasOwnDate = true;
        showDates();
    });
    connect(m_end, &QComboBox::activated, this, &MakeRecurringSheet::showDates);
    connect(m_count, &QSpinBox::valueChanged, this, &MakeRecurringSheet::showDates);
    connect(m_lastDay, &QDateEdit::dateChanged, this, &MakeRecurringSheet::showDates);
}

void MakeRecurringSheet::begin()
{
    const Document& invoice = *m_library.context().find(Ref<Document>(m_invoice));
    setExplanation(
        tr("Invoices with the contents of %1 are made by themselves, beginning with the next one. %1 stays as "
           "it is.")
            .arg(CoreText::sentence(documentName(invoice))));
    const QSignalBlocker blocker(m_lastDay);
    m_lastDay->setDate(m_library.formats().qDate(m_library.now()).addYears(1));
    showDates();
    open(m_interval);
}

RecurringChoices MakeRecurringSheet::choices() const
{
    RecurringChoices choices{.unit = RecurrenceUnit(m_unit->currentData().toInt()),
                             .interval = m_interval->value(),
                             .createsSent = m_createsSent->isChecked()};
    const auto rule = RecurrenceEnd(m_end->currentData().toInt());
    choices.end = RecurringEnd{.rule = rule};
    if (rule == RecurrenceEnd::afterCount) {
        choices.end->count = m_count->value();
    } else if (rule == RecurrenceEnd::onDate) {
        choices.end->lastDay = calendarDate(m_lastDay->date());
    }
    if (m_hasOwnDate) {
        choices.next = calendarDate(m_next->date());
    }
    return choices;
}

/// The template is made to look at its dates, and taken back. Until somebody chooses the first date it follows from the
/// rhythm.
void MakeRecurringSheet::showDates()
{
    const bool isCounted = RecurrenceEnd(m_end->currentData().toInt()) == RecurrenceEnd::afterCount;
    const bool isDated = RecurrenceEnd(m_end->currentData().toInt()) == RecurrenceEnd::onDate;
    form().setRowVisible(m_count, isCounted);
    form().setRowVisible(m_lastDay, isDated);
    QString words;
    m_library.tryOut([&] {
        const Document* invoice = m_library.context().find(Ref<Document>(m_invoice));
        if (invoice == nullptr) {
            return;
        }
        const Formats& formats = m_library.formats();
        const CalendarDate today = formats.calendar().date(m_library.now());
        const Document& made = RecurringSetup::create(m_library.desk(), *invoice, choices(), today);
        QStringList dates;
        const auto next = RecurringTemplate::nextDates(made, shownDates, formats.calendar());
        for (const CalendarDate day : next) {
            dates.push_back(text(formats.locale().formatDate(day)));
        }
        if (!next.empty() && !m_hasOwnDate) {
            const QSignalBlocker blocker(m_next);
            m_next->setDate(formats.qDate(formats.calendar().storedDay(next.front())));
        }
        words = tr("%1: %2").arg(text(RecurringTemplate::summary(made, formats.calendar())),
                                 dates.join(QStringLiteral(" · ")));
    });
    m_dates->setText(words);
}

std::optional<QString> MakeRecurringSheet::make()
{
    std::int64_t key = 0;
    const auto refusal = m_library.attempt([&] {
        const Document* invoice = m_library.context().find(Ref<Document>(m_invoice));
        if (invoice != nullptr) {
            const CalendarDate today = m_library.formats().calendar().date(m_library.now());
            key = RecurringSetup::create(m_library.desk(), *invoice, choices(), today).ref.key();
        }
    });
    if (!refusal && key != 0) {
        Q_EMIT made(key);
    }
    return refusal;
}

} // namespace Quillary
