#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"

#include <QObject>

#include <optional>

class QComboBox;
class QFormLayout;
class QLineEdit;

namespace Quillary {

class DraftFields;
class FeesModel;

/// What comes off the lines of a draft and on top of them: the discount, the fees, and how it is taxed.
class DraftCharges : public QObject
{
    Q_OBJECT

public:
    /// Adds its rows to the form.
    DraftCharges(DraftDesk& desk, DraftFields& fields, QFormLayout& form, QObject* parent);

    void fill(const Document& draft);

private:
    void addDiscount();
    void addFees();
    void addTax();
    [[nodiscard]] std::optional<JSON> readDiscount(const QString& typed) const;
    void changeTax(int choice);

    DraftDesk& m_desk;
    DraftFields& m_fields;
    QFormLayout& m_form;
    FeesModel* m_fees;
    QLineEdit* m_discount = nullptr;
    QComboBox* m_tax = nullptr;
    QLineEdit* m_taxNote = nullptr;
};

} // namespace Quillary
