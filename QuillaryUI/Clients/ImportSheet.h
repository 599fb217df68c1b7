#pragma once

#include "QuillaryCore/Tabular/CSV.h"
#include "QuillaryCore/Tabular/ImportColumns.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Sheet.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class QComboBox;
class QLabel;
class QScrollArea;

namespace Quillary {

class ImportRowsModel;

/// A client list that another program saved: which column holds what, what would become of each row, and the import of
/// the new ones, whole or not at all.
class ImportSheet : public Sheet
{
    Q_OBJECT

public:
    /// `fileName` is for the title only.
    ImportSheet(LibraryAccess& library, CSV csv, const QString& fileName, QWidget* host);

    void begin();

Q_SIGNALS:
    void imported(int count);

private:
    QScrollArea* buildColumns();
    void assign(std::size_t column, const QString& field);
    void showColumns();
    void preview();
    [[nodiscard]] std::optional<QString> import();

    LibraryAccess& m_library;
    CSV m_csv;
    const ImportColumns m_recognised;
    std::vector<std::pair<std::size_t, std::string>> m_assigned; ///< column and field, in the order they were chosen
    ImportColumns m_columns;
    ImportRowsModel* m_rows;
    std::vector<QComboBox*> m_fields; ///< by column
    QLabel* m_summary;
};

} // namespace Quillary
