#include "Quillary/Commands/EmailTemplateCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/OpenLibrary.h"
#include "Quillary/TextTable.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Letters/EmailDraft.h"
#include "QuillaryCore/Letters/EmailTemplates.h"
#include "QuillaryCore/Model/Business.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr std::size_t largestBodyFile = 1'000'000;

constexpr std::pair<EmailKind, std::string_view> kindWords[] = {{EmailKind::invoice, "invoice"},
                                                                {EmailKind::quote, "quote"},
                                                                {EmailKind::creditNote, "credit-note"},
                                                                {EmailKind::reminder, "reminder"},
                                                                {EmailKind::secondReminder, "second-reminder"},
                                                                {EmailKind::finalNotice, "final-notice"}};

std::string_view word(EmailKind kind)
{
    for (const auto& [each, name] : kindWords) {
        if (each == kind) {
            return name;
        }
    }
    return {};
}

EmailKind typedKind(const std::string& typed)
{
    std::vector<std::string_view> names;
    for (const auto& [kind, name] : kindWords) {
        if (folded(typed) == name || folded(typed) == folded(title(kind))) {
            return kind;
        }
        names.push_back(name);
    }
    throw UserError(fmt::format("There's no email {}. There are {}.", inQuotes(typed), fmt::join(names, ", ")));
}

DocumentLanguage typedLanguage(const std::string& typed)
{
    for (const DocumentLanguage language : allDocumentLanguages) {
        if (folded(typed) == code(language) || folded(typed) == folded(title(language))) {
            return language;
        }
    }
    throw UserError(fmt::format("There's no document language {}. There are en, de, fr, es, nl, it.", inQuotes(typed)));
}

std::string heading(EmailKind kind, DocumentLanguage language, bool isCustomized)
{
    return fmt::format("{}, {} ({})", title(kind), title(language), isCustomized ? "your own" : "built in");
}

std::string placeholderList(EmailKind kind)
{
    TextTable table({{.heading = "Placeholder"}, {.heading = "What it stands for"}});
    for (const EmailPlaceholder placeholder : available(kind)) {
        table.addRow({token(placeholder), std::string(summary(placeholder))});
    }
    return table.text();
}

} // namespace

EmailTemplateCommand::EmailTemplateCommand(CLI::App& app)
    : m_app(app.add_subcommand("email-template", "Lists and changes the words that emails begin with."))
    , m_list(m_app->add_subcommand("list", "Lists the subjects, and which texts are your own."))
    , m_show(m_app->add_subcommand("show", "Shows a text and what may be filled in."))
    , m_set(m_app->add_subcommand("set", "Puts your own words in the place of a text."))
    , m_restore(m_app->add_subcommand("restore", "Returns to the built-in text."))
{
    m_app->require_subcommand(1);
    m_list->add_option("language", m_language, "Only this language: en, de, fr, es, nl or it.");
    for (CLI::App* command : {m_show, m_set, m_restore}) {
        command->add_option("kind", m_kind, "invoice, quote, credit-note, reminder, second-reminder or final-notice.")
            ->required();
        command->add_option("language", m_language, "en, de, fr, es, nl or it.")->required();
    }
    m_show->add_flag("--filled", m_filled, "With made-up values in the place of the placeholders.");
    for (CLI::App* command : {m_list, m_show}) {
        command->add_option("--output", m_output, "How to answer: text or json.")
            ->check(CLI::IsMember({"text", "json"}));
    }
    m_set->add_option("--subject", m_subject, "The subject; what is left out stays as it is.")->type_name("TEXT");
    CLI::Option* body = m_set->add_option("--body", m_body, "The text.")->type_name("TEXT");
    m_set->add_option("--body-file", m_bodyFile, "The file that holds the text, UTF-8.")
        ->type_name("FILE")
        ->excludes(body);
}

bool EmailTemplateCommand::wasGiven() const
{
    return m_app->parsed();
}

int EmailTemplateCommand::run(const CommandSetting& setting) const
{
    // The library is let go of before anything is printed, for whoever waits for it.
    fmt::print("{}", answer(setting));
    return 0;
}

std::string EmailTemplateCommand::answer(const CommandSetting& setting) const
{
    OpenLibrary open(setting.library, setting.environment);
    if (m_list->parsed()) {
        return list(open);
    }
    if (m_show->parsed()) {
        return show(open, setting);
    }
    std::string told = m_set->parsed() ? set(open, setting) : restore(open);
    open.backUpIfDue(setting.environment);
    return told;
}

std::string EmailTemplateCommand::list(OpenLibrary& open) const
{
    constexpr std::size_t widestSubject = 60;
    std::vector<DocumentLanguage> languages(allDocumentLanguages.begin(), allDocumentLanguages.end());
    if (!m_language.empty()) {
        languages.assign(1, typedLanguage(m_language));
    }
    TextTable table({{.heading = "Kind"},
                     {.heading = "Language"},
                     {.heading = "Text"},
                     {.heading = "Subject", .widest = widestSubject}});
    JSON::Array rows;
    for (const DocumentLanguage language : languages) {
        for (const EmailKind kind : allEmailKinds) {
            const EmailText text = EmailTemplates::text(open.context(), kind, language);
            const bool isOwn = EmailTemplates::isCustomized(open.context(), kind, language);
            table.addRow(
                {std::string(word(kind)), std::string(code(language)), isOwn ? "your own" : "built in", text.subject});
            rows.push_back(JSON::object({{"kind", word(kind)},
                                         {"language", code(language)},
                                         {"customized", isOwn},
                                         {"subject", text.subject}}));
        }
    }
    return m_output == "json" ? JSON::object({{"templates", std::move(rows)}}).pretty() + "\n" : table.text();
}

std::string EmailTemplateCommand::show(OpenLibrary& open, const CommandSetting& setting) const
{
    const EmailKind kind = typedKind(m_kind);
    const DocumentLanguage language = typedLanguage(m_language);
    const bool isOwn = EmailTemplates::isCustomized(open.context(), kind, language);
    EmailText text = EmailTemplates::text(open.context(), kind, language);
    if (m_filled) {
        const AppEnvironment& environment = setting.environment;
        text =
            EmailDraft::fill(text,
                             EmailDraft::sampleValues(
                                 kind, language, open.business(), environment.clock().now(), environment.calendar()));
    }
    if (m_output == "json") {
        JSON::Array placeholders;
        for (const EmailPlaceholder placeholder : available(kind)) {
            placeholders.push_back(JSON::object({{"token", token(placeholder)}, {"summary", summary(placeholder)}}));
        }
        return JSON::object({{"kind", word(kind)},
                             {"language", code(language)},
                             {"customized", isOwn},
                             {"subject", text.subject},
                             {"body", text.body},
                             {"placeholders", std::move(placeholders)}})
                   .pretty() +
               "\n";
    }
    return fmt::format("{}\n\nSubject: {}\n\n{}\n{}{}",
                       heading(kind, language, isOwn),
                       text.subject,
                       text.body,
                       m_filled ? "" : "\n",
                       m_filled ? "" : placeholderList(kind));
}

std::optional<std::string> EmailTemplateCommand::givenBody() const
{
    return m_bodyFile.empty() ? m_body : std::optional(readFile(m_bodyFile, largestBodyFile));
}

std::string EmailTemplateCommand::set(OpenLibrary& open, const CommandSetting& setting) const
{
    const EmailKind kind = typedKind(m_kind);
    const DocumentLanguage language = typedLanguage(m_language);
    const std::optional<std::string> body = givenBody();
    if (!m_subject && !body) {
        throw UserError("Which words? Say --subject TEXT, --body TEXT or --body-file FILE.");
    }
    Context& context = open.context();
    const EmailText old = EmailTemplates::text(context, kind, language);
    const EmailText text = EmailTemplates::checked({m_subject.value_or(old.subject), body.value_or(old.body)});
    auto scope = context.beginScope("Change Email Text");
    EmailTemplates::set(context, text, kind, language);
    scope.commit();
    const bool isOwn = EmailTemplates::isCustomized(context, kind, language);
    std::string told = fmt::format("Kept: {}.\n", heading(kind, language, isOwn));
    const AppEnvironment& environment = setting.environment;
    const std::vector<std::string> unknown = EmailDraft::unfilled(
        text,
        EmailDraft::sampleValues(kind, language, open.business(), environment.clock().now(), environment.calendar()));
    if (!unknown.empty()) {
        told += fmt::format("This email has nothing to put in the place of {}: it stays as it is.\n",
                            fmt::join(unknown, ", "));
    }
    return told;
}

std::string EmailTemplateCommand::restore(OpenLibrary& open) const
{
    const EmailKind kind = typedKind(m_kind);
    const DocumentLanguage language = typedLanguage(m_language);
    auto scope = open.context().beginScope("Restore Email Text");
    EmailTemplates::restoreDefault(open.context(), kind, language);
    scope.commit();
    return fmt::format("Kept: {}.\n", heading(kind, language, false));
}

} // namespace Quillary
