#pragma once

#include "QuillaryCore/Store/Field.h"

#include <QSizeF>

#include <string>
#include <vector>

namespace Quillary {

/// The text of each page, as a reader would copy it; line breaks and runs of blanks become one blank.
[[nodiscard]] std::vector<std::string> pageTexts(const Bytes& pdf);

/// The size of the first sheet. Unit: points.
[[nodiscard]] QSizeF sheetSize(const Bytes& pdf);

struct PDFFont
{
    std::string name; ///< without the prefix of a subset; empty for glyphs that are drawn (Type 3)
    bool isEmbedded = false;
};

/// The fonts of all pages, those of the page labels among them, each once and sorted by name.
[[nodiscard]] std::vector<PDFFont> fonts(const Bytes& pdf);

/// A value of the document's properties ("/Title"), or of its catalogue ("/Lang"), as UTF-8.
[[nodiscard]] std::string infoText(const Bytes& pdf, const std::string& key);
[[nodiscard]] std::string catalogueText(const Bytes& pdf, const std::string& key);

/// Whether readers show the title instead of the file's name.
[[nodiscard]] bool showsTitle(const Bytes& pdf);

/// The XMP packet.
[[nodiscard]] std::string metadataPacket(const Bytes& pdf);

} // namespace Quillary
