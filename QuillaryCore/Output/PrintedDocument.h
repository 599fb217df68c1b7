#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/PrintLocale.h"
#include "QuillaryCore/Output/PrintedLines.h"
#include "QuillaryCore/Output/TemplateSettings.h"
#include "QuillaryCore/Store/Field.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;
struct Document;

/// One document as it is printed: every value formatted, nothing escaped yet. `DocumentHTML::render` makes the page.
///
/// A plain value that holds on to nothing, so it can be rendered elsewhere. An empty text or list is left out.
struct PrintedDocument
{
    struct Row
    {
        std::string label;
        std::string value;

        friend bool operator==(const Row&, const Row&) = default;
    };

    /// A letter has no lines; its figures stand across the page.
    enum class Form { document, letter };

    enum class Emphasis { figure, total, paid, due };

    struct TotalsRow
    {
        Emphasis emphasis = Emphasis::figure;
        std::string label;
        std::string value;

        friend bool operator==(const TotalsRow&, const TotalsRow&) = default;
    };

    struct Payment
    {
        std::string sentence;
        std::vector<Row> bank;
        Bytes qrCode; ///< PNG
    };

    Form form = Form::document;
    DocumentLanguage language = DocumentLanguage::english;
    TemplateSettings settings;
    std::string pageTitle; ///< of the page and of the PDF, such as "Invoice 2025-001"
    std::string heading;
    Bytes logo; ///< PNG
    std::string sellerName;
    std::vector<std::string> sellerAddress;
    std::vector<std::string> sellerContact;
    std::string sender; ///< name and address in one line
    std::string buyerName;
    std::vector<std::string> buyerAddress;
    std::vector<std::string> buyerIdentifiers;
    std::vector<Row> meta;
    std::string subtitle;
    std::string reference;
    std::string opening; ///< of a letter: one paragraph, no markup
    std::string intro;   ///< light markup
    bool hasTaxRateColumn = false;
    PrintedLines lines;
    std::vector<TotalsRow> totals;
    std::string exemptNote;
    std::string outro; ///< light markup
    std::optional<Payment> payment;
    std::vector<std::string> footerLines;
    std::string footNote;

    /// Reads a document with its lines, figures, payments, reminders and client. `business` need not be stored.
    /// Dates fall on the day they have in `calendar`; `locale` is made by `printLocale` (make it once for many documents).
    [[nodiscard]] static PrintedDocument from(Context& context,
                                              const Document& document,
                                              const Business& business,
                                              const Calendar& calendar,
                                              const Locale& locale);

    /// The same with a locale made for this document.
    [[nodiscard]] static PrintedDocument
    from(Context& context, const Document& document, const Business& business, const Calendar& calendar);
};

} // namespace Quillary
