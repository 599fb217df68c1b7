#include "QuillaryCore/Assistant/AssistantTool.h"

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

} // namespace
} // namespace Quillary
