#include "Quillary/AppEnvironment.h"

#include "QuillaryCore/Foundation/Text.h"

#include <unicode/timezone.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <pwd.h>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

std::string variable(const char* name)
{
    // The environment is read before any thread is started.
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    return value == nullptr ? "" : value;
}

std::string hostTimeZone()
{
    const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::detectHostTimeZone());
    icu::UnicodeString identifier;
    std::string text;
    return zone == nullptr ? "UTC" : zone->getID(identifier).toUTF8String(text);
}

/// The country that a time zone lies in; empty for UTC and zones of several countries.
std::string countryOfZone(const std::string& timeZone)
{
    std::array<char, 4> region{};
    UErrorCode status = U_ZERO_ERROR;
    icu::TimeZone::getRegion(icu::UnicodeString::fromUTF8(timeZone), region.data(), region.size(), status);
    const std::string_view code(region.data());
    return U_SUCCESS(status) && code.size() == 2 ? std::string(code) : "";
}

/// The locale that money and dates are written in. A process without one ("C", as in most scripts) still lives
/// somewhere: its time zone tells the country.
std::string localeIdentifier(const std::string& timeZone)
{
    for (const char* name : {"LC_ALL", "LC_MONETARY", "LANG"}) {
        std::string value = variable(name);
        value = value.substr(0, value.find_first_of(".@"));
        if (value.empty()) {
            continue;
        }
        if (value != "C" && value != "POSIX") {
            return value;
        }
        break;
    }
    const std::string country = countryOfZone(timeZone);
    return country.empty() || country == "001" ? "en_US" : "en_" + country;
}

fs::path homeDirectory()
{
    if (std::string home = variable("HOME"); !home.empty()) {
        return home;
    }
    const passwd* user = getpwuid(getuid()); // NOLINT(concurrency-mt-unsafe): no thread has been started yet
    return user == nullptr ? "/" : user->pw_dir;
}

/// One of the user's base folders (XDG base directories): a relative path in the environment counts for nothing.
fs::path baseFolder(const char* name, const fs::path& home, const char* usual)
{
    const std::string value = variable(name);
    return value.starts_with('/') ? fs::path(value) : home / usual;
}

/// A desktop is running, and nobody asked to draw without it.
bool hasScreen()
{
    const bool hasDesktop = !variable("DISPLAY").empty() || !variable("WAYLAND_DISPLAY").empty();
    const std::string platform = variable("QT_QPA_PLATFORM");
    return hasDesktop && platform != "offscreen" && platform != "minimal";
}

/// The folder that the desktop calls XDG_DOWNLOAD_DIR, written as XDG_DOWNLOAD_DIR="$HOME/Downloads".
fs::path configuredDownloads(const fs::path& home)
{
    std::ifstream file(baseFolder("XDG_CONFIG_HOME", home, ".config") / "user-dirs.dirs");
    constexpr std::string_view key = "XDG_DOWNLOAD_DIR=\"";
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with(key) || !line.ends_with('"')) {
            continue;
        }
        const std::string value = line.substr(key.size(), line.size() - key.size() - 1);
        return replacing(value, "$HOME", home.string());
    }
    return home / "Downloads";
}

} // namespace

AppEnvironment::AppEnvironment()
    : m_calendar(hostTimeZone())
    , m_locale(localeIdentifier(m_calendar.timeZone()))
    , m_home(homeDirectory())
    , m_hasDisplay(hasScreen())
{
}

fs::path AppEnvironment::libraryFolder() const
{
    return baseFolder("XDG_DATA_HOME", m_home, ".local/share") / "quillary";
}

fs::path AppEnvironment::configurationFolder() const
{
    return baseFolder("XDG_CONFIG_HOME", m_home, ".config") / "quillary";
}

fs::path AppEnvironment::stateFolder() const
{
    return baseFolder("XDG_STATE_HOME", m_home, ".local/state") / "quillary";
}

fs::path AppEnvironment::programFile() const
{
    std::error_code failure;
    return fs::read_symlink("/proc/self/exe", failure);
}

fs::path AppEnvironment::downloadsFolder() const
{
    return configuredDownloads(m_home);
}

} // namespace Quillary
