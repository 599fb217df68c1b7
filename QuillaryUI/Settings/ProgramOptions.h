#pragma once

/// How the program behaves on this desktop, kept with its other settings of this machine and not in the library.
namespace Quillary::ProgramOptions {

/// Closing the window leaves the program in the tray, where the desktop has one.
[[nodiscard]] bool staysInTray();
void setStaysInTray(bool stays);

/// The desktop shows what is due, overdue and made by itself.
[[nodiscard]] bool showsNotices();
void setShowsNotices(bool shows);

} // namespace Quillary::ProgramOptions
