#pragma once

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientKind.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Tabular/CSVRows.h"
#include "QuillaryCore/Tabular/ClientField.h"
#include "QuillaryCore/Tabular/ImportColumns.h"
#include "QuillaryCore/Tabular/ImportWarning.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Quillary {

/// What one row of a client list says.
struct ReadClient
{
    Client client;             ///< not stored anywhere; its number is empty where the row has none
    std::string contactPerson; ///< at an organisation; empty when none is named
    std::vector<ImportWarning> warnings;
    bool isEmpty = true; ///< nothing in the row names a client
};

/// Reads rows of a client list into client values. What columns say several times is read once.
class ClientReader
{
public:
    explicit ClientReader(ImportColumns columns);

    [[nodiscard]] const ImportColumns& columns() const { return m_columns; }

    [[nodiscard]] ReadClient read(const CSVRow& row);

private:
    template <class Value>
    using Cache = std::unordered_map<std::string, std::optional<Value>>;
    class RowReader;

    ImportColumns m_columns;
    Cache<std::string> m_countries;
    Cache<std::string> m_currencies;
    Cache<DocumentLanguage> m_languages;
    Cache<ClientKind> m_kinds;
};

} // namespace Quillary
