#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QWidget>

#include <cstdint>

class QBoxLayout;
class QLabel;
class QMenu;
class QPushButton;

namespace Quillary {

class RelatedDocuments;
struct Document;

/// What stands above a document's page: its name, its status in words, what it is related to, and the buttons of what is
/// usually done next. What was sent also says there why it is locked.
class DocumentHead : public QWidget
{
    Q_OBJECT

public:
    /// `menu` holds everything else that can be done.
    DocumentHead(const LibraryAccess& library, QMenu& menu, QWidget* parent = nullptr);

    void fill(const Document& document);

    /// A draft has a button that opens its editor, and one that closes it.
    void setEditing(bool canEdit, bool isEditing);

    /// The words of the next step; empty: there is none.
    void setNextStep(const QString& words);

Q_SIGNALS:
    void wantedDocument(std::int64_t key);
    void editClicked();
    void nextStepClicked();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void build(QMenu& menu);

    const LibraryAccess& m_library;
    QLabel* m_name;
    QLabel* m_status;
    RelatedDocuments* m_related;
    QPushButton* m_edit;
    QPushButton* m_next;
    QLabel* m_locked;
    QBoxLayout* m_row;
};

} // namespace Quillary
