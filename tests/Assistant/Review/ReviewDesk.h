#pragma once

#include "QuillaryCore/Assistant/Operations/Operations.h"
#include "QuillaryCore/Assistant/Review/DocumentReview.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "tests/Assistant/AssistantLibrary.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Drafts that lack something, and how the sentences of a review are put together.
namespace Quillary {

inline constexpr std::string_view ready =
    "Ready: nothing required is missing. Show the preview and ask before marking it sent or emailing it.";
inline constexpr std::string_view askFirst =
    "Nothing required is missing, but ask the question above first: it changes this invoice. Then show the preview.";
inline constexpr std::string_view serviceDate =
    "When was the work done (or delivered)? → set service_date. Options: The same day as the invoice "
    "[invoice_date]; This month [this_month]; Last month [last_month]";
inline constexpr std::string_view optionalServiceDate =
    "When was the work done (or delivered)? (optional) → set service_date. Options: The same day as the invoice "
    "[invoice_date]; This month [this_month]; Last month [last_month]";

inline std::string asked(const std::vector<std::string>& questions)
{
    std::string text = "Ask the user (only these; one message):";
    for (std::size_t index = 0; index < questions.size(); ++index) {
        text += fmt::format("\n{}. {}", index + 1, questions[index]);
    }
    return text;
}

inline std::string before(const std::vector<std::string>& problems)
{
    std::string text = "Before it can be sent:";
    for (const std::string& problem : problems) {
        text += fmt::format("\n- {}", problem);
    }
    return text;
}

inline std::string sections(std::string_view first, std::string_view second)
{
    return fmt::format("{}\n\n{}", first, second);
}

inline constexpr std::string_view german =
    R"({"name":"Hof","address_line":"Weg 1","city":"Bonn","country":"DE","vat_id":"DE123456789"})";
inline constexpr std::string_view french =
    R"({"name":"Cour","address_line":"Rue 1","city":"Lyon","country":"FR","vat_id":"FR12345678901"})";
inline constexpr std::string_view british = R"({"name":"Yard","country":"GB"})";
inline constexpr std::string_view american = R"({"name":"Yard","country":"US"})";

inline constexpr std::string_view local = R"({"name":"Acme","address_line":"Weg 2","city":"Bonn","country":"DE"})";
inline constexpr std::string_view austrian = R"({"name":"Acme","address_line":"Weg 2","city":"Linz","country":"AT"})";
inline constexpr std::string_view registered =
    R"({"name":"Acme","address_line":"Weg 2","city":"Linz","country":"AT","vat_id":"ATU12345678"})";

/// A dated invoice over one priced line.
inline constexpr std::string_view invoice =
    R"("kind":"invoice","client":"Acme","service_date":"today","add_lines":[{"title":"Work","unit_price":900}])";

/// The same over lines of one's own.
inline std::string billing(std::string_view lines, std::string_view more = R"("service_date":"today",)")
{
    return fmt::format(R"("kind":"invoice","client":"Acme",{}"add_lines":[{}])", more, lines);
}

struct Case
{
    const char* reason;
    std::string_view client; ///< empty: none is made
    std::string document;
    std::string expected;
    std::string_view business = german;
};

/// A library with a business, perhaps a client, and a draft.
class Desk
{
public:
    Desk(std::string_view business, std::string_view client, std::string_view document)
    {
        library.data("update_business_profile", business);
        if (!client.empty()) {
            library.data("create_client", client);
        }
        id = *library.data("create_document", fmt::format("{{{}}}", document)).find("id")->string();
    }

    const Document& document() { return *library.context.find<Document>(*UUID::parse(id)); }

    DocumentReview review()
    {
        return DocumentReview::review(library.context,
                                      document(),
                                      *library.context.find(library.business),
                                      library.calendar.startOfDay(library.clock.now()),
                                      Locale("de_DE"));
    }

    void update(std::string_view members)
    {
        library.data("update_document", fmt::format(R"({{"document":"{}",{}}})", id, members));
    }

    void updateClient(std::string_view members)
    {
        library.data("update_client", fmt::format(R"({{"client":"Acme",{}}})", members));
    }

    /// Sends a value to the field that a question names.
    void answer(std::string_view field, const JSON& value)
    {
        constexpr std::string_view ofClient = "update_client ";
        if (field.starts_with(ofClient)) {
            updateClient(fmt::format("\"{}\":{}", field.substr(ofClient.size()), value.dump()));
        } else {
            update(fmt::format("\"{}\":{}", field, value.dump()));
        }
    }

    AssistantLibrary library;
    std::string id;
};

inline void expectReviews(std::span<const Case> cases)
{
    for (const Case& row : cases) {
        Desk desk(row.business, row.client, row.document);
        EXPECT_EQ(desk.review().text(), row.expected) << row.reason;
    }
}

} // namespace Quillary
