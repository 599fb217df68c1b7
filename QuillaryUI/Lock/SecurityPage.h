#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryUI/Library/Section.h"

#include <QString>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace Quillary {

class LockFile;

/// The settings of the lock: the passphrase, and after what time it locks by itself.
class SecurityPage : public Section
{
    Q_OBJECT

public:
    SecurityPage(const std::filesystem::path& file, std::function<Instant()> now, QWidget* parent = nullptr);
    ~SecurityPage() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QLineEdit* addField(QFormLayout& form, const QString& name, const QString& label);
    void build();
    void refresh();
    void showIdle();
    void tell(const QString& sentence);
    void set();
    void remove();
    /// False: it was refused, and the page says why.
    bool attempt(const std::function<void()>& work);

    std::unique_ptr<LockFile> m_file;
    std::function<Instant()> m_now;
    QLabel* m_oldLabel = nullptr;
    QLineEdit* m_old = nullptr;
    QLineEdit* m_fresh = nullptr;
    QLineEdit* m_again = nullptr;
    QLabel* m_error;
    QPushButton* m_set;
    QPushButton* m_remove;
    QComboBox* m_idle;
    QLabel* m_forgotten;
};

} // namespace Quillary
