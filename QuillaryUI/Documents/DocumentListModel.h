#pragma once

#include "QuillaryCore/Documents/DocumentRows.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QAbstractTableModel>
#include <QTimer>

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace Quillary {

class BesideReader;

/// The documents of one kind for a table: narrowed, sorted, and kept up to date. The first screenful is there when the
/// list opens, the rest a moment later: it is read beside the window.
class DocumentListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Role {
        keyRole = Qt::UserRole, ///< the document's key
        statusRole,             ///< `DisplayStatus` as int
        sortRole,               ///< the value below the text
    };

    DocumentListModel(LibraryAccess& library, DocumentKind kind, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

    void setFilter(DocumentRows::Filter filter);
    [[nodiscard]] const DocumentRows::Filter& filter() const { return m_filter; }

    [[nodiscard]] DocumentRows::Column sortColumn() const { return m_sortColumn; }
    [[nodiscard]] DocumentRows::Order order() const { return m_order; }

    [[nodiscard]] DocumentKind kind() const { return m_kind; }
    [[nodiscard]] DocumentRows::Column column(int place) const { return m_columns[static_cast<std::size_t>(place)]; }
    /// Where a column stands. No value: lists of this kind don't have it.
    [[nodiscard]] std::optional<int> placeOf(DocumentRows::Column column) const;
    /// Until they are whole no figure may be shown of them, nor may anything be said to be missing.
    [[nodiscard]] const DocumentRows& rows() const { return m_rows; }
    [[nodiscard]] DocumentRows::Key key(int row) const;
    [[nodiscard]] std::optional<int> rowOf(DocumentRows::Key key) const;
    /// Of all that are shown.
    [[nodiscard]] DocumentRows::Sum sum() const;
    [[nodiscard]] DocumentRows::Sum sum(std::span<const int> rows) const;
    [[nodiscard]] DocumentRows::Summary summary(std::span<const int> rows) const;

    /// The first rows have been drawn, so the others may be read. They come without this word, too, but late.
    void didShow();

    /// The day that statuses are derived for is another one.
    void refreshDay();

Q_SIGNALS:
    /// After every change of the rows: the library's, the filter's or the order's.
    void arranged();

private:
    /// The rows that somebody keeps an eye on, by what outlives a change of the rows.
    struct Chosen
    {
        QModelIndexList indexes;
        std::vector<DocumentRows::Key> keys;
    };

    void reload();
    void loadRest();
    void loadRestHere();
    void show(DocumentRows whole);
    void take(const ChangeSet& changes);
    void arrange(const Chosen& chosen);
    [[nodiscard]] Chosen chosen() const;
    [[nodiscard]] std::vector<std::uint32_t> placesOf(std::span<const int> rows) const;
    [[nodiscard]] QString text(const DocumentRows::Row& row, int column) const;
    [[nodiscard]] QVariant value(const DocumentRows::Row& row, int column) const;

    LibraryAccess& m_library;
    DocumentKind m_kind;
    std::vector<DocumentRows::Column> m_columns;
    DocumentRows m_rows;
    DocumentRows::Filter m_filter;
    DocumentRows::Column m_sortColumn = DocumentRows::Column::issueDate;
    DocumentRows::Order m_order = DocumentRows::Order::descending;
    std::vector<std::uint32_t> m_places; ///< the rows shown
    QTimer m_rest;
    BesideReader* m_reader;
    bool m_wasShown = false;
    std::vector<ChangeSet> m_missed; ///< what came while the rest was read, which may lack it
};

} // namespace Quillary
