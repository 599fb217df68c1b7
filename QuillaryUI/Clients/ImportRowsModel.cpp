#include "QuillaryUI/Clients/ImportRowsModel.h"

#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Formats.h"
#include "QuillaryUI/Look/Theme.h"

#include <utility>

namespace Quillary {

namespace {

QString statusWord(ImportStatus status)
{
    switch (status) {
    case ImportStatus::isNew:
        return ImportRowsModel::tr("New");
    case ImportStatus::duplicate:
        return ImportRowsModel::tr("Duplicate");
    case ImportStatus::empty:
        return ImportRowsModel::tr("Empty");
    }
    return {};
}

/// Why it is a duplicate, and what should be looked at.
QString remarksOn(const ClientImport::Row& row)
{
    QStringList sentences;
    if (row.match) {
        sentences.push_back(CoreText::sentence(sentence(*row.match)));
    }
    for (const ImportWarning& warning : row.read.warnings) {
        sentences.push_back(CoreText::sentence(warning.message));
    }
    return sentences.join(QChar(u' '));
}

} // namespace

void ImportRowsModel::show(ClientImport import)
{
    beginResetModel();
    m_import.emplace(std::move(import));
    endResetModel();
}

int ImportRowsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_import ? 0 : int(m_import->rows().size());
}

int ImportRowsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(columns);
}

QVariant ImportRowsModel::data(const QModelIndex& index, int role) const
{
    if (!m_import || !index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const ClientImport::Row& entry = m_import->rows()[static_cast<std::size_t>(index.row())];
    if (role == Qt::ForegroundRole && entry.status != ImportStatus::isNew) {
        return Theme::statusColor(DisplayStatus::draft);
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (index.column() == row ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return {};
    }
    switch (Column(index.column())) {
    case row:
        return qlonglong(entry.number);
    case status:
        return statusWord(entry.status);
    case name:
        return text(displayName(entry.read.client));
    case city:
        return text(entry.read.client.city);
    case remarks:
        return remarksOn(entry);
    case columns:
        break;
    }
    return {};
}

QVariant ImportRowsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | (section == row ? Qt::AlignRight : Qt::AlignLeft));
    }
    const QString titles[columns] = {tr("Row"), tr("Becomes"), tr("Client"), tr("City"), tr("Remarks")};
    return role == Qt::DisplayRole && section >= 0 && section < columns ? QVariant(titles[section]) : QVariant();
}

} // namespace Quillary
