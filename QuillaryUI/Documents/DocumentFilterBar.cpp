#include "QuillaryUI/Documents/DocumentFilterBar.h"

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/DocumentFilterPopup.h"
#include "QuillaryUI/Documents/StatusText.h"
#include "QuillaryUI/Look/FlowLayout.h"

#include <QComboBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr int border = 12;
constexpr int gap = 8;
constexpr int leastSearch = 128;
constexpr int widestChip = 220;

std::vector<DisplayStatus> statusesOf(DocumentKind kind)
{
    using enum DisplayStatus;
    switch (kind) {
    case DocumentKind::quote:
        return {draft, sent, accepted, declined, expired};
    case DocumentKind::creditNote:
        return {draft, sent, paid};
    case DocumentKind::invoice:
    case DocumentKind::recurring:
        break;
    }
    return {draft, sent, partlyPaid, overdue, paid};
}

QString word(DocumentView::Period period)
{
    switch (period) {
    case DocumentView::Period::anyTime:
        return DocumentFilterBar::tr("Any time");
    case DocumentView::Period::thisMonth:
        return DocumentFilterBar::tr("This month");
    case DocumentView::Period::threeMonths:
        return DocumentFilterBar::tr("Last three months");
    case DocumentView::Period::twelveMonths:
        return DocumentFilterBar::tr("Last twelve months");
    }
    return {};
}

} // namespace

DocumentFilterBar::DocumentFilterBar(LibraryAccess& library, DocumentKind kind, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_kind(kind)
    , m_search(new QLineEdit(this))
    , m_statuses(new QComboBox(this))
    , m_periods(new QComboBox(this))
    , m_more(new QPushButton(tr("Filter"), this))
    , m_chips(new QWidget(this))
    , m_lines(new QBoxLayout(QBoxLayout::LeftToRight))
    , m_first(new QHBoxLayout)
    , m_rest(new QHBoxLayout)
{
    build();
    connect(m_search, &QLineEdit::textChanged, this, &DocumentFilterBar::take);
    connect(m_statuses, &QComboBox::activated, this, &DocumentFilterBar::take);
    connect(m_periods, &QComboBox::activated, this, &DocumentFilterBar::take);
    connect(m_more, &QPushButton::clicked, this, &DocumentFilterBar::openPopup);
    connect(&library, &LibraryAccess::opened, this, &DocumentFilterBar::forgetGone);
    connect(&library, &LibraryAccess::changed, this, [this](const ChangeSet& changes) {
        if (!changes.of<Client>().isEmpty() || !changes.of<Project>().isEmpty()) {
            forgetGone();
        }
    });
}

void DocumentFilterBar::build()
{
    m_search->setObjectName(QStringLiteral("listSearch"));
    m_search->setPlaceholderText(tr("Number, client, title or tag"));
    m_search->setAccessibleName(tr("Find in this list"));
    m_search->setClearButtonEnabled(true);
    m_search->setMinimumWidth(leastSearch);
    m_statuses->setObjectName(QStringLiteral("listStatus"));
    m_statuses->setAccessibleName(tr("Status"));
    m_statuses->addItem(tr("All"));
    for (const DisplayStatus status : statusesOf(m_kind)) {
        m_statuses->addItem(StatusText::word(status, m_kind), int(status));
    }
    m_periods->setObjectName(QStringLiteral("listPeriod"));
    m_periods->setAccessibleName(tr("Period"));
    m_periods->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_periods->setMinimumContentsLength(10);
    for (const DocumentView::Period period : DocumentView::allPeriods) {
        m_periods->addItem(word(period), int(period));
    }
    m_more->setObjectName(QStringLiteral("moreFilters"));
    m_more->setAccessibleName(tr("More filters"));
    auto* chips = new FlowLayout(m_chips);
    chips->setContentsMargins(0, 0, 0, 0);
    chips->setSpacing(gap / 2);
    m_chips->setObjectName(QStringLiteral("filterChips"));
    m_chips->hide();

    m_first->setSpacing(gap);
    m_first->addWidget(m_search, 1);
    m_rest->setSpacing(gap);
    m_lines->setSpacing(gap);
    m_lines->addLayout(m_first, 1);
    m_lines->addLayout(m_rest);
    for (QWidget* control : {static_cast<QWidget*>(m_statuses), static_cast<QWidget*>(m_periods)}) {
        addControl(control);
    }
    addControl(m_more);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(border, border, border, border);
    column->setSpacing(gap);
    column->addLayout(m_lines);
    column->addWidget(m_chips);
}

/// How wide the controls are that stand behind the search field, from one on.
int DocumentFilterBar::controlsWidth(qsizetype from) const
{
    int width = 2 * border - gap;
    for (const QWidget* control : m_controls.sliced(from)) {
        width += control->sizeHint().width() + gap;
    }
    return width;
}

QSize DocumentFilterBar::minimumSizeHint() const
{
    return {controlsWidth(1), QWidget::minimumSizeHint().height()};
}

/// Where they don't all fit beside each other, the search field and the first control get a line of their own.
void DocumentFilterBar::resizeEvent(QResizeEvent* event)
{
    const bool isNarrow = width() < controlsWidth(0) + leastSearch + gap;
    const auto direction = isNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight;
    if (m_lines->direction() != direction) {
        m_lines->setDirection(direction);
        if (isNarrow) {
            m_first->addWidget(m_controls.front());
            m_rest->addStretch();
        } else {
            m_rest->insertWidget(0, m_controls.front());
            delete m_rest->takeAt(m_rest->count() - 1);
        }
    }
    QWidget::resizeEvent(event);
}

/// Made when somebody wants it: the window would come later for it.
void DocumentFilterBar::openPopup()
{
    if (m_popup == nullptr) {
        m_popup = new DocumentFilterPopup(m_library, m_kind, this);
        connect(m_popup, &DocumentFilterPopup::picked, this, &DocumentFilterBar::setView);
    }
    m_popup->open(m_view, *m_more);
}

void DocumentFilterBar::addControl(QWidget* control)
{
    m_rest->addWidget(control);
    m_controls.push_back(control);
}

void DocumentFilterBar::find()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void DocumentFilterBar::setView(DocumentView view)
{
    m_view = std::move(view);
    show();
    Q_EMIT changed();
}

void DocumentFilterBar::show()
{
    const QSignalBlocker quiet(m_search);
    if (utf8(m_search->text()) != m_view.text) { // the cursor stays where one types
        m_search->setText(text(m_view.text));
    }
    const int status = m_view.status ? m_statuses->findData(int(*m_view.status)) : 0;
    m_statuses->setCurrentIndex(std::max(0, status));
    m_periods->setCurrentIndex(std::max(0, m_periods->findData(int(m_view.period))));
    showChips();
}

void DocumentFilterBar::take()
{
    m_view.text = utf8(m_search->text());
    const QVariant status = m_statuses->currentData();
    m_view.status = status.isValid() ? std::optional(DisplayStatus(status.toInt())) : std::nullopt;
    m_view.period = DocumentView::Period(m_periods->currentData().toInt());
    Q_EMIT changed();
}

void DocumentFilterBar::showChips()
{
    for (QPushButton* chip : m_chips->findChildren<QPushButton*>()) {
        m_chips->layout()->removeWidget(chip);
        chip->setObjectName({}); // it is on its way out
        chip->hide();
        chip->deleteLater(); // one of them may have been pressed just now
    }
    if (m_view.client) {
        addChip(tr("Client: %1").arg(clientName(*m_view.client)), [](DocumentView& view) { view.client.reset(); });
    }
    if (m_view.project) {
        addChip(*m_view.project == 0 ? tr("No project") : tr("Project: %1").arg(projectName(*m_view.project)),
                [](DocumentView& view) { view.project.reset(); });
    }
    if (!m_view.tag.empty()) {
        addChip(tr("Tag: %1").arg(text(m_view.tag)), [](DocumentView& view) { view.tag.clear(); });
    }
    if (m_view.dueWithinDays) {
        addChip(dueWithinText(*m_view.dueWithinDays, m_kind), [](DocumentView& view) { view.dueWithinDays.reset(); });
    }
    if (!m_view.currencyCode.empty()) {
        addChip(text(m_view.currencyCode), [](DocumentView& view) { view.currencyCode.clear(); });
    }
    m_chips->setVisible(m_chips->layout()->count() > 0);
    if (m_chips->layout()->count() > 0) {
        auto* clear = new QPushButton(tr("Clear"), m_chips);
        clear->setObjectName(QStringLiteral("clearFilters"));
        clear->setAccessibleName(tr("Take all filters away"));
        clear->setFlat(true);
        clear->setStyleSheet(QStringLiteral("QPushButton { padding: 3px 10px; border: 1px solid transparent; }"));
        connect(clear, &QPushButton::clicked, this, [this] {
            setView({.sortColumn = m_view.sortColumn, .order = m_view.order});
        });
        m_chips->layout()->addWidget(clear);
    }
    m_chips->updateGeometry();
}

void DocumentFilterBar::addChip(const QString& label, const std::function<void(DocumentView&)>& remove)
{
    auto* chip = new QPushButton(m_chips);
    chip->setObjectName(QStringLiteral("filterChip"));
    chip->setText(QFontMetrics(chip->font()).elidedText(label, Qt::ElideMiddle, widestChip) + QStringLiteral("  ×"));
    chip->setAccessibleName(tr("Take the filter away: %1").arg(label));
    chip->setToolTip(label);
    chip->setStyleSheet(QStringLiteral("QPushButton { padding: 3px 10px; border-radius: 12px; }"));
    connect(chip, &QPushButton::clicked, this, [this, remove] {
        DocumentView view = m_view;
        remove(view);
        setView(std::move(view));
    });
    m_chips->layout()->addWidget(chip);
}

/// A filter by what isn't there any more would show nothing, and nobody could say why.
void DocumentFilterBar::forgetGone()
{
    if (!m_library.isOpen()) {
        return;
    }
    Context& context = m_library.context();
    DocumentView view = m_view;
    if (view.client && context.find(Ref<Client>(*view.client)) == nullptr) {
        view.client.reset();
    }
    if (view.project && *view.project != 0 && context.find(Ref<Project>(*view.project)) == nullptr) {
        view.project.reset();
    }
    if (view != m_view) {
        setView(std::move(view));
    } else {
        showChips(); // the names may have changed
    }
}

QString DocumentFilterBar::clientName(DocumentRows::Key key) const
{
    const Client* client = m_library.isOpen() ? m_library.context().find(Ref<Client>(key)) : nullptr;
    return client == nullptr ? QString() : text(displayName(*client));
}

QString DocumentFilterBar::projectName(DocumentRows::Key key) const
{
    const Project* project = m_library.isOpen() ? m_library.context().find(Ref<Project>(key)) : nullptr;
    return project == nullptr ? QString() : text(project->name);
}

} // namespace Quillary
