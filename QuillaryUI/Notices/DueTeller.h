#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Notices/DesktopNotices.h"

#include <QObject>

#include <cstdint>
#include <vector>

namespace Quillary {

struct DueNotice;

/// Puts into notices of the desktop what the core says is news: invoices that are due or overdue, and recurring invoices
/// that were made. More than a few of a kind become one notice.
class DueTeller : public QObject
{
    Q_OBJECT

public:
    explicit DueTeller(LibraryAccess& library, QObject* parent = nullptr);

    /// To be told the next time.
    void addMade(const std::vector<std::int64_t>& invoices);

    /// Tells what is news, and forgets it where the user wants no notices. Nothing while the library is away.
    void tell();

Q_SIGNALS:
    void wantedDocument(std::int64_t key);
    /// Several things were told of at once: what needs doing lists them.
    void wantedOverview();

private:
    void tellDue(const std::vector<DueNotice>& notices, bool isOverdue);
    void tellMade();

    LibraryAccess& m_library;
    DesktopNotices m_notices;
    std::vector<std::int64_t> m_made;
};

} // namespace Quillary
