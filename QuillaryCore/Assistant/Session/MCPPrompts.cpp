#include "QuillaryCore/Assistant/Session/MCPPrompts.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Quillary {

namespace {

constexpr std::array arguments = {
    MCPPromptArgument{"client", "Who it's for: the client's name or id (optional)."},
    MCPPromptArgument{"details", "What to bill, with prices if you have them (optional)."},
};
constexpr std::span<const MCPPromptArgument> both = arguments;
constexpr std::span<const MCPPromptArgument> clientOnly = both.first(1);

/// `before` and the argument, when it was given.
std::string part(std::string_view before, const JSON& given, std::string_view argument)
{
    const JSON* value = given.find(argument);
    const std::string text = value == nullptr ? "" : value->text().value_or("");
    return text.empty() ? "" : std::string(before) + text;
}

std::string newInvoice(const JSON& given)
{
    return "Make an invoice in Quillary" + part(" for ", given, "client") + part(": ", given, "details") +
           ". Start with create_document, ask me only the questions it returns, then show me the preview. Don't email "
           "it or mark it sent until I say so.";
}

std::string newQuote(const JSON& given)
{
    return "Make a quote in Quillary" + part(" for ", given, "client") + part(": ", given, "details") +
           ". Start with create_document (kind quote), ask me only the questions it returns, then show me the preview.";
}

std::string invoiceTime(const JSON& given)
{
    return "Look at my unbilled time in Quillary (get_unbilled_time)" + part(" for ", given, "client") +
           ", then make an invoice for it with create_document and add_unbilled_time, ask me only the questions it "
           "returns, and show me the preview.";
}

std::string whoOwesMe(const JSON& /*given*/)
{
    return "Use get_money_overview in Quillary and tell me briefly who owes me money, what's overdue and by how long, "
           "and what you'd suggest doing.";
}

constexpr std::array prompts = {
    MCPPrompt{
        "new_invoice", "New invoice", "Make an invoice in Quillary, asking only what's needed.", both, newInvoice},
    MCPPrompt{"new_quote", "New quote", "Make a quote in Quillary.", both, newQuote},
    MCPPrompt{
        "invoice_time", "Invoice tracked time", "Turn unbilled tracked time into an invoice.", clientOnly, invoiceTime},
    MCPPrompt{
        "who_owes_me", "Who owes me money?", "Open and overdue invoices, and what to do about them.", {}, whoOwesMe},
};

} // namespace

JSON MCPPrompt::listing() const
{
    JSON::Array list;
    for (const MCPPromptArgument& argument : arguments) {
        list.push_back(
            JSON::object({{"name", argument.name}, {"description", argument.description}, {"required", false}}));
    }
    return JSON::object(
        {{"name", name}, {"title", title}, {"description", description}, {"arguments", JSON(std::move(list))}});
}

std::span<const MCPPrompt> MCPPrompts::all()
{
    return prompts;
}

const MCPPrompt* MCPPrompts::find(std::string_view name)
{
    const auto found = std::ranges::find(prompts, name, &MCPPrompt::name);
    return found == prompts.end() ? nullptr : &*found;
}

} // namespace Quillary
