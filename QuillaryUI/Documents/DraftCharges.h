#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"

#include <QObject>

class QComboBox;
class QFormLayout;
class QLineEdit;

namespace Quillary {

class ChargesModel;
class DiscountsModel;
class DraftFields;
class FeesModel;

/// What comes off the lines of a draft and on top of them: the discounts, the fees, and how it is taxed.
class DraftCharges : public QObject
{
    Q_OBJECT

public:
    /// Adds its rows to the form.
    DraftCharges(DraftDesk& desk, DraftFields& fields, QFormLayout& form, QObject* parent);

    void fill(const Document& draft);

private:
    void addTable(const QString& label, const char* field, ChargesModel& model);
    void addTax();
    void changeTax(int choice);

    DraftDesk& m_desk;
    DraftFields& m_fields;
    QFormLayout& m_form;
    DiscountsModel* m_discounts;
    FeesModel* m_fees;
    QComboBox* m_tax = nullptr;
    QLineEdit* m_taxNote = nullptr;
};

} // namespace Quillary
