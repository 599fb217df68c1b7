#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Settings/ProgramPlaces.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <utility>

class QLabel;
class QPushButton;

namespace Quillary {

/// The logo as it is kept, and the buttons that exchange it and take it off.
class LogoRow : public QWidget
{
    Q_OBJECT

public:
    /// Asks for a file; empty: none was chosen.
    using FileChooser = std::function<QString(QWidget* parent)>;

    LogoRow(LibraryAccess& library, ProgramPlaces::LogoMaker makeLogo, QWidget* parent = nullptr);

    void setFileChooser(FileChooser chooser) { m_chooseFile = std::move(chooser); }

    /// Shows what is stored.
    void refresh();

private:
    void choose();
    void remove();
    void tell(const QString& sentence);

    LibraryAccess& m_library;
    ProgramPlaces::LogoMaker m_makeLogo;
    FileChooser m_chooseFile;
    QLabel* m_picture;
    QLabel* m_error;
    QPushButton* m_remove;
};

} // namespace Quillary
