#include "QuillaryUI/Library/DocumentPage.h"

#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Library/LibraryAccess.h"

namespace Quillary {

LivePage::Source documentPage(const LibraryAccess& library, std::int64_t key)
{
    return [&library, key]() -> std::optional<PageJob> {
        const Document* document = library.isOpen() ? library.context().find(Ref<Document>(key)) : nullptr;
        if (document == nullptr) {
            return std::nullopt;
        }
        return pageJob(library.context(), *document, library.business(), library.formats().calendar());
    };
}

} // namespace Quillary
