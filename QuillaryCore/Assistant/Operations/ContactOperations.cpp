#include "QuillaryCore/Assistant/Operations/ContactOperations.h"

#include "QuillaryCore/Assistant/Operations/PartyFields.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Model/ContactPersons.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr std::array textFields = {TextField<ContactPerson>{"name", &ContactPerson::name},
                                   TextField<ContactPerson>{"role", &ContactPerson::role},
                                   TextField<ContactPerson>{"phone", &ContactPerson::phone}};

/// Refused before anything is stored: the record may be one that is there.
ContactPerson changed(ContactPerson contact, const Arguments& arguments)
{
    applyTexts(contact, std::span<const TextField<ContactPerson>>(textFields), arguments, Limits::lineLength);
    if (auto email = emailArgument(arguments)) {
        contact.email = std::move(*email);
    }
    if (contact.name.empty() && contact.email.empty()) {
        throw AssistantError("Give the contact person a name or an email address.");
    }
    return contact;
}

} // namespace

ContactPerson&
ContactOperations::add(const AssistantEnvironment& environment, const Client& client, const Arguments& arguments)
{
    Context& context = environment.context;
    ContactPerson details = changed({}, arguments);
    for (const ContactPerson* other : contactPersons(context, client)) {
        details.sortIndex = std::min(other->sortIndex, std::numeric_limits<std::int32_t>::max() - 1) + 1;
    }
    details.client = client.ref;
    ContactPerson& contact = context.insert<ContactPerson>();
    details.ref = contact.ref;
    details.uuid = contact.uuid;
    contact = std::move(details);
    return contact;
}

void ContactOperations::update(const AssistantEnvironment& environment,
                               const ContactPerson& contact,
                               const Arguments& arguments)
{
    ContactPerson details = changed(contact, arguments);
    environment.context.edit(contact) = std::move(details);
}

void ContactOperations::putFirst(const AssistantEnvironment& environment, const ContactPerson& contact)
{
    Context& context = environment.context;
    const Ref<ContactPerson> chosen = contact.ref;
    const Client* client = context.find(contact.client);
    if (client == nullptr) {
        return;
    }
    std::vector<const ContactPerson*> people = contactPersons(context, *client);
    std::ranges::stable_partition(people, [chosen](const ContactPerson* other) { return other->ref == chosen; });
    std::int32_t place = 0;
    for (const ContactPerson* other : people) {
        context.edit(*other).sortIndex = place++;
    }
}

void ContactOperations::remove(const AssistantEnvironment& environment, const ContactPerson& contact)
{
    environment.context.erase(contact);
}

} // namespace Quillary
