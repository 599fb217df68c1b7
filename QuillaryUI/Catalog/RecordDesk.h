#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/FieldForm.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace Quillary {

/// One kind of record that the user keeps in a list, without its type: what a panel shows and changes.
class RecordDesk
{
public:
    struct Field
    {
        QString name;
        bool isFlag = false;
    };

    struct Row
    {
        std::int64_t key;
        QString identifier; ///< the same for no other record, in whatever library
        QStringList texts;  ///< by field, as they are typed; a flag is "yes" or empty
        QStringList shown;  ///< the same as a list shows them: amounts and rates as the desktop writes them
    };

    RecordDesk() = default;
    RecordDesk(const RecordDesk&) = delete;
    RecordDesk& operator=(const RecordDesk&) = delete;
    virtual ~RecordDesk() = default;

    /// The first is its name, which it can't be without.
    [[nodiscard]] virtual std::vector<Field> fields() const = 0;

    /// In the user's order where there is one, else by name. Only while the library is open.
    [[nodiscard]] virtual std::vector<Row> rows() const = 0;

    /// Whether a notification concerns such records, or what they refer to.
    [[nodiscard]] virtual bool isConcerned(const ChangeSet& changes) const = 0;

    /// Each is a step of its own. No value: done; else the sentence that says why not.
    [[nodiscard]] virtual std::optional<QString> add(const QString& step, const QString& name, std::int64_t& made) = 0;
    [[nodiscard]] virtual std::optional<QString>
    change(const QString& step, std::int64_t key, const QString& field, const QString& value) = 0;
    [[nodiscard]] virtual std::optional<QString> remove(const QString& step, std::int64_t key) = 0;
};

/// The desks of the catalog.
namespace RecordDesks {

[[nodiscard]] std::unique_ptr<RecordDesk> items(LibraryAccess& library);
[[nodiscard]] std::unique_ptr<RecordDesk> projects(LibraryAccess& library);
[[nodiscard]] std::unique_ptr<RecordDesk> units(LibraryAccess& library);
[[nodiscard]] std::unique_ptr<RecordDesk> taxRates(LibraryAccess& library);
[[nodiscard]] std::unique_ptr<RecordDesk> presets(LibraryAccess& library);

} // namespace RecordDesks

} // namespace Quillary
