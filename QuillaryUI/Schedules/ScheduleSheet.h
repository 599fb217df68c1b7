#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Sheet.h"

#include <cstdint>

namespace Quillary {

class RecurringForm;
struct Document;
struct RecurringChoices;

/// Asks when the invoices of a template are made, whom they are for, and what they are called.
class ScheduleSheet : public Sheet
{
    Q_OBJECT

public:
    ScheduleSheet(LibraryAccess& library, std::int64_t recurring, QWidget* host);

    void begin();

private:
    [[nodiscard]] const Document& change(const RecurringChoices& choices) const;

    LibraryAccess& m_library;
    std::int64_t m_template;
    RecurringForm* m_form;
};

} // namespace Quillary
