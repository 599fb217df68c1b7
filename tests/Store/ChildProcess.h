#pragma once

#include <filesystem>
#include <functional>
#include <string>

/// Work in a process of its own: to be killed in the middle of it, or to be done without the rights of the superuser.
namespace Quillary::ChildProcess {

/// What `run` returns for a child that was killed.
inline constexpr int killed = -9;

/// Runs the work in a child and waits for it. Returns its exit status, `killed`, or another negative signal number.
int run(const std::function<void()>& work);

/// Ends the calling child at once, as `kill -9` does.
[[noreturn]] void die();

/// What the work answers in a child that may do no more than an ordinary user.
std::string answerWithoutPrivileges(const std::function<std::string()>& work);

/// Opens a folder and all in it to everybody, so that an ordinary user may work there.
void letOthersWrite(const std::filesystem::path& folder);

} // namespace Quillary::ChildProcess
