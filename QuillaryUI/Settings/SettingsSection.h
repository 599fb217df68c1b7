#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Settings/ProgramPlaces.h"

#include <functional>
#include <optional>
#include <vector>

class QListWidget;
class QStackedWidget;

namespace Quillary {

class AssistantsPage;
class DataPage;
class EmailTextsPage;
class FieldForm;
class LogoRow;
class LookPage;
class SecurityPage;
class NumberingForm;

/// What the documents of the business are made with, who else may use the library, and where it lies. Groups at the
/// left, the form of the chosen one beside them; every change is saved by itself and can be taken back.
class SettingsSection : public Section
{
    Q_OBJECT

public:
    SettingsSection(LibraryAccess& library, ProgramPlaces places, QWidget* parent = nullptr);

    void find() override;
    void flush() override;

    /// The groups: "numbering", "assistants", "data" and so on.
    [[nodiscard]] QStringList pageNames() const override;
    void showPage(const QString& name) override;

private:
    void addGroups();
    void addEmails();
    /// Returns the page, which is as wide as a form reads well.
    QWidget* addPage(const QString& name, const QString& title, const QString& explanation, QWidget* content);
    void refresh();
    void showWhatCounts();
    [[nodiscard]] std::optional<QString> save(const QString& name, const QString& value);
    [[nodiscard]] QString stored(const QString& name, const QString& value) const;

    LibraryAccess& m_library;
    QListWidget* m_groups;
    QStackedWidget* m_pages;
    std::vector<FieldForm*> m_forms;
    LogoRow* m_logo;
    LookPage* m_look = nullptr;
    SecurityPage* m_security;
    NumberingForm* m_numbering = nullptr;
    AssistantsPage* m_assistants;
    DataPage* m_data;
    EmailTextsPage* m_emails;
};

} // namespace Quillary
