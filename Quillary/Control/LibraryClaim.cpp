#include "Quillary/Control/LibraryClaim.h"

#include "Quillary/Control/ControlMessage.h"
#include "Quillary/Control/ControlSocket.h"
#include "QuillaryChannel/AssistantChannel.h"
#include "QuillaryCore/Store/StoreError.h"

#include <chrono>
#include <optional>
#include <thread>
#include <utility>

namespace Quillary {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds betweenTries{20};

/// A lender first ends the call it is at, which may print a long document.
constexpr milliseconds patienceWithLender{150'000};

enum class Lender { answered, hungUp, absent };

/// `claim` is set where the lender answered. One that hangs up has ended, or handed over to another.
Lender borrow(const std::filesystem::path& folder, LibraryClaim& claim)
{
    std::optional<Descriptor> lender;
    try {
        lender = ControlSocket::connect(folder);
    } catch (const AssistantChannel::Error&) {
        return Lender::absent; // without a place for sockets nobody listens on one
    }
    if (!lender) {
        return Lender::absent;
    }
    if (!ControlChannel::send(lender->number(), {.body = JSON::object({{"do", "lend"}})})) {
        return Lender::hungUp;
    }
    std::optional<ControlMessage> answer = ControlChannel::receive(lender->number(), patienceWithLender);
    if (!answer || answer->descriptors.size() != 1) {
        return Lender::hungUp;
    }
    claim = {.lender = std::move(*lender), .lock = LibraryLock::adopted(answer->descriptors.front().release())};
    return Lender::answered;
}

} // namespace

LibraryClaim claimLibrary(const std::filesystem::path& folder, milliseconds patience)
{
    const auto start = steady_clock::now();
    auto lastLender = start; // or the start
    for (;;) {
        try {
            return {.lender = {}, .lock = std::make_unique<LibraryLock>(folder)};
        } catch (const StoreError& error) {
            if (error.reason() != StoreError::Reason::inUse) {
                throw;
            }
            LibraryClaim claim;
            const Lender lender = borrow(folder, claim);
            const auto now = steady_clock::now();
            switch (lender) {
            case Lender::answered:
                return claim;
            case Lender::hungUp:
                lastLender = now;
                break;
            case Lender::absent:
                break;
            }
            if (now >= lastLender + patience || now >= start + patienceWithLender) {
                throw;
            }
        }
        std::this_thread::sleep_for(betweenTries);
    }
}

} // namespace Quillary
