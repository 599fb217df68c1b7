#include "QuillaryUI/Reports/ReportsSection.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"
#include "QuillaryCore/Reports/ReportData.h"
#include "QuillaryCore/Tabular/CSVWriter.h"
#include "QuillaryUI/Charts/BarChart.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Look/Theme.h"
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
    , m_picker(new ReportPicker(library.formats(), this))
    , m_save(new QPushButton(tr("Save"), this))
    , m_print(new QPushButton(tr("Print…"), this))
    , m_heading(new QLabel(this))
    , m_others(new QLabel(this))
    , m_message(new QLabel(this))
    , m_chart(new BarChart(library.formats(), this))
    , m_table(new QTableView(this))
    , m_pages(new QStackedWidget(this))
    , m_model(new ReportModel(library.formats(), this))
{
    setObjectName(QStringLiteral("reports"));
    build();
    m_soon.setSingleShot(true);
    m_soon.setInterval(settling);
    connect(&m_soon, &QTimer::timeout, this, &ReportsSection::refresh);
    connect(&library, &LibraryAccess::opened, this, &ReportsSection::setStale);
    connect(&library, &LibraryAccess::changed, this, &ReportsSection::setStale);
    connect(m_picker, &ReportPicker::changed, this, &ReportsSection::refresh);
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
    m_message->setObjectName(QStringLiteral("reportMessage"));
    m_message->setAlignment(Qt::AlignCenter);
    m_message->setWordWrap(true);
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
    m_pages->addWidget(m_message);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(border, border / 2, border, border);
    column->setSpacing(gap);
    buildActions();
    column->addWidget(buildBar());
    column->addWidget(m_heading);
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
        connect(action, &QAction::triggered, this, run);
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
    connect(m_print, &QPushButton::clicked, this, &ReportsSection::print);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_picker);
    row->addStretch();
    row->addWidget(m_save);
    row->addWidget(m_print);
    return bar;
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

/// The business's own first, then what else there is. False: they can't be read.
bool ReportsSection::fillCurrencies()
{
    std::vector<std::string> codes;
    const auto failure = m_library.attempt([&] {
        const std::string& own = m_library.business().currencyCode;
        codes = ReportData::currencies(m_library.context(), ReportPeriod::all().range(m_library.formats().calendar()));
        for (std::string& code : ReportData::openCurrencies(m_library.context())) {
            if (std::ranges::find(codes, code) == codes.end()) {
                codes.push_back(std::move(code));
            }
        }
        std::erase(codes, own);
        codes.insert(codes.begin(), own);
    });
    if (failure) {
        showMessage(tr("The report could not be read. %1").arg(*failure));
        return false;
    }
    m_picker->setCurrencies(codes);
    m_picker->setToday(m_library.formats().qDate(m_library.now()));
    return true;
}

void ReportsSection::refresh()
{
    if (!m_library.isOpen() || !isVisible()) {
        return;
    }
    if (m_isStale && !fillCurrencies()) {
        return;
    }
    m_isStale = false;
    const Calendar& calendar = m_library.formats().calendar();
    std::optional<ReportOrder> order = m_picker->order(calendar.date(m_library.now()));
    if (!order) {
        showMessage(tr("The last day lies before the first. Choose a later one."));
        return;
    }
    order->hasChart = true;
    FinishedReport report;
    const auto failure = m_library.attempt([&] {
        report = FinishedReport::make(
            m_library.context(),
            *order,
            {.now = m_library.now(), .calendar = calendar, .locale = m_library.formats().locale()});
    });
    if (failure) {
        showMessage(tr("The report could not be read. %1").arg(*failure));
        return;
    }
    display(std::move(report));
}

void ReportsSection::display(FinishedReport report)
{
    m_heading->setText(ReportPaper::title(report));
    m_heading->show();
    m_others->setText(ReportPaper::note(report));
    m_others->setVisible(!m_others->text().isEmpty());
    const std::size_t rows = report.table.rows.size();
    const bool isEmpty = report.hasTotal ? rows <= 1 : rows == 0;
    m_model->show(report.table, report.hasTotal);
    fitColumns();
    allowSaving(true);
    m_chart->setVisible(report.chart.has_value());
    if (report.chart) {
        ReportBars::show(*report.chart, report.currencyCode, m_library.formats(), *m_chart);
    }
    if (isEmpty) {
        m_message->setText(report.aging ? tr("Nothing is owed to you.") : tr("There is nothing in this period."));
        m_message->setForegroundRole(QPalette::PlaceholderText);
    }
    m_pages->setCurrentWidget(isEmpty ? static_cast<QWidget*>(m_message) : m_table);
    m_report = std::move(report);
}

/// Clients get what room is left; where there is none, the table is wider than the window.
void ReportsSection::fitColumns()
{
    QHeaderView* header = m_table->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Interactive); // a column that stretches keeps its width
    m_table->resizeColumnsToContents();
    m_stretched = 0;
    m_natural = 0;
    for (int column = 0; column < m_model->columnCount(); ++column) {
        header->resizeSection(column, std::min(widestColumn, header->sectionSize(column) + columnGap));
        m_natural += header->sectionSize(column);
        if (m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole) == CoreText::word("Client")) {
            m_stretched = column;
        }
    }
    stretch();
}

void ReportsSection::stretch()
{
    if (m_stretched < m_model->columnCount()) {
        m_table->horizontalHeader()->setSectionResizeMode(
            m_stretched, m_natural <= m_table->viewport()->width() ? QHeaderView::Stretch : QHeaderView::Interactive);
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

/// Instead of the table, so that nobody takes something else for the answer.
void ReportsSection::showMessage(const QString& sentence)
{
    m_report.reset();
    m_model->show({}, false);
    m_heading->hide();
    m_others->hide();
    allowSaving(false);
    m_chart->hide();
    m_message->setForegroundRole(QPalette::WindowText);
    m_message->setText(sentence);
    m_pages->setCurrentWidget(m_message);
}

void ReportsSection::save(const CSVFormat& format)
{
    if (!m_report || !m_library.isOpen()) {
        return;
    }
    const std::string csv = CSVWriter::data(m_report->table.header, m_report->table.rows, format);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(csv.data());
    std::filesystem::path file;
    const auto refusal = m_library.attempt([&] {
        file = saveUniqueFile(m_library.environment().printer().downloadsFolder(),
                              m_report->fileName,
                              "csv",
                              std::span(bytes, csv.size()));
    });
    if (refusal) {
        Q_EMIT failed(*refusal);
    } else {
        Q_EMIT told(tr("Saved as %1").arg(text(file.string())));
    }
}

void ReportsSection::savePDF()
{
    if (m_report && m_library.isOpen()) {
        PaperDesk::savePDF(m_library.press(),
                           page(),
                           m_library.environment().printer().downloadsFolder(),
                           m_report->fileName,
                           asker());
    }
}

void ReportsSection::print()
{
    if (m_report && m_library.isOpen()) {
        PaperDesk::print(m_library.press(), page(), ReportPaper::title(*m_report), asker());
    }
}

PageJob ReportsSection::page() const
{
    return ReportPaper::page(*m_report, *m_model, m_library.business(), m_library.formats(), m_library.now());
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
