#include "Quillary/Commands/AssistantSetup.h"
#include "QuillaryCore/Assistant/Access/ActivityLog.h"
#include "QuillaryCore/Assistant/Access/AssistantSettingsFile.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "tests/Quillary/RunProgram.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace Quillary {
namespace {

std::filesystem::path settingsIn(const TempFolder& folder)
{
    return folder / ".config/quillary/assistants.json";
}

JSON state(const TempFolder& folder)
{
    return JSON::parse(quillary(folder, "assistants --output json").output).value_or(nullptr);
}

TEST(AssistantsCommandTest, showsAndChangesWhatAssistantsMayDo)
{
    const TempFolder folder;
    const Answer first = quillary(folder, "--show-assistants");
    EXPECT_EQ(first.status, 0);
    EXPECT_TRUE(first.output.starts_with("AI assistants are turned off. Turn them on with: quillary assistants on\n"
                                         "Access: Make invoices and quotes (--access drafts)\n"))
        << first.output;
    EXPECT_NE(first.output.find("claude mcp add quillary -- /"), std::string::npos) << first.output;
    EXPECT_FALSE(std::filesystem::exists(settingsIn(folder))) << "looking changes nothing";
    EXPECT_EQ(quillary(folder, "assistants").output, first.output);

    AssistantSettingsFile server(settingsIn(folder)); // a running one
    server.change([](AssistantSettings& settings) {
        settings.keepWaiting("LM Studio's $(x)", Instant(std::chrono::milliseconds(1'772'000'000'000)));
    });
    const Answer waiting = quillary(folder, "assistants on --access everything", "TZ=Asia/Kolkata");
    EXPECT_NE(waiting.output.find("Waiting for your word: LM Studio's $(x), last seen 2026-02-25 11:43\n"
                                  "  quillary assistants allow 'LM Studio'\\''s $(x)'\n"),
              std::string::npos)
        << waiting.output;
    EXPECT_TRUE(server.current().isOn);
    EXPECT_EQ(server.current().access, AssistantAccess::everything);
    EXPECT_EQ(quillary(folder, "assistants allow \"lm studio's \\$(X)\"").status, 0); // typed by hand
    EXPECT_EQ(quillary(folder, "assistants deny Cursor").status, 0);
    EXPECT_EQ(*state(folder).find("allowed"), JSON::array({"LM Studio's $(x)"}));
    EXPECT_EQ(*state(folder).find("denied"), JSON::array({"Cursor"}));
    EXPECT_EQ(quillary(folder, "assistants forget Cursor").status, 0);
    EXPECT_EQ(server.current().assistants.size(), 1);
    EXPECT_EQ(quillary(folder, "assistants off").status, 0);
    EXPECT_FALSE(server.current().isOn);
}

TEST(AssistantsCommandTest, answersMistakesWithOneSentence)
{
    const TempFolder folder;
    const Answer unknown = quillary(folder, "assistants forget Nobody");
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.output,
              "There's no assistant called “Nobody”. `quillary assistants` shows those that are known.\n");
    EXPECT_EQ(quillary(folder, "assistants allow ''").status, 1) << "would allow all that give no name";
    EXPECT_EQ(quillary(folder, "assistants --access all").status, 2);
    EXPECT_EQ(quillary(folder, "assistants allow").status, 2);
    EXPECT_EQ(quillary(folder, "assistants paint").status, 2);
    EXPECT_FALSE(std::filesystem::exists(settingsIn(folder)));

    TempFolder damaged;
    damaged.write(".config/quillary/assistants.json", "{");
    const Answer shown = quillary(damaged, "assistants");
    EXPECT_NE(shown.output.find("can't be understood, so AI assistants are turned off."), std::string::npos);
    const Answer changed = quillary(damaged, "assistants on");
    EXPECT_NE(changed.output.find("they are kept as "), std::string::npos) << changed.output;
    EXPECT_EQ(damaged.read(".config/quillary/assistants damaged.json"), "{");
}

TEST(AssistantsCommandTest, listsWhatAssistantsDid)
{
    const TempFolder folder;
    EXPECT_EQ(quillary(folder, "assistants log").output, "No assistant has done anything yet.\n");
    ActivityLog log(folder / ".local/state/quillary/assistants.log");
    ActivityEntry entry{.time = Instant(std::chrono::milliseconds(1'772'000'000'000)),
                        .assistant = "Claude",
                        .tool = "find_clients",
                        .summary = "One",
                        .outcome = CallOutcome::done};
    log.append(entry);
    entry.summary = "Two \x1b[31m";
    entry.outcome = CallOutcome::refused;
    log.append(entry);
    EXPECT_EQ(quillary(folder, "assistants log", "TZ=Asia/Kolkata").output,
              "2026-02-25 11:43  Claude  One\n2026-02-25 11:43  Claude  Two [31m (refused)\n");
    EXPECT_EQ(quillary(folder, "assistants log --limit 1 --output json").output.find("One"), std::string::npos);
}

TEST(AssistantsCommandTest, writesConfigurationThatCanBePasted)
{
    const std::filesystem::path helper = AssistantSetup::helperBeside("/opt/my \"own\"/quillary");
    EXPECT_EQ(AssistantSetup::configuration(helper).dump(),
              R"({"mcpServers":{"quillary":{"command":"/opt/my \"own\"/quillary-mcp","args":[]}}})");
    EXPECT_NE(AssistantSetup::instructions(helper).find("add quillary -- '/opt/my \"own\"/quillary-mcp'\n"),
              std::string::npos);
}

} // namespace
} // namespace Quillary
