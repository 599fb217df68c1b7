#include "QuillaryUI/Clients/ClientsSection.h"

#include "QuillaryCore/Letters/EmailDraft.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Clients/ClientDocumentsModel.h"
#include "QuillaryUI/Clients/ClientListModel.h"
#include "tests/QuillaryUI/WindowLibrary.h"

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

namespace Quillary {

namespace {

struct ClientsSectionTest : testing::Test, WindowLibrary
{
    ClientsSectionTest() { section.show(); }

    [[nodiscard]] QAbstractItemModel& rows() const { return *child<QTableView>(section, "clientList").model(); }
    [[nodiscard]] QString cell(int row, int column) const { return rows().index(row, column).data().toString(); }
    [[nodiscard]] const Client& client(const char* number)
    {
        return *library.context().first<Client>("number = ?", std::string(number));
    }

    /// Types into a field of the form instead of what stands there, and goes on.
    void type(const char* field, const char* text) const
    {
        auto& line = child<QLineEdit>(section, field);
        line.setFocus();
        line.selectAll();
        QTest::keyClicks(&line, text);
        QTest::keyClick(&line, Qt::Key_Return);
        settle();
    }

    ClientsSection section{library};
};

TEST_F(ClientsSectionTest, findsSortsAndFollowsChanges)
{
    const QAbstractItemModelTester list(&rows(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QAbstractItemModelTester documents(child<QTableView>(section, "clientDocuments").model(),
                                             QAbstractItemModelTester::FailureReportingMode::Fatal);
    auto& words = child<QLineEdit>(section, "listSearch");
    words.setText("sohne BERLIN"); // several words, without accents and case
    ASSERT_EQ(rows().rowCount(), 1);
    EXPECT_EQ(cell(0, 0), "Atelier Lindqvist & Söhne GmbH");
    EXPECT_FALSE(cell(0, 3).isEmpty());
    words.clear();
    ASSERT_EQ(rows().rowCount(), 4);

    const QModelIndex open = rows().index(1, 0);
    section.showClient(client("K-1007").ref.key());
    EXPECT_EQ(child<QTableView>(section, "clientList").currentIndex(), open);
    type("field_city", "York");
    EXPECT_EQ(cell(1, 2), "York");
    library.context().undo();
    settle();
    EXPECT_EQ(cell(1, 2), "Leeds");
    EXPECT_EQ(child<QLineEdit>(section, "field_city").text(), "Leeds"); // also in the field that has the keyboard
}

TEST_F(ClientsSectionTest, refusesUnderTheFieldAndKeepsWhatWasTyped)
{
    section.showClient(client("K-1012").ref.key());
    const std::string before = client("K-1012").vatID;
    type("field_vat_id", "nonsense");
    EXPECT_EQ(client("K-1012").vatID, before);
    EXPECT_EQ(child<QLineEdit>(section, "field_vat_id").text(), "nonsense");
    EXPECT_TRUE(child<QLabel>(section, "error_vat_id").text().contains("“VAT ID”"));

    type("field_hourly_rate", "97.50");
    EXPECT_EQ(client("K-1012").hourlyRateMinorUnits, 9750);
    EXPECT_EQ(child<QLineEdit>(section, "field_vat_id").text(), "nonsense"); // another field was saved meanwhile

    section.showClient(client("K-1007").ref.key()); // of another client nothing is refused
    EXPECT_TRUE(child<QLabel>(section, "error_vat_id").text().isEmpty());
    section.showClient(client("K-1012").ref.key());
    type("field_vat_id", "de 136 695 976");
    EXPECT_EQ(client("K-1012").vatID, "DE136695976");
}

TEST_F(ClientsSectionTest, leadsToADocument)
{
    section.showClient(client("K-1012").ref.key());
    auto& documents = child<QTableView>(section, "clientDocuments");
    ASSERT_GT(documents.model()->rowCount(), 0);
    QSignalSpy wanted(&section, &Section::wantedDocument);
    Q_EMIT documents.activated(documents.model()->index(0, 0));
    ASSERT_EQ(wanted.count(), 1);
    const auto* document = library.context().find(Ref<Document>(wanted[0][0].toLongLong()));
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(documents.model()->index(0, 0).data().toString(), text(document->number));
}

/// Whom an email to them is offered to, after their own address.
TEST_F(ClientsSectionTest, keepsThePeopleAtAClientInTheirOrder)
{
    const QAbstractItemModelTester tester(child<QTableView>(section, "contacts").model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    section.showClient(client("K-1012").ref.key());
    const auto add = [&](const char* name, const char* email) {
        child<QPushButton>(section, "addContact").click();
        QTest::keyClicks(&child<QLineEdit>(section, "contact_name"), name);
        QTest::keyClicks(&child<QLineEdit>(section, "contact_email"), email);
        QTest::keyClick(&child<QLineEdit>(section, "contact_email"), Qt::Key_Return);
    };
    const auto offered = [&] {
        settle();
        std::string names;
        for (const EmailRecipient& recipient : EmailDraft::recipients(library.context(), client("K-1012"))) {
            names += recipient.name == displayName(client("K-1012")) ? "" : recipient.name + ";";
        }
        return names;
    };
    add("Ana", "ana@");
    EXPECT_TRUE(child<QLabel>(section, "sheetError").text().startsWith("“Email” must be"));
    QTest::keyClicks(&child<QLineEdit>(section, "contact_email"), "one.example");
    child<QPushButton>(section, "sheetAnswer").click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle();
    add("Bo", "bo@two.example");
    EXPECT_EQ(offered(), "Ana;Bo;");
    child<QPushButton>(section, "firstContact").click(); // the one just added is chosen
    EXPECT_EQ(offered(), "Bo;Ana;");
    EXPECT_FALSE(child<QPushButton>(section, "firstContact").isEnabled());
    child<QPushButton>(section, "removeContact").click();
    EXPECT_EQ(offered(), "Ana;");
    library.context().undo();
    EXPECT_EQ(offered(), "Bo;Ana;");
}

} // namespace

} // namespace Quillary
