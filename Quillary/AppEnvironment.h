#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Clock.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Foundation/UUID.h"

#include <filesystem>

namespace Quillary {

/// The one place where the program meets its surroundings: the machine's clock, time zone, locale, identifiers and the
/// user's folders. Everything below gets them as arguments.
class AppEnvironment
{
public:
    /// Reads the process's environment once, at start.
    AppEnvironment();

    [[nodiscard]] const Clock& clock() const { return m_clock; }
    [[nodiscard]] UUIDSource& uuids() { return m_uuids; }
    [[nodiscard]] const Calendar& calendar() const { return m_calendar; }
    [[nodiscard]] const Locale& locale() const { return m_locale; }

    /// "quillary" in the user's data folder (XDG base directories).
    [[nodiscard]] std::filesystem::path libraryFolder() const;
    /// "quillary" in the user's folder for settings, and in the one for what a program remembers by itself.
    [[nodiscard]] std::filesystem::path configurationFolder() const;
    [[nodiscard]] std::filesystem::path stateFolder() const;

    [[nodiscard]] std::filesystem::path downloadsFolder() const;
    [[nodiscard]] std::filesystem::path homeFolder() const { return m_home; }

    /// Whether there is a screen to show something on.
    [[nodiscard]] bool hasDisplay() const { return m_hasDisplay; }

    /// The file that this program was started from.
    [[nodiscard]] std::filesystem::path programFile() const;

private:
    SystemClock m_clock;
    RandomUUIDSource m_uuids;
    Calendar m_calendar;
    Locale m_locale;
    std::filesystem::path m_home;
    bool m_hasDisplay;
};

} // namespace Quillary
