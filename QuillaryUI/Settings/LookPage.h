#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QWidget>

#include <memory>
#include <optional>

namespace Quillary {

class LivePage;
class SampleLibrary;

/// The form of the look, and beside it a page in that look: a short one of the newest invoices, or one that is made up.
class LookPage : public QWidget
{
    Q_OBJECT

public:
    LookPage(LibraryAccess& library, QWidget& form);
    ~LookPage() override;

    /// The settings may have changed.
    void refresh();

private:
    [[nodiscard]] std::optional<PageJob> page();

    LibraryAccess& m_library;
    std::unique_ptr<SampleLibrary> m_samples; ///< made when it is needed
    LivePage* m_page;
};

} // namespace Quillary
