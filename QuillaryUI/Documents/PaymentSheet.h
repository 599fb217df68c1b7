#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Sheet.h"

#include <cstdint>

class QComboBox;
class QDateEdit;
class QLineEdit;

namespace Quillary {

/// Records money that came in for an invoice: all that is due, today, unless something else is said.
class PaymentSheet : public Sheet
{
    Q_OBJECT

public:
    PaymentSheet(LibraryAccess& library, std::int64_t document, QWidget* host);

    void begin();

private:
    [[nodiscard]] std::optional<QString> record();

    LibraryAccess& m_library;
    std::int64_t m_document;
    QLineEdit* m_amount;
    QDateEdit* m_date;
    QComboBox* m_method;
    QLineEdit* m_note;
};

} // namespace Quillary
