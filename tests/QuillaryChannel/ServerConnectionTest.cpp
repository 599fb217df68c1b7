#include "QuillaryChannel/Helper/ServerConnection.h"

#include "QuillaryChannel/Helper/ApplicationStart.h"
#include "tests/QuillaryChannel/HelperProcess.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace Quillary {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr std::array<const char*, 1> noEnvironment = {nullptr};

/// An installation in a folder of the test's own, where nothing of the user's can be found.
HelperSurroundings surroundingsIn(const TempFolder& folder)
{
    HelperSurroundings result{.environment = noEnvironment.data()};
    result.places.runtimeBase = folder / "run";
    result.places.temporaryBase = folder.path();
    result.linkToSelf = folder / "self";
    result.patience = 1s;
    fs::create_symlink(folder / "bin/quillary-mcp", result.linkToSelf);
    return result;
}

void installProgram(TempFolder& folder, std::string_view script)
{
    fs::permissions(folder.write("bin/quillary", script), fs::perms::owner_all);
}

std::string refusal(const HelperSurroundings& surroundings)
{
    try {
        const int socket = connectToApplication(surroundings, STDOUT_FILENO);
        close(socket);
        return "connected";
    } catch (const AssistantChannel::Error& error) {
        return error.what();
    }
}

bool waitFor(const fs::path& file)
{
    const auto end = std::chrono::steady_clock::now() + 10s;
    while (!fs::exists(file) && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(5ms);
    }
    return fs::exists(file);
}

TEST(ServerConnectionTest, complainsInOneSentenceAndSendsNothing)
{
    const TempFolder folder;
    const std::string socket = folder / "socket";
    {
        const TestServer gone(socket);
    } // leaves its file behind
    const std::pair<std::string, std::string> cases[] = {
        {socket,
         "Nothing listens at “" + socket +
             "”, the socket named in QUILLARY_ASSISTANT_SOCKET. Start Quillary with the "
             "same setting, or remove it.\n"},
        {folder / "none",
         "Nothing listens at “" + (folder / "none").string() +
             "”, the socket named in QUILLARY_ASSISTANT_SOCKET. Start Quillary with the same setting, or remove it.\n"},
        {std::string(104, 'x'),
         "The socket path “" + std::string(104, 'x') + "” is too long: it may have at most 103 bytes.\n"},
        {socket + "/below", "Couldn't connect to Quillary at “" + socket + "/below”: Not a directory.\n"},
    };
    for (const auto& [path, sentence] : cases) {
        HelperProcess helper({.environment = {"QUILLARY_ASSISTANT_SOCKET=" + path}});
        EXPECT_EQ(helper.statusWithin(2s), 1) << path;
        EXPECT_EQ(helper.complaint(), sentence);
        EXPECT_EQ(readUntilEnd(helper.output()), "");
    }
}

TEST(ServerConnectionTest, startsTheApplicationBesideIt)
{
    TempFolder folder;
    const HelperSurroundings surroundings = surroundingsIn(folder);
    installProgram(folder, R"(#!/bin/sh
here=$(dirname "$0")
echo noise; echo noise >&2
( echo "$@"; pwd; for fd in 0 1 2; do readlink /proc/$$/fd/$fd; done
  ls -l /proc/$$/fd | grep -c pipe: ) >"$here/facts.part"
mv "$here/facts.part" "$here/facts"
)");
    std::array<int, 2> leak{};
    ASSERT_EQ(pipe(leak.data()), 0); // a descriptor that the assistant app left open for its children
    std::thread application([&] {
        if (!waitFor(folder / "bin/facts")) {
            return;
        }
        const TestServer server(AssistantChannel::socketPath(noEnvironment.data(), surroundings.places));
        const int connection = server.accepted();
        writeWhole(connection, "hello");
        close(connection);
    });
    HelperSurroundings patient = surroundings;
    patient.patience = 10s;
    const int socket = connectToApplication(patient, leak[1]);
    EXPECT_EQ(readUntilEnd(socket), "hello");
    application.join();
    EXPECT_EQ(folder.read("bin/facts"), "serve --background\n/\n/dev/null\n/dev/null\n/dev/null\n0\n");
    for (const int descriptor : {socket, leak[0], leak[1]}) {
        close(descriptor);
    }
}

TEST(ServerConnectionTest, saysWhyTheApplicationDidNotStart)
{
    TempFolder folder;
    const HelperSurroundings surroundings = surroundingsIn(folder);
    const std::string program = folder / "bin/quillary";
    EXPECT_EQ(refusal(surroundings),
              "Quillary isn't running, and “" + program +
                  "” can't be started: No such file or directory. Open Quillary, then try again.");
    folder.write("bin/quillary", "no program");
    EXPECT_EQ(refusal(surroundings),
              "Quillary isn't running, and “" + program +
                  "” can't be started: Permission denied. Open Quillary, then try again.");
    installProgram(folder, "#!/bin/sh\nexit 1\n");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(refusal(surroundings),
              "Quillary didn't start within 1 seconds. Run “quillary serve” in a terminal to see why.");
    EXPECT_GE(std::chrono::steady_clock::now() - start, 1s);
}

TEST(ServerConnectionTest, stopsWaitingForTheApplicationWhenTheAssistantAppIsGone)
{
    TempFolder folder;
    HelperSurroundings surroundings = surroundingsIn(folder);
    surroundings.patience = 30s;
    installProgram(folder, "#!/bin/sh\n");
    std::array<int, 2> output{};
    ASSERT_EQ(pipe(output.data()), 0);
    close(output[0]);
    EXPECT_EQ(connectToApplication(surroundings, output[1]), -1);
    close(output[1]);
}

TEST(ServerConnectionTest, refusesAServerOfAnotherUser)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the superuser can listen as somebody else";
    }
    const TempFolder folder;
    HelperSurroundings surroundings = surroundingsIn(folder);
    const std::string path = AssistantChannel::socketPath(noEnvironment.data(), surroundings.places);
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto address = AssistantChannel::address(path);
    ASSERT_EQ(bind(listener, address->pointer(), address->length), 0);
    constexpr uid_t nobody = 65534;
    ASSERT_EQ(seteuid(nobody), 0); // whoever listens is who answers
    const bool listens = listen(listener, 8) == 0;
    ASSERT_EQ(seteuid(0), 0);
    ASSERT_TRUE(listens);
    EXPECT_EQ(refusal(surroundings),
              "What listens at “" + path + "” belongs to another user, so nothing was sent to it.");
    close(listener);
}

} // namespace
} // namespace Quillary
