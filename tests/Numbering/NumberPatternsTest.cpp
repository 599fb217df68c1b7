#include "QuillaryCore/Numbering/NumberPatterns.h"

#include "QuillaryCore/Numbering/NumberFormat.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

TEST(NumberPatternsTest, offersPresetsInOrder)
{
    const auto documents = [](const std::string& prefix) {
        return std::vector<NumberPreset>{{"Year, restarts every year", prefix + "-{yyyy}-{###,y}"},
                                         {"Year and month, restarts every month", "{yyyy}-{mm}-{##,m}"},
                                         {"Counter that never restarts", prefix + "-{####}"},
                                         {"Client number, counts per client", "{client}-{###,c}"}};
    };
    EXPECT_EQ(presets(NumberedKind::invoice), documents("INV"));
    EXPECT_EQ(presets(NumberedKind::quote), documents("Q"));
    EXPECT_EQ(presets(NumberedKind::creditNote), documents("CN"));
    EXPECT_EQ(presets(NumberedKind::client),
              (std::vector<NumberPreset>{{"Counter", "C-{####}"}, {"Year and counter", "C-{yyyy}-{###,y}"}}));
}

TEST(NumberPatternsTest, everyOfferIsAccepted)
{
    for (const NumberedKind kind : allNumberedKinds) {
        EXPECT_FALSE(NumberFormat::validate(defaultFormat(kind), kind)) << defaultFormat(kind);
        for (const NumberPreset& preset : presets(kind)) {
            EXPECT_FALSE(NumberFormat::validate(preset.pattern, kind)) << preset.pattern;
        }
    }
}

TEST(NumberPatternsTest, eachKindHasItsOwnPattern)
{
    const std::pair<NumberedKind, std::string Business::*> cases[] = {
        {NumberedKind::invoice, &Business::invoiceNumberFormat},
        {NumberedKind::quote, &Business::quoteNumberFormat},
        {NumberedKind::creditNote, &Business::creditNoteNumberFormat},
        {NumberedKind::client, &Business::clientNumberFormat},
    };
    for (const auto& [kind, attribute] : cases) {
        Business business;
        EXPECT_EQ(setFormat(kind, " {##} ", business), std::nullopt);
        EXPECT_EQ(business.*attribute, " {##} ") << "stored as it was typed";
        EXPECT_EQ(format(kind, business), " {##} ");

        Business expected;
        expected.*attribute = " {##} ";
        EXPECT_EQ(business, expected) << "and nothing else is touched";
    }
}

TEST(NumberPatternsTest, aBadPatternStoresNothing)
{
    Business business;
    business.clientNumberFormat = "C-{#}";
    EXPECT_EQ(setFormat(NumberedKind::client, "{client}{#}", business),
              NumberFormatError(NumberFormatError::Reason::clientNotAllowed));
    EXPECT_EQ(business.clientNumberFormat, "C-{#}");
}

} // namespace

} // namespace Quillary
