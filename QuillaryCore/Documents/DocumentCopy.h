#pragma once

#include "QuillaryCore/Documents/Desk.h"
#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentLanguage.h"

#include <cstdint>
#include <optional>
#include <string>

namespace Quillary {

struct Discount;
struct Document;
struct Fee;
struct LineItem;
class UnitLibrary;

/// How long a quote stands when nobody says otherwise. Unit: days.
inline constexpr int quoteValidityDays = 30;

/// What a draft made from another document is to be.
struct CopyRequest
{
    enum class Texts {
        kept,  ///< the source's
        usual, ///< what the business writes on that kind of document
    };
    enum class Delivery { kept, dropped };
    enum class Parts {
        fresh, ///< lines, discounts and fees get identifiers of their own
        named, ///< theirs follow from the draft's and the source's: whoever makes this draft makes the same
    };

    DocumentKind kind = DocumentKind::invoice;
    Instant issueDate = {};                            ///< `Calendar::storedDay`
    std::optional<UUID> uuid = {};                     ///< no value: a fresh one
    std::optional<UUID> sourceDocumentID = {};         ///< the document that this one continues, credits or repeats
    std::optional<DocumentLanguage> language = {};     ///< no value: the source's
    std::optional<std::int16_t> paymentTermsDays = {}; ///< no value: the source's
    Texts texts = Texts::kept;
    Delivery delivery = Delivery::dropped;
    Parts parts = Parts::fresh; ///< for `make`
    std::string madeBy = {};    ///< an assistant's name, or empty for the user
};

/// Making a draft from another document; docs/document-copies.md says what it takes over. Works in the caller's scope,
/// which takes back what a failure began.
namespace DocumentCopy {

/// The whole: fields, lines with their sub-lines, discounts and fees, with a number and figures of its own.
/// Throws: `NumberingError`; `DocumentError` when the source goes beyond `Limits`. The draft is for changing until the
/// next save, as from `Context::insert`.
Document& make(const Desk& desk, const Document& source, const CopyRequest& request);

// The parts of it, for drafts that take over only some. `finish` comes last.

/// The draft with its number and dates, without lines.
Document& begin(const Desk& desk, const Document& source, const CopyRequest& request);

/// A copy of one line in another document, at top level and with the unit's words in that document's language. Tracked
/// time stays with the line that billed it.
LineItem& addLine(const Desk& desk, const UnitLibrary& units, const LineItem& source, const Document& target);
Discount& addDiscount(const Desk& desk, const Discount& source, const Document& target);
Fee& addFee(const Desk& desk, const Fee& source, const Document& target);

/// All lines of a document, each sub-line under the copy of its line; the first of them takes the place `firstIndex`.
void addLines(const Desk& desk, const Document& source, const Document& target, std::int32_t firstIndex = 0);

/// Checks the draft against `Limits` and works out its figures. Throws: `DocumentError`.
void finish(const Desk& desk, const Document& draft);

} // namespace DocumentCopy

} // namespace Quillary
