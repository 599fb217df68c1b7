#include "QuillaryUI/Documents/DraftEditor.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Percent.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/ClientPicker.h"
#include "QuillaryUI/Documents/FeesModel.h"
#include "QuillaryUI/Documents/FeesTable.h"
#include "QuillaryUI/Documents/LinesTable.h"
#include "QuillaryUI/Documents/PresetButton.h"
#include "QuillaryUI/Documents/ReviewPanel.h"
#include "QuillaryUI/Documents/ServiceDateText.h"
#include "QuillaryUI/Documents/TypedNumber.h"
#include "QuillaryUI/Library/ProjectBox.h"
#include "QuillaryUI/Look/Choices.h"
#include "QuillaryUI/Look/Theme.h"

#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStringList>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr int pause = 600; ///< milliseconds; with saving well below a second
constexpr int longestTerms = 3650;
constexpr int border = 20;
constexpr int leastWidth = 560;
constexpr qsizetype codeLength = 3; ///< of a currency

QLabel* heading(const QString& text)
{
    auto* label = new QLabel(text);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

QDateEdit* dateField()
{
    auto* edit = new QDateEdit;
    edit->setCalendarPopup(true);
    edit->setDisplayFormat(QLocale().dateFormat(QLocale::ShortFormat));
    return edit;
}

JSON isoDate(const QDateEdit* edit)
{
    return utf8(edit->date().toString(Qt::ISODate));
}

QString discountText(const Discount& discount, const Document& draft, const Formats& formats)
{
    return Totals::discountKindFromRaw(discount.kindRaw) == Totals::DiscountKind::percentage
               ? text(Percent::format(discount.basisPoints))
               : formats.amount(discount.amountMinorUnits, draft.currencyCode);
}

std::vector<std::string> tagsOf(const QString& typed)
{
    std::vector<std::string> tags;
    for (const QString& tag : typed.split(QChar(u','), Qt::SkipEmptyParts)) {
        tags.push_back(utf8(tag.trimmed()));
    }
    return tags;
}

/// One column of labels over several forms.
void alignLabels(std::initializer_list<QFormLayout*> forms)
{
    std::vector<QWidget*> labels;
    int width = 0;
    for (const QFormLayout* form : forms) {
        for (int row = 0; row < form->rowCount(); ++row) {
            const QLayoutItem* item = form->itemAt(row, QFormLayout::LabelRole);
            if (item != nullptr && item->widget() != nullptr) {
                labels.push_back(item->widget());
                width = std::max(width, item->widget()->sizeHint().width());
            }
        }
    }
    for (QWidget* label : labels) {
        label->setMinimumWidth(width);
    }
}

} // namespace

DraftEditor::DraftEditor(LibraryAccess& library, QWidget* parent)
    : QScrollArea(parent)
    , m_desk(library)
    , m_fields(new DraftFields(m_desk, this))
    , m_lines(new LinesModel(m_desk, this))
    , m_fees(new FeesModel(m_desk, this))
{
    setObjectName(QStringLiteral("draftEditor"));
    setFocusPolicy(Qt::NoFocus); // its fields have it
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
    connect(m_fields, &DraftFields::typing, this, &DraftEditor::whenTyped);
    connect(m_lines, &LinesModel::typing, this, &DraftEditor::whenTyped);
    connect(
        m_lines, &LinesModel::refused, this, [this](const QString& sentence) { m_fields->tell("lines", sentence); });
    connect(m_fees, &FeesModel::refused, this, [this](const QString& sentence) { m_fields->tell("fees", sentence); });
}

void DraftEditor::build()
{
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(border, border, border, border);
    column->setSpacing(12);
    setWidget(page);
    buildReview();
    column->addWidget(m_review);
    m_head = new QFormLayout;
    column->addLayout(m_head);
    buildHead(*m_head);
    buildLines(*column);
    m_texts = new QFormLayout;
    column->addLayout(m_texts);
    buildTexts(*m_texts);
    buildMore(*column);
    column->addStretch();
}

void DraftEditor::buildReview()
{
    m_review = new ReviewPanel(m_desk, widget());
    connect(m_review, &ReviewPanel::wantedField, this, &DraftEditor::showField);
    connect(m_review, &ReviewPanel::wantedNewClient, this, [this] { Q_EMIT wantedClient({}); });
    connect(m_review, &ReviewPanel::wantedClient, this, &DraftEditor::wantedClientRecord);
    connect(m_review, &ReviewPanel::wantedSettings, this, &DraftEditor::wantedSettings);
    connect(m_review, &ReviewPanel::failed, this, &DraftEditor::failed);
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
    m_fields->addRow(form, tr("Client"), "client", m_client);
    buildDates(form);
    m_serviceDate = m_fields->addReadLine(
        form,
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
    m_title = m_fields->addLine(form, tr("Title"), "title");
    m_intro = presetField(form, tr("Introduction"), "intro");
}

void DraftEditor::buildDates(QFormLayout& form)
{
    m_issueDate = dateField();
    connect(m_issueDate, &QDateEdit::dateChanged, this, [this] {
        m_fields->typedValue("issue_date", [this] { return isoDate(m_issueDate); });
    });
    m_fields->addRow(form, tr("Date"), "issue_date", m_issueDate);

    m_terms = new QSpinBox;
    m_terms->setRange(0, longestTerms);
    m_terms->setSuffix(tr(" days"));
    connect(m_terms, &QSpinBox::valueChanged, this, [this] {
        m_fields->typedValue("payment_terms_days", [this] { return JSON(m_terms->value()); });
    });
    m_due = new QLabel;
    m_due->setObjectName(QStringLiteral("dueDate"));
    Theme::tint(*m_due, palette().color(QPalette::PlaceholderText));
    m_termsRow = new QWidget;
    auto* row = new QHBoxLayout(m_termsRow);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_terms);
    row->addWidget(m_due, 1);
    m_fields->addRow(form, tr("To be paid within"), "payment_terms_days", m_terms, m_termsRow);

    m_validUntil = dateField();
    connect(m_validUntil, &QDateEdit::dateChanged, this, [this] {
        m_fields->typedValue("valid_until", [this] { return isoDate(m_validUntil); });
    });
    m_fields->addRow(form, tr("Valid until"), "valid_until", m_validUntil);
}

void DraftEditor::buildLines(QVBoxLayout& column)
{
    column.addWidget(heading(tr("Lines")));
    m_table = new LinesTable(m_desk.library(), *m_lines, widget());
    auto* error = new QLabel(widget());
    m_fields->add("lines", m_table, error);
    m_copyLast = new QPushButton(tr("Copy the lines of the last invoice"), widget());
    m_copyLast->setObjectName(QStringLiteral("copyLastInvoice"));
    connect(m_copyLast, &QPushButton::clicked, this, [this] {
        const JSON wish = JSON::object({{"copy_last_invoice", true}});
        m_fields->tell("lines", m_desk.change(tr("Copy Lines"), wish).value_or(QString()));
    });
    m_totals = new QLabel(widget());
    m_totals->setObjectName(QStringLiteral("totals"));
    m_totals->setAlignment(Qt::AlignRight);
    column.addWidget(m_table);
    column.addWidget(error);
    column.addWidget(m_copyLast, 0, Qt::AlignLeft);
    column.addWidget(m_totals);
}

QPlainTextEdit* DraftEditor::presetField(QFormLayout& form, const QString& label, const std::string& field)
{
    QPlainTextEdit* edit = m_fields->makeText(field);
    auto* presets = new PresetButton(
        m_desk.library(), field == "intro" ? PresetButton::Kind::intro : PresetButton::Kind::outro, *edit);
    connect(presets, &PresetButton::failed, this, &DraftEditor::failed);
    auto* both = new QWidget;
    auto* row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(edit, 1);
    row->addWidget(presets, 0, Qt::AlignTop);
    m_fields->addRow(form, label, field, edit, both);
    return edit;
}

void DraftEditor::buildTexts(QFormLayout& form)
{
    m_discount = m_fields->addReadLine(
        form,
        tr("Discount"),
        "discount",
        [this](const QString& typed) { return readDiscount(typed); },
        [] { return tr("Write a discount as a percentage from 0% to 100%, or as an amount such as 50.00."); });
    m_discount->setPlaceholderText(tr("10% or an amount"));
    buildFees(form);
    buildTax(form);
    m_outro = presetField(form, tr("Closing text"), "footer");
}

void DraftEditor::buildFees(QFormLayout& form)
{
    auto* fees = new FeesTable(*m_fees);
    m_fields->addRow(form, tr("Fees"), "fees", fees);
}

void DraftEditor::buildTax(QFormLayout& form)
{
    m_tax = new QComboBox;
    m_tax->addItems({tr("Taxed"), tr("Reverse charge (EU)"), tr("Outside the EU"), tr("Exempt")});
    connect(m_tax, &QComboBox::activated, this, &DraftEditor::changeTax);
    m_fields->addRow(form, tr("Tax"), "tax", m_tax);
    m_taxNote = m_fields->addLine(form, tr("Why there's no tax"), "tax_exempt_note");
}

/// What is seldom needed, folded away.
void DraftEditor::buildMore(QVBoxLayout& column)
{
    m_more = new QToolButton(widget());
    m_more->setObjectName(QStringLiteral("moreFields"));
    m_more->setText(tr("Project, tags, language and currency"));
    m_more->setCheckable(true);
    m_more->setAutoRaise(true);
    m_more->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_more->setArrowType(Qt::RightArrow);
    auto* folded = new QWidget(widget());
    auto* form = new QFormLayout(folded);
    form->setContentsMargins(0, 0, 0, 0);
    folded->hide();
    connect(m_more, &QToolButton::toggled, folded, [this, folded](bool isOpen) {
        m_more->setArrowType(isOpen ? Qt::DownArrow : Qt::RightArrow);
        folded->setVisible(isOpen);
    });

    m_project = new ProjectBox(m_desk.library(), tr("No project"));
    connect(m_project, &QComboBox::activated, this, [this] {
        const Document* draft = m_desk.document();
        const auto key = m_project->project();
        m_fields->tell("project",
                       draft == nullptr ? QString()
                                        : m_desk.library()
                                              .attempt([&] {
                                                  const Project* project =
                                                      m_desk.library().context().find(Ref<Project>(key));
                                                  DocumentActions::setProject(m_desk.library().desk(), *draft, project);
                                              })
                                              .value_or(QString()));
    });
    m_fields->addRow(*form, tr("Project"), "project", m_project);
    m_tags = new QLineEdit;
    m_tags->setPlaceholderText(tr("With commas between them"));
    connect(m_tags, &QLineEdit::textEdited, this, [this] {
        m_fields->typedApart("tags", [this]() -> std::optional<QString> {
            const Document* draft = m_desk.document();
            return draft == nullptr ? std::nullopt : m_desk.library().attempt([&] {
                DocumentActions::setTags(m_desk.library().desk(), *draft, tagsOf(m_tags->text()));
            });
        });
    });
    m_fields->addRow(*form, tr("Tags"), "tags", m_tags);
    buildPrintedIn(*form);
    alignLabels({m_head, m_texts, form});
    column.addWidget(m_more, 0, Qt::AlignLeft);
    column.addWidget(folded);
}

void DraftEditor::buildPrintedIn(QFormLayout& form)
{
    m_language = new QComboBox;
    for (const FieldForm::Choice& choice : Choices::languages()) {
        m_language->addItem(choice.label, choice.value);
    }
    connect(m_language, &QComboBox::activated, this, [this] {
        change("language", utf8(m_language->currentData().toString()));
    });
    m_fields->addRow(form, tr("Language"), "language", m_language);
    m_currency = m_fields->addReadLine(
        form,
        tr("Currency"),
        "currency",
        [](const QString& typed) {
            return typed.size() == codeLength ? std::optional(JSON::object({{"currency", utf8(typed.toUpper())}}))
                                              : std::nullopt;
        },
        [] { return tr("A currency has three letters, such as EUR."); });
}

void DraftEditor::setDocument(std::int64_t key)
{
    if (key == m_desk.key()) {
        return;
    }
    flush();
    m_desk.setDocument(key);
    m_fields->forget();
    if (m_desk.document() != nullptr) {
        m_fields->fill(true, [this] { fill(); });
    }
}

void DraftEditor::reload()
{
    if (m_desk.document() != nullptr) {
        m_fields->fill(false, [this] { fill(); });
    }
}

void DraftEditor::fill()
{
    const Document& draft = *m_desk.document();
    Context& context = m_desk.library().context();
    if (m_fields->isOther() || !m_client->hasFocus() || m_client->client() != draft.client.key()) {
        m_client->setClient(draft.client.key());
    }
    fillDates(draft);
    m_fields->put(*m_title, text(draft.title));
    m_fields->put(*m_intro, text(draft.introText));
    m_fields->put(*m_outro, text(draft.outroText));
    m_fields->put(*m_currency, text(draft.currencyCode));
    m_language->setCurrentIndex(m_language->findData(text(code(language(draft)))));
    fillTax(draft);
    const auto discounts = sortedDiscounts(context, draft);
    m_fields->put(*m_discount,
                  discounts.empty() ? QString() : discountText(*discounts.front(), draft, m_desk.library().formats()));
    m_discount->setEnabled(discounts.size() < 2);
    m_project->setProject(draft.project.key());
    QStringList tags;
    for (const std::string& tag : tagList(draft)) {
        tags.push_back(text(tag));
    }
    m_fields->put(*m_tags, tags.join(QStringLiteral(", ")));
    m_lines->reload();
    m_fees->reload();
    m_copyLast->setVisible(canCopyLast(draft));
    fillTotals(draft);
    m_review->reload();
}

void DraftEditor::fillDates(const Document& draft)
{
    const Formats& formats = m_desk.library().formats();
    const bool isQuote = kind(draft) == DocumentKind::quote;
    const bool isInvoice = kind(draft).value_or(DocumentKind::invoice) == DocumentKind::invoice;
    if (draft.issueDate && !m_fields->isKept(*m_issueDate)) {
        m_issueDate->setDate(formats.qDate(*draft.issueDate));
    }
    m_head->setRowVisible(m_termsRow, isInvoice);
    m_head->setRowVisible(m_validUntil, isQuote);
    if (!m_fields->isKept(*m_terms)) {
        m_terms->setValue(draft.paymentTermsDays);
    }
    m_due->setText(draft.dueDate ? tr("Due on %1").arg(formats.date(draft.dueDate)) : QString());
    if (draft.validUntil && !m_fields->isKept(*m_validUntil)) {
        m_validUntil->setDate(formats.qDate(*draft.validUntil));
    }
    m_fields->put(*m_serviceDate, ServiceDateText::of(draft, formats));
}

void DraftEditor::fillTax(const Document& draft)
{
    m_tax->setCurrentIndex(int(taxTreatment(m_desk.library().context(), draft)));
    m_fields->put(*m_taxNote, text(draft.taxExemptNote));
    m_texts->setRowVisible(m_taxNote, draft.taxExempt);
}

void DraftEditor::fillTotals(const Document& draft)
{
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

bool DraftEditor::canCopyLast(const Document& draft) const
{
    return m_lines->lineCount() == 0 && draft.client &&
           m_desk.library().context().first<Document>(
               "client = ? AND kindRaw = 0 AND id <> ? LIMIT 1", draft.client.key(), draft.ref.key()) != nullptr;
}

void DraftEditor::showField(const QString& field)
{
    QWidget* found = m_fields->widget(utf8(field));
    QWidget* place = found == nullptr ? m_table : found;
    if (!place->isVisibleTo(widget())) {
        m_more->setChecked(true);
    }
    ensureWidgetVisible(place);
    place->setFocus(Qt::OtherFocusReason);
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
        m_table->setCurrentIndex(m_lines->index(m_lines->lineCount(), LinesModel::description));
    }
}

void DraftEditor::whenTyped()
{
    m_pause.start();
    Q_EMIT pageChanged();
}

std::optional<PageJob> DraftEditor::typedPage()
{
    if (!m_fields->hasUnsaved() && !m_lines->isTyping()) {
        return std::nullopt;
    }
    JSON arguments = JSON::object({});
    m_fields->addUnsaved(arguments);
    m_lines->addTyping(arguments);
    std::optional<PageJob> job;
    m_desk.preview(arguments, [&](const Document& draft) {
        const LibraryAccess& library = m_desk.library();
        fillTotals(draft);
        job = pageJob(library.context(), draft, library.business(), library.formats().calendar());
    });
    return job;
}

void DraftEditor::flush()
{
    m_pause.stop();
    m_lines->saveTyping();
    m_fields->save();
}

void DraftEditor::change(const std::string& field, JSON value)
{
    m_fields->tell(field, m_desk.change(tr("Change Document"), field, std::move(value)).value_or(QString()));
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
    m_fields->tell("tax", m_desk.change(tr("Change Tax"), arguments).value_or(QString()));
}

std::optional<JSON> DraftEditor::readDiscount(const QString& typed) const
{
    const Document* draft = m_desk.document();
    if (draft == nullptr) {
        return std::nullopt;
    }
    if (typed.isEmpty() || typed.endsWith(QChar(u'%'))) {
        const auto rate = typed.isEmpty() ? std::optional(0) : Percent::basisPoints(utf8(typed));
        return rate ? std::optional(JSON::object({{"discount_percent", Decimal::fromInteger(*rate, 2).text()}}))
                    : std::nullopt;
    }
    const auto amount = TypedNumber::amount(typed, draft->currencyCode, m_desk.library().formats().locale());
    return amount ? std::optional(JSON::object({{"discount_amount", Money(*amount, draft->currencyCode).plainText()}}))
                  : std::nullopt;
}

} // namespace Quillary
