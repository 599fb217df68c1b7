#include "QuillaryUI/Clients/ClientDetails.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/Operations.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientKind.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Clients/ClientDocumentsModel.h"
#include "QuillaryUI/Documents/TypedNumber.h"
#include "QuillaryUI/Look/Choices.h"
#include "QuillaryUI/Look/FieldForm.h"
#include "QuillaryUI/Look/Lists.h"

#include <QHeaderView>
#include <QLabel>
#include <QScrollArea>
#include <QTableView>
#include <QVBoxLayout>

#include <array>

namespace Quillary {

namespace {

constexpr int border = 24;
constexpr int widest = 720;
constexpr int documentsHeight = 240;

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
    , m_documents(new ClientDocumentsModel(library, this))
    , m_table(buildDocuments())
{
    setObjectName(QStringLiteral("clientDetails"));
    build();
    connect(m_form, &FieldForm::saved, this, &ClientDetails::refresh);
    connect(&library, &LibraryAccess::opened, this, &ClientDetails::refresh);
    connect(&library, &LibraryAccess::changed, this, [this](const ChangeSet& changes) {
        if (!changes.of<Client>().isEmpty() || !changes.of<Business>().isEmpty()) {
            refresh();
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
    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(page);

    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    whole->addWidget(scroll, 1);
    whole->addWidget(m_table);
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
    m_form->addHeading(tr("Address"));
    line("address_line", tr("Street"));
    line("postal_code", tr("Postal code"));
    line("city", tr("City"));
    line("state", tr("State"));
    choice("country", tr("Country"), Choices::withNone(tr("Not given"), Choices::countries()));
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
    table->setFixedHeight(documentsHeight);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    connect(table, &QTableView::activated, this, [this](const QModelIndex& index) {
        Q_EMIT wantedDocument(m_documents->key(index.row()));
    });
    return table;
}

const Client* ClientDetails::record() const
{
    return m_library.isOpen() ? m_library.context().find(Ref<Client>(m_client)) : nullptr;
}

void ClientDetails::setClient(std::int64_t key)
{
    if (key != m_client) {
        m_form->flush();
        m_client = key;
        m_form->begin();
        m_documents->setClient(key);
    }
    refresh();
}

void ClientDetails::setBalance(const QString& balance)
{
    m_balance->setText(balance.isEmpty() ? tr("Nothing is open.") : tr("Open: %1").arg(balance));
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
}

void ClientDetails::refresh()
{
    const Client* client = record();
    setEnabled(client != nullptr);
    if (client != nullptr) {
        const QString name = text(displayName(*client));
        m_title->setText(client->number.empty() ? name : QStringLiteral("%1  ·  %2").arg(name, text(client->number)));
        showFields(*client);
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
