#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace Quillary {

/// What a recurring invoice owes by today and has not made.
struct OwedInvoice
{
    QString day;
    QString obstacle; ///< a sentence that says why it can't be made; empty: it can, and only waits for its run

    /// No value: nothing is owed.
    [[nodiscard]] static std::optional<OwedInvoice> of(LibraryAccess& library, std::int64_t recurring);

    /// What a run could not make, in one sentence for all of it. `first` is the core's.
    [[nodiscard]] static QString notice(const std::string& first, std::size_t count);
};

} // namespace Quillary
