#include "Quillary/TerminalAsker.h"

#include "Quillary/ErrorOutput.h"
#include "QuillaryCore/Foundation/Text.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <span>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace Quillary {

namespace {

constexpr std::chrono::milliseconds betweenLooks{500};

/// Whether this program is the one that the terminal talks to, and not in the background of a shell.
bool hasTerminal()
{
    return tcgetpgrp(STDIN_FILENO) == getpgrp();
}

/// The terminal may go to another program just before this. Reading then stops a program, unless it blocks the signal.
ssize_t readTerminal(std::span<char> place)
{
    sigset_t held;
    sigset_t before;
    sigemptyset(&held);
    sigaddset(&held, SIGTTIN);
    pthread_sigmask(SIG_BLOCK, &held, &before);
    const ssize_t count = ::read(STDIN_FILENO, place.data(), place.size());
    const int error = errno;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    errno = error;
    return count;
}

} // namespace

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
        m_notifier->setEnabled(false);
        QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { read(); });
        m_retry.setSingleShot(true);
        QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this] { listen(); });
    }
}

TerminalAsker::~TerminalAsker() = default;

std::unique_ptr<ApprovalAsker::Question> TerminalAsker::ask(const std::string& assistant, Answer answer)
{
    if (m_notifier == nullptr || !hasTerminal()) {
        return nullptr;
    }
    const std::uint64_t number = ++m_lastNumber;
    m_entries.push_back({.number = number, .assistant = assistant, .answer = std::move(answer)});
    if (m_entries.size() == 1) {
        tcflush(STDIN_FILENO, TCIFLUSH); // what was typed before is no answer
        m_typed.clear();
        print();
        listen();
    }
    return std::make_unique<Open>(*this, number);
}

void TerminalAsker::withdraw(std::uint64_t number)
{
    const bool wasShown = !m_entries.empty() && m_entries.front().number == number;
    const std::size_t removed =
        std::erase_if(m_entries, [number](const Entry& entry) { return entry.number == number; });
    if (removed > 0 && wasShown) {
        ErrorOutput::write("\n");
        print();
        listen();
    }
}

void TerminalAsker::print() const
{
    if (!m_entries.empty()) {
        ErrorOutput::write(fmt::format("{} wants to use Quillary. Allow it? [y/n] ", m_entries.front().assistant));
    }
}

/// While a question is open and the terminal is ours; while it is another's, looks again from time to time.
void TerminalAsker::listen()
{
    const bool isAsking = m_notifier != nullptr && !m_entries.empty();
    const bool isOurs = hasTerminal();
    if (m_notifier != nullptr) {
        m_notifier->setEnabled(isAsking && isOurs);
    }
    if (isAsking && !isOurs) {
        m_retry.start(betweenLooks);
    }
}

void TerminalAsker::read()
{
    std::array<char, 256> buffer{};
    if (!hasTerminal()) {
        listen();
        return;
    }
    const ssize_t count = readTerminal(buffer);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) {
        return;
    }
    if (count <= 0) {
        // The terminal has gone, or went to another program just now. Should it stay away, open questions run out of time.
        m_notifier->setEnabled(false);
        m_retry.start(betweenLooks);
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
    listen();
    entry.answer(answer);
}

} // namespace Quillary
