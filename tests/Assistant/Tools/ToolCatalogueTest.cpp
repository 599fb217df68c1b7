#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "QuillaryCore/Foundation/Files.h"
#include "tests/Support/Fixtures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace Quillary {
namespace {

TEST(ToolCatalogueTest, listsTheToolsInTheirOrderWithTheirAccess)
{
    using enum AssistantAccess;
    const std::vector<std::pair<std::string, AssistantAccess>> expected = {
        {"get_business_profile", readOnly},
        {"find_clients", readOnly},
        {"find_catalog_items", readOnly},
        {"find_documents", readOnly},
        {"get_document", readOnly},
        {"get_unbilled_time", readOnly},
        {"get_money_overview", readOnly},
        {"create_client", drafts},
        {"update_client", drafts},
        {"create_document", drafts},
        {"update_document", drafts},
        {"preview_document", readOnly}, // although it renders a draft
        {"discard_document", drafts},
        {"export_document_pdf", drafts},
        {"email_document", drafts},
        {"mark_document_sent", everything},
        {"record_payment", everything},
        {"update_business_profile", everything},
    };
    std::vector<std::pair<std::string, AssistantAccess>> listed;
    for (const AssistantTool& tool : ToolCatalogue::tools()) {
        listed.emplace_back(tool.name, tool.access);
    }
    EXPECT_EQ(listed, expected);
}

TEST(ToolCatalogueTest, marksWhatOnlyReadsAndWhatDestroys)
{
    for (const AssistantTool& tool : ToolCatalogue::tools()) {
        const JSON listing = tool.listing();
        const JSON& hints = *listing.find("annotations");
        EXPECT_EQ(*hints.find("readOnlyHint"), JSON(tool.access == AssistantAccess::readOnly)) << tool.name;
        EXPECT_EQ(*hints.find("idempotentHint"), *hints.find("readOnlyHint")) << tool.name;
        EXPECT_EQ(*hints.find("destructiveHint"), JSON(tool.name == "discard_document")) << tool.name;
        EXPECT_EQ(*hints.find("openWorldHint"), JSON(false)) << tool.name;
    }
}

/// Assistants refuse a schema that names a required property it does not have, or uses a type of its own.
void expectSoundSchema(const JSON& schema, const std::string& where)
{
    const std::vector<std::string> types = {"string", "number", "boolean", "array", "object"};
    for (const JSON& required : *schema.find("required")->array()) {
        EXPECT_NE(schema.find("properties")->find(*required.string()), nullptr) << where << required.dump();
    }
    for (const auto& [name, property] : *schema.find("properties")->object()) {
        const std::string type = *property.find("type")->string();
        EXPECT_TRUE(std::ranges::find(types, type) != types.end()) << where << name;
        EXPECT_FALSE(property.find("description")->string()->empty()) << where << name;
        if (const JSON* items = property.find("items"); items != nullptr && items->find("properties") != nullptr) {
            expectSoundSchema(*items, where + name + ".");
        }
    }
}

TEST(ToolCatalogueTest, describesArgumentsThatExist)
{
    for (const AssistantTool& tool : ToolCatalogue::tools()) {
        expectSoundSchema(tool.input, tool.name + ".");
    }
}

TEST(ToolCatalogueTest, publishesEveryTextAsAgreed)
{
    // Assistants were tried with these very words, and prepared calls rely on the names: a change here is a decision.
    const std::optional<JSON> agreed = JSON::parse(readFile(fixture("assistant-tools.json"), 100'000));
    ASSERT_TRUE(agreed);
    const JSON::Array& listed = *agreed->find("tools")->array();
    ASSERT_EQ(listed.size(), ToolCatalogue::tools().size());
    for (std::size_t index = 0; index < listed.size(); ++index) {
        EXPECT_EQ(ToolCatalogue::tools()[index].listing().dump(), listed[index].dump());
    }
}

} // namespace
} // namespace Quillary
