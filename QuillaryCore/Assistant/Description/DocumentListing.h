#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"
#include "QuillaryCore/Foundation/JSON.h"

#include <string>

namespace Quillary {

struct Document;

/// Documents in a list, one line each: what tells one from another, with the derived status and the stored figures.
class DocumentListing
{
public:
    explicit DocumentListing(const AssistantEnvironment& environment)
        : m_environment(environment)
        , m_today(environment.clock.now())
    {
    }

    [[nodiscard]] std::string text(const Document& document) const;
    [[nodiscard]] JSON data(const Document& document) const;

private:
    const AssistantEnvironment& m_environment;
    Instant m_today;
};

} // namespace Quillary
