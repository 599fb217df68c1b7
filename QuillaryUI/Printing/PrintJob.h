#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Output/PageMark.h"
#include "QuillaryCore/Output/TemplateSettings.h"
#include "QuillaryCore/Store/Field.h"

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Quillary {

/// One page out of a document.
struct LonePage
{
    int index = 0;
    int pageCount = 0; ///< of the whole document, as its label says
};

/// A page to be printed, with what a reader of the PDF is told about it. All texts are UTF-8.
struct PrintJob
{
    std::string html; ///< one self-contained page of any length; pictures are data URLs
    PageGeometry geometry;
    std::string title;
    std::string languageCode; ///< BCP 47
    /// Printed in the bottom margin of every page of a document of more than one page; "{page}" and "{pages}" become
    /// the page's number and the number of pages. Empty: no page carries a number.
    std::string pageLabel;
    /// The typeface of the page numbers: the first family of the page's own font stack.
    std::string labelFamily = "system-ui";
    Instant createdAt; ///< the creation date in the PDF's properties
    /// Prints this page and no other; it has to be there.
    std::optional<LonePage> lonePage = std::nullopt;
};

/// A finished file: the same job gives the same bytes.
struct PrintedPDF
{
    Bytes bytes;
    int pageCount = 0;
    std::vector<PageMark> marks =
        {}; ///< of the elements that a link of the page leads to; the file has no trace of them
};

/// A page as it is drawn on a screen: white paper, four bytes a pixel (red, green, blue, unused), rows without gaps.
struct PagePicture
{
    int width = 0; ///< pixels
    int height = 0;
    Bytes pixels;
};

/// Why there is no PDF, or no picture of one.
class PrintError : public UserError
{
public:
    enum class Reason {
        moduleMissing,   ///< the part of the program that prints is not where it was installed
        sandboxRefused,  ///< the system does not let the renderer lock itself in
        loadFailed,      ///< the renderer did not accept the page
        rendererStopped, ///< the renderer died, twice
        timedOut,
        noPages,    ///< the renderer handed back nothing
        damagedPDF, ///< what should be a PDF is none
        noSuchPage,
    };

    PrintError(Reason reason, const std::string& message)
        : UserError(message)
        , m_reason(reason)
    {
    }

    [[nodiscard]] Reason reason() const { return m_reason; }

private:
    Reason m_reason;
};

using PrintResult = std::variant<PrintedPDF, PrintError>;

/// Called once, later, on the main thread. Must not throw; may start the next job.
using PrintReply = std::function<void(PrintResult)>;

} // namespace Quillary
