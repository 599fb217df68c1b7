#include "QuillaryCore/Model/ContactPersons.h"

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>

namespace Quillary {

std::vector<const ContactPerson*> contactPersons(Context& context, const Client& client)
{
    std::vector<const ContactPerson*> people = context.related<&ContactPerson::client>(client);
    std::ranges::stable_sort(people, {}, &ContactPerson::sortIndex);
    return people;
}

} // namespace Quillary
