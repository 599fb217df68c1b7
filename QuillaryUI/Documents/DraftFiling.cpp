#include "QuillaryUI/Documents/DraftFiling.h"

#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/DraftFields.h"
#include "QuillaryUI/Library/ProjectBox.h"
#include "QuillaryUI/Look/Choices.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QStringList>
#include <QToolButton>
#include <QVBoxLayout>

#include <string>
#include <vector>

namespace Quillary {

namespace {

constexpr qsizetype codeLength = 3; ///< of a currency

std::vector<std::string> tagsOf(const QString& typed)
{
    std::vector<std::string> tags;
    for (const QString& tag : typed.split(QChar(u','), Qt::SkipEmptyParts)) {
        tags.push_back(utf8(tag.trimmed()));
    }
    return tags;
}

} // namespace

DraftFiling::DraftFiling(DraftDesk& desk, DraftFields& fields, QWidget* parent)
    : QWidget(parent)
    , m_desk(desk)
    , m_fields(fields)
    , m_more(new QToolButton(this))
    , m_folded(new QWidget(this))
    , m_form(new QFormLayout(m_folded))
{
    build();
    addProject();
    addTags();
    addLanguage();
    addCurrency();
}

void DraftFiling::build()
{
    m_more->setObjectName(QStringLiteral("moreFields"));
    m_more->setText(tr("Project, tags, language and currency"));
    m_more->setCheckable(true);
    m_more->setAutoRaise(true);
    m_more->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_more->setArrowType(Qt::RightArrow);
    m_form->setContentsMargins(0, 0, 0, 0);
    m_folded->hide();
    connect(m_more, &QToolButton::toggled, this, [this](bool isOpen) {
        m_more->setArrowType(isOpen ? Qt::DownArrow : Qt::RightArrow);
        m_folded->setVisible(isOpen);
    });
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(12);
    column->addWidget(m_more, 0, Qt::AlignLeft);
    column->addWidget(m_folded);
}

void DraftFiling::addProject()
{
    m_project = new ProjectBox(m_desk.library(), tr("No project"));
    connect(m_project, &QComboBox::activated, this, [this] {
        const auto work = [&library = m_desk.library(), key = m_project->project()](const Document& draft) {
            const Project* project = library.context().find(Ref<Project>(key));
            DocumentActions::setProject(library.desk(), draft, project);
        };
        const auto refusal = m_desk.perform(tr("Project"), work);
        m_fields.tell("project", refusal.value_or(QString()));
    });
    m_fields.addRow(*m_form, tr("Project"), "project", m_project);
}

void DraftFiling::addTags()
{
    m_tags = new QLineEdit;
    m_tags->setPlaceholderText(tr("With commas between them"));
    connect(m_tags, &QLineEdit::textEdited, this, [this] {
        m_fields.typedApart("tags", [this] {
            const auto work = [&library = m_desk.library(), tags = tagsOf(m_tags->text())](const Document& draft) {
                DocumentActions::setTags(library.desk(), draft, tags);
            };
            return m_desk.perform(tr("Tags"), work);
        });
    });
    m_fields.addRow(*m_form, tr("Tags"), "tags", m_tags);
}

void DraftFiling::addLanguage()
{
    m_language = new QComboBox;
    for (const FieldForm::Choice& choice : Choices::languages()) {
        m_language->addItem(choice.label, choice.value);
    }
    connect(m_language, &QComboBox::activated, this, [this] {
        const auto refusal =
            m_desk.change(tr("Change Document"), "language", utf8(m_language->currentData().toString()));
        m_fields.touch("language");
        m_fields.tell("language", refusal.value_or(QString()));
    });
    m_fields.addRow(*m_form, tr("Language"), "language", m_language);
}

void DraftFiling::addCurrency()
{
    m_currency = m_fields.addReadLine(
        *m_form,
        tr("Currency"),
        "currency",
        [](const QString& typed) {
            return typed.size() == codeLength ? std::optional(JSON::object({{"currency", utf8(typed.toUpper())}}))
                                              : std::nullopt;
        },
        [] { return tr("A currency has three letters, such as EUR."); });
}

void DraftFiling::open()
{
    m_more->setChecked(true);
}

void DraftFiling::fill(const Document& draft)
{
    m_project->setProject(draft.project.key());
    QStringList tags;
    for (const std::string& tag : tagList(draft)) {
        tags.push_back(text(tag));
    }
    m_fields.put(*m_tags, tags.join(QStringLiteral(", ")));
    m_language->setCurrentIndex(m_language->findData(text(code(language(draft)))));
    m_fields.put(*m_currency, text(draft.currencyCode));
}

} // namespace Quillary
