#include "tests/Quillary/ServedHome.h"

#include <fmt/format.h>

#include <fstream>
#include <optional>
#include <thread>
#include <tuple>
#include <unistd.h>

namespace Quillary {

Home::Home(const std::string& access)
{
    std::ignore = run("assistants on --access " + access);
    std::ignore = run("assistants allow Claude");
}

std::vector<std::string> Home::environment() const
{
    return {"HOME=" + folder.path().string(),
            "PATH=/usr/bin:/bin",
            "LC_ALL=de_DE.UTF-8",
            "QUILLARY_ASSISTANT_SOCKET=" + socket().string()};
}

std::unique_ptr<HelperProcess> Home::server(const std::vector<std::string>& options) const
{
    std::vector<std::string> command = {QUILLARY_PROGRAM, "serve"};
    command.insert(command.end(), options.begin(), options.end());
    return std::make_unique<HelperProcess>(HelperProcess::Options{.command = command, .environment = environment()});
}

namespace {

/// The file of a socket is there a moment before anybody listens. To connect would be a call that the server notices.
bool isListenedAt(const std::filesystem::path& path)
{
    std::ifstream sockets("/proc/net/unix");
    for (std::string line; std::getline(sockets, line);) {
        if (line.ends_with(" " + path.string()) && line.contains(" 00010000 ")) {
            return true;
        }
    }
    return false;
}

} // namespace

bool Home::waitForSocket() const
{
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!isListenedAt(socket())) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

Assistant::Assistant(const Home& home, const std::string& name)
    : m_helper({.environment = home.environment()})
{
    hello = ask("initialize", fmt::format(R"({{"protocolVersion":"2025-06-18","clientInfo":{{"name":"{}"}}}})", name));
}

std::string Assistant::line()
{
    std::string text;
    char byte = 0;
    while (::read(m_helper.output(), &byte, 1) == 1 && byte != '\n') {
        text += byte;
    }
    return text;
}

JSON Assistant::ask(std::string_view method, std::string_view parameters)
{
    if (!send(fmt::format(
            "{{\"jsonrpc\":\"2.0\",\"id\":{},\"method\":\"{}\",\"params\":{}}}\n", ++m_lastID, method, parameters))) {
        return {};
    }
    const std::optional<JSON> answer = JSON::parse(line());
    const JSON* result = answer ? answer->find("result") : nullptr;
    return result == nullptr ? JSON() : *result;
}

std::string Assistant::call(std::string_view tool, std::string_view arguments)
{
    const JSON result = ask("tools/call", fmt::format(R"({{"name":"{}","arguments":{}}})", tool, arguments));
    const JSON* content = result.find("content");
    return content == nullptr ? "" : *content->array()->front().find("text")->string();
}

} // namespace Quillary
