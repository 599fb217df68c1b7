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

/// Another command, or a Quillary that is just starting, takes no longer than this.
constexpr milliseconds patienceWithCommands{1500};
constexpr milliseconds betweenTries{20};

/// A lender first ends the call it is at, which may print a long document.
constexpr milliseconds patienceWithLender{150'000};

std::optional<LibraryClaim> borrow(const std::filesystem::path& folder)
{
    std::optional<Descriptor> lender;
    try {
        lender = ControlSocket::connect(folder);
    } catch (const AssistantChannel::Error&) {
        return std::nullopt; // without a place for sockets nobody listens on one
    }
    if (!lender || !ControlChannel::send(lender->number(), {.body = JSON::object({{"do", "lend"}})})) {
        return std::nullopt;
    }
    std::optional<ControlMessage> answer = ControlChannel::receive(lender->number(), patienceWithLender);
    if (!answer || answer->descriptors.size() != 1) {
        return std::nullopt;
    }
    return LibraryClaim{.lender = std::move(*lender),
                        .lock = LibraryLock::adopted(answer->descriptors.front().release())};
}

} // namespace

LibraryClaim claimLibrary(const std::filesystem::path& folder)
{
    const auto deadline = std::chrono::steady_clock::now() + patienceWithCommands;
    for (;;) {
        try {
            return {.lender = {}, .lock = std::make_unique<LibraryLock>(folder)};
        } catch (const StoreError& error) {
            if (error.reason() != StoreError::Reason::inUse) {
                throw;
            }
            if (std::optional<LibraryClaim> lent = borrow(folder)) {
                return std::move(*lent);
            }
            if (std::chrono::steady_clock::now() >= deadline) {
                throw;
            }
        }
        std::this_thread::sleep_for(betweenTries);
    }
}

} // namespace Quillary
