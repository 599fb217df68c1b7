#pragma once

#include "QuillaryCore/Assistant/ApprovalAsker.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>

class QSocketNotifier;

namespace Quillary {

/// Asks in the terminal in which the program runs, one question after another. Without a terminal nobody can be asked.
class TerminalAsker final : public ApprovalAsker
{
public:
    TerminalAsker();
    ~TerminalAsker() override;

    [[nodiscard]] std::unique_ptr<Question> ask(const std::string& assistant, Answer answer) override;

private:
    class Open;
    struct Entry
    {
        std::uint64_t number;
        std::string assistant;
        Answer answer;
    };

    void withdraw(std::uint64_t number);
    void print() const;
    void read();
    void decide(ApprovalAnswer answer);

    std::list<Entry> m_entries; ///< the first is the one that was printed
    std::uint64_t m_lastNumber = 0;
    std::string m_typed;
    std::unique_ptr<QSocketNotifier> m_notifier; ///< null: there is no terminal
};

} // namespace Quillary
