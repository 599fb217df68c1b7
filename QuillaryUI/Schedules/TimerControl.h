#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QString>

#include <cstdint>
#include <optional>

/// The timer that runs, as every window that shows it sees and stops it.
namespace Quillary::TimerControl {

/// How long it has run, as a clock shows it: "0:12:07". At zero when none runs or the library is away.
[[nodiscard]] QString clockText(const LibraryAccess& library);

/// What became of stopping: what to tell, and whether it is a refusal.
struct Outcome
{
    QString sentence;
    bool isRefused = false;
};

/// Stops what runs, as one step.
[[nodiscard]] Outcome stop(const LibraryAccess& library);

} // namespace Quillary::TimerControl
