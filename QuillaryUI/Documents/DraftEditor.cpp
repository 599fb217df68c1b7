#include "QuillaryUI/Documents/DraftEditor.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Review/DocumentReview.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Percent.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/ClientPicker.h"
#include "QuillaryUI/Documents/LinesTable.h"
#include "QuillaryUI/Documents/ServiceDateText.h"
#include "QuillaryUI/Documents/TypedNumber.h"
#include "QuillaryUI/Look/Theme.h"

#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QVBoxLayout>

#include <utility>

namespace Quillary {

namespace {

constexpr int pause = 350; ///< milliseconds; with saving and printing well below a second
constexpr int longestTerms = 3650;
constexpr int textHeight = 64;
constexpr int border = 20;
constexpr int leastWidth = 560;

QLabel* heading(const QString& text)
{
    auto* label = new QLabel(text);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

/// Saving trims a text: while somebody types, the blank that they have just typed is theirs.
bool differs(const QString& shown, const QString& stored, bool isTyping)
{
    return isTyping ? shown.trimmed() != stored.trimmed() : shown != stored;
}

QString discountText(const Discount& discount, const Document& draft, const Formats& formats)
{
    return Totals::discountKindFromRaw(discount.kindRaw) == Totals::DiscountKind::percentage
               ? text(Percent::format(discount.basisPoints))
               : formats.amount(discount.amountMinorUnits, draft.currencyCode);
}

QString nativeName(DocumentLanguage language)
{
    switch (language) {
    case DocumentLanguage::english:
        return QStringLiteral("English");
    case DocumentLanguage::german:
        return QStringLiteral("Deutsch");
    case DocumentLanguage::french:
        return QStringLiteral("Français");
    case DocumentLanguage::spanish:
        return QStringLiteral("Español");
    case DocumentLanguage::dutch:
        return QStringLiteral("Nederlands");
    case DocumentLanguage::italian:
        return QStringLiteral("Italiano");
    }
    return {};
}

/// The argument of `update_document` that a review names, as a field of this form.
QString linkTo(const std::string& field)
{
    const std::string name = field.substr(0, field.find(' '));
    return text(name == "add_lines" || name == "change_lines" ? "lines" : name);
}

} // namespace

DraftEditor::DraftEditor(LibraryAccess& library, QWidget* parent)
    : QScrollArea(parent)
    , m_desk(library)
    , m_lines(new LinesModel(m_desk, this))
{
    setObjectName(QStringLiteral("draftEditor"));
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setMinimumWidth(leastWidth);
    build();
    m_pause.setSingleShot(true);
    m_pause.setInterval(pause);
    connect(&m_pause, &QTimer::timeout, this, &DraftEditor::flush);
    connect(&library, &LibraryAccess::changed, this, &DraftEditor::reload);
    connect(&library, &LibraryAccess::opened, this, &DraftEditor::reload);
    connect(&library, &LibraryAccess::closing, this, &DraftEditor::flush);
    connect(m_lines, &LinesModel::refused, this, [this](const QString& sentence) { tell("lines", sentence); });
}

void DraftEditor::build()
{
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(border, border, border, border);
    column->setSpacing(12);
    m_review = new QLabel(page);
    m_review->setObjectName(QStringLiteral("review"));
    m_review->setWordWrap(true);
    m_review->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(m_review, &QLabel::linkActivated, this, &DraftEditor::showField);
    column->addWidget(m_review);

    auto* head = new QFormLayout;
    buildHead(*head);
    column->addLayout(head);

    column->addWidget(heading(tr("Lines")));
    m_table = new LinesTable(m_desk.library(), *m_lines, page);
    m_fields["lines"] = m_table;
    m_errors["lines"] = new QLabel(page);
    m_errors["lines"]->setObjectName(QStringLiteral("linesError"));
    Theme::tint(*m_errors["lines"], Theme::errorColor());
    column->addWidget(m_table);
    column->addWidget(m_errors["lines"]);
    m_totals = new QLabel(page);
    m_totals->setObjectName(QStringLiteral("totals"));
    m_totals->setAlignment(Qt::AlignRight);
    column->addWidget(m_totals);

    auto* texts = new QFormLayout;
    buildTexts(*texts);
    column->addLayout(texts);
    column->addStretch();
    for (auto& [field, label] : m_errors) {
        label->setWordWrap(true);
        label->hide();
    }
    setWidget(page);
}

void DraftEditor::buildHead(QFormLayout& form)
{
    m_client = new ClientPicker(m_desk.library());
    connect(m_client, &ClientPicker::picked, this, [this](std::int64_t key) {
        if (const Client* client = m_desk.library().context().find(Ref<Client>(key))) {
            change("client", Lookup::idText(client->uuid));
        }
    });
    connect(m_client, &ClientPicker::wantedNew, this, &DraftEditor::wantedClient);
    addRow(form, tr("Client"), "client", m_client);

    m_issueDate = new QDateEdit;
    m_issueDate->setCalendarPopup(true);
    m_issueDate->setDisplayFormat(QLocale().dateFormat(QLocale::ShortFormat));
    connect(m_issueDate, &QDateEdit::dateChanged, this, [this] {
        typed("issue_date", [this] { return JSON(utf8(m_issueDate->date().toString(Qt::ISODate))); });
    });
    addRow(form, tr("Date"), "issue_date", m_issueDate);

    m_terms = new QSpinBox;
    m_terms->setRange(0, longestTerms);
    m_terms->setSuffix(tr(" days"));
    connect(m_terms, &QSpinBox::valueChanged, this, [this] {
        typed("payment_terms_days", [this] { return JSON(m_terms->value()); });
    });
    addRow(form, tr("To be paid within"), "payment_terms_days", m_terms);

    m_serviceDate = new QLineEdit;
    m_serviceDate->setPlaceholderText(tr("A date, or from – to"));
    connect(m_serviceDate, &QLineEdit::editingFinished, this, &DraftEditor::changeServiceDate);
    addRow(form, tr("Delivered or done"), "service_date", m_serviceDate);

    m_title = lineField(form, tr("Title"), "title");
    m_intro = textField(form, tr("Introduction"), "intro");
}

void DraftEditor::buildTexts(QFormLayout& form)
{
    m_discount = new QLineEdit;
    m_discount->setPlaceholderText(tr("10% or an amount"));
    connect(m_discount, &QLineEdit::editingFinished, this, &DraftEditor::changeDiscount);
    addRow(form, tr("Discount"), "discount", m_discount);

    m_tax = new QComboBox;
    m_tax->addItems({tr("Taxed"), tr("Reverse charge (EU)"), tr("Outside the EU"), tr("Exempt")});
    connect(m_tax, &QComboBox::activated, this, &DraftEditor::changeTax);
    addRow(form, tr("Tax"), "tax", m_tax);
    m_taxNote = lineField(form, tr("Why there's no tax"), "tax_exempt_note");

    m_outro = textField(form, tr("Closing text"), "footer");

    m_language = new QComboBox;
    for (const DocumentLanguage language : allDocumentLanguages) {
        const QString languageCode = text(code(language));
        m_language->addItem(nativeName(language), languageCode);
    }
    connect(m_language, &QComboBox::activated, this, [this] {
        change("language", utf8(m_language->currentData().toString()));
    });
    addRow(form, tr("Language"), "language", m_language);

    m_currency = new QLineEdit;
    connect(m_currency, &QLineEdit::editingFinished, this, [this] {
        const Document* draft = m_desk.document();
        if (!m_isFilling && draft != nullptr && utf8(m_currency->text().trimmed()) != draft->currencyCode) {
            change("currency", utf8(m_currency->text().trimmed()));
        }
    });
    addRow(form, tr("Currency"), "currency", m_currency);
}

void DraftEditor::addRow(QFormLayout& form, const QString& label, const std::string& field, QWidget* widget)
{
    auto* error = new QLabel;
    Theme::tint(*error, Theme::errorColor());
    error->setObjectName(text(field + "Error"));
    widget->setObjectName(text(field));
    widget->setAccessibleName(label);
    m_errors[field] = error;
    m_fields[field] = widget;
    form.addRow(label, widget);
    form.addRow(QString(), error);
}

QLineEdit* DraftEditor::lineField(QFormLayout& form, const QString& label, const std::string& field)
{
    auto* edit = new QLineEdit;
    connect(edit, &QLineEdit::textEdited, this, [this, edit, field] {
        typed(field, [edit] { return JSON(utf8(edit->text())); });
    });
    addRow(form, label, field, edit);
    return edit;
}

QPlainTextEdit* DraftEditor::textField(QFormLayout& form, const QString& label, const std::string& field)
{
    auto* edit = new QPlainTextEdit;
    edit->setTabChangesFocus(true);
    edit->setFixedHeight(textHeight);
    connect(edit, &QPlainTextEdit::textChanged, this, [this, edit, field] {
        typed(field, [edit] { return JSON(utf8(edit->toPlainText())); });
    });
    addRow(form, label, field, edit);
    return edit;
}

void DraftEditor::setDocument(std::int64_t key)
{
    if (key == m_desk.key()) {
        return;
    }
    flush();
    m_desk.setDocument(key);
    for (auto& [field, label] : m_errors) {
        label->clear();
        label->hide();
    }
    m_isOther = true; // nothing that stands in the fields belongs to it
    reload();
    m_isOther = false;
}

/// What was typed and not saved yet, or refused, stays.
bool DraftEditor::isKept(const QWidget& field) const
{
    const std::string name = utf8(field.objectName());
    const auto error = m_errors.find(name);
    return !m_isOther && (m_unsaved.contains(name) || (error != m_errors.end() && !error->second->text().isEmpty()));
}

void DraftEditor::put(QLineEdit& field, const QString& text)
{
    // Fields that are saved when one leaves them are being typed into until then.
    const bool isTyping = !m_isOther && field.hasFocus();
    const bool isLeftLater = &field == m_serviceDate || &field == m_discount || &field == m_currency;
    if (!isKept(field) && !(isTyping && isLeftLater && field.isModified()) && differs(field.text(), text, isTyping)) {
        field.setText(text);
    }
}

void DraftEditor::put(QPlainTextEdit& field, const QString& text)
{
    const bool isTyping = !m_isOther && field.hasFocus();
    if (!isKept(field) && differs(field.toPlainText(), text, isTyping)) {
        field.setPlainText(text);
    }
}

void DraftEditor::reload()
{
    if (m_desk.document() != nullptr) {
        m_isFilling = true;
        fill();
        m_lines->reload();
        fillTotals();
        fillReview();
        m_isFilling = false;
    }
}

void DraftEditor::fill()
{
    const Document& draft = *m_desk.document();
    const Formats& formats = m_desk.library().formats();
    Context& context = m_desk.library().context();
    if (m_isOther || !m_client->hasFocus() || m_client->client() != draft.client.key()) {
        m_client->setClient(draft.client.key());
    }
    if (draft.issueDate && !isKept(*m_issueDate)) {
        m_issueDate->setDate(formats.qDate(*draft.issueDate));
    }
    const bool isQuote = kind(draft) == DocumentKind::quote;
    m_terms->setEnabled(!isQuote);
    if (!isKept(*m_terms)) {
        m_terms->setValue(draft.paymentTermsDays);
    }
    put(*m_serviceDate, ServiceDateText::of(draft, formats));
    put(*m_title, text(draft.title));
    put(*m_intro, text(draft.introText));
    put(*m_outro, text(draft.outroText));
    put(*m_currency, text(draft.currencyCode));
    m_language->setCurrentIndex(m_language->findData(text(code(language(draft)))));
    const TaxTreatment treatment = taxTreatment(context, draft);
    m_tax->setCurrentIndex(int(treatment));
    put(*m_taxNote, text(draft.taxExemptNote));
    m_taxNote->setEnabled(draft.taxExempt);
    const auto discounts = sortedDiscounts(context, draft);
    put(*m_discount, discounts.empty() ? QString() : discountText(*discounts.front(), draft, formats));
    m_discount->setEnabled(discounts.size() < 2);
}

void DraftEditor::fillTotals()
{
    const Document& draft = *m_desk.document();
    const Formats& formats = m_desk.library().formats();
    const Totals::Result totals = calculateTotals(m_desk.library().context(), draft);
    QString text = tr("Net %1").arg(formats.money(totals.net, draft.currencyCode));
    for (const Totals::TaxLine& line : totals.taxLines) {
        text +=
            tr(" &nbsp;·&nbsp; Tax %1 %2")
                .arg(Quillary::text(Percent::format(line.basisPoints)), formats.money(line.tax, draft.currencyCode));
    }
    text += tr(" &nbsp;·&nbsp; <b>Total %1</b>").arg(formats.money(totals.total, draft.currencyCode));
    m_totals->setText(text);
}

void DraftEditor::fillReview()
{
    const AssistantEnvironment& environment = m_desk.library().environment();
    const DocumentReview review = DocumentReview::review(environment.context,
                                                         *m_desk.document(),
                                                         environment.ownBusiness(),
                                                         m_desk.library().today(),
                                                         environment.locale);
    QString text;
    for (const ReviewQuestion& question : review.questions) {
        text += QStringLiteral("<li><a href=\"%1\">%2</a></li>")
                    .arg(linkTo(question.field), Quillary::text(question.text).toHtmlEscaped());
    }
    for (const ReviewProblem& problem : review.problems) {
        text += QStringLiteral("<li>%1</li>").arg(Quillary::text(problem.problem).toHtmlEscaped());
    }
    m_review->setText(text.isEmpty() ? tr("Nothing is missing.") : tr("<b>What's missing</b><ul>%1</ul>").arg(text));
}

void DraftEditor::showField(const QString& field)
{
    const auto found = m_fields.find(utf8(field));
    QWidget* widget = found == m_fields.end() ? m_table : found->second;
    ensureWidgetVisible(widget);
    widget->setFocus(Qt::OtherFocusReason);
}

void DraftEditor::begin()
{
    const Document* draft = m_desk.document();
    if (draft == nullptr) {
        return;
    }
    if (!draft->client) {
        m_client->setFocus(Qt::OtherFocusReason);
    } else {
        m_table->setFocus(Qt::OtherFocusReason);
        m_table->setCurrentIndex(m_lines->index(m_lines->lineCount(), LinesModel::title));
    }
}

void DraftEditor::typed(const std::string& field, std::function<JSON()> value)
{
    if (!m_isFilling) {
        m_unsaved[field] = std::move(value);
        m_pause.start();
    }
}

void DraftEditor::flush()
{
    m_pause.stop();
    for (auto& [field, value] : std::exchange(m_unsaved, {})) {
        change(field, value());
    }
}

void DraftEditor::change(const std::string& field, JSON value)
{
    tell(field, m_desk.change(tr("Change Document"), field, std::move(value)).value_or(QString()));
}

void DraftEditor::changeTax(int choice)
{
    const auto treatment = taxTreatmentFromRaw(std::int16_t(choice)).value_or(TaxTreatment::standard);
    JSON arguments = JSON::object({{"tax_exempt", false}});
    if (treatment == TaxTreatment::reverseCharge) {
        arguments = JSON::object({{"reverse_charge", true}});
    } else if (treatment == TaxTreatment::outsideEU) {
        arguments = JSON::object({{"outside_eu", true}});
    } else if (treatment == TaxTreatment::exempt) {
        arguments = JSON::object({{"tax_exempt", true}});
    }
    tell("tax", m_desk.change(tr("Change Tax"), arguments).value_or(QString()));
}

void DraftEditor::changeDiscount()
{
    const Document* draft = m_desk.document();
    if (m_isFilling || draft == nullptr) {
        return;
    }
    const auto discounts = sortedDiscounts(m_desk.library().context(), *draft);
    const Formats& formats = m_desk.library().formats();
    const QString typed = m_discount->text().trimmed();
    if (typed == (discounts.empty() ? QString() : discountText(*discounts.front(), *draft, formats))) {
        return;
    }
    if (typed.isEmpty() || typed.endsWith(QChar(u'%'))) {
        const auto rate = typed.isEmpty() ? std::optional(0) : Percent::basisPoints(utf8(typed));
        if (!rate) {
            tell("discount", tr("A discount in percent is 0 to 100, such as 7.5%."));
            return;
        }
        tell("discount",
             m_desk.change(tr("Change Discount"), "discount_percent", Decimal::fromInteger(*rate, 2).text())
                 .value_or(QString()));
        return;
    }
    const auto amount = TypedNumber::amount(typed, draft->currencyCode, formats.locale());
    if (!amount) {
        tell("discount", tr("Write a discount as 10% or as an amount such as 50.00."));
        return;
    }
    tell("discount",
         m_desk.change(tr("Change Discount"), "discount_amount", Money(*amount, draft->currencyCode).plainText())
             .value_or(QString()));
}

void DraftEditor::changeServiceDate()
{
    const Document* draft = m_desk.document();
    if (m_isFilling || draft == nullptr ||
        m_serviceDate->text() == ServiceDateText::of(*draft, m_desk.library().formats())) {
        return;
    }
    if (m_serviceDate->text().trimmed().isEmpty()) {
        tell("service_date", m_desk.clearServiceDate().value_or(QString()));
        return;
    }
    const std::optional<std::string> argument = ServiceDateText::argument(m_serviceDate->text());
    if (!argument) {
        tell("service_date",
             tr("Write a date such as %1, or two with a dash between them.")
                 .arg(QLocale().toString(m_issueDate->date(), QLocale::ShortFormat)));
        return;
    }
    change("service_date", *argument);
}

void DraftEditor::tell(const std::string& field, const QString& sentence)
{
    QLabel* label = m_errors.at(m_errors.contains(field) ? field : "lines");
    label->setText(sentence);
    label->setVisible(!sentence.isEmpty());
}

} // namespace Quillary
