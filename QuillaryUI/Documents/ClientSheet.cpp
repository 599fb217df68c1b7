#include "QuillaryUI/Documents/ClientSheet.h"

#include "QuillaryCore/Assistant/Operations/AssistantActions.h"
#include "QuillaryUI/Look/Choices.h"
#include "QuillaryUI/Look/CoreText.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>

namespace Quillary {

ClientSheet::ClientSheet(LibraryAccess& library, const QString& name, QWidget* host)
    : Sheet(tr("New Client"), tr("Add Client"), host)
    , m_library(library)
    , m_country(new QComboBox(this))
{
    addField(tr("Name"), "name");
    addField(tr("Email"), "email");
    addField(tr("Street"), "address_line");
    addField(tr("Postal code"), "postal_code");
    addField(tr("City"), "city");
    addCountry();
    addField(tr("VAT ID"), "vat_id");
    m_fields["name"]->setText(name);
    onAnswer([this] { return make(); });
}

void ClientSheet::begin()
{
    open(m_fields["name"]->text().isEmpty() ? m_fields["name"] : m_fields["email"]);
}

void ClientSheet::addField(const QString& label, const std::string& argument)
{
    auto* field = new QLineEdit(this);
    field->setObjectName(text("client_" + argument));
    field->setAccessibleName(label);
    m_fields[argument] = field;
    form().addRow(label, field);
}

void ClientSheet::addCountry()
{
    m_country->setObjectName(QStringLiteral("client_country"));
    m_country->setAccessibleName(tr("Country"));
    for (const FieldForm::Choice& choice :
         Choices::withNone(tr("Not given"), Choices::countries(m_library.formats().locale()))) {
        m_country->addItem(choice.label, choice.value);
    }
    form().addRow(tr("Country"), m_country);
}

std::optional<QString> ClientSheet::make()
{
    if (!m_library.isOpen()) {
        return tr("Another Quillary is using the library at this moment. Try again in a second.");
    }
    JSON arguments = JSON::object({});
    for (const auto& [argument, field] : m_fields) {
        if (const std::string value = utf8(field->text().trimmed()); !value.empty()) {
            arguments.set(argument, value);
        }
    }
    if (const QString code = m_country->currentData().toString(); !code.isEmpty()) {
        arguments.set("country", utf8(code));
    }
    ToolResult result;
    AssistantActions(m_library.environment()).call("create_client", arguments, [&](ToolResult answer) {
        result = std::move(answer);
    });
    if (result.isError) {
        QString refusal = CoreText::sentence(result.text);
        for (const auto& [argument, field] : m_fields) {
            CoreText::nameField(refusal, text(argument), field->accessibleName());
        }
        return refusal;
    }
    if (const JSON* existing = result.data ? result.data->find("existing") : nullptr) {
        const JSON* name = existing->find("name");
        return tr("%1 is there already. A name, an email address or a VAT ID of its own tells another client from "
                  "them.")
            .arg(text(name != nullptr ? name->text().value_or("") : ""));
    }
    const JSON* client = result.data ? result.data->find("id") : nullptr;
    if (client != nullptr && client->string() != nullptr) {
        Q_EMIT made(text(*client->string()));
    }
    return std::nullopt;
}

} // namespace Quillary
