#pragma once

#include "QuillaryCore/Foundation/UserError.h"

#include <string>
#include <utility>

namespace Quillary {

/// A library that can't be opened, read or written. The message is for the user, `details` for the log.
class StoreError : public UserError
{
public:
    enum class Reason {
        notALibrary,   ///< the file is something else, or damaged beyond reading
        newerLibrary,  ///< written by a later version of Quillary
        unknownSchema, ///< tables that no version of Quillary wrote
        inUse,         ///< another program holds the library
        readOnly,      ///< file or folder can't be written
        diskFull,
        noAccess, ///< file or folder can't be opened or made
        refused,  ///< saving was refused, see `Context::refuseSaving`
        failed,   ///< any other failure of reading or writing
    };

    StoreError(Reason reason, const std::string& message, std::string details = {})
        : UserError(message)
        , m_reason(reason)
        , m_details(std::move(details))
    {
    }

    [[nodiscard]] Reason reason() const { return m_reason; }

    /// What a log needs and a person doesn't: the extended code, SQLite's own words and the statement. May be empty.
    [[nodiscard]] const std::string& details() const { return m_details; }

private:
    Reason m_reason;
    std::string m_details;
};

} // namespace Quillary
