#pragma once

#include "QuillaryCore/Store/LibraryLock.h"
#include "QuillaryUI/Assistant/AssistantServer.h"
#include "QuillaryUI/Assistant/Descriptor.h"

#include <filesystem>
#include <memory>

namespace Quillary {

/// A served library while somebody else uses it: a command that borrows it, or a Quillary that takes it over. Until that
/// one has said so, everything is still here to go on with.
class LibraryLoan
{
public:
    enum class Kind {
        lent,       ///< the lock alone, until the borrower closes
        handedOver, ///< the assistants too, for good
    };

    /// What is given.
    struct Contents
    {
        std::unique_ptr<LibraryLock> lock; ///< of which the other one gets a copy
        AssistantServer::Handover assistants;
    };

    LibraryLoan(Kind kind, Descriptor asker, Contents contents);

    /// Gives it to the one who asked. False: nobody has it.
    [[nodiscard]] bool give(const std::filesystem::path& socketPath);

    enum class Word { none, returned, takenOver };

    /// What the other one has said since. A borrower is done when it closes, whatever it says before. One that takes
    /// over says so; if it closes without a word, it has failed.
    [[nodiscard]] Word hear() const;

    /// Readable when there is something to hear.
    [[nodiscard]] int asker() const { return m_asker.number(); }

    /// Whether the other one may be serving the assistants now: their socket is no longer this program's to remove.
    [[nodiscard]] bool isElsewhere() const { return m_kind == Kind::handedOver && m_contents.lock != nullptr; }

    /// Everything, for this program to go on with.
    [[nodiscard]] Contents takeBack();

private:
    [[nodiscard]] bool lend() const;
    [[nodiscard]] bool handOver(const std::filesystem::path& socketPath);

    Kind m_kind;
    Descriptor m_asker;
    Contents m_contents;
};

} // namespace Quillary
