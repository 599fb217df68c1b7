#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace Quillary {

/// What the user answers when asked about an assistant that is not known yet.
enum class ApprovalAnswer {
    allow,
    deny,
    undecided, ///< the question was put away; it may be asked again
};

/// Puts a new assistant to the user: a dialog, or a question in a terminal. Belongs to the main thread.
class ApprovalAsker
{
public:
    /// A question that stands open. Destroying it takes it back: its answer never comes then. It must bear to be
    /// destroyed while it answers.
    class Question
    {
    public:
        Question() = default;
        Question(const Question&) = delete;
        Question& operator=(const Question&) = delete;
        virtual ~Question() = default;
    };

    using Answer = std::function<void(ApprovalAnswer)>;

    ApprovalAsker() = default;
    ApprovalAsker(const ApprovalAsker&) = delete;
    ApprovalAsker& operator=(const ApprovalAsker&) = delete;
    virtual ~ApprovalAsker() = default;

    /// Answers once: later, or before it returns. Null without an answer: nobody can be asked now.
    [[nodiscard]] virtual std::unique_ptr<Question> ask(const std::string& assistant, Answer answer) = 0;
};

/// Does something later, on the main thread.
class Delay
{
public:
    /// What is to come. Destroying it calls it off. It must bear to be destroyed by what it does.
    class Pending
    {
    public:
        Pending() = default;
        Pending(const Pending&) = delete;
        Pending& operator=(const Pending&) = delete;
        virtual ~Pending() = default;
    };

    Delay() = default;
    Delay(const Delay&) = delete;
    Delay& operator=(const Delay&) = delete;
    virtual ~Delay() = default;

    /// Never before it returns.
    [[nodiscard]] virtual std::unique_ptr<Pending> after(std::chrono::milliseconds time,
                                                         std::function<void()> action) = 0;
};

} // namespace Quillary
