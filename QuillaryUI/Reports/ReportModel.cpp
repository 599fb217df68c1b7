#include "QuillaryUI/Reports/ReportModel.h"

#include "QuillaryCore/Money/Money.h"
#include "QuillaryUI/Look/CoreText.h"

#include <QFont>

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <variant>

namespace Quillary {

namespace {

constexpr int basisPointDigits = 2;

/// One cell as the locale writes it.
struct CellText
{
    const Locale& locale;

    QString operator()(const std::string& words) const { return text(words); }
    QString operator()(const Money& amount) const { return text(amount.formatted(locale)); }
    QString operator()(const CSVValue::Number& number) const { return text(locale.formatDecimal(number.value, 0, 0)); }
    QString operator()(const CSVValue::Date& date) const { return date ? text(locale.formatDate(*date)) : QString(); }
    QString operator()(const CSVValue::Rate& rate) const
    {
        return text(locale.formatDecimal(rate.basisPoints, basisPointDigits, 0));
    }
};

struct CellValue
{
    QVariant operator()(const std::string& words) const { return text(words); }
    QVariant operator()(const Money& amount) const { return qlonglong(amount.minorUnits()); }
    QVariant operator()(const CSVValue::Number& number) const { return qlonglong(number.value); }
    QVariant operator()(const CSVValue::Date& date) const { return date ? text(isoText(*date)) : QVariant(); }
    QVariant operator()(const CSVValue::Rate& rate) const { return rate.basisPoints; }
};

bool isNumber(const CSVValue& value)
{
    return !std::holds_alternative<std::string>(value.content()) &&
           !std::holds_alternative<CSVValue::Date>(value.content());
}

/// "Net" for "Net (EUR)": what a file needs stands here in the heading and in every amount.
QString headerText(const std::string& header)
{
    return CoreText::word(header.substr(0, header.rfind(" (")));
}

} // namespace

ReportModel::ReportModel(Formats formats, QObject* parent)
    : QAbstractTableModel(parent)
    , m_formats(std::move(formats))
{
}

void ReportModel::show(ReportTable table, bool hasTotal)
{
    beginResetModel();
    m_table = std::move(table);
    m_hasTotal = hasTotal;
    m_numeric.assign(m_table.header.size(), false); // once: a table may have a hundred thousand rows
    for (std::size_t column = 0; column < m_numeric.size(); ++column) {
        m_numeric[column] = std::ranges::any_of(
            m_table.rows, [column](const std::vector<CSVValue>& row) { return isNumber(row[column]); });
    }
    endResetModel();
}

/// Whether a cell holds words of the report, such as a kind of document, rather than those of its user.
bool ReportModel::isOfTheReport(const QModelIndex& cell) const
{
    constexpr std::array titles = {"Tax", "Type", "Status"};
    const std::string& title = m_table.header[static_cast<std::size_t>(cell.column())];
    const bool isTotal = m_hasTotal && cell.row() == rowCount() - 1 && cell.column() == 0;
    const auto& row = m_table.rows[static_cast<std::size_t>(cell.row())];
    return (isTotal || std::ranges::find(titles, title) != titles.end()) &&
           std::holds_alternative<std::string>(row[static_cast<std::size_t>(cell.column())].content());
}

int ReportModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_table.rows.size());
}

int ReportModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_table.header.size());
}

QVariant ReportModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount()) {
        return {};
    }
    const CSVValue& value =
        m_table.rows[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
    switch (role) {
    case Qt::DisplayRole:
        return isOfTheReport(index) ? CoreText::sentence(std::get<std::string>(value.content()))
                                    : std::visit(CellText{m_formats.locale()}, value.content());
    case sortRole:
        return std::visit(CellValue{}, value.content());
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter | (isNumber(value) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::FontRole:
        if (m_hasTotal && index.row() == rowCount() - 1) {
            QFont bold;
            bold.setWeight(QFont::DemiBold);
            return bold;
        }
        return {};
    default:
        return {};
    }
}

QVariant ReportModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return headerText(m_table.header[static_cast<std::size_t>(section)]);
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (isNumeric(section) ? Qt::AlignRight : Qt::AlignLeft));
    }
    return {};
}

} // namespace Quillary
