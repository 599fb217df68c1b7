#pragma once

#include "QuillaryCore/Assistant/Access/ApprovalAsker.h"
#include "QuillaryCore/Assistant/Access/AssistantClient.h"
#include "QuillaryCore/Assistant/Access/AssistantSettings.h"
#include "QuillaryCore/Foundation/Clock.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

class AppLock;
class AssistantSettingsFile;
struct AssistantTool;

/// Decides for every call of an assistant whether the user allows it. Belongs to the main thread.
class AssistantGate
{
public:
    /// No value: the call may run. Else the sentence for the assistant.
    using Reply = std::function<void(std::optional<std::string> refusal)>;

    struct Surroundings
    {
        AssistantSettingsFile& settings;
        const AppLock& lock;
        ApprovalAsker* asker; ///< null: nobody can be asked
        Delay& delay;
        const Clock& clock;
        std::function<void(const std::string&)> report = {}; ///< takes a sentence when settings could not be kept
    };

    /// How long a call waits for the user. Assistant apps give a call up after 60 seconds.
    static constexpr std::chrono::seconds patience{50};

    /// More questions than this don't stand open at once, however many names call.
    static constexpr std::size_t mostQuestions = 3;

    explicit AssistantGate(Surroundings surroundings);
    AssistantGate(const AssistantGate&) = delete;
    AssistantGate& operator=(const AssistantGate&) = delete;
    ~AssistantGate();

    /// Answers once, at once or within `patience`. The tool stays where it is until then, as those of the catalogue do.
    void authorize(const AssistantClient& client, const AssistantTool& tool, Reply reply);

    /// Refuses the calls that still wait for the user. Open questions stay open.
    void giveUp();

private:
    struct Verdict;
    struct WaitingCall;
    struct OpenQuestion;

    [[nodiscard]] Verdict
    verdict(const std::string& name, const AssistantTool& tool, std::optional<AssistantApproval> answered = {});
    void keepWaiting(const std::string& name);
    void change(const std::function<void(AssistantSettings&)>& change);
    void waitForUser(const std::string& name, const AssistantTool& tool, Reply reply);
    void ask(const std::string& name);
    void answered(const std::string& name, std::uint64_t question, ApprovalAnswer answer);
    void timeIsUp(const std::string& name, std::uint64_t call);
    void refuseWithoutAnswer(const std::string& name, const WaitingCall& call);

    Surroundings m_surroundings;
    std::map<std::string, OpenQuestion> m_questions;
    std::uint64_t m_lastNumber = 0; ///< of a question or a call
};

} // namespace Quillary
