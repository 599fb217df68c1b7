#include "QuillaryCore/Model/DataModel.h"

#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Model/CreditedPart.h"
#include "QuillaryCore/Model/CustomUnit.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryCore/Model/EmailTemplate.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/NumberSequence.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Model/ReviewAnswer.h"
#include "QuillaryCore/Model/SavedView.h"
#include "QuillaryCore/Model/SavedViewDetails.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TextPreset.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Model/TimeEntryBilling.h"
#include "QuillaryCore/Store/Fingerprint.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace Quillary::DataModel {

namespace {

/// The current schema without the entities that came after a version.
Schema without(std::vector<std::string_view> entities, int version)
{
    Schema schema = records().schema(version);
    std::erase_if(schema.entities,
                  [&](const Entity& entity) { return std::ranges::find(entities, entity.name) != entities.end(); });
    return schema;
}

/// Version 1 remembered neither answers that change no record nor which line billed a time entry.
Schema firstVersion()
{
    return without({ReviewAnswer::entityName,
                    TimeEntryBilling::entityName,
                    CreditedPart::entityName,
                    SavedViewDetails::entityName},
                   1);
}

/// Version 2 didn't know which line of an invoice a credit note takes back.
Schema secondVersion()
{
    return without({CreditedPart::entityName, SavedViewDetails::entityName}, 2);
}

/// Version 3 kept views without their client, currency, text and order.
Schema thirdVersion()
{
    return without({SavedViewDetails::entityName}, 3);
}

} // namespace

const Records& records()
{
    static const Records types = Records::of<Client,
                                             ContactPerson,
                                             Document,
                                             LineItem,
                                             CatalogItem,
                                             Business,
                                             TaxRate,
                                             NumberSequence,
                                             CustomUnit,
                                             Discount,
                                             Fee,
                                             TextPreset,
                                             Project,
                                             SavedView,
                                             EmailTemplate,
                                             Payment,
                                             Reminder,
                                             TimeEntry,
                                             DocumentTaxTreatment,
                                             ReviewAnswer,
                                             TimeEntryBilling,
                                             CreditedPart,
                                             SavedViewDetails>();
    return types;
}

const SchemaHistory& history()
{
    static const SchemaHistory versions{records().schema(currentVersion),
                                        {firstVersion(), secondVersion(), thirdVersion()}};
    return versions;
}

const Schema& model()
{
    return history().current;
}

const Schema* model(int version)
{
    if (version == currentVersion) {
        return &model();
    }
    const auto older = std::ranges::find(olderModels(), version, &Schema::version);
    return older == olderModels().end() ? nullptr : &*older;
}

const std::vector<Schema>& olderModels()
{
    return history().older;
}

std::string fingerprint(const Schema& model)
{
    return Quillary::fingerprint(model);
}

} // namespace Quillary::DataModel
