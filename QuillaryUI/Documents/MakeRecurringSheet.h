#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Sheet.h"

#include <cstdint>

namespace Quillary {

class RecurringForm;
struct Document;
struct RecurringChoices;

/// Makes a recurring invoice of an invoice, which stays as it is.
class MakeRecurringSheet : public Sheet
{
    Q_OBJECT

public:
    MakeRecurringSheet(LibraryAccess& library, std::int64_t invoice, QWidget* host);

    void begin();

Q_SIGNALS:
    void made(std::int64_t key);

private:
    [[nodiscard]] const Document& repeat(const RecurringChoices& choices) const;
    [[nodiscard]] std::optional<QString> make();

    LibraryAccess& m_library;
    std::int64_t m_invoice;
    RecurringForm* m_form;
};

} // namespace Quillary
