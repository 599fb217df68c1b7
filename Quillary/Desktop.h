#pragma once

#include "Quillary/AssistantService.h"
#include "Quillary/RecurringCatchUp.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Main/ApprovalDialog.h"
#include "QuillaryUI/Main/MainWindow.h"
#include "QuillaryUI/Notices/DueTeller.h"
#include "QuillaryUI/Settings/ProgramPlaces.h"

#include <memory>
#include <string>
#include <vector>

namespace Quillary {

class AppEnvironment;
class PrintingHost;

/// The windows over a library that is served. The window stays when the library is lent, and shows it again afterwards.
class Desktop final : public LibraryWindows
{
public:
    Desktop(AppEnvironment& environment, PrintingHost& host, ProgramPlaces places);

    void didOpen(OpenLibrary& library) override;
    void willClose() override;
    void show(const std::string& section) override;
    void dayBegan(const RecurringCatchUp::Outcome& recurring) override;
    void didCall(const AssistantClient& client, const AssistantTool& tool, const ToolResult& result) override;

    [[nodiscard]] ApprovalAsker& asker() { return m_asker; }
    [[nodiscard]] LibraryAccess& library() { return m_library; }

    /// The window, made when it is first asked for: the library is open then.
    [[nodiscard]] MainWindow& window();

private:
    void tellDay();
    void tellFailures();

    AppEnvironment& m_environment;
    PrintingHost& m_host;
    ProgramPlaces m_places;
    LibraryAccess m_library;
    DueTeller m_teller{m_library};
    std::unique_ptr<MainWindow> m_window;
    std::vector<RecurringCatchUp::Failure> m_failures; ///< which the window has not told of yet
    ApprovalDialog m_asker;
};

} // namespace Quillary
