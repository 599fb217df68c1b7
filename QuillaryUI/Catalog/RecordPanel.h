#pragma once

#include "QuillaryUI/Catalog/RecordDesk.h"
#include "QuillaryUI/Catalog/RecordTexts.h"
#include "QuillaryUI/Library/Section.h"

#include <cstdint>
#include <memory>

class QLineEdit;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace Quillary {

class FieldForm;
class RecordListModel;

/// The list of one kind of record and the form of the chosen one: one panel for all of them.
class RecordPanel : public Section
{
    Q_OBJECT

public:
    RecordPanel(LibraryAccess& library, std::unique_ptr<RecordDesk> desk, RecordTexts texts, QWidget* parent = nullptr);
    ~RecordPanel() override;

    [[nodiscard]] const RecordTexts& texts() const { return m_texts; }

    void makeNew() override;
    void find() override;
    void flush() override;

private:
    void build();
    QWidget* buildBar();
    QWidget* buildEmpty();
    QWidget* buildForm();
    void reload();
    void choose();
    void begin(std::int64_t key);
    void restore();
    void showRow();
    void remove();
    [[nodiscard]] QString freeName() const;

    LibraryAccess& m_library;
    std::unique_ptr<RecordDesk> m_desk;
    RecordTexts m_texts;
    RecordListModel* m_model;
    QTableView* m_table;
    QLineEdit* m_search;
    QStackedWidget* m_list;
    FieldForm* m_form;
    QPushButton* m_remove;
    std::int64_t m_chosen = 0;
    bool m_isRestoring = false;
};

} // namespace Quillary
