#include "QuillaryUI/Overview/OverviewSection.h"

#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Schedules/TimeMath.h"
#include "QuillaryUI/Charts/BarChart.h"
#include "QuillaryUI/Library/BesideReader.h"
#include "QuillaryUI/Look/Lettering.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Overview/FigureButton.h"
#include "QuillaryUI/Overview/OverviewFigures.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <utility>

namespace Quillary {

namespace {

constexpr int border = 24;
constexpr int gap = 16;
constexpr int widest = 1240; ///< beyond it the eye has to travel
constexpr int highest = 640; ///< of the charts
constexpr int settling = 60; ///< milliseconds
constexpr double quietBar = 0.45;

void makeQuiet(QLabel& label)
{
    label.setForegroundRole(QPalette::PlaceholderText);
}

QString invoices(std::size_t count)
{
    return count == 1 ? OverviewSection::tr("1 invoice") : OverviewSection::tr("%1 invoices").arg(count);
}

template <class Figures>
std::vector<std::int64_t> amounts(const Figures& figures)
{
    return std::vector<std::int64_t>(std::begin(figures), std::end(figures));
}

/// A chart under its name and its sum.
QWidget* card(QWidget* parent, const QString& name, QLabel& sum, BarChart& chart)
{
    auto* card = new QFrame(parent);
    card->setObjectName(QStringLiteral("card"));
    card->setStyleSheet(QStringLiteral("QFrame#card { background: palette(base); border: 1px solid palette(midlight);"
                                       " border-radius: 8px; }"));
    auto* column = new QVBoxLayout(card);
    column->setContentsMargins(gap, gap, gap, gap);
    auto* title = Lettering::label(card, "cardTitle", 1.1, QFont::DemiBold);
    title->setText(name);
    chart.setAccessibleName(name);
    makeQuiet(sum);
    column->addWidget(title);
    column->addWidget(&sum);
    column->addWidget(&chart, 1);
    return card;
}

} // namespace

OverviewSection::OverviewSection(LibraryAccess& library, QWidget* parent)
    : Section(parent)
    , m_library(library)
    , m_reader(new BesideReader(library, this))
    , m_day(Lettering::label(this, "overviewDay"))
    , m_owed(Lettering::label(this, "overviewOwed", 1.1))
    , m_failure(Lettering::label(this, "overviewFailure"))
    , m_whole(new QWidget(this))
    , m_money(new QVBoxLayout)
    , m_currency(new QComboBox(this))
    , m_incomeSum(Lettering::label(this, "incomeSum"))
    , m_agingSum(Lettering::label(this, "agingSum"))
    , m_income(new BarChart(library.formats(), this))
    , m_aging(new BarChart(library.formats(), this))
{
    setObjectName(QStringLiteral("overview"));
    build();
    m_soon.setSingleShot(true);
    m_soon.setInterval(settling);
    connect(&m_soon, &QTimer::timeout, this, &OverviewSection::refresh);
    connect(&library, &LibraryAccess::opened, this, &OverviewSection::setStale);
    connect(&library, &LibraryAccess::changed, this, &OverviewSection::setStale);
    connect(m_reader, &BesideReader::failed, this, &OverviewSection::showFailure);
    connect(m_reader, &BesideReader::ended, this, [this] {
        if (m_isStale) {
            setStale();
        }
    });
    connect(m_currency, &QComboBox::activated, this, [this] {
        m_wishedCurrency = utf8(m_currency->currentText());
        m_isStale = true;
        refresh();
    });
    connect(m_aging, &BarChart::chosen, this, [this](int bucket) {
        Q_EMIT wantedDocuments(DocumentKind::invoice,
                               bucket == 0 ? DisplayStatus::sent : DisplayStatus::overdue,
                               utf8(m_currency->currentText()));
    });
}

void OverviewSection::build()
{
    auto* heading = Lettering::label(this, "overviewHeading", 1.6, QFont::DemiBold);
    heading->setText(tr("Overview"));
    makeQuiet(*m_day);
    m_failure->setWordWrap(true);
    m_failure->hide();
    m_money->setSpacing(gap);

    auto* content = new QWidget(this);
    content->setMaximumWidth(widest);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(border, border, border, border);
    column->setSpacing(gap / 2);
    auto* head = new QHBoxLayout;
    head->addWidget(heading);
    head->addStretch();
    head->addWidget(m_day);
    column->addLayout(head);
    column->addWidget(m_failure);
    auto* parts = new QVBoxLayout(m_whole);
    parts->setContentsMargins(0, 0, 0, 0);
    parts->setSpacing(gap);
    parts->addWidget(m_owed);
    parts->addLayout(m_money);
    parts->addWidget(buildCharts(), 1);
    column->addWidget(m_whole, 1);
    column->addStretch();

    auto* scroll = Lists::scrolled(content, this);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(scroll);
}

QWidget* OverviewSection::buildCharts()
{
    auto* charts = new QWidget(this);
    charts->setMaximumHeight(highest);
    m_currency->setObjectName(QStringLiteral("overviewCurrency"));
    m_currency->setAccessibleName(tr("Currency of the charts"));
    auto* column = new QVBoxLayout(charts);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap / 2);
    column->addWidget(m_currency, 0, Qt::AlignRight);
    auto* row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(card(charts, tr("Income by Month"), *m_incomeSum, *m_income), 3);
    row->addWidget(card(charts, tr("Receivables by Age"), *m_agingSum, *m_aging), 2);
    column->addLayout(row, 1);
    return charts;
}

void OverviewSection::setStale()
{
    m_isStale = true;
    if (isVisible()) {
        m_soon.start();
    }
}

void OverviewSection::refreshDay()
{
    setStale();
}

void OverviewSection::makeNew()
{
    Q_EMIT wantedNew(DocumentKind::invoice);
}

void OverviewSection::showEvent(QShowEvent* event)
{
    Section::showEvent(event);
    if (m_isStale) {
        refresh();
    }
}

void OverviewSection::refresh()
{
    if (!m_library.isOpen() || !isVisible() || m_reader->isReading()) {
        return; // what is being read is followed by what changed meanwhile
    }
    m_isStale = false;
    if (!m_isKnown) {
        showWaiting();
    }
    m_reader->read<OverviewFigures>(
        [currency = m_wishedCurrency](const AssistantEnvironment& environment) {
            return OverviewFigures::read(environment, currency);
        },
        [this](const OverviewFigures& figures) { showAll(figures); });
}

void OverviewSection::showAll(const OverviewFigures& figures)
{
    m_isKnown = true;
    m_failure->hide();
    m_whole->show();
    const QDate today = m_library.formats().qDate(m_library.now());
    m_day->setText(QLocale(text(m_library.formats().locale().identifier())).toString(today, QLocale::LongFormat));
    showMoney(figures.money);
    fillCurrencies(figures);
    showYear(figures);
    showAging(figures);
}

/// The places of the figures, before they are known.
void OverviewSection::showWaiting()
{
    const QString unknown = QStringLiteral("…");
    m_failure->hide();
    m_whole->show();
    clearMoney();
    for (QLabel* label : {m_owed, m_incomeSum, m_agingSum}) {
        label->setText(unknown);
    }
    m_currency->hide();
    auto* row = new QWidget(m_whole);
    row->setObjectName(QStringLiteral("figures"));
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(gap);
    for (const QString& name :
         {tr("Overdue"), tr("Due within %1 days").arg(MoneyOverview::soonDays), tr("Drafts"), tr("Unbilled Time")}) {
        auto* button = new FigureButton(name, unknown, QString(), row);
        button->setEnabled(false);
        line->addWidget(button, 1);
    }
    m_money->addWidget(row);
}

void OverviewSection::clearMoney()
{
    const auto old = m_whole->findChildren<QWidget*>(QStringLiteral("figures"), Qt::FindDirectChildrenOnly);
    for (QWidget* row : old) {
        m_money->removeWidget(row);
        delete row;
    }
}

void OverviewSection::showMoney(const std::vector<MoneyOverview>& money)
{
    clearMoney();
    std::map<std::string, std::int64_t, std::less<>> owed;
    std::size_t count = 0;
    for (const MoneyOverview& one : money) {
        if (!one.open.empty()) {
            owed[one.currencyCode] = one.openTotal;
            count += one.open.size();
        }
    }
    m_owed->setText(count == 0 ? tr("Nothing is owed to you.")
                               : tr("You are owed %1 in %2.").arg(m_library.formats().sums(owed), invoices(count)));
    for (const MoneyOverview& one : money) {
        m_money->addWidget(figures(one));
    }
    const std::string& own = m_library.business().currencyCode;
    if (std::ranges::find(money, own, &MoneyOverview::currencyCode) == money.end()) {
        MoneyOverview nothing;
        nothing.currencyCode = own;
        m_money->insertWidget(0, figures(nothing));
    }
}

QWidget* OverviewSection::figures(const MoneyOverview& money)
{
    const Formats& formats = m_library.formats();
    const auto amount = [&](std::int64_t minorUnits) {
        return formats.money(minorUnits, money.currencyCode);
    };
    auto* row = new QWidget(m_whole);
    row->setObjectName(QStringLiteral("figures"));
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(gap);
    auto* overdue = addFigure(*row,
                              tr("Overdue"),
                              amount(money.overdueTotal),
                              money.overdueCount == 0 ? tr("Nothing is overdue") : invoices(money.overdueCount),
                              DisplayStatus::overdue);
    lead(*overdue, DisplayStatus::overdue, money.currencyCode);
    auto* soon = addFigure(*row,
                           tr("Due within %1 days").arg(MoneyOverview::soonDays),
                           amount(money.dueSoonTotal),
                           money.dueSoonCount == 0 ? tr("Nothing is due") : invoices(money.dueSoonCount),
                           DisplayStatus::sent);
    connect(soon, &FigureButton::clicked, this, [this, currency = money.currencyCode] {
        Q_EMIT wantedDue(MoneyOverview::soonDays, currency);
    });
    const std::size_t drafts = money.drafts.size();
    auto* draft = addFigure(*row,
                            tr("Drafts"),
                            amount(money.draftTotal),
                            drafts == 0   ? tr("No draft waits")
                            : drafts == 1 ? tr("1 draft waits")
                                          : tr("%1 drafts wait").arg(drafts),
                            DisplayStatus::draft);
    lead(*draft, DisplayStatus::draft, money.currencyCode);
    if (money.currencyCode == m_library.business().currencyCode) {
        const QString hours = money.unbilledSeconds == 0
                                  ? tr("No time is unbilled")
                                  : tr("%1 hours").arg(text(TimeMath::hoursAndMinutes(money.unbilledSeconds)));
        auto* time = new FigureButton(tr("Unbilled Time"), amount(money.unbilledValue), hours, row);
        time->setObjectName(QStringLiteral("figureTime"));
        connect(time, &FigureButton::clicked, this, [this] { Q_EMIT wantedSection(QStringLiteral("time")); });
        line->addWidget(time, 1);
    } else {
        line->addStretch(1); // time has a price in the business's own currency alone
    }
    return row;
}

void OverviewSection::lead(FigureButton& button, DisplayStatus status, const std::string& currencyCode)
{
    connect(&button, &FigureButton::clicked, this, [this, status, currencyCode] {
        Q_EMIT wantedDocuments(DocumentKind::invoice, status, currencyCode);
    });
}

FigureButton* OverviewSection::addFigure(
    QWidget& row, const QString& name, const QString& figure, const QString& detail, DisplayStatus status)
{
    auto* button = new FigureButton(name, figure, detail, &row);
    button->setObjectName(QStringLiteral("figure%1").arg(int(status)));
    if (status == DisplayStatus::overdue && detail != tr("Nothing is overdue")) {
        button->setFigureColor(Theme::statusColor(status));
    }
    static_cast<QHBoxLayout*>(row.layout())->addWidget(button, 1);
    return button;
}

void OverviewSection::fillCurrencies(const OverviewFigures& figures)
{
    m_currency->clear();
    for (const std::string& code : figures.currencies) {
        m_currency->addItem(text(code));
    }
    m_currency->setCurrentIndex(std::max(0, m_currency->findText(text(figures.year.currencyCode))));
    m_currency->setVisible(figures.currencies.size() > 1);
}

void OverviewSection::showYear(const OverviewFigures& figures)
{
    const OverviewFigures::Year& year = figures.year;
    const std::string& currency = year.currencyCode;
    const Formats& formats = m_library.formats();
    const int now = formats.qDate(m_library.now()).year();
    const QLocale words(text(formats.locale().identifier()));
    QStringList months;
    for (int month = 1; month <= int(MonthlyIncome::monthCount); ++month) {
        months.push_back(words.standaloneMonthName(month, QLocale::ShortFormat));
    }
    QColor quiet = palette().color(QPalette::PlaceholderText);
    quiet.setAlphaF(float(quietBar));
    m_income->setBars(months,
                      {{QString::number(now - 1), quiet, amounts(year.lastYear.months)},
                       {QString::number(now), palette().color(QPalette::Link), amounts(year.thisYear.months)}},
                      currency,
                      BarChart::Arrangement::besideOneAnother);
    m_incomeSum->setText(tr("%1 so far in %2, %3 in %4")
                             .arg(formats.money(year.thisYear.total(), currency), QString::number(now))
                             .arg(formats.money(year.lastYear.total(), currency), QString::number(now - 1)));
}

void OverviewSection::showAging(const OverviewFigures& figures)
{
    const OverviewFigures::Year& year = figures.year;
    const QStringList ages{tr("Not due"), tr("1–30"), tr("31–60"), tr("61–90"), tr("Over 90")}; // `allBuckets`
    const AgingReport::Amounts all = year.aging.totals();
    AgingReport::Amounts notDue{};
    AgingReport::Amounts late = all;
    notDue.front() = all.front();
    late.front() = 0;
    m_aging->setBars(ages,
                     {{tr("Not due yet"), Theme::statusColor(DisplayStatus::sent), amounts(notDue)},
                      {tr("Overdue"), Theme::statusColor(DisplayStatus::overdue), amounts(late)}},
                     year.currencyCode,
                     BarChart::Arrangement::onOneAnother);
    m_agingSum->setText(year.aging.rows.empty()
                            ? tr("Nothing is owed to you.")
                            : tr("%1 is owed to you, by days overdue")
                                  .arg(m_library.formats().money(year.aging.total(), year.currencyCode)));
}

void OverviewSection::showFailure(const QString& sentence)
{
    m_whole->hide();
    m_failure->setText(tr("The figures could not be read. %1").arg(sentence));
    m_failure->show();
}

} // namespace Quillary
