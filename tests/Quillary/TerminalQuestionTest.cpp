#include "tests/Quillary/ServedHome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <future>
#include <optional>
#include <poll.h>
#include <pty.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace Quillary {
namespace {

using testing::HasSubstr;

constexpr std::string_view notAllowed = "The user didn't allow Goose to use Quillary. They can change that in Quillary "
                                        "› Settings › AI.";

/// `quillary serve` in the foreground of a terminal with a person at it.
class TerminalServer
{
public:
    explicit TerminalServer(const Home& home)
    {
        std::vector<std::string> environment = home.environment();
        m_id = forkpty(&m_terminal, nullptr, nullptr, nullptr);
        if (m_id == 0) {
            std::vector<char*> settings;
            settings.reserve(environment.size() + 1);
            for (std::string& setting : environment) {
                settings.push_back(setting.data());
            }
            settings.push_back(nullptr);
            execle(QUILLARY_PROGRAM, QUILLARY_PROGRAM, "serve", nullptr, settings.data());
            _exit(127);
        }
        // Or the helper would have it too, and closing it here would hang nothing up.
        fcntl(m_terminal, F_SETFD, FD_CLOEXEC);
    }
    TerminalServer(const TerminalServer&) = delete;
    TerminalServer& operator=(const TerminalServer&) = delete;
    ~TerminalServer()
    {
        hangUp();
        if (m_id > 0) {
            kill(m_id, SIGKILL);
            waitpid(m_id, nullptr, 0);
        }
    }

    /// What is on the screen since the last look, read up to this text; all of it when that doesn't come.
    std::string screenUntil(std::string_view text)
    {
        pollfd watched{.fd = m_terminal, .events = POLLIN, .revents = 0};
        constexpr int milliseconds = 1000 * static_cast<int>(patience.count());
        while (!m_screen.contains(text) && poll(&watched, 1, milliseconds) == 1) {
            std::array<char, 256> bytes{};
            const ssize_t count = read(m_terminal, bytes.data(), bytes.size());
            if (count <= 0) {
                break;
            }
            m_screen.append(bytes.data(), static_cast<std::size_t>(count));
        }
        const std::size_t found = m_screen.find(text);
        const std::size_t end = found == std::string::npos ? m_screen.size() : found + text.size();
        std::string seen = m_screen.substr(0, end);
        m_screen.erase(0, end);
        return seen;
    }

    void type(std::string_view text) const { ASSERT_TRUE(writeWhole(m_terminal, text)); }

    /// As if the window was closed.
    void hangUp() { close(std::exchange(m_terminal, -1)); }

    /// The exit status. No value: a signal ended it, or it goes on.
    std::optional<int> statusAtEnd()
    {
        for (auto waited = std::chrono::milliseconds(0); waited < patience; waited += std::chrono::milliseconds(20)) {
            int status = 0;
            if (waitpid(m_id, &status, WNOHANG) == m_id) {
                m_id = -1;
                return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
            }
            poll(nullptr, 0, 20);
        }
        return std::nullopt;
    }

private:
    int m_terminal = -1;
    pid_t m_id = -1;
    std::string m_screen;
};

class TerminalQuestionTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(home.waitForSocket());
        stranger.emplace(home, "goose");
    }

    /// Calls a tool as an assistant that nobody has decided on.
    [[nodiscard]] std::future<std::string> add(const std::string& name)
    {
        return std::async(std::launch::async,
                          [this, name] { return stranger->call("create_client", R"({"name":")" + name + "\"}"); });
    }

    /// Whether the terminal shows the question about the stranger.
    [[nodiscard]] bool isAsked()
    {
        return server.screenUntil("[y/n] ").ends_with("Goose wants to use Quillary. Allow it? [y/n] ");
    }

    [[nodiscard]] std::string clients() const { return home.run("call find_clients").output; }

    Home home;
    TerminalServer server{home};
    std::optional<Assistant> stranger;
};

TEST_F(TerminalQuestionTest, anAllowedAssistantIsNotAskedAboutAgain)
{
    auto first = add("Ann");
    ASSERT_TRUE(isAsked());
    server.type("perhaps\n");
    ASSERT_TRUE(isAsked()) << "only a clear answer counts";
    server.type(" Yes \n");
    EXPECT_THAT(first.get(), HasSubstr("Added the client Ann"));
    EXPECT_THAT(add("Ben").get(), HasSubstr("Added the client Ben"));
    EXPECT_THAT(home.run("assistants").output, HasSubstr("Goose"));
}

TEST_F(TerminalQuestionTest, aDeniedAssistantIsRefusedFromThenOn)
{
    auto first = add("Ann");
    ASSERT_TRUE(isAsked());
    server.type("n\n");
    EXPECT_EQ(first.get(), notAllowed);
    EXPECT_EQ(add("Ben").get(), notAllowed);
    EXPECT_THAT(clients(), HasSubstr("There are no clients yet"));
}

TEST_F(TerminalQuestionTest, anAnswerThatComesTooLateCountsForTheNextCall)
{
    auto first = add("Ann");
    ASSERT_TRUE(isAsked());
    EXPECT_THAT(clients(), HasSubstr("There are no clients yet")) << "a command doesn't wait for the user";
    EXPECT_EQ(first.get(), notAllowed);
    server.type("y\n");
    server.screenUntil("y\r\n");
    EXPECT_THAT(add("Ben").get(), HasSubstr("Added the client Ben"));
    EXPECT_THAT(clients(), Not(HasSubstr("Ann"))) << "the old call is never run";
}

TEST_F(TerminalQuestionTest, nothingRunsWhenTheTerminalIsClosed)
{
    auto first = add("Ann");
    ASSERT_TRUE(isAsked());
    server.hangUp();
    EXPECT_EQ(server.statusAtEnd(), 0);
    EXPECT_EQ(first.get(), "");
    EXPECT_THAT(clients(), HasSubstr("There are no clients yet"));
    EXPECT_FALSE(std::filesystem::exists(home.socket()));
}

} // namespace
} // namespace Quillary
