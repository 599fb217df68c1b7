#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UTF8.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>

namespace Quillary {

namespace {

/// What a letter without an accent to strip is typed as on a keyboard that lacks it; empty for every other letter.
/// Only lower case is here: case is folded first, and that also turns "ß" into "ss".
std::string_view baseLetters(UChar32 scalar)
{
    switch (scalar) {
    case U'æ':
        return "ae";
    case U'œ':
        return "oe";
    case U'ø':
        return "o";
    case U'đ':
    case U'ð':
        return "d";
    case U'ħ':
        return "h";
    case U'ı':
        return "i";
    case U'ł':
        return "l";
    case U'ŋ':
        return "n";
    case U'ŧ':
        return "t";
    case U'þ':
        return "th";
    case U'‘':
    case U'’':
    case U'ʼ':
        return "'";
    case U'‐':
    case U'‑':
    case U'–':
    case U'—':
    case U'−':
        return "-";
    default:
        return {};
    }
}

/// An accent on a letter, as opposed to a vowel of a script that writes vowels as marks (Thai, Devanagari), without
/// which other words would look the same. The sound marks of Japanese stay for the same reason.
bool isAccent(UChar32 scalar)
{
    if (u_charType(scalar) != U_NON_SPACING_MARK || scalar == 0x3099 || scalar == 0x309A) {
        return false;
    }
    UErrorCode status = U_ZERO_ERROR;
    switch (uscript_getScript(scalar, &status)) {
    case USCRIPT_INHERITED:
    case USCRIPT_LATIN:
    case USCRIPT_GREEK:
    case USCRIPT_CYRILLIC:
    case USCRIPT_HEBREW:
    case USCRIPT_ARABIC:
        return true;
    default:
        return false;
    }
}

/// Accents, and characters that leave no ink (soft hyphen, joiners, marks of direction).
bool isDropped(UChar32 scalar)
{
    return isAccent(scalar) || u_charType(scalar) == U_FORMAT_CHAR;
}

icu::UnicodeString decomposed(const icu::UnicodeString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* normalizer = icu::Normalizer2::getNFKDInstance(status);
    precondition(U_SUCCESS(status) != 0, "ICU's data is installed");
    icu::UnicodeString result = normalizer->normalize(text, status);
    return U_SUCCESS(status) != 0 ? result : text;
}

std::string foldedByUnicode(std::string_view text)
{
    const icu::UnicodeString plain = decomposed(icu::UnicodeString::fromUTF8(text));
    icu::UnicodeString letters;
    for (std::int32_t index = 0; index < plain.length(); index = plain.moveIndex32(index, 1)) {
        const UChar32 scalar = plain.char32At(index);
        if (!isDropped(scalar)) {
            letters.append(scalar);
        }
    }
    letters.foldCase();
    std::string result;
    for (std::int32_t index = 0; index < letters.length(); index = letters.moveIndex32(index, 1)) {
        const UChar32 scalar = letters.char32At(index);
        if (const auto base = baseLetters(scalar); !base.empty()) {
            result += base;
        } else {
            icu::UnicodeString(scalar).toUTF8String(result);
        }
    }
    return result;
}

// The letters of the European alphabets. Each of them folds the same whatever stands beside it, so their folded forms
// can be put side by side.
constexpr char32_t endOfLatin = 0x250;

const std::array<std::string, endOfLatin>& foldedLatin()
{
    static const auto made = [] {
        std::array<std::string, endOfLatin> result;
        for (char32_t scalar = 0; scalar < endOfLatin; ++scalar) {
            std::string text;
            icu::UnicodeString(static_cast<UChar32>(scalar)).toUTF8String(text);
            result[scalar] = foldedByUnicode(text);
        }
        return result;
    }();
    return made;
}

bool isASCII(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

char lowerCased(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

/// No value: a character is none of these letters.
std::optional<std::string> foldedAsLatin(std::string_view text)
{
    const auto& letters = foldedLatin();
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        if (const char byte = text.front(); isASCII(byte)) {
            result += lowerCased(byte);
            text.remove_prefix(1);
            continue;
        }
        const auto character = decodeFirst(text);
        const char32_t scalar = character.scalar.value_or(endOfLatin);
        if (scalar >= endOfLatin) {
            return std::nullopt;
        }
        result += letters[scalar];
        text.remove_prefix(character.length);
    }
    return result;
}

} // namespace

std::string folded(std::string_view text)
{
    if (std::ranges::all_of(text, isASCII)) {
        std::string result(text);
        std::ranges::transform(result, result.begin(), lowerCased);
        return result;
    }
    auto latin = foldedAsLatin(text);
    return latin ? std::move(*latin) : foldedByUnicode(text);
}

} // namespace Quillary
