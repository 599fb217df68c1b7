#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Sheet.h"

#include <cstdint>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QSpinBox;

namespace Quillary {

struct RecurringChoices;

/// Makes a recurring invoice of an invoice, which stays as it is. Below the answers stands what follows from them: the
/// schedule in words and its next five dates.
class MakeRecurringSheet : public Sheet
{
    Q_OBJECT

public:
    MakeRecurringSheet(LibraryAccess& library, std::int64_t invoice, QWidget* host);

    void begin();

Q_SIGNALS:
    void made(std::int64_t key);

private:
    void build();
    void showDates();
    [[nodiscard]] RecurringChoices choices() const;
    [[nodiscard]] std::optional<QString> make();

    LibraryAccess& m_library;
    std::int64_t m_invoice;
    QSpinBox* m_interval;
    QComboBox* m_unit;
    QDateEdit* m_next;
    QComboBox* m_end;
    QSpinBox* m_count;
    QDateEdit* m_lastDay;
    QCheckBox* m_createsSent;
    QLabel* m_dates;
    bool m_hasOwnDate = false; ///< the first date was chosen, not reckoned
};

} // namespace Quillary
