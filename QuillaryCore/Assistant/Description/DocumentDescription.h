#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Store/Context.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Quillary {

struct Document;
enum class DocumentKind : std::int16_t;

/// The kinds as the tools' arguments write them: "invoice", "credit_note".
[[nodiscard]] std::string_view kindWord(DocumentKind documentKind);

/// A tax rate as the tools' arguments write it: "19", "7.5".
[[nodiscard]] std::string rateFigure(std::int32_t basisPoints);

/// A document in full, as assistants and terminals read it: English, ids in brackets, dates as YYYY-MM-DD, amounts as
/// plain numbers. Lines are numbered from 1 in print order, sub-lines included.
struct DocumentDescription
{
    std::string heading; ///< "Invoice INV-2026-001 [id], draft, for Acme GmbH [id]"
    std::string text;    ///< the heading and everything below it
    JSON data;           ///< the same, as an object; amounts are numbers with their exact digits

    /// Lines that there is no room for are counted: the whole stays within `longestResult` with `reserve` bytes left
    /// for what the caller appends to text and data.
    [[nodiscard]] static DocumentDescription describe(
        Context& context, const Document& document, Instant today, const Calendar& calendar, std::size_t reserve = 0);
};

} // namespace Quillary
