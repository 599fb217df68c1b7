#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QComboBox>

#include <cstdint>

namespace Quillary {

/// Chooses a project that isn't archived, or none.
class ProjectBox : public QComboBox
{
    Q_OBJECT

public:
    /// `none` is the word for no choice, such as "No project".
    ProjectBox(LibraryAccess& library, const QString& none, QWidget* parent = nullptr);

    void setProject(std::int64_t key);
    [[nodiscard]] std::int64_t project() const { return currentData().toLongLong(); }

private:
    void reload();

    LibraryAccess& m_library;
    QString m_none;
};

} // namespace Quillary
