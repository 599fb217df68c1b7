#pragma once

#include "QuillaryUI/Printing/PagePrinter.h"

#include <memory>
#include <string_view>

namespace Quillary {

/// What the module offers under the name `printingModuleSymbol`, an object of this type.
struct PrintingModule
{
    std::string_view build; ///< equals `printingBuild` of the program, or the module is another version's
    std::unique_ptr<PagePrinter> (*makePrinter)(PrinterLimits limits);
};

inline constexpr std::string_view printingModuleFile = "libquillary-printing.so";
inline constexpr const char* printingModuleSymbol = "quillaryPrintingModule";

/// Version and compiler: objects cross the border, so both sides must be built alike.
inline constexpr std::string_view printingBuild = QUILLARY_VERSION " " __VERSION__;

} // namespace Quillary
