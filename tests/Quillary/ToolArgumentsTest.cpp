#include "Quillary/Commands/ToolArguments.h"

#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "QuillaryCore/Foundation/UserError.h"

#include <gtest/gtest.h>

#include <string>

namespace Quillary {
namespace {

std::string arguments(const TypedValues& values, const JSON& base = {})
{
    try {
        return ToolArguments::fromTyped(ToolCatalogue::find("update_document")->input, values, base).dump();
    } catch (const UserError& error) {
        return error.message();
    }
}

TEST(ToolArgumentsTest, readsWhatIsTypedAtAShell)
{
    struct Case
    {
        TypedValues typed;
        std::string_view expected;
    };
    const Case cases[] = {
        {{{"title", {"Website, part 1"}}}, R"({"title":"Website, part 1"})"},
        {{{"discount_percent", {"5.5"}}}, R"({"discount_percent":"5.5"})"}, // stays as typed: no binary rounding
        {{{"tax_exempt", {"yes"}}}, R"({"tax_exempt":true})"},
        {{{"tax_exempt", {"maybe"}}}, "--tax_exempt must be true or false."},
        {{{"remove_lines", {"1, 3", "4"}}}, R"({"remove_lines":["1","3","4"]})"},
        {{{"add_lines", {"title=A; quantity=2", R"({"title":"B"})"}}},
         R"({"add_lines":[{"title":"A","quantity":"2"},{"title":"B"}]})"},
        {{{"add_lines", {"title=Salt;; pepper;"}}}, R"({"add_lines":[{"title":"Salt; pepper"}]})"},
        {{{"add_lines", {R"([{"title":"A"},{"title":"B"}])"}}}, R"({"add_lines":[{"title":"A"},{"title":"B"}]})"},
        {{{"add_lines", {"title=a=b"}}}, R"({"add_lines":[{"title":"a=b"}]})"},
        {{{"add_lines", {"{\"title\":"}}}, "--add_lines isn't readable as JSON."},
        {{{"add_lines", {"Design"}}},
         "--add_lines takes name=value pairs separated by semicolons, such as \"title=Design; quantity=2; "
         "unit_price=90\", or a JSON object."},
        {{{"title", {"A", "B"}}}, "--title was given more than once."},
    };
    for (const Case& example : cases) {
        EXPECT_EQ(arguments(example.typed), example.expected);
    }
    EXPECT_EQ(arguments({{"title", {"typed"}}}, JSON::object({{"title", "given"}, {"intro", "kept"}})),
              R"({"title":"typed","intro":"kept"})");
    EXPECT_EQ(arguments({}, JSON::array({})), "The arguments must be a JSON object.");
}

} // namespace
} // namespace Quillary
