#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Sheet.h"

#include <cstdint>

class QComboBox;

namespace Quillary {

class RecurringForm;
struct Document;
struct RecurringChoices;

/// Makes a recurring invoice of an invoice, which stays as it is.
class MakeRecurringSheet : public Sheet
{
    Q_OBJECT

public:
    /// `invoice` 0: one of those that are there, which is asked first.
    MakeRecurringSheet(LibraryAccess& library, std::int64_t invoice, QWidget* host);

    /// Whether there is an invoice that one could be made of.
    [[nodiscard]] static bool isPossible(const LibraryAccess& library);

    void begin();

Q_SIGNALS:
    void made(std::int64_t key);

private:
    void addInvoices();
    [[nodiscard]] const Document& repeat(const RecurringChoices& choices) const;
    [[nodiscard]] std::optional<QString> make();

    LibraryAccess& m_library;
    std::int64_t m_invoice;
    QComboBox* m_invoices = nullptr; ///< null: it isn't asked
    bool m_isMistyped = false;       ///< words that are no invoice's gave way to the chosen one's
    RecurringForm* m_form;
};

} // namespace Quillary
