#include "QuillaryCore/Assistant/Operations/PageJobs.h"

#include "QuillaryCore/Assistant/Operations/AssistantActions.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Numbering/FileNameFormat.h"
#include "QuillaryCore/Output/DocumentHTML.h"
#include "QuillaryCore/Output/DocumentStrings.h"
#include "QuillaryCore/Output/PrintedDocument.h"

namespace Quillary {

namespace {

DocumentStrings::Key kindLabel(const Document& document)
{
    switch (kind(document).value_or(DocumentKind::invoice)) {
    case DocumentKind::quote:
        return DocumentStrings::Key::quote;
    case DocumentKind::creditNote:
        return DocumentStrings::Key::creditNote;
    case DocumentKind::invoice:
    case DocumentKind::recurring:
        break;
    }
    return DocumentStrings::Key::invoice;
}

/// The wanted typeface of a CSS font stack: "Menlo" of "'Menlo', monospace".
std::string firstFamily(std::string_view stack)
{
    std::string_view family = stack.substr(0, stack.find(','));
    if (family.starts_with('\'') && family.ends_with('\'')) {
        family = family.substr(1, family.size() - 2);
    }
    return std::string(family);
}

} // namespace

PageJob pageJob(Context& context, const Document& document, const Business& business, const Calendar& calendar)
{
    const PrintedDocument printed = PrintedDocument::from(context, document, business, calendar);
    return {.html = DocumentHTML::render(printed),
            .geometry = pageGeometry(printed.settings.paperSize),
            .title = printed.pageTitle,
            .languageCode = std::string(code(printed.language)),
            .pageLabel = std::string(DocumentStrings(printed.language).text(DocumentStrings::Key::page)),
            .labelFamily = firstFamily(fontStack(printed.settings.font))};
}

std::string pdfFileName(Context& context, const Document& document, const Business& business, const Calendar& calendar)
{
    const Client* client = context.find(document.client);
    const FileNameFormat::Values values{
        .number = document.number,
        .type = std::string(DocumentStrings(language(document)).text(kindLabel(document))),
        .client = client == nullptr ? "" : displayName(*client),
        .title = document.title,
        .business = business.name,
        .date = document.issueDate.value_or(document.createdAt.value_or(context.clock().now()))};
    return FileNameFormat::stored(business).render(values, calendar);
}

std::string shownFileName(const AssistantEnvironment& environment, const Document& document)
{
    return FileNameFormat::sanitize(
        plainText(pdfFileName(environment.context, document, environment.ownBusiness(), environment.calendar)));
}

} // namespace Quillary
