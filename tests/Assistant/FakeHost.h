#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantHost.h"

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

namespace Quillary {

/// Prints every page as "PDF", and keeps the mail that was laid before the user.
class FakeHost final : public AssistantHost
{
public:
    void printPage(PageJob /*job*/, std::function<void(PageOutcome)> reply) override
    {
        if (!failure.empty()) {
            reply(failure);
            return;
        }
        reply(Bytes{'P', 'D', 'F'});
    }

    void prepareEmail(MailDraft draft, std::string name, std::function<void(EmailOutcome)> reply) override
    {
        mail = std::move(draft);
        reply(PreparedEmail{.file = "/downloads/" + name + ".eml", .isOpened = false});
    }

    Bytes pageImage(const Bytes& /*pdf*/, int /*pageIndex*/, int /*pixelWidth*/) override { return {}; }
    [[nodiscard]] std::filesystem::path downloadsFolder() const override { return downloads; }
    [[nodiscard]] std::filesystem::path homeFolder() const override { return home; }

    std::optional<MailDraft> mail;
    std::filesystem::path downloads = "/downloads";
    std::filesystem::path home = "/home";
    std::string failure; ///< why nothing can be printed; empty: all is well
};

} // namespace Quillary
