#include "QuillaryUI/Documents/DocumentsSection.h"

#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/DocumentFilterBar.h"
#include "QuillaryUI/Documents/DocumentListModel.h"
#include "QuillaryUI/Documents/DocumentPane.h"
#include "QuillaryUI/Documents/DocumentsRun.h"
#include "QuillaryUI/Documents/SavedViewsButton.h"
#include "QuillaryUI/Documents/SelectionPane.h"
#include "QuillaryUI/Documents/StatusText.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Look/YieldingColumns.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr int border = 12;
constexpr int listWidth = 720;
constexpr int numberWidth = 116; ///< for "INV-2026-001"
constexpr int dateWidth = 96;
constexpr int amountWidth = 100;
constexpr int statusWidth = 92;
constexpr int clientColumn = 1;
constexpr int leastClient = 184;

std::string kindWord(DocumentKind kind)
{
    return kind == DocumentKind::quote ? "quote" : "invoice";
}

int columnWidth(const DocumentListModel& model, int column)
{
    switch (model.column(column)) {
    case DocumentRows::Column::number:
        return numberWidth;
    case DocumentRows::Column::issueDate:
    case DocumentRows::Column::dueDate:
        return dateWidth;
    case DocumentRows::Column::total:
    case DocumentRows::Column::due:
        return amountWidth;
    case DocumentRows::Column::status:
        return statusWidth;
    case DocumentRows::Column::title:
    case DocumentRows::Column::client:
        break;
    }
    return numberWidth;
}

} // namespace

DocumentsSection::DocumentsSection(LibraryAccess& library, DocumentKind kind, QWidget* parent)
    : Section(parent)
    , m_library(library)
    , m_kind(kind)
    , m_model(new DocumentListModel(library, kind, this))
    , m_halves(Lists::halves(*this, QStringLiteral("listAndDocument")))
    , m_left(new QWidget(m_halves))
    , m_right(new QStackedWidget(m_halves))
    , m_bar(new DocumentFilterBar(library, kind, m_left))
    , m_views(new SavedViewsButton(
          library, kind, [this] { return view(); }, this))
    , m_list(new QStackedWidget(m_left))
    , m_table(new QTableView(m_list))
    , m_footer(new QLabel(m_left))
    , m_pane(new DocumentPane(library, m_right))
    , m_run(new DocumentsRun(library, m_left))
    , m_selection(new SelectionPane(library, kind, *m_run, this))
{
    setObjectName(QStringLiteral("documents%1").arg(int(kind)));
    build();
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &DocumentsSection::choose);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &DocumentsSection::showSelection);
    connect(m_table, &QTableView::activated, this, [this] { m_pane->beginEditing(); });
    connect(m_model, &DocumentListModel::arranged, this, &DocumentsSection::restore);
    connect(m_bar, &DocumentFilterBar::changed, this, &DocumentsSection::filter);
    connect(m_views, &SavedViewsButton::wanted, this, &DocumentsSection::setView);
    connect(m_views, &SavedViewsButton::failed, this, &DocumentsSection::failed);
    connect(m_run, &DocumentsRun::told, this, &DocumentsSection::told);
    connect(m_pane, &DocumentPane::told, this, &DocumentsSection::told);
    connect(m_pane, &DocumentPane::failed, this, &DocumentsSection::failed);
    connect(m_pane, &DocumentPane::editingChanged, this, [this](bool isEditing) {
        m_left->setVisible(!isEditing);
        if (!isEditing) {
            m_table->setFocus(Qt::OtherFocusReason);
        }
    });
    connect(m_right, &QStackedWidget::currentChanged, this, &DocumentsSection::offerKeys);
    connect(m_pane, &DocumentPane::wantedDocument, this, &DocumentsSection::wantedDocument);
    connect(m_pane, &DocumentPane::wantedClient, this, &DocumentsSection::wantedClient);
    connect(m_pane, &DocumentPane::wantedSection, this, &DocumentsSection::wantedSection);
    auto* remove = new QShortcut(QKeySequence::Delete, m_table);
    remove->setContext(Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, &DocumentsSection::removeChosen);
    offerKeys();
    restore();
}

void DocumentsSection::build()
{
    m_table->setModel(m_model);
    m_table->viewport()->installEventFilter(this);
    Lists::dress(*m_table, QStringLiteral("documentList"), StatusText::kinds(m_kind), clientColumn);
    m_table->setSelectionMode(QTableView::ExtendedSelection);
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(2, Qt::DescendingOrder);
    m_table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (int column = 0; column < m_model->columnCount(); ++column) {
        m_table->setColumnWidth(column, columnWidth(*m_model, column));
    }

    std::vector<int> yielding;
    for (const DocumentRows::Column column :
         {DocumentRows::Column::dueDate, DocumentRows::Column::due, DocumentRows::Column::issueDate}) {
        if (const std::optional<int> place = m_model->placeOf(column)) {
            yielding.push_back(*place);
        }
    }
    new YieldingColumns(*m_table, clientColumn, leastClient, yielding);

    m_list->addWidget(m_table);
    m_list->addWidget(buildEmpty());
    m_list->addWidget(buildNothingFits());
    m_bar->addControl(m_views);
    if (m_kind != DocumentKind::creditNote) {
        auto* fresh = new QPushButton(Theme::icon(QStringLiteral("plus")), tr("New"), m_bar);
        fresh->setObjectName(QStringLiteral("newDocument"));
        fresh->setAccessibleName(StatusText::makeNew(m_kind));
        connect(fresh, &QPushButton::clicked, this, &DocumentsSection::makeNew);
        m_bar->addControl(fresh);
    }
    m_footer->setObjectName(QStringLiteral("listFooter"));
    m_footer->setContentsMargins(border, border / 2, border, border / 2);
    auto* column = new QVBoxLayout(m_left);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_bar);
    column->addWidget(m_list, 1);
    column->addWidget(m_run);
    column->addWidget(m_footer);
    m_right->addWidget(m_pane);
    m_right->addWidget(m_selection);

    Lists::divide(*m_halves, listWidth, listWidth);
}

bool DocumentsSection::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_table->viewport() && event->type() == QEvent::Paint && m_model->rowCount() > 0) {
        watched->removeEventFilter(this);
        m_model->didShow();
    }
    return Section::eventFilter(watched, event);
}

QWidget* DocumentsSection::buildEmpty()
{
    auto* page = new QWidget(m_list);
    auto* sentence = new QLabel(page);
    sentence->setObjectName(QStringLiteral("emptyList"));
    sentence->setWordWrap(true);
    sentence->setAlignment(Qt::AlignCenter);
    auto* column = new QVBoxLayout(page);
    column->addStretch();
    column->addWidget(sentence);
    if (m_kind == DocumentKind::creditNote) {
        sentence->setText(tr("No credit notes. One is made from an invoice, under More ▸ Make Credit Note."));
    } else {
        sentence->setText(m_kind == DocumentKind::quote
                              ? tr("No quotes yet. An accepted quote becomes an invoice with one click.")
                              : tr("No invoices yet. The first one takes about two minutes."));
        auto* fresh = new QPushButton(StatusText::makeNew(m_kind), page);
        fresh->setDefault(true);
        connect(fresh, &QPushButton::clicked, this, &DocumentsSection::makeNew);
        column->addWidget(fresh, 0, Qt::AlignHCenter);
    }
    column->addStretch();
    return page;
}

QWidget* DocumentsSection::buildNothingFits()
{
    auto* page = new QWidget(m_list);
    auto* sentence = new QLabel(tr("Nothing fits these filters."), page);
    sentence->setAlignment(Qt::AlignCenter);
    auto* clear = new QPushButton(tr("Show All"), page);
    clear->setObjectName(QStringLiteral("showAll"));
    connect(clear, &QPushButton::clicked, this, [this] { m_bar->setView({}); });
    auto* column = new QVBoxLayout(page);
    column->addStretch();
    column->addWidget(sentence);
    column->addWidget(clear, 0, Qt::AlignHCenter);
    column->addStretch();
    return page;
}

void DocumentsSection::filter()
{
    if (m_library.isOpen()) {
        m_model->setFilter(m_bar->view().filter(m_library.today(), m_library.formats().calendar()));
    }
}

DocumentView DocumentsSection::view() const
{
    DocumentView view = m_bar->view();
    view.sortColumn = m_model->sortColumn();
    view.order = m_model->order();
    return view;
}

void DocumentsSection::setView(const DocumentView& view)
{
    if (const std::optional<int> column = m_model->placeOf(view.sortColumn)) {
        m_table->sortByColumn(*column,
                              view.order == DocumentRows::Order::ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    }
    m_bar->setView(view);
}

void DocumentsSection::setStatus(DisplayStatus status, const std::string& currencyCode)
{
    m_bar->setView({.status = status, .currencyCode = currencyCode});
}

void DocumentsSection::setDueWithin(int days, const std::string& currencyCode)
{
    m_bar->setView({.dueWithinDays = days, .currencyCode = currencyCode});
}

void DocumentsSection::find()
{
    m_bar->find();
}

void DocumentsSection::flush()
{
    m_pane->flush();
}

QString DocumentsSection::unsavedWork() const
{
    return m_pane->unsavedWork();
}

void DocumentsSection::refreshDay()
{
    m_model->refreshDay();
    filter(); // "this month" has moved on
}

void DocumentsSection::choose()
{
    const QModelIndex current = m_table->currentIndex();
    if (!m_isRestoring && current.isValid()) {
        m_chosen = m_model->key(current.row());
        m_pane->setDocument(m_chosen);
    }
}

/// After the rows were told anew: the same document stays chosen; if it is gone, the first takes its place. While there
/// are but the first rows nothing is known to be gone.
void DocumentsSection::restore()
{
    const bool isWhole = m_model->rows().isWhole();
    m_list->setCurrentIndex(m_model->rows().size() == 0 ? 1 : m_model->rowCount() == 0 && isWhole ? 2 : 0);
    const std::optional<int> row = m_chosen != 0 ? m_model->rowOf(m_chosen) : std::nullopt;
    m_isRestoring = true;
    if (row && m_table->currentIndex().row() != *row) {
        m_table->setCurrentIndex(m_model->index(*row, 0));
    }
    m_isRestoring = false;
    const bool isGone = m_chosen == 0 || (isWhole && !m_model->rows().place(m_chosen));
    if (!row && isGone && m_model->rowCount() > 0) {
        m_table->setCurrentIndex(m_model->index(0, 0));
    }
    if (m_model->rows().size() == 0) {
        m_chosen = 0;
        m_pane->setDocument(0);
    }
    m_sumOfAll = m_model->sum();
    showSelection();
    m_views->refresh();
}

std::vector<int> DocumentsSection::selectedRows() const
{
    std::vector<int> rows;
    for (const QItemSelectionRange& range : m_table->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.push_back(row);
        }
    }
    std::ranges::sort(rows); // in the order of the list, whichever was clicked first
    return rows;
}

void DocumentsSection::showSelection()
{
    const std::vector<int> rows = selectedRows();
    if (rows.size() < 2) {
        m_right->setCurrentWidget(m_pane);
        showFooter(m_sumOfAll, false);
        return;
    }
    SelectionPane::Keys keys;
    keys.reserve(rows.size());
    for (const int row : rows) {
        keys.push_back(m_model->key(row));
    }
    const DocumentRows::Sum sum = m_model->sum(rows);
    m_selection->setDocuments(std::move(keys), sum, m_model->summary(rows));
    m_right->setCurrentWidget(m_selection);
    showFooter(sum, true);
}

void DocumentsSection::showFooter(const DocumentRows::Sum& sum, bool isOfSelection)
{
    if (!isOfSelection && !m_model->rows().isWhole()) {
        m_footer->clear(); // a moment later the figures are those of all
        return;
    }
    QString footer = isOfSelection    ? tr("%1 selected").arg(sum.count)
                     : sum.count == 1 ? tr("1 document")
                                      : tr("%1 documents").arg(sum.count);
    if (sum.count > 0) {
        footer += QStringLiteral("  ·  ") + m_library.formats().sums(sum.totals);
    }
    m_footer->setText(footer);
}

QList<QAction*> DocumentsSection::documentActions() const
{
    return m_right->currentWidget() == m_selection ? m_selection->actions() : m_pane->documentActions();
}

/// What can be done to what is chosen has its keys in the list, too.
void DocumentsSection::offerKeys()
{
    for (QAction* action : actions()) {
        removeAction(action);
    }
    addActions(DocumentsSection::documentActions()); // the first time while it is made
}

void DocumentsSection::removeChosen() const
{
    for (QAction* action : documentActions()) {
        const bool isRemoval =
            action->objectName() == QLatin1String("deleteDraft") || action->objectName() == QLatin1String("deleteAll");
        if (isRemoval && action->isVisible()) {
            action->trigger();
        }
    }
}

void DocumentsSection::showDocument(std::int64_t key)
{
    const bool isKnown = m_model->rows().isWhole() || m_model->rows().place(key);
    if (isKnown && !m_model->rowOf(key)) {
        m_bar->setView({}); // which hides it
    }
    m_chosen = key;
    m_pane->setDocument(key);
    if (const std::optional<int> row = m_model->rowOf(key)) {
        m_table->setCurrentIndex(m_model->index(*row, 0));
        m_table->scrollTo(m_model->index(*row, 0));
    }
}

void DocumentsSection::makeNew()
{
    std::int64_t made = 0;
    const auto refusal = m_library.perform(StatusText::makeNew(m_kind), [&] {
        DocumentSession session = DocumentSession::create(m_library.environment(), kindWord(m_kind));
        const JSON nothing = JSON::object({});
        session.apply(Arguments(nothing));
        made = session.document().ref.key();
    });
    if (refusal) {
        Q_EMIT failed(*refusal);
        return;
    }
    showDocument(made);
    m_pane->beginEditing();
}

} // namespace Quillary
