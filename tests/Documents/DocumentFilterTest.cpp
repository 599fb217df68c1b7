#include "QuillaryCore/Documents/DocumentFilter.h"

#include "QuillaryCore/Model/Project.h"
#include "tests/Documents/DocumentLibrary.h"

#include <gtest/gtest.h>

#include <string>

namespace Quillary {
namespace {

TEST(DocumentFilterTest, narrowsByEveryFact)
{
    DocumentLibrary library;
    const Project& project = library.context.insert<Project>();
    Document& overdue = library.invoice("overdue");
    overdue.dueDate = library.day(-1);
    overdue.tags = "Travel,Food";
    Document& partlyPaid = library.invoice("partly");
    partlyPaid.issueDate = library.day(0);
    partlyPaid.cachedTotalMinorUnits = 10;
    partlyPaid.cachedPaidMinorUnits = 4;
    partlyPaid.project = project.ref;
    Document& quote = library.document(DocumentKind::quote, DocumentStatus::sent);
    quote.number = "quote";
    quote.issueDate = library.day(-20);
    quote.tags = "traveller";
    Document& undated = library.document();
    undated.number = "undated";
    undated.issueDate = {};

    struct Case
    {
        DocumentFilter filter;
        std::string numbers; ///< the newest first
    };
    const Case cases[] = {
        {{}, "partly overdue quote undated "},
        {{.kind = DocumentKind::quote}, "quote "},
        {{.statuses = {DisplayStatus::overdue, DisplayStatus::partlyPaid}}, "partly overdue "},
        {{.statuses = {DisplayStatus::draft}}, "undated "},
        {{.start = library.day(-10), .end = library.day(0)}, "overdue "}, // the end doesn't belong to it
        {{.end = library.day(-10)}, "quote "},
        {{.tag = "TRAVEL"}, "overdue "}, // a whole tag, in any spelling
        {{.client = Ref<Client>()}, "quote undated "},
        {{.project = project.ref}, "partly "},
        {{.project = Ref<Project>()}, "overdue quote undated "},
        {{.among = std::unordered_set<std::int64_t>{quote.ref.key(), overdue.ref.key()}}, "overdue quote "},
    };
    for (const Case& example : cases) {
        std::string numbers;
        for (const Ref<Document> ref : example.filter.find(library.context, library.start, library.calendar)) {
            numbers += library.context.find(ref)->number + " ";
        }
        EXPECT_EQ(numbers, example.numbers);
    }
}

} // namespace
} // namespace Quillary
