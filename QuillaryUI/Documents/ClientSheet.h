#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Sheet.h"

#include <map>
#include <string>

class QComboBox;
class QLineEdit;

namespace Quillary {

/// Asks for what an invoice needs of a new client.
class ClientSheet : public Sheet
{
    Q_OBJECT

public:
    ClientSheet(LibraryAccess& library, const QString& name, QWidget* host);

    void begin();

Q_SIGNALS:
    /// A client was made; its identifier as operations take it.
    void made(const QString& id);

private:
    void addField(const QString& label, const std::string& argument);
    void addCountry();
    [[nodiscard]] std::optional<QString> make();

    LibraryAccess& m_library;
    std::map<std::string, QLineEdit*> m_fields;
    QComboBox* m_country;
};

} // namespace Quillary
