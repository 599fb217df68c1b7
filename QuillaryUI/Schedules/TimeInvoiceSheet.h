#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Sheet.h"

#include <cstdint>

class QComboBox;

namespace Quillary {

class ClientPicker;
class ProjectBox;

/// Asks how a client's unbilled time becomes the lines of a new draft.
class TimeInvoiceSheet : public Sheet
{
    Q_OBJECT

public:
    TimeInvoiceSheet(LibraryAccess& library, QWidget* host);

    /// `client` 0: the first who has time that can be billed.
    void begin(std::int64_t client);

Q_SIGNALS:
    /// A draft was made; its key.
    void made(std::int64_t document);

private:
    void showUnbilled();
    [[nodiscard]] std::optional<QString> make();

    LibraryAccess& m_library;
    ClientPicker* m_client;
    ProjectBox* m_project;
    QComboBox* m_grouping;
    QComboBox* m_rounding;
};

} // namespace Quillary
