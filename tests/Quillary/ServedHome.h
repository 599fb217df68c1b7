#pragma once

#include "QuillaryCore/Foundation/JSON.h"
#include "tests/Quillary/RunProgram.h"
#include "tests/QuillaryChannel/HelperProcess.h"
#include "tests/Support/TempFolder.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// How long a test waits for another program. Far more than it takes.
inline constexpr std::chrono::seconds patience{20};

/// A user's home with a library, settings and a socket of its own.
class Home
{
public:
    explicit Home(const std::string& access = "everything");

    [[nodiscard]] Answer run(const std::string& arguments) const { return quillary(folder, arguments); }

    [[nodiscard]] std::vector<std::string> environment() const;
    [[nodiscard]] std::filesystem::path socket() const { return folder / "assistants.socket"; }
    [[nodiscard]] std::filesystem::path library() const { return folder / ".local/share/quillary"; }

    [[nodiscard]] std::unique_ptr<HelperProcess> server(const std::vector<std::string>& options = {}) const;
    [[nodiscard]] bool waitForSocket() const;

    TempFolder folder;
};

/// An assistant app: the real helper, one request after another.
class Assistant
{
public:
    explicit Assistant(const Home& home, const std::string& name = "claude");

    /// False: the helper has gone.
    bool send(std::string_view bytes) { return writeWhole(m_helper.input(), bytes); }

    /// The next line; empty at the end.
    std::string line();

    JSON ask(std::string_view method, std::string_view parameters);

    /// The text of a tool's result; empty when there was no answer.
    std::string call(std::string_view tool, std::string_view arguments);

    [[nodiscard]] HelperProcess& helper() { return m_helper; }

    JSON hello;

private:
    HelperProcess m_helper;
    int m_lastID = 0;
};

} // namespace Quillary
