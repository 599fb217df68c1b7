#pragma once

#include <QDebug>

namespace Quillary {

/// Keeps Qt's debug lines and warnings off standard error for as long as the object lives; failures still pass. For
/// calls whose outcome is checked anyway. One at a time, on the main thread.
class QuietMessages
{
public:
    QuietMessages();
    QuietMessages(const QuietMessages&) = delete;
    QuietMessages& operator=(const QuietMessages&) = delete;
    ~QuietMessages();
};

} // namespace Quillary
