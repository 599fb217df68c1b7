#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Sheet.h"

#include <cstdint>

class QCheckBox;
class QDateEdit;
class QLineEdit;

namespace Quillary {

class ClientPicker;
class ProjectBox;

/// Asks what was worked at and when: a new entry, or one that is there.
class TimeSheet : public Sheet
{
    Q_OBJECT

public:
    /// `entry` 0: a new one.
    TimeSheet(LibraryAccess& library, std::int64_t entry, QWidget* host);

    void begin();

Q_SIGNALS:
    /// It is recorded; what counts some of the same time, in a sentence, or nothing.
    void recorded(const QString& warning);

private:
    [[nodiscard]] std::optional<QString> record();
    [[nodiscard]] std::int64_t write();
    void showEntry();

    LibraryAccess& m_library;
    std::int64_t m_entry;
    QString m_shownTime; ///< as the entry had it
    QDateEdit* m_day;
    QLineEdit* m_time;
    ClientPicker* m_client;
    ProjectBox* m_project;
    QLineEdit* m_note;
    QCheckBox* m_isBillable;
};

} // namespace Quillary
