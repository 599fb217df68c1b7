#include "QuillaryUI/Clients/ClientsSection.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Clients/ClientDetails.h"
#include "QuillaryUI/Clients/ClientListModel.h"
#include "QuillaryUI/Clients/ImportSheet.h"
#include "QuillaryUI/Documents/ClientSheet.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Look/Theme.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

#include <filesystem>

namespace Quillary {

namespace {

constexpr int border = 12;
constexpr int listWidth = 560;
constexpr int openColumn = 3;
/// Some hundred thousand clients; keeps a wrong file from filling the memory.
constexpr auto largestFile = std::size_t{100'000'000};

QString askForFile(QWidget* parent)
{
    return QFileDialog::getOpenFileName(parent,
                                        ClientsSection::tr("Import Clients"),
                                        {},
                                        ClientsSection::tr("Client lists (*.csv *.tsv *.txt);;All files (*)"));
}

} // namespace

ClientsSection::ClientsSection(LibraryAccess& library, QWidget* parent)
    : Section(parent)
    , m_library(library)
    , m_model(new ClientListModel(library, this))
    , m_table(new QTableView(this))
    , m_search(new QLineEdit(this))
    , m_list(new QStackedWidget(this))
    , m_footer(new QLabel(this))
    , m_details(new ClientDetails(library, this))
    , m_chooseFile(askForFile)
{
    setObjectName(QStringLiteral("clients"));
    build();
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &ClientsSection::choose);
    connect(m_table, &QTableView::activated, m_details, &ClientDetails::begin);
    connect(m_model, &ClientListModel::arranged, this, &ClientsSection::restore);
    connect(m_details, &ClientDetails::wantedDocument, this, &ClientsSection::wantedDocument);
    connect(m_details, &ClientDetails::failed, this, &ClientsSection::failed);
    restore();
}

void ClientsSection::build()
{
    m_table->setModel(m_model);
    Lists::dress(*m_table, QStringLiteral("clientList"), tr("Clients"), 0);
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(0, Qt::AscendingOrder);
    m_table->horizontalHeader()->resizeSection(openColumn, listWidth / 4);

    m_list->addWidget(m_table);
    m_list->addWidget(buildEmpty());
    m_footer->setObjectName(QStringLiteral("listFooter"));
    m_footer->setContentsMargins(border, border / 2, border, border / 2);
    auto* left = new QWidget(this);
    auto* column = new QVBoxLayout(left);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(buildBar());
    column->addWidget(m_list, 1);
    column->addWidget(m_footer);

    Lists::beside(*this, QStringLiteral("listAndClient"), left, listWidth, m_details, listWidth + (listWidth / 4));
}

QWidget* ClientsSection::buildBar()
{
    auto* bar = new QWidget(this);
    m_search->setObjectName(QStringLiteral("listSearch"));
    m_search->setPlaceholderText(tr("Name, number, city or email"));
    m_search->setAccessibleName(tr("Find in this list"));
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::textChanged, m_model, &ClientListModel::setFilter);
    auto* import = new QPushButton(tr("Import…"), bar);
    import->setObjectName(QStringLiteral("importClients"));
    import->setAccessibleName(tr("Import clients from a file"));
    connect(import, &QPushButton::clicked, this, &ClientsSection::importFile);
    auto* fresh = new QPushButton(Theme::icon(QStringLiteral("plus")), tr("New"), bar);
    fresh->setObjectName(QStringLiteral("newClient"));
    fresh->setAccessibleName(tr("New client"));
    connect(fresh, &QPushButton::clicked, this, &ClientsSection::makeNew);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(border, border, border, border);
    row->addWidget(m_search, 1);
    row->addWidget(import);
    row->addWidget(fresh);
    return bar;
}

QWidget* ClientsSection::buildEmpty()
{
    auto* page = new QWidget(this);
    auto* sentence = new QLabel(
        tr("No clients yet. Add one, or bring over the list that another program or a spreadsheet has saved."), page);
    sentence->setObjectName(QStringLiteral("emptyList"));
    sentence->setWordWrap(true);
    sentence->setAlignment(Qt::AlignCenter);
    auto* fresh = new QPushButton(tr("New Client"), page);
    fresh->setDefault(true);
    connect(fresh, &QPushButton::clicked, this, &ClientsSection::makeNew);
    auto* import = new QPushButton(tr("Import…"), page);
    connect(import, &QPushButton::clicked, this, &ClientsSection::importFile);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(2 * border, border, 2 * border, border);
    column->addStretch();
    column->addWidget(sentence);
    column->addWidget(fresh, 0, Qt::AlignHCenter);
    column->addWidget(import, 0, Qt::AlignHCenter);
    column->addStretch();
    return page;
}

void ClientsSection::choose()
{
    const QModelIndex current = m_table->currentIndex();
    if (!m_isRestoring && current.isValid()) {
        m_chosen = m_model->key(current.row());
        restore();
    }
}

/// After the rows were told anew: the same client stays chosen; if they are gone, the first takes their place.
void ClientsSection::restore()
{
    const ClientList& clients = m_model->clients();
    m_list->setCurrentIndex(clients.size() == 0 ? 1 : 0);
    m_footer->setText(m_model->rowCount() == 1 ? tr("1 client") : tr("%1 clients").arg(m_model->rowCount()));
    if (!clients.place(m_chosen)) {
        m_chosen = m_model->rowCount() > 0 ? m_model->key(0) : 0;
    }
    const std::optional<int> row = m_chosen != 0 ? m_model->rowOf(m_chosen) : std::nullopt;
    m_isRestoring = true;
    if (row && m_table->currentIndex().row() != *row) {
        m_table->setCurrentIndex(m_model->index(*row, 0));
    }
    m_isRestoring = false;
    m_details->setVisible(clients.size() > 0); // else there is nobody to tell of
    m_details->setClient(m_chosen);
    if (const std::optional<std::uint32_t> place = clients.place(m_chosen)) {
        m_details->setBalance(m_library.formats().sums(clients.row(*place).open));
    }
}

void ClientsSection::showClient(std::int64_t key)
{
    if (!m_model->rowOf(key)) {
        m_search->clear();
    }
    m_chosen = key;
    restore();
    if (const std::optional<int> row = m_model->rowOf(m_chosen)) {
        m_table->scrollTo(m_model->index(*row, 0));
    }
}

void ClientsSection::makeNew()
{
    auto* sheet = new ClientSheet(m_library, {}, this);
    connect(sheet, &ClientSheet::made, this, [this](const QString& id) {
        const auto uuid = Lookup::idIn(utf8(id));
        const Client* client = uuid && m_library.isOpen() ? m_library.context().find<Client>(*uuid) : nullptr;
        if (client != nullptr) {
            m_chosen = client->ref.key(); // its row comes with the notification
            m_search->clear();
        }
    });
    sheet->begin();
}

void ClientsSection::find()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void ClientsSection::flush()
{
    m_details->flush();
}

void ClientsSection::refreshDay()
{
    m_details->refreshDay();
}

void ClientsSection::importFile()
{
    const QString file = m_chooseFile(this);
    if (file.isEmpty()) {
        return;
    }
    try {
        CSV csv(readFile(std::filesystem::path(utf8(file)), largestFile));
        auto* sheet = new ImportSheet(m_library, std::move(csv), QFileInfo(file).fileName(), this);
        connect(sheet, &ImportSheet::imported, this, [this](int count) {
            Q_EMIT told(count == 1 ? tr("1 client was imported.") : tr("%1 clients were imported.").arg(count));
        });
        sheet->begin();
    } catch (const UserError& error) {
        Q_EMIT failed(CoreText::sentence(error.message()));
    }
}

} // namespace Quillary
