#include "QuillaryUI/Reports/ReportsSection.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"
#include "QuillaryCore/Reports/ReportData.h"
#include "QuillaryCore/Tabular/CSVWriter.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Reports/ReportModel.h"
#include "QuillaryUI/Reports/ReportPicker.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>

namespace Quillary {

namespace {

constexpr int border = 24;
constexpr int gap = 12;
constexpr int settling = 60; ///< milliseconds
constexpr int widestColumn = 320;
constexpr int columnGap = 24;
constexpr double headingSize = 1.3;

} // namespace

ReportsSection::ReportsSection(LibraryAccess& library, QWidget* parent)
    : Section(parent)
    , m_library(library)
    , m_picker(new ReportPicker(library.formats(), this))
    , m_save(new QPushButton(tr("Save as CSV"), this))
    , m_heading(new QLabel(this))
    , m_others(new QLabel(this))
    , m_message(new QLabel(this))
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

    m_table->setModel(m_model);
    Lists::dress(*m_table, QStringLiteral("reportTable"), tr("Report"), std::nullopt);
    m_table->setSelectionMode(QTableView::ExtendedSelection);
    m_table->setAlternatingRowColors(true);
    m_table->setHorizontalScrollMode(QTableView::ScrollPerPixel);

    m_pages->addWidget(m_table);
    m_pages->addWidget(m_message);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(border, border / 2, border, border);
    column->setSpacing(gap);
    column->addWidget(buildBar());
    column->addWidget(m_heading);
    column->addWidget(m_pages, 1);
    column->addWidget(m_others);
}

QWidget* ReportsSection::buildBar()
{
    auto* bar = new QWidget(this);
    m_save->setObjectName(QStringLiteral("saveReport"));
    auto* dialects = new QMenu(m_save);
    dialects->addAction(tr("Standard (commas and points)"), this, [this] { save(CSVFormat::standard()); });
    dialects->addAction(tr("For the spreadsheet program on this machine"), this, [this] {
        save(CSVFormat::excel(m_library.formats().locale()));
    });
    m_save->setMenu(dialects);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_picker);
    row->addStretch();
    row->addWidget(m_save);
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
    const std::optional<ReportOrder> order = m_picker->order(calendar.date(m_library.now()));
    if (!order) {
        showMessage(tr("The last day lies before the first. Choose a later one."));
        return;
    }
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
    QStringList parts = text(report.title).split(QStringLiteral(", "));
    for (QString& part : parts) {
        part = CoreText::sentence(utf8(part));
    }
    m_heading->setText(parts.join(QStringLiteral(", ")));
    m_heading->show();
    QStringList others;
    for (const std::string& code : report.otherCurrencies) {
        others.push_back(text(code));
    }
    m_others->setVisible(!others.isEmpty());
    m_others->setText(tr("Not in this report: amounts in %1.").arg(others.join(QStringLiteral(", "))));
    const std::size_t rows = report.table.rows.size();
    const bool isEmpty = report.hasTotal ? rows <= 1 : rows == 0;
    m_model->show(report.table, report.hasTotal);
    fitColumns();
    m_save->setEnabled(true);
    if (isEmpty) {
        m_message->setText(report.aging ? tr("Nothing is owed to you.") : tr("There is nothing in this period."));
        m_message->setForegroundRole(QPalette::PlaceholderText);
    }
    m_pages->setCurrentWidget(isEmpty ? static_cast<QWidget*>(m_message) : m_table);
    m_report = std::move(report);
}

void ReportsSection::fitColumns()
{
    QHeaderView* header = m_table->horizontalHeader();
    m_table->resizeColumnsToContents();
    int stretched = 0;
    for (int column = 0; column < m_model->columnCount(); ++column) {
        header->setSectionResizeMode(column, QHeaderView::Interactive);
        header->resizeSection(column, std::min(widestColumn, header->sectionSize(column) + columnGap));
        const bool isClient = m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole) == tr("Client");
        stretched = isClient ? column : stretched;
    }
    if (m_model->columnCount() > 0) {
        header->setSectionResizeMode(stretched, QHeaderView::Stretch);
    }
}

/// Instead of the table, so that nobody takes something else for the answer.
void ReportsSection::showMessage(const QString& sentence)
{
    m_report.reset();
    m_model->show({}, false);
    m_heading->hide();
    m_others->hide();
    m_save->setEnabled(false);
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

} // namespace Quillary
