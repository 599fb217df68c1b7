#include "QuillaryCore/Documents/ClientList.h"

#include "tests/Documents/DocumentLibrary.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Quillary {

namespace {

struct ClientListTest : testing::Test, DocumentLibrary
{
    Client& add(const char* name, const char* city)
    {
        auto& made = context.insert<Client>();
        made.name = name;
        made.city = city;
        return made;
    }

    void owe(const Client& debtor, std::int64_t amount, const char* currency = "EUR")
    {
        Document& made = document(DocumentKind::invoice, DocumentStatus::sent);
        made.client = debtor.ref;
        made.currencyCode = currency;
        made.cachedTotalMinorUnits = amount;
    }

    [[nodiscard]] std::vector<std::string>
    names(std::string_view text, ClientList::Column column, ClientList::Order order) const
    {
        std::vector<std::string> found;
        for (const std::uint32_t place : list.arranged(text, column, order)) {
            found.push_back(list.row(place).name);
        }
        return found;
    }

    ClientList list;
};

using Column = ClientList::Column;
using Order = ClientList::Order;
using Names = std::vector<std::string>;

TEST_F(ClientListTest, addsUpWhatIsOpenByCurrency)
{
    context.erase(client);
    const Client& zoe = add("Zoë", "Köln");
    const Client& anton = add("anton", "Aachen");
    owe(zoe, 10'000);
    owe(zoe, 500);
    owe(zoe, 700, "USD");
    owe(anton, 20'000);
    document(DocumentKind::invoice, DocumentStatus::draft).client = zoe.ref; // asks for nothing yet
    document(DocumentKind::quote, DocumentStatus::sent).client = zoe.ref;
    list.load(context);

    EXPECT_EQ(list.row(*list.place(zoe.ref.key())).open,
              (std::map<std::string, std::int64_t, std::less<>>{{"EUR", 10'500}, {"USD", 700}}));
    EXPECT_EQ(names("", Column::name, Order::ascending), (Names{"anton", "Zoë"}));
    EXPECT_EQ(names("", Column::open, Order::ascending), (Names{"Zoë", "anton"}));
    EXPECT_EQ(names("KOLN zoe", Column::name, Order::ascending), (Names{"Zoë"}));
    EXPECT_EQ(names("koln anton", Column::name, Order::ascending), Names());
}

TEST_F(ClientListTest, followsEachChange)
{
    context.erase(client);
    const std::int64_t first = add("Berta", "Bonn").ref.key();
    context.save();
    list.load(context);
    const auto told = context.onChanged([this](const ChangeSet& changes) { list.update(context, changes); });
    const std::int64_t second = add("Cäsar", "Celle").ref.key();
    owe(*context.find(Ref<Client>(second)), 300);
    context.save();
    EXPECT_EQ(names("", Column::open, Order::descending), (Names{"Cäsar", "Berta"}));
    context.edit(*context.find(Ref<Client>(first))).name = "Dora";
    context.save();
    EXPECT_EQ(names("", Column::name, Order::ascending), (Names{"Cäsar", "Dora"}));
    context.erase(*context.find(Ref<Client>(second)));
    context.save();
    EXPECT_EQ(names("", Column::name, Order::ascending), (Names{"Dora"}));
    EXPECT_FALSE(list.place(second));
}

} // namespace

} // namespace Quillary
