#include "QuillaryUI/Look/FieldForm.h"

#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace Quillary {

namespace {

constexpr int pause = 600; ///< milliseconds
constexpr int textHeight = 88;
constexpr int narrowestLabel = 160;
constexpr int mostShownChoices = 16;

const QString yes = QStringLiteral("yes");

QLabel* hiddenLine(const QColor& color, QWidget* parent)
{
    auto* label = new QLabel(parent);
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, color);
    label->setPalette(colors);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->hide();
    return label;
}

} // namespace

QWidget* FieldForm::Entry::widget() const
{
    if (line != nullptr) {
        return line;
    }
    if (paragraphs != nullptr) {
        return paragraphs;
    }
    return choice != nullptr ? static_cast<QWidget*>(choice) : flag;
}

QString FieldForm::Entry::value() const
{
    if (line != nullptr) {
        return line->text();
    }
    if (paragraphs != nullptr) {
        return paragraphs->toPlainText();
    }
    if (choice != nullptr) {
        return choice->currentData().toString();
    }
    return flag->isChecked() ? yes : QString();
}

void FieldForm::Entry::put(const QString& value) const
{
    const QSignalBlocker quiet(widget());
    if (line != nullptr && line->text() != value) {
        line->setText(value);
        line->setCursorPosition(0);
    } else if (paragraphs != nullptr && paragraphs->toPlainText() != value) {
        paragraphs->setPlainText(value);
    } else if (choice != nullptr) {
        if (choice->findData(value) < 0 && !value.isEmpty()) {
            choice->addItem(value, value); // stored by somebody who knew more choices
        }
        choice->setCurrentIndex(choice->findData(value));
    } else if (flag != nullptr) {
        flag->setChecked(value == yes);
    }
}

FieldForm::FieldForm(Save save, QWidget* parent)
    : QWidget(parent)
    , m_save(std::move(save))
    , m_form(new QFormLayout(this))
    , m_pause(new QTimer(this))
{
    m_form->setContentsMargins(0, 0, 0, 0);
    m_form->setVerticalSpacing(8);
    m_form->setHorizontalSpacing(16);
    m_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    m_form->setLabelAlignment(Qt::AlignLeft);
    m_pause->setSingleShot(true);
    m_pause->setInterval(pause);
    connect(m_pause, &QTimer::timeout, this, &FieldForm::flush);
}

void FieldForm::addHeading(const QString& title)
{
    auto* label = new QLabel(title, this);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->setContentsMargins(0, m_form->rowCount() > 0 ? 16 : 0, 0, 0);
    m_form->addRow(label);
}

void FieldForm::addField(const Field& field)
{
    Entry& entry = m_entries[field.name];
    entry.label = field.label;
    entry.row = new QWidget(this);
    entry.row->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto* column = new QVBoxLayout(entry.row);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    makeWidget(entry, field);
    QWidget* widget = entry.widget();
    widget->setObjectName(QStringLiteral("field_") + field.name);
    widget->setAccessibleName(field.label);
    widget->setProperty("field", field.name);
    widget->installEventFilter(this);
    column->addWidget(widget);
    entry.note = hiddenLine(palette().color(QPalette::PlaceholderText), entry.row);
    entry.note->setObjectName(QStringLiteral("note_") + field.name);
    entry.error = hiddenLine(Theme::errorColor(), entry.row);
    entry.error->setObjectName(QStringLiteral("error_") + field.name);
    column->addWidget(entry.note);
    column->addWidget(entry.error);
    addRow(entry.flag != nullptr ? QString() : field.label, entry.row);
}

void FieldForm::makeWidget(Entry& entry, const Field& field)
{
    const auto changed = [this, name = field.name] {
        typed(name);
    };
    const auto chosen = [this, name = field.name] {
        typed(name);
        flush();
    };
    switch (field.kind) {
    case Kind::line:
        entry.line = new QLineEdit(entry.row);
        entry.line->setPlaceholderText(field.hint);
        connect(entry.line, &QLineEdit::textChanged, this, changed);
        connect(entry.line, &QLineEdit::returnPressed, this, &FieldForm::flush);
        break;
    case Kind::paragraphs:
        entry.paragraphs = new QPlainTextEdit(entry.row);
        entry.paragraphs->setPlaceholderText(field.hint);
        entry.paragraphs->setTabChangesFocus(true);
        entry.paragraphs->setFixedHeight(textHeight);
        connect(entry.paragraphs, &QPlainTextEdit::textChanged, this, changed);
        break;
    case Kind::choice:
        entry.choice = new QComboBox(entry.row);
        entry.choice->setFocusPolicy(Qt::StrongFocus);
        entry.choice->setPlaceholderText(field.hint);
        entry.choice->setMaxVisibleItems(mostShownChoices);
        entry.choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        for (const Choice& choice : field.choices) {
            entry.choice->addItem(choice.label, choice.value);
        }
        entry.put({});
        connect(entry.choice, &QComboBox::activated, this, chosen);
        break;
    case Kind::flag:
        entry.flag = new QCheckBox(field.label, entry.row);
        connect(entry.flag, &QCheckBox::toggled, this, chosen);
        break;
    }
}

void FieldForm::addRow(const QString& label, QWidget* widget)
{
    auto* title = new QLabel(label, this);
    title->setMinimumWidth(narrowestLabel);
    title->setContentsMargins(0, 6, 0, 0); // on the line of what is typed
    title->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    title->setBuddy(widget);
    m_form->addRow(title, widget);
}

void FieldForm::addWhole(QWidget* widget)
{
    m_form->addRow(widget);
}

void FieldForm::begin(Subject subject)
{
    m_pause->stop();
    if (subject.identifier != m_subject.identifier) {
        keepRefused();
    } else {
        m_kept.erase(subject.identifier);
    }
    m_subject = std::move(subject);
    for (auto& [name, entry] : m_entries) {
        entry.isTyped = false;
        entry.known.clear();
        tell(entry, {});
        entry.put({});
    }
    if (const auto found = m_kept.find(m_subject.identifier); found != m_kept.end()) {
        for (const auto& [name, refused] : found->second) {
            m_entries[name].put(refused.value);
            m_entries[name].isTyped = true;
        }
        m_kept.erase(found);
        m_pause->start(); // it may be right by now; if not, its field says so
    }
}

void FieldForm::drop()
{
    m_pause->stop();
    for (auto& [name, entry] : m_entries) {
        entry.isTyped = false;
        tell(entry, {});
    }
}

void FieldForm::keepRefused()
{
    QString reason;
    for (const auto& [name, entry] : m_entries) {
        if (entry.isRefused && !m_subject.identifier.isEmpty()) {
            reason = refusal(entry);
            m_kept[m_subject.identifier].insert_or_assign(name, Kept{.value = entry.value(), .sentence = reason});
        }
    }
    if (!reason.isEmpty()) {
        Q_EMIT kept(tr("Not saved: %1 What you typed is kept there for now.").arg(reason));
    }
}

QString FieldForm::refusal(const Entry& entry) const
{
    return m_subject.name.isEmpty() ? entry.error->text() : tr("%1: %2").arg(m_subject.name, entry.error->text());
}

QStringList FieldForm::refusals() const
{
    QStringList sentences;
    for (const auto& [subject, fields] : m_kept) {
        for (const auto& [name, refused] : fields) {
            sentences.push_back(refused.sentence);
        }
    }
    for (const auto& [name, entry] : m_entries) {
        if (entry.isRefused) {
            sentences.push_back(refusal(entry));
        }
    }
    return sentences;
}

void FieldForm::setValue(const QString& name, const QString& value)
{
    const auto found = m_entries.find(name);
    if (found == m_entries.end()) {
        return;
    }
    Entry& entry = found->second;
    const bool isOther = value != std::exchange(entry.known, value);
    // While it has the keyboard, what was typed is not exchanged for the form in which it was stored.
    const bool isKept =
        entry.isTyped || entry.isBeingSaved || (!isOther && (entry.isRefused || entry.widget()->hasFocus()));
    if (!isKept) {
        entry.put(value);
        tell(entry, {});
    }
}

QString FieldForm::value(const QString& name) const
{
    const auto found = m_entries.find(name);
    return found == m_entries.end() ? QString() : found->second.value();
}

void FieldForm::setNote(const QString& name, const QString& note)
{
    if (const auto found = m_entries.find(name); found != m_entries.end()) {
        found->second.note->setText(note);
        found->second.note->setVisible(!note.isEmpty());
    }
}

void FieldForm::setShown(const QString& name, bool isShown)
{
    if (const auto found = m_entries.find(name); found != m_entries.end()) {
        m_form->setRowVisible(found->second.row, isShown);
    }
}

void FieldForm::focus(const QString& name)
{
    if (const auto found = m_entries.find(name); found != m_entries.end()) {
        found->second.widget()->setFocus(Qt::OtherFocusReason);
        if (found->second.line != nullptr) {
            found->second.line->selectAll();
        }
    }
}

void FieldForm::typed(const QString& name)
{
    m_entries[name].isTyped = true;
    m_pause->start();
}

void FieldForm::flush()
{
    m_pause->stop();
    for (auto& [name, entry] : m_entries) {
        if (entry.isTyped) {
            save(name, entry);
        }
    }
}

void FieldForm::save(const QString& name, Entry& entry)
{
    entry.isTyped = false;
    if (entry.value() == entry.known) {
        tell(entry, {});
        return;
    }
    const std::optional<QString> refusal = m_save(name, entry.value());
    tell(entry, refusal.value_or(QString()));
    if (!refusal) {
        entry.isBeingSaved = entry.widget()->hasFocus();
        Q_EMIT saved(name);
        entry.isBeingSaved = false;
    }
}

/// Refusals name an argument; people know the field by its label.
void FieldForm::tell(Entry& entry, const QString& sentence) const
{
    QString shown = sentence;
    for (const auto& [name, other] : m_entries) {
        CoreText::nameField(shown, name, other.label);
    }
    entry.isRefused = !sentence.isEmpty();
    entry.error->setText(shown);
    entry.error->setVisible(entry.isRefused);
}

void FieldForm::leave(Entry& entry)
{
    flush();
    if (!entry.isRefused) {
        entry.put(entry.known);
    }
}

bool FieldForm::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Wheel && qobject_cast<QComboBox*>(watched) != nullptr &&
        !qobject_cast<QComboBox*>(watched)->hasFocus()) {
        event->ignore(); // who scrolls the page doesn't mean to choose something else
        return true;
    }
    if (event->type() == QEvent::FocusOut) {
        if (const auto found = m_entries.find(watched->property("field").toString()); found != m_entries.end()) {
            leave(found->second);
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace Quillary
