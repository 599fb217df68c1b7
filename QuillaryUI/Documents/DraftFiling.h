#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"

#include <QWidget>

class QComboBox;
class QFormLayout;
class QLineEdit;
class QToolButton;

namespace Quillary {

class DraftFields;
class ProjectBox;

/// What is seldom needed in a draft, folded away: its project and tags, and the language and currency that it is written
/// in.
class DraftFiling : public QWidget
{
    Q_OBJECT

public:
    DraftFiling(DraftDesk& desk, DraftFields& fields, QWidget* parent);

    void fill(const Document& draft);

    /// Unfolds it.
    void open();
    [[nodiscard]] QFormLayout& form() const { return *m_form; }

private:
    void build();
    void addProject();
    void addTags();
    void addLanguage();
    void addCurrency();

    DraftDesk& m_desk;
    DraftFields& m_fields;
    QToolButton* m_more;
    QWidget* m_folded;
    QFormLayout* m_form;
    ProjectBox* m_project = nullptr;
    QLineEdit* m_tags = nullptr;
    QComboBox* m_language = nullptr;
    QLineEdit* m_currency = nullptr;
};

} // namespace Quillary
