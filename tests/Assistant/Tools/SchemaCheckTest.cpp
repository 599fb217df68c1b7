#include "QuillaryCore/Assistant/Tools/SchemaCheck.h"

#include "QuillaryCore/Assistant/Tools/AssistantTool.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace Quillary {
namespace {

struct Case
{
    std::string_view tool;
    std::string_view arguments;
    std::string_view misfit; ///< how the sentence begins; empty where everything fits
};

TEST(SchemaCheckTest, namesTheFirstArgumentThatDoesNotFit)
{
    const Case cases[] = {
        {"create_document", R"({"kind":"invoice","add_lines":[{"title":"A","quantity":2.5}]})", ""},
        {"create_document", R"({"kind":"invoice","discount_percent":"5.5"})", ""}, // a number sent as text
        {"find_clients", R"({"query":4711})", ""},                                 // a text sent as number
        {"find_clients", R"({"query":null})", ""},                                 // null is not given
        {"find_clients", "null", ""},
        {"create_document", "{}", "“kind” is missing: What to make."},
        {"create_document", R"({"kind":null})", "“kind” is missing"},
        {"create_document", R"({"kind":"recurring"})", "“kind” must be one of: invoice, quote."},
        {"create_document",
         R"({"kind":"invoice","colour":"red"})",
         "“colour” isn't known here. The arguments are: kind"},
        {"create_document",
         R"({"kind":"invoice","discount_percent":"5,5"})",
         "“discount_percent” must be a plain number"},
        {"create_document",
         R"({"kind":"invoice","discount_percent":"NaN"})",
         "“discount_percent” must be a plain number"},
        {"create_document",
         R"({"kind":"invoice","discount_percent":true})",
         "“discount_percent” must be a plain number"},
        {"create_document", R"({"kind":"invoice","tax_exempt":"yes"})", "“tax_exempt” must be true or false."},
        {"create_document", R"({"kind":"invoice","title":["A"]})", "“title” must be a text."},
        {"create_document", R"({"kind":"invoice","add_lines":{}})", "“add_lines” must be a list."},
        {"create_document", R"({"kind":"invoice","add_lines":["A"]})", "“add_lines 1” must be an object"},
        {"create_document",
         R"({"kind":"invoice","add_lines":[{},{"price":9}]})",
         "“add_lines 2: price” isn't known here. The arguments are: title, details"},
        {"update_document", R"({"document":"1","change_lines":[{"title":"A"}]})", "“change_lines 1: line” is missing"},
        {"update_document", R"({"document":"1","remove_lines":["a"]})", "“remove_lines 1” must be a number."},
        {"get_business_profile", R"({"x":1})", "“x” isn't known here; this takes no arguments."},
        {"find_clients", "[]", "The arguments must be an object"},
    };
    for (const Case& example : cases) {
        const auto arguments = JSON::parse(example.arguments);
        ASSERT_TRUE(arguments) << example.arguments;
        const std::string sentence =
            SchemaCheck::misfit(ToolCatalogue::find(example.tool)->input, *arguments).value_or("");
        EXPECT_EQ(sentence.substr(0, example.misfit.size()), example.misfit) << example.arguments;
        EXPECT_EQ(sentence.empty(), example.misfit.empty()) << example.arguments << ": " << sentence;
    }
}

} // namespace
} // namespace Quillary
