#include "QuillaryUI/Clients/ContactSheet.h"

#include "QuillaryCore/Assistant/Operations/ContactOperations.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Look/CoreText.h"

#include <QFormLayout>
#include <QLineEdit>

namespace Quillary {

ContactSheet::ContactSheet(LibraryAccess& library, std::int64_t client, std::int64_t contact, QWidget* host)
    : Sheet(contact == 0 ? tr("New Contact Person") : tr("Contact Person"), contact == 0 ? tr("Add") : tr("Save"), host)
    , m_library(library)
    , m_client(client)
    , m_contact(contact)
{
    const ContactPerson* known = library.isOpen() ? library.context().find(Ref<ContactPerson>(contact)) : nullptr;
    const ContactPerson shown = known != nullptr ? *known : ContactPerson();
    addField(tr("Name"), "name", text(shown.name));
    addField(tr("Role"), "role", text(shown.role));
    m_fields["role"]->setPlaceholderText(tr("Such as accounting"));
    addField(tr("Email"), "email", text(shown.email));
    addField(tr("Phone"), "phone", text(shown.phone));
    onAnswer([this] { return save(); });
}

void ContactSheet::begin()
{
    open(m_fields["name"]);
    m_fields["name"]->selectAll();
}

void ContactSheet::addField(const QString& label, const std::string& argument, const QString& value)
{
    auto* field = new QLineEdit(value, this);
    field->setObjectName(text("contact_" + argument));
    field->setAccessibleName(label);
    m_fields[argument] = field;
    form().addRow(label, field);
}

std::optional<QString> ContactSheet::save()
{
    JSON given = JSON::object({});
    for (const auto& [argument, field] : m_fields) {
        given.set(argument, utf8(field->text()));
    }
    const QString step = m_contact == 0 ? tr("Add Contact Person") : tr("Change Contact Person");
    std::int64_t key = m_contact;
    auto refusal = m_library.perform(step, [&] {
        const AssistantEnvironment& environment = m_library.environment();
        const Arguments arguments(given);
        const Client* client = environment.context.find(Ref<Client>(m_client));
        const ContactPerson* contact = environment.context.find(Ref<ContactPerson>(m_contact));
        if (contact != nullptr) {
            ContactOperations::update(environment, *contact, arguments);
        } else if (client != nullptr && m_contact == 0) {
            key = ContactOperations::add(environment, *client, arguments).ref.key();
        }
    });
    if (!refusal) {
        Q_EMIT saved(key);
        return std::nullopt;
    }
    CoreText::nameField(*refusal, QStringLiteral("email"), tr("Email"));
    return refusal;
}

} // namespace Quillary
