#include "QuillaryUI/Schedules/RecurringSection.h"

#include "QuillaryUI/Documents/MakeRecurringSheet.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Schedules/RecurringModel.h"
#include "QuillaryUI/Schedules/RecurringPane.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillary {

namespace {

constexpr int listWidth = 640;
constexpr int border = 12;

} // namespace

RecurringSection::RecurringSection(LibraryAccess& library, QWidget* parent)
    : Section(parent)
    , m_library(library)
    , m_model(new RecurringModel(library, this))
    , m_table(new QTableView(this))
    , m_pane(new RecurringPane(library, this))
    , m_pages(new QStackedWidget(this))
{
    setObjectName(QStringLiteral("recurring"));
    build();
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &RecurringSection::choose);
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        m_isRestoring = true;
        m_row = m_table->currentIndex().row();
    });
    connect(m_model, &QAbstractItemModel::modelReset, this, &RecurringSection::restore);
    connect(m_pane, &RecurringPane::wantedDocument, this, &RecurringSection::showTemplate);
    connect(m_table, &QTableView::doubleClicked, m_pane, &RecurringPane::beginEditing);
    connect(m_pane, &RecurringPane::editingChanged, this, [this](bool isEditing) {
        m_left->setVisible(!isEditing);
        if (!isEditing) {
            m_table->setFocus(Qt::OtherFocusReason);
        }
    });
    connect(m_pane, &RecurringPane::wantedClient, this, &RecurringSection::wantedClient);
    connect(m_pane, &RecurringPane::wantedSection, this, &RecurringSection::wantedSection);
    connect(m_pane, &RecurringPane::told, this, &RecurringSection::told);
    connect(m_pane, &RecurringPane::failed, this, &RecurringSection::failed);
    addActions(m_pane->documentActions()); // their keys work in the list, too
    m_table->addActions(m_pane->listActions());
    restore();
}

void RecurringSection::build()
{
    m_table->setModel(m_model);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    Lists::dress(*m_table, QStringLiteral("recurringList"), tr("Recurring Invoices"), RecurringModel::titleColumn);
    m_table->horizontalHeader()->setSectionResizeMode(RecurringModel::clientColumn, QHeaderView::Stretch);

    auto* filled = new QWidget(this);
    m_left = buildList();
    Lists::beside(*filled, QStringLiteral("recurringAndPage"), m_left, listWidth, m_pane, listWidth);
    m_pages->addWidget(filled);
    m_pages->addWidget(buildEmpty());
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_pages);
}

QPushButton* RecurringSection::newButton(const QString& words, QWidget* parent) const
{
    auto* fresh = new QPushButton(words, parent);
    fresh->setAccessibleName(tr("New recurring invoice"));
    connect(fresh, &QPushButton::clicked, this, &RecurringSection::makeNew);
    return fresh;
}

QWidget* RecurringSection::buildList()
{
    auto* left = new QWidget(this);
    auto* fresh = newButton(tr("New"), left);
    fresh->setObjectName(QStringLiteral("newRecurring"));
    fresh->setIcon(Theme::icon(QStringLiteral("plus")));
    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(border, border, border, border);
    bar->addStretch();
    bar->addWidget(fresh);
    auto* column = new QVBoxLayout(left);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(bar);
    column->addWidget(m_table, 1);
    return left;
}

QWidget* RecurringSection::buildEmpty()
{
    auto* page = new QWidget(this);
    auto* sentence =
        new QLabel(tr("No recurring invoices yet. What you bill again and again can be made by itself."), page);
    sentence->setObjectName(QStringLiteral("emptyRecurring"));
    sentence->setAlignment(Qt::AlignCenter);
    sentence->setWordWrap(true);
    auto* fresh = newButton(tr("New Recurring Invoice"), page);
    fresh->setDefault(true);
    auto* column = new QVBoxLayout(page);
    column->addStretch();
    column->addWidget(sentence);
    column->addWidget(fresh, 0, Qt::AlignHCenter);
    column->addStretch();
    return page;
}

void RecurringSection::makeNew()
{
    if (!MakeRecurringSheet::isPossible(m_library)) {
        Q_EMIT told(tr("A recurring invoice is made of an invoice: write one for its client first."));
        return;
    }
    auto* sheet = new MakeRecurringSheet(m_library, 0, this);
    connect(sheet, &MakeRecurringSheet::made, this, [this](std::int64_t key) {
        Q_EMIT told(tr("The recurring invoice was made."));
        showTemplate(key);
        m_table->setFocus(Qt::OtherFocusReason);
    });
    sheet->begin();
}

void RecurringSection::choose()
{
    const QModelIndex current = m_table->currentIndex();
    if (!m_isRestoring && current.isValid()) {
        m_chosen = m_model->key(current.row());
        m_pane->setTemplate(m_chosen);
    }
}

/// After the rows were told anew: the same stays chosen; if it is gone, the one below takes its place.
void RecurringSection::restore()
{
    m_isRestoring = true;
    const int count = m_model->rowCount();
    m_pages->setCurrentIndex(count == 0 ? 1 : 0);
    const int row = m_model->rowOf(m_chosen).value_or(std::clamp(m_row, 0, std::max(count - 1, 0)));
    m_chosen = count == 0 ? 0 : m_model->key(row);
    m_table->setCurrentIndex(m_model->index(row, 0));
    m_isRestoring = false;
    m_pane->setTemplate(m_chosen);
}

void RecurringSection::showTemplate(std::int64_t key)
{
    if (!m_model->rowOf(key)) {
        m_model->reload(); // it was only just made
    }
    if (const std::optional<int> row = m_model->rowOf(key)) {
        m_table->setCurrentIndex(m_model->index(*row, 0));
        m_table->scrollTo(m_model->index(*row, 0));
    }
}

QList<QAction*> RecurringSection::documentActions() const
{
    return m_pane->documentActions();
}

void RecurringSection::flush()
{
    m_pane->flush();
}

QString RecurringSection::unsavedWork() const
{
    return m_pane->unsavedWork();
}

void RecurringSection::refreshDay()
{
    m_model->reload();
}

} // namespace Quillary
