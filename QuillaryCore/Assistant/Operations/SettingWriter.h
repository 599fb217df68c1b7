#pragma once

#include "QuillaryCore/Assistant/Tools/Arguments.h"
#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/NumberedKind.h"
#include "QuillaryCore/Store/Field.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

struct Business;

/// Checks and stores one setting of the business, which stands under its name in the arguments. Throws: `AssistantError`
/// that names the setting.
class SettingWriter
{
public:
    SettingWriter(const AssistantEnvironment& environment,
                  Business& business,
                  const Arguments& arguments,
                  std::string_view name,
                  std::string_view typed)
        : m_environment(environment)
        , m_business(business)
        , m_arguments(arguments)
        , m_name(name)
        , m_typed(typed)
    {
    }

    /// What was typed as the arguments' readers take it: "yes" and "no" are true and false where a flag is set.
    [[nodiscard]] static JSON typedValue(std::string_view name, std::string_view typed);

    /// The word of a stored choice ("sales_tax"). No value: the setting is a number.
    [[nodiscard]] static std::optional<std::string_view> choiceWord(std::string_view name, std::int16_t raw);

    /// All words that a setting is chosen from; none: it is typed.
    [[nodiscard]] static std::vector<std::string> choices(std::string_view name);

    /// Whether its text may run over several lines.
    [[nodiscard]] static bool hasParagraphs(std::string_view name);

    /// Whose numbers a pattern makes. No value: the setting is no pattern of numbers.
    [[nodiscard]] static std::optional<NumberedKind> numberedKind(std::string_view name);

    void write(std::string& value) const;
    void write(bool& value) const;
    void write(std::int16_t& value) const;
    void write(std::int32_t& value) const;
    void write(std::int64_t& value) const;
    void write(Bytes& value) const;

private:
    [[nodiscard]] std::string line() const;
    [[nodiscard]] std::string oneOf(std::span<const std::string_view> words) const;
    [[nodiscard]] std::optional<std::string> choice() const;
    [[nodiscard]] std::optional<std::string> party() const;
    [[nodiscard]] std::string checked() const;
    [[nodiscard]] std::string color() const;
    [[nodiscard]] std::string upi() const;
    void writePattern(NumberedKind kind) const;
    void writeFileName() const;
    void writeHiddenUnits() const;
    void writeCurrency() const;

    const AssistantEnvironment& m_environment;
    Business& m_business;
    const Arguments& m_arguments;
    std::string_view m_name;
    std::string_view m_typed; ///< as it came: patterns are checked character by character
};

} // namespace Quillary
