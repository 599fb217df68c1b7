#include "QuillaryCore/Assistant/Access/AssistantGate.h"

#include "QuillaryCore/Assistant/Access/AppLock.h"
#include "QuillaryCore/Assistant/Access/AssistantSettingsFile.h"
#include "QuillaryCore/Assistant/Access/Refusal.h"
#include "QuillaryCore/Assistant/Access/ShownText.h"
#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "QuillaryCore/Foundation/UserError.h"

#include <algorithm>
#include <utility>

namespace Quillary {

namespace {

/// An assistant that calls again and again need not make a file be written each time.
constexpr std::chrono::minutes sameCall{1};

} // namespace

/// What the settings say to a call.
struct AssistantGate::Verdict
{
    bool isUnknown = false; ///< the user has to say
    std::optional<std::string> refusal = {};
};

struct AssistantGate::WaitingCall
{
    std::uint64_t number;
    const AssistantTool* tool;
    Reply reply;
    std::unique_ptr<Delay::Pending> limit;
};

struct AssistantGate::OpenQuestion
{
    std::uint64_t number;
    std::unique_ptr<ApprovalAsker::Question> question;
    std::vector<WaitingCall> calls;
};

AssistantGate::AssistantGate(Surroundings surroundings)
    : m_surroundings(std::move(surroundings))
{
}

AssistantGate::~AssistantGate() = default;

void AssistantGate::authorize(const AssistantClient& client, const AssistantTool& tool, Reply reply)
{
    const std::string name = ShownText::assistantName(client.displayName);
    const Verdict found = verdict(name, tool);
    if (found.isUnknown) {
        keepWaiting(name);
        waitForUser(name, tool, std::move(reply));
    } else {
        reply(found.refusal);
    }
}

AssistantGate::Verdict
AssistantGate::verdict(const std::string& name, const AssistantTool& tool, std::optional<AssistantApproval> answered)
{
    const AssistantSettings& settings = m_surroundings.settings.current();
    if (!settings.isOn) {
        return {.refusal = Refusal::turnedOff()};
    }
    if (m_surroundings.lock.isLocked()) {
        return {.refusal = Refusal::locked()};
    }
    const KnownAssistant* known = settings.find(name);
    const AssistantApproval approval =
        answered.value_or(known == nullptr ? AssistantApproval::waiting : known->approval);
    if (approval == AssistantApproval::waiting) {
        return {.isUnknown = true};
    }
    if (approval == AssistantApproval::denied) {
        return {.refusal = Refusal::notAllowed(name)};
    }
    if (settings.access < tool.access) {
        return {.refusal = Refusal::beyond(settings.access, tool)};
    }
    return {};
}

void AssistantGate::keepWaiting(const std::string& name)
{
    const Instant now = m_surroundings.clock.now();
    const KnownAssistant* known = m_surroundings.settings.current().find(name);
    const bool isFresh =
        known != nullptr && known->askedAt && *known->askedAt <= now && now - *known->askedAt < sameCall;
    if (!isFresh) {
        change([&](AssistantSettings& settings) { settings.keepWaiting(name, now); });
    }
}

void AssistantGate::change(const std::function<void(AssistantSettings&)>& change)
{
    try {
        m_surroundings.settings.change(change);
    } catch (const UserError& error) {
        if (m_surroundings.report) {
            m_surroundings.report(error.message());
        }
    }
}

void AssistantGate::waitForUser(const std::string& name, const AssistantTool& tool, Reply reply)
{
    const auto open = m_questions.find(name);
    const bool isNew = open == m_questions.end();
    if (isNew && (m_surroundings.asker == nullptr || m_questions.size() >= mostQuestions)) {
        reply(Refusal::notAllowed(name));
        return;
    }
    OpenQuestion& question =
        isNew ? m_questions.emplace(name, OpenQuestion{.number = ++m_lastNumber, .question = {}, .calls = {}})
                    .first->second
              : open->second;
    const std::uint64_t number = ++m_lastNumber;
    question.calls.push_back(
        {.number = number,
         .tool = &tool,
         .reply = std::move(reply),
         .limit = m_surroundings.delay.after(patience, [this, name, number] { timeIsUp(name, number); })});
    if (isNew) {
        ask(name);
    }
}

void AssistantGate::ask(const std::string& name)
{
    const std::uint64_t number = m_questions.at(name).number;
    auto question = m_surroundings.asker->ask(
        name, [this, name, number](ApprovalAnswer answer) { answered(name, number, answer); });
    if (question == nullptr) {
        answered(name, number, ApprovalAnswer::undecided); // nothing happens where it has answered already
        return;
    }
    // It may have answered before it returned, and what came of that may have asked anew.
    const auto open = m_questions.find(name);
    if (open != m_questions.end() && open->second.number == number) {
        open->second.question = std::move(question);
    }
}

void AssistantGate::answered(const std::string& name, std::uint64_t question, ApprovalAnswer answer)
{
    const auto open = m_questions.find(name);
    if (open == m_questions.end() || open->second.number != question) {
        return;
    }
    const OpenQuestion closed = std::move(open->second);
    m_questions.erase(open);
    const AssistantApproval approval =
        answer == ApprovalAnswer::allow ? AssistantApproval::allowed : AssistantApproval::denied;
    if (answer != ApprovalAnswer::undecided) {
        change([&](AssistantSettings& settings) { settings.decide(name, approval); });
    }
    for (const WaitingCall& call : closed.calls) {
        // Meanwhile assistants may have been turned off. What the user just said counts even if it could not be kept.
        call.reply(verdict(name, *call.tool, approval).refusal);
    }
}

void AssistantGate::timeIsUp(const std::string& name, std::uint64_t call)
{
    const auto open = m_questions.find(name);
    if (open == m_questions.end()) {
        return;
    }
    std::vector<WaitingCall>& calls = open->second.calls;
    const auto found = std::ranges::find(calls, call, &WaitingCall::number);
    if (found == calls.end()) {
        return;
    }
    const WaitingCall late = std::move(*found);
    calls.erase(found);
    refuseWithoutAnswer(name, late);
}

/// The question stays open: its answer counts for the next call. Only what a command or another window said meanwhile
/// can still let this one run.
void AssistantGate::refuseWithoutAnswer(const std::string& name, const WaitingCall& call)
{
    const Verdict found = verdict(name, *call.tool);
    call.reply(found.isUnknown ? Refusal::notAllowed(name) : found.refusal);
}

void AssistantGate::giveUp()
{
    std::vector<std::pair<std::string, WaitingCall>> all;
    for (auto& [name, open] : m_questions) {
        for (WaitingCall& call : std::exchange(open.calls, {})) {
            all.emplace_back(name, std::move(call));
        }
    }
    for (const auto& [name, call] : all) {
        refuseWithoutAnswer(name, call);
    }
}

} // namespace Quillary
