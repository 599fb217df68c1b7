#include "QuillaryUI/Documents/RemindersSheet.h"

#include "QuillaryUI/Documents/RemindersModel.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Paper/LivePage.h"
#include "QuillaryUI/Paper/PaperView.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace Quillary {

namespace {

constexpr int widest = 1120;
constexpr int leastHeight = 420;
constexpr int dayWidth = 100;
constexpr int amountWidth = 96;
constexpr int levelWidth = 144;
constexpr int gap = 16;

} // namespace

RemindersSheet::RemindersSheet(LibraryAccess& library, std::span<const std::int64_t> documents, QWidget* host)
    : Sheet(tr("Send Reminders"), {}, host)
    , m_library(library)
    , m_model(new RemindersModel(library, documents, this))
    , m_table(new QTableView(this))
    , m_email(new QCheckBox(tr("Prepare an email with each letter, to the client's own address"), this))
    , m_paper(new PaperView(library.press(), this))
    , m_page(new LivePage(library.press(), *m_paper))
{
    setWidest(widest);
    build();
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex& row) {
        showLetter(row.row());
    });
    onAnswer([this] {
        std::vector<PlannedReminder> planned = m_model->sendable();
        for (PlannedReminder& one : planned) {
            one.emailTo = m_email->isChecked() ? std::optional<std::string>("") : std::nullopt;
        }
        Q_EMIT wanted(std::move(planned));
        return std::nullopt;
    });
}

void RemindersSheet::build()
{
    m_table->setModel(m_model);
    Lists::dress(*m_table, QStringLiteral("reminders"), tr("Reminders"), RemindersModel::clientColumn);
    m_table->setColumnWidth(RemindersModel::documentColumn, amountWidth);
    m_table->setColumnWidth(RemindersModel::openColumn, amountWidth);
    m_table->setColumnWidth(RemindersModel::levelColumn, levelWidth);
    m_table->setColumnWidth(RemindersModel::feeColumn, amountWidth);
    m_table->setColumnWidth(RemindersModel::payByColumn, dayWidth);
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (m_model->refusal(row)) {
            m_table->setSpan(
                row, RemindersModel::levelColumn, 1, RemindersModel::columnTotal - RemindersModel::levelColumn);
        }
    }
    m_table->setMinimumHeight(leastHeight);
    m_paper->setAccessibleName(tr("The letter"));
    m_paper->setMinimumHeight(leastHeight);
    auto* row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(m_table, 3);
    row->addWidget(m_paper, 2);
    body().insertLayout(2, row, 1); // below the explanation
    m_email->setObjectName(QStringLiteral("remindersEmail"));
    body().insertWidget(3, m_email);
}

void RemindersSheet::begin()
{
    const std::size_t sendable = m_model->sendable().size();
    const std::size_t refused = std::size_t(m_model->rowCount()) - sendable;
    QString text =
        tr("The letters are saved as PDFs in your downloads and recorded with their fees. Nothing is sent by "
           "itself.");
    if (refused > 0) {
        text +=
            QLatin1Char(' ') + (refused == 1 ? tr("One of them can't be reminded of and is left out.")
                                             : tr("%1 of them can't be reminded of and are left out.").arg(refused));
    }
    setExplanation(text);
    answerButton().setText(sendable == 1 ? tr("Write 1 Letter") : tr("Write %1 Letters").arg(sendable));
    answerButton().setEnabled(sendable > 0);
    open(m_table);
    if (m_model->rowCount() > 0) {
        m_table->setCurrentIndex(m_model->index(0, 0));
    }
}

void RemindersSheet::showLetter(int row)
{
    const bool isThere = row >= 0 && row < m_model->rowCount();
    const std::optional<QString> refusal = isThere ? m_model->refusal(row) : std::nullopt;
    if (!isThere || refusal) {
        m_page->show({});
        m_paper->setNotice(refusal.value_or(QString()));
        return;
    }
    m_page->show(
        [library = &m_library, planned = m_model->planned(row)] { return ReminderWriting::letter(*library, planned); });
}

} // namespace Quillary
