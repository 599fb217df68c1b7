#pragma once

#include "QuillaryCore/Assistant/Session/LineBuffer.h"
#include "QuillaryUI/Assistant/Descriptor.h"
#include "QuillaryUI/Assistant/WakeUp.h"

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

namespace Quillary {

/// Where the main thread leaves what a connection's thread waits for. Shared by the connection and the call under way,
/// either of which may end first.
class AnswerBox
{
public:
    enum class Order {
        goOn,
        park,   ///< take no further line, and stop with everything kept
        hangUp, ///< stop at once
    };

    /// The answer to the line that was handed over; no value: there is none to write.
    void put(std::optional<std::string> answer);
    void give(Order order);

    /// No value: it hasn't come yet.
    [[nodiscard]] std::optional<std::optional<std::string>> takeAnswer();
    [[nodiscard]] Order order() const;
    [[nodiscard]] const WakeUp& wakeUp() const { return m_wakeUp; }

private:
    mutable std::mutex m_mutex;
    std::optional<std::optional<std::string>> m_answer;
    Order m_order = Order::goOn;
    WakeUp m_wakeUp;
};

/// One assistant app on the line: reads, cuts lines and writes answers on a thread of its own, one line at a time. While
/// an answer is awaited only a little is read ahead, so a client that asks faster than it is answered waits in the kernel.
class AssistantConnection
{
public:
    /// What another process needs to go on with the connection.
    struct Parked
    {
        Descriptor socket;
        LineBuffer::State received; ///< and not handed over
        std::string unsent;         ///< the rest of the last answer
    };

    /// Called on the connection's thread.
    struct Events
    {
        /// A line; the answer goes into the box.
        std::function<void(std::string line, const std::shared_ptr<AnswerBox>&)> didReceive;
        /// A later line, come while that answer is awaited, that may take the call back. It is received in its turn too.
        std::function<void(std::string line)> mayCancel;
        /// The thread has nothing more to do: the other end has gone, or it was told to stop.
        std::function<void()> didEnd;
    };

    /// `patience`: how long a client may take no byte of an answer before it is given up.
    AssistantConnection(Parked from, std::chrono::milliseconds patience, Events events);
    AssistantConnection(const AssistantConnection&) = delete;
    AssistantConnection& operator=(const AssistantConnection&) = delete;
    ~AssistantConnection();

    /// Lets the call under way end and stops with everything kept. `didEnd` follows.
    void park() { m_box->give(AnswerBox::Order::park); }

    /// Waits for the thread to end. True when it was parked, false when the conversation is over.
    [[nodiscard]] bool wasParked();

    /// After `wasParked`.
    [[nodiscard]] Parked take();

private:
    void run();
    [[nodiscard]] bool write();
    [[nodiscard]] bool handOver(LineBuffer::Line line);
    [[nodiscard]] bool read();

    Descriptor m_socket;
    LineBuffer m_lines;
    std::string m_unsent;
    std::chrono::milliseconds m_patience;
    Events m_events;
    std::shared_ptr<AnswerBox> m_box = std::make_shared<AnswerBox>();
    bool m_isParked = false; ///< written by the thread before it ends
    std::thread m_thread;
};

} // namespace Quillary
