#include "QuillaryUI/Clients/ContactsPanel.h"

#include "QuillaryCore/Assistant/Operations/ContactOperations.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Clients/ContactSheet.h"
#include "QuillaryUI/Clients/ContactsModel.h"
#include "QuillaryUI/Look/FlowLayout.h"
#include "QuillaryUI/Look/Lists.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillary {

namespace {

constexpr int mostShownRows = 5; ///< more are scrolled to

} // namespace

ContactsPanel::ContactsPanel(LibraryAccess& library, QWidget* host, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_host(host)
    , m_model(new ContactsModel(library, this))
    , m_table(new QTableView(this))
    , m_words(new QLabel(this))
    , m_edit(new QPushButton(tr("Edit…"), this))
    , m_first(new QPushButton(tr("Put First"), this))
    , m_remove(new QPushButton(tr("Remove"), this))
{
    build();
    connect(m_model, &ContactsModel::modelReset, this, &ContactsPanel::arrange);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &ContactsPanel::arrange);
    connect(m_table, &QTableView::activated, this, [this] { edit(chosen()); });
    connect(m_edit, &QPushButton::clicked, this, [this] { edit(chosen()); });
    connect(m_first, &QPushButton::clicked, this, &ContactsPanel::putFirst);
    connect(m_remove, &QPushButton::clicked, this, &ContactsPanel::remove);
    arrange();
}

void ContactsPanel::build()
{
    m_table->setModel(m_model);
    Lists::dress(*m_table, QStringLiteral("contacts"), tr("Contact persons"), ContactsModel::emailColumn);
    m_table->horizontalHeader()->setMinimumSectionSize(96);
    for (const int column : {ContactsModel::nameColumn, ContactsModel::roleColumn, ContactsModel::phoneColumn}) {
        m_table->horizontalHeader()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    }
    m_table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_words->setObjectName(QStringLiteral("contactsWords"));
    m_words->setWordWrap(true);
    m_words->setForegroundRole(QPalette::PlaceholderText);
    auto* add = new QPushButton(tr("Add…"), this);
    add->setObjectName(QStringLiteral("addContact"));
    add->setAccessibleName(tr("Add a contact person"));
    connect(add, &QPushButton::clicked, this, [this] { edit(0); });
    m_edit->setObjectName(QStringLiteral("editContact"));
    m_first->setObjectName(QStringLiteral("firstContact"));
    m_first->setToolTip(tr("Emails offer this person before the others."));
    m_remove->setObjectName(QStringLiteral("removeContact"));
    auto* buttons = new FlowLayout;
    buttons->setSpacing(8);
    for (QPushButton* button : {add, m_edit, m_first, m_remove}) {
        buttons->addWidget(button);
    }
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(m_table);
    column->addWidget(m_words);
    column->addLayout(buttons);
}

std::int64_t ContactsPanel::chosen() const
{
    const QModelIndex current = m_table->currentIndex();
    return current.isValid() ? m_model->key(current.row()) : 0;
}

void ContactsPanel::setClient(std::int64_t key)
{
    m_client = key;
    m_wanted = 0;
    m_model->setClient(key);
}

/// The table is as high as its rows, so that the page scrolls and not a part of it.
void ContactsPanel::arrange()
{
    const int rows = m_model->rowCount();
    const int shown = std::min(rows, mostShownRows);
    m_table->setVisible(rows > 0);
    m_table->setFixedHeight(m_table->horizontalHeader()->sizeHint().height() + 2 * m_table->frameWidth() +
                            (shown * m_table->verticalHeader()->defaultSectionSize()));
    m_words->setText(rows == 0 ? tr("Nobody is named. Emails go to the client's own address.")
                               : tr("Emails offer the client's own address first, then these in their order."));
    if (const auto row = m_model->rowOf(m_wanted)) {
        m_wanted = 0;
        m_table->setCurrentIndex(m_model->index(*row, 0));
    }
    const bool isChosen = chosen() != 0;
    m_edit->setEnabled(isChosen);
    m_remove->setEnabled(isChosen);
    m_first->setEnabled(isChosen && m_table->currentIndex().row() > 0);
}

void ContactsPanel::edit(std::int64_t contact)
{
    if (m_client == 0 || !m_library.isOpen()) {
        return;
    }
    auto* sheet = new ContactSheet(m_library, m_client, contact, m_host);
    connect(sheet, &ContactSheet::saved, this, [this](std::int64_t key) { m_wanted = key; });
    sheet->begin();
}

void ContactsPanel::remove()
{
    const auto refusal = m_library.perform(tr("Remove Contact Person"), [this] {
        if (const auto* contact = m_library.context().find(Ref<ContactPerson>(chosen()))) {
            ContactOperations::remove(m_library.environment(), *contact);
        }
    });
    if (refusal) {
        Q_EMIT failed(*refusal);
    }
}

void ContactsPanel::putFirst()
{
    m_wanted = chosen();
    const auto refusal = m_library.perform(tr("Put Contact Person First"), [this] {
        if (const auto* contact = m_library.context().find(Ref<ContactPerson>(m_wanted))) {
            ContactOperations::putFirst(m_library.environment(), *contact);
        }
    });
    if (refusal) {
        Q_EMIT failed(*refusal);
    }
}

} // namespace Quillary
