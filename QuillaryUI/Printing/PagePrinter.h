#pragma once

#include "QuillaryUI/Printing/PrintJob.h"

#include <chrono>
#include <filesystem>
#include <memory>

namespace Quillary {

/// What the printer allows itself.
struct PrinterLimits
{
    /// For one job, counted from its start. A page of a thousand sheets takes about 20 s on a slow machine.
    std::chrono::milliseconds timeout = std::chrono::minutes(2);
    /// After this long without a job the page object goes, and with it its renderer process and some 100 MiB.
    std::chrono::milliseconds rest = std::chrono::minutes(1);
};

/// Turns HTML pages into PDF, and pages of a PDF into pictures.
///
/// What is printed runs no script and reaches neither the network nor any file. The engine starts with the first job
/// or with `warmUp`; one page object is kept and reused. Belongs to the main thread, needs a `QGuiApplication`, and must
/// be destroyed before it.
class PagePrinter
{
public:
    PagePrinter() = default;
    PagePrinter(const PagePrinter&) = delete;
    PagePrinter& operator=(const PagePrinter&) = delete;
    virtual ~PagePrinter() = default;

    /// Prints after the jobs that wait already. Never answers before it returns. A renderer that died is replaced, and
    /// the job tried once more. Jobs that wait when the printer is destroyed are dropped without an answer.
    virtual void print(PrintJob job, PrintReply reply) = 0;

    /// Runs the event loop until the job is done: for commands at the outermost level, never within a change of the
    /// model. Throws: `PrintError`.
    [[nodiscard]] virtual PrintedPDF printAndWait(PrintJob job) = 0;

    /// Starts the engine ahead of the first job, which it makes three times as quick.
    virtual void warmUp() = 0;

    /// Throws: `PrintError`.
    [[nodiscard]] virtual int pageCount(const Bytes& pdf) const = 0;

    /// A page on white paper as PNG. Unit: pixels, 16 to 4,000 wide; a width outside is brought inside. Throws:
    /// `PrintError`.
    [[nodiscard]] virtual Bytes pageImage(const Bytes& pdf, int pageIndex, int pixelWidth) const = 0;

    /// The same for drawing at once.
    [[nodiscard]] virtual PagePicture pagePicture(const Bytes& pdf, int pageIndex, int pixelWidth) const = 0;

    /// A vector picture (SVG) as PNG with its transparency, at most `pixelWidth` by `pixelHeight`; the renderer is given
    /// 20 s. Runs the event loop like `printAndWait`. Throws: `PrintError`.
    [[nodiscard]] virtual Bytes vectorImage(const Bytes& svg, int pixelWidth, int pixelHeight) = 0;
};

/// Loads the module that prints from `moduleFolder`. The web engine lives in it alone, since linking the engine would
/// more than double the start of a command that prints nothing. The module stays loaded. Throws: `PrintError`.
[[nodiscard]] std::unique_ptr<PagePrinter> loadPagePrinter(const std::filesystem::path& moduleFolder,
                                                           PrinterLimits limits = {});

} // namespace Quillary
