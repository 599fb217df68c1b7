#include "QuillaryUI/Catalog/RecordDesk.h"

#include "QuillaryCore/Assistant/Description/DocumentDescription.h"
#include "QuillaryCore/Assistant/Operations/RecordFields.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/CustomUnit.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TextPreset.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Percent.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/TypedNumber.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <type_traits>

namespace Quillary {

namespace {

template <class Record>
class TypedDesk final : public RecordDesk
{
public:
    explicit TypedDesk(LibraryAccess& library)
        : m_library(library)
    {
    }

    [[nodiscard]] std::vector<Field> fields() const override
    {
        std::vector<Field> list;
        for (const RecordField<Record>& field : recordFields<Record>()) {
            list.push_back({text(field.name), field.isFlag});
        }
        return list;
    }

    [[nodiscard]] std::vector<Row> rows() const override
    {
        std::vector<const Record*> records = m_library.context().template fetch<Record>("");
        std::ranges::stable_sort(records, {}, [&](const Record* record) {
            if constexpr (requires { record->sortIndex; }) {
                return record->sortIndex;
            } else {
                return folded(recordFields<Record>().front().text(m_library.environment(), *record));
            }
        });
        std::vector<Row> list;
        for (const Record* record : records) {
            const QString identifier = record->uuid ? text(record->uuid->text()) : QString();
            list.push_back({record->ref.key(), identifier, {}, {}});
            for (const RecordField<Record>& field : recordFields<Record>()) {
                const std::string plain = field.text(m_library.environment(), *record);
                list.back().texts.push_back(typed(*record, field.name, plain));
                list.back().shown.push_back(shown(*record, field.name, list.back().texts.back()));
            }
        }
        return list;
    }

    [[nodiscard]] bool isConcerned(const ChangeSet& changes) const override
    {
        const bool isItem = std::is_same_v<Record, CatalogItem>; // they show their unit and their rate
        return !changes.of<Record>().isEmpty() ||
               (isItem && (!changes.of<CustomUnit>().isEmpty() || !changes.of<TaxRate>().isEmpty()));
    }

    [[nodiscard]] std::optional<QString> add(const QString& step, const QString& name, std::int64_t& made) override
    {
        return m_library.perform(step, [&] {
            const std::string field(recordFields<Record>().front().name);
            const JSON given = JSON::object({{field, utf8(name)}});
            made = addRecord<Record>(m_library.environment(), Arguments(given)).ref.key();
        });
    }

    [[nodiscard]] std::optional<QString>
    change(const QString& step, std::int64_t key, const QString& field, const QString& value) override
    {
        return m_library.perform(step, [&] {
            if (const Record* record = find(key)) {
                const JSON given = JSON::object({{utf8(field), argument(*record, field, value)}});
                editRecord(m_library.environment(), Arguments(given), *record);
            }
        });
    }

    [[nodiscard]] std::optional<QString> remove(const QString& step, std::int64_t key) override
    {
        return m_library.perform(step, [&] {
            if (const Record* record = find(key)) {
                removeRecord(m_library.environment(), *record);
            }
        });
    }

private:
    [[nodiscard]] const Record* find(std::int64_t key) const { return m_library.context().find(Ref<Record>(key)); }

    static bool isRate(std::string_view field) { return field == "rate" || field == "tax_rate"; }

    /// What stands in the form: figures as the desktop writes them.
    [[nodiscard]] QString typed(const Record& record, std::string_view field, const std::string& plain) const
    {
        const Formats& formats = m_library.formats();
        if constexpr (requires { record.unitPriceMinorUnits; }) {
            if (field == "price") {
                return formats.amount(record.unitPriceMinorUnits, record.currencyCode);
            }
        }
        const auto rate = isRate(field) ? Percent::basisPoints(plain) : std::nullopt;
        return rate ? formats.percent(*rate) : text(plain);
    }

    /// What stands in the list.
    [[nodiscard]] QString shown(const Record& record, std::string_view field, const QString& typed) const
    {
        if constexpr (requires { record.unitPriceMinorUnits; }) {
            return field == "price" ? m_library.formats().money(record.unitPriceMinorUnits, record.currencyCode)
                                    : typed;
        }
        return typed;
    }

    /// Flags are flags; figures may be typed as the desktop writes them.
    [[nodiscard]] JSON argument(const Record& record, const QString& field, const QString& value) const
    {
        for (const RecordField<Record>& known : recordFields<Record>()) {
            if (known.isFlag && text(known.name) == field) {
                return !value.isEmpty();
            }
        }
        if constexpr (requires { record.unitPriceMinorUnits; }) {
            const auto amount = field == QLatin1String("price")
                                    ? TypedNumber::amount(value, record.currencyCode, m_library.formats().locale())
                                    : std::nullopt;
            if (amount) {
                return Money(*amount, record.currencyCode).plainText();
            }
        }
        const auto rate = isRate(utf8(field)) ? Percent::basisPoints(utf8(value)) : std::nullopt;
        return rate ? rateFigure(*rate) : utf8(value);
    }

    LibraryAccess& m_library;
};

} // namespace

std::unique_ptr<RecordDesk> RecordDesks::items(LibraryAccess& library)
{
    return std::make_unique<TypedDesk<CatalogItem>>(library);
}

std::unique_ptr<RecordDesk> RecordDesks::projects(LibraryAccess& library)
{
    return std::make_unique<TypedDesk<Project>>(library);
}

std::unique_ptr<RecordDesk> RecordDesks::units(LibraryAccess& library)
{
    return std::make_unique<TypedDesk<CustomUnit>>(library);
}

std::unique_ptr<RecordDesk> RecordDesks::taxRates(LibraryAccess& library)
{
    return std::make_unique<TypedDesk<TaxRate>>(library);
}

std::unique_ptr<RecordDesk> RecordDesks::presets(LibraryAccess& library)
{
    return std::make_unique<TypedDesk<TextPreset>>(library);
}

} // namespace Quillary
