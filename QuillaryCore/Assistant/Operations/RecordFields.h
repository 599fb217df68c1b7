#pragma once

#include "QuillaryCore/Assistant/Tools/Arguments.h"
#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"

#include <span>
#include <string>
#include <string_view>

namespace Quillary {

struct CatalogItem;
struct CustomUnit;
struct Project;
struct TaxRate;
struct TextPreset;

/// One field of a record that the user keeps in a list: what it is called, how it is read and how it is shown.
template <class Record>
struct RecordField
{
    std::string_view name; ///< of the argument
    std::string_view description;
    bool isFlag = false;
    /// Reads and stores the argument of this name, which was given. Throws: `AssistantError` that names it.
    void (*set)(const AssistantEnvironment& environment, const Arguments& arguments, Record& record);
    std::string (*text)(const AssistantEnvironment& environment, const Record& record); ///< empty: not set
};

/// The fields of each kind of record; the first is its name, which it can't be without.
template <class Record>
[[nodiscard]] std::span<const RecordField<Record>> recordFields();

template <>
std::span<const RecordField<CatalogItem>> recordFields();
template <>
std::span<const RecordField<CustomUnit>> recordFields();
template <>
std::span<const RecordField<Project>> recordFields();
template <>
std::span<const RecordField<TaxRate>> recordFields();
template <>
std::span<const RecordField<TextPreset>> recordFields();

/// Adding, changing and removing such a record, in the caller's scope. Throws: `AssistantError`; also for a second
/// record of a name.
template <class Record>
Record& addRecord(const AssistantEnvironment& environment, const Arguments& arguments);
template <class Record>
void editRecord(const AssistantEnvironment& environment, const Arguments& arguments, const Record& record);

/// What referred to it is as if it had never been chosen; documents keep what they took from it.
template <class Record>
void removeRecord(const AssistantEnvironment& environment, const Record& record);

} // namespace Quillary
