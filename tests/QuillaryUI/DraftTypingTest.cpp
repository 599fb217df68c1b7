// What is pasted into a draft, and how refusals read in a window.
#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"
#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/TaxRates.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/DraftDesk.h"
#include "QuillaryUI/Documents/LinesModel.h"
#include "QuillaryUI/Documents/PastedLines.h"
#include "QuillaryUI/Documents/WindowWords.h"
#include "tests/QuillaryUI/WindowLibrary.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

#include <cstdint>

namespace Quillary {

namespace {

TEST(DraftTypingTest, readsRowsAsSpreadsheetsCopyThem)
{
    const WindowLibrary window;
    const UnitLibrary units(window.library.context(), window.library.business());
    const std::pair<const char*, const char*> cases[] = {
        {"Design\t2\t95.50\n", R"([{"quantity":"2","unit_price":"95.50","title":"Design"}])"},
        {"Design\t1.250,00 €", R"([{"unit_price":"1250.00","title":"Design"}])"}, // a single number is the price
        {"1\tDesign\t2\thours\t95,5\t191,00\t19 %",                               // position and amount are reckoned
         R"([{"unit":"hours","tax_rate":"19.00","quantity":"2","unit_price":"95.50","title":"Design"}])"},
        {"Item\tQty\tPrice\r\nA4 paper\t10\t4\r\n", R"([{"quantity":"10","unit_price":"4.00","title":"A4 paper"}])"},
        {"Design\tas discussed\t-12.50", R"([{"unit_price":"-12.50","title":"Design","details":"as discussed"}])"},
        {"First\nSecond\n", R"([{"title":"First"},{"title":"Second"}])"},
        {"\"Design\nand print\"\t5", R"([{"unit_price":"5.00","title":"Design\nand print"}])"},
    };
    for (const auto& [text, expected] : cases) {
        const Locale locale("en_US");
        const JSON lines = PastedLines::lines(text, {.units = units, .locale = locale, .currencyCode = "EUR"});
        EXPECT_EQ(lines.dump(), expected) << text;
    }
}

TEST(DraftTypingTest, showsLighterWhatWasFilledIn)
{
    WindowLibrary window;
    Context& context = window.library.context();
    BusinessSettings::set(window.library.environment(), "invoice_number_format", "{yyyy}-{###}");
    const Document& sent = *context.first<Document>("kindRaw = 0 ORDER BY id");
    const std::int64_t draft =
        DocumentActions::duplicate(window.library.desk(), sent, window.library.now(), {}).ref.key();
    const auto add = [&](auto fill) {
        EXPECT_FALSE(window.library.perform("Add", fill));
    };
    add([&] {
        CatalogItem& item = context.insert<CatalogItem>();
        item.name = "Design";
        item.unit = "hour";
        item.unitPriceMinorUnits = 9'500;
        item.currencyCode = context.find(Ref<Document>(draft))->currencyCode;
    });
    TaxRates::makeDefault(context, TaxRates::append(context, "Standard", 1'900));
    DraftDesk desk(window.library);
    desk.setDocument(draft);
    LinesModel lines(desk);
    const QAbstractItemModelTester tester(&lines);
    lines.reload();
    const int row = lines.lineCount();
    lines.takeItem(row, "Design");
    const auto told = [&](int column) {
        const QModelIndex cell = lines.index(row, column);
        EXPECT_EQ(cell.data(Qt::ForegroundRole).isValid(), cell.data(Qt::ToolTipRole).isValid()) << column;
        return cell.data(Qt::ToolTipRole).toString();
    };
    ASSERT_EQ(lines.lineCount(), row + 1);
    EXPECT_EQ(told(LinesModel::price), "From the catalog: Design");
    EXPECT_EQ(told(LinesModel::unit), "From the catalog: Design");
    EXPECT_EQ(told(LinesModel::tax), "Your usual tax rate");
    EXPECT_EQ(told(LinesModel::quantity), "") << "nobody assumed how much it was";
    EXPECT_EQ(told(LinesModel::sum), "");
    lines.setData(lines.index(row, LinesModel::price), "80");
    EXPECT_EQ(told(LinesModel::price), "");
    lines.setTyping(row, LinesModel::unit, lines.index(row, LinesModel::unit).data(Qt::EditRole).toString());
    lines.saveTyping();
    EXPECT_EQ(told(LinesModel::unit), "") << "somebody meant it";
    EXPECT_EQ(told(LinesModel::tax), "Your usual tax rate");
}

TEST(DraftTypingTest, saysRefusalsInTheWordsOfTheWindow)
{
    const std::pair<const char*, const char*> cases[] = {
        {"“change_lines 2: unit_price” is beyond what a price can be.", "“Price” is beyond what a price can be."},
        {"“currency” isn't a currency.", "“Currency” isn't a currency."},
        {"Remove such lines first, in a call of its own (remove_lines), then change the client.",
         "Remove such lines first, then change the client."},
        {"“no_such_thing” stays.", "“no_such_thing” stays."},
    };
    for (const auto& [sentence, expected] : cases) {
        EXPECT_EQ(WindowWords::refusal(QString::fromUtf8(sentence)), QString::fromUtf8(expected));
    }
}

} // namespace

} // namespace Quillary
