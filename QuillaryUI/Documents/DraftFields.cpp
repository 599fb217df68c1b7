#include "QuillaryUI/Documents/DraftFields.h"

#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryUI/Look/Theme.h"

#include <QApplication>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>

#include <utility>

namespace Quillary {

namespace {

constexpr int textHeight = 64;

void setFilledIn(QWidget& widget, bool isFilledIn)
{
    constexpr const char* property = "filledIn";
    if (widget.property(property).toBool() != isFilledIn) {
        widget.setProperty(property, isFilledIn);
        widget.setAccessibleDescription(isFilledIn ? DraftFields::tr("Filled in") : QString());
        Theme::tint(widget, QApplication::palette().color(isFilledIn ? QPalette::PlaceholderText : QPalette::Text));
    }
}

/// Saving trims a text: while somebody types, the blank that they have just typed is theirs.
bool differs(const QString& shown, const QString& stored, bool isTyping)
{
    return isTyping ? shown.trimmed() != stored.trimmed() : shown != stored;
}

} // namespace

DraftFields::DraftFields(DraftDesk& desk, QObject* parent)
    : QObject(parent)
    , m_desk(desk)
{
}

void DraftFields::add(const std::string& field, QWidget* widget, QLabel* error)
{
    Theme::tint(*error, Theme::errorColor());
    error->setObjectName(text(field + "Error"));
    error->setWordWrap(true);
    error->hide();
    m_errors[field] = error;
    m_widgets[field] = widget;
}

void DraftFields::addRow(
    QFormLayout& form, const QString& label, const std::string& field, QWidget* widget, QWidget* shown)
{
    auto* error = new QLabel;
    widget->setObjectName(text(field));
    widget->setAccessibleName(label);
    add(field, widget, error);
    form.addRow(label, shown != nullptr ? shown : widget);
    form.addRow(QString(), error);
}

QLineEdit* DraftFields::addLine(QFormLayout& form, const QString& label, const std::string& field)
{
    auto* edit = new QLineEdit;
    connect(edit, &QLineEdit::textEdited, this, [this, edit, field] {
        typedValue(field, [edit] { return JSON(utf8(edit->text())); });
    });
    addRow(form, label, field, edit);
    return edit;
}

QLineEdit* DraftFields::addReadLine(QFormLayout& form,
                                    const QString& label,
                                    const std::string& field,
                                    const std::function<std::optional<JSON>(const QString& typed)>& read,
                                    const std::function<QString()>& hint)
{
    auto* edit = new QLineEdit;
    connect(edit, &QLineEdit::textEdited, this, [this, edit, field, read] {
        typed(field, Reading([edit, read] { return read(edit->text().trimmed()); }));
    });
    connect(edit, &QLineEdit::editingFinished, this, [this, edit, field, read, hint] {
        if (m_unsaved.contains(field) && !read(edit->text().trimmed())) {
            tell(field, hint());
        }
    });
    addRow(form, label, field, edit);
    return edit;
}

QPlainTextEdit* DraftFields::makeText(const std::string& field)
{
    auto* edit = new QPlainTextEdit;
    edit->setTabChangesFocus(true);
    edit->setFixedHeight(textHeight);
    connect(edit, &QPlainTextEdit::textChanged, this, [this, edit, field] {
        typedValue(field, [edit] { return JSON(utf8(edit->toPlainText())); });
    });
    return edit;
}

void DraftFields::fill(bool isOther, const std::function<void()>& work)
{
    const QScopedValueRollback filling(m_isFilling, true);
    const QScopedValueRollback other(m_isOther, isOther);
    work();
}

bool DraftFields::isKept(const QWidget& field) const
{
    const std::string name = utf8(field.objectName());
    const auto error = m_errors.find(name);
    return !m_isOther && (m_unsaved.contains(name) || (error != m_errors.end() && !error->second->text().isEmpty()));
}

void DraftFields::put(QLineEdit& field, const QString& text) const
{
    const bool isTyping = !m_isOther && field.hasFocus();
    if (!isKept(field) && differs(field.text(), text, isTyping)) {
        field.setText(text);
    }
}

void DraftFields::put(QPlainTextEdit& field, const QString& text) const
{
    const bool isTyping = !m_isOther && field.hasFocus();
    if (!isKept(field) && differs(field.toPlainText(), text, isTyping)) {
        field.setPlainText(text);
    }
}

void DraftFields::typed(const std::string& field, Reading reading)
{
    if (!m_isFilling) {
        m_unsaved[field] = {std::move(reading), {}};
        touch(field);
        Q_EMIT typing();
    }
}

void DraftFields::typedValue(const std::string& field, std::function<JSON()> value)
{
    typed(field, Reading([field, value = std::move(value)] { return JSON::object({{field, value()}}); }));
}

void DraftFields::typedApart(const std::string& field, std::function<std::optional<QString>()> save)
{
    if (!m_isFilling) {
        m_unsaved[field] = {{}, std::move(save)};
        touch(field);
        Q_EMIT typing();
    }
}

void DraftFields::addUnsaved(JSON& arguments) const
{
    for (const auto& [field, unsaved] : m_unsaved) {
        const std::optional<JSON> given = unsaved.reading ? unsaved.reading() : std::nullopt;
        if (given) {
            for (const auto& [name, value] : *given->object()) {
                arguments.set(name, value);
            }
        }
    }
}

void DraftFields::save()
{
    for (auto& [field, unsaved] : std::exchange(m_unsaved, {})) {
        if (unsaved.save) {
            tell(field, unsaved.save().value_or(QString()));
        } else if (const std::optional<JSON> arguments = unsaved.reading()) {
            tell(field, m_desk.change(tr("Change Document"), *arguments).value_or(QString()));
        } else {
            m_unsaved.insert({field, std::move(unsaved)}); // until it makes sense
        }
    }
}

void DraftFields::forget()
{
    m_unsaved.clear();
    m_touched.clear();
    for (const auto& [field, label] : m_errors) {
        label->clear();
        label->hide();
    }
}

void DraftFields::touch(const std::string& field)
{
    m_touched.insert(field);
    if (QWidget* touched = widget(field)) {
        setFilledIn(*touched, false);
    }
}

void DraftFields::showFilledIn(const std::set<std::string, std::less<>>& fields)
{
    for (const auto& [name, widget] : m_widgets) {
        setFilledIn(*widget, fields.contains(name) && !m_touched.contains(name));
    }
}

void DraftFields::tell(const std::string& field, const QString& sentence)
{
    QLabel* label = m_errors.at(m_errors.contains(field) ? field : "lines");
    label->setText(sentence);
    label->setVisible(!sentence.isEmpty());
}

QWidget* DraftFields::widget(const std::string& field) const
{
    const auto found = m_widgets.find(field);
    return found == m_widgets.end() ? nullptr : found->second;
}

} // namespace Quillary
