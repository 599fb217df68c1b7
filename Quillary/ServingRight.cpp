#include "Quillary/ServingRight.h"

#include "Quillary/Control/ControlSocket.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/UserError.h"

#include <chrono>
#include <string>
#include <system_error>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

/// The other Quillary first ends the call it is at, which may print a long document.
constexpr milliseconds handoverPatience{150'000};
/// So many times a Quillary that began to serve just now is asked for everything.
constexpr int mostTries = 5;
/// The helper, which starts a service in the background, waits for ten seconds.
constexpr milliseconds backgroundPatience{9'000};

/// Asks the Quillary that holds the library, if one does. No value: none does.
std::optional<ServingRight::Taken> takenOver(const fs::path& library, const fs::path& socket, bool isBackground)
{
    std::optional<Descriptor> holder = ControlSocket::connect(library);
    if (!holder) {
        return std::nullopt;
    }
    if (isBackground) {
        throw UserError(ServingRight::alreadyRunning);
    }
    const ControlMessage request{
        .body = JSON::object({{"do", "hand over"}, {"socket", ServingRight::comparable(socket).string()}})};
    if (!ControlChannel::send(holder->number(), request)) {
        return std::nullopt;
    }
    std::optional<ControlMessage> answer = ControlChannel::receive(holder->number(), handoverPatience);
    if (!answer) {
        return std::nullopt; // it has just ended; the library says so itself if not
    }
    if (const std::string refusal = answer->text("refusal"); !refusal.empty()) {
        throw UserError(refusal);
    }
    std::optional<Handover> handover = Handover::unpacked(std::move(*answer));
    if (!handover) {
        throw UserError("The running Quillary couldn't hand the library over. Close it, then try again.");
    }
    return ServingRight::Taken{.holder = std::move(*holder), .handover = std::move(*handover)};
}

} // namespace

ServingRight ServingRight::obtain(const fs::path& library, const fs::path& socket, bool isBackground)
{
    ServingRight right;
    for (int tries = 0; !(right.taken = takenOver(library, socket, isBackground)); ++tries) {
        LibraryClaim claim;
        if (fs::is_directory(library)) {
            claim = claimLibrary(library, isBackground ? backgroundPatience : patienceWithCommands);
        }
        if (!claim.lender.isOpen()) {
            right.claim = std::move(claim);
            break;
        }
        // Somebody serves since just now. A loan is not for good; what was lent goes back, and everything is asked for.
        if (tries == mostTries) {
            throw UserError(alreadyRunning);
        }
    }
    return right;
}

fs::path ServingRight::comparable(const fs::path& path)
{
    std::error_code failure;
    fs::path whole = fs::weakly_canonical(path, failure);
    return failure ? path : whole;
}

} // namespace Quillary
