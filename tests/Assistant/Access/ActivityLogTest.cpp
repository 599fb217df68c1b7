#include "QuillaryCore/Assistant/Access/ActivityLog.h"

#include "QuillaryCore/Assistant/Access/AssistantClient.h"
#include "QuillaryCore/Assistant/Access/Refusal.h"
#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace Quillary {
namespace {

ActivityEntry numbered(int number)
{
    return {.time = Instant(std::chrono::milliseconds(1'772'000'000'000 + number)),
            .assistant = "Claude",
            .tool = "create_document",
            .summary = "Made draft " + std::to_string(number),
            .documentID = UUID::parse("3F2504E0-4F89-41D3-9A0C-0305E82C3301"),
            .outcome = CallOutcome::done};
}

TEST(ActivityEntryTest, tellsWhatACallDid)
{
    const AssistantTool& tool = *ToolCatalogue::find("mark_document_sent");
    const AssistantClient client{.version = {}, .displayName = "Claude"};
    struct Case
    {
        ToolResult result;
        std::string summary;
        CallOutcome outcome;
    };
    const Case cases[] = {
        {{.text = "Long.", .summary = "Marked INV-1\n\x1b[31m sent"}, "Marked INV-1 [31m sent", CallOutcome::done},
        {{.text = "Long."}, "Mark as sent", CallOutcome::done},
        {ToolResult::error("There's no such document."), "There's no such document.", CallOutcome::failed},
        {ToolResult::error(Refusal::turnedOff()), Refusal::turnedOff(), CallOutcome::refused},
        {ToolResult::error(Refusal::notAllowed("Claude")), Refusal::notAllowed("Claude"), CallOutcome::refused},
        {ToolResult::error(Refusal::notAllowed("Cursor")), Refusal::notAllowed("Cursor"), CallOutcome::failed},
        {ToolResult::error(Refusal::beyond(AssistantAccess::drafts, tool)),
         Refusal::beyond(AssistantAccess::drafts, tool),
         CallOutcome::refused},
    };
    for (const Case& example : cases) {
        const ActivityEntry entry = ActivityEntry::of(client, tool, example.result, Instant());
        EXPECT_EQ(entry.summary, example.summary);
        EXPECT_EQ(text(entry.outcome), text(example.outcome)) << example.summary;
        EXPECT_EQ(ActivityEntry::read(entry.json().dump()), entry);
    }
}

TEST(ActivityLogTest, keepsTheLastEntriesOverRestarts)
{
    const TempFolder folder;
    const auto path = folder / "state/assistants.log";
    EXPECT_TRUE(ActivityLog(path, 10).last(5).empty());
    for (int number = 1; number <= 57; ++number) {
        ActivityLog(path, 10).append(numbered(number)); // a program a call
        const std::string text = folder.read("state/assistants.log");
        EXPECT_LE(std::ranges::count(text, '\n'), 20);
    }
    const auto last = ActivityLog(path, 10).last(10);
    ASSERT_EQ(last.size(), 10);
    EXPECT_EQ(last.front(), numbered(48));
    EXPECT_EQ(last.back(), numbered(57));
}

TEST(ActivityLogTest, countsWhatAnotherProgramAppends)
{
    const TempFolder folder;
    ActivityLog server(folder / "log", 10);
    ActivityLog other(folder / "log", 10);
    for (int number = 1; number <= 100; ++number) {
        (number % 3 == 0 ? other : server).append(numbered(number));
        const std::string text = folder.read("log");
        EXPECT_LE(std::ranges::count(text, '\n'), 20);
    }
    EXPECT_EQ(server.last(1), std::vector{numbered(100)});
    EXPECT_GE(server.last(100).size(), 10);
}

TEST(ActivityLogTest, survivesATornLastLineAndForeignBytes)
{
    TempFolder folder;
    const std::string whole = numbered(1).json().dump();
    const auto path = folder.write("log", whole + "\n\xff\xfe{}\n{\"time\":1}\n" + whole.substr(0, 40));
    ActivityLog log(path);
    EXPECT_EQ(log.last(5), std::vector{numbered(1)});
    log.append(numbered(2));
    EXPECT_EQ(log.last(5), (std::vector{numbered(1), numbered(2)}));
}

} // namespace
} // namespace Quillary
