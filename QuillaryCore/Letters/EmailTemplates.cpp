#include "QuillaryCore/Letters/EmailTemplates.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/EmailTemplate.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Quillary {

namespace {

/// What the user wrote for a kind and a language, the one that counts first.
std::vector<const EmailTemplate*> stored(Context& context, EmailKind kind, DocumentLanguage language)
{
    const std::string languageCode(code(language));
    return context.fetch<EmailTemplate>(
        "kindRaw = ? AND languageCode = ? ORDER BY id", static_cast<std::int16_t>(kind), languageCode);
}

void eraseFrom(Context& context, const std::vector<const EmailTemplate*>& rows, std::size_t first)
{
    for (std::size_t index = first; index < rows.size(); ++index) {
        context.erase(*rows[index]);
    }
}

EmailTemplate& insert(Context& context, EmailKind kind, DocumentLanguage language)
{
    auto& row = context.insert<EmailTemplate>();
    row.kindRaw = static_cast<std::int16_t>(kind);
    row.languageCode = code(language);
    return row;
}

} // namespace

EmailText EmailTemplates::text(Context& context, EmailKind kind, DocumentLanguage language)
{
    const std::vector<const EmailTemplate*> rows = stored(context, kind, language);
    return rows.empty() ? defaultText(kind, language) : EmailText{rows.front()->subject, rows.front()->body};
}

bool EmailTemplates::isCustomized(Context& context, EmailKind kind, DocumentLanguage language)
{
    return !stored(context, kind, language).empty();
}

EmailText EmailTemplates::checked(EmailText text)
{
    text.subject = trimmed(text.subject);
    text.body = trimmed(replacing(replacing(text.body, "\r\n", "\n"), "\r", "\n"));
    if (!isValidUTF8(text.subject) || !isValidUTF8(text.body)) {
        throw UserError("The text isn't readable as UTF-8.");
    }
    if (text.subject.empty()) {
        throw UserError("An email needs a subject.");
    }
    if (std::ranges::any_of(text.subject, [](char byte) { return byte >= '\0' && byte < ' '; })) {
        throw UserError("A subject is one line of text.");
    }
    if (graphemeCount(text.subject) > Limits::lineLength) {
        throw UserError(fmt::format("A subject has at most {} characters.", Limits::lineLength));
    }
    if (graphemeCount(text.body) > Limits::textLength) {
        throw UserError(fmt::format("The text of an email has at most {} characters.", Limits::textLength));
    }
    return text;
}

void EmailTemplates::set(Context& context, const EmailText& text, EmailKind kind, DocumentLanguage language)
{
    const std::vector<const EmailTemplate*> rows = stored(context, kind, language);
    if (text == defaultText(kind, language)) {
        eraseFrom(context, rows, 0);
        return;
    }
    eraseFrom(context, rows, 1);
    if (!rows.empty() && rows.front()->subject == text.subject && rows.front()->body == text.body) {
        return;
    }
    EmailTemplate& kept = rows.empty() ? insert(context, kind, language) : context.edit(*rows.front());
    kept.subject = text.subject;
    kept.body = text.body;
    kept.modifiedAt = context.clock().now();
}

void EmailTemplates::restoreDefault(Context& context, EmailKind kind, DocumentLanguage language)
{
    eraseFrom(context, stored(context, kind, language), 0);
}

} // namespace Quillary
