// Whatever a user types as a pattern either is refused with a sentence or makes well-formed, different numbers.

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Numbering/NumberFormat.h"

#include <fuzzer/FuzzedDataProvider.h>
#include <string>

namespace Quillary {

namespace {

/// The shortest pattern with the given tokens.
std::string written(const NumberFormat& format)
{
    std::string pattern;
    for (const NumberFormat::Token& token : format.tokens()) {
        if (const auto* literal = std::get_if<NumberFormat::Literal>(&token)) {
            pattern += literal->text;
        } else if (const auto* counter = std::get_if<NumberFormat::Counter>(&token)) {
            pattern += "{" + std::string(static_cast<std::size_t>(counter->digits), '#');
            if (counter->reset != NumberFormat::Reset::never) {
                pattern += std::string{',', std::to_underlying(counter->reset)};
            }
            pattern += "}";
        } else {
            constexpr std::string_view names[] = {"yyyy", "yy", "mm", "dd", "q", "client"};
            pattern += "{" + std::string(names[std::to_underlying(std::get<NumberFormat::Placeholder>(token))]) + "}";
        }
    }
    return pattern;
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer calls it by this name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    const NumberedKind kind = input.PickValueInArray(allNumberedKinds);
    const auto counter = input.ConsumeIntegralInRange<std::int64_t>(0, INT64_MAX - 1);
    const Instant date{std::chrono::milliseconds(
        input.ConsumeIntegralInRange<std::int64_t>(-100'000'000'000'000, 300'000'000'000'000))};
    const std::string pattern = input.ConsumeRemainingBytesAsString();

    static const Calendar calendar("Europe/Berlin");
    if (const auto error = NumberFormat::validate(pattern, kind)) {
        precondition(!error->message().empty() && isValidUTF8(error->message()), "a refusal has its sentence");
        return 0;
    }
    const NumberFormat format = NumberFormat::parse(pattern, kind);
    precondition(format.pattern() == pattern, "a pattern is kept as it was typed");
    precondition(graphemeCount(pattern) <= NumberFormat::maximumCharacters, "a pattern is short");
    precondition(allowsClient(kind) || !format.usesClient(), "client numbers don't depend on clients");
    precondition(NumberFormat::parse(written(format), kind).tokens() == format.tokens(), "tokens survive writing");

    const std::string number = format.render(counter, date, "C-1", calendar);
    precondition(isValidUTF8(number), "a number is well-formed text");
    precondition(number.find(std::to_string(counter)) != std::string::npos, "a number shows its counter whole");
    precondition(number != format.render(counter + 1, date, "C-1", calendar), "another counter, another number");

    const std::string key = format.sequenceKey(kind, date, UUID(UUID::Bytes{}), calendar);
    precondition(key.starts_with(std::string(id(kind)) + "|") && isValidUTF8(key), "a key begins with its kind");
    return 0;
}

} // namespace Quillary
