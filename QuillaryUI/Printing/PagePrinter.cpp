#include "QuillaryUI/Printing/PagePrinter.h"

#include "QuillaryUI/Printing/PrintingModule.h"

#include <QCoreApplication>
#include <QOpenGLContext>

#include <fmt/format.h>

#include <dlfcn.h>

QT_BEGIN_NAMESPACE
// NOLINTNEXTLINE(readability-identifier-naming): Qt's own name; its header is private
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);
QT_END_NAMESPACE

namespace Quillary {
namespace {

[[noreturn]] void refuseModule(const std::string& why)
{
    throw PrintError(
        PrintError::Reason::moduleMissing,
        fmt::format("Pages can't be printed because a part of Quillary is missing. Please install it again. ({})",
                    why));
}

/// A web engine that comes after the application object takes the application's shared graphics context for granted,
/// and crashes without. One that was never opened serves: the engine then draws without graphics hardware, as a printer
/// should. Goes with the application.
void provideGraphicsContext()
{
    if (QOpenGLContext::globalShareContext() == nullptr) {
        qt_gl_set_global_share_context(new QOpenGLContext);
        qAddPostRoutine([] {
            delete QOpenGLContext::globalShareContext();
            qt_gl_set_global_share_context(nullptr);
        });
    }
}

} // namespace

std::unique_ptr<PagePrinter> loadPagePrinter(const std::filesystem::path& moduleFolder, PrinterLimits limits)
{
    provideGraphicsContext();
    const std::filesystem::path file = moduleFolder / printingModuleFile;
    // Never closed: the engine's threads run until the process ends.
    void* library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (library == nullptr) {
        refuseModule(dlerror());
    }
    const auto* module = static_cast<const PrintingModule*>(dlsym(library, printingModuleSymbol));
    if (module == nullptr || module->build != printingBuild) {
        refuseModule(file.string() + ": belongs to another version");
    }
    return module->makePrinter(limits);
}

} // namespace Quillary
