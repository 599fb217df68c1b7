#include "QuillaryUI/Clients/ImportSheet.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Tabular/ClientImport.h"
#include "QuillaryUI/Clients/ImportRowsModel.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Lists.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTableView>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace Quillary {

namespace {

constexpr int widest = 1040;
constexpr int columnsWidth = 336;
constexpr int tableHeight = 420;
constexpr int precision = 30;                  ///< rows that a column's width is taken from
constexpr auto mostColumns = std::size_t{100}; ///< a list with more is no list of clients

QString fieldTitle(ClientField field)
{
    const std::array<QString, clientFieldCount> titles = {
        ImportSheet::tr("–"),           ImportSheet::tr("Client number"), ImportSheet::tr("Company"),
        ImportSheet::tr("Name"),        ImportSheet::tr("First name"),    ImportSheet::tr("Last name"),
        ImportSheet::tr("Kind"),        ImportSheet::tr("Email"),         ImportSheet::tr("Phone"),
        ImportSheet::tr("Website"),     ImportSheet::tr("Street"),        ImportSheet::tr("Below the street"),
        ImportSheet::tr("Postal code"), ImportSheet::tr("City"),          ImportSheet::tr("State"),
        ImportSheet::tr("Country"),     ImportSheet::tr("VAT ID"),        ImportSheet::tr("Tax number"),
        ImportSheet::tr("Currency"),    ImportSheet::tr("Language"),      ImportSheet::tr("Notes")};
    return titles.at(static_cast<std::size_t>(field));
}

/// Whether some column says who the clients are.
bool namesClients(const ImportColumns& columns)
{
    constexpr std::array naming = {
        ClientField::company, ClientField::name, ClientField::firstName, ClientField::lastName, ClientField::email};
    return std::ranges::any_of(naming, [&](ClientField field) { return !columns.columns(field).empty(); });
}

} // namespace

ImportSheet::ImportSheet(LibraryAccess& library, CSV csv, const QString& fileName, QWidget* host)
    : Sheet(tr("Import Clients from %1").arg(fileName), tr("Import"), host)
    , m_library(library)
    , m_csv(std::move(csv))
    , m_recognised(ImportColumns::recognised(m_csv.rows()))
    , m_columns(m_recognised)
    , m_rows(new ImportRowsModel(this))
    , m_summary(new QLabel(this))
{
    setWidest(widest);
    setExplanation(tr("What each column holds was told by its heading or its contents. Clients that are there already "
                      "are left out."));
    auto* table = new QTableView(this);
    table->setModel(m_rows);
    table->setMinimumHeight(tableHeight);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    Lists::dress(*table, QStringLiteral("importRows"), tr("Rows of the file"), ImportRowsModel::remarks);
    table->horizontalHeader()->setResizeContentsPrecision(precision);

    auto* middle = new QHBoxLayout;
    middle->setSpacing(16);
    middle->addWidget(buildColumns());
    middle->addWidget(table, 1);
    m_summary->setObjectName(QStringLiteral("importSummary"));
    body().insertLayout(3, middle, 1);
    body().insertWidget(4, m_summary);
    onAnswer([this] { return import(); });
    showColumns();
    preview();
}

void ImportSheet::begin()
{
    open(&answerButton());
}

QScrollArea* ImportSheet::buildColumns()
{
    auto* page = new QWidget(this);
    auto* rows = new QFormLayout(page);
    rows->setContentsMargins(0, 0, 8, 0);
    for (std::size_t column = 0; column < m_columns.size() && column < mostColumns; ++column) {
        auto* field = new QComboBox(page);
        field->setObjectName(QStringLiteral("importColumn%1").arg(column));
        field->setAccessibleName(text(m_columns.title(column)));
        for (std::size_t place = 0; place < clientFieldCount; ++place) {
            field->addItem(fieldTitle(ClientField(place)), text(rawValue(ClientField(place))));
        }
        connect(field, &QComboBox::activated, this, [this, column, field] {
            assign(column, field->currentData().toString());
        });
        m_fields.push_back(field);
        rows->addRow(text(m_columns.title(column)), field);
    }
    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setFixedWidth(columnsWidth);
    scroll->setWidget(page);
    return scroll;
}

/// Counted from what was recognised, so that the choices which the arrow keys pass on their way leave no trace.
void ImportSheet::assign(std::size_t column, const QString& field)
{
    auto assigned = m_assigned;
    std::erase_if(assigned, [column](const auto& one) { return one.first == column; });
    assigned.emplace_back(column, utf8(field));
    try {
        ImportColumns columns = m_recognised;
        for (const auto& [place, name] : assigned) {
            columns.assign(std::to_string(place + 1), name);
        }
        m_columns = std::move(columns);
    } catch (const UserError& error) {
        m_summary->setText(CoreText::sentence(error.message()));
        return;
    }
    m_assigned = std::move(assigned);
    showColumns();
    preview();
}

/// Assigning one column may set free another that was only guessed.
void ImportSheet::showColumns()
{
    for (std::size_t column = 0; column < m_fields.size(); ++column) {
        m_fields[column]->setCurrentIndex(int(m_columns.field(column)));
    }
}

void ImportSheet::preview()
{
    const auto refusal =
        m_library.attempt([this] { m_rows->show(ClientImport(m_csv.rows(), m_columns, &m_library.context())); });
    const int fresh = int(m_rows->count(ImportStatus::isNew));
    QString summary = refusal.value_or(tr("%1 new, %2 already there, %3 empty")
                                           .arg(fresh)
                                           .arg(m_rows->count(ImportStatus::duplicate))
                                           .arg(m_rows->count(ImportStatus::empty)));
    if (!namesClients(m_columns)) {
        summary = tr("Choose which column names the clients.");
    }
    m_summary->setText(summary);
    answerButton().setText(fresh == 0   ? tr("Import")
                           : fresh == 1 ? tr("Import 1 Client")
                                        : tr("Import %1 Clients").arg(fresh));
    answerButton().setEnabled(fresh > 0);
}

/// Compared anew: the library may have changed while the user looked at the rows.
std::optional<QString> ImportSheet::import()
{
    std::size_t count = 0;
    const auto refusal = m_library.attempt([&] {
        ClientImport rows(m_csv.rows(), m_columns, &m_library.context());
        count = rows.count(ImportStatus::isNew);
        rows.run(m_library.context(), m_library.business(), m_library.formats().calendar());
    });
    if (!refusal) {
        Q_EMIT imported(int(count));
    }
    return refusal;
}

} // namespace Quillary
