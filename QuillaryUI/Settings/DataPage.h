#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Settings/ProgramPlaces.h"

#include <filesystem>
#include <functional>
#include <utility>
#include <vector>

class QLabel;
class QPushButton;
class QTableWidget;

namespace Quillary {

/// Where the library lies, its backups, one more of them, and one of them in the library's place.
class DataPage : public Section
{
    Q_OBJECT

public:
    /// Whether the library is to be exchanged for a backup, which is named in words.
    using Asker = std::function<bool(QWidget* parent, const QString& backup)>;
    /// Asks for a file; empty: none was chosen.
    using FileChooser = std::function<QString(QWidget* parent, const QString& folder)>;

    DataPage(LibraryAccess& library, ProgramPlaces::Restore restore, QWidget* parent = nullptr);

    void setAsker(Asker asker) { m_ask = std::move(asker); }
    void setFileChooser(FileChooser chooser) { m_chooseFile = std::move(chooser); }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void refresh();
    void backUp();
    void restoreChosen();
    void restoreFile();
    void restore(const std::filesystem::path& backup, const QString& name);
    void allow();
    [[nodiscard]] std::filesystem::path folder() const;

    LibraryAccess& m_library;
    ProgramPlaces::Restore m_restore;
    Asker m_ask;
    FileChooser m_chooseFile;
    std::vector<std::filesystem::path> m_files; ///< by row
    bool m_isBusy = false;
    QLabel* m_place;
    QPushButton* m_open;
    QPushButton* m_backUp;
    QPushButton* m_restoreChosen;
    QPushButton* m_restoreFile;
    QTableWidget* m_backups;
};

} // namespace Quillary
