#include "QuillaryUI/Clients/ClientDetails.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/Operations.h"
#include "QuillaryCore/Assistant/Operations/UnbilledTime.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientKind.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Schedules/TimeMath.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Clients/ClientDocumentsModel.h"
#include "QuillaryUI/Clients/ContactsPanel.h"
#include "QuillaryUI/Documents/TypedNumber.h"
#include "QuillaryUI/Look/Choices.h"
#include "QuillaryUI/Look/FieldForm.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Schedules/TimeModel.h"

#include <QHeaderView>
#include <QLabel>
#include <QScrollArea>
#include <QStringList>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

#include <array>

namespace Quillary {

namespace {

constexpr int border = 24;
constexpr int widest = 720;
constexpr int tablesHeight = 272;

const QString isPerson = QStringLiteral("is_person");

/// Fields of one line that an operation takes under this name.
struct LineField
{
    const char* name;
    std::string Client::* member;
};

constexpr std::array lineFields = {LineField{"name", &Client::name},
                                   LineField{"first_name", &Client::firstName},
                                   LineField{"last_name", &Client::lastName},
                                   LineField{"email", &Client::email},
                                   LineField{"phone", &Client::phone},
                                   LineField{"website", &Client::website},
                                   LineField{"address_line", &Client::addressLine},
                                   LineField{"postal_code", &Client::postalCode},
                                   LineField{"city", &Client::city},
                                   LineField{"state", &Client::state},
                                   LineField{"country", &Client::countryCode},
                                   LineField{"vat_id", &Client::vatID},
                                   LineField{"tax_id", &Client::taxID},
                                   LineField{"currency", &Client::currencyCode},
                                   LineField{"language", &Client::languageCode},
                                   LineField{"notes", &Client::notes}};

/// What the operation doesn't take: texts without rules of their own.
bool isOwnText(const QString& name)
{
    return name == QLatin1String("website") || name == QLatin1String("notes");
}

JSON argumentOf(const QString& name, const QString& value)
{
    if (name == isPerson) {
        return !value.isEmpty();
    }
    const bool isNumber = name == QLatin1String("payment_terms_days") || name == QLatin1String("hourly_rate");
    return isNumber && value.trimmed().isEmpty() ? JSON(0) : JSON(utf8(value));
}

} // namespace

ClientDetails::ClientDetails(LibraryAccess& library, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_title(new QLabel(this))
    , m_balance(new QLabel(this))
    , m_form(new FieldForm([this](const QString& name, const QString& value) { return save(name, value); }, this))
    , m_contacts(new ContactsPanel(library, this, this))
    , m_documents(new ClientDocumentsModel(library, this))
    , m_time(new TimeModel(library, this))
    , m_tables(new QTabWidget(this))
{
    setObjectName(QStringLiteral("clientDetails"));
    m_time->setClient(0);
    build();
    connect(m_contacts, &ContactsPanel::failed, this, &ClientDetails::failed);
    connect(m_form, &FieldForm::saved, this, &ClientDetails::refresh);
    connect(m_form, &FieldForm::kept, this, &ClientDetails::failed);
    connect(&library, &LibraryAccess::opened, this, &ClientDetails::refresh);
    connect(&library, &LibraryAccess::changed, this, [this](const ChangeSet& changes) {
        if (!changes.of<Client>().isEmpty() || !changes.of<Business>().isEmpty()) {
            refresh();
        } else if (!changes.of<TimeEntry>().isEmpty()) {
            showBalance();
        }
    });
    connect(&library, &LibraryAccess::closing, this, &ClientDetails::flush);
}

void ClientDetails::build()
{
    QFont font = m_title->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    font.setBold(true);
    m_title->setFont(font);
    m_title->setObjectName(QStringLiteral("clientTitle"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setWordWrap(true);
    m_balance->setObjectName(QStringLiteral("clientBalance"));
    m_balance->setTextFormat(Qt::PlainText);
    addFields();

    auto* page = new QWidget(this);
    page->setMaximumWidth(widest);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(border, border, border, border);
    column->setSpacing(8);
    column->addWidget(m_title);
    column->addWidget(m_balance);
    column->addSpacing(8);
    column->addWidget(m_form);
    column->addStretch();
    auto* scroll = Lists::scrolled(page, this);

    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    whole->addWidget(scroll, 1);
    whole->addWidget(m_tables);
    m_tables->setObjectName(QStringLiteral("clientTables"));
    m_tables->setDocumentMode(true);
    m_tables->setFixedHeight(tablesHeight);
    m_tables->addTab(buildDocuments(), tr("Documents"));
    m_tables->addTab(buildTime(), tr("Time"));
}

void ClientDetails::addFields()
{
    using Kind = FieldForm::Kind;
    const auto line = [this](const char* name, const QString& label, const QString& hint = {}) {
        m_form->addField({.name = QString::fromLatin1(name), .label = label, .hint = hint});
    };
    const auto choice = [this](const char* name, const QString& label, QList<FieldForm::Choice> choices) {
        m_form->addField({QString::fromLatin1(name), label, Kind::choice, std::move(choices), {}});
    };
    choice("is_person", tr("Kind"), {{QString(), tr("Organisation")}, {QStringLiteral("yes"), tr("Person")}});
    line("name", tr("Name"));
    line("first_name", tr("First name"));
    line("last_name", tr("Last name"));
    line("email", tr("Email"));
    line("phone", tr("Phone"));
    line("website", tr("Website"));
    m_form->addHeading(tr("Contact Persons"));
    m_form->addWhole(m_contacts);
    m_form->addHeading(tr("Address"));
    line("address_line", tr("Street"));
    line("postal_code", tr("Postal code"));
    line("city", tr("City"));
    line("state", tr("State"));
    choice(
        "country", tr("Country"), Choices::withNone(tr("Not given"), Choices::countries(m_library.formats().locale())));
    m_form->addHeading(tr("Invoicing"));
    line("vat_id", tr("VAT ID"), tr("Such as DE123456789, or “none”"));
    line("tax_id", tr("Tax number"));
    line("payment_terms_days", tr("Days to pay"), tr("As usual"));
    choice("currency",
           tr("Currency"),
           Choices::withNone(tr("As usual"), Choices::currencies(m_library.formats().locale())));
    choice("language", tr("Language"), Choices::withNone(tr("As usual"), Choices::languages()));
    line("hourly_rate", tr("Hourly rate"), tr("As usual"));
    m_form->addField({.name = QStringLiteral("notes"), .label = tr("Notes"), .kind = Kind::paragraphs});
}

QTableView* ClientDetails::buildDocuments()
{
    auto* table = new QTableView(this);
    table->setModel(m_documents);
    Lists::dress(*table, QStringLiteral("clientDocuments"), tr("Documents of this client"), 0);
    table->setFrameShape(QFrame::NoFrame);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    connect(table, &QTableView::activated, this, [this](const QModelIndex& index) {
        Q_EMIT wantedDocument(m_documents->key(index.row()));
    });
    return table;
}

QTableView* ClientDetails::buildTime()
{
    auto* table = new QTableView(this);
    table->setModel(m_time);
    Lists::dress(*table, QStringLiteral("clientTime"), tr("Time worked for this client"), TimeModel::noteColumn);
    table->setFrameShape(QFrame::NoFrame);
    table->setColumnHidden(TimeModel::clientColumn, true);
    table->horizontalHeader()->setSectionResizeMode(TimeModel::timeColumn, QHeaderView::ResizeToContents);
    connect(table, &QTableView::activated, this, [this](const QModelIndex& index) { showInvoice(index.row()); });
    return table;
}

/// The one that an entry is on.
void ClientDetails::showInvoice(int timeRow)
{
    const auto* entry = m_library.isOpen() ? m_library.context().find(Ref<TimeEntry>(m_time->key(timeRow))) : nullptr;
    const auto* invoice =
        entry != nullptr && entry->invoiceID ? m_library.context().find<Document>(*entry->invoiceID) : nullptr;
    if (invoice != nullptr) {
        Q_EMIT wantedDocument(invoice->ref.key());
    }
}

const Client* ClientDetails::record() const
{
    return m_library.isOpen() ? m_library.context().find(Ref<Client>(m_client)) : nullptr;
}

void ClientDetails::setClient(std::int64_t key)
{
    if (key != m_client) {
        if (m_library.isOpen() && record() == nullptr) {
            m_form->drop(); // it was deleted
        }
        m_form->flush();
        m_client = key;
        m_documents->setClient(key);
        m_contacts->setClient(key);
        m_time->setClient(key);
    }
    refresh();
}

void ClientDetails::setBalance(const QString& balance)
{
    m_open = balance;
    showBalance();
}

void ClientDetails::showBalance()
{
    const Client* client = record();
    if (client == nullptr) {
        m_balance->setText(QString());
        return;
    }
    QStringList parts{m_open.isEmpty() ? tr("Nothing is open.") : tr("Open: %1").arg(m_open)};
    for (const UnbilledTime& time : unbilledTime(m_library.environment(), client->ref)) {
        if (time.seconds() > 0) {
            parts.push_back(tr("Unbilled time: %1 hours, %2")
                                .arg(text(TimeMath::hoursAndMinutes(time.seconds())),
                                     m_library.formats().money(time.value(), m_library.business().currencyCode)));
        }
    }
    m_balance->setText(parts.join(QStringLiteral("  ·  ")));
}

void ClientDetails::begin()
{
    const Client* client = record();
    m_form->focus(client != nullptr && kind(*client) == ClientKind::person ? QStringLiteral("first_name")
                                                                           : QStringLiteral("name"));
}

void ClientDetails::flush()
{
    m_form->flush();
}

void ClientDetails::refreshDay()
{
    m_documents->reload();
    m_time->reload();
}

void ClientDetails::refresh()
{
    const Client* client = record();
    setEnabled(client != nullptr);
    const QString name = client != nullptr ? text(displayName(*client)) : QString();
    const QString identifier = client != nullptr && client->uuid ? text(client->uuid->text()) : QString();
    if (m_library.isOpen() && identifier != m_form->identifier()) { // another one, or of another library
        m_form->begin({.identifier = identifier, .name = name});
    }
    if (client != nullptr) {
        m_title->setText(client->number.empty() ? name : QStringLiteral("%1  ·  %2").arg(name, text(client->number)));
        showFields(*client);
        showBalance();
    } else if (m_library.isOpen()) {
        m_title->setText(QString());
        m_balance->setText(QString());
    }
}

void ClientDetails::showFields(const Client& client)
{
    const bool person = kind(client) == ClientKind::person;
    m_form->setValue(isPerson, person ? QStringLiteral("yes") : QString());
    m_form->setShown(QStringLiteral("name"), !person);
    m_form->setShown(QStringLiteral("first_name"), person);
    m_form->setShown(QStringLiteral("last_name"), person);
    for (const LineField& field : lineFields) {
        m_form->setValue(QString::fromLatin1(field.name), text(client.*field.member));
    }
    m_form->setValue(QStringLiteral("payment_terms_days"),
                     client.paymentTermsDays == 0 ? QString() : QString::number(client.paymentTermsDays));
    m_form->setValue(QStringLiteral("hourly_rate"),
                     client.hourlyRateMinorUnits == 0
                         ? QString()
                         : m_library.formats().amount(client.hourlyRateMinorUnits, m_library.business().currencyCode));
    showWhatIsUsual(client);
}

/// What "As usual" stands for at the moment.
void ClientDetails::showWhatIsUsual(const Client& client)
{
    const Business& business = m_library.business();
    const bool hasRate = client.hourlyRateMinorUnits != 0 || business.hourlyRateMinorUnits == 0;
    m_form->setNote(
        QStringLiteral("hourly_rate"),
        hasRate
            ? QString()
            : tr("As usual: %1").arg(m_library.formats().money(business.hourlyRateMinorUnits, business.currencyCode)));
    m_form->setNote(QStringLiteral("payment_terms_days"),
                    client.paymentTermsDays != 0 ? QString() : tr("As usual: %1").arg(business.paymentTermsDays));
}

/// A rate may be typed as the desktop writes numbers; the operation reads plain digits.
QString ClientDetails::plainNumber(const QString& name, const QString& value) const
{
    const std::string& currency = m_library.business().currencyCode;
    const auto amount = name == QLatin1String("hourly_rate")
                            ? TypedNumber::amount(value, currency, m_library.formats().locale())
                            : std::nullopt;
    return amount ? text(Money(*amount, currency).plainText()) : value;
}

std::optional<QString> ClientDetails::save(const QString& name, const QString& value)
{
    return m_library.perform(tr("Change Client"), [&] {
        const Client* client = record();
        if (client == nullptr) {
            return;
        }
        const std::string argument = utf8(name);
        JSON given = JSON::object({{argument, argumentOf(name, plainNumber(name, value))}});
        if (isOwnText(name)) {
            Client& edited = m_library.context().edit(*client);
            const Arguments arguments(given);
            (argument == "notes" ? edited.notes : edited.website) =
                (argument == "notes" ? arguments.paragraphs(argument, Limits::textLength)
                                     : arguments.line(argument, Limits::lineLength))
                    .value_or("");
            return;
        }
        given.set("client", Lookup::idText(client->uuid));
        static_cast<void>(ClientOperations::update(m_library.environment(), Arguments(given)));
    });
}

} // namespace Quillary
