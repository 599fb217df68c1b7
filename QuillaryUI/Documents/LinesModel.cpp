#include "QuillaryUI/Documents/LinesModel.h"

#include "QuillaryCore/Assistant/Operations/FilledIn.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Quantity.h"
#include "QuillaryUI/Documents/PastedLines.h"
#include "QuillaryUI/Documents/TypedNumber.h"

#include <QGuiApplication>
#include <QPalette>
#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

namespace Quillary {

namespace {

bool isNumber(int column)
{
    return column == LinesModel::quantity || column == LinesModel::price || column == LinesModel::tax ||
           column == LinesModel::sum;
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
    if (!m_desk.library().isOpen()) {
        return; // what is shown comes back with it
    }
    std::vector<Line> lines;
    m_desk.look([&](const Document& draft) {
        const AssistantEnvironment& environment = m_desk.library().environment();
        const UnitLibrary units(environment.context, environment.ownBusiness());
        m_currencyCode = draft.currencyCode;
        for (const LineItem* line : linesInOrder(environment.context, draft)) {
            lines.push_back({.key = line->ref.key(),
                             .title = Quillary::text(line->title),
                             .details = Quillary::text(line->details),
                             .quantityThousandths = line->quantityThousandths,
                             .unit = Quillary::text(unitLabel(*line, language(draft), units)),
                             .unitPriceMinorUnits = line->unitPriceMinorUnits,
                             .taxBasisPoints = line->vatBasisPoints,
                             .amountMinorUnits = Quillary::amount(*line),
                             .isChild = bool(line->parent),
                             .origins = {}});
        }
        fillOrigins(lines, draft);
    });
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

void LinesModel::fillOrigins(std::vector<Line>& lines, const Document& draft) const
{
    std::size_t row = 0;
    for (const FilledIn::Line& filled : FilledIn::lines(m_desk.library().environment(), draft)) {
        std::array<QString, columns>& origins = lines[row++].origins;
        for (int column = 0; column < sum; ++column) {
            if (filled.ofItem.contains(fieldOf(column))) {
                origins.at(std::size_t(column)) = tr("From the catalog: %1").arg(Quillary::text(filled.item));
            }
        }
        if (filled.hasUsualRate) {
            origins.at(tax) = tr("Your usual tax rate");
        }
    }
}

QString LinesModel::origin(const Line& line, int column) const
{
    return m_touched.contains({line.key, column}) ? QString() : line.origins.at(std::size_t(column));
}

/// What has no room in its cell, and where it comes from.
QVariant LinesModel::toolTip(const Line& line, int column) const
{
    QStringList words{column == details ? line.details : QString(), origin(line, column)};
    words.removeAll(QString());
    return words.isEmpty() ? QVariant() : QVariant(words.join(QStringLiteral("\n\n")));
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
        return role == Qt::DisplayRole && index.column() == description ? QVariant(tr("Add a line…")) : QVariant();
    }
    const Line& line = m_lines[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return text(line, index.column());
    case Qt::EditRole:
        return editText(line, index.column());
    case Qt::ToolTipRole:
        return toolTip(line, index.column());
    case Qt::AccessibleDescriptionRole:
        return origin(line, index.column());
    case Qt::ForegroundRole:
        return origin(line, index.column()).isEmpty()
                   ? QVariant()
                   : QVariant(QGuiApplication::palette().color(QPalette::PlaceholderText));
    default:
        return {};
    }
}

QString LinesModel::text(const Line& line, int column) const
{
    const Formats& formats = m_desk.library().formats();
    switch (column) {
    case description:
        return line.isChild ? QStringLiteral("    ") + line.title : line.title;
    case details:
        return line.details.section(QChar(u'\n'), 0, 0);
    case price:
        return formats.money(line.unitPriceMinorUnits, m_currencyCode);
    case sum:
        return formats.money(line.amountMinorUnits, m_currencyCode);
    default:
        return editText(line, column);
    }
}

QString LinesModel::editText(const Line& line, int column) const
{
    const Formats& formats = m_desk.library().formats();
    switch (column) {
    case description:
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
        return formats.percent(line.taxBasisPoints);
    default:
        return {};
    }
}

QVariant LinesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) {
        const bool isLine = section < lineCount();
        return role == Qt::DisplayRole   ? QVariant(isLine ? QString::number(section + 1) : QStringLiteral("+"))
               : role == Qt::ToolTipRole ? QVariant(isLine ? tr("Drag the number to move the line.") : QString())
                                         : QVariant();
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (isNumber(section) ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case description:
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
    case sum:
        return tr("Amount");
    default:
        return {};
    }
}

Qt::ItemFlags LinesModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return index.column() == sum ? flags : flags | Qt::ItemIsEditable;
}

/// As `update_document` takes one changed cell. No value: no number.
std::optional<JSON> LinesModel::changeOf(int row, int column, const QString& typed) const
{
    std::optional<std::string> plain =
        TypedNumber::cell(typed, column, m_currencyCode, m_desk.library().formats().locale());
    if (!plain) {
        return std::nullopt;
    }
    JSON line = JSON::object({{fieldOf(column), *std::move(plain)}});
    if (row == lineCount()) {
        return JSON::object({{"add_lines", JSON::array({std::move(line)})}});
    }
    line.set("line", row + 1);
    return JSON::object({{"change_lines", JSON::array({std::move(line)})}});
}

bool LinesModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid()) {
        return false;
    }
    m_typing.reset();
    const QString typed = value.toString();
    const bool isNew = index.row() == lineCount();
    if ((isNew && typed.trimmed().isEmpty()) ||
        (!isNew && typed == editText(m_lines[std::size_t(index.row())], index.column()))) {
        return false;
    }
    const std::optional<JSON> change = changeOf(index.row(), index.column(), typed);
    if (!change) {
        Q_EMIT refused(tr("“%1” is no number. Write it as 1250.50, or as a sum such as 3*12.50.").arg(typed));
        return false;
    }
    if (apply(isNew ? tr("Add Line") : tr("Change Line"), *change)) {
        return false;
    }
    if (index.row() < lineCount()) {
        m_touched.insert({m_lines[std::size_t(index.row())].key, index.column()});
    }
    return true;
}

void LinesModel::setTyping(int row, int column, const QString& text)
{
    m_typing = {row, column, text};
    if (row < lineCount()) {
        m_touched.insert({m_lines[std::size_t(row)].key, column}); // also if it comes to the same
    }
    Q_EMIT typing();
}

void LinesModel::addTyping(JSON& arguments) const
{
    if (!m_typing || (m_typing->row == lineCount() && m_typing->text.trimmed().isEmpty())) {
        return;
    }
    if (const auto change = changeOf(m_typing->row, m_typing->column, m_typing->text)) {
        for (const auto& [name, value] : *change->object()) {
            arguments.set(name, value);
        }
    }
}

/// What is no number yet ("3*") waits until the cell is left: only then is it worth a word.
void LinesModel::saveTyping()
{
    if (const std::optional<Typing> typed = std::exchange(m_typing, std::nullopt);
        typed && typed->row <= lineCount() && changeOf(typed->row, typed->column, typed->text)) {
        setData(index(typed->row, typed->column), typed->text);
    }
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
    m_typing.reset();
    JSON item = JSON::object({{"catalog_item", utf8(itemID)}});
    JSON arguments = JSON::object({{"add_lines", JSON::array({std::move(item)})}});
    if (row + 1 == lineCount()) {
        arguments.set("remove_lines", JSON::array({row + 1}));
    }
    static_cast<void>(apply(tr("Add Line"), arguments));
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
    const bool isTable = text.contains(QChar(u'\t')) || text.trimmed().contains(QChar(u'\n'));
    if (!isTable || m_desk.document() == nullptr) {
        return false;
    }
    const AssistantEnvironment& environment = m_desk.library().environment();
    const UnitLibrary units(environment.context, environment.ownBusiness());
    JSON::Array lines = PastedLines::lines(
        utf8(text), {.units = units, .locale = m_desk.library().formats().locale(), .currencyCode = m_currencyCode});
    return !lines.empty() && !apply(tr("Paste Lines"), JSON::object({{"add_lines", std::move(lines)}}));
}

void LinesModel::arrange(const std::optional<QString>& refusal)
{
    Q_EMIT refused(refusal.value_or(QString()));
    reload();
}

void LinesModel::moveLine(int from, int before)
{
    arrange(m_desk.moveLine(from, before));
}

void LinesModel::nest(int row)
{
    arrange(m_desk.nestLine(row));
}

void LinesModel::unnest(int row)
{
    arrange(m_desk.unnestLine(row));
}

bool LinesModel::isSubLine(int row) const
{
    return row >= 0 && row < lineCount() && m_lines[static_cast<std::size_t>(row)].isChild;
}

/// The row after a line and its sub-lines.
int LinesModel::levelEnd(int row) const
{
    int end = row + 1;
    while (!isSubLine(row) && isSubLine(end)) {
        end += 1;
    }
    return end;
}

int LinesModel::shiftLine(int row, int by)
{
    if (row < 0 || row >= lineCount()) {
        return row;
    }
    int other = by > 0 ? levelEnd(row) : row - 1;
    while (by < 0 && !isSubLine(row) && isSubLine(other)) {
        other -= 1;
    }
    if (other < 0 || other >= lineCount() || isSubLine(other) != isSubLine(row)) {
        return row; // it is the first or the last of its level
    }
    const int size = levelEnd(other) - other;
    moveLine(row, by > 0 ? other + 1 : other);
    return by > 0 ? row + size : other;
}

} // namespace Quillary
