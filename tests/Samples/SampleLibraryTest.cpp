#include "QuillaryCore/Samples/SampleLibrary.h"

#include "QuillaryCore/Billing/DocumentLimits.h"
#include "QuillaryCore/Letters/ReminderLetter.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Validation.h"
#include "QuillaryCore/Output/DocumentHTML.h"
#include "QuillaryCore/Output/PrintedDocument.h"
#include "QuillaryCore/Samples/SampleTexts.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace Quillary {

namespace {

std::map<std::string, std::string> pages(SampleLibrary& library)
{
    std::map<std::string, std::string> result;
    for (const SampleLibrary::Sample& sample : library.samples()) {
        result[sample.name] = DocumentHTML::render(
            PrintedDocument::from(library.context(), *sample.document, library.business(), library.calendar()));
    }
    for (const SampleLibrary::Letter& letter : library.letters()) {
        result[letter.name] = DocumentHTML::render(ReminderLetter::printed(
            library.context(), *letter.document, library.business(), letter.reminder, library.calendar()));
    }
    return result;
}

TEST(SampleLibraryTest, makesTheSamePagesEveryTime)
{
    SampleLibrary first(DocumentLanguage::german);
    SampleLibrary second(DocumentLanguage::german);
    EXPECT_GE(first.samples().size(), 9U);
    EXPECT_EQ(pages(first), pages(second));
}

TEST(SampleLibraryTest, holdsWhatThePagesShallShowInEveryLanguage)
{
    for (const DocumentLanguage language : allDocumentLanguages) {
        SampleLibrary library(language);
        std::map<std::string, std::string> html = pages(library);
        const auto shows = [&](const std::string& sample, const std::string& markup) {
            EXPECT_NE(html[sample].find(markup), std::string::npos) << code(language) << " " << sample << " " << markup;
        };
        shows("invoice", "<tr class=\"sub\">");
        shows("invoice", "<th class=\"num\">%</th>");
        shows("invoice-partly-paid", "<tr class=\"paid\">");
        shows("invoice-overdue", "<tr class=\"due\">");
        shows("invoice-reverse-charge", "<p class=\"exempt\">");
        shows("quote", "<bdi>");
        for (const std::string level : {"1", "2", "3"}) {
            shows("reminder-" + level, "<div class=\"text opening\">");
            shows("reminder-" + level, "<section class=\"payment\">");
        }
        shows("credit-note", "<p class=\"reference\">");
        EXPECT_EQ(html["invoice"].find("class=\"qr\"") != std::string::npos, library.business().currencyCode == "EUR");
        EXPECT_TRUE(Validation::isValidIBAN(sampleTexts(language).iban)) << code(language);
        for (const SampleLibrary::Sample& sample : library.samples()) {
            EXPECT_EQ(checkAggregates(library.context(), *sample.document), std::nullopt) << sample.name;
        }
    }
}

TEST(SampleLibraryTest, usesAnyCurrency)
{
    SampleLibrary library(DocumentLanguage::english, "INR");
    EXPECT_NE(pages(library)["invoice"].find("class=\"qr\""), std::string::npos);
    EXPECT_EQ(library.samples().front().document->currencyCode, "INR");
}

} // namespace

} // namespace Quillary
