#include "Quillary/StopSignals.h"

#include "QuillaryCore/Foundation/Precondition.h"

#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace Quillary {

namespace {

constexpr std::array endings = {SIGTERM, SIGINT, SIGHUP};

/// A signal may come in the middle of anything, so its handler may only write to a pipe.
std::atomic<int> pipeEnd = -1; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): a handler has no argument

void wake(int /*signal*/)
{
    const char byte = 0;
    [[maybe_unused]] const ssize_t count = write(pipeEnd, &byte, 1);
}

} // namespace

StopSignals::StopSignals(std::function<void()> stop)
{
    std::array<int, 2> ends{};
    const bool isMade = pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) == 0;
    precondition(isMade, "a program that starts may open a pipe");
    m_reader = Descriptor(ends[0]);
    m_writer = Descriptor(ends[1]);
    m_notifier = std::make_unique<QSocketNotifier>(m_reader.number(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this, stop = std::move(stop)] {
        m_notifier->setEnabled(false);
        stop();
    });
    pipeEnd = m_writer.number();
    struct sigaction action = {};
    action.sa_handler = wake;
    action.sa_flags = SA_RESTART;
    for (const int signal : endings) {
        sigaction(signal, &action, nullptr);
    }
}

StopSignals::~StopSignals()
{
    for (const int signal : endings) {
        std::signal(signal, SIG_DFL); // NOLINT(bugprone-signal-handler,cert-sig30-c): the default is no handler
    }
    pipeEnd = -1;
}

} // namespace Quillary
