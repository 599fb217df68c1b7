#include "Quillary/Commands/LetterFiles.h"

#include "QuillaryCore/Numbering/UniqueFilePath.h"

#include <system_error>

namespace Quillary {

LetterFiles::~LetterFiles()
{
    for (const std::filesystem::path& file : m_written) {
        std::error_code ignored; // what can't be removed is left; the failure that leads here is told already
        std::filesystem::remove(file, ignored);
    }
}

std::filesystem::path LetterFiles::save(const std::filesystem::path& folder,
                                        std::string_view name,
                                        std::string_view extension,
                                        std::span<const std::uint8_t> bytes)
{
    m_written.reserve(m_written.size() + 1);
    return m_written.emplace_back(saveUniqueFile(folder, name, extension, bytes));
}

} // namespace Quillary
