#include "QuillaryCore/Letters/LetterFileName.h"

#include "QuillaryCore/Letters/ReminderLetter.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Numbering/FileNameFormat.h"
#include "QuillaryCore/Output/DocumentStrings.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>

namespace Quillary::LetterFileName {

namespace {

FileNameFormat::Values values(Context& context, const Document& document, const Business& business)
{
    const Client* client = context.find(document.client);
    return {.number = document.number,
            .type = std::string(DocumentStrings(language(document)).text(headingKey(document))),
            .client = client == nullptr ? "" : displayName(*client),
            .title = document.title,
            .business = business.name,
            .date = document.issueDate.value_or(document.createdAt.value_or(context.clock().now()))};
}

bool namesTheType(const FileNameFormat& format)
{
    return std::ranges::find(format.parts(), FileNameFormat::Part(FileNameFormat::Placeholder::type)) !=
           format.parts().end();
}

} // namespace

std::string of(Context& context, const Document& document, const Business& business, const Calendar& calendar)
{
    return FileNameFormat::stored(business).render(values(context, document, business), calendar);
}

std::string ofReminder(Context& context,
                       const Document& document,
                       const Business& business,
                       ReminderLevel level,
                       Instant date,
                       const Calendar& calendar)
{
    FileNameFormat::Values filled = values(context, document, business);
    filled.type = ReminderLetter::heading(level, language(document));
    filled.date = date;
    const FileNameFormat format = FileNameFormat::stored(business);
    std::string name = format.render(filled, calendar);
    if (namesTheType(format)) {
        return name;
    }
    return FileNameFormat::sanitize(name.append(1, ' ').append(filled.type));
}

} // namespace Quillary::LetterFileName
