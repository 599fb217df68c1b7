#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QPushButton>

class QMenu;
class QPlainTextEdit;

namespace Quillary {

/// Puts one of the user's saved texts into a field, or saves what stands there as one.
class PresetButton : public QPushButton
{
    Q_OBJECT

public:
    enum class Kind { intro = 0, outro = 1 }; ///< as `TextPreset::kindRaw`

    PresetButton(LibraryAccess& library, Kind kind, QPlainTextEdit& field);

Q_SIGNALS:
    void failed(const QString& sentence);

private:
    void fillMenu();
    void keep();

    LibraryAccess& m_library;
    Kind m_kind;
    QPlainTextEdit& m_field;
    QMenu* m_menu;
};

} // namespace Quillary
