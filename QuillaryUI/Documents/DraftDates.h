#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"

#include <QObject>

class QDateEdit;
class QFormLayout;
class QLabel;
class QLineEdit;
class QSpinBox;
class QWidget;

namespace Quillary {

class DraftFields;

/// The days of a draft: when it is written, until when it is to be paid or holds, and when the work was done.
class DraftDates : public QObject
{
    Q_OBJECT

public:
    /// Adds its rows to the form.
    DraftDates(const DraftDesk& desk, DraftFields& fields, QFormLayout& form, QObject* parent);

    void fill(const Document& draft);

private:
    QDateEdit* addDay(const QString& label, const char* field);
    void addTerms();
    void addServiceDate();

    const DraftDesk& m_desk;
    DraftFields& m_fields;
    QFormLayout& m_form;
    QDateEdit* m_issueDate = nullptr;
    QWidget* m_termsRow = nullptr;
    QSpinBox* m_terms = nullptr;
    QLabel* m_due = nullptr;
    QDateEdit* m_validUntil = nullptr;
    QLineEdit* m_serviceDate = nullptr;
};

} // namespace Quillary
