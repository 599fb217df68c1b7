#pragma once

#include "QuillaryCore/Model/DocumentLanguage.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;
struct Business;
struct CustomUnit;
struct LineItem;

/// A unit that the program brings along.
struct BuiltInUnit
{
    /// As the words stand after a number ("2 Stück", "10 uur").
    struct Words
    {
        std::string_view singular;
        std::string_view plural;
    };

    std::string_view code;      ///< the stored identifier, such as "hour"
    std::string_view rec20;     ///< UN/ECE Recommendation 20 (revision 17); "C62" (one) where it has no nearer code
    std::array<Words, 6> words; ///< by `DocumentLanguage`; an empty word falls back to the English one

    [[nodiscard]] std::string_view singular(DocumentLanguage language) const;
    [[nodiscard]] std::string_view plural(DocumentLanguage language) const;
};

namespace Units {

/// The fixed list, in the order of the pickers.
[[nodiscard]] std::span<const BuiltInUnit> builtIn();

/// Null: no built-in unit has this code.
[[nodiscard]] const BuiltInUnit* builtIn(std::string_view code);

/// The code of the built-in unit that a person or an assistant calls by this name: singular or plural in any document
/// language, or a usual symbol ("hours", "Std.", "m²"), without regard to case and accents. English is tried first.
[[nodiscard]] std::optional<std::string> named(std::string_view text);

/// Whether a quantity takes the singular. One does, on either side of zero; in French everything below two.
[[nodiscard]] bool isSingular(std::int64_t quantityThousandths, DocumentLanguage language);

/// "custom:" and the unit's `uuid`: what a line stores for a unit of the user's own.
[[nodiscard]] std::string unitID(const CustomUnit& unit);

/// The codes of `Business::hiddenUnits`, which separates them by commas.
[[nodiscard]] std::vector<std::string> hiddenUnits(const Business& business);
void setHiddenUnits(Business& business, std::span<const std::string> codes);

} // namespace Units

/// The units available to a business: the built-in ones and the user's own, as they were when this was made.
class UnitLibrary
{
public:
    UnitLibrary(Context& context, const Business& business);

    struct Words
    {
        std::string singular;
        std::string plural;
    };

    /// The words of a unit identifier. No value: no unit has it.
    [[nodiscard]] std::optional<Words> words(std::string_view unitID, DocumentLanguage language) const;

    /// The identifiers offered in pickers: the built-in units that aren't hidden, then the user's own in their order.
    [[nodiscard]] const std::vector<std::string>& offered() const { return m_offered; }

    /// The identifier of the unit that goes by this name; the user's own units come first. No value: none does.
    [[nodiscard]] std::optional<std::string> named(std::string_view text) const;

    /// The Recommendation 20 code of a unit identifier; "C62" (one) for an unknown unit.
    [[nodiscard]] std::string rec20(std::string_view unitID) const;

private:
    struct OwnUnit
    {
        Words words;
        std::string rec20;
    };

    std::map<std::string, OwnUnit, std::less<>> m_own;
    std::vector<std::string> m_offered;
};

/// The word to print after the line's quantity: from the library, else the words kept with the line. Empty for a line
/// without a unit.
[[nodiscard]] std::string unitLabel(const LineItem& line, DocumentLanguage language, const UnitLibrary& library);

/// Chooses a line's unit and keeps its words in the document's language with the line, so that they outlive the unit.
/// An empty identifier removes the unit.
void setUnit(LineItem& line, std::string_view unitID, const UnitLibrary& library, DocumentLanguage language);

} // namespace Quillary
