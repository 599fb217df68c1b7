#pragma once

#include "QuillaryCore/Documents/DocumentView.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QPushButton>

#include <cstdint>
#include <functional>

class QMenu;

namespace Quillary {

struct SavedView;

/// The views of a list that the user keeps under a name: chooses, keeps, renames, moves and deletes them. It bears the name of
/// the one that the list shows.
class SavedViewsButton : public QPushButton
{
    Q_OBJECT

public:
    /// Gives what the list shows at the moment.
    using Shown = std::function<DocumentView()>;

    /// Asks for names in sheets above `host`.
    SavedViewsButton(LibraryAccess& library, DocumentKind kind, Shown shown, QWidget* host);

    /// What the list shows has changed.
    void refresh();

Q_SIGNALS:
    void wanted(const Quillary::DocumentView& view);
    void failed(const QString& sentence);

private:
    void fill();
    void choose(std::int64_t key);
    void askForName(const QString& title, const QString& name, const std::function<void(const std::string&)>& work);
    void addMoves(std::int64_t key, const QString& name);
    void addChanges(std::int64_t key, const QString& name);
    void perform(const QString& name, const std::function<void(const SavedView&)>& work, std::int64_t key);

    LibraryAccess& m_library;
    DocumentKind m_kind;
    Shown m_shown;
    QWidget* m_host;
    QMenu* m_menu;
    std::int64_t m_chosen = 0; ///< the view chosen last; 0: none
};

} // namespace Quillary
