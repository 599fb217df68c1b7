#include "QuillaryUI/Settings/SettingsSection.h"

#include "QuillaryCore/Assistant/Description/DocumentDescription.h"
#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Percent.h"
#include "QuillaryUI/Documents/TypedNumber.h"
#include "QuillaryUI/Lock/SecurityPage.h"
#include "QuillaryUI/Look/FieldForm.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Settings/AssistantsPage.h"
#include "QuillaryUI/Settings/DataPage.h"
#include "QuillaryUI/Settings/EmailTextsPage.h"
#include "QuillaryUI/Settings/LogoRow.h"
#include "QuillaryUI/Settings/LookPage.h"
#include "QuillaryUI/Settings/NumberingForm.h"
#include "QuillaryUI/Settings/PaymentCodeHint.h"
#include "QuillaryUI/Settings/ProgramPage.h"
#include "QuillaryUI/Settings/SettingTexts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

namespace Quillary {

namespace {

constexpr int groupsWidth = 200;
constexpr int entryHeight = 36;
constexpr int border = 24;
constexpr int widest = 720;
constexpr int widestPair = 1080; ///< of a form with a preview beside it

bool isAmount(const QString& name)
{
    return name == QLatin1String("hourly_rate") || name == QLatin1String("late_fee");
}

bool isRate(const QString& name)
{
    return name == QLatin1String("late_fee_percent");
}

/// As its field has it: figures as the desktop writes them.
QString shownValue(const LibraryAccess& library, const BusinessSettings::Entry& entry)
{
    if (entry.value.boolean() != nullptr) {
        return *entry.value.boolean() ? QStringLiteral("yes") : QString();
    }
    const QString name = text(entry.name);
    const std::string& currency = library.business().currencyCode;
    if (const auto amount = isAmount(name) ? Money::fromDecimalString(entry.text, currency) : std::nullopt) {
        return library.formats().amount(amount->minorUnits(), currency);
    }
    if (const auto rate = isRate(name) ? Percent::basisPoints(entry.text) : std::nullopt) {
        return library.formats().percent(*rate);
    }
    // No level was ever chosen: it is the second.
    return entry.name == "late_fee_from_level" && entry.text == "0" ? QStringLiteral("2") : text(entry.text);
}

} // namespace

SettingsSection::SettingsSection(LibraryAccess& library, ProgramPlaces places, QWidget* parent)
    : Section(parent)
    , m_library(library)
    , m_groups(new QListWidget(this))
    , m_pages(new QStackedWidget(this))
    , m_logo(new LogoRow(library, places.makeLogo))
    , m_security(new SecurityPage(places.lock, places.now, this))
    , m_assistants(new AssistantsPage(library, places, this))
    , m_data(new DataPage(library, std::move(places.restore), this))
    , m_emails(new EmailTextsPage(library, this))
{
    setObjectName(QStringLiteral("settings"));
    m_groups->setObjectName(QStringLiteral("sidebar")); // the look of the window's own list
    m_groups->setAccessibleName(tr("Groups of settings"));
    m_groups->setFixedWidth(groupsWidth);
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addWidget(m_groups);
    columns->addWidget(m_pages, 1);
    addGroups();
    connect(m_groups, &QListWidget::currentRowChanged, this, [this](int place) {
        flush();
        m_pages->setCurrentIndex(place);
    });
    for (Section* page : {static_cast<Section*>(m_assistants),
                          static_cast<Section*>(m_security),
                          static_cast<Section*>(m_data),
                          static_cast<Section*>(m_emails)}) {
        connect(page, &Section::told, this, &SettingsSection::told);
        connect(page, &Section::failed, this, &SettingsSection::failed);
    }
    connect(&library, &LibraryAccess::opened, this, &SettingsSection::refresh);
    connect(&library, &LibraryAccess::changed, this, &SettingsSection::refresh);
    connect(&library, &LibraryAccess::closing, this, &SettingsSection::flush);
    m_groups->setCurrentRow(0);
    refresh();
}

void SettingsSection::addGroups()
{
    for (const SettingTexts::Group& group : SettingTexts::groups(m_library.formats().locale())) {
        auto* form = new FieldForm([this](const QString& name, const QString& value) { return save(name, value); });
        for (const FieldForm::Field& field : group.fields) {
            form->addField(field);
        }
        if (group.name == QLatin1String("look")) {
            form->addRow(tr("Logo"), m_logo);
        }
        if (group.name == QLatin1String("numbering")) {
            m_numbering = new NumberingForm(m_library, *form);
        }
        connect(form, &FieldForm::saved, this, &SettingsSection::refresh);
        m_forms.push_back(form);
        if (group.name == QLatin1String("look")) {
            m_look = new LookPage(m_library, *form);
            addPage(group.name, group.title, group.explanation, m_look)->setMaximumWidth(widestPair);
            continue;
        }
        addPage(group.name, group.title, group.explanation, form);
        if (group.name == QLatin1String("texts")) {
            addEmails();
        }
    }
    addPage(
        QStringLiteral("assistants"),
        tr("AI Assistants"),
        tr("Assistants on this machine can look at your library and prepare documents for you, as far as you allow."),
        m_assistants);
    addPage(QStringLiteral("security"),
            tr("Security"),
            tr("A passphrase that the window asks for when it was locked and when Quillary starts."),
            m_security);
    addPage(QStringLiteral("program"),
            tr("This Computer"),
            tr("How Quillary behaves here; your library doesn't change."),
            new ProgramPage(this));
    addPage(QStringLiteral("data"), tr("Data"), tr("Where everything is kept, and its copies."), m_data);
}

void SettingsSection::addEmails()
{
    QWidget* page = addPage(QStringLiteral("emails"),
                            tr("Emails"),
                            tr("What an email begins with when it is prepared. Nothing is ever sent by itself."),
                            m_emails);
    page->setMaximumWidth(widestPair);
}

QWidget*
SettingsSection::addPage(const QString& name, const QString& title, const QString& explanation, QWidget* content)
{
    auto* item = new QListWidgetItem(title, m_groups);
    item->setData(Qt::UserRole, name);
    item->setSizeHint({groupsWidth - border, entryHeight});
    auto* page = new QWidget(this);
    page->setMaximumWidth(widest);
    auto* heading = new QLabel(title, page);
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    font.setBold(true);
    heading->setFont(font);
    auto* words = new QLabel(explanation, page);
    words->setWordWrap(true);
    words->setForegroundRole(QPalette::PlaceholderText);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(border, border, border, border);
    column->setSpacing(8);
    column->addWidget(heading);
    column->addWidget(words);
    column->addSpacing(8);
    column->addWidget(content);
    column->addStretch();
    auto* scroll = Lists::scrolled(page, this);
    m_pages->addWidget(scroll);
    return page;
}

QStringList SettingsSection::pageNames() const
{
    QStringList names;
    for (int place = 0; place < m_groups->count(); ++place) {
        names.push_back(m_groups->item(place)->data(Qt::UserRole).toString());
    }
    return names;
}

void SettingsSection::showPage(const QString& name)
{
    for (int place = 0; place < m_groups->count(); ++place) {
        if (m_groups->item(place)->data(Qt::UserRole) == name) {
            m_groups->setCurrentRow(place);
        }
    }
}

void SettingsSection::find()
{
    m_groups->setFocus(Qt::ShortcutFocusReason);
}

void SettingsSection::flush()
{
    for (FieldForm* form : m_forms) {
        form->flush();
    }
    m_emails->flush();
}

void SettingsSection::refresh()
{
    if (!m_library.isOpen()) {
        return;
    }
    for (const BusinessSettings::Entry& entry : BusinessSettings::all(m_library.environment())) {
        const QString name = text(entry.name);
        for (FieldForm* form : m_forms) {
            if (form->has(name)) {
                form->setValue(name, shownValue(m_library, entry));
                form->setNote(name, SettingTexts::note(text(entry.note)));
            }
        }
    }
    showWhatCounts();
    m_numbering->refresh();
    m_look->refresh();
    m_logo->refresh();
}

/// What another setting makes meaningless is not asked for, and what follows from several is told.
void SettingsSection::showWhatCounts()
{
    const auto value = [this](const char* name) {
        return shownValue(m_library, BusinessSettings::entry(m_library.environment(), name));
    };
    const QString lateFee = value("late_fee_kind");
    const bool isOwnLabel = value("tax_label") == QLatin1String("custom");
    const bool isExempt = !value("tax_exempt").isEmpty();
    for (FieldForm* form : m_forms) {
        form->setShown(QStringLiteral("late_fee"), lateFee == QLatin1String("fixed"));
        form->setShown(QStringLiteral("late_fee_percent"), lateFee == QLatin1String("percentage"));
        form->setShown(QStringLiteral("late_fee_from_level"), lateFee != QLatin1String("none"));
        form->setShown(QStringLiteral("custom_tax_label"), isOwnLabel);
        form->setShown(QStringLiteral("tax_exempt_note"), isExempt);
        form->setNote(QStringLiteral("show_payment_qr_code"), PaymentCodeHint::about(m_library.business()));
        form->setNote(QStringLiteral("upi_id"), PaymentCodeHint::aboutUPI());
    }
}

/// As `BusinessSettings` reads it.
QString SettingsSection::stored(const QString& name, const QString& value) const
{
    if (isAmount(name)) {
        const std::string& currency = m_library.business().currencyCode;
        const auto amount = TypedNumber::amount(value, currency, m_library.formats().locale());
        return amount ? text(Money(*amount, currency).plainText()) : value;
    }
    if (const auto rate = isRate(name) ? Percent::basisPoints(utf8(value)) : std::nullopt) {
        return text(rateFigure(*rate));
    }
    const bool isFlag = BusinessSettings::entry(m_library.environment(), utf8(name)).value.boolean() != nullptr;
    return isFlag && value.isEmpty() ? QStringLiteral("no") : value;
}

std::optional<QString> SettingsSection::save(const QString& name, const QString& value)
{
    return m_library.perform(tr("Change Settings"), [&] {
        if (const auto series = NumberingForm::seriesKind(name)) {
            m_numbering->continueWith(*series, value);
            return;
        }
        BusinessSettings::set(m_library.environment(), utf8(name), utf8(stored(name, value)));
    });
}

} // namespace Quillary
