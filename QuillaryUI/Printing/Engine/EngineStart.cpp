#include "QuillaryUI/Printing/Engine/EngineStart.h"

#include "QuillaryUI/Printing/PrintJob.h"

#include <QByteArray>

#include <cstdlib>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Quillary::EngineStart {
namespace {

constexpr const char* sandboxVariable = "QTWEBENGINE_DISABLE_SANDBOX";

/// Tries in a child, since the attempt cannot be undone.
bool canMakeUserNamespace()
{
    const pid_t child = fork();
    if (child == 0) {
        _exit(unshare(CLONE_NEWUSER) == 0 ? 0 : 1);
    }
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && status == 0;
}

} // namespace

void settleSandbox()
{
    if (geteuid() == 0) {
        setenv(sandboxVariable, "1", 1);
        return;
    }
    if (qEnvironmentVariableIntValue(sandboxVariable) == 0 && !canMakeUserNamespace()) {
        throw PrintError(
            PrintError::Reason::sandboxRefused,
            "Pages can't be printed here, because this system doesn't let the page renderer lock itself in "
            "(user namespaces are off). Turn them on, or set QTWEBENGINE_DISABLE_SANDBOX=1.");
    }
}

void forbidHosts()
{
    constexpr const char* flagsVariable = "QTWEBENGINE_CHROMIUM_FLAGS";
    const QByteArray noHost = QByteArrayLiteral(" --host-resolver-rules=\"MAP * ~NOTFOUND\"");
    const QByteArray flags = qgetenv(flagsVariable);
    if (!flags.contains(noHost)) {
        qputenv(flagsVariable, flags + noHost);
    }
}

} // namespace Quillary::EngineStart
