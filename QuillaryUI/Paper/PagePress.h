#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantHost.h"
#include "QuillaryUI/Printing/PrintJob.h"

namespace Quillary {

/// What the windows ask of the printer: a page as PDF, and that PDF as pictures for the screen.
class PagePress
{
public:
    PagePress() = default;
    PagePress(const PagePress&) = delete;
    PagePress& operator=(const PagePress&) = delete;
    virtual ~PagePress() = default;

    /// Prints after the jobs that wait already, and answers later on the same thread, also when the printer can't be had.
    virtual void press(PageJob job, PrintReply reply) = 0;

    /// Unit: pixels. Throws: `PrintError`.
    [[nodiscard]] virtual PagePicture picture(const Bytes& pdf, int pageIndex, int pixelWidth) = 0;

    /// Starts the engine ahead of the first page. Where it can't be had the first page says so.
    virtual void warmUp() = 0;

    /// Prints one page of it alone, after the other lone pages and beside whole documents: in a process of its own, since
    /// a print that is under way can't be interrupted.
    virtual void pressPage(PageJob job, LonePage page, PrintReply reply) = 0;

    /// Starts that process ahead of the first lone page.
    virtual void warmUpForPages() = 0;
};

} // namespace Quillary
