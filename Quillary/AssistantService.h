#pragma once

#include "Quillary/Control/ControlSocket.h"
#include "Quillary/LibraryExchange.h"
#include "Quillary/LibraryLoan.h"
#include "Quillary/OpenLibrary.h"
#include "Quillary/RecurringCatchUp.h"
#include "Quillary/ServingRight.h"
#include "Quillary/TerminalAsker.h"
#include "Quillary/TimerDelay.h"
#include "QuillaryCore/Assistant/Access/ActivityLog.h"
#include "QuillaryCore/Assistant/Access/AppLock.h"
#include "QuillaryCore/Assistant/Access/AssistantGate.h"
#include "QuillaryCore/Assistant/Access/AssistantSettingsFile.h"
#include "QuillaryCore/Lock/LockFile.h"
#include "QuillaryCore/Schedules/DailyRun.h"
#include "QuillaryUI/Assistant/AssistantServer.h"

#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

class AppEnvironment;
class PrintingHost;

/// The lock that the user's windows close and open.
class UserLock final : public AppLock
{
public:
    explicit UserLock(std::filesystem::path file)
        : m_file(std::move(file))
    {
    }

    [[nodiscard]] bool isLocked() const override { return m_file.isLocked(); }

private:
    mutable LockFile m_file; ///< which remembers what it has read
};

/// The windows of a program that serves its library and shows it.
class LibraryWindows
{
public:
    LibraryWindows() = default;
    LibraryWindows(const LibraryWindows&) = delete;
    LibraryWindows& operator=(const LibraryWindows&) = delete;
    virtual ~LibraryWindows() = default;

    /// The library is there, for the first time or again.
    virtual void didOpen(OpenLibrary& library) = 0;
    /// It is about to be lent or closed: what was typed is saved now.
    virtual void willClose() = 0;
    /// A second start asks for the window; `section` is empty or names one.
    virtual void show(const std::string& section) = 0;
    /// Another day, and what came of its recurring invoices.
    virtual void dayBegan(const RecurringCatchUp::Outcome& recurring) = 0;
    /// An assistant has done something.
    virtual void didCall(const AssistantClient& client, const AssistantTool& tool, const ToolResult& result) = 0;
};

/// Serves one library to assistant apps, and lends it to the user's own commands between their calls. Makes the recurring
/// invoices that are due when it starts and after each midnight.
///
/// Belongs to the main thread and needs its event loop. Whoever holds a library offers three things over its control
/// socket: to lend it ("lend"), which a command asks for; to hand everything over ("hand over"), which a Quillary asks
/// for that stays; and to come to the front ("show"), which a second start asks of one with windows.
class AssistantService
{
public:
    struct Options
    {
        std::filesystem::path library;
        std::filesystem::path socket;
        std::filesystem::path settings;
        std::filesystem::path log;
        std::filesystem::path lock = {}; ///< empty: nothing is ever locked
        /// Started for a helper and without a user in front of it: gives way to a Quillary that somebody started.
        bool isBackground = false;
        /// A background service ends after this long without a connection.
        std::chrono::milliseconds idleTime = std::chrono::minutes(5);
        ApprovalAsker* asker = nullptr; ///< null: nobody can be asked
        bool makesRecurring = true;     ///< makes the recurring invoices that are due
        LibraryWindows* windows = nullptr;
    };

    /// `end` is called when there is nothing more to serve, with the program's exit status.
    AssistantService(Options options, AppEnvironment& environment, PrintingHost& host, std::function<void(int)> end);
    AssistantService(const AssistantService&) = delete;
    AssistantService& operator=(const AssistantService&) = delete;
    ~AssistantService();

    /// Gets the right to the library: takes the lock, or has everything handed over by a Quillary in the background, which
    /// it may have to wait for. Throws: `UserError`.
    void claim();

    /// After `claim`: opens the library and listens. Throws: `UserError`.
    void start();

    /// Puts a backup in the place of the library between two calls: it is closed, exchanged and opened anew. What was
    /// there is kept, and is there again when the restored one can't be opened. `done` hears of it once all is open.
    void restore(std::filesystem::path backup, std::function<void(const RestoreOutcome&)> done);

    /// The program was asked to end.
    void stop();

    [[nodiscard]] const std::filesystem::path& socketPath() const { return m_socketPath; }

private:
    void takeOver(ServingRight::Taken taken);
    void openLibrary(LibraryClaim claim);
    void tellClosing();
    void listen();
    void backUpIfDue();
    void catchUpIfDue();
    void end(int status);
    void guarded(const std::function<void()>& work);
    [[nodiscard]] std::unique_ptr<MCPSession> makeSession();
    void didCall(const AssistantClient& client, const AssistantTool& tool, const ToolResult& result);

    void didAsk(const ControlMessage& request, Descriptor asker);
    [[nodiscard]] std::string refusal(const ControlMessage& request) const;
    void serveNext();
    void give(AssistantServer::Handover assistants);
    void hear();
    void exchange(AssistantServer::Handover assistants);
    void didExchange();
    [[nodiscard]] RestoreOutcome openRestored(LibraryExchange& exchange);
    void goOn();
    void endWhenIdle();

    struct Request
    {
        LibraryLoan::Kind kind = LibraryLoan::Kind::lent;
        Descriptor asker = {};
        std::filesystem::path backup = {}; ///< not empty: the user's own wish, to restore it
        std::function<void(const RestoreOutcome&)> done = {};
    };

    Options m_options;
    AppEnvironment& m_environment;
    PrintingHost& m_host;
    std::function<void(int)> m_end;
    std::filesystem::path m_socketPath;
    UserLock m_lock;
    TimerDelay m_delay;
    AssistantSettingsFile m_settings;
    ActivityLog m_log;
    AssistantGate m_gate;
    std::unique_ptr<OpenLibrary> m_library;
    std::unique_ptr<AssistantServer> m_server; ///< goes before the library that its sessions work on
    std::unique_ptr<ControlServer> m_control;
    ServingRight m_right;                    ///< between `claim` and `start`
    std::deque<Request> m_requests;          ///< the first is being served
    std::unique_ptr<LibraryLoan> m_loan;     ///< what others use meanwhile
    std::unique_ptr<QSocketNotifier> m_word; ///< of who was given something
    std::unique_ptr<LibraryExchange> m_exchange;
    AssistantServer::Handover m_waiting; ///< assistants, while the library is exchanged
    bool m_hasEnded = false;
    QTimer m_idle;
    int m_idleLooks = 0; ///< in a row, without a connection
    QTimer m_backups;
    QTimer m_days; ///< looks for the next one
    DailyRun m_recurring;
};

} // namespace Quillary
