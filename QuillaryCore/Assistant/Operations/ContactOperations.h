#pragma once

#include "QuillaryCore/Assistant/Tools/Arguments.h"
#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"

namespace Quillary {

struct Client;
struct ContactPerson;

/// The people at a client, in the user's order: emails offer the client's own address first, then theirs.
///
/// The arguments are "name", "role", "email" and "phone"; one that isn't given stays as it is. The caller holds the
/// scope. Throws: `AssistantError`, also for somebody with neither a name nor an address.
namespace ContactOperations {

/// Adds somebody as the last one.
ContactPerson& add(const AssistantEnvironment& environment, const Client& client, const Arguments& arguments);

void update(const AssistantEnvironment& environment, const ContactPerson& contact, const Arguments& arguments);

/// Makes somebody the one to turn to first; the others keep their order.
void putFirst(const AssistantEnvironment& environment, const ContactPerson& contact);

void remove(const AssistantEnvironment& environment, const ContactPerson& contact);

} // namespace ContactOperations

} // namespace Quillary
