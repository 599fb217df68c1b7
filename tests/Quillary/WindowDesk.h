#pragma once

#include "Quillary/AppEnvironment.h"
#include "Quillary/Desktop.h"
#include "Quillary/OpenLibrary.h"
#include "Quillary/PrintingHost.h"

#include <filesystem>
#include <memory>

namespace Quillary {

/// A person's desk with the window on it: the real library, service and page engine in a home of their own; only the
/// screen is missing. One in a process, since the engine starts but once, and gone before the program's static objects.
class WindowDesk
{
public:
    /// `home` is a folder that is there, and stays.
    explicit WindowDesk(const std::filesystem::path& home);
    WindowDesk(const WindowDesk&) = delete;
    WindowDesk& operator=(const WindowDesk&) = delete;
    ~WindowDesk();

    std::unique_ptr<AppEnvironment> environment;
    std::unique_ptr<PrintingHost> host;
    std::unique_ptr<Desktop> desktop;
    std::unique_ptr<AssistantService> service;
};

} // namespace Quillary
