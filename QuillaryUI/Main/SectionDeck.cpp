#include "QuillaryUI/Main/SectionDeck.h"

#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Look/Theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QListWidget>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace Quillary {

namespace {

constexpr int sidebarWidth = 200;
constexpr int entryHeight = 36;
constexpr int iconSize = 20;

} // namespace

SectionDeck::SectionDeck(QWidget* parent)
    : QWidget(parent)
    , m_list(new QListWidget(this))
    , m_pages(new QStackedWidget(this))
    , m_head(new QVBoxLayout)
    , m_tail(new QVBoxLayout)
    , m_foot(new QVBoxLayout)
{
    m_list->setObjectName(QStringLiteral("sidebar"));
    m_list->setAccessibleName(tr("Sections"));
    m_list->setFixedWidth(sidebarWidth);
    m_list->setIconSize({iconSize, iconSize});
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* left = new QVBoxLayout;
    left->setSpacing(0);
    left->addWidget(m_list, 1);
    left->addLayout(m_foot);
    auto* right = new QVBoxLayout;
    right->setSpacing(0);
    right->addLayout(m_head);
    right->addWidget(m_pages, 1);
    right->addLayout(m_tail);
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addLayout(left);
    columns->addLayout(right, 1);
    connect(m_list, &QListWidget::currentRowChanged, this, &SectionDeck::choose);
}

void SectionDeck::add(const QString& name, const QString& title, const QString& icon, Maker make)
{
    m_entries.push_back({.name = name, .make = std::move(make)});
    auto* item = new QListWidgetItem(Theme::icon(icon), title, m_list);
    item->setSizeHint({sidebarWidth - iconSize, entryHeight});
}

void SectionDeck::show(const QString& name)
{
    show(int(std::ranges::find(m_entries, name, &Entry::name) - m_entries.begin()));
}

void SectionDeck::show(int place)
{
    if (place < 0 || place >= count()) {
        return;
    }
    Section* section = ensure(m_entries[static_cast<std::size_t>(place)]);
    const bool isFirstVisit = section->focusWidget() == nullptr;
    m_list->setCurrentRow(place);
    const bool isElsewhere = !section->isAncestorOf(QApplication::focusWidget());
    auto* list = section->findChild<QTableView*>(); // which stands before all else
    if (list != nullptr && list->isVisible() && (isFirstVisit || isElsewhere)) {
        list->setFocus(Qt::OtherFocusReason); // later visits find the keyboard where they left it
    }
}

void SectionDeck::choose(int place)
{
    if (place < 0) {
        return;
    }
    Q_EMIT leaving();
    m_pages->setCurrentWidget(ensure(m_entries[static_cast<std::size_t>(place)]));
}

Section* SectionDeck::ensure(Entry& entry)
{
    if (entry.section == nullptr) {
        entry.section = entry.make(m_pages);
        m_pages->addWidget(entry.section);
        Q_EMIT wasMade(entry.section);
    }
    return entry.section;
}

Section* SectionDeck::section(const QString& name)
{
    const auto found = std::ranges::find(m_entries, name, &Entry::name);
    return found == m_entries.end() ? nullptr : ensure(*found);
}

Section* SectionDeck::current()
{
    return ensure(m_entries[static_cast<std::size_t>(std::max(m_list->currentRow(), 0))]);
}

bool SectionDeck::isEmpty() const
{
    return m_list->currentRow() < 0;
}

QStringList SectionDeck::names() const
{
    QStringList names;
    for (const Entry& entry : m_entries) {
        names.push_back(entry.name);
    }
    return names;
}

QString SectionDeck::title(int place) const
{
    return m_list->item(place)->text();
}

std::vector<Section*> SectionDeck::made() const
{
    std::vector<Section*> made;
    for (const Entry& entry : m_entries) {
        if (entry.section != nullptr) {
            made.push_back(entry.section);
        }
    }
    return made;
}

} // namespace Quillary
