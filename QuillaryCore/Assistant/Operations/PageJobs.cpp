#include "QuillaryCore/Assistant/Operations/PageJobs.h"

#include "QuillaryCore/Assistant/Operations/AssistantActions.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Letters/LetterFileName.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Numbering/FileNameFormat.h"
#include "QuillaryCore/Output/DocumentHTML.h"
#include "QuillaryCore/Output/DocumentStrings.h"
#include "QuillaryCore/Output/PrintedDocument.h"
#include "QuillaryCore/Output/PrintedTable.h"

namespace Quillary {

namespace {

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

PageJob pageJob(const PrintedDocument& printed)
{
    return {.html = DocumentHTML::render(printed),
            .geometry = pageGeometry(printed.settings.paperSize),
            .title = printed.pageTitle,
            .languageCode = std::string(code(printed.language)),
            .pageLabel = std::string(DocumentStrings(printed.language).text(DocumentStrings::Key::page)),
            .labelFamily = firstFamily(fontStack(printed.settings.font))};
}

PageJob pageJob(const PrintedTable& printed, const std::string& pageLabel)
{
    return {.html = TableHTML::render(printed),
            .geometry = printed.geometry(),
            .title = printed.heading,
            .languageCode = printed.languageCode,
            .pageLabel = pageLabel,
            .labelFamily = firstFamily(fontStack(printed.settings.font))};
}

PageJob pageJob(Context& context, const Document& document, const Business& business, const Calendar& calendar)
{
    return pageJob(PrintedDocument::from(context, document, business, calendar));
}

std::string pdfFileName(Context& context, const Document& document, const Business& business, const Calendar& calendar)
{
    return LetterFileName::of(context, document, business, calendar);
}

std::string shownFileName(const AssistantEnvironment& environment, const Document& document)
{
    return FileNameFormat::sanitize(
        plainText(pdfFileName(environment.context, document, environment.ownBusiness(), environment.calendar)));
}

} // namespace Quillary
