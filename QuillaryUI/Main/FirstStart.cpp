#include "QuillaryUI/Main/FirstStart.h"

#include "QuillaryCore/Assistant/Operations/AssistantActions.h"
#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"
#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Countries.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Output/TemplateSettings.h"
#include "QuillaryCore/Samples/SampleLibrary.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Lettering.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Paper/DesignPicker.h"
#include "QuillaryUI/Paper/LivePage.h"
#include "QuillaryUI/Paper/PaperView.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <memory>
#include <utility>

namespace Quillary {

namespace {

constexpr int border = 32;
constexpr int formWidth = 460;
constexpr int pause = 300; ///< milliseconds
constexpr double headingSize = 1.6;

/// The text fields of the page, and where the invoice shows them.
constexpr std::pair<std::string_view, std::string Business::*> shownFields[] = {
    {"name", &Business::name},
    {"address_line", &Business::addressLine},
    {"postal_code", &Business::postalCode},
    {"city", &Business::city},
    {"email", &Business::email},
    {"vat_id", &Business::vatID},
    {"iban", &Business::iban},
};

QLabel* heading(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    Lettering::set(*label, headingSize);
    return label;
}

} // namespace

FirstStart::FirstStart(LibraryAccess& library, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_samples(std::make_unique<SampleLibrary>(documentLanguage(library.formats().locale().languageCode())))
{
    setObjectName(QStringLiteral("firstStart"));
    build();
    m_pause.setSingleShot(true);
    m_pause.setInterval(pause);
    connect(&m_pause, &QTimer::timeout, this, &FirstStart::refresh);
    m_page->show([this] { return page(m_designs->design()); });
}

FirstStart::~FirstStart() = default;

bool FirstStart::isNeeded(const LibraryAccess& library)
{
    return library.isOpen() && library.business().name.empty() && library.context().count<Document>("") == 0;
}

/// Each control is made where it is read, so that Tab follows the reading.
void FirstStart::build()
{
    auto* left = new QWidget(this);
    left->setFixedWidth(formWidth);
    auto* column = new QVBoxLayout(left);
    column->setContentsMargins(border, border, border, border);
    column->setSpacing(16);
    column->addWidget(heading(tr("Your first invoice"), left));
    auto* sentence = new QLabel(
        tr("This is how it will look. Tell it who you are; anything can be left for later, and changed at any time."),
        left);
    sentence->setWordWrap(true);
    column->addWidget(sentence);

    m_form = new QFormLayout;
    addField(tr("Name"), "name");
    addField(tr("Street"), "address_line");
    addField(tr("Postal code"), "postal_code");
    addField(tr("City"), "city");
    addCountries();
    addField(tr("Email"), "email");
    addField(tr("VAT ID"), "vat_id");
    addField(tr("IBAN"), "iban");
    m_designs = new DesignPicker(m_library.press(), [this](TemplateDesign design) { return page(design); }, this);
    m_designs->setAccessibleName(tr("Look"));
    column->addLayout(m_form);
    column->addWidget(m_designs);

    m_error = new QLabel(this);
    m_error->setObjectName(QStringLiteral("firstStartError"));
    m_error->setWordWrap(true);
    m_error->setTextFormat(Qt::PlainText);
    m_error->hide();
    Theme::tint(*m_error, Theme::errorColor());
    auto* later = new QPushButton(tr("Later"), left);
    later->setObjectName(QStringLiteral("firstStartLater"));
    auto* start = new QPushButton(tr("Start"), left);
    start->setObjectName(QStringLiteral("firstStartDone"));
    start->setDefault(true);
    connect(start, &QPushButton::clicked, this, &FirstStart::save);
    connect(later, &QPushButton::clicked, this, &FirstStart::finished);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(later);
    buttons->addWidget(start);
    column->addLayout(buttons);
    column->addStretch();
    m_form->addRow(QString(), m_error);

    auto* paper = new PaperView(m_library.press(), this);
    m_page = new LivePage(m_library.press(), *paper);
    connect(m_designs, &DesignPicker::chosen, m_page, &LivePage::refresh);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(left);
    row->addWidget(paper, 1);
}

void FirstStart::addField(const QString& label, const std::string& argument)
{
    auto* field = new QLineEdit(this);
    field->setObjectName(text("first_" + argument));
    field->setAccessibleName(label);
    connect(field, &QLineEdit::textEdited, &m_pause, qOverload<>(&QTimer::start));
    connect(field, &QLineEdit::returnPressed, this, &FirstStart::save);
    m_fields[argument] = field;
    m_form->addRow(label, field);
}

/// All that have a code, by their names.
void FirstStart::addCountries()
{
    m_country = new QComboBox(this);
    m_country->setAccessibleName(tr("Country"));
    const Locale& locale = m_library.formats().locale();
    std::map<QString, QString> byName;
    for (char first = 'A'; first <= 'Z'; ++first) {
        for (char second = 'A'; second <= 'Z'; ++second) {
            const std::string countryCode{first, second};
            if (Countries::isKnown(countryCode)) {
                byName.emplace(text(locale.countryName(countryCode)), text(countryCode));
            }
        }
    }
    for (const auto& [name, countryCode] : byName) {
        m_country->addItem(name, countryCode);
    }
    m_country->setCurrentIndex(m_country->findData(text(m_library.business().countryCode)));
    connect(m_country, &QComboBox::activated, this, &FirstStart::refresh);
    m_form->addRow(tr("Country"), m_country);
}

void FirstStart::begin()
{
    m_fields.at("name")->setFocus(Qt::OtherFocusReason);
}

void FirstStart::refresh()
{
    m_page->refresh();
    m_designs->refresh();
}

/// The sample invoice as the user's own.
std::optional<PageJob> FirstStart::page(TemplateDesign design)
{
    Business business = m_samples->business();
    for (const auto& [argument, member] : shownFields) {
        const std::string typed = utf8(m_fields.at(std::string(argument))->text().trimmed());
        if (!typed.empty()) {
            business.*member = typed;
        }
    }
    if (!m_fields.at("name")->text().trimmed().isEmpty()) {
        business.logoData.clear();
    }
    business.countryCode = utf8(m_country->currentData().toString());
    business.templateID = storedText(design);
    return pageJob(m_samples->context(), *m_samples->samples().front().document, business, m_samples->calendar());
}

void FirstStart::save()
{
    m_wrong = nullptr;
    const std::optional<QString> no = refusal();
    showRefusal(no.value_or(QString()));
    if (!no) {
        Q_EMIT finished();
    }
}

/// Below the field that is wrong, or below all of them.
void FirstStart::showRefusal(const QString& sentence)
{
    const std::unique_ptr<QLayoutItem> former(m_form->takeRow(m_error).fieldItem);
    int row = m_form->rowCount();
    if (m_wrong != nullptr) {
        QFormLayout::ItemRole role = QFormLayout::FieldRole;
        m_form->getWidgetPosition(m_wrong, &row, &role);
        ++row;
        m_wrong->setFocus();
    }
    m_form->insertRow(row, QString(), m_error);
    m_error->setText(sentence);
    m_error->setVisible(!sentence.isEmpty());
}

std::optional<QString> FirstStart::refusal()
{
    if (!m_library.isOpen()) {
        return tr("Another Quillary is using the library at this moment. Try again in a second.");
    }
    JSON arguments = JSON::object({});
    for (const auto& [argument, field] : m_fields) {
        if (const std::string typed = utf8(field->text().trimmed()); !typed.empty()) {
            arguments.set(argument, typed);
        }
    }
    if (const std::string countryCode = utf8(m_country->currentData().toString()); !countryCode.empty()) {
        arguments.set("country", countryCode);
    }
    ToolResult result;
    AssistantActions(m_library.environment()).call("update_business_profile", arguments, [&](ToolResult answer) {
        result = std::move(answer);
    });
    if (result.isError) {
        QString sentence = CoreText::sentence(result.text);
        for (const auto& [argument, field] : m_fields) {
            const QString known = sentence;
            CoreText::nameField(sentence, text(argument), field->accessibleName());
            if (sentence != known) {
                m_wrong = field;
            }
        }
        return sentence;
    }
    return m_library.perform(tr("Choose Look"), [this] {
        BusinessSettings::set(m_library.environment(), "template", storedText(m_designs->design()));
    });
}

} // namespace Quillary
