#include "QuillaryCore/Output/PaymentQR.h"

#include "QuillaryCore/Model/Business.h"
#include "tests/Support/QRReader.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace Quillary {

namespace {

constexpr std::string_view iban = "de89 3704 0044 0532 0130 00";

std::string epcText(std::string_view bic, std::string_view name, std::string_view amount, std::string_view reference)
{
    return "BCD\n002\n1\nSCT\n" + std::string(bic) + "\n" + std::string(name) + "\nDE89370400440532013000\n" +
           std::string(amount) + "\n\n\n" + std::string(reference);
}

std::string repeated(std::string_view text, int count)
{
    std::string result;
    for (int index = 0; index < count; ++index) {
        result += text;
    }
    return result;
}

TEST(PaymentQRTest, writesACreditTransfer)
{
    const Money amount(119'000, "EUR");
    EXPECT_EQ(PaymentQR::epcPayload("Ada Lovelace", iban, "cobadeff xxx", amount, "2025-001"),
              epcText("COBADEFFXXX", "Ada Lovelace", "EUR1190.00", "2025-001"));
    EXPECT_EQ(PaymentQR::epcPayload(" Ada\n", iban, "COBADE", Money(5, "EUR"), ""),
              epcText("", "Ada", "EUR0.05", "")); // a faulty BIC is left out
    EXPECT_EQ(PaymentQR::epcPayload("Ada\nBCD", iban, "", amount, "1\r\n2"),
              epcText("", "Ada BCD", "EUR1190.00", "1  2")); // each line has a meaning: no text makes another
    // Characters are counted as people count them.
    EXPECT_EQ(PaymentQR::epcPayload(repeated("e\u0301", 80), iban, "", amount, repeated("x", 150)),
              epcText("", repeated("e\u0301", 70), "EUR1190.00", repeated("x", 140)));
}

TEST(PaymentQRTest, writesNoCreditTransferThatABankWouldRefuse)
{
    struct Case
    {
        std::string_view name;
        std::string_view iban;
        Money amount;
        bool isPayable;
    };
    const Case cases[] = {
        {"Ada", iban, Money(0, "EUR"), false},
        {"Ada", iban, Money(-1, "EUR"), false},
        {"Ada", iban, Money(1, "EUR"), true},
        {"Ada", iban, Money(99'999'999'999, "EUR"), true},
        {"Ada", iban, Money(100'000'000'000, "EUR"), false},
        {"Ada", iban, Money(100, "USD"), false},
        {"Ada", "DE89370400440532013001", Money(100, "EUR"), false}, // one digit off
        {"Ada", "", Money(100, "EUR"), false},
        {" \n", iban, Money(100, "EUR"), false},
    };
    for (const auto& [name, account, amount, isPayable] : cases) {
        EXPECT_EQ(PaymentQR::epcPayload(name, account, "", amount, "1").has_value(), isPayable)
            << name << " " << account << " " << amount.minorUnits();
    }
}

/// What the settings tell and what invoices carry never part: without an obstacle a payable amount has its code.
TEST(PaymentQRTest, namesWhatIsInTheWay)
{
    using enum PaymentQR::Obstacle;
    struct Case
    {
        const char* holder;
        const char* name;
        std::string_view iban;
        const char* upiID;
        const char* currency;
        std::optional<PaymentQR::Obstacle> obstacle;
    };
    const Case cases[] = {
        {"", "Ada", iban, "", "EUR", std::nullopt},
        {"Ada", "", iban, "", "eur", std::nullopt},
        {"", " \n", iban, "", "EUR", noName},
        {"", "Ada", " ", "", "EUR", noIBAN},
        {"", "Ada", "DE89370400440532013001", "", "EUR", wrongIBAN},
        {"", "Ada", "", "ada@bank", "INR", std::nullopt},
        {"", "Ada", iban, "", "INR", noUPI},
        {"", "Ada", iban, "ada", "INR", wrongUPI},
        {"", "Ada", iban, "ada@bank", "GBP", otherCurrency},
    };
    for (const auto& [holder, name, account, upiID, currency, obstacle] : cases) {
        Business business;
        business.accountHolder = holder;
        business.name = name;
        business.iban = account;
        business.upiID = upiID;
        business.currencyCode = currency;
        EXPECT_EQ(PaymentQR::obstacle(business), obstacle) << account << upiID << currency;
        const std::string& payee = business.accountHolder.empty() ? business.name : business.accountHolder;
        const bool isCode = business.currencyCode == "INR"
                                ? PaymentQR::upiPayload(upiID, payee, Money(100, "INR"), "1").has_value()
                                : PaymentQR::epcPayload(payee, account, "", Money(100, currency), "1").has_value();
        EXPECT_EQ(isCode, !obstacle) << account << upiID << currency;
    }
}

TEST(PaymentQRTest, writesAPaymentLink)
{
    EXPECT_EQ(PaymentQR::upiPayload(" ada@okbank ", " Ada & Söhne ", Money(123'405, "INR"), "R+1/25 #7"),
              "upi://pay?pa=ada@okbank&pn=Ada%20%26%20S%C3%B6hne&am=1234.05&cu=INR&tn=R%2B1/25%20%237");
    EXPECT_EQ(PaymentQR::upiPayload("ada@okbank", "Ada", Money(1, "INR"), repeated("=", 81)),
              "upi://pay?pa=ada@okbank&pn=Ada&am=0.01&cu=INR&tn=" + repeated("%3D", 80));
    EXPECT_EQ(PaymentQR::upiPayload("ada@okbank", "Ada", Money(0, "INR"), "1"), std::nullopt);
    EXPECT_EQ(PaymentQR::upiPayload("ada@okbank", "Ada", Money(100, "EUR"), "1"), std::nullopt);
    EXPECT_EQ(PaymentQR::upiPayload("ada", "Ada", Money(100, "INR"), "1"), std::nullopt);
}

TEST(PaymentQRTest, isReadBackByAnotherProgram)
{
    const std::string payloads[] = {
        PaymentQR::epcPayload(repeated("Ü", 70), iban, "COBADEFFXXX", Money(119'000, "EUR"), repeated("é", 140))
            .value_or(""),
        PaymentQR::epcPayload("Ada", iban, "", Money(1, "EUR"), "1").value_or(""),
        PaymentQR::upiPayload("ada@okbank", "अदा", Money(123'405, "INR"), "R+1").value_or(""),
    };
    for (const std::string& payload : payloads) {
        for (const int scale : {2, 4, 9}) {
            const Bytes png = PaymentQR::png(payload, scale).value_or(Bytes());
            EXPECT_EQ(readQRCode({reinterpret_cast<const char*>(png.data()), png.size()}), payload) << scale;
        }
    }
    EXPECT_EQ(PaymentQR::png(payloads[0]), PaymentQR::png(payloads[0]));
}

TEST(PaymentQRTest, refusesMoreThanACodeHolds)
{
    EXPECT_EQ(PaymentQR::png(repeated("x", 2'332)), std::nullopt);
    EXPECT_TRUE(PaymentQR::png(repeated("x", 2'331), 1));
    EXPECT_EQ(PaymentQR::png(""), std::nullopt);
}

} // namespace

} // namespace Quillary
