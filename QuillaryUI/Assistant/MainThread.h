#pragma once

#include "QuillaryUI/Assistant/WakeUp.h"

#include <QSocketNotifier>

#include <deque>
#include <functional>
#include <mutex>

namespace Quillary {

/// Takes work from any thread to the thread that made it, where its event loop does it in order.
class MainThread
{
public:
    using Task = std::move_only_function<void()>;

    MainThread();
    MainThread(const MainThread&) = delete;
    MainThread& operator=(const MainThread&) = delete;

    /// From any thread. Work that is left when the object goes is dropped.
    void post(Task task);

private:
    void runOne();

    std::mutex m_mutex;
    std::deque<Task> m_tasks;
    WakeUp m_wakeUp;
    QSocketNotifier m_notifier{m_wakeUp.descriptor(), QSocketNotifier::Read};
};

} // namespace Quillary
