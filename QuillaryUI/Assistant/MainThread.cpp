#include "QuillaryUI/Assistant/MainThread.h"

#include <utility>

namespace Quillary {

// A descriptor instead of a queued call: nothing is allocated on the way, and the thread sanitizer, which cannot see into
// Qt, sees that the tasks are handed over under the mutex.
MainThread::MainThread()
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { runOne(); });
}

void MainThread::post(Task task)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    m_wakeUp.ring();
}

/// One turn of the event loop for each task, so that windows stay alive while many assistants ask.
void MainThread::runOne()
{
    Task task;
    {
        const std::scoped_lock lock(m_mutex);
        m_wakeUp.silence();
        if (m_tasks.empty()) {
            return;
        }
        task = std::move(m_tasks.front());
        m_tasks.pop_front();
        if (!m_tasks.empty()) {
            m_wakeUp.ring();
        }
    }
    task();
}

} // namespace Quillary
