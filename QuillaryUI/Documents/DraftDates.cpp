#include "QuillaryUI/Documents/DraftDates.h"

#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryUI/Documents/DraftFields.h"
#include "QuillaryUI/Documents/ServiceDateText.h"
#include "QuillaryUI/Look/DateField.h"
#include "QuillaryUI/Look/Theme.h"

#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QSpinBox>

namespace Quillary {

namespace {

constexpr int longestTerms = 3650;

} // namespace

DraftDates::DraftDates(const DraftDesk& desk, DraftFields& fields, QFormLayout& form, QObject* parent)
    : QObject(parent)
    , m_desk(desk)
    , m_fields(fields)
    , m_form(form)
{
    m_issueDate = addDay(tr("Date"), "issue_date");
    addTerms();
    m_validUntil = addDay(tr("Valid until"), "valid_until");
    addServiceDate();
}

QDateEdit* DraftDates::addDay(const QString& label, const char* field)
{
    auto* edit = new QDateEdit;
    DateField::dress(*edit);
    connect(edit, &QDateEdit::dateChanged, this, [this, edit, field] {
        m_fields.typedValue(field, [edit] { return JSON(utf8(edit->date().toString(Qt::ISODate))); });
    });
    m_fields.addRow(m_form, label, field, edit);
    return edit;
}

void DraftDates::addTerms()
{
    m_terms = new QSpinBox;
    m_terms->setRange(0, longestTerms);
    m_terms->setSuffix(tr(" days"));
    connect(m_terms, &QSpinBox::valueChanged, this, [this] {
        m_fields.typedValue("payment_terms_days", [this] { return JSON(m_terms->value()); });
    });
    m_due = new QLabel;
    m_due->setObjectName(QStringLiteral("dueDate"));
    Theme::tint(*m_due, m_due->palette().color(QPalette::PlaceholderText));
    m_termsRow = new QWidget;
    auto* row = new QHBoxLayout(m_termsRow);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_terms);
    row->addWidget(m_due, 1);
    m_fields.addRow(m_form, tr("To be paid within"), "payment_terms_days", m_terms, m_termsRow);
}

void DraftDates::addServiceDate()
{
    m_serviceDate = m_fields.addReadLine(
        m_form,
        tr("Delivered or done"),
        "service_date",
        [](const QString& typed) -> std::optional<JSON> {
            const auto argument = typed.isEmpty() ? std::optional(std::string()) : ServiceDateText::argument(typed);
            return argument ? std::optional(JSON::object({{"service_date", *argument}})) : std::nullopt;
        },
        [this] {
            return tr("Write a date such as %1, or two with a dash between them.")
                .arg(QLocale().toString(m_issueDate->date(), QLocale::ShortFormat));
        });
    m_serviceDate->setPlaceholderText(tr("A date, or from – to"));
}

void DraftDates::fill(const Document& draft)
{
    const Formats& formats = m_desk.library().formats();
    const bool isQuote = kind(draft) == DocumentKind::quote;
    const bool isTemplate = kind(draft) == DocumentKind::recurring; // its schedule says when, and what for
    const bool isInvoice = isTemplate || kind(draft).value_or(DocumentKind::invoice) == DocumentKind::invoice;
    if (draft.issueDate && !m_fields.isKept(*m_issueDate)) {
        m_issueDate->setDate(formats.qDate(*draft.issueDate));
    }
    m_form.setRowVisible(m_issueDate, !isTemplate);
    m_form.setRowVisible(m_serviceDate, !isTemplate);
    m_form.setRowVisible(m_termsRow, isInvoice);
    m_form.setRowVisible(m_validUntil, isQuote);
    if (!m_fields.isKept(*m_terms)) {
        m_terms->setValue(draft.paymentTermsDays);
    }
    m_due->setText(draft.dueDate ? tr("Due on %1").arg(formats.date(draft.dueDate)) : QString());
    if (draft.validUntil && !m_fields.isKept(*m_validUntil)) {
        m_validUntil->setDate(formats.qDate(*draft.validUntil));
    }
    m_fields.put(*m_serviceDate, ServiceDateText::of(draft, formats));
}

} // namespace Quillary
