#include "QuillaryUI/Reports/ReportsSection.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"
#include "QuillaryCore/Tabular/CSVWriter.h"
#include "QuillaryUI/Charts/BarChart.h"
#include "QuillaryUI/Library/BesideReader.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Look/WaitingWord.h"
#include "QuillaryUI/Reports/ReportAnswer.h"
#include "QuillaryUI/Reports/ReportBars.h"
#include "QuillaryUI/Reports/ReportModel.h"
#include "QuillaryUI/Reports/ReportPaper.h"
#include "QuillaryUI/Reports/ReportPicker.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <utility>

namespace Quillary {

namespace {

constexpr int border = 24;
constexpr int gap = 12;
constexpr int settling = 60; ///< milliseconds
constexpr int widestColumn = 320;
constexpr int narrowestClient = 120;
constexpr int columnGap = 8;
constexpr double headingSize = 1.3;
constexpr int chartHeight = 264;

constexpr std::array pages = {std::pair("tax", ReportOrder::Kind::tax),
                              std::pair("tax-documents", ReportOrder::Kind::taxDocuments),
                              std::pair("aging", ReportOrder::Kind::aging),
                              std::pair("clients", ReportOrder::Kind::clients),
                              std::pair("invoices", ReportOrder::Kind::invoices)};

} // namespace

ReportsSection::ReportsSection(LibraryAccess& library, QWidget* parent)
    : Section(parent)
    , m_library(library)
    , m_reader(new BesideReader(library, this))
    , m_picker(new ReportPicker(library.formats(), this))
    , m_save(new QPushButton(tr("Save"), this))
    , m_print(new QPushButton(tr("Print…"), this))
    , m_heading(new QLabel(this))
    , m_waiting(new WaitingWord(tr("Reading the report…"), this))
    , m_others(new QLabel(this))
    , m_instead(new QWidget(this))
    , m_message(new QLabel(m_instead))
    , m_again(new QPushButton(tr("Read Again"), m_instead))
    , m_chart(new BarChart(library.formats(), this))
    , m_table(new QTableView(this))
    , m_pages(new QStackedWidget(this))
    , m_model(new ReportModel(library.formats(), this))
{
    setObjectName(QStringLiteral("reports"));
    build();
    m_soon.setSingleShot(true);
    m_soon.setInterval(settling);
    connect(&m_soon, &QTimer::timeout, this, [this] {
        if (!m_reader->isReading()) { // what is being read is followed by what changed meanwhile
            refresh();
        }
    });
    connect(&library, &LibraryAccess::opened, this, &ReportsSection::setStale);
    connect(&library, &LibraryAccess::changed, this, &ReportsSection::setStale);
    connect(m_picker, &ReportPicker::changed, this, &ReportsSection::refresh);
    connect(m_again, &QPushButton::clicked, this, &ReportsSection::refresh);
    connect(m_waiting, &WaitingWord::appeared, this, &ReportsSection::showWaiting);
    connect(m_waiting, &WaitingWord::cancelled, this, &ReportsSection::showCancelled);
    connect(m_reader, &BesideReader::failed, this, [this](const QString& sentence) {
        showMessage(tr("The report could not be read. %1").arg(sentence), true);
    });
    connect(m_reader, &BesideReader::ended, this, [this] {
        m_waiting->end();
        m_whenRead = nullptr;
        if (m_isStale) {
            setStale();
        }
    });
}

void ReportsSection::build()
{
    QFont large = m_heading->font();
    large.setPointSizeF(large.pointSizeF() * headingSize);
    large.setWeight(QFont::DemiBold);
    m_heading->setFont(large);
    m_heading->setObjectName(QStringLiteral("reportHeading"));
    m_others->setObjectName(QStringLiteral("reportOthers"));
    m_others->setForegroundRole(QPalette::PlaceholderText);
    m_chart->setObjectName(QStringLiteral("reportChart"));
    m_chart->setAccessibleName(tr("Chart of the report"));
    m_chart->setFixedHeight(chartHeight);
    m_chart->hide();

    m_table->setModel(m_model);
    Lists::dress(*m_table, QStringLiteral("reportTable"), tr("Report"), std::nullopt);
    m_table->setSelectionMode(QTableView::ExtendedSelection);
    m_table->setAlternatingRowColors(true);
    m_table->viewport()->installEventFilter(this);
    m_table->setHorizontalScrollMode(QTableView::ScrollPerPixel);

    m_pages->addWidget(m_table);
    m_pages->addWidget(buildMessage());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(border, border / 2, border, border);
    column->setSpacing(gap);
    buildActions();
    column->addWidget(buildBar());
    column->addWidget(buildHead());
    column->addWidget(m_chart);
    column->addWidget(m_pages, 1);
    column->addWidget(m_others);
}

void ReportsSection::buildActions()
{
    const auto add = [this](const QString& words, const char* name, const QKeySequence& keys, auto run) {
        auto* action = new QAction(words, this);
        action->setObjectName(QString::fromLatin1(name));
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, [this, run] { whenRead(run); });
        addAction(action);
        m_actions.push_back(action);
    };
    add(tr("Save as PDF"), "savePDF", QKeySequence(QStringLiteral("Ctrl+Shift+S")), [this] { savePDF(); });
    add(tr("Save as CSV: Standard (Commas and Points)"), "saveCSV", {}, [this] { save(CSVFormat::standard()); });
    add(tr("Save as CSV: For the Spreadsheet Program on This Machine"), "saveSpreadsheet", {}, [this] {
        save(CSVFormat::excel(m_library.formats().locale()));
    });
    add(tr("Print…"), "print", QKeySequence::Print, [this] { print(); });
}

/// What can't be read, or isn't there, is neither saved nor printed.
void ReportsSection::allowSaving(bool isAllowed)
{
    m_save->setEnabled(isAllowed);
    m_print->setEnabled(isAllowed);
    for (QAction* action : m_actions) {
        action->setEnabled(isAllowed);
    }
}

QWidget* ReportsSection::buildBar()
{
    auto* bar = new QWidget(this);
    m_save->setObjectName(QStringLiteral("saveReport"));
    m_print->setObjectName(QStringLiteral("printReport"));
    auto* ways = new QMenu(m_save);
    ways->addActions(m_actions.first(m_actions.size() - 1));
    m_save->setMenu(ways);
    connect(m_print, &QPushButton::clicked, this, [this] { whenRead([this] { print(); }); });
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_picker);
    row->addStretch();
    row->addWidget(m_save);
    row->addWidget(m_print);
    return bar;
}

/// Where the heading stands, the word stands that one is on its way.
QWidget* ReportsSection::buildHead()
{
    auto* head = new QWidget(this);
    auto* row = new QHBoxLayout(head);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(m_heading);
    row->addWidget(m_waiting);
    row->addStretch();
    return head;
}

QWidget* ReportsSection::buildMessage()
{
    m_message->setObjectName(QStringLiteral("reportMessage"));
    m_message->setAlignment(Qt::AlignCenter);
    m_message->setWordWrap(true);
    m_again->setObjectName(QStringLiteral("readAgain"));
    auto* column = new QVBoxLayout(m_instead);
    column->setSpacing(gap);
    column->addStretch();
    column->addWidget(m_message);
    column->addWidget(m_again, 0, Qt::AlignHCenter);
    column->addStretch();
    return m_instead;
}

void ReportsSection::setStale()
{
    m_isStale = true;
    if (isVisible()) {
        m_soon.start();
    }
}

void ReportsSection::refreshDay()
{
    setStale();
}

void ReportsSection::showEvent(QShowEvent* event)
{
    Section::showEvent(event);
    if (m_isStale) {
        refresh();
    }
}

QStringList ReportsSection::pageNames() const
{
    QStringList names;
    for (const auto& [name, kind] : pages) {
        names.push_back(QString::fromLatin1(name));
    }
    return names;
}

void ReportsSection::showPage(const QString& name)
{
    const auto found = std::ranges::find(pages, utf8(name), [](const auto& page) { return std::string(page.first); });
    if (found != pages.end()) {
        showReport(found->second);
    }
}

void ReportsSection::showReport(ReportOrder::Kind kind)
{
    m_picker->choose(kind);
}

void ReportsSection::refresh()
{
    if (!m_library.isOpen() || !isVisible()) {
        return;
    }
    m_isStale = false;
    m_picker->setToday(m_library.formats().qDate(m_library.now()));
    m_awaited = m_picker->order(m_library.formats().calendar().date(m_library.now()));
    if (!m_awaited) {
        m_reader->giveUp();
        showMessage(tr("The last day lies before the first. Choose a later one."), false);
        return;
    }
    m_awaited->hasChart = true;
    m_waiting->begin();
    m_reader->read<ReportAnswer>(
        [order = *m_awaited](const AssistantEnvironment& environment) {
            return ReportAnswer::read(environment, order);
        },
        [this, order = *m_awaited](ReportAnswer answer) { take(order, std::move(answer)); });
}

void ReportsSection::take(ReportOrder order, ReportAnswer answer)
{
    m_picker->setCurrencies(answer.currencies);
    order.currencyCode = answer.report.currencyCode; // which may not have been known yet
    m_awaited = order;
    m_shown = std::move(order);
    display(std::move(answer.report));
    if (const auto work = std::exchange(m_whenRead, nullptr)) {
        work();
    }
}

/// It takes a while. What answers another wish goes; what is only read again stays until it is exchanged.
void ReportsSection::showWaiting()
{
    if (m_shown != m_awaited) {
        clear();
        m_message->clear();
        m_again->hide();
        m_pages->setCurrentWidget(m_instead);
    }
}

void ReportsSection::showCancelled()
{
    m_reader->giveUp();
    showMessage(tr("The report was not read to its end."), true);
}

void ReportsSection::display(FinishedReport report)
{
    m_heading->setText(ReportPaper::title(report));
    m_heading->show();
    m_others->setText(ReportPaper::note(report));
    m_others->setVisible(!m_others->text().isEmpty());
    const std::size_t rows = report.table.rows.size();
    const bool isEmpty = report.hasTotal ? rows <= 1 : rows == 0;
    m_model->show(std::exchange(report.table, {}), report.hasTotal);
    fitColumns();
    allowSaving(true);
    m_chart->setVisible(report.chart.has_value());
    if (report.chart) {
        ReportBars::show(*report.chart, report.currencyCode, m_library.formats(), *m_chart);
    }
    if (isEmpty) {
        m_message->setText(report.aging ? tr("Nothing is owed to you.") : tr("There is nothing in this period."));
        m_message->setForegroundRole(QPalette::PlaceholderText);
        m_again->hide();
    }
    m_pages->setCurrentWidget(isEmpty ? m_instead : m_table);
    m_report = std::move(report);
}

/// Clients get what room is left, or yield some; where that isn't enough, the table is wider than the window.
void ReportsSection::fitColumns()
{
    QHeaderView* header = m_table->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Interactive); // a column that stretches keeps its width
    m_table->resizeColumnsToContents();
    m_stretched = 0;
    m_natural = 0;
    m_yielding = 0;
    for (int column = 0; column < m_model->columnCount(); ++column) {
        header->resizeSection(column, std::min(widestColumn, header->sectionSize(column) + columnGap));
        m_natural += header->sectionSize(column);
        if (m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole) == CoreText::word("Client")) {
            m_stretched = column;
            m_yielding = std::max(0, header->sectionSize(column) - narrowestClient);
        }
    }
    stretch();
}

void ReportsSection::stretch()
{
    if (m_stretched < m_model->columnCount()) {
        const bool fits = m_natural - m_yielding <= m_table->viewport()->width();
        m_table->horizontalHeader()->setSectionResizeMode(m_stretched,
                                                          fits ? QHeaderView::Stretch : QHeaderView::Interactive);
    }
}

/// The table's own room, which comes after it was filled.
bool ReportsSection::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        stretch();
    }
    return Section::eventFilter(watched, event);
}

void ReportsSection::clear()
{
    m_shown.reset();
    m_model->show({}, false);
    m_heading->hide();
    m_others->hide();
    allowSaving(false);
    m_chart->hide();
}

/// Instead of the table, so that nobody takes something else for the answer.
void ReportsSection::showMessage(const QString& sentence, bool isWorthTrying)
{
    clear();
    m_message->setForegroundRole(QPalette::WindowText);
    m_message->setText(sentence);
    m_again->setVisible(isWorthTrying);
    m_pages->setCurrentWidget(m_instead);
}

/// What is asked for while another report is on its way is done with that one, or not at all.
void ReportsSection::whenRead(std::function<void()> work)
{
    if (m_reader->isReading()) {
        m_whenRead = std::move(work);
    } else if (m_shown && m_library.isOpen()) {
        work();
    }
}

void ReportsSection::save(const CSVFormat& format)
{
    const std::string csv = CSVWriter::data(m_model->table().header, m_model->table().rows, format);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(csv.data());
    std::filesystem::path file;
    const auto refusal = m_library.attempt([&] {
        file = saveUniqueFile(
            m_library.environment().printer().downloadsFolder(), fileName(), "csv", std::span(bytes, csv.size()));
    });
    if (refusal) {
        Q_EMIT failed(*refusal);
    } else {
        Q_EMIT told(tr("Saved as %1").arg(text(file.string())));
    }
}

void ReportsSection::savePDF()
{
    PaperDesk::savePDF(
        m_library.press(), page(), m_library.environment().printer().downloadsFolder(), fileName(), asker());
}

void ReportsSection::print()
{
    PaperDesk::print(m_library.press(), page(), ReportPaper::title(m_report), asker());
}

std::string ReportsSection::fileName() const
{
    return m_shown ? utf8(ReportPaper::fileName(*m_shown)) : m_report.fileName;
}

PageJob ReportsSection::page() const
{
    return ReportPaper::page(m_report, *m_model, m_library.business(), m_library.formats(), m_library.now());
}

PaperDesk::Asker ReportsSection::asker()
{
    return {.widget = *this,
            .told = [this](const QString& sentence) { Q_EMIT told(sentence); },
            .failed =
                [this](const QString& sentence) {
                    Q_EMIT failed(CoreText::sentence(utf8(sentence)));
                }};
}

} // namespace Quillary
