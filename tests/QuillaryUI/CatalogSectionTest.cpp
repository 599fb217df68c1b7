#include "QuillaryUI/Catalog/CatalogSection.h"

#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Money/Percent.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Catalog/RecordPanel.h"
#include "tests/QuillaryUI/WindowLibrary.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>

#include <gtest/gtest.h>

namespace Quillary {

namespace {

struct CatalogSectionTest : testing::Test, WindowLibrary
{
    CatalogSectionTest() { section.show(); }

    /// The panel in front.
    [[nodiscard]] RecordPanel& panel() const
    {
        for (RecordPanel* each : section.findChildren<RecordPanel*>()) {
            if (each->isVisible()) {
                return *each;
            }
        }
        throw std::runtime_error("no panel is in front");
    }

    void type(const char* field, const char* text) const
    {
        child<QLineEdit>(panel(), field).setText(QString::fromUtf8(text));
        panel().flush();
        settle();
    }

    CatalogSection section{library};
};

TEST_F(CatalogSectionTest, addsChangesRefusesAndRemoves)
{
    QAbstractItemModel& rows = *child<QTableView>(panel(), "recordList").model();
    const QAbstractItemModelTester tester(&rows, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const int before = rows.rowCount();
    section.makeNew();
    type("field_name", "Consulting");
    type("field_price", "1195.5");
    type("field_unit", "hours");
    settle();
    const auto* item = library.context().first<CatalogItem>("name = ?", std::string("Consulting"));
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->unitPriceMinorUnits, 119'550);
    EXPECT_EQ(child<QLineEdit>(panel(), "field_price").text(), "1,195.50");
    EXPECT_EQ(item->unit, "hour");

    section.makeNew(); // a name of its own, and none that is taken
    type("field_name", "consulting");
    EXPECT_TRUE(child<QLabel>(panel(), "error_name").text().contains("is there already"));
    EXPECT_EQ(child<QLineEdit>(panel(), "field_name").text(), "consulting");
    EXPECT_EQ(rows.rowCount(), before + 2);
    child<QPushButton>(panel(), "removeRecord").click();
    settle();
    EXPECT_EQ(rows.rowCount(), before + 1);
    EXPECT_NE(library.context().first<CatalogItem>("name = ?", std::string("Consulting")), nullptr);
}

TEST_F(CatalogSectionTest, hasOneUsualTaxRate)
{
    section.showPage("tax-rates");
    for (const char* name : {"High", "Low"}) {
        section.makeNew();
        type("field_name", name);
        type("field_rate", "7,5 %");
        child<QCheckBox>(panel(), "field_default").click();
        settle();
    }
    EXPECT_EQ(library.context().count<TaxRate>("isDefault = 1"), 1);
    EXPECT_EQ(library.context().first<TaxRate>("isDefault = 1")->name, "Low");
    EXPECT_EQ(library.context().first<TaxRate>("isDefault = 1")->basisPoints, 750);
    EXPECT_EQ(child<QLineEdit>(panel(), "field_rate").text(), "7.5%");
    const Formats german(Locale("de_DE"), library.formats().calendar());
    EXPECT_EQ(german.percent(750), QStringLiteral("7,5\u00a0%"));
    EXPECT_EQ(Percent::basisPoints(utf8(german.percent(750))), 750);
}

} // namespace

} // namespace Quillary
