#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/PaymentMethod.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace Quillary {

namespace {

using Members = JSON::Object;

JSON::Member property(std::string_view name, std::string_view type, std::string_view description)
{
    return {std::string(name), JSON::object({{"type", type}, {"description", description}})};
}

JSON::Member text(std::string_view name, std::string_view description)
{
    return property(name, "string", description);
}

JSON::Member number(std::string_view name, std::string_view description)
{
    return property(name, "number", description);
}

JSON::Member flag(std::string_view name, std::string_view description)
{
    return property(name, "boolean", description);
}

JSON::Member choice(std::string_view name, JSON::Array values, std::string_view description)
{
    return {std::string(name),
            JSON::object({{"type", "string"}, {"enum", JSON(std::move(values))}, {"description", description}})};
}

JSON::Member list(std::string_view name, JSON items, std::string_view description)
{
    return {std::string(name),
            JSON::object({{"type", "array"}, {"items", std::move(items)}, {"description", description}})};
}

JSON schema(Members properties, JSON::Array required = {})
{
    return JSON::object(
        {{"type", "object"}, {"properties", JSON(std::move(properties))}, {"required", JSON(std::move(required))}});
}

JSON::Array languageCodes()
{
    JSON::Array codes;
    for (const DocumentLanguage language : allDocumentLanguages) {
        codes.emplace_back(code(language));
    }
    return codes;
}

JSON::Array paymentMethods()
{
    JSON::Array names;
    for (const PaymentMethod method : allPaymentMethods) {
        names.emplace_back(rawText(method));
    }
    return names;
}

Members operator+(Members left, const Members& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

JSON searchSchema()
{
    return schema({text("query", "What to look for."), number("limit", "At most this many (default 10).")});
}

JSON documentSchema()
{
    return schema({text("document", "The document's id or number.")}, {"document"});
}

JSON findDocumentsSchema()
{
    return schema(
        {text("query", "Number, client or title."),
         choice("kind", {"invoice", "quote", "credit_note", "all"}, "Default all."),
         choice("status", {"all", "draft", "open", "overdue", "paid", "accepted", "declined"}, "Default all."),
         text("client", "Only this client's (id or name)."),
         number("limit", "At most this many (default 20).")});
}

Members clientFields()
{
    return {text("name", "Company name, or the person's full name."),
            text("first_name", "For a person."),
            text("last_name", "For a person."),
            flag("is_person", "A private person rather than a company."),
            text("email", "Email address invoices are sent to."),
            text("phone", "Phone number."),
            text("address_line", "Street and number."),
            text("postal_code", "Postal code."),
            text("city", "City."),
            text("state", "State or region."),
            text("country", "ISO country code, e.g. DE."),
            text("vat_id", "VAT ID, e.g. ATU12345678."),
            text("tax_id", "Tax number."),
            text("currency", "Usual currency, e.g. EUR."),
            choice("language", languageCodes(), "Language for their documents."),
            number("payment_terms_days", "Days they get to pay."),
            number("hourly_rate", "Their hourly rate.")};
}

JSON lineSchema()
{
    return schema(
        {text("title", "What it is, e.g. “Website design”."),
         text("details", "More detail under the title (optional)."),
         number("quantity", "How many (default 1), e.g. 12.5 hours."),
         text("unit", "hour, day, week, month, year, minute, piece, flat rate, page or word (optional)."),
         number("unit_price", "Price per unit before tax, in the document's currency, e.g. 90 or 1250.50."),
         number("tax_rate", "Tax rate in percent, e.g. 19 (default: your default rate)."),
         text("catalog_item",
              "A catalog item's id or name: fills in title, price, unit and tax (the other fields override).")});
}

JSON changeSchema()
{
    return schema({number("line", "The line's number as get_document shows it (1 = first)."),
                   text("title", "New title."),
                   text("details", "New details."),
                   number("quantity", "New quantity."),
                   text("unit", "New unit."),
                   number("unit_price", "New price per unit before tax."),
                   number("tax_rate", "New tax rate in percent.")},
                  {"line"});
}

Members documentFields()
{
    return {text("client", "The client's id or name (find_clients). Their language, terms and currency are used."),
            list("add_lines", lineSchema(), "Lines to add at the end."),
            list("change_lines", changeSchema(), "Changes to existing lines."),
            list("remove_lines", JSON::object({{"type", "number"}}), "Numbers of lines to remove."),
            flag("add_unbilled_time", "Add the client's unbilled tracked time as lines (one per project)."),
            flag("copy_last_invoice", "Add the lines of the client's last invoice."),
            text("title", "A title shown on the document, e.g. “Website relaunch”."),
            text("issue_date", "Date, YYYY-MM-DD (default today)."),
            number("payment_terms_days", "Days to pay (invoices; default the client's or yours)."),
            text("currency", "ISO currency code, e.g. EUR."),
            choice("language", languageCodes(), "Language it's printed in."),
            text("intro", "Text above the lines."),
            text("footer", "Text below the totals."),
            text("service_date",
                 "When the work was done: YYYY-MM-DD, a period YYYY-MM-DD..YYYY-MM-DD, or today, yesterday, "
                 "invoice_date, this_week, last_week, this_month, last_month."),
            flag("reverse_charge", "No VAT under EU reverse charge, with the note in the document's language."),
            flag("outside_eu", "No VAT for a business outside the EU (taxed where the client is), with the note."),
            flag("tax_exempt", "No tax on this document."),
            text("tax_exempt_note", "Why there's no tax, printed on the document."),
            number("discount_percent", "A discount in percent on the whole document (0 removes it)."),
            number("discount_amount", "A fixed discount on the whole document (0 removes it).")};
}

JSON paymentSchema()
{
    return schema({text("document", "The invoice's id or number."),
                   number("amount", "Amount received."),
                   text("date", "YYYY-MM-DD."),
                   choice("method", paymentMethods(), "How it was paid.")},
                  {"document"});
}

JSON businessSchema()
{
    return schema({text("name", "Business name."),
                   text("email", "Email."),
                   text("phone", "Phone."),
                   text("website", "Website."),
                   text("address_line", "Street and number."),
                   text("postal_code", "Postal code."),
                   text("city", "City."),
                   text("state", "State."),
                   text("country", "ISO country code."),
                   text("vat_id", "VAT ID."),
                   text("tax_id", "Tax number, such as an EIN."),
                   text("account_holder", "Bank account holder."),
                   text("bank_name", "Bank."),
                   text("iban", "IBAN."),
                   text("bic", "BIC."),
                   flag("tax_exempt", "You charge no VAT (e.g. small business)."),
                   text("tax_exempt_note", "Why, printed on invoices.")});
}

AssistantTool looking(std::string name, std::string title, std::string description, JSON input)
{
    return {.name = std::move(name),
            .title = std::move(title),
            .description = std::move(description),
            .access = AssistantAccess::readOnly,
            .readOnly = true,
            .destructive = false,
            .input = std::move(input)};
}

AssistantTool changing(std::string name, std::string title, std::string description, AssistantAccess access, JSON input)
{
    return {.name = std::move(name),
            .title = std::move(title),
            .description = std::move(description),
            .access = access,
            .readOnly = false,
            .destructive = false,
            .input = std::move(input)};
}

std::vector<AssistantTool> lookingTools()
{
    return {looking("get_business_profile",
                    "Your business",
                    "Your business details, defaults (currency, language, payment terms, tax rates), the next numbers, "
                    "and what's missing for legally complete invoices. Call this first.",
                    schema({})),
            looking("find_clients",
                    "Find clients",
                    "Search clients by name, email, number or city (without accents or exact spelling). Empty query "
                    "lists recent ones.",
                    searchSchema()),
            looking("find_catalog_items",
                    "Find catalog items",
                    "Search your saved products and services with their prices.",
                    searchSchema()),
            looking("find_documents",
                    "Find invoices and quotes",
                    "Search invoices, quotes and credit notes by number, client or title, by status.",
                    findDocumentsSchema()),
            looking("get_document",
                    "Show a document",
                    "One invoice or quote in full: lines (numbered), totals, payments, and what's still needed.",
                    documentSchema()),
            looking("get_unbilled_time",
                    "Unbilled time",
                    "Tracked time not invoiced yet, per client, with hours and value.",
                    schema({text("client", "Only this client (id or name).")})),
            looking("get_money_overview",
                    "Money overview",
                    "What's open and overdue (who owes you money), drafts waiting, and unbilled time.",
                    schema({}))};
}

std::vector<AssistantTool> draftTools()
{
    using enum AssistantAccess;
    return {
        changing("create_client",
                 "New client",
                 "Adds a client. Give at least a name; an address and email are needed for invoices.",
                 drafts,
                 schema(clientFields())),
        changing("update_client",
                 "Change a client",
                 "Fills in or changes a client's details, e.g. the address or VAT ID an invoice needs.",
                 drafts,
                 schema(Members{text("client", "The client's id or name.")} + clientFields(), {"client"})),
        changing("create_document",
                 "New invoice or quote",
                 "Makes a draft invoice or quote with your defaults and the client's. Give what the user said; the "
                 "result lists the few questions to ask them next (and nothing else needs asking).",
                 drafts,
                 schema(Members{choice("kind", {"invoice", "quote"}, "What to make.")} + documentFields(), {"kind"})),
        changing("update_document",
                 "Change a draft",
                 "Changes a draft: answers to the questions, lines, dates, notes. Returns what's still needed.",
                 drafts,
                 schema(Members{text("document", "The document's id or number.")} + documentFields(), {"document"})),
        looking("preview_document",
                "Preview",
                "The document as it will look (an image of the first page) with its totals. Show it to the user "
                "before anything is sent.",
                documentSchema())};
}

std::vector<AssistantTool> sendingTools()
{
    using enum AssistantAccess;
    AssistantTool discard = changing("discard_document",
                                     "Throw away a draft",
                                     "Deletes a draft an assistant made (its number is given back if it was the "
                                     "newest). Only on the user's request.",
                                     drafts,
                                     documentSchema());
    discard.destructive = true;
    const JSON exportSchema =
        schema({text("document", "The document's id or number."), text("folder", "A folder path, e.g. ~/Desktop.")},
               {"document"});
    return {std::move(discard),
            changing("export_document_pdf",
                     "Save as PDF",
                     "Saves the PDF into a folder (default Downloads) and returns its path.",
                     drafts,
                     exportSchema),
            changing("email_document",
                     "Prepare the email",
                     "Opens the email with the PDF in Quillary, for the user to check and send. It doesn't send "
                     "anything itself.",
                     drafts,
                     documentSchema()),
            changing("mark_document_sent",
                     "Mark as sent",
                     "Marks a ready invoice or quote as sent (it was sent outside Quillary). Only when the user says "
                     "so.",
                     everything,
                     documentSchema()),
            changing("record_payment",
                     "Record a payment",
                     "Records money received for an invoice (default: the full amount due, today, by bank transfer).",
                     everything,
                     paymentSchema()),
            changing("update_business_profile",
                     "Your business details",
                     "Fills in your own details invoices need (address, VAT ID or tax number, bank account). Only with "
                     "the user's answers.",
                     everything,
                     businessSchema())};
}

std::vector<AssistantTool> allTools()
{
    std::vector<AssistantTool> tools = lookingTools();
    std::ranges::move(draftTools(), std::back_inserter(tools));
    std::ranges::move(sendingTools(), std::back_inserter(tools));
    return tools;
}

} // namespace

JSON AssistantTool::listing() const
{
    return JSON::object({{"name", name},
                         {"title", title},
                         {"description", description},
                         {"inputSchema", input},
                         {"annotations",
                          JSON::object({{"title", title},
                                        {"readOnlyHint", readOnly},
                                        {"destructiveHint", destructive},
                                        {"idempotentHint", readOnly},
                                        {"openWorldHint", false}})}});
}

const std::vector<AssistantTool>& ToolCatalogue::tools()
{
    static const std::vector<AssistantTool> tools = allTools();
    return tools;
}

const AssistantTool* ToolCatalogue::find(std::string_view name)
{
    const auto found = std::ranges::find(tools(), name, &AssistantTool::name);
    return found == tools().end() ? nullptr : &*found;
}

} // namespace Quillary
