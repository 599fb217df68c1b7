#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QWidget;

namespace Quillary {

/// The fields of a draft's form by name, which is that of their argument of `update_document`. What is typed is saved
/// soon after the last key; what can't be saved is told under its field, which keeps it.
class DraftFields : public QObject
{
    Q_OBJECT

public:
    /// The arguments that save a field as it stands now. No value: it makes no sense yet, and waits.
    using Reading = std::function<std::optional<JSON>()>;

    explicit DraftFields(DraftDesk& desk, QObject* parent = nullptr);

    /// `widget` takes the keyboard; `shown` is it with what stands beside it.
    void addRow(
        QFormLayout& form, const QString& label, const std::string& field, QWidget* widget, QWidget* shown = nullptr);
    /// A field outside the form, with the label for its refusals.
    void add(const std::string& field, QWidget* widget, QLabel* error);
    QLineEdit* addLine(QFormLayout& form, const QString& label, const std::string& field);
    /// A line that is read before it is saved. When it is left and still makes no sense, `hint` is told.
    QLineEdit* addReadLine(QFormLayout& form,
                           const QString& label,
                           const std::string& field,
                           const std::function<std::optional<JSON>(const QString& typed)>& read,
                           const std::function<QString()>& hint);
    /// For `addRow`, saved like `addLine`.
    QPlainTextEdit* makeText(const std::string& field);

    /// Runs `fill`, in which `put` and the like change fields without anybody having typed. `isOther`: another document
    /// is shown, so that nothing that stands in the fields belongs to it.
    void fill(bool isOther, const std::function<void()>& work);
    void put(QLineEdit& field, const QString& text) const;
    void put(QPlainTextEdit& field, const QString& text) const;
    /// What was typed and not saved yet, or refused, stays.
    [[nodiscard]] bool isKept(const QWidget& field) const;
    [[nodiscard]] bool isOther() const { return m_isOther; }

    /// Somebody changed the field.
    void typed(const std::string& field, Reading reading);
    void typedValue(const std::string& field, std::function<JSON()> value);
    /// The same for a field that an operation of its own saves.
    void typedApart(const std::string& field, std::function<std::optional<QString>()> save);
    /// Somebody chose something in the field, which saved it at once.
    void touch(const std::string& field);
    /// These hold what nobody typed, and look like it until somebody touches them.
    void showFilledIn(const std::set<std::string, std::less<>>& fields);
    void tell(const std::string& field, const QString& sentence);
    void forget();

    [[nodiscard]] bool hasUnsaved() const { return !m_unsaved.empty(); }
    /// What is typed and not saved, added to arguments.
    void addUnsaved(JSON& arguments) const;
    void save();

    /// Null: there is no such field.
    [[nodiscard]] QWidget* widget(const std::string& field) const;

Q_SIGNALS:
    void typing();

private:
    struct Unsaved
    {
        Reading reading;
        std::function<std::optional<QString>()> save; ///< instead of `update_document`
    };

    DraftDesk& m_desk;
    bool m_isFilling = false;
    bool m_isOther = false;
    std::map<std::string, Unsaved> m_unsaved;
    std::map<std::string, QLabel*> m_errors;
    std::map<std::string, QWidget*> m_widgets;
    std::set<std::string, std::less<>> m_touched;
};

} // namespace Quillary
