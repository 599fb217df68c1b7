#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Settings/ProgramPlaces.h"

#include <functional>
#include <memory>
#include <string>

class QCheckBox;
class QComboBox;
class QLabel;
class QTableWidget;

namespace Quillary {

// Qt's own compiler stumbles over the concepts that their headers include.
class AssistantSettingsFile;
enum class AssistantApproval;
struct AssistantSettings;

/// Whether assistants may use the library, which of them, how far, and what they did.
class AssistantsPage : public Section
{
    Q_OBJECT

public:
    AssistantsPage(LibraryAccess& library, ProgramPlaces places, QWidget* parent = nullptr);
    ~AssistantsPage() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* buildAccess();
    QWidget* buildAssistants();
    QWidget* buildSetup();
    void refresh();
    void showAssistants(const AssistantSettings& settings);
    void showLog();
    void change(const std::function<void(AssistantSettings&)>& change);
    void decide(AssistantApproval approval);
    [[nodiscard]] std::string chosen() const;

    LibraryAccess& m_library;
    ProgramPlaces m_places;
    std::unique_ptr<AssistantSettingsFile> m_file;
    QCheckBox* m_isOn;
    QComboBox* m_access;
    QLabel* m_detail;
    QTableWidget* m_assistants;
    QTableWidget* m_log;
};

} // namespace Quillary
