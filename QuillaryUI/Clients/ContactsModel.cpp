#include "QuillaryUI/Clients/ContactsModel.h"

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Model/ContactPersons.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>

namespace Quillary {

ContactsModel::ContactsModel(LibraryAccess& library, QObject* parent)
    : QAbstractTableModel(parent)
    , m_library(library)
{
    connect(&library, &LibraryAccess::opened, this, &ContactsModel::reload);
    connect(&library, &LibraryAccess::changed, this, [this](const ChangeSet& changes) {
        if (!changes.of<ContactPerson>().isEmpty()) {
            reload();
        }
    });
}

int ContactsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int ContactsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(columns);
}

QVariant ContactsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    return m_rows[static_cast<std::size_t>(index.row())].texts[index.column()];
}

QVariant ContactsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columns) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(Qt::AlignVCenter | Qt::AlignLeft);
    }
    const QString titles[columns] = {tr("Name"), tr("Role"), tr("Email"), tr("Phone")};
    return role == Qt::DisplayRole ? QVariant(titles[section]) : QVariant();
}

void ContactsModel::setClient(std::int64_t key)
{
    m_client = key;
    reload();
}

std::optional<int> ContactsModel::rowOf(std::int64_t key) const
{
    const auto found = std::ranges::find(m_rows, key, &Row::key);
    return found == m_rows.end() ? std::nullopt : std::optional(int(found - m_rows.begin()));
}

void ContactsModel::reload()
{
    if (!m_library.isOpen()) {
        return;
    }
    beginResetModel();
    m_rows.clear();
    Context& context = m_library.context();
    if (const Client* client = context.find(Ref<Client>(m_client))) {
        for (const ContactPerson* person : contactPersons(context, *client)) {
            m_rows.push_back({person->ref.key(),
                              {text(person->name), text(person->role), text(person->email), text(person->phone)}});
        }
    }
    endResetModel();
}

} // namespace Quillary
