#include "QuillaryUI/Documents/LinesPanel.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/DraftFields.h"
#include "QuillaryUI/Documents/LinesModel.h"
#include "QuillaryUI/Documents/LinesTable.h"
#include "QuillaryUI/Look/Lettering.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace Quillary {

LinesPanel::LinesPanel(DraftDesk& desk, DraftFields& fields, QWidget* parent)
    : QWidget(parent)
    , m_desk(desk)
    , m_fields(fields)
    , m_lines(new LinesModel(desk, this))
    , m_table(new LinesTable(desk.library(), *m_lines, this))
    , m_copyLast(new QPushButton(tr("Copy the lines of the last invoice"), this))
    , m_totals(new QLabel(this))
{
    build();
    connect(m_copyLast, &QPushButton::clicked, this, &LinesPanel::copyLast);
    connect(m_lines, &LinesModel::refused, this, [this](const QString& sentence) { m_fields.tell("lines", sentence); });
}

void LinesPanel::build()
{
    auto* heading = new QLabel(tr("Lines"), this);
    Lettering::set(*heading, 1.0);
    auto* error = new QLabel(this);
    m_fields.add("lines", m_table, error);
    m_copyLast->setObjectName(QStringLiteral("copyLastInvoice"));
    m_totals->setObjectName(QStringLiteral("totals"));
    m_totals->setAlignment(Qt::AlignRight);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(12);
    column->addWidget(heading);
    column->addWidget(m_table);
    column->addWidget(error);
    column->addWidget(m_copyLast, 0, Qt::AlignLeft);
    column->addWidget(m_totals);
}

void LinesPanel::copyLast()
{
    const JSON wish = JSON::object({{"copy_last_invoice", true}});
    m_fields.tell("lines", m_desk.change(tr("Copy Lines"), wish).value_or(QString()));
}

bool LinesPanel::canCopyLast(const Document& draft) const
{
    return m_lines->lineCount() == 0 && draft.client &&
           m_desk.library().context().first<Document>(
               "client = ? AND kindRaw = 0 AND id <> ? LIMIT 1", draft.client.key(), draft.ref.key()) != nullptr;
}

void LinesPanel::fill(const Document& draft)
{
    m_lines->reload();
    m_copyLast->setVisible(canCopyLast(draft));
    showTotals(draft);
}

void LinesPanel::showTotals(const Document& draft)
{
    const Formats& formats = m_desk.library().formats();
    const Totals::Result totals = calculateTotals(m_desk.library().context(), draft);
    QString text = tr("Net %1").arg(formats.money(totals.net, draft.currencyCode));
    for (const Totals::TaxLine& line : totals.taxLines) {
        text += tr(" &nbsp;·&nbsp; Tax %1 %2")
                    .arg(formats.percent(line.basisPoints), formats.money(line.tax, draft.currencyCode));
    }
    text += tr(" &nbsp;·&nbsp; <b>Total %1</b>").arg(formats.money(totals.total, draft.currencyCode));
    m_totals->setText(text);
}

void LinesPanel::begin()
{
    m_table->setFocus(Qt::OtherFocusReason);
    m_table->setCurrentIndex(m_lines->index(m_lines->lineCount(), LinesModel::description));
}

} // namespace Quillary
