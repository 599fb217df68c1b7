#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"

#include <QAbstractTableModel>

#include <vector>

namespace Quillary {

/// The fees of a draft as a table to type in, with an empty row that becomes a fee.
class FeesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { description, charge, tax };
    static constexpr int columns = tax + 1;

    explicit FeesModel(DraftDesk& desk, QObject* parent = nullptr);

    void reload();
    void removeFee(int row);
    [[nodiscard]] int feeCount() const { return int(m_fees.size()); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

Q_SIGNALS:
    /// Why a cell kept its value; empty when all is well.
    void refused(const QString& sentence);

private:
    struct Entry
    {
        QString title;
        std::int64_t amountMinorUnits = 0;
        std::int32_t taxBasisPoints = 0;
    };

    [[nodiscard]] QString text(const Entry& fee, int column, int role) const;
    bool apply(const QString& name, const JSON& arguments);

    DraftDesk& m_desk;
    std::vector<Entry> m_fees;
    std::string m_currencyCode;
};

} // namespace Quillary
