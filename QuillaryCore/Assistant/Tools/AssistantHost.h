#pragma once

#include "QuillaryCore/Letters/MailDraft.h"
#include "QuillaryCore/Output/TemplateSettings.h"
#include "QuillaryCore/Store/Field.h"

#include <filesystem>
#include <functional>
#include <string>
#include <variant>

namespace Quillary {

/// A page to be printed, with what a reader of the PDF is told about it.
struct PageJob
{
    std::string html; ///< one self-contained page, UTF-8
    PageGeometry geometry;
    std::string title;        ///< the PDF's title
    std::string languageCode; ///< BCP 47
    std::string pageLabel;    ///< "Page {page} of {pages}" in the document's language
    std::string labelFamily;  ///< the typeface of the page numbers, a CSS font family
};

/// A finished PDF, or the sentence that says why there is none.
using PageOutcome = std::variant<Bytes, std::string>;

/// An email that lies before the user.
struct PreparedEmail
{
    std::filesystem::path file; ///< the draft; empty where a window shows it
    bool isOpened = false;      ///< it is on the screen
};

/// A prepared email, or the sentence that says why there is none.
using EmailOutcome = std::variant<PreparedEmail, std::string>;

/// The application side of the operations that need its printer, its windows or the user's folders.
class AssistantHost
{
public:
    AssistantHost() = default;
    AssistantHost(const AssistantHost&) = delete;
    AssistantHost& operator=(const AssistantHost&) = delete;
    virtual ~AssistantHost() = default;

    /// Prints a page and hands over the outcome later, on the same thread.
    virtual void printPage(PageJob job, std::function<void(PageOutcome)> reply) = 0;

    /// Lays an email before the user to check and send, and hands over the outcome later, on the same thread. It sends
    /// nothing. `name` is that of a file for it, without ending.
    virtual void prepareEmail(MailDraft mail, std::string name, std::function<void(EmailOutcome)> reply) = 0;

    /// A page of a PDF as PNG, `pixelWidth` wide. Throws: `UserError`.
    [[nodiscard]] virtual Bytes pageImage(const Bytes& pdf, int pageIndex, int pixelWidth) = 0;

    /// Where the user's downloads go.
    [[nodiscard]] virtual std::filesystem::path downloadsFolder() const = 0;

    /// What "~" stands for.
    [[nodiscard]] virtual std::filesystem::path homeFolder() const = 0;
};

} // namespace Quillary
