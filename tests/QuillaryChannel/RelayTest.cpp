#include "tests/QuillaryChannel/HelperProcess.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <future>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace Quillary {
namespace {

using namespace std::chrono_literals;
using Streams = HelperProcess::Streams;

constexpr auto atOnce = 2s; // generous for a busy machine, and far below any wait of the helper

/// A helper that is connected to a server of the test.
struct Joined
{
    explicit Joined(HelperProcess::Options options = {})
        : server(folder / "socket")
        , helper([&] {
            options.environment.push_back("QUILLARY_ASSISTANT_SOCKET=" + (folder / "socket").string());
            return options;
        }())
        , connection(server.accepted())
    {
    }
    Joined(const Joined&) = delete;
    Joined& operator=(const Joined&) = delete;
    ~Joined() { closeConnection(); }

    void closeConnection()
    {
        if (connection >= 0) {
            close(std::exchange(connection, -1));
        }
    }

    /// Once this is true, the helper has done all it does before the first byte.
    [[nodiscard]] bool passesABytePair() const
    {
        return writeWhole(helper.input(), "?") && readUntilEnd(connection, 1) == "?" && writeWhole(connection, "!") &&
               readUntilEnd(helper.output(), 1) == "!";
    }

    TempFolder folder;
    TestServer server;
    HelperProcess helper;
    int connection;
};

/// Bytes of every value, with a period that no buffer's size shares.
std::string sampleBytes(std::size_t size)
{
    std::string bytes(size, '\0');
    std::uint32_t state = 1;
    std::ranges::generate(bytes, [&] {
        state = state * 1664525U + 1013904223U;
        return static_cast<char>(state >> 24U);
    });
    return bytes;
}

bool writeInOddPieces(int descriptor, std::string_view bytes)
{
    for (std::size_t size = 1; !bytes.empty(); size = size * 3 % 99'991 + 1) {
        const std::string_view piece = bytes.substr(0, size);
        if (!writeWhole(descriptor, piece)) {
            return false;
        }
        bytes.remove_prefix(piece.size());
    }
    return true;
}

TEST(RelayTest, passesBytesOnUnchangedInBothDirectionsAtOnce)
{
    const std::string requests = sampleBytes(5'000'011);
    const std::string answers = sampleBytes(7'000'003);
    for (const Streams streams : {Streams::pipes, Streams::nonBlockingPipes, Streams::sockets}) {
        Joined joined({.streams = streams});
        auto writing = std::async(std::launch::async, [&] {
            const bool isWritten = writeInOddPieces(joined.helper.input(), requests);
            joined.helper.closeInput();
            return isWritten;
        });
        auto answering = std::async(std::launch::async, [&] { return writeInOddPieces(joined.connection, answers); });
        auto received = std::async(std::launch::async, [&] { return readUntilEnd(joined.connection); });
        // A slow reader: everything has filled up behind it before it takes the first byte.
        std::this_thread::sleep_for(100ms);
        EXPECT_TRUE(readUntilEnd(joined.helper.output(), answers.size()) == answers);
        EXPECT_TRUE(writing.get() && answering.get());
        EXPECT_TRUE(received.get() == requests) << "the end of the input is passed on, after its bytes";
        joined.closeConnection();
        EXPECT_EQ(readUntilEnd(joined.helper.output()), "");
        EXPECT_EQ(joined.helper.statusWithin(atOnce), 0);
    }
}

TEST(RelayTest, deliversTheAnswersOnTheWayAfterItsInputEnded)
{
    const std::string answers = sampleBytes(1'000'003);
    Joined joined;
    ASSERT_TRUE(writeWhole(joined.helper.input(), "last request\n"));
    joined.helper.closeInput();
    EXPECT_EQ(readUntilEnd(joined.connection), "last request\n");
    EXPECT_EQ(joined.helper.statusWithin(100ms), std::nullopt) << "answers may still come";
    auto answering = std::async(std::launch::async, [&] {
        const bool isWritten = writeWhole(joined.connection, answers);
        joined.closeConnection();
        return isWritten;
    });
    EXPECT_TRUE(readUntilEnd(joined.helper.output()) == answers);
    EXPECT_TRUE(answering.get());
    EXPECT_EQ(joined.helper.statusWithin(atOnce), 0);
}

TEST(RelayTest, leavesWhenOneSideIsGone)
{
    struct Case
    {
        Streams streams;
        void (*act)(Joined&);
        const char* reason;
    };
    const auto leaveOneWaiting = [](Joined& joined) {
        const std::string answers(60'000, 'x');
        writeWhole(joined.connection, answers);
        writeWhole(joined.connection, answers);
        joined.helper.closeOutput();
    };
    const auto closeUnread = [](Joined& joined) {
        writeWhole(joined.helper.input(), "nobody reads this");
        std::this_thread::sleep_for(20ms);
        joined.closeConnection();
    };
    const auto closeBoth = [](Joined& joined) {
        joined.helper.closeInput();
        joined.helper.closeOutput();
    };
    const auto stopReading = [](Joined& joined) {
        joined.helper.closeOutput();
    };
    const Case cases[] = {
        {Streams::pipes, [](Joined& joined) { joined.closeConnection(); }, "the server closes while the input is open"},
        {Streams::pipes, closeUnread, "the server closes with requests unread"},
        {Streams::pipes, stopReading, "nobody reads the answers any more, while nothing moves"},
        {Streams::sockets, stopReading, "the same where the streams are sockets"},
        {Streams::pipes, leaveOneWaiting, "nobody reads the answers any more, while one waits"},
        {Streams::pipes, closeBoth, "both ends of the assistant app close"},
    };
    for (const Case& example : cases) {
        Joined joined({.streams = example.streams});
        ASSERT_TRUE(joined.passesABytePair()) << example.reason;
        example.act(joined);
        EXPECT_EQ(joined.helper.statusWithin(atOnce), 0) << example.reason;
        if (joined.connection >= 0) {
            EXPECT_FALSE(readUntilEnd(joined.connection).contains('?'))
                << "the server sees the end: " << example.reason;
        }
    }
}

TEST(RelayTest, leavesAtSignalsAlsoWhereItsParentIgnoresThem)
{
    for (const bool ignoresSignals : {false, true}) {
        for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
            Joined joined({.ignoresSignals = ignoresSignals});
            ASSERT_TRUE(joined.passesABytePair());
            kill(joined.helper.id(), signal);
            EXPECT_EQ(joined.helper.statusWithin(atOnce), -signal);
        }
    }
}

TEST(RelayTest, costsNothingWhileNothingMoves)
{
    Joined joined;
    Joined half; // its input has ended, its answers have not
    for (Joined* each : {&joined, &half}) {
        ASSERT_TRUE(each->passesABytePair());
    }
    half.helper.closeInput();
    std::this_thread::sleep_for(50ms); // until both wait again
    const HelperProcess* helpers[] = {&joined.helper, &half.helper};
    const long before = helpers[0]->statusFigure("voluntary_ctxt_switches");
    const long beforeHalf = helpers[1]->statusFigure("voluntary_ctxt_switches");
    std::this_thread::sleep_for(300ms);
    EXPECT_GT(before, 0);
    EXPECT_EQ(helpers[0]->statusFigure("voluntary_ctxt_switches"), before);
    EXPECT_EQ(helpers[1]->statusFigure("voluntary_ctxt_switches"), beforeHalf);
#ifndef QUILLARY_SANITIZED
    EXPECT_LT(helpers[0]->statusFigure("VmHWM"), 4'000) << "kB";
#endif
}

} // namespace
} // namespace Quillary
