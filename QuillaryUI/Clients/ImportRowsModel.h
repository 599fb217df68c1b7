#pragma once

#include "QuillaryCore/Tabular/ClientImport.h"

#include <QAbstractTableModel>

#include <optional>

namespace Quillary {

/// What would become of each row of a client list.
class ImportRowsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { row, status, name, city, remarks, columns };

    using QAbstractTableModel::QAbstractTableModel;

    void show(ClientImport import);
    [[nodiscard]] std::size_t count(ImportStatus which) const { return m_import ? m_import->count(which) : 0; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::optional<ClientImport> m_import;
};

} // namespace Quillary
