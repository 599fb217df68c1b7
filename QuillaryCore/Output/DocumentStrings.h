#pragma once

#include "QuillaryCore/Model/DocumentLanguage.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace Quillary {

struct Document;

/// The words printed on documents, in one of the document languages.
class DocumentStrings
{
public:
    enum class Key {
        invoice,
        quote,
        creditNote,
        number,
        date,
        dueDate,
        validUntil,
        clientNumber,
        deliveryDate,
        serviceDate,
        deliveryPeriod,
        servicePeriod,
        taxNumber,
        description,
        quantity,
        unitPrice,
        amount,
        subtotal,
        discount,
        net,
        total,
        taxOn,
        payment,
        payBy,
        payOnReceipt,
        accountHolder,
        bank,
        accountNumber,
        bankCode,
        scanToPay,
        creditNoteFor,
        page,
        paid,
        amountDue,
        lateFee,
        invoiceTotal,
        invoiceNumber,
        invoiceDate,
        reminder1,
        reminder2,
        reminder3,
        reminderText1,
        reminderText2,
        reminderText3,
    };

    /// What replaces {word} in a label.
    struct Value
    {
        std::string_view word;
        std::string_view text;
    };

    explicit DocumentStrings(DocumentLanguage language)
        : m_language(language)
    {
    }

    [[nodiscard]] std::string_view text(Key key) const;

    /// The label with every {word} replaced by its value. A word without a value stays as it is; values are not
    /// searched again.
    [[nodiscard]] std::string format(Key key, std::initializer_list<Value> values) const;

    [[nodiscard]] DocumentLanguage language() const { return m_language; }

private:
    DocumentLanguage m_language;
};

/// The heading of a document: the word for its kind. A template is headed as the invoices made from it, and so is a
/// document whose kind can't be read.
[[nodiscard]] DocumentStrings::Key headingKey(const Document& document);

} // namespace Quillary
