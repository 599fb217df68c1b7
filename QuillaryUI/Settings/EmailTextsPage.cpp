#include "QuillaryUI/Settings/EmailTextsPage.h"

#include "QuillaryCore/Letters/EmailTemplates.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/EmailTemplate.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Look/Choices.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/FieldForm.h"
#include "QuillaryUI/Settings/EmailPreview.h"
#include "QuillaryUI/Settings/PlainTable.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStringList>
#include <QTableWidget>
#include <QVBoxLayout>

#include <string>
#include <vector>

namespace Quillary {

namespace {

constexpr int gap = 8;
constexpr int bodyHeight = 264;
constexpr int placeholdersHeight = 256;

const QString subjectField = QStringLiteral("email_subject");
const QString bodyField = QStringLiteral("email_body");

QString kindText(EmailKind kind)
{
    return CoreText::word(title(kind));
}

} // namespace

EmailTextsPage::EmailTextsPage(LibraryAccess& library, QWidget* parent)
    : Section(parent)
    , m_library(library)
    , m_kind(new QComboBox(this))
    , m_language(new QComboBox(this))
    , m_origin(new QLabel(this))
    , m_restore(new QPushButton(tr("Return to the Built-In Text"), this))
    , m_form(new FieldForm([this](const QString& name, const QString& value) { return save(name, value); }, this))
    , m_placeholders(PlainTable::make({tr("Placeholder"), tr("What it stands for")}, 1, this))
    , m_preview(new EmailPreview(library, this))
{
    setObjectName(QStringLiteral("emailTextsPage"));
    auto* texts = buildTexts();
    m_subject = m_form->findChild<QLineEdit*>(QStringLiteral("field_") + subjectField);
    m_body = m_form->findChild<QPlainTextEdit*>(QStringLiteral("field_") + bodyField);
    m_body->setFixedHeight(bodyHeight);
    auto* left = new QVBoxLayout;
    left->setSpacing(gap);
    left->addWidget(texts);
    left->addWidget(buildPlaceholders());
    left->addStretch();
    auto* columns = new QHBoxLayout;
    columns->setSpacing(3 * gap);
    columns->addLayout(left, 3);
    columns->addWidget(m_preview, 2);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(2 * gap);
    whole->addWidget(buildChoices());
    whole->addLayout(columns);
    for (QWidget* field : {static_cast<QWidget*>(m_subject), static_cast<QWidget*>(m_body)}) {
        field->installEventFilter(this);
    }
    connect(m_subject, &QLineEdit::textChanged, this, &EmailTextsPage::preview);
    connect(m_body, &QPlainTextEdit::textChanged, this, &EmailTextsPage::preview);
    connect(m_form, &FieldForm::saved, this, &EmailTextsPage::refresh);
    connect(m_form, &FieldForm::kept, this, &EmailTextsPage::failed);
    connect(m_preview, &EmailPreview::changed, this, &EmailTextsPage::preview);
    connect(&library, &LibraryAccess::changed, this, [this](const ChangeSet& changes) {
        if (isVisible() && (!changes.of<EmailTemplate>().isEmpty() || !changes.of<Business>().isEmpty())) {
            refresh();
        }
    });
    connect(&library, &LibraryAccess::opened, this, [this] {
        if (isVisible()) {
            choose();
        }
    });
    connect(&library, &LibraryAccess::closing, this, &EmailTextsPage::flush);
}

QWidget* EmailTextsPage::buildChoices()
{
    auto* part = new QWidget(this);
    m_kind->setObjectName(QStringLiteral("emailKind"));
    m_kind->setAccessibleName(tr("Kind of email"));
    for (const EmailKind kind : allEmailKinds) {
        m_kind->addItem(kindText(kind), int(kind));
    }
    m_language->setObjectName(QStringLiteral("emailLanguage"));
    m_language->setAccessibleName(tr("Language of the email"));
    for (const FieldForm::Choice& choice : Choices::languages()) {
        m_language->addItem(choice.label, choice.value);
    }
    m_language->setCurrentIndex(-1); // the business's own, once it is known
    m_origin->setObjectName(QStringLiteral("emailOrigin"));
    m_origin->setForegroundRole(QPalette::PlaceholderText);
    m_restore->setObjectName(QStringLiteral("restoreEmailText"));
    for (QComboBox* box : {m_kind, m_language}) {
        box->setFocusPolicy(Qt::StrongFocus);
        connect(box, &QComboBox::activated, this, &EmailTextsPage::choose);
    }
    connect(m_restore, &QPushButton::clicked, this, &EmailTextsPage::restore);
    auto* row = new QHBoxLayout(part);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(m_kind);
    row->addWidget(m_language);
    row->addWidget(m_origin);
    row->addStretch();
    row->addWidget(m_restore);
    return part;
}

QWidget* EmailTextsPage::buildTexts()
{
    m_form->addField({.name = subjectField, .label = tr("Subject")});
    m_form->addField({.name = bodyField, .label = tr("Text"), .kind = FieldForm::Kind::paragraphs});
    return m_form;
}

QWidget* EmailTextsPage::buildPlaceholders()
{
    auto* part = new QWidget(this);
    m_placeholders->setObjectName(QStringLiteral("emailPlaceholders"));
    m_placeholders->setAccessibleName(tr("Placeholders"));
    m_placeholders->setFixedHeight(placeholdersHeight);
    auto* insert = new QPushButton(tr("Insert"), part);
    insert->setObjectName(QStringLiteral("insertPlaceholder"));
    insert->setAccessibleName(tr("Insert the chosen placeholder"));
    insert->setEnabled(false);
    insert->setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard in the text
    connect(m_placeholders, &QTableWidget::itemSelectionChanged, insert, [this, insert] {
        insert->setEnabled(!m_placeholders->selectedItems().isEmpty());
    });
    connect(m_placeholders, &QTableWidget::activated, this, &EmailTextsPage::insertPlaceholder);
    connect(insert, &QPushButton::clicked, this, &EmailTextsPage::insertPlaceholder);
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    column->addWidget(m_placeholders);
    column->addWidget(insert, 0, Qt::AlignLeft);
    return part;
}

EmailText EmailTextsPage::typed() const
{
    return {utf8(m_subject->text()), utf8(m_body->toPlainText())};
}

void EmailTextsPage::flush()
{
    m_form->flush();
}

void EmailTextsPage::showEvent(QShowEvent* event)
{
    Section::showEvent(event);
    choose();
}

/// Another kind or language is shown from now on, or the same after the page was away.
void EmailTextsPage::choose()
{
    if (!m_library.isOpen()) {
        return;
    }
    if (m_language->currentIndex() < 0) {
        const std::string own(code(documentLanguage(m_library.business().languageCode)));
        m_language->setCurrentIndex(m_language->findData(text(own)));
    }
    m_form->flush();
    const Shown chosen{.kind = EmailKind(m_kind->currentData().toInt()),
                       .language = documentLanguage(utf8(m_language->currentData().toString()))};
    if (!m_hasChosen || chosen != m_chosen) {
        exchange(chosen);
    }
    showPlaceholders();
    m_preview->begin(m_chosen.kind, m_chosen.language);
    refresh();
}

/// What could not be saved of the text before isn't lost with it: it stands there again when it is chosen again.
void EmailTextsPage::exchange(const Shown& chosen)
{
    m_hasChosen = true;
    m_chosen = chosen;
    begin();
}

void EmailTextsPage::begin()
{
    m_form->begin({.identifier = identifier(m_chosen), .name = kindText(m_chosen.kind)});
}

/// Of this business: another library may be opened.
QString EmailTextsPage::identifier(const Shown& shown) const
{
    const std::optional<UUID>& business = m_library.business().uuid;
    return QStringLiteral("%1 %2 %3")
        .arg(int(shown.kind))
        .arg(text(code(shown.language)), text(business ? business->text() : std::string()));
}

void EmailTextsPage::refresh()
{
    if (!m_library.isOpen() || !m_hasChosen) {
        return;
    }
    const EmailText stored = EmailTemplates::text(m_library.context(), m_chosen.kind, m_chosen.language);
    const bool isOwn = EmailTemplates::isCustomized(m_library.context(), m_chosen.kind, m_chosen.language);
    m_form->setValue(subjectField, text(stored.subject));
    m_form->setValue(bodyField, text(stored.body));
    m_origin->setText(isOwn ? tr("Your own text") : tr("Built-in text"));
    m_restore->setEnabled(isOwn);
    markOwn();
    m_preview->readValues(); // the business's name is among them
    preview();
}

/// Which kinds the user has written for in this language is seen without opening each.
void EmailTextsPage::markOwn()
{
    for (int place = 0; place < m_kind->count(); ++place) {
        const auto each = EmailKind(m_kind->itemData(place).toInt());
        const bool isOwn = EmailTemplates::isCustomized(m_library.context(), each, m_chosen.language);
        const bool isUnsaved = m_form->keeps(identifier({.kind = each, .language = m_chosen.language}));
        m_kind->setItemText(place,
                            isUnsaved ? tr("%1 (not saved)").arg(kindText(each))
                            : isOwn   ? tr("%1 (your own)").arg(kindText(each))
                                      : kindText(each));
    }
}

void EmailTextsPage::showPlaceholders()
{
    QList<QStringList> rows;
    for (const EmailPlaceholder placeholder : available(m_chosen.kind)) {
        rows.push_back({text(token(placeholder)), CoreText::word(summary(placeholder))});
    }
    PlainTable::fill(*m_placeholders, rows);
}

/// As it would arrive.
void EmailTextsPage::preview()
{
    m_preview->showText(typed());
    const QStringList unknown = m_preview->unknown(typed());
    m_form->setNote(bodyField,
                    unknown.isEmpty() ? QString()
                                      : tr("This email has nothing to put in the place of %1: it stays as it is.")
                                            .arg(unknown.join(QStringLiteral(", "))));
}

bool EmailTextsPage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        m_isInSubject = watched == m_subject;
    }
    return Section::eventFilter(watched, event);
}

void EmailTextsPage::insertPlaceholder()
{
    const auto chosen = m_placeholders->selectedItems();
    if (chosen.isEmpty()) {
        return;
    }
    const QString token = m_placeholders->item(chosen.front()->row(), 0)->text();
    if (m_isInSubject) {
        m_subject->insert(token);
        m_subject->setFocus(Qt::OtherFocusReason);
        m_subject->deselect();
    } else {
        m_body->insertPlainText(token);
        m_body->setFocus(Qt::OtherFocusReason);
    }
}

void EmailTextsPage::restore()
{
    m_form->flush();
    const auto refusal = m_library.perform(tr("Restore Email Text"), [this] {
        EmailTemplates::restoreDefault(m_library.context(), m_chosen.kind, m_chosen.language);
    });
    if (refusal) {
        Q_EMIT failed(*refusal);
        return;
    }
    begin(); // also what could not be saved
    refresh();
}

std::optional<QString> EmailTextsPage::save(const QString& name, const QString& value)
{
    return m_library.perform(tr("Change Email Text"), [&] {
        EmailText changed = EmailTemplates::text(m_library.context(), m_chosen.kind, m_chosen.language);
        (name == subjectField ? changed.subject : changed.body) = utf8(value);
        EmailTemplates::set(
            m_library.context(), EmailTemplates::checked(std::move(changed)), m_chosen.kind, m_chosen.language);
    });
}

} // namespace Quillary
