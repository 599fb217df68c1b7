#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QTimer>
#include <QWidget>

#include <map>
#include <memory>
#include <string>

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace Quillary {

class LivePage;
class DesignPicker;
class SampleLibrary;

/// What a new user sees first: the few facts that an invoice can't be without, beside an invoice of their own that shows
/// them as they are typed. Everything can be left for later.
class FirstStart : public QWidget
{
    Q_OBJECT

public:
    explicit FirstStart(LibraryAccess& library, QWidget* parent = nullptr);
    ~FirstStart() override;

    /// Whether there is anything to ask: a library without documents whose business has no name.
    [[nodiscard]] static bool isNeeded(const LibraryAccess& library);

    /// Puts the keyboard into the first field.
    void begin();

Q_SIGNALS:
    /// It was answered, or put off.
    void finished();

private:
    void build();
    void addField(const QString& label, const std::string& argument);
    void addCountries();
    void save();
    void showRefusal(const QString& sentence);
    [[nodiscard]] std::optional<QString> refusal();
    [[nodiscard]] std::optional<PageJob> page(TemplateDesign design);
    void refresh();

    LibraryAccess& m_library;
    std::unique_ptr<SampleLibrary> m_samples; ///< whose invoice is shown
    std::map<std::string, QLineEdit*> m_fields;
    QLineEdit* m_wrong = nullptr; ///< what the last refusal was about
    QFormLayout* m_form = nullptr;
    QComboBox* m_country = nullptr;
    DesignPicker* m_designs = nullptr;
    QLabel* m_error = nullptr;
    LivePage* m_page = nullptr;
    QTimer m_pause; ///< after the last key
};

} // namespace Quillary
