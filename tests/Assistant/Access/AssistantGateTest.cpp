#include "QuillaryCore/Assistant/Access/AssistantGate.h"

#include "QuillaryCore/Assistant/Access/AppLock.h"
#include "QuillaryCore/Assistant/Access/AssistantSettingsFile.h"
#include "QuillaryCore/Assistant/Access/Refusal.h"
#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace Quillary {
namespace {

constexpr const char* off =
    "AI assistants are turned off in Quillary. The user can turn them on in Quillary › Settings › AI.";
constexpr const char* locked =
    "Quillary is locked. Ask the user to unlock it with Touch ID or their password, then try again.";
constexpr const char* denied =
    "The user didn't allow Claude to use Quillary. They can change that in Quillary › Settings › AI.";
constexpr const char* onlyLook =
    "In Quillary, assistants may only look. The user can change this in Quillary › Settings › AI.";
constexpr const char* notMarkAsSent = "In Quillary, assistants may make and change drafts, but not mark as sent. The "
                                      "user can change this in Quillary › Settings › AI.";

class SwitchedLock final : public AppLock
{
public:
    [[nodiscard]] bool isLocked() const override { return isOn; }
    bool isOn = false;
};

/// Questions and delays that the test answers and lets pass.
class Asker final : public ApprovalAsker
{
public:
    struct Open final : Question
    {
    };
    std::unique_ptr<Question> ask(const std::string& assistant, Answer answer) override
    {
        asked.push_back(assistant);
        answers.push_back(std::move(answer));
        if (immediate) {
            answers.back()(*immediate);
        }
        return canAsk ? std::make_unique<Open>() : nullptr;
    }
    std::vector<std::string> asked;
    std::vector<Answer> answers;
    std::optional<ApprovalAnswer> immediate;
    bool canAsk = true;
};

class ManualDelay final : public Delay
{
public:
    struct Entry
    {
        std::chrono::milliseconds time;
        std::function<void()> action;
    };
    class Shot final : public Pending
    {
    public:
        explicit Shot(std::shared_ptr<Entry> entry) // the second owner is the list of the test
            : m_entry(std::move(entry))
        {
        }
        ~Shot() override { m_entry->action = nullptr; }

    private:
        std::shared_ptr<Entry> m_entry;
    };
    std::unique_ptr<Pending> after(std::chrono::milliseconds time, std::function<void()> action) override
    {
        entries.push_back(std::make_shared<Entry>(Entry{time, std::move(action)}));
        return std::make_unique<Shot>(entries.back());
    }
    void letAllPass()
    {
        for (const auto& entry : std::exchange(entries, {})) {
            if (const auto action = entry->action) {
                action();
            }
        }
    }
    std::vector<std::shared_ptr<Entry>> entries;
};

struct Desk
{
    explicit Desk(ApprovalAsker* given)
        : gate({.settings = server, .lock = lock, .asker = given, .delay = delay, .clock = clock})
    {
        command.change([](AssistantSettings& settings) { settings.isOn = true; });
    }

    /// Where the answer to a call arrives: "waits" until then, "allowed", or the refusal.
    std::string& call(const char* toolName, const std::string& assistant = "Claude")
    {
        std::string& reply = *replies.emplace_back(std::make_unique<std::string>("waits"));
        gate.authorize({.version = {}, .displayName = assistant},
                       *ToolCatalogue::find(toolName),
                       [&reply](const std::optional<std::string>& refusal) {
                           EXPECT_EQ(reply, "waits") << "answered twice";
                           reply = refusal.value_or("allowed");
                       });
        return reply;
    }
    [[nodiscard]] const KnownAssistant* known(std::string_view name) { return command.current().find(name); }

    TempFolder folder;
    AssistantSettingsFile server{folder / "quillary/assistants.json"};
    AssistantSettingsFile command{folder / "quillary/assistants.json"}; ///< another program's
    SwitchedLock lock;
    ManualDelay delay;
    FixedClock clock{Instant(std::chrono::days(20'000))};
    AssistantGate gate;
    std::vector<std::unique_ptr<std::string>> replies;
};

TEST(AssistantGateTest, checksInOrder)
{
    using enum AssistantAccess;
    constexpr auto allowed = AssistantApproval::allowed;
    constexpr auto waiting = AssistantApproval::waiting;
    struct Case
    {
        bool isOn;
        bool isLocked;
        AssistantApproval approval;
        AssistantAccess access;
        const char* tool;
        const char* answer;
    };
    const Case cases[] = {
        // Everything is wrong: the first check speaks.
        {false, true, AssistantApproval::denied, readOnly, "record_payment", off},
        {true, true, AssistantApproval::denied, readOnly, "record_payment", locked},
        {true, false, AssistantApproval::denied, readOnly, "record_payment", denied},
        {true, false, allowed, readOnly, "record_payment", onlyLook},
        {true, false, allowed, readOnly, "create_document", onlyLook},
        {true, false, allowed, readOnly, "preview_document", "allowed"}, // renders a draft, changes nothing
        {true, false, allowed, drafts, "mark_document_sent", notMarkAsSent},
        {true, false, allowed, drafts, "discard_document", "allowed"},
        {true, false, allowed, everything, "mark_document_sent", "allowed"},
        {true, false, waiting, everything, "find_clients", denied}, // nobody to ask
    };
    for (const Case& example : cases) {
        Desk desk(nullptr);
        desk.lock.isOn = example.isLocked;
        desk.command.change([&](AssistantSettings& settings) {
            settings.isOn = example.isOn;
            settings.access = example.access;
            settings.decide("Claude", example.approval);
        });
        EXPECT_EQ(desk.call(example.tool), example.answer) << example.tool;
    }
}

TEST(AssistantGateTest, keepsANameThatNobodyWasAskedAbout)
{
    Desk desk(nullptr);
    EXPECT_EQ(desk.call("find_clients"), denied);
    ASSERT_NE(desk.known("Claude"), nullptr);
    EXPECT_EQ(desk.known("Claude")->askedAt, desk.clock.now());

    desk.clock.set(desk.clock.now() + std::chrono::seconds(1));
    desk.call("find_clients");
    EXPECT_NE(desk.known("Claude")->askedAt, desk.clock.now()) << "a call a second writes no file a second";

    desk.command.change([](AssistantSettings& settings) { settings.decide("Claude", AssistantApproval::allowed); });
    EXPECT_EQ(desk.call("find_clients"), "allowed") << "a command's change counts at once";
    desk.command.change([](AssistantSettings& settings) { settings.isOn = false; });
    EXPECT_EQ(desk.call("find_clients"), off);
}

TEST(AssistantGateTest, asksOnceForAllCallsOfAnAssistant)
{
    for (const auto answer : {ApprovalAnswer::allow, ApprovalAnswer::deny, ApprovalAnswer::undecided}) {
        Asker asker;
        Desk desk(&asker);
        const std::string& first = desk.call("find_clients");
        const std::string& second = desk.call("mark_document_sent");
        EXPECT_EQ(asker.asked, std::vector<std::string>{"Claude"});
        EXPECT_EQ(first, "waits");
        asker.answers[0](answer);
        const bool isAllowed = answer == ApprovalAnswer::allow;
        EXPECT_EQ(first, isAllowed ? "allowed" : denied);
        EXPECT_EQ(second, isAllowed ? notMarkAsSent : denied) << "the level is asked for after the approval";
        desk.delay.letAllPass(); // an answered call's time is not up any more
        const std::string& third = desk.call("find_clients");
        EXPECT_EQ(third, isAllowed ? "allowed" : (answer == ApprovalAnswer::deny ? denied : "waits"));
        EXPECT_EQ(asker.asked.size(), answer == ApprovalAnswer::undecided ? 2 : 1);
        asker.answers[0](ApprovalAnswer::allow); // answers that come twice change nothing
        EXPECT_EQ(third, isAllowed ? "allowed" : (answer == ApprovalAnswer::deny ? denied : "waits"));
        desk.gate.giveUp();
    }
}

TEST(AssistantGateTest, letsALateAnswerCountForTheNextCallOnly)
{
    Asker asker;
    Desk desk(&asker);
    const std::string& old = desk.call("find_clients");
    ASSERT_EQ(desk.delay.entries.size(), 1);
    EXPECT_LT(desk.delay.entries[0]->time, std::chrono::seconds(60)) << "when assistant apps give up";
    desk.delay.letAllPass();
    EXPECT_EQ(old, denied);
    const std::string& next = desk.call("find_clients");
    EXPECT_EQ(next, "waits") << "the question still stands open";
    EXPECT_EQ(asker.asked.size(), 1);
    asker.answers[0](ApprovalAnswer::allow);
    EXPECT_EQ(old, denied);
    EXPECT_EQ(next, "allowed");
    EXPECT_EQ(desk.call("find_clients"), "allowed");
}

TEST(AssistantGateTest, looksAgainBeforeAWaitingCallRuns)
{
    Asker asker;
    Desk desk(&asker);
    const std::string& turnedOff = desk.call("find_clients");
    desk.command.change([](AssistantSettings& settings) { settings.isOn = false; });
    asker.answers[0](ApprovalAnswer::allow);
    EXPECT_EQ(turnedOff, off);

    desk.command.change([](AssistantSettings& settings) { settings.isOn = true; });
    const std::string& allowedByCommand = desk.call("find_clients", "Cursor");
    desk.command.change([](AssistantSettings& settings) { settings.decide("Cursor", AssistantApproval::allowed); });
    desk.delay.letAllPass();
    EXPECT_EQ(allowedByCommand, "allowed") << "the user said so in time, in another place";
}

TEST(AssistantGateTest, bearsAskersThatAnswerAtOnceOrCantAsk)
{
    Asker asker;
    Desk desk(&asker);
    asker.immediate = ApprovalAnswer::allow;
    EXPECT_EQ(desk.call("find_clients"), "allowed");
    asker.immediate.reset();
    asker.canAsk = false;
    EXPECT_EQ(desk.call("find_clients", "Cursor"),
              "The user didn't allow Cursor to use Quillary. They can change that in Quillary › Settings › AI.");
    EXPECT_NE(desk.known("Cursor"), nullptr);
}

TEST(AssistantGateTest, boundsWhatHostileNamesCanDo)
{
    Asker asker;
    Desk desk(&asker);
    for (int number = 0; number < 60; ++number) {
        desk.clock.set(desk.clock.now() + std::chrono::seconds(1));
        desk.call("find_clients", "bot " + std::to_string(number));
    }
    EXPECT_EQ(asker.asked.size(), AssistantGate::mostQuestions);
    EXPECT_EQ(desk.command.current().assistants.size(), AssistantSettings::mostWaiting);
    EXPECT_NE(desk.known("bot 59"), nullptr) << "the newest stay";

    Desk alone(nullptr);
    alone.call("find_clients", "\x1b[2J" + std::string(5'000, 'x') + "\n");
    EXPECT_EQ(alone.command.current().assistants.at(0).name, "[2J" + std::string(97, 'x') + "…");
}

TEST(AssistantGateTest, answersEveryCallWhenItGivesUp)
{
    Asker asker;
    Desk desk(&asker);
    const std::string& call = desk.call("find_clients");
    desk.gate.giveUp();
    EXPECT_EQ(call, denied);
}

} // namespace
} // namespace Quillary
