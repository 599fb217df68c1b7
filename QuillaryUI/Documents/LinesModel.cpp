#include "QuillaryUI/Documents/LinesModel.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Percent.h"
#include "QuillaryCore/Money/Quantity.h"
#include "QuillaryUI/Documents/TypedNumber.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

namespace Quillary {

namespace {

bool isNumber(int column)
{
    return column == LinesModel::quantity || column == LinesModel::price || column == LinesModel::tax ||
           column == LinesModel::amount;
}

/// What a cell is called among a line's arguments.
std::string fieldOf(int column)
{
    constexpr std::array names = {"title", "details", "quantity", "unit", "unit_price", "tax_rate"};
    return names.at(static_cast<std::size_t>(column));
}

} // namespace

LinesModel::LinesModel(DraftDesk& desk, QObject* parent)
    : QAbstractTableModel(parent)
    , m_desk(desk)
{
}

void LinesModel::reload()
{
    std::vector<Line> lines;
    if (const Document* draft = m_desk.document()) {
        const AssistantEnvironment& environment = m_desk.library().environment();
        const UnitLibrary units(environment.context, environment.ownBusiness());
        m_currencyCode = draft->currencyCode;
        for (const LineItem* line : linesInOrder(environment.context, *draft)) {
            lines.push_back({.title = Quillary::text(line->title),
                             .details = Quillary::text(line->details),
                             .quantityThousandths = line->quantityThousandths,
                             .unit = Quillary::text(unitLabel(*line, language(*draft), units)),
                             .unitPriceMinorUnits = line->unitPriceMinorUnits,
                             .taxBasisPoints = line->vatBasisPoints,
                             .amountMinorUnits = Quillary::amount(*line),
                             .isChild = bool(line->parent)});
        }
    }
    // Rows come and go at the end, so that an open editor stays where it is: the empty row has become a line.
    const int before = lineCount();
    const int after = int(lines.size());
    if (after > before) {
        beginInsertRows({}, before + 1, after);
        m_lines = std::move(lines);
        endInsertRows();
    } else if (after < before) {
        beginRemoveRows({}, after + 1, before);
        m_lines = std::move(lines);
        endRemoveRows();
    } else {
        m_lines = std::move(lines);
    }
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columns - 1));
}

int LinesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : lineCount() + 1;
}

int LinesModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant LinesModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (isNumber(index.column()) ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (index.row() == lineCount()) {
        return role == Qt::DisplayRole && index.column() == title ? QVariant(tr("Add a line…")) : QVariant();
    }
    const Line& line = m_lines[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return text(line, index.column());
    case Qt::EditRole:
        return editText(line, index.column());
    case Qt::ToolTipRole:
        return index.column() == details ? line.details : QVariant();
    default:
        return {};
    }
}

QString LinesModel::text(const Line& line, int column) const
{
    const Formats& formats = m_desk.library().formats();
    switch (column) {
    case title:
        return line.isChild ? QStringLiteral("    ") + line.title : line.title;
    case details:
        return line.details.section(QChar(u'\n'), 0, 0);
    case price:
        return formats.money(line.unitPriceMinorUnits, m_currencyCode);
    case amount:
        return formats.money(line.amountMinorUnits, m_currencyCode);
    default:
        return editText(line, column);
    }
}

QString LinesModel::editText(const Line& line, int column) const
{
    const Formats& formats = m_desk.library().formats();
    switch (column) {
    case title:
        return line.title;
    case details:
        return line.details;
    case quantity:
        return formats.quantity(line.quantityThousandths);
    case unit:
        return line.unit;
    case price:
        return formats.amount(line.unitPriceMinorUnits, m_currencyCode);
    case tax:
        return Quillary::text(Percent::format(line.taxBasisPoints));
    default:
        return {};
    }
}

QVariant LinesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (isNumber(section) ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case title:
        return tr("Description");
    case details:
        return tr("Details");
    case quantity:
        return tr("Quantity");
    case unit:
        return tr("Unit");
    case price:
        return tr("Price");
    case tax:
        return tr("Tax");
    case amount:
        return tr("Amount");
    default:
        return {};
    }
}

Qt::ItemFlags LinesModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return index.column() == amount ? flags : flags | Qt::ItemIsEditable;
}

bool LinesModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid()) {
        return false;
    }
    const QString typed = value.toString();
    const bool isNew = index.row() == lineCount();
    if ((isNew && typed.trimmed().isEmpty()) ||
        (!isNew && typed == editText(m_lines[std::size_t(index.row())], index.column()))) {
        return false;
    }
    const std::optional<std::string> plain =
        TypedNumber::cell(typed, index.column(), m_currencyCode, m_desk.library().formats().locale());
    if (!plain) {
        Q_EMIT refused(tr("“%1” is no number. Write it as 1250.50, or as a sum such as 3*12.50.").arg(typed));
        return false;
    }
    JSON line = JSON::object({{fieldOf(index.column()), *plain}});
    if (isNew) {
        return !apply(tr("Add Line"), JSON::object({{"add_lines", JSON::array({std::move(line)})}}));
    }
    line.set("line", index.row() + 1);
    return !apply(tr("Change Line"), JSON::object({{"change_lines", JSON::array({std::move(line)})}}));
}

std::optional<QString> LinesModel::apply(const QString& name, const JSON& arguments)
{
    std::optional<QString> refusal = m_desk.change(name, arguments);
    Q_EMIT refused(refusal.value_or(QString()));
    reload();
    return refusal;
}

void LinesModel::takeItem(int row, const QString& itemID)
{
    JSON item = JSON::object({{"catalog_item", utf8(itemID)}});
    if (row < lineCount()) {
        // A line that says something already keeps what was typed beside its name.
        JSON named = JSON::object({{"line", row + 1}, {"title", utf8(itemID)}});
        static_cast<void>(apply(tr("Change Line"), JSON::object({{"change_lines", JSON::array({std::move(named)})}})));
        return;
    }
    static_cast<void>(apply(tr("Add Line"), JSON::object({{"add_lines", JSON::array({std::move(item)})}})));
}

void LinesModel::removeLines(std::vector<int> rows)
{
    std::erase_if(rows, [this](int row) { return row >= lineCount(); });
    if (rows.empty()) {
        return;
    }
    JSON::Array numbers;
    for (const int row : rows) {
        numbers.emplace_back(row + 1);
    }
    static_cast<void>(apply(tr("Remove Lines"), JSON::object({{"remove_lines", std::move(numbers)}})));
}

bool LinesModel::paste(const QString& text)
{
    if (!text.contains(QChar(u'\t')) && !text.contains(QChar(u'\n'))) {
        return false;
    }
    const Locale& locale = m_desk.library().formats().locale();
    constexpr std::array order = {title, quantity, unit, price};
    JSON::Array lines;
    for (const QString& row : text.split(QChar(u'\n'), Qt::SkipEmptyParts)) {
        const QStringList cells = row.split(QChar(u'\t'));
        JSON line = JSON::object({});
        for (std::size_t cell = 0; cell < order.size() && cell < std::size_t(cells.size()); ++cell) {
            const QString typed = cells[qsizetype(cell)].trimmed();
            const auto plain = TypedNumber::cell(typed, order.at(cell), m_currencyCode, locale);
            if (!typed.isEmpty() && plain) {
                line.set(fieldOf(order.at(cell)), *plain);
            }
        }
        if (!line.object()->empty()) {
            lines.push_back(std::move(line));
        }
    }
    return !lines.empty() && !apply(tr("Paste Lines"), JSON::object({{"add_lines", std::move(lines)}}));
}

void LinesModel::moveLine(int from, int before)
{
    const std::optional<QString> refusal = m_desk.moveLine(from, before);
    Q_EMIT refused(refusal.value_or(QString()));
    reload();
}

} // namespace Quillary
