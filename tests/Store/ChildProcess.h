#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <random>
#include <string>

/// Work in a process of its own: to be killed in the middle of it, or to be done without the rights of the superuser.
namespace Quillary::ChildProcess {

/// What `run` returns for a child that was killed.
inline constexpr int killed = -9;

/// Runs the work in a child and waits for it. Returns its exit status, `killed`, or another negative signal number.
int run(const std::function<void()>& work);

/// Ends the calling child at once, as `kill -9` does.
[[noreturn]] void die();

/// Kills work at random moments of the time that it takes.
class Killer
{
public:
    /// Measures the work by doing it once to its end, in a child.
    explicit Killer(std::function<void()> work);

    /// Does the work in a child that is killed in the middle of it, or just behind its end.
    void strike();

private:
    std::function<void()> m_work;
    std::chrono::duration<double> m_whole;
    std::mt19937 m_random{20261121}; // NOLINT(cert-msc51-cpp): the moments differ enough from run to run
};

/// What the work answers in a child that may do no more than an ordinary user.
std::string answerWithoutPrivileges(const std::function<std::string()>& work);

/// Opens a folder and all in it to everybody, so that an ordinary user may work there.
void letOthersWrite(const std::filesystem::path& folder);

} // namespace Quillary::ChildProcess
