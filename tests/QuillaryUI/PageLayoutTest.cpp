// One page printed ahead of its document is the page that the whole document has, to the pixel; and where it isn't, it
// says so.
#include "QuillaryCore/Output/PageLayout.h"

#include "QuillaryUI/Printing/Engine/WebPagePrinter.h"
#include "tests/QuillaryUI/PDFReading.h"
#include "tests/QuillaryUI/SampleInvoice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace Quillary {
namespace {

using testing::HasSubstr;

constexpr std::size_t lineCount = 60;

/// The line with another title and amount, as far as they are given; it may vanish, or stand there twice.
PrintedLines withLine(
    const PrintedLines& lines, std::size_t changed, std::string_view title, std::string_view amount = {}, int times = 1)
{
    PrintedLines all;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        PrintedLines::Line line = lines[index];
        if (index == changed) {
            line.title = title.empty() ? line.title : title;
            line.amount = amount.empty() ? line.amount : amount;
        }
        for (int time = 0; time < (index == changed ? times : 1); ++time) {
            all.add(line);
        }
    }
    return all;
}

/// Of two pictures, in steps of 255. Each file has the typefaces embedded anew, with the letters that it needs, and a
/// letter's edge may then be a shade softer; a text that stands elsewhere by a pixel makes black of white.
int deepestDifference(const Bytes& picture, const Bytes& other)
{
    int deepest = picture.size() == other.size() ? 0 : 255;
    for (std::size_t at = 0; at < std::min(picture.size(), other.size()); ++at) {
        deepest = std::max(deepest, std::abs(int(picture[at]) - int(other[at])));
    }
    return deepest;
}

class PageLayoutTest : public testing::TestWithParam<TemplateDesign>
{
protected:
    PageLayoutTest()
    {
        document.settings.design = GetParam();
        document.lines = withLine(document.lines, 3, "Ein Strauß", "123.456,78 €"); // makes the column wide
        const PrintJob job = sampleJob(document);
        PrintJob marked = job;
        marked.html = PageLayout::marked(job.html);
        const PrintedPDF pdf = printer.printAndWait(marked);
        lastPage = pdf.pageCount - 1;
        layout = PageLayout::of(job.html, job.geometry, pdf.pageCount, pdf.marks);
        for (const PageMark& mark : pdf.marks) {
            if (mark.page == 2 && mark.name.starts_with("row-")) {
                firstOfThird = std::min(firstOfThird, std::size_t(std::stoi(mark.name.substr(4))));
            }
        }
    }

    PrintedPDF printAhead(PrintJob job, const PageExcerpt& excerpt)
    {
        job.html = excerpt.html;
        job.lonePage = LonePage{.index = excerpt.page, .pageCount = excerpt.pageCount};
        return printer.printAndWait(std::move(job));
    }

    WebPagePrinter printer{PrinterLimits{}};
    PrintedDocument document = sampleInvoice(lineCount);
    std::optional<PageLayout> layout;
    int lastPage = 0;
    std::size_t firstOfThird = lineCount;
};

TEST_P(PageLayoutTest, printsTheVeryPageOfTheDocument)
{
    ASSERT_TRUE(layout);
    const std::string longTitle(200, 'm');
    const std::pair<std::function<void(PrintedDocument&)>, int> cases[] = {
        {[](PrintedDocument& page) { page.intro += " Es war uns\n\neine Freude."; }, 0},
        {[&](PrintedDocument& page) { page.lines = withLine(page.lines, 0, longTitle); }, 0},
        {[&](PrintedDocument& page) { page.lines = withLine(page.lines, firstOfThird + 2, longTitle, "7,00 €"); }, 2},
        {[&](PrintedDocument& page) { page.lines = withLine(page.lines, firstOfThird, longTitle); }, 2},
        {[&](PrintedDocument& page) { page.lines = withLine(page.lines, firstOfThird + 1, {}, {}, 0); }, 2},
        {[&](PrintedDocument& page) { page.lines = withLine(page.lines, firstOfThird + 1, {}, {}, 3); }, 2},
        {[](PrintedDocument& page) { page.lines = withLine(page.lines, lineCount - 1, "Schluss", "8,00 €"); },
         lastPage},
        {[](PrintedDocument& page) { page.outro += " aus Köln"; }, lastPage},
    };
    for (const auto& [change, page] : cases) {
        PrintedDocument changed = document;
        changed.totals.back().value = "13.333,33 €"; // on the last page alone
        change(changed);
        const PrintJob job = sampleJob(changed);
        const auto excerpt = layout->excerpt(job.html);
        ASSERT_TRUE(excerpt) << page;
        EXPECT_EQ(excerpt->page, page);
        EXPECT_LT(excerpt->html.size(), job.html.size() * 3 / 4);
        const PrintedPDF ahead = printAhead(job, *excerpt);
        const PrintedPDF whole = printer.printAndWait(job);
        EXPECT_TRUE(excerpt->isExact(ahead.marks)) << page;
        EXPECT_EQ(ahead.pageCount, 1);
        EXPECT_EQ(pageTexts(ahead.bytes).front(), pageTexts(whole.bytes).at(std::size_t(page)));
        EXPECT_LT(deepestDifference(printer.pagePicture(ahead.bytes, 0, 1200).pixels,
                                    printer.pagePicture(whole.bytes, page, 1200).pixels),
                  100)
            << page;
    }
}

TEST_P(PageLayoutTest, knowsWhatItCannotKnow)
{
    ASSERT_TRUE(layout);
    PrintedDocument changed = document;
    EXPECT_FALSE(layout->excerpt(sampleJob(changed).html)) << "nothing differs";
    changed.settings.logoSize = LogoSize::large;
    EXPECT_FALSE(layout->excerpt(sampleJob(changed).html)) << "other looks";
    changed = document;
    changed.lines = withLine(withLine(changed.lines, 2, "vorne"), lineCount - 1, "hinten");
    EXPECT_FALSE(layout->excerpt(sampleJob(changed).html)) << "two pages";

    const std::pair<const char*, PrintedLines> cases[] = {
        {"a wider column breaks the pages before elsewhere",
         withLine(document.lines, firstOfThird + 2, {}, "1.123.456,78 €")},
        {"a narrower one too", withLine(document.lines, 3, {}, "1,00 €")},
        {"the page begins with less", withLine(document.lines, firstOfThird, {}, {}, 0)},
    };
    for (const auto& [reason, lines] : cases) {
        changed.lines = lines;
        const PrintJob job = sampleJob(changed);
        const auto excerpt = layout->excerpt(job.html);
        const bool isExact = excerpt && excerpt->isExact(printAhead(job, *excerpt).marks);
        const bool isSame = excerpt && pageTexts(printAhead(job, *excerpt).bytes).front() ==
                                           pageTexts(printer.printAndWait(job).bytes).at(std::size_t(excerpt->page));
        EXPECT_TRUE(!isExact || isSame) << reason;
        EXPECT_FALSE(isExact && std::string_view(reason).find("column") != std::string_view::npos) << reason;
    }
}

INSTANTIATE_TEST_SUITE_P(Designs,
                         PageLayoutTest,
                         testing::Values(TemplateDesign::modern, TemplateDesign::compact, TemplateDesign::minimal));

} // namespace
} // namespace Quillary
