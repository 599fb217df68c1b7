#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace Quillary {

class JSON; // Qt's own compiler stumbles over the concepts that its header includes
struct Document;

/// Changes one draft for its editor: every change is a step of its own, checked by the operation that an assistant's call
/// ends in.
class DraftDesk
{
public:
    explicit DraftDesk(LibraryAccess& library)
        : m_library(library)
    {
    }

    void setDocument(std::int64_t key) { m_document = key; }
    [[nodiscard]] std::int64_t key() const { return m_document; }
    [[nodiscard]] LibraryAccess& library() const { return m_library; }

    /// Null: there is none, or the library is away.
    [[nodiscard]] const Document* document() const;

    /// Arguments of `update_document`, beside the document itself. No value: done; else the sentence that says why not.
    [[nodiscard]] std::optional<QString> change(const QString& name, const JSON& arguments) const;
    [[nodiscard]] std::optional<QString> change(const QString& name, std::string_view field, JSON value) const;

    /// Moves a top-level line, with its sub-lines, before another one. Counted from 0 in print order.
    [[nodiscard]] std::optional<QString> moveLine(int from, int before) const;

    /// A top-level line becomes a sub-line of the one above it; a sub-line becomes a top-level line again.
    [[nodiscard]] std::optional<QString> nestLine(int line) const;
    [[nodiscard]] std::optional<QString> unnestLine(int line) const;

    /// Shows the draft as the arguments would make it, and changes nothing. False: they would be refused.
    bool preview(const JSON& arguments, const std::function<void(const Document&)>& look) const;

private:
    using LineChange = void (*)(Context& context, const Document& draft, std::size_t line);
    [[nodiscard]] std::optional<QString> changeLine(const QString& name, int line, LineChange work) const;

    LibraryAccess& m_library;
    std::int64_t m_document = 0;
};

} // namespace Quillary
