#include "QuillaryUI/Catalog/RecordPanel.h"

#include "QuillaryUI/Catalog/RecordListModel.h"
#include "QuillaryUI/Look/FieldForm.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Look/Theme.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

#include <utility>

namespace Quillary {

namespace {

constexpr int border = 12;
constexpr int listWidth = 560;
constexpr int widest = 720;

} // namespace

RecordPanel::RecordPanel(LibraryAccess& library, std::unique_ptr<RecordDesk> desk, RecordTexts texts, QWidget* parent)
    : Section(parent)
    , m_library(library)
    , m_desk(std::move(desk))
    , m_texts(std::move(texts))
    , m_model(new RecordListModel(*m_desk, m_texts, this))
    , m_table(new QTableView(this))
    , m_search(new QLineEdit(this))
    , m_list(new QStackedWidget(this))
    , m_form(new FieldForm(
          [this](const QString& name, const QString& value) {
              return m_chosen == 0 ? std::nullopt : m_desk->change(m_texts.change, m_chosen, name, value);
          },
          this))
    , m_remove(new QPushButton(m_texts.remove, this))
{
    build();
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &RecordPanel::choose);
    connect(m_table, &QTableView::activated, this, [this] { m_form->focus(m_texts.fields.front().name); });
    connect(m_form, &FieldForm::saved, this, &RecordPanel::reload);
    connect(m_form, &FieldForm::kept, this, &RecordPanel::failed);
    connect(m_remove, &QPushButton::clicked, this, &RecordPanel::remove);
    connect(&library, &LibraryAccess::opened, this, &RecordPanel::reload);
    connect(&library, &LibraryAccess::closing, this, &RecordPanel::flush);
    connect(&library, &LibraryAccess::changed, this, [this](const ChangeSet& changes) {
        if (m_desk->isConcerned(changes)) {
            reload();
        }
    });
    reload();
}

RecordPanel::~RecordPanel() = default;

void RecordPanel::build()
{
    m_table->setModel(m_model);
    Lists::dress(*m_table, QStringLiteral("recordList"), m_texts.title, 0);
    m_list->addWidget(m_table);
    m_list->addWidget(buildEmpty());

    auto* left = new QWidget(this);
    auto* column = new QVBoxLayout(left);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(buildBar());
    column->addWidget(m_list, 1);
    Lists::beside(*this, QStringLiteral("listAndRecord"), left, listWidth, buildForm(), listWidth + (listWidth / 4));
}

QWidget* RecordPanel::buildBar()
{
    auto* bar = new QWidget(this);
    m_search->setObjectName(QStringLiteral("listSearch"));
    m_search->setPlaceholderText(m_texts.search);
    m_search->setAccessibleName(tr("Find in this list"));
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_model->setFilter(text);
        restore();
    });
    auto* fresh = new QPushButton(Theme::icon(QStringLiteral("plus")), tr("New"), bar);
    fresh->setObjectName(QStringLiteral("newRecord"));
    fresh->setAccessibleName(m_texts.add);
    connect(fresh, &QPushButton::clicked, this, &RecordPanel::makeNew);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(border, border, border, border);
    row->addWidget(m_search, 1);
    row->addWidget(fresh);
    return bar;
}

QWidget* RecordPanel::buildEmpty()
{
    auto* page = new QWidget(this);
    auto* sentence = new QLabel(m_texts.empty, page);
    sentence->setObjectName(QStringLiteral("emptyList"));
    sentence->setWordWrap(true);
    sentence->setAlignment(Qt::AlignCenter);
    auto* fresh = new QPushButton(m_texts.add, page);
    fresh->setDefault(true);
    connect(fresh, &QPushButton::clicked, this, &RecordPanel::makeNew);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(2 * border, border, 2 * border, border);
    column->addStretch();
    column->addWidget(sentence);
    column->addWidget(fresh, 0, Qt::AlignHCenter);
    column->addStretch();
    return page;
}

QWidget* RecordPanel::buildForm()
{
    for (const FieldForm::Field& field : m_texts.fields) {
        m_form->addField(field);
    }
    m_remove->setObjectName(QStringLiteral("removeRecord"));
    auto* page = new QWidget(this);
    page->setMaximumWidth(widest);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(2 * border, 2 * border, 2 * border, 2 * border);
    column->setSpacing(2 * border);
    column->addWidget(m_form);
    column->addWidget(m_remove, 0, Qt::AlignLeft);
    column->addStretch();
    return Lists::scrolled(page, this);
}

void RecordPanel::reload()
{
    if (m_library.isOpen()) {
        m_isRestoring = true; // the chosen row goes for a moment with all the others
        m_model->reload();
        m_isRestoring = false;
        restore();
    }
}

void RecordPanel::choose()
{
    const QModelIndex current = m_table->currentIndex();
    if (!m_isRestoring && current.isValid()) {
        begin(m_model->row(current.row()).key);
        restore(); // what was saved on the way has read the list anew
    }
}

/// What was typed for the one before is saved, or kept for it.
void RecordPanel::begin(std::int64_t key)
{
    m_form->flush();
    const std::optional<int> row = m_model->rowOf(key);
    m_chosen = key;
    m_form->begin(row ? FieldForm::Subject{m_model->row(*row).identifier, m_model->row(*row).shown.front()}
                      : FieldForm::Subject());
}

/// The same record stays chosen; if it is gone, the first takes its place.
void RecordPanel::restore()
{
    m_list->setCurrentIndex(m_model->isEmpty() ? 1 : 0);
    std::optional<int> row = m_model->rowOf(m_chosen);
    if (!row && m_model->rowCount() > 0) {
        row = 0;
    }
    const std::int64_t key = row ? m_model->row(*row).key : 0;
    if (key != m_chosen || (row && m_model->row(*row).identifier != m_form->identifier())) { // or of another library
        begin(key);
    }
    m_isRestoring = true;
    m_table->setCurrentIndex(row ? m_model->index(*row, 0) : QModelIndex());
    m_isRestoring = false;
    showRow();
}

void RecordPanel::showRow()
{
    const std::optional<int> row = m_model->rowOf(m_chosen);
    m_form->setVisible(row.has_value());
    m_remove->setVisible(row.has_value());
    const std::vector<RecordDesk::Field> fields = m_desk->fields();
    for (std::size_t place = 0; row && place < fields.size(); ++place) {
        m_form->setValue(fields[place].name, m_model->row(*row).texts[qsizetype(place)]);
    }
}

/// A record can't be without a name, and two can't share one: "New Item", "New Item 2" …
QString RecordPanel::freeName() const
{
    QStringList taken;
    for (const RecordDesk::Row& row : m_desk->rows()) {
        taken.push_back(row.texts.front());
    }
    QString name = m_texts.add;
    for (int number = 2; number <= taken.size() + 1 && taken.contains(name, Qt::CaseInsensitive); ++number) {
        name = QStringLiteral("%1 %2").arg(m_texts.add).arg(number);
    }
    return name;
}

void RecordPanel::makeNew()
{
    flush();
    if (!m_library.isOpen()) {
        return;
    }
    std::int64_t made = 0;
    if (const auto refusal = m_desk->add(m_texts.add, freeName(), made)) {
        Q_EMIT failed(*refusal);
        return;
    }
    m_search->clear();
    reload();
    begin(made);
    restore();
    m_form->focus(m_texts.fields.front().name);
}

void RecordPanel::remove()
{
    if (const auto refusal = m_desk->remove(m_texts.remove, m_chosen)) {
        Q_EMIT failed(*refusal);
    } else {
        m_form->drop();
    }
}

void RecordPanel::find()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void RecordPanel::flush()
{
    m_form->flush();
}

} // namespace Quillary
