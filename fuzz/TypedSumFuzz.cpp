// Whatever is typed into a number cell is refused or reckoned: adding nothing and multiplying by one change nothing, and
// a coarser result is the finer one, rounded.

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Money/TypedSum.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>

using namespace Quillary;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::array locales = {Locale("en_US"), Locale("de_DE"), Locale("fr_CH"), Locale("ar_EG")};
    const std::string text(reinterpret_cast<const char*>(data), size);
    constexpr int finest = 9;
    for (const Locale& locale : locales) {
        std::optional<std::int64_t> finer;
        for (int scale = finest; scale >= 0; --scale) {
            const auto result = TypedSum::scaled(text, locale, scale);
            if (result) {
                precondition(TypedSum::scaled(text + " + 0", locale, scale) == result, "nothing was added");
                precondition(TypedSum::scaled(text + " * 1", locale, scale) == result, "one changes nothing");
            }
            constexpr std::int64_t safe = std::numeric_limits<std::int64_t>::max() / 100;
            if (result && finer && std::llabs(*result) < safe) {
                precondition(std::llabs(*result * 10 - *finer) <= 5, "the coarser is the finer one, rounded");
            }
            finer = result;
        }
    }
    return 0;
}
