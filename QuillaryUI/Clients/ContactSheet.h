#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Sheet.h"

#include <cstdint>
#include <map>
#include <string>

class QLineEdit;

namespace Quillary {

/// Asks who somebody at a client is, or changes what is known of them.
class ContactSheet : public Sheet
{
    Q_OBJECT

public:
    /// `contact` 0: somebody new.
    ContactSheet(LibraryAccess& library, std::int64_t client, std::int64_t contact, QWidget* host);

    void begin();

Q_SIGNALS:
    /// The one who was added or changed.
    void saved(std::int64_t key);

private:
    void addField(const QString& label, const std::string& argument, const QString& value);
    [[nodiscard]] std::optional<QString> save();

    LibraryAccess& m_library;
    std::int64_t m_client;
    std::int64_t m_contact;
    std::map<std::string, QLineEdit*> m_fields;
};

} // namespace Quillary
