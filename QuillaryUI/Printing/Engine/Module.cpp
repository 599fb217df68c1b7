#include "QuillaryUI/Printing/Engine/WebPagePrinter.h"
#include "QuillaryUI/Printing/PrintingModule.h"

namespace Quillary {
namespace {

std::unique_ptr<PagePrinter> makeWebPagePrinter(PrinterLimits limits)
{
    return std::make_unique<WebPagePrinter>(limits);
}

} // namespace

extern "C" {
extern __attribute__((visibility("default"))) const PrintingModule quillaryPrintingModule;
const PrintingModule quillaryPrintingModule{.build = printingBuild, .makePrinter = makeWebPagePrinter};
}

} // namespace Quillary
