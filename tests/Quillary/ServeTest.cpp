#include "Quillary/Control/LibraryClaim.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Store/LibraryLock.h"
#include "QuillaryCore/Store/StoreError.h"
#include "tests/Quillary/ServedHome.h"
#include "tests/QuillaryChannel/HelperProcess.h"
#include "tests/Support/TempFolder.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <memory>
#include <optional>
#include <poll.h>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <vector>

namespace Quillary {
namespace {

using std::chrono::milliseconds;
using testing::HasSubstr;

TEST(ServeTest, handsOverWithoutTheAssistantNoticing)
{
    const Home home;
    const auto background = home.server({"--background"});
    ASSERT_TRUE(home.waitForSocket());
    Assistant assistant(home);
    EXPECT_THAT(assistant.call("create_client", R"({"name":"Before"})"), HasSubstr("Added the client Before"));

    // A command gets the library in the middle of a line.
    EXPECT_TRUE(assistant.send(R"({"jsonrpc":"2.0","id":"half",)"));
    EXPECT_THAT(home.run("call find_clients").output, HasSubstr("Before"));
    EXPECT_EQ(home.run("call create_client --name Between").status, 0);
    EXPECT_TRUE(assistant.send("\"method\":\"ping\"}\n"));
    EXPECT_EQ(assistant.line(), R"({"jsonrpc":"2.0","id":"half","result":{}})");

    // A Quillary that somebody starts takes everything over, what the client said of itself included.
    EXPECT_TRUE(assistant.send(R"({"jsonrpc":"2.0","id":"over",)"));
    const auto window = home.server();
    EXPECT_EQ(background->statusWithin(patience), 0);
    EXPECT_TRUE(assistant.send("\"method\":\"ping\"}\n"));
    EXPECT_EQ(assistant.line(), R"({"jsonrpc":"2.0","id":"over","result":{}})");
    EXPECT_THAT(assistant.call("find_clients", R"({"query":"between"})"), HasSubstr("Between"));
    EXPECT_THAT(home.run("assistants log").output, HasSubstr("Claude"));

    const Answer second = home.run("serve");
    EXPECT_EQ(second.status, 1);
    EXPECT_EQ(second.output, "Quillary is already running.\n");

    kill(window->id(), SIGTERM);
    EXPECT_EQ(window->statusWithin(patience), 0);
    EXPECT_EQ(assistant.line(), "");
    EXPECT_EQ(assistant.helper().statusWithin(patience), 0);
    EXPECT_FALSE(std::filesystem::exists(home.socket()));
}

TEST(ServeTest, keepsToWhatTheUserAllows)
{
    const Home home("drafts");
    const auto server = home.server();
    ASSERT_TRUE(home.waitForSocket());
    Assistant known(home);
    Assistant stranger(home, "goose");
    EXPECT_EQ(known.call("mark_document_sent", R"({"document":"1"})"),
              "In Quillary, assistants may make and change drafts, but not mark as sent. The user can change this in "
              "Quillary › Settings › AI.");
    EXPECT_THAT(stranger.call("find_clients", "{}"), HasSubstr("The user didn't allow Goose to use Quillary."));
    EXPECT_THAT(home.run("assistants").output, HasSubstr("Goose"));
    // The user's word counts for the next call, without a restart.
    std::ignore = home.run("assistants allow goose");
    EXPECT_THAT(stranger.call("create_client", R"({"name":"Gans"})"), HasSubstr("Added the client Gans"));
    std::ignore = home.run("assistants off");
    EXPECT_EQ(known.call("find_clients", "{}"),
              "AI assistants are turned off in Quillary. The user can turn them on in Quillary › Settings › AI.");
    EXPECT_THAT(home.run("call find_clients").output, HasSubstr("Gans")) << "the user's own commands know no gate";
}

TEST(ServeTest, endsInTheBackgroundWhenNobodyIsThere)
{
    const Home home;
    const auto server = home.server({"--background", "--idle-seconds", "0.4"});
    ASSERT_TRUE(home.waitForSocket());
    {
        Assistant assistant(home);
        EXPECT_EQ(server->statusWithin(milliseconds(1200)), std::nullopt) << "somebody is there";
    }
    EXPECT_EQ(server->statusWithin(patience), 0);
}

TEST(ServeTest, canBeToldToEndWhileTheLibraryIsLent)
{
    const Home home;
    EXPECT_EQ(home.run("call create_client --name Ann").status, 0);
    const auto server = home.server();
    ASSERT_TRUE(home.waitForSocket());
    Assistant assistant(home);
    LibraryClaim claim = claimLibrary(home.library());
    ASSERT_TRUE(claim.lender.isOpen());
    ASSERT_TRUE(writeWhole(claim.lender.number(), "x"));
    pollfd lender{.fd = claim.lender.number(), .events = POLLIN, .revents = 0};
    EXPECT_EQ(poll(&lender, 1, 100), 0) << "only its end ends a loan";

    kill(server->id(), SIGTERM);
    EXPECT_EQ(server->statusWithin(patience), 0);
    EXPECT_EQ(assistant.line(), "");
    EXPECT_FALSE(std::filesystem::exists(home.socket()));
    EXPECT_THROW(LibraryLock(home.library()), StoreError) << "the borrower has it still";
    claim = {};
    EXPECT_NO_THROW(LibraryLock(home.library()));
}

TEST(ServeTest, waitsForNobodyWhoDoesNotReadAnAnswer)
{
    const Home home;
    const auto server = home.server();
    ASSERT_TRUE(home.waitForSocket());
    Assistant assistant(home);
    // Its standard output is full already, and the answer is more than it can keep to itself.
    const HelperProcess blocked({.command = {"/bin/sh",
                                             "-c",
                                             "head -c 65536 /dev/zero; "
                                             "exec \"$0\" call create_document --kind invoice --output json --intro $1",
                                             QUILLARY_PROGRAM,
                                             std::string(6000, 'x')},
                                 .environment = home.environment()});
    std::string answer;
    while (!answer.contains("INV-")) {
        ASSERT_TRUE(
            assistant.send(R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":{"name":"find_documents"}})"
                           "\n"));
        pollfd waiting{.fd = assistant.helper().output(), .events = POLLIN, .revents = 0};
        ASSERT_EQ(poll(&waiting, 1, 10'000), 1) << "it waits for the command";
        answer = assistant.line();
    }
}

TEST(ServeTest, needsNobodyToReadWhatItSays)
{
    const Home home;
    std::filesystem::create_directories(home.folder / ".local/state/quillary/assistants.log");
    const auto server = home.server();
    server->closeComplaint(); // before it says where it listens
    ASSERT_TRUE(home.waitForSocket());
    Assistant assistant(home);
    EXPECT_THAT(assistant.call("create_client", R"({"name":"Ann"})"), HasSubstr("Added the client Ann"));
    kill(server->id(), SIGTERM);
    EXPECT_EQ(server->statusWithin(patience), 0);
}

TEST(ServeTest, takesNothingOverThatItIsToServeElsewhere)
{
    const Home home;
    const auto server = home.server({"--background"});
    ASSERT_TRUE(home.waitForSocket());
    const std::string other = (home.folder / "other.socket").string();
    const Answer answer = quillary(home.folder, "serve", "QUILLARY_ASSISTANT_SOCKET='" + other + "'");
    EXPECT_EQ(answer.status, 1);
    EXPECT_THAT(answer.output, HasSubstr(" at " + home.socket().string()));
    EXPECT_THAT(answer.output, HasSubstr(" at " + other));
    EXPECT_THAT(Assistant(home).call("find_clients", "{}"), HasSubstr("no clients"));
}

/// Every draft that was told of is there, under a number of its own, whatever was killed in between.
TEST(ServeTest, losesNothingThatItAcknowledged)
{
    constexpr int rounds = 12;
    const Home home;
    std::signal(SIGPIPE, SIG_IGN); // writing to a helper that was killed is an answer, not an end
    std::mt19937 random(7);        // NOLINT(cert-msc51-cpp): the same kills every time
    std::vector<std::string> told;
    for (int round = 0; round < rounds; ++round) {
        const auto server = home.server();
        ASSERT_TRUE(home.waitForSocket());
        Assistant first(home);
        Assistant second(home);
        std::thread killer([&, wait = milliseconds(20 + (random() % 120))] {
            std::this_thread::sleep_for(wait);
            kill(round % 3 == 0 ? first.helper().id() : server->id(), SIGKILL);
        });
        for (int turn = 0; turn < 40; ++turn) {
            Assistant& assistant = turn % 2 == 0 ? first : second;
            const std::string text = assistant.call("create_document", R"({"kind":"invoice"})");
            const std::size_t number = text.find("INV-");
            if (number == std::string::npos) {
                break;
            }
            told.push_back(text.substr(number, text.find(' ', number) - number));
        }
        killer.join();
        kill(server->id(), SIGKILL);
        std::ignore = server->statusWithin(patience);
        std::filesystem::remove(home.socket()); // what is left of it must not pass for the next one's
    }
    ASSERT_GT(told.size(), 20U);
    EXPECT_EQ(std::set(told.begin(), told.end()).size(), told.size()) << "a number was given out twice";
    for (const std::string& number : {told.front(), told[told.size() / 2], told.back()}) {
        EXPECT_EQ(home.run("call get_document --document " + number).status, 0) << number;
    }
    EXPECT_EQ(home.run("backup now").status, 0) << "a backup is opened and checked";
}

} // namespace
} // namespace Quillary
