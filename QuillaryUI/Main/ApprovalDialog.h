#pragma once

#include "QuillaryCore/Assistant/Access/ApprovalAsker.h"

namespace Quillary {

/// Puts a new assistant to the user in a dialog while its call waits. The window stays usable beside it.
class ApprovalDialog final : public ApprovalAsker
{
public:
    [[nodiscard]] std::unique_ptr<Question> ask(const std::string& assistant, Answer answer) override;
};

} // namespace Quillary
