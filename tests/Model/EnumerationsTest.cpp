#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientKind.h"
#include "QuillaryCore/Model/DeliveryKind.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryCore/Model/LateFeeKind.h"
#include "QuillaryCore/Model/NumberedKind.h"
#include "QuillaryCore/Model/PaymentMethod.h"
#include "QuillaryCore/Model/ReminderLevel.h"
#include "QuillaryCore/Model/TaxLabel.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <utility>

namespace Quillary {

namespace {

/// Every number that a library can hold reads as the value with that number, or as none.
template <class Enumeration>
void expectRange(std::optional<Enumeration> (*read)(std::int16_t), int least, int most)
{
    for (int raw = std::numeric_limits<std::int16_t>::min(); raw <= std::numeric_limits<std::int16_t>::max(); ++raw) {
        const std::optional<Enumeration> value = read(static_cast<std::int16_t>(raw));
        ASSERT_EQ(value.has_value(), raw >= least && raw <= most) << raw;
        ASSERT_TRUE(!value || static_cast<int>(*value) == raw) << raw;
    }
}

} // namespace

TEST(EnumerationsTest, readUnknownNumbersAsNoValue)
{
    expectRange(documentKindFromRaw, 0, 3);
    expectRange(documentStatusFromRaw, 0, 4);
    expectRange(deliveryKindFromRaw, 0, 4);
    expectRange(clientKindFromRaw, 0, 1);
    expectRange(taxLabelFromRaw, 0, 4);
    expectRange(reminderLevelFromRaw, 1, 3);
    expectRange(taxTreatmentFromRaw, 0, 3);
}

TEST(EnumerationsTest, fallBackWhereTheyMust)
{
    Document document;
    document.deliveryKindRaw = 5;
    document.languageCode = "EN_us";
    EXPECT_EQ(deliveryKind(document), DeliveryKind::none);
    EXPECT_EQ(language(document), DocumentLanguage::english);
    document.languageCode = "nl";
    EXPECT_EQ(language(document), DocumentLanguage::dutch);

    Client client;
    client.kindRaw = -1;
    EXPECT_EQ(kind(client), ClientKind::organization);

    Business business;
    for (const std::pair<int, LateFeeKind>& row : {std::pair(0, LateFeeKind::none),
                                                   {1, LateFeeKind::fixed},
                                                   {2, LateFeeKind::percentage},
                                                   {3, LateFeeKind::none}}) {
        business.lateFeeKindRaw = static_cast<std::int16_t>(row.first);
        EXPECT_EQ(lateFeeKind(business), row.second) << row.first;
    }
    for (const std::pair<int, ReminderLevel>& row : {std::pair(0, ReminderLevel::second),
                                                     {1, ReminderLevel::first},
                                                     {2, ReminderLevel::second},
                                                     {3, ReminderLevel::final},
                                                     {4, ReminderLevel::second},
                                                     {-1, ReminderLevel::second}}) {
        business.lateFeeFromLevel = static_cast<std::int16_t>(row.first);
        EXPECT_EQ(lateFeeStartLevel(business), row.second) << row.first;
    }
    setLateFeeStartLevel(business, ReminderLevel::final);
    EXPECT_EQ(business.lateFeeFromLevel, 3);
}

TEST(EnumerationsTest, wordTheTax)
{
    Business business;
    business.customTaxLabel = " IGIC ";
    for (const std::pair<int, std::string_view>& row : {std::pair<int, std::string_view>(0, "VAT"),
                                                        {1, "GST"},
                                                        {2, "Sales Tax"},
                                                        {3, "Tax"},
                                                        {4, "IGIC"},
                                                        {9, "VAT"}}) {
        business.taxLabelRaw = static_cast<std::int16_t>(row.first);
        EXPECT_EQ(taxLabelText(business), row.second) << row.first;
    }
    business.taxLabelRaw = 4;
    business.customTaxLabel.clear();
    EXPECT_EQ(taxLabelText(business), "Tax");
}

TEST(EnumerationsTest, roundTripTheirStoredTexts)
{
    for (const PaymentMethod method : allPaymentMethods) {
        EXPECT_EQ(paymentMethodFromRaw(rawText(method)), method);
    }
    EXPECT_EQ(paymentMethodFromRaw("Cash"), std::nullopt);
    for (const DocumentLanguage language : allDocumentLanguages) {
        EXPECT_EQ(documentLanguageFromCode(code(language)), language);
    }
    EXPECT_EQ(documentLanguageFromCode("pt"), std::nullopt);
    for (const NumberedKind kind : allNumberedKinds) {
        EXPECT_EQ(numberedKindFromID(id(kind)), kind);
    }
    EXPECT_EQ(numbered(DocumentKind::recurring), NumberedKind::invoice);
    EXPECT_EQ(numbered(DocumentKind::creditNote), NumberedKind::creditNote);
}

} // namespace Quillary
