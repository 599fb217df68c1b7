#pragma once

#include "QuillaryUI/Assistant/Descriptor.h"

#include <functional>
#include <memory>

class QSocketNotifier;

namespace Quillary {

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into a call on the main thread. One at a time.
class StopSignals
{
public:
    explicit StopSignals(std::function<void()> stop);
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;
    ~StopSignals();

private:
    Descriptor m_reader;
    Descriptor m_writer;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Quillary
