#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"

#include <QAbstractTableModel>

#include <optional>
#include <string>
#include <vector>

namespace Quillary {

/// What is charged on a draft as a whole, or comes off it, as a table to type in: a row each, and an empty row that
/// becomes one as soon as something stands in it.
class ChargesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// What it is called, how much it is, and its tax rate where it has one.
    enum Column { description, charge, tax };

    /// Reads it anew.
    void reload();

    [[nodiscard]] int chargeCount() const { return int(m_charges.size()); }
    void removeCharge(int row);
    /// Moves one up (-1) or down (1). Returns where it stands then.
    int shiftCharge(int row, int by);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

Q_SIGNALS:
    /// Why a cell kept its value; empty when all is well.
    void refused(const QString& sentence);

protected:
    /// How the operation names them, and the user's steps.
    struct Names
    {
        const char* number;
        const char* add;
        const char* change;
        const char* remove;
        QString invitation; ///< in the empty row
        QString addStep;
        QString changeStep;
        QString removeStep;
    };

    struct Charge
    {
        QString title;
        QString shown; ///< how much
        QString typed; ///< the same to be edited
        QString rate;
    };

    ChargesModel(DraftDesk& desk, int columns, Names names, QObject* parent);

    [[nodiscard]] virtual std::vector<Charge> read(const Document& draft) const = 0;
    /// As the operation takes it. No value: it makes no sense.
    [[nodiscard]] virtual std::optional<JSON> argument(int column, const QString& typed) const = 0;
    /// The sentence for what makes no sense.
    [[nodiscard]] virtual QString hint(const QString& typed) const = 0;

    [[nodiscard]] const std::string& currencyCode() const { return m_currencyCode; }
    [[nodiscard]] const LibraryAccess& library() const { return m_desk.library(); }

private:
    bool apply(const QString& step, const char* what, JSON value);

    DraftDesk& m_desk;
    int m_columns;
    Names m_names;
    std::vector<Charge> m_charges;
    std::string m_currencyCode;
};

} // namespace Quillary
