#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <map>
#include <optional>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTimer;

namespace Quillary {

/// A form whose fields are saved one by one, soon after the last key and when they are left. What can't be saved is told
/// under its field, which keeps what was typed.
///
/// Values are texts; a flag is "yes" or empty.
class FieldForm : public QWidget
{
    Q_OBJECT

public:
    enum class Kind { line, paragraphs, choice, flag };

    struct Choice
    {
        QString value;
        QString label;
    };

    struct Field
    {
        QString name; ///< as `Save` gets it, and as a refusal names it in “quotes”
        QString label;
        Kind kind = Kind::line;
        QList<Choice> choices = {};
        QString hint = {};
    };

    /// Saves one value. No value: done; else the sentence that says why not.
    using Save = std::function<std::optional<QString>(const QString& name, const QString& value)>;

    explicit FieldForm(Save save, QWidget* parent = nullptr);

    void addHeading(const QString& title);
    void addField(const Field& field);
    /// What isn't saved by this form.
    void addRow(const QString& label, QWidget* widget);
    /// The same across the whole width.
    void addWhole(QWidget* widget);

    /// What a form shows.
    struct Subject
    {
        QString identifier; ///< the same for nothing else, in whatever library; empty: there is nothing
        QString name;       ///< for people
    };

    /// Something else is shown from now on. What was refused of the one before is kept, and stands in its field again
    /// when that one is shown again; the same one once more drops what was refused of it.
    void begin(Subject subject);
    /// What is shown isn't there any more, and what was typed for it has no place.
    void drop();
    [[nodiscard]] const QString& identifier() const { return m_subject.identifier; }

    /// What was refused and isn't saved, here or of another subject: sentences with the subject's name.
    [[nodiscard]] QStringList refusals() const;
    /// Whether something else than what is shown has a refused value, which is kept for it.
    [[nodiscard]] bool keeps(const QString& identifier) const { return m_kept.contains(identifier); }

    /// What is stored. A field in which something else is being typed keeps that.
    void setValue(const QString& name, const QString& value);
    [[nodiscard]] QString value(const QString& name) const;

    /// What follows from the value, below its field. Empty: nothing.
    void setNote(const QString& name, const QString& note);
    void setShown(const QString& name, bool isShown);

    [[nodiscard]] bool has(const QString& name) const { return m_entries.contains(name); }
    void focus(const QString& name);

    /// Saves what was typed and not saved yet.
    void flush();

Q_SIGNALS:
    /// A value was saved; what is stored is to be shown now.
    void saved(const QString& name);
    /// Something else is shown now, and what was refused of the one before is kept: a sentence.
    void kept(const QString& sentence);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry
    {
        QString label;
        QWidget* row = nullptr;
        QLineEdit* line = nullptr;
        QPlainTextEdit* paragraphs = nullptr;
        QComboBox* choice = nullptr;
        QCheckBox* flag = nullptr;
        QLabel* note = nullptr;
        QLabel* error = nullptr;
        QString known; ///< what is stored
        bool isTyped = false;
        bool isRefused = false;
        bool isBeingSaved = false;

        [[nodiscard]] QWidget* widget() const;
        [[nodiscard]] QString value() const;
        void put(const QString& value) const;
    };

    void makeWidget(Entry& entry, const Field& field);
    void typed(const QString& name);
    void save(const QString& name, Entry& entry);
    void tell(Entry& entry, const QString& sentence) const;
    void keepRefused();
    [[nodiscard]] QString refusal(const Entry& entry) const;
    void leave(Entry& entry);

    Save m_save;
    QFormLayout* m_form;
    QTimer* m_pause;
    std::map<QString, Entry> m_entries;
    Subject m_subject;
    struct Kept
    {
        QString value;
        QString sentence; ///< why it was refused
    };
    std::map<QString, std::map<QString, Kept>> m_kept; ///< by subject and field
};

} // namespace Quillary
