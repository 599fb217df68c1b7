#include "QuillaryCore/Model/DataModel.h"

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ReviewAnswer.h"
#include "QuillaryCore/Store/Connection.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/LibraryTables.h"
#include "QuillaryCore/Store/Store.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace Quillary {

namespace {

std::string letters(AttributeType type)
{
    return std::string(columnType(type));
}

/// "name TYPE, …; relationship -> Target erase": an entity in one line.
std::string description(const Entity& entity)
{
    std::string text;
    for (const Attribute& attribute : entity.attributes) {
        text += (text.empty() ? "" : ", ") + attribute.name + " " + letters(attribute.type);
    }
    for (const Relationship& relationship : entity.relationships) {
        text += "; " + relationship.name + " -> " + relationship.target +
                (relationship.whenTargetGoes == WhenTargetGoes::erase ? " erase" : " clear");
    }
    return text;
}

} // namespace

// What is written here is what libraries out there hold. A change needs a new version, with this one kept among the
// older models.
TEST(DataModelTest, keepsTheSchemas)
{
    const std::pair<std::string_view, std::string_view> entities[] = {
        {"Client",
         "uuid UUID, createdAt DATE, kindRaw INT16, number TEXT, name TEXT, firstName TEXT, lastName TEXT, email TEXT, "
         "phone TEXT, website TEXT, notes TEXT, addressLine TEXT, postalCode TEXT, city TEXT, state TEXT, "
         "countryCode TEXT, currencyCode TEXT, languageCode TEXT, paymentTermsDays INT16, vatID TEXT, taxID TEXT, "
         "hourlyRateMinorUnits INT64"},
        {"ContactPerson",
         "uuid UUID, name TEXT, role TEXT, email TEXT, phone TEXT, sortIndex INT32; client -> Client erase"},
        {"Document",
         "uuid UUID, createdAt DATE, kindRaw INT16, statusRaw INT16, number TEXT, issueDate DATE, dueDate DATE, "
         "paymentTermsDays INT16, validUntil DATE, currencyCode TEXT, languageCode TEXT, title TEXT, introText TEXT, "
         "outroText TEXT, taxExempt BOOL, taxExemptNote TEXT, deliveryKindRaw INT16, deliveryStart DATE, "
         "deliveryEnd DATE, cachedNetMinorUnits INT64, cachedTotalMinorUnits INT64, sentAt DATE, paidAt DATE, "
         "decidedAt DATE, sourceDocumentID UUID, tags TEXT, madeBy TEXT, cachedPaidMinorUnits INT64, "
         "cachedLateFeesMinorUnits INT64, recurrenceUnitRaw INT16, recurrenceInterval INT16, "
         "recurrenceAnchorDay INT16, nextIssueDate DATE, recurrenceEndRaw INT16, recurrenceEndCount INT16, "
         "recurrenceEndDate DATE, recurrenceCount INT32, isPaused BOOL, recurringCreatesSent BOOL, "
         "billingPeriodRaw INT16; client -> Client clear; project -> Project clear"},
        {"LineItem",
         "uuid UUID, sortIndex INT32, title TEXT, details TEXT, quantityThousandths INT64, unitPriceMinorUnits INT64, "
         "vatBasisPoints INT32, unit TEXT, unitSingular TEXT, unitPlural TEXT, catalogItemID UUID; "
         "document -> Document erase; parent -> LineItem erase"},
        {"CatalogItem",
         "uuid UUID, createdAt DATE, name TEXT, details TEXT, unitPriceMinorUnits INT64, currencyCode TEXT, unit TEXT, "
         "taxRateID UUID"},
        {"Business",
         "uuid UUID, createdAt DATE, name TEXT, email TEXT, phone TEXT, website TEXT, addressLine TEXT, "
         "postalCode TEXT, city TEXT, state TEXT, countryCode TEXT, vatID TEXT, taxID TEXT, logoData BINARY, "
         "accountHolder TEXT, bankName TEXT, iban TEXT, bic TEXT, accountNumber TEXT, bankCode TEXT, upiID TEXT, "
         "currencyCode TEXT, languageCode TEXT, paymentTermsDays INT16, taxLabelRaw INT16, customTaxLabel TEXT, "
         "taxExempt BOOL, taxExemptNote TEXT, invoiceNumberFormat TEXT, quoteNumberFormat TEXT, "
         "creditNoteNumberFormat TEXT, clientNumberFormat TEXT, fileNameFormat TEXT, hiddenUnits TEXT, "
         "templateID TEXT, accentColorHex TEXT, templateFont TEXT, logoPosition TEXT, logoSize TEXT, paperSize TEXT, "
         "showClientNumber BOOL, showSellerContact BOOL, showPaymentQRCode BOOL, footerNote TEXT, "
         "hourlyRateMinorUnits INT64, timeRoundingMinutes INT16, reminderPaymentDays INT16, lateFeeKindRaw INT16, "
         "lateFeeMinorUnits INT64, lateFeeBasisPoints INT32, lateFeeFromLevel INT16, invoiceIntroText TEXT, "
         "invoiceOutroText TEXT, quoteIntroText TEXT, quoteOutroText TEXT"},
        {"TaxRate", "uuid UUID, name TEXT, basisPoints INT32, isDefault BOOL, sortIndex INT32"},
        {"NumberSequence", "uuid UUID, key TEXT, lastValue INT64"},
        {"CustomUnit", "uuid UUID, singular TEXT, plural TEXT, code TEXT, sortIndex INT32"},
        {"Discount",
         "uuid UUID, title TEXT, kindRaw INT16, basisPoints INT32, amountMinorUnits INT64, sortIndex INT32; "
         "document -> Document erase"},
        {"Fee",
         "uuid UUID, title TEXT, amountMinorUnits INT64, vatBasisPoints INT32, sortIndex INT32; "
         "document -> Document erase"},
        {"TextPreset", "uuid UUID, kindRaw INT16, title TEXT, text TEXT, sortIndex INT32"},
        {"Project", "uuid UUID, createdAt DATE, name TEXT, isArchived BOOL"},
        {"SavedView",
         "uuid UUID, name TEXT, listKindRaw INT16, status TEXT, period TEXT, tag TEXT, projectID UUID, "
         "sortIndex INT32"},
        {"EmailTemplate", "uuid UUID, modifiedAt DATE, kindRaw INT16, languageCode TEXT, subject TEXT, body TEXT"},
        {"Payment",
         "uuid UUID, createdAt DATE, date DATE, amountMinorUnits INT64, method TEXT, note TEXT; "
         "document -> Document erase"},
        {"Reminder",
         "uuid UUID, createdAt DATE, date DATE, level INT16, feeMinorUnits INT64, payBy DATE; "
         "document -> Document erase"},
        {"TimeEntry",
         "uuid UUID, createdAt DATE, start DATE, end DATE, note TEXT, isBillable BOOL, invoiceID UUID; "
         "client -> Client clear; project -> Project clear"},
        {"DocumentTaxTreatment", "uuid UUID, documentID UUID, treatmentRaw INT16"},
        {"ReviewAnswer", "uuid UUID, documentID UUID, clientID UUID, topicRaw INT16, answer TEXT"},
        {"TimeEntryBilling", "uuid UUID, entryID UUID, lineID UUID"},
        {"CreditedPart", "uuid UUID, creditNoteID UUID, partID UUID, sourceID UUID"},
        {"SavedViewDetails",
         "uuid UUID, viewID UUID, clientID UUID, currencyCode TEXT, searchText TEXT, sortColumn TEXT, "
         "isAscending BOOL, isWithoutProject BOOL, isDueSoon BOOL, dueWithinDays INT16"},
    };
    const Schema& model = DataModel::model();
    ASSERT_EQ(model.entities.size(), std::size(entities));
    for (std::size_t index = 0; index < std::size(entities); ++index) {
        EXPECT_EQ(model.entities[index].name, entities[index].first);
        EXPECT_EQ(description(model.entities[index]), entities[index].second) << entities[index].first;
    }
    EXPECT_EQ(DataModel::fingerprint(model), "6e585a2a5e44ac725219813ee183bf21");
    EXPECT_EQ(DataModel::fingerprint(*DataModel::model(3)), "da82e3503d2269527e7c49cbb3867e29");
    EXPECT_EQ(DataModel::fingerprint(*DataModel::model(2)), "0089f53d3037172ebe17c9ccfbfce6f9");
    EXPECT_EQ(DataModel::fingerprint(*DataModel::model(1)), "fd7e799ea062d8b986446d3ccd27ec19");
}

TEST(DataModelTest, upgradesALibraryOfTheFirstVersion)
{
    const TempFolder folder;
    const FixedClock clock(Instant(std::chrono::hours(500'000)));
    CountingUUIDSource uuids;
    {
        Connection old(folder / "Library.sqlite", Connection::Access::readWrite);
        old.begin();
        LibraryTables::createEntities(old, *DataModel::model(1));
        LibraryTables::createInformation(old, UUID(UUID::Bytes{1}), clock.now(), 1);
        old.execute("INSERT INTO Client (id, uuid, name) VALUES (1, x'00000000000000000000000000000007', 'Acme')");
        old.commit();
    }
    Store store(Store::Location::directory(folder.path()), DataModel::records(), DataModel::history(), clock, uuids);
    Context context(store, clock, uuids);
    const Client* client = context.first<Client>("name = ?", std::string("Acme"));
    ASSERT_NE(client, nullptr);
    EXPECT_FALSE(ReviewAnswers::hasNoVATID(context, *client));
    ReviewAnswers::setHasNoVATID(context, *client, true);
    context.save();
    EXPECT_TRUE(ReviewAnswers::hasNoVATID(context, *client));
    context.erase(*client);
    EXPECT_EQ(context.count<ReviewAnswer>(""), 0); // the answer goes with the client
}

TEST(DataModelTest, findsTheSchemaOfAVersion)
{
    EXPECT_EQ(DataModel::model(1)->entity("ReviewAnswer"), nullptr);
    EXPECT_EQ(DataModel::model(DataModel::currentVersion), &DataModel::model());
    EXPECT_EQ(DataModel::model(0), nullptr);
    EXPECT_EQ(DataModel::model(DataModel::currentVersion + 1), nullptr);
}

} // namespace Quillary
