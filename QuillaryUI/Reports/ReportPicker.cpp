#include "QuillaryUI/Reports/ReportPicker.h"

#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/DateField.h"

#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace Quillary {

namespace {

constexpr int gap = 8;
constexpr int narrowestBox = 96;

/// The entry whose days are typed.
const QString ownDays = QStringLiteral("days");

/// In a narrow window its text is cut rather than the window wider.
class YieldingBox final : public QComboBox
{
public:
    using QComboBox::QComboBox;

    [[nodiscard]] QSize minimumSizeHint() const override
    {
        return QComboBox::minimumSizeHint().boundedTo({narrowestBox, QWIDGETSIZE_MAX});
    }
};

} // namespace

ReportPicker::ReportPicker(Formats formats, QWidget* parent)
    : QWidget(parent)
    , m_formats(std::move(formats))
    , m_report(new YieldingBox(this))
    , m_basis(new YieldingBox(this))
    , m_period(new YieldingBox(this))
    , m_first(new QDateEdit(this))
    , m_last(new QDateEdit(this))
    , m_currency(new QComboBox(this))
{
    build();
    for (QComboBox* box : {m_report, m_basis, m_period, m_currency}) {
        connect(box, &QComboBox::activated, this, [this] {
            showFitting();
            Q_EMIT changed();
        });
    }
    for (QDateEdit* day : {m_first, m_last}) {
        connect(day, &QDateEdit::dateChanged, this, &ReportPicker::changed);
    }
    showFitting();
}

void ReportPicker::build()
{
    m_report->setObjectName(QStringLiteral("report"));
    m_report->setAccessibleName(tr("Report"));
    for (const auto& [kind, name] : {std::pair(ReportOrder::Kind::tax, tr("Tax")),
                                     std::pair(ReportOrder::Kind::taxDocuments, tr("Tax, by Document")),
                                     std::pair(ReportOrder::Kind::aging, tr("Receivables by Age")),
                                     std::pair(ReportOrder::Kind::clients, tr("Clients")),
                                     std::pair(ReportOrder::Kind::invoices, tr("Invoices and Credit Notes"))}) {
        m_report->addItem(name, int(kind));
    }
    m_basis->setObjectName(QStringLiteral("reportBasis"));
    m_basis->setAccessibleName(tr("By which dates"));
    for (const ReportBasis basis : allReportBases) {
        m_basis->addItem(CoreText::word(title(basis)), int(basis));
    }
    m_period->setObjectName(QStringLiteral("reportPeriod"));
    m_period->setAccessibleName(tr("Period"));
    for (const auto& [words, name] : {std::pair("this-month", tr("This month")),
                                      std::pair("last-month", tr("Last month")),
                                      std::pair("this-quarter", tr("This quarter")),
                                      std::pair("last-quarter", tr("Last quarter")),
                                      std::pair("this-year", tr("This year")),
                                      std::pair("last-year", tr("Last year")),
                                      std::pair("last-12-months", tr("Last twelve months")),
                                      std::pair("all", tr("All dates"))}) {
        m_period->addItem(name, QString::fromLatin1(words));
    }
    m_period->addItem(tr("From – to"), ownDays);
    m_period->setCurrentIndex(m_period->findData(QStringLiteral("this-year")));
    for (QDateEdit* day : {m_first, m_last}) {
        DateField::dress(*day);
    }
    m_first->setObjectName(QStringLiteral("reportFirst"));
    m_first->setAccessibleName(tr("First day"));
    m_last->setObjectName(QStringLiteral("reportLast"));
    m_last->setAccessibleName(tr("Last day"));
    m_currency->setObjectName(QStringLiteral("reportCurrency"));
    m_currency->setAccessibleName(tr("Currency"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    for (QWidget* part : std::initializer_list<QWidget*>{m_report, m_basis, m_period, m_first, m_last, m_currency}) {
        row->addWidget(part);
    }
}

void ReportPicker::choose(ReportOrder::Kind kind)
{
    m_report->setCurrentIndex(m_report->findData(int(kind)));
    showFitting();
    Q_EMIT changed();
}

void ReportPicker::setToday(QDate today)
{
    if (m_period->currentData().toString() != ownDays) {
        const QSignalBlocker first(m_first);
        const QSignalBlocker last(m_last);
        m_first->setDate({today.year(), 1, 1});
        m_last->setDate(today);
    }
}

void ReportPicker::setCurrencies(const std::vector<std::string>& codes)
{
    QStringList names;
    QStringList old;
    for (const std::string& code : codes) {
        names.push_back(text(code));
    }
    for (int row = 0; row < m_currency->count(); ++row) {
        old.push_back(m_currency->itemText(row));
    }
    if (names == old) {
        return; // somebody may be choosing just now
    }
    const QString before = m_currency->currentText();
    m_currency->clear();
    m_currency->addItems(names);
    m_currency->setCurrentIndex(std::max(0, m_currency->findText(before)));
    m_currency->setVisible(codes.size() > 1);
}

/// Receivables are those of today, and only tax has two ways to count.
void ReportPicker::showFitting()
{
    const auto kind = ReportOrder::Kind(m_report->currentData().toInt());
    m_basis->setVisible(kind == ReportOrder::Kind::tax || kind == ReportOrder::Kind::taxDocuments);
    m_period->setVisible(kind != ReportOrder::Kind::aging);
    const bool areTyped = m_period->currentData().toString() == ownDays;
    m_first->setVisible(kind != ReportOrder::Kind::aging && areTyped);
    m_last->setVisible(kind != ReportOrder::Kind::aging && areTyped);
}

std::optional<ReportPeriod> ReportPicker::period(CalendarDate today) const
{
    if (m_period->currentData().toString() != ownDays) {
        return ReportPeriod::parse(utf8(m_period->currentData().toString()), today);
    }
    const ReportPeriod period{DateField::day(*m_first), DateField::day(*m_last)};
    return period.first <= period.last ? std::optional(period) : std::nullopt;
}

std::optional<ReportOrder> ReportPicker::order(CalendarDate today) const
{
    ReportOrder order{.kind = ReportOrder::Kind(m_report->currentData().toInt()),
                      .basis = ReportBasis(m_basis->currentData().toInt()),
                      .currencyCode = utf8(m_currency->currentText())};
    if (order.kind != ReportOrder::Kind::aging) {
        const std::optional<ReportPeriod> chosen = period(today);
        if (!chosen) {
            return std::nullopt;
        }
        order.period = *chosen;
    }
    return order;
}

} // namespace Quillary
