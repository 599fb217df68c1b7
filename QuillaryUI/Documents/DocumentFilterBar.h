#pragma once

#include "QuillaryCore/Documents/DocumentView.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QList>
#include <QWidget>

#include <functional>

class QBoxLayout;
class QComboBox;
class QHBoxLayout;
class QLineEdit;
class QPushButton;

namespace Quillary {

class DocumentFilterPopup;

/// What a list is narrowed to: text, status and period at hand, the rest behind "Filter". What is chosen there stands
/// below as buttons, each of which takes its filter away.
class DocumentFilterBar : public QWidget
{
    Q_OBJECT

public:
    DocumentFilterBar(LibraryAccess& library, DocumentKind kind, QWidget* parent = nullptr);

    [[nodiscard]] const DocumentView& view() const { return m_view; }
    void setView(DocumentView view);

    /// Puts the keyboard into the search field.
    void find();

    /// A further control, at the end of the bar.
    void addControl(QWidget* control);

    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void changed();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void build();
    [[nodiscard]] int controlsWidth(qsizetype from) const;
    void openPopup();
    void show();
    void take();
    void showChips();
    void addChip(const QString& label, const std::function<void(DocumentView&)>& remove);
    void forgetGone();
    [[nodiscard]] QString clientName(DocumentRows::Key key) const;
    [[nodiscard]] QString projectName(DocumentRows::Key key) const;

    LibraryAccess& m_library;
    DocumentKind m_kind;
    DocumentView m_view;
    QLineEdit* m_search;
    QComboBox* m_statuses;
    QComboBox* m_periods;
    QPushButton* m_more;
    QWidget* m_chips;
    QBoxLayout* m_lines;  ///< one where there is room, else two
    QHBoxLayout* m_first; ///< the search field
    QHBoxLayout* m_rest;
    QList<QWidget*> m_controls;             ///< in their order, behind the search field
    DocumentFilterPopup* m_popup = nullptr; ///< null: nobody has opened it yet
};

} // namespace Quillary
