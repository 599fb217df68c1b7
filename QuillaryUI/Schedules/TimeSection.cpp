#include "QuillaryUI/Schedules/TimeSection.h"

#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeTracking.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Schedules/TimeInvoiceSheet.h"
#include "QuillaryUI/Schedules/TimeModel.h"
#include "QuillaryUI/Schedules/TimeSheet.h"
#include "QuillaryUI/Schedules/TimerBar.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace Quillary {

namespace {

constexpr int border = 12;
constexpr int daysOfMonth = 30;
constexpr int daysOfYear = 365;
constexpr int leastTimeWidth = 220;

} // namespace

TimeSection::TimeSection(LibraryAccess& library, QWidget* parent)
    : Section(parent)
    , m_library(library)
    , m_timer(new TimerBar(library, this))
    , m_model(new TimeModel(library, this))
    , m_table(new QTableView(this))
    , m_pages(new QStackedWidget(this))
    , m_period(new QComboBox(this))
    , m_edit(new QPushButton(tr("Change…"), this))
    , m_erase(new QPushButton(tr("Delete"), this))
{
    setObjectName(QStringLiteral("time"));
    build();
    connect(m_timer, &TimerBar::told, this, &TimeSection::told);
    connect(m_timer, &TimerBar::failed, this, &TimeSection::failed);
    connect(m_period, &QComboBox::activated, this, &TimeSection::fitPeriod);
    connect(m_edit, &QPushButton::clicked, this, &TimeSection::edit);
    connect(m_erase, &QPushButton::clicked, this, &TimeSection::erase);
    connect(m_table, &QTableView::activated, this, &TimeSection::edit);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &TimeSection::showState);
    connect(m_model, &QAbstractItemModel::modelReset, this, &TimeSection::showState);
    connect(&library, &LibraryAccess::opened, this, &TimeSection::fitPeriod);
    auto* remove = new QShortcut(QKeySequence::Delete, m_table);
    remove->setContext(Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, &TimeSection::erase);
    fitPeriod();
    showState();
}

void TimeSection::build()
{
    m_table->setModel(m_model);
    Lists::dress(*m_table, QStringLiteral("timeList"), tr("Days and their working time"), TimeModel::noteColumn);
    QHeaderView* header = m_table->horizontalHeader();
    header->resizeSection(TimeModel::timeColumn, leastTimeWidth);
    header->resizeSection(TimeModel::clientColumn, leastTimeWidth);
    header->resizeSection(TimeModel::projectColumn, leastTimeWidth * 3 / 4);
    header->setSectionResizeMode(TimeModel::billedColumn, QHeaderView::ResizeToContents);

    m_pages->addWidget(m_table);
    m_pages->addWidget(buildEmpty());
    auto* line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setForegroundRole(QPalette::Midlight);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_timer);
    column->addWidget(line);
    column->addWidget(buildBar());
    column->addWidget(m_pages, 1);
}

QWidget* TimeSection::buildBar()
{
    auto* bar = new QWidget(this);
    m_period->setObjectName(QStringLiteral("timePeriod"));
    m_period->setAccessibleName(tr("Period"));
    m_period->addItem(tr("Last thirty days"), daysOfMonth);
    m_period->addItem(tr("Last twelve months"), daysOfYear);
    m_period->addItem(tr("Any time"));
    m_edit->setObjectName(QStringLiteral("editTime"));
    m_erase->setObjectName(QStringLiteral("deleteTime"));
    auto* add = new QPushButton(Theme::icon(QStringLiteral("plus")), tr("Add Time…"), bar);
    add->setObjectName(QStringLiteral("addTime"));
    connect(add, &QPushButton::clicked, this, &TimeSection::makeNew);
    auto* bill = new QPushButton(Theme::icon(QStringLiteral("invoice")), tr("Invoice Time…"), bar);
    bill->setObjectName(QStringLiteral("invoiceTime"));
    connect(bill, &QPushButton::clicked, this, &TimeSection::invoice);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(border, border, border, border);
    row->addWidget(m_period);
    row->addStretch();
    row->addWidget(m_edit);
    row->addWidget(m_erase);
    row->addWidget(add);
    row->addWidget(bill);
    return bar;
}

QWidget* TimeSection::buildEmpty()
{
    auto* page = new QWidget(this);
    auto* sentence =
        new QLabel(tr("No time in this period. Start the timer, or add what you have worked already."), page);
    sentence->setObjectName(QStringLiteral("emptyTime"));
    sentence->setAlignment(Qt::AlignCenter);
    sentence->setWordWrap(true);
    auto* add = new QPushButton(tr("Add Time…"), page);
    connect(add, &QPushButton::clicked, this, &TimeSection::makeNew);
    auto* column = new QVBoxLayout(page);
    column->addStretch();
    column->addWidget(sentence);
    column->addWidget(add, 0, Qt::AlignHCenter);
    column->addStretch();
    return page;
}

void TimeSection::fitPeriod()
{
    if (!m_library.isOpen()) {
        return;
    }
    const QVariant days = m_period->currentData();
    const Calendar& calendar = m_library.formats().calendar();
    m_model->setStart(days.isValid()
                          ? std::optional(calendar.startOfDay(calendar.addingDays(m_library.now(), -days.toInt())))
                          : std::nullopt);
}

void TimeSection::flush()
{
    m_timer->describe();
}

void TimeSection::refreshDay()
{
    fitPeriod();
}

std::int64_t TimeSection::chosen() const
{
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    return rows.isEmpty() ? 0 : m_model->key(rows.front().row());
}

void TimeSection::showState()
{
    m_pages->setCurrentIndex(m_model->rowCount() == 0 ? 1 : 0);
    m_edit->setEnabled(chosen() != 0);
    m_erase->setEnabled(chosen() != 0);
}

void TimeSection::makeNew()
{
    if (m_library.isOpen()) {
        auto* sheet = new TimeSheet(m_library, 0, this);
        connect(sheet, &TimeSheet::recorded, this, [this](const QString& warning) {
            Q_EMIT told(warning.isEmpty() ? tr("The time was recorded.") : warning);
        });
        sheet->begin();
    }
}

void TimeSection::edit()
{
    const std::int64_t key = chosen();
    const TimeEntry* entry = m_library.isOpen() ? m_library.context().find(Ref<TimeEntry>(key)) : nullptr;
    if (entry == nullptr) {
        return;
    }
    if (entry->invoiceID) {
        Q_EMIT failed(tr("This time is on an invoice, so it stays as it is. Take its line off the draft first."));
        return;
    }
    auto* sheet = new TimeSheet(m_library, key, this);
    connect(sheet, &TimeSheet::recorded, this, [this](const QString& warning) {
        if (!warning.isEmpty()) {
            Q_EMIT told(warning);
        }
    });
    sheet->begin();
}

/// Without a question: undo brings it back.
void TimeSection::erase()
{
    const TimeEntry* entry = m_library.isOpen() ? m_library.context().find(Ref<TimeEntry>(chosen())) : nullptr;
    if (entry == nullptr) {
        return;
    }
    const auto refusal =
        m_library.perform(tr("Delete Time"), [&] { TimeTracking::erase(m_library.context(), *entry); });
    if (refusal) {
        Q_EMIT failed(*refusal);
    } else {
        Q_EMIT told(tr("The entry was deleted. Undo brings it back."));
    }
}

void TimeSection::invoice()
{
    if (!m_library.isOpen()) {
        return;
    }
    const TimeEntry* entry = m_library.context().find(Ref<TimeEntry>(chosen()));
    auto* sheet = new TimeInvoiceSheet(m_library, this);
    connect(sheet, &TimeInvoiceSheet::made, this, [this](std::int64_t document) {
        Q_EMIT told(tr("The time was billed on a draft."));
        Q_EMIT wantedDocument(document);
    });
    sheet->begin(entry != nullptr ? entry->client.key() : 0);
}

} // namespace Quillary
