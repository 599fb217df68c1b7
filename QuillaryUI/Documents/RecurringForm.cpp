#include "QuillaryUI/Documents/RecurringForm.h"

#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/ClientPicker.h"
#include "QuillaryUI/Documents/ClientSheet.h"
#include "QuillaryUI/Documents/RhythmText.h"
#include "QuillaryUI/Look/DateField.h"
#include "QuillaryUI/Look/Sheet.h"
#include "QuillaryUI/Look/Theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QStringList>

#include <chrono>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t shownDates = 5;
constexpr int usualCount = 12;
constexpr int lastDayOfMonth = 31;

} // namespace

RecurringForm::RecurringForm(LibraryAccess& library, Sheet& sheet, Work work)
    : QObject(&sheet)
    , m_library(library)
    , m_sheet(sheet)
    , m_work(std::move(work))
    , m_title(new QLineEdit(&sheet))
    , m_client(new ClientPicker(library, &sheet))
    , m_interval(new QSpinBox(&sheet))
    , m_unit(new QComboBox(&sheet))
    , m_day(new QSpinBox(&sheet))
    , m_next(new QDateEdit(&sheet))
    , m_end(new QComboBox(&sheet))
    , m_count(new QSpinBox(&sheet))
    , m_lastDay(new QDateEdit(&sheet))
    , m_period(new QComboBox(&sheet))
    , m_createsSent(new QCheckBox(tr("Mark its invoices as sent at once"), &sheet))
    , m_dates(new QLabel(&sheet))
{
    build(sheet.form());
    listen();
}

void RecurringForm::build(QFormLayout& form)
{
    buildNames(form);
    buildRhythm(form);
    buildEnd(form);
    m_period->setObjectName(QStringLiteral("recurringPeriod"));
    m_period->addItem(tr("Not stated"), int(BillingPeriod::none));
    m_period->addItem(tr("The period that begins with its date"), int(BillingPeriod::current));
    m_period->addItem(tr("The period before its date"), int(BillingPeriod::previous));
    form.addRow(tr("Service period"), m_period);
    m_createsSent->setObjectName(QStringLiteral("recurringSent"));
    form.addRow(QString(), m_createsSent);
    m_dates->setObjectName(QStringLiteral("recurringPreview"));
    m_dates->setWordWrap(true);
    m_dates->setTextFormat(Qt::PlainText);
    form.addRow(QString(), m_dates);
}

void RecurringForm::buildNames(QFormLayout& form)
{
    m_title->setObjectName(QStringLiteral("recurringTitle"));
    m_title->setMaxLength(int(Limits::lineLength));
    m_title->setToolTip(tr("{month_year}, {quarter_year}, {year} and {period} become those of each invoice."));
    m_client->setObjectName(QStringLiteral("recurringClient"));
    form.addRow(tr("Title"), m_title);
    form.addRow(tr("Client"), m_client);
}

void RecurringForm::buildRhythm(QFormLayout& form)
{
    m_interval->setObjectName(QStringLiteral("recurringInterval"));
    m_interval->setAccessibleName(tr("Every how many"));
    m_interval->setRange(1, RecurringSetup::mostUnits);
    m_unit->setObjectName(QStringLiteral("recurringUnit"));
    m_unit->setAccessibleName(tr("Weeks, months, quarters or years"));
    const std::pair<RecurrenceUnit, QString> units[] = {{RecurrenceUnit::week, tr("weeks")},
                                                        {RecurrenceUnit::month, tr("months")},
                                                        {RecurrenceUnit::quarter, tr("quarters")},
                                                        {RecurrenceUnit::year, tr("years")}};
    for (const auto& [unit, words] : units) {
        m_unit->addItem(words, int(unit));
    }
    auto* rhythm = new QHBoxLayout;
    rhythm->addWidget(m_interval);
    rhythm->addWidget(m_unit, 1);
    m_day->setObjectName(QStringLiteral("recurringDay"));
    m_day->setRange(1, lastDayOfMonth);
    m_day->setToolTip(tr("A shorter month uses its last day."));
    m_next->setObjectName(QStringLiteral("recurringNext"));
    DateField::dress(*m_next);
    form.addRow(tr("Every"), rhythm);
    form.addRow(tr("Day of the month"), m_day);
    form.addRow(tr("Next invoice"), m_next);
}

void RecurringForm::buildEnd(QFormLayout& form)
{
    m_end->setObjectName(QStringLiteral("recurringEnd"));
    m_end->addItem(tr("Never"), int(RecurrenceEnd::never));
    m_end->addItem(tr("After a number of invoices"), int(RecurrenceEnd::afterCount));
    m_end->addItem(tr("On a date"), int(RecurrenceEnd::onDate));
    m_count->setObjectName(QStringLiteral("recurringCount"));
    m_count->setRange(1, RecurringSetup::mostInvoices);
    m_count->setValue(usualCount);
    m_lastDay->setObjectName(QStringLiteral("recurringLastDay"));
    DateField::dress(*m_lastDay);
    form.addRow(tr("Ends"), m_end);
    form.addRow(tr("Invoices in all"), m_count);
    form.addRow(tr("Last day"), m_lastDay);
}

void RecurringForm::listen()
{
    connect(m_title, &QLineEdit::textEdited, this, [this] { touch(m_title); });
    connect(m_client, &ClientPicker::picked, this, [this] { touch(m_client); });
    connect(m_client, &ClientPicker::wantedNew, this, &RecurringForm::askForClient);
    connect(m_createsSent, &QCheckBox::toggled, this, [this] { touch(m_createsSent); });
    for (QComboBox* box : {m_unit, m_period}) {
        connect(box, &QComboBox::currentIndexChanged, this, [this, box] { touch(box); });
    }
    for (QSpinBox* number : {m_interval, m_day}) {
        connect(number, &QSpinBox::valueChanged, this, [this, number] { touch(number); });
    }
    connect(m_next, &QDateEdit::dateChanged, this, [this] { touch(m_next); });
    connect(m_end, &QComboBox::currentIndexChanged, this, [this] { touch(m_end); });
    connect(m_count, &QSpinBox::valueChanged, this, [this] { touch(m_end); });
    connect(m_lastDay, &QDateEdit::dateChanged, this, [this] { touch(m_end); });
}

void RecurringForm::touch(const QObject* field)
{
    if (!m_isShowing) {
        m_chosen.insert(field);
        refresh();
    }
}

QWidget* RecurringForm::firstField() const
{
    return m_client->client() == 0 ? static_cast<QWidget*>(m_client) : m_interval;
}

RecurringChoices RecurringForm::choices() const
{
    RecurringChoices choices;
    if (isChosen(m_title)) {
        choices.title = utf8(m_title->text().simplified());
    }
    if (isChosen(m_client)) {
        choices.client = m_library.context().find(Ref<Client>(m_client->client()));
    }
    if (isChosen(m_unit)) {
        choices.unit = RecurrenceUnit(m_unit->currentData().toInt());
    }
    if (isChosen(m_interval)) {
        choices.interval = m_interval->value();
    }
    if (isChosen(m_day) && RecurrenceUnit(m_unit->currentData().toInt()) != RecurrenceUnit::week) {
        choices.anchorDay = m_day->value();
    }
    if (isChosen(m_next)) {
        choices.next = DateField::day(*m_next);
    }
    if (isChosen(m_end)) {
        chooseEnd(choices);
    }
    if (isChosen(m_period)) {
        choices.billingPeriod = BillingPeriod(m_period->currentData().toInt());
    }
    if (isChosen(m_createsSent)) {
        choices.createsSent = m_createsSent->isChecked();
    }
    return choices;
}

void RecurringForm::chooseEnd(RecurringChoices& choices) const
{
    RecurringEnd end{.rule = RecurrenceEnd(m_end->currentData().toInt())};
    if (end.rule == RecurrenceEnd::afterCount) {
        end.count = m_count->value();
    } else if (end.rule == RecurrenceEnd::onDate) {
        end.lastDay = DateField::day(*m_lastDay);
    }
    choices.end = end;
}

/// It is done to look at it, and taken back.
void RecurringForm::refresh()
{
    const QScopedValueRollback showing(m_isShowing, true);
    std::optional<QString> refusal;
    m_library.tryOut([&] { refusal = m_library.attempt([&] { show(m_work(choices())); }); });
    if (refusal) {
        m_dates->setText(*refusal);
    }
    Theme::tint(*m_dates, refusal ? Theme::errorColor() : m_sheet.palette().color(QPalette::Text));
    showRows();
}

void RecurringForm::show(const Document& recurring)
{
    const Formats& formats = m_library.formats();
    const Calendar& calendar = formats.calendar();
    const auto unlessChosen = [this](const QObject* field, const std::function<void()>& fill) {
        if (!isChosen(field)) {
            fill();
        }
    };
    unlessChosen(m_title, [&] { m_title->setText(text(recurring.title)); });
    unlessChosen(m_client, [&] { m_client->setClient(recurring.client.key()); });
    if (const auto schedule = RecurringTemplate::recurrence(recurring, calendar)) {
        unlessChosen(m_unit, [&] { m_unit->setCurrentIndex(m_unit->findData(int(schedule->unit))); });
        unlessChosen(m_interval, [&] { m_interval->setValue(schedule->interval); });
        unlessChosen(m_day, [&] { m_day->setValue(schedule->anchorDay); });
    } else {
        unlessChosen(m_unit, [&] { m_unit->setCurrentIndex(-1); });
    }
    unlessChosen(m_next, [&] { m_next->setDate(formats.qDate(recurring.nextIssueDate.value_or(m_library.now()))); });
    unlessChosen(m_end, [&] { showEnd(recurring); });
    unlessChosen(m_period, [&] { m_period->setCurrentIndex(m_period->findData(int(billingPeriod(recurring)))); });
    unlessChosen(m_createsSent, [&] { m_createsSent->setChecked(recurring.recurringCreatesSent); });

    QStringList dates;
    for (const CalendarDate day : RecurringTemplate::nextDates(recurring, shownDates, calendar)) {
        dates.push_back(
            text(formats.locale().formatDate(day)).replace(QChar(u' '), QChar(QChar::Nbsp))); // in one piece
    }
    m_dates->setText(
        dates.isEmpty()
            ? tr("%1: no more invoices are made.").arg(RhythmText::sentence(recurring, formats))
            : tr("%1: %2").arg(RhythmText::sentence(recurring, formats), dates.join(QStringLiteral(" · "))));
}

void RecurringForm::showEnd(const Document& recurring)
{
    const Formats& formats = m_library.formats();
    const auto rule = recurrenceEndFromRaw(recurring.recurrenceEndRaw);
    m_end->setCurrentIndex(rule ? m_end->findData(int(*rule)) : -1);
    if (rule == RecurrenceEnd::afterCount) {
        m_count->setValue(recurring.recurrenceEndCount);
    }
    const auto lastDay = rule == RecurrenceEnd::onDate ? recurring.recurrenceEndDate : std::nullopt;
    m_lastDay->setDate(lastDay ? formats.qDate(*lastDay) : formats.qDate(m_library.now()).addYears(1));
}

/// What doesn't belong to the choice isn't asked.
void RecurringForm::showRows()
{
    QFormLayout& form = m_sheet.form();
    const auto rule = m_end->currentIndex() < 0 ? RecurrenceEnd::never : RecurrenceEnd(m_end->currentData().toInt());
    const bool isByWeeks = RecurrenceUnit(m_unit->currentData().toInt()) == RecurrenceUnit::week;
    form.setRowVisible(m_day, m_unit->currentIndex() >= 0 && !isByWeeks);
    form.setRowVisible(m_count, rule == RecurrenceEnd::afterCount);
    form.setRowVisible(m_lastDay, rule == RecurrenceEnd::onDate);
    m_sheet.fit();
}

void RecurringForm::askForClient(const QString& name)
{
    auto* sheet = new ClientSheet(m_library, name, m_sheet.parentWidget());
    connect(sheet, &ClientSheet::made, this, [this](const QString& id) {
        const std::optional<UUID> uuid = UUID::parse(utf8(id));
        const Client* client = uuid ? m_library.context().find<Client>(*uuid) : nullptr;
        if (client != nullptr) {
            m_client->setClient(client->ref.key());
            touch(m_client);
        }
        m_client->setFocus(Qt::OtherFocusReason);
    });
    sheet->begin();
}

std::optional<QString> RecurringForm::carryOut(std::int64_t& key) const
{
    return m_library.attempt([&] { key = m_work(choices()).ref.key(); });
}

} // namespace Quillary
