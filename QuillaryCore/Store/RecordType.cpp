#include "QuillaryCore/Store/RecordType.h"

namespace Quillary {

const std::string& RecordType::columnName(std::size_t column) const
{
    const std::size_t attributeCount = m_entity.attributes.size();
    return column < attributeCount ? m_entity.attributes[column].name
                                   : m_entity.relationships[column - attributeCount].name;
}

ColumnSet RecordType::referenceColumns() const
{
    ColumnSet columns;
    for (const UUIDTie& tie : m_uuidTies) {
        columns.set(tie.column);
    }
    for (std::size_t column = m_entity.attributes.size(); column < columnCount(); ++column) {
        columns.set(column);
    }
    return columns;
}

} // namespace Quillary
