#pragma once

#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Sheet.h"

#include <cstdint>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLineEdit;

namespace Quillary {

/// Writes a payment reminder: its level, fee and the day to pay by are as the settings have them, unless something else
/// is said. The letter lies as a PDF before the reminder is recorded; if it is wanted a draft of an email with it goes
/// to the mail program. Nothing is sent.
class ReminderSheet : public Sheet
{
    Q_OBJECT

public:
    ReminderSheet(LibraryAccess& library, std::int64_t document, QWidget* host);

    void begin();

private:
    void show(const ReminderDetails& details);
    void changeLevel();
    [[nodiscard]] Instant today() const;
    [[nodiscard]] std::optional<QString> write();
    void offerEmail();
    void print(const ReminderNotice& notice);

    LibraryAccess& m_library;
    std::int64_t m_document;
    QComboBox* m_level;
    QLineEdit* m_fee;
    QDateEdit* m_payBy;
    QCheckBox* m_email;
    QLineEdit* m_to;
};

} // namespace Quillary
