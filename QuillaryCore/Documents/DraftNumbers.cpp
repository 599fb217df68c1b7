#include "QuillaryCore/Documents/DraftNumbers.h"

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/NumberedKind.h"
#include "QuillaryCore/Numbering/Numbering.h"
#include "QuillaryCore/Numbering/NumberingError.h"
#include "QuillaryCore/Store/Context.h"

namespace Quillary {

std::string DraftNumbers::take(const Desk& desk, DocumentKind kind, Instant issueDate, const Client* client)
{
    if (kind == DocumentKind::recurring) {
        return {};
    }
    try {
        return Numbering::assign(desk.context, numbered(kind), issueDate, client, desk.business, desk.calendar);
    } catch (const NumberingError& error) {
        const bool waitsForClient = error.reason() == NumberingError::Reason::missingClient ||
                                    error.reason() == NumberingError::Reason::missingClientNumber;
        if (waitsForClient && client == nullptr) {
            return {};
        }
        throw;
    }
}

bool DraftNumbers::giveBack(const Desk& desk, const Document& document, Instant issueDate, const Client* client)
{
    const NumberedKind series = numbered(kind(document).value_or(DocumentKind::invoice));
    return Numbering::releaseIfNewest(
        desk.context, document.number, series, issueDate, client, desk.business, desk.calendar);
}

bool DraftNumbers::giveBack(const Desk& desk, const Document& document)
{
    const Instant made = document.createdAt.value_or(desk.context.clock().now());
    return giveBack(desk, document, document.issueDate.value_or(made), desk.context.find(document.client));
}

} // namespace Quillary
