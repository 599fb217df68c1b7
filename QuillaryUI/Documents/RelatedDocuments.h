#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QLabel>

#include <cstdint>

namespace Quillary {

struct Document;

/// What a document was made from, and what was made from it, each a click away. Hidden where there is nothing of the kind.
class RelatedDocuments : public QLabel
{
    Q_OBJECT

public:
    explicit RelatedDocuments(const LibraryAccess& library, QWidget* parent = nullptr);

    void fill(const Document& document);

Q_SIGNALS:
    void wantedDocument(std::int64_t key);

private:
    [[nodiscard]] QString link(const Document& document) const;

    const LibraryAccess& m_library;
};

} // namespace Quillary
