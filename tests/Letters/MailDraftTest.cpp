#include "QuillaryCore/Letters/MailDraft.h"

#include "QuillaryCore/Output/Base64.h"
#include "tests/Letters/MailReader.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace Quillary {
namespace {

constexpr Instant now =
    std::chrono::sys_days(std::chrono::year(2026) / 3 / 7) + std::chrono::hours(9) + std::chrono::minutes(5);

MailDraft draft()
{
    return {.from = {"Studio Nord", "studio@example.com"},
            .to = {{"Café Müller", "info@mueller.example"}},
            .subject = "Rechnung 2026-01 über 1.190,00 € – Gestaltung, Druck und Lieferung von Broschüren",
            .body = "Hallo,\n\nanbei die Rechnung über 1.190,00 €.\n.\nGrüße",
            .attachments = {{"Rechnung 2026-01 – Müller.pdf", Bytes(5000, 0x25)}},
            .date = now};
}

TEST(MailDraftTest, isReadBackAsItWasMeant)
{
    const MailReader mail(draft().message());
    ASSERT_EQ(mail.fault(), "");
    EXPECT_EQ(mail.header("X-Unsent"), "1");
    EXPECT_EQ(mail.header("Date"), "Sat, 7 Mar 2026 09:05:00 +0000");
    EXPECT_EQ(mail.header("From"), "\"Studio Nord\" <studio@example.com>");
    EXPECT_EQ(mail.header("To"), "Café Müller <info@mueller.example>");
    EXPECT_EQ(mail.header("Subject"), draft().subject);
    ASSERT_EQ(mail.parts().size(), 2U);
    EXPECT_EQ(mail.parts()[0].content, "Hallo,\r\n\r\nanbei die Rechnung über 1.190,00 €.\r\n.\r\nGrüße\r\n");
    EXPECT_EQ(mail.parts()[1].content, std::string(5000, '%'));
    EXPECT_EQ(mail.parts()[1].fileName, draft().attachments[0].name);
}

TEST(MailDraftTest, keepsLinesOfEncodedWordsShort)
{
    MailDraft mail = draft();
    mail.subject = mail.from.name = std::string(200, 'x'); // the first word of the subject stood past the border
    std::istringstream lines(mail.message());
    for (std::string line; std::getline(lines, line);) {
        if (line.contains("=?UTF-8?B?")) {
            EXPECT_LE(line.size(), 76U + 1) << line; // with the CR
        }
    }
}

TEST(MailDraftTest, letsNoTextBeginAHeaderOfItsOwn)
{
    const std::string_view attacks[] = {
        "A\r\nBcc: thief@example.com",
        "A\nBcc: thief@example.com\n\nBody",
        "A\r\n\r\n--=_quillary_part\r\nContent-Type: text/html\r\n\r\nX",
        "\"; filename=\"evil.exe",
        "A\" <thief@example.com>, \"B",
        "=?UTF-8?Q?A=0D=0ABcc:_thief@example.com?=",
        "\\",
        std::string_view("A\0B", 3),
        "\xFF\xFE broken",
        "\u2028Bcc: thief@example.com",
    };
    for (const std::string_view attack : attacks) {
        MailDraft mail = draft();
        mail.from.name = mail.to[0].name = mail.subject = mail.body = attack;
        mail.attachments[0].name = std::string(attack) + ".pdf";
        const MailReader read(mail.message());
        EXPECT_EQ(read.fault(), "") << attack;
        EXPECT_EQ(read.headerNames(), "X-Unsent Date From To Subject MIME-Version Content-Type ") << attack;
        EXPECT_EQ(read.parts().size(), 2U) << attack;
        EXPECT_TRUE(read.header("To").ends_with(" <info@mueller.example>")) << attack;
    }
}

TEST(MailDraftTest, addressesOnlyWhatIsOneAddress)
{
    for (const std::string_view good : {"a@b.example", "o'neil+x@sub.b.example", "jörg@müller.example"}) {
        EXPECT_TRUE(MailDraft::canAddress(good)) << good;
    }
    for (const std::string_view bad : {"",
                                       "a@b.example,c@d.example",
                                       "a@b.example\r\nBcc:x@y.example",
                                       "<a@b.example>",
                                       "a b@c.example",
                                       "\"a\"@b.example",
                                       "a@b.example;c@d.example"}) {
        EXPECT_FALSE(MailDraft::canAddress(bad)) << bad;
    }
    MailDraft mail = draft();
    mail.from.address.clear(); // the mail program knows who writes
    EXPECT_EQ(MailReader(mail.message()).header("From"), "");
}

TEST(MailDraftTest, keepsLinesShortWhateverTheLengths)
{
    MailDraft mail = draft();
    mail.subject = std::string(3000, 'x');
    mail.to[0].name = std::string(3000, 'y');
    mail.attachments[0].name.clear();
    for (int index = 0; index < 1000; ++index) {
        mail.attachments[0].name += "ü";
    }
    const MailReader read(mail.message());
    EXPECT_EQ(read.fault(), "");
    EXPECT_EQ(read.header("Subject"), mail.subject);
    EXPECT_EQ(read.parts()[1].fileName.size(), 254U);
}

} // namespace
} // namespace Quillary
