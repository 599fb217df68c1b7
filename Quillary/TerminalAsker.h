#pragma once

#include "QuillaryCore/Assistant/Access/ApprovalAsker.h"

#include <QSocketNotifier>
#include <QTimer>

#include <cstdint>
#include <list>
#include <memory>
#include <string>

namespace Quillary {

/// Asks in the terminal in which the program runs, one question after another. Nobody can be asked without a terminal, or
/// while another program has it: what is typed then is meant for that one.
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
    void listen();
    void read();
    void decide(ApprovalAnswer answer);

    std::list<Entry> m_entries; ///< the first is the one that was printed
    std::uint64_t m_lastNumber = 0;
    std::string m_typed;
    std::unique_ptr<QSocketNotifier> m_notifier; ///< null: there is no terminal. Enabled while a question is open
    QTimer m_retry;                              ///< looks whether the terminal is ours again
};

} // namespace Quillary
