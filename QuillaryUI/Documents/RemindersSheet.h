#pragma once

#include "QuillaryUI/Documents/ReminderWriting.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Sheet.h"

#include <cstdint>
#include <span>
#include <vector>

class QCheckBox;
class QTableView;

namespace Quillary {

class LivePage;
class PaperView;
class RemindersModel;

/// Shows the next reminder of each of several invoices, with the chosen one's letter beside it, and which of them can't
/// be sent and why. Writing them is the caller's.
class RemindersSheet : public Sheet
{
    Q_OBJECT

public:
    RemindersSheet(LibraryAccess& library, std::span<const std::int64_t> documents, QWidget* host);

    void begin();

Q_SIGNALS:
    void wanted(std::vector<Quillary::PlannedReminder> planned);

private:
    void build();
    void showLetter(int row);

    LibraryAccess& m_library;
    RemindersModel* m_model;
    QTableView* m_table;
    QCheckBox* m_email;
    PaperView* m_paper;
    LivePage* m_page;
};

} // namespace Quillary
