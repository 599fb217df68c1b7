#include "QuillaryUI/Printing/QuietMessages.h"

#include <atomic>

namespace Quillary {
namespace {

// Qt calls a plain function, from any thread.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
std::atomic<QtMessageHandler> handlerBefore = nullptr;

void passFailures(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const QtMessageHandler before = handlerBefore;
    if ((type == QtCriticalMsg || type == QtFatalMsg) && before != nullptr) {
        before(type, context, message);
    }
}

} // namespace

QuietMessages::QuietMessages()
{
    handlerBefore = qInstallMessageHandler(passFailures);
}

QuietMessages::~QuietMessages()
{
    qInstallMessageHandler(handlerBefore);
}

} // namespace Quillary
