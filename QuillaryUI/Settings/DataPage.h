#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"

#include <filesystem>

class QLabel;
class QPushButton;
class QTableWidget;

namespace Quillary {

/// Where the library lies, its backups, and one more of them.
class DataPage : public Section
{
    Q_OBJECT

public:
    explicit DataPage(LibraryAccess& library, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void refresh();
    void backUp();
    [[nodiscard]] std::filesystem::path folder() const;

    LibraryAccess& m_library;
    QLabel* m_place;
    QPushButton* m_open;
    QPushButton* m_backUp;
    QTableWidget* m_backups;
};

} // namespace Quillary
