#include "QuillaryUI/Assistant/AssistantServer.h"

#include "QuillaryUI/Assistant/LookAhead.h"
#include "tests/Assistant/Session/SessionTest.h"
#include "tests/QuillaryUI/SocketClient.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/stat.h>
#include <thread>
#include <utility>
#include <vector>

namespace Quillary {
namespace {

namespace fs = std::filesystem;

std::string request(int id, std::string_view method, std::string_view params = "{}")
{
    return R"({"jsonrpc":"2.0","id":)" + std::to_string(id) + R"(,"method":")" + std::string(method) +
           R"(","params":)" + std::string(params) + "}\n";
}

std::string ping(int id)
{
    return request(id, "ping");
}

std::string pong(int id)
{
    return R"({"jsonrpc":"2.0","id":)" + std::to_string(id) + R"(,"result":{}})";
}

const std::string createAnn = request(1, "tools/call", R"({"name":"create_client","arguments":{"name":"Ann"}})");

std::ptrdiff_t entries(const fs::path& folder)
{
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

class AssistantServerTest : public SessionTest
{
protected:
    std::unique_ptr<AssistantServer> makeServer(AssistantServer::Rules rules = {})
    {
        return std::make_unique<AssistantServer>(path, [this] { return makeSession(); }, rules);
    }

    std::unique_ptr<AssistantServer> startedServer(AssistantServer::Rules rules = {})
    {
        auto server = makeServer(rules);
        server->start();
        return server;
    }

    /// The sentence with which a server refuses to start.
    static std::string refusal(AssistantServer& server)
    {
        try {
            server.start();
        } catch (const AssistantServer::Error& error) {
            return error.message();
        }
        return "";
    }

    /// Lets a server go and another one go on.
    void moveOn(std::unique_ptr<AssistantServer>& server)
    {
        std::optional<AssistantServer::Handover> handover;
        server->release([&](AssistantServer::Handover given) { handover = std::move(given); });
        ASSERT_TRUE(waitUntil([&] { return handover.has_value(); }));
        server = makeServer();
        server->adopt(std::move(*handover));
    }

    TempFolder folder;
    fs::path path = folder / "socket";
};

TEST_F(AssistantServerTest, answersEachLineOnceAndInOrderHoweverItArrives)
{
    const auto server = startedServer();
    SocketClient client(path);
    client.send(ping(1) + " \r\n\n" + ping(2) + R"({"jsonrpc":"2.0","method":"notifications/initialized"})" + "\n{}\n");
    EXPECT_EQ(client.waitForLine(), pong(1));
    EXPECT_EQ(client.waitForLine(), pong(2));
    EXPECT_NE(client.waitForLine().find("-32600"), std::string::npos);
    for (const char byte : ping(3)) {
        client.send({&byte, 1});
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(client.waitForLine(), pong(3));

    // What was asked before the end of input is answered after it.
    client.send(ping(4) + ping(5) + "{\"half");
    client.endSending();
    EXPECT_EQ(client.waitForLine(), pong(4));
    EXPECT_EQ(client.waitForLine(), pong(5));
    EXPECT_TRUE(waitUntil([&] { return client.isAtEnd() && server->connectionCount() == 0; }));
}

TEST_F(AssistantServerTest, takesThePathOnlyWhenNobodyListensThere)
{
    const mode_t mask = umask(0);
    auto server = startedServer();
    umask(mask);
    struct stat status = {};
    ASSERT_EQ(lstat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, mode_t{S_IFSOCK | 0600});

    auto second = makeServer();
    EXPECT_EQ(refusal(*second), "Quillary is already running.");
    fs::remove(path.string() + ".lock"); // as if a cleaner of old files had come by
    EXPECT_EQ(refusal(*second), "Quillary is already running.");
    SocketClient client(path);
    client.send(ping(1));
    EXPECT_EQ(client.waitForLine(), pong(1));

    server->stop();
    EXPECT_FALSE(fs::exists(path));
    EXPECT_TRUE(waitUntil([&] { return client.isAtEnd(); }));
    EXPECT_EQ(refusal(*second), "");
    EXPECT_EQ(refusal(*server), "Quillary is already running.");
}

TEST_F(AssistantServerTest, replacesTheSocketOfAProgramThatDied)
{
    {
        const Descriptor dead(::socket(AF_UNIX, SOCK_STREAM, 0));
        const auto address = AssistantChannel::address(path.string()).value();
        ASSERT_EQ(::bind(dead.number(), address.pointer(), address.length), 0);
        ASSERT_EQ(::listen(dead.number(), 1), 0);
    }
    const auto server = startedServer();
    SocketClient client(path);
    client.send(ping(1));
    EXPECT_EQ(client.waitForLine(), pong(1));
}

TEST_F(AssistantServerTest, removesOnlySocketsThatNobodyHolds)
{
    auto server = startedServer();
    ListeningSocket::removeIfStale(path);
    EXPECT_EQ(entries(folder.path()), 2) << "socket and lock";
    server.reset();
    ListeningSocket::removeIfStale(path);
    EXPECT_EQ(entries(folder.path()), 0);
}

TEST_F(AssistantServerTest, saysWhyItCannotListen)
{
    const std::size_t room = AssistantChannel::longestPath - folder.path().string().size() - 1;
    path = folder / std::string(room + 1, 'a');
    EXPECT_EQ(refusal(*makeServer()), "The socket path is too long.");
    path = folder / std::string(room, 'a');
    EXPECT_EQ(refusal(*makeServer()), "");
    path = folder / "missing/socket";
    EXPECT_EQ(refusal(*makeServer()), "Couldn't listen at " + path.string());
    path = folder / "folder";
    fs::create_directory(path);
    EXPECT_EQ(refusal(*makeServer()), "Couldn't listen at " + path.string());
    // A path that was mistyped may be that of somebody's file.
    path = folder.write("letter", "dear");
    EXPECT_EQ(refusal(*makeServer()), "Couldn't listen at " + path.string());
    EXPECT_EQ(fs::file_size(path), 4U);
}

TEST_F(AssistantServerTest, stopsForWantOfClientsWithoutCuttingOffOne)
{
    auto server = startedServer();
    for (int round = 0; round < 30; ++round) {
        SocketClient client(path); // accepted already or not
        client.send(ping(round));
        ASSERT_FALSE(server->stopIfUnused());
        ASSERT_EQ(client.waitForLine(), pong(round));
        client.close();
        ASSERT_TRUE(waitUntil([&] { return server->connectionCount() == 0; }));
    }
    EXPECT_TRUE(server->stopIfUnused());
    EXPECT_FALSE(SocketClient(path).isConnected());
    EXPECT_EQ(refusal(*makeServer()), "") << "the path is free";
    server.reset();
    EXPECT_EQ(entries(folder.path()), 1) << "the lock file alone stays";
}

TEST_F(AssistantServerTest, turnsAwayOtherUsersAndTooMany)
{
    auto server = startedServer({.user = AssistantChannel::Places().user + 1});
    SocketClient stranger(path);
    EXPECT_TRUE(waitUntil([&] { return stranger.isAtEnd(); }));
    EXPECT_EQ(server->refused(), 1U);

    server.reset();
    server = startedServer({.connections = 2});
    std::vector<SocketClient> clients;
    for (int index = 0; index < 3; ++index) {
        clients.emplace_back(path).send(ping(index));
    }
    EXPECT_EQ(clients[0].waitForLine(), pong(0));
    EXPECT_EQ(clients[1].waitForLine(), pong(1));
    EXPECT_TRUE(waitUntil([&] { return clients[2].isAtEnd(); }));
    EXPECT_EQ(server->refused(), 1U);
    clients[0].close();
    ASSERT_TRUE(waitUntil([&] { return server->connectionCount() == 1; }));
    SocketClient next(path);
    next.send(ping(9));
    EXPECT_EQ(next.waitForLine(), pong(9));
}

TEST_F(AssistantServerTest, losesAndMixesNothingUnderLoad)
{
    constexpr int clientCount = 64; // connecting at once
    constexpr int requestCount = 100;
    const auto server = startedServer();
    std::vector<SocketClient> clients;
    std::vector<int> answered(clientCount, 0);
    for (int client = 0; client < clientCount; ++client) {
        clients.emplace_back(path);
        std::string requests;
        for (int index = 0; index < requestCount; ++index) {
            requests += ping(client * requestCount + index);
        }
        ASSERT_EQ(clients.back().send(requests), "");
    }
    EXPECT_TRUE(waitUntil([&] {
        for (std::size_t client = 0; client < clients.size(); ++client) {
            while (const auto line = clients[client].line()) {
                EXPECT_EQ(*line, pong(static_cast<int>(client) * requestCount + answered[client]));
                answered[client] += 1;
            }
        }
        return std::ranges::count(answered, requestCount) == clientCount;
    }));
}

TEST_F(AssistantServerTest, oneClientsTroubleIsNoOthers)
{
    const auto server = startedServer({.patience = std::chrono::milliseconds(300)});
    SocketClient unfinished(path);
    unfinished.send(R"({"jsonrpc":"2.0","id":1,)");
    SocketClient deaf(path); // takes no answer
    std::string listings;
    for (int index = 0; index < 100; ++index) {
        listings += request(index, "tools/list");
    }
    deaf.send(listings);
    SocketClient vanishing(path);
    vanishing.send(request(1, "tools/list") + request(2, "tools/list"));
    vanishing.close();
    SocketClient endless(path); // one line that has no end
    const std::string flood(LineBuffer::longestLine + 1'000'000, 'a');
    std::string_view rest = flood;
    ASSERT_TRUE(waitUntil([&] {
        rest = endless.send(rest);
        return rest.empty();
    }));
    EXPECT_NE(endless.waitForLine().find("-32700"), std::string::npos);

    SocketClient client(path);
    client.send(ping(1));
    EXPECT_EQ(client.waitForLine(), pong(1));
    EXPECT_TRUE(waitUntil([&] { return server->connectionCount() == 3; })) << "the deaf and the vanished have gone";
    unfinished.send(R"("method":"ping"})"
                    "\n");
    EXPECT_EQ(unfinished.waitForLine(), pong(1));
    endless.send("the end\n" + ping(2));
    EXPECT_EQ(endless.waitForLine(), pong(2));
}

TEST_F(AssistantServerTest, aCallWhoseClientHasGoneIsNotRunWhenItIsAllowedLater)
{
    auto server = startedServer();
    isAsking = true;
    SocketClient client(path);
    client.send(createAnn);
    ASSERT_TRUE(waitUntil([&] { return questions.size() == 1; }));
    client.close();
    ASSERT_TRUE(waitUntil([&] { return server->connectionCount() == 0; })) << "it is noticed while the user thinks";
    questions[0](std::nullopt);
    EXPECT_TRUE(calls.empty());

    // The same with a server that has gone.
    SocketClient other(path);
    other.send(createAnn);
    ASSERT_TRUE(waitUntil([&] { return questions.size() == 2; }));
    server.reset();
    questions[1](std::nullopt);
    EXPECT_TRUE(calls.empty());
    EXPECT_EQ(member(library.data("find_clients", "{}"), "clients"), "[]");
}

TEST_F(AssistantServerTest, aCallThatIsTakenBackIsNotRunWhenItIsAllowedLater)
{
    const auto cancel = [](std::string_view id) {
        return R"({"jsonrpc":"2.0","method":"notifications/cancelled","params":{"requestId":)" + std::string(id) +
               "}}\n";
    };
    const auto server = startedServer();
    isAsking = true;
    SocketClient client(path);
    client.send(createAnn);
    ASSERT_TRUE(waitUntil([&] { return questions.size() == 1; }));
    client.send(cancel("\"1\"") + cancel("2") + ping(3) + cancel("1").substr(0, 50));
    EXPECT_FALSE(waitUntil([&] { return client.line().has_value(); }, std::chrono::milliseconds(200)))
        << "nobody has taken this call back";
    client.send(cancel("1").substr(50) + ping(4));
    EXPECT_EQ(client.waitForLine(), pong(3)) << "a call that was taken back has no answer";
    EXPECT_EQ(client.waitForLine(), pong(4));

    client.send(createAnn + cancel("1") + ping(5)); // all at once
    EXPECT_EQ(client.waitForLine(), pong(5));

    // More than is read ahead, then the end: everything is answered in its turn all the same.
    ASSERT_EQ(questions.size(), 2U);
    client.send(createAnn);
    ASSERT_TRUE(waitUntil([&] { return questions.size() == 3; }));
    const std::string large = ping(6) + std::string(3 * LookAhead::most, ' ') + "\n" + ping(7);
    std::string_view rest = large;
    bool isAllowed = false;
    EXPECT_TRUE(waitUntil([&] {
        const std::size_t before = rest.size();
        rest = client.send(rest);
        if (!isAllowed && rest.size() == before) {
            questions[2](std::nullopt);
            isAllowed = true;
        }
        return rest.empty();
    }));
    client.endSending();
    EXPECT_NE(client.waitForLine().find("Ann"), std::string::npos);
    EXPECT_EQ(client.waitForLine(), pong(6));
    EXPECT_EQ(client.waitForLine(), pong(7));
    questions[0](std::nullopt);
    questions[1](std::nullopt);
    EXPECT_EQ(calls.size(), 1U);
}

TEST_F(AssistantServerTest, stopsAtOnceAndLeavesNothing)
{
    const auto descriptors = entries("/proc/self/fd");
    const auto threads = entries("/proc/self/task");
    {
        const auto server = startedServer();
        SocketClient idle(path);
        SocketClient waiting(path);
        SocketClient deaf(path);
        isAsking = true;
        waiting.send(createAnn);
        std::string listings;
        for (int index = 0; index < 100; ++index) {
            listings += request(index, "tools/list");
        }
        deaf.send(listings);
        ASSERT_TRUE(waitUntil([&] { return questions.size() == 1 && server->connectionCount() == 3; }));
        const auto start = std::chrono::steady_clock::now();
        server->stop();
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5)); // far below any patience
        EXPECT_TRUE(waitUntil([&] { return idle.isAtEnd() && waiting.isAtEnd(); }));
        EXPECT_EQ(server->connectionCount(), 0U);
        server->start();
        SocketClient again(path);
        again.send(ping(1));
        EXPECT_EQ(again.waitForLine(), pong(1));
    }
    questions.clear();
    EXPECT_TRUE(waitUntil([&] { return entries("/proc/self/task") == threads; }));
    EXPECT_EQ(entries("/proc/self/fd"), descriptors);
}

TEST_F(AssistantServerTest, anotherServerGoesOnWithoutTheClientsNoticing)
{
    auto server = startedServer();
    SocketClient half(path);
    half.send(request(1, "initialize", R"({"clientInfo":{"name":"goose"}})"));
    EXPECT_NE(half.waitForLine(), "");
    half.send(ping(2) + createAnn.substr(0, 40));
    EXPECT_EQ(half.waitForLine(), pong(2));
    SocketClient busy(path);
    std::string requests;
    for (int index = 0; index < 300; ++index) {
        requests += index % 10 == 0 ? request(index, "tools/list") : ping(index);
    }
    ASSERT_EQ(busy.send(requests), ""); // far more answers than the kernel keeps for it
    ASSERT_TRUE(waitUntil([&] { return server->connectionCount() == 2; }));

    moveOn(server);
    SocketClient late(path);
    late.send(ping(1));
    moveOn(server); // and once more, the late one perhaps on its way
    EXPECT_EQ(late.waitForLine(), pong(1));
    half.send(createAnn.substr(40));
    EXPECT_NE(half.waitForLine().find("Ann"), std::string::npos);
    EXPECT_EQ(calls, std::vector<std::string>{"Goose: create_client"});
    for (int index = 0; index < 300; ++index) {
        const std::string beginning = R"({"jsonrpc":"2.0","id":)" + std::to_string(index) + ",";
        EXPECT_TRUE(busy.waitForLine().starts_with(beginning)) << index;
    }
    server.reset();
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(AssistantServerTest, isReleasedWhenTheCallUnderWayHasEnded)
{
    auto server = startedServer();
    isAsking = true;
    SocketClient client(path);
    client.send(createAnn + ping(2));
    ASSERT_TRUE(waitUntil([&] { return questions.size() == 1; }));
    std::optional<AssistantServer::Handover> handover;
    server->release([&](AssistantServer::Handover given) { handover = std::move(given); });
    SocketClient second(path); // waits in the kernel from now on
    second.send(ping(7));
    QCoreApplication::processEvents();
    EXPECT_FALSE(handover.has_value());
    questions[0](std::nullopt);
    ASSERT_TRUE(waitUntil([&] { return handover.has_value(); }));
    EXPECT_EQ(calls.size(), 1U);
    EXPECT_EQ(refusal(*makeServer()), "Quillary is already running.") << "the lock goes with it";
    server.reset();
    EXPECT_TRUE(fs::exists(path));

    server = makeServer();
    server->adopt(std::move(*handover));
    EXPECT_NE(client.waitForLine().find("Ann"), std::string::npos);
    EXPECT_EQ(client.waitForLine(), pong(2));
    EXPECT_EQ(second.waitForLine(), pong(7));
}

} // namespace
} // namespace Quillary
