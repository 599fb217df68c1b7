#pragma once

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Tabular/CSVRows.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace Quillary {

/// A CSV file that a person picked: a client list that some spreadsheet program saved.
///
/// A value, and the one reader of CSV in the program. Nothing is asked: encoding and delimiter show in the bytes, or in a
/// first line "sep=;" as spreadsheet programs write it.
class CSV
{
public:
    /// How the bytes of a file were read.
    enum class Encoding : std::uint8_t {
        utf8,
        utf16, ///< either byte order, with its mark
        windowsLatin1,
        macRoman,
    };

    /// Why a file has no rows to give.
    class Failure : public UserError
    {
    public:
        enum class Reason {
            empty,      ///< nothing but blank lines and delimiters
            unreadable, ///< not the text that its mark promises, or no text at all; or longer than 4 GiB
        };

        explicit Failure(Reason reason);

        [[nodiscard]] Reason reason() const { return m_reason; }

    private:
        Reason m_reason;
    };

    /// What may stand between cells. Of two that fit a file equally well, the earlier one is taken.
    static constexpr std::array delimiters = {',', ';', '\t', '|'};

    /// Reads the bytes of a file. Throws: `Failure`.
    explicit CSV(std::string data);

    /// Reads a text in UTF-8; `encoding` is what it was before. Throws: `Failure`.
    CSV(std::string text, Encoding encoding);

    [[nodiscard]] const CSVRows& rows() const { return m_rows; }
    [[nodiscard]] char delimiter() const { return m_delimiter; }
    [[nodiscard]] Encoding encoding() const { return m_encoding; }

    /// The delimiter that stands on the most of the first lines, on them most often in the same number. Looks at 20 lines
    /// at most, however long the text is.
    [[nodiscard]] static char detectDelimiter(std::string_view text);

    /// The rows of a text whose delimiter is known. Never fails; see `parseCSV`.
    [[nodiscard]] static CSVRows parse(std::string text, char delimiter);

private:
    CSVRows m_rows;
    char m_delimiter = delimiters.front();
    Encoding m_encoding = Encoding::utf8;
};

/// "UTF-8", "UTF-16", "Windows Latin 1", "Mac Roman": what the screen shows.
[[nodiscard]] std::string_view rawValue(CSV::Encoding encoding);

} // namespace Quillary
