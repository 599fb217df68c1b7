#include "QuillaryUI/Library/ProjectBox.h"

#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>

namespace Quillary {

ProjectBox::ProjectBox(LibraryAccess& library, const QString& none, QWidget* parent)
    : QComboBox(parent)
    , m_library(library)
    , m_none(none)
{
    setAccessibleName(tr("Project"));
    connect(&library, &LibraryAccess::opened, this, &ProjectBox::reload);
    connect(&library, &LibraryAccess::changed, this, [this](const ChangeSet& changes) {
        if (!changes.of<Project>().isEmpty()) {
            reload();
        }
    });
    reload();
}

void ProjectBox::reload()
{
    const std::int64_t before = project();
    clear();
    addItem(m_none, qlonglong(0));
    if (m_library.isOpen()) {
        for (const Project* project : m_library.context().fetch<Project>("NOT isArchived ORDER BY name, id")) {
            addItem(text(project->name), qlonglong(project->ref.key()));
        }
    }
    setProject(before);
}

void ProjectBox::setProject(std::int64_t key)
{
    if (key != 0 && findData(qlonglong(key)) < 0 && m_library.isOpen()) {
        if (const Project* project = m_library.context().find(Ref<Project>(key))) { // one that was archived since
            addItem(text(project->name), qlonglong(key));
        }
    }
    setCurrentIndex(std::max(0, findData(qlonglong(key))));
}

} // namespace Quillary
