#pragma once

#include "QuillaryCore/Foundation/Clock.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"

#include <chrono>
#include <cstdint>

namespace Quillary {

/// A library in memory with the records of the model, and short ways to fill it.
struct TestLibrary
{
    static constexpr Instant start{std::chrono::sys_days(std::chrono::year(2025) / 3 / 7) + std::chrono::hours(12)};

    FixedClock clock{start};
    CountingUUIDSource uuids{1};
    Store store{Store::Location::inMemory(), DataModel::records(), DataModel::history(), clock, uuids};
    Context context{store, clock, uuids};

    Document& document(DocumentKind kind = DocumentKind::invoice, DocumentStatus status = DocumentStatus::draft)
    {
        auto& document = context.insert<Document>();
        document.kindRaw = static_cast<std::int16_t>(kind);
        document.statusRaw = static_cast<std::int16_t>(status);
        document.currencyCode = "EUR";
        return document;
    }

    LineItem& line(const Document& document, std::int64_t price, std::int32_t rate = 0)
    {
        auto& line = context.insert<LineItem>();
        line.document = document.ref;
        line.quantityThousandths = 1000;
        line.unitPriceMinorUnits = price;
        line.vatBasisPoints = rate;
        return line;
    }
};

} // namespace Quillary
