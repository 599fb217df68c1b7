#pragma once

#include "QuillaryCore/Output/TemplateSettings.h"
#include "QuillaryCore/Store/Field.h"

#include <string>
#include <vector>

namespace Quillary {

struct Business;

/// A table on paper, in the look of the business's documents: every value formatted and in the reader's language,
/// nothing escaped yet. An empty text or list is left out.
struct PrintedTable
{
    struct Fact
    {
        std::string label;
        std::string value;
    };

    struct Column
    {
        std::string title;
        bool isNumber = false; ///< set to the right, never broken
    };

    /// With its design, logo and name.
    [[nodiscard]] static PrintedTable of(const Business& business);

    /// A table of many columns lies across the sheet, in smaller letters.
    [[nodiscard]] bool isWide() const;
    [[nodiscard]] PageGeometry geometry() const;

    TemplateSettings settings;
    std::string languageCode; ///< BCP 47
    Bytes logo;               ///< PNG
    std::string sender;
    std::vector<std::string> senderDetails;
    std::string heading;
    std::vector<Fact> facts; ///< what the figures are of
    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows; ///< a value for each column
    bool hasTotal = false;                      ///< as the last row
    std::string note;
};

/// The page of a table.
namespace TableHTML {

/// One self-contained page: it runs no script and loads nothing. The headings of the columns stand on every sheet, rows
/// are not torn apart, and the total keeps to the row above it. Every text is escaped (`HTMLText`).
[[nodiscard]] std::string render(const PrintedTable& table);

} // namespace TableHTML

} // namespace Quillary
