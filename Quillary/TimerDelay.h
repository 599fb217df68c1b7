#pragma once

#include "QuillaryCore/Assistant/Access/ApprovalAsker.h"

#include <QTimer>

#include <utility>

namespace Quillary {

/// Later by Qt's clock.
class TimerDelay final : public Delay
{
public:
    [[nodiscard]] std::unique_ptr<Pending> after(std::chrono::milliseconds time, std::function<void()> action) override
    {
        return std::make_unique<Timer>(time, std::move(action));
    }

private:
    class Timer final : public Pending
    {
    public:
        Timer(std::chrono::milliseconds time, std::function<void()> action)
        {
            m_timer.setSingleShot(true);
            // A copy runs: what it does may destroy this object.
            QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [action = std::move(action)] {
                const std::function<void()> copy = action;
                copy();
            });
            m_timer.start(time);
        }

    private:
        QTimer m_timer;
    };
};

} // namespace Quillary
