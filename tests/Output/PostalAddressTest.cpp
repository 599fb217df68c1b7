#include "QuillaryCore/Output/PostalAddress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Quillary {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(PostalAddressTest, followsTheCountrysPost)
{
    struct Case
    {
        PostalAddress address;
        std::vector<std::string> expected;
    };
    const Case cases[] = {
        {{"Lindenstr. 14", "10115", "Berlin", "Berlin", "DE"}, {"Lindenstr. 14", "10115 Berlin"}},
        {{"Hauptplatz 1", "4020", "Linz", "Oberösterreich", "at"},
         {"Hauptplatz 1", "4020 Linz"}}, // no state on letters
        {{"12 High St", "BS1 4DJ", "Bristol", "", "GB"}, {"12 High St", "Bristol", "BS1 4DJ"}},
        {{"500 Main St", "78701", "Austin", "TX", "US"}, {"500 Main St", "Austin, TX 78701"}},
        {{"500 Main St", "", "Austin", "TX", "US"}, {"500 Main St", "Austin, TX"}},
        {{"1 Rue X", "M5V 2T6", "Toronto", "ON", "CA"}, {"1 Rue X", "Toronto ON M5V 2T6"}},
        {{"Via Po 2", "10123", "Torino", "TO", "IT"}, {"Via Po 2", "10123 Torino TO"}},
        {{"4 MG Road", "560001", "Bengaluru", "Karnataka", "IN"}, {"4 MG Road", "Bengaluru 560001", "Karnataka"}},
        {{"Calle Mayor 3", "28013", "Madrid", "Madrid", "ES"}, {"Calle Mayor 3", "28013 Madrid"}}, // not twice
        {{"Calle Mayor 3", "26001", "Logroño", "La Rioja", "ES"}, {"Calle Mayor 3", "26001 Logroño (La Rioja)"}},
        {{"Av. Paulista 9", "01310-100", "São Paulo", "SP", "BR"}, {"Av. Paulista 9", "São Paulo - SP", "01310-100"}},
        {{"Unit 3\n\n Dock Road \r\n", "1234", "Somewhere", "", "XX"}, {"Unit 3", "Dock Road", "1234 Somewhere"}},
        {{"", "", "", "", ""}, {}},
    };
    for (const auto& [address, expected] : cases) {
        EXPECT_EQ(address.lines(), expected) << address.city;
    }
}

} // namespace

} // namespace Quillary
