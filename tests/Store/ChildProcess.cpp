#include "tests/Store/ChildProcess.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <exception>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace Quillary::ChildProcess {

namespace {

constexpr uid_t nobody = 65534;
constexpr int failedStatus = 99;

pid_t started(const std::function<void()>& work)
{
    const pid_t child = fork();
    if (child == 0) {
        try {
            work();
        } catch (const std::exception&) {
            _exit(failedStatus);
        }
        _exit(0); // without the test framework's own end
    }
    return child;
}

int ended(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace

int run(const std::function<void()>& work)
{
    return ended(started(work));
}

Killer::Killer(std::function<void()> work)
    : m_work(std::move(work))
{
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(run(m_work), 0);
    m_whole = std::chrono::steady_clock::now() - start;
}

void Killer::strike()
{
    const pid_t child = started(m_work);
    std::this_thread::sleep_for(m_whole * std::uniform_real_distribution<double>(0, 1.1)(m_random));
    kill(child, SIGKILL);
    ended(child);
}

void die()
{
    raise(SIGKILL);
    _exit(failedStatus);
}

std::string answerWithoutPrivileges(const std::function<std::string()>& work)
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        return "no pipe";
    }
    const int status = run([&] {
        if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) {
            _exit(failedStatus);
        }
        std::string answer;
        try {
            answer = work();
        } catch (const std::exception& error) {
            answer = std::string("failed: ") + error.what();
        }
        _exit(write(ends[1], answer.data(), answer.size()) == static_cast<ssize_t>(answer.size()) ? 0 : failedStatus);
    });
    close(ends[1]);
    std::string answer;
    std::array<char, 1024> buffer{};
    ssize_t count = 0;
    while ((count = read(ends[0], buffer.data(), buffer.size())) > 0) {
        answer.append(buffer.data(), static_cast<std::size_t>(count));
    }
    close(ends[0]);
    return status == 0 ? answer : "the child failed";
}

void letOthersWrite(const std::filesystem::path& folder)
{
    std::filesystem::permissions(folder, std::filesystem::perms::all);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        std::filesystem::permissions(entry, std::filesystem::perms::all);
    }
}

} // namespace Quillary::ChildProcess
