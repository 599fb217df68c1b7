// Whatever stands in a pattern or in a document, what comes out is one safe file name.

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Numbering/FileNameFormat.h"

#include <fuzzer/FuzzedDataProvider.h>
#include <string>

namespace Quillary {

namespace {

void requireSafe(const std::string& name)
{
    precondition(!name.empty(), "a file has a name");
    precondition(isValidUTF8(name) && !hasControlCharacter(name), "a name is well-formed text in one line");
    precondition(graphemeCount(name) <= FileNameFormat::maximumCharacters, "a name is short");
    precondition(name.find_first_of("/\\:*?\"<>|") == std::string::npos, "a name is no path");
    precondition(trimmed(name).size() == name.size(), "a name has no blanks around it");
    precondition(std::string_view("-_.").find(name.front()) == std::string_view::npos, "a name isn't hidden");
    precondition(std::string_view("-_.").find(name.back()) == std::string_view::npos, "a name ends in a character");
    precondition(name.find("  ") == std::string::npos, "blanks stand alone");
    precondition(FileNameFormat::sanitize(name) == name, "a clean name stays as it is");
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer calls it by this name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    FileNameFormat::Values values;
    values.number = input.ConsumeRandomLengthString(300);
    values.client = input.ConsumeRandomLengthString(1000);
    values.title = input.ConsumeRandomLengthString(300);
    values.date = Instant(std::chrono::milliseconds(
        input.ConsumeIntegralInRange<std::int64_t>(-100'000'000'000'000, 300'000'000'000'000)));
    const std::string pattern = input.ConsumeRemainingBytesAsString();

    static const Calendar calendar("Europe/Berlin");
    requireSafe(FileNameFormat::sanitize(pattern));
    if (const auto error = FileNameFormat::validate(pattern)) {
        precondition(!error->message().empty() && isValidUTF8(error->message()), "a refusal has its sentence");
    } else {
        requireSafe(FileNameFormat::parse(pattern).render(values, calendar));
    }
    Business business;
    business.fileNameFormat = pattern;
    requireSafe(FileNameFormat::stored(business).render(values, calendar));
    return 0;
}

} // namespace Quillary
