#include "Quillary/TerminalAsker.h"

#include "QuillaryCore/Foundation/Text.h"

#include <QSocketNotifier>

#include <fmt/format.h>

#include <array>
#include <cstdio>
#include <unistd.h>
#include <utility>

namespace Quillary {

/// Takes its question back when it goes.
class TerminalAsker::Open final : public Question
{
public:
    Open(TerminalAsker& asker, std::uint64_t number)
        : m_asker(asker)
        , m_number(number)
    {
    }
    Open(const Open&) = delete;
    Open& operator=(const Open&) = delete;
    ~Open() override { m_asker.withdraw(m_number); }

private:
    TerminalAsker& m_asker;
    std::uint64_t m_number;
};

TerminalAsker::TerminalAsker()
{
    if (isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0) {
        m_notifier = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
        QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { read(); });
    }
}

TerminalAsker::~TerminalAsker() = default;

std::unique_ptr<ApprovalAsker::Question> TerminalAsker::ask(const std::string& assistant, Answer answer)
{
    if (m_notifier == nullptr) {
        return nullptr;
    }
    const std::uint64_t number = ++m_lastNumber;
    m_entries.push_back({.number = number, .assistant = assistant, .answer = std::move(answer)});
    if (m_entries.size() == 1) {
        print();
    }
    return std::make_unique<Open>(*this, number);
}

void TerminalAsker::withdraw(std::uint64_t number)
{
    const bool wasShown = !m_entries.empty() && m_entries.front().number == number;
    const std::size_t removed =
        std::erase_if(m_entries, [number](const Entry& entry) { return entry.number == number; });
    if (removed > 0 && wasShown) {
        fmt::print(stderr, "\n");
        print();
    }
}

void TerminalAsker::print() const
{
    if (!m_entries.empty()) {
        fmt::print(stderr, "{} wants to use Quillary. Allow it? [y/n] ", m_entries.front().assistant);
    }
}

void TerminalAsker::read()
{
    std::array<char, 256> buffer{};
    const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count <= 0) {
        m_notifier->setEnabled(false); // the terminal has gone; open questions run out of time
        return;
    }
    m_typed.append(buffer.data(), static_cast<std::size_t>(count));
    const std::size_t newline = m_typed.find('\n');
    if (newline == std::string::npos) {
        return;
    }
    const std::string word = lowerCasedASCII(trimmed(std::string_view(m_typed).substr(0, newline)));
    m_typed.clear();
    if (m_entries.empty()) {
        return;
    }
    if (word == "y" || word == "yes") {
        decide(ApprovalAnswer::allow);
    } else if (word == "n" || word == "no") {
        decide(ApprovalAnswer::deny);
    } else {
        print();
    }
}

void TerminalAsker::decide(ApprovalAnswer answer)
{
    const Entry entry = std::move(m_entries.front());
    m_entries.pop_front();
    print();
    entry.answer(answer);
}

} // namespace Quillary
