#include "QuillaryUI/Charts/BarChart.h"

#include "QuillaryCore/Money/Money.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QCursor>
#include <QFontMetricsF>
#include <QGraphicsLayout>
#include <QLegend>
#include <QLegendMarker>
#include <QLocale>
#include <QPen>
#include <QStackedBarSeries>
#include <QTextDocument>
#include <QToolTip>
#include <QVBoxLayout>
#include <QValueAxis>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Quillary {

namespace {

constexpr int leastHeight = 240;
constexpr int ticks = 5;
constexpr double widestBars = 0.66;      ///< of a place's room
constexpr double barWidthForEach = 0.11; ///< a few bars needn't fill the width
constexpr double labelGap = 12;          ///< with what the axis leaves free itself

/// How long a bar is drawn; what it says is written from the exact amount.
double length(std::int64_t minorUnits, const std::string& currencyCode)
{
    return double(minorUnits) / std::pow(10.0, Money::fractionDigits(currencyCode));
}

/// How far the bars go down and up.
std::pair<std::int64_t, std::int64_t> extent(const std::vector<BarChart::Series>& series, bool isStacked)
{
    std::int64_t least = 0;
    std::int64_t most = 0;
    const std::size_t places = series.empty() ? 0 : series.front().amounts.size();
    for (std::size_t place = 0; place < places; ++place) {
        std::int64_t down = 0;
        std::int64_t up = 0;
        for (const BarChart::Series& one : series) {
            const std::int64_t amount = one.amounts[place];
            down = isStacked ? down + std::min<std::int64_t>(amount, 0) : std::min(down, amount);
            up = isStacked ? up + std::max<std::int64_t>(amount, 0) : std::max(up, amount);
        }
        least = std::min(least, down);
        most = std::max(most, up);
    }
    return {least, most};
}

/// As the axis takes them, which reads markup and takes each text once: equal ones are told apart by what nobody sees.
QStringList axisTexts(const QStringList& labels)
{
    QStringList all;
    for (const QString& label : labels) {
        QString name = label.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>"));
        do {
            name += QChar(0x200b);
        } while (all.contains(name));
        all.push_back(name);
    }
    return all;
}

/// A client may have a name that looks like markup.
QString plain(const QString& sentence)
{
    return Qt::mightBeRichText(sentence) ? sentence.toHtmlEscaped() : sentence;
}

void color(QAbstractAxis& axis, const QPalette& palette)
{
    axis.setLabelsColor(palette.color(QPalette::PlaceholderText));
    axis.setLinePen(QPen(palette.color(QPalette::Midlight)));
    axis.setGridLinePen(QPen(palette.color(QPalette::Midlight)));
}

} // namespace

BarChart::BarChart(Formats formats, QWidget* parent)
    : QWidget(parent)
    , m_formats(std::move(formats))
    , m_chart(new QChart)
    , m_across(new QBarCategoryAxis)
    , m_up(new QValueAxis)
    , m_view(new QChartView(m_chart, this)) // which owns the chart
{
    m_chart->setBackgroundVisible(false);
    m_chart->setMargins({0, 0, 0, 0});
    m_chart->layout()->setContentsMargins(0, 0, 0, 0);
    m_chart->setLocalizeNumbers(true);
    m_chart->setLocale(QLocale(text(m_formats.locale().identifier())));
    m_chart->addAxis(m_across, Qt::AlignBottom); // it owns them
    m_chart->addAxis(m_up, Qt::AlignLeft);
    m_across->setGridLineVisible(false);
    m_up->setLabelFormat(QStringLiteral("%.0f"));
    m_up->setLineVisible(false);
    m_chart->legend()->setAlignment(Qt::AlignTop);
    m_chart->legend()->setMarkerShape(QLegend::MarkerShapeCircle);
    m_view->setRenderHint(QPainter::Antialiasing);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setBackgroundBrush(Qt::NoBrush);
    m_view->setStyleSheet(QStringLiteral("background: transparent"));
    m_view->setFocusPolicy(Qt::NoFocus);
    m_view->setMinimumHeight(leastHeight);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_view);
}

void BarChart::setBars(const QStringList& names,
                       const std::vector<Series>& series,
                       const std::string& currencyCode,
                       Arrangement arrangement,
                       const QStringList& labels)
{
    m_chart->removeAllSeries();
    QAbstractBarSeries* bars = arrangement == Arrangement::onOneAnother
                                   ? static_cast<QAbstractBarSeries*>(new QStackedBarSeries)
                                   : new QBarSeries;
    bars->setBarWidth(std::min(widestBars, barWidthForEach * double(names.size())));
    for (const Series& one : series) {
        auto* set = new QBarSet(one.name);
        set->setColor(one.color);
        set->setPen(Qt::NoPen);
        for (const std::int64_t amount : one.amounts) {
            set->append(length(amount, currencyCode));
        }
        const auto amounts = one.amounts;
        connect(set,
                &QBarSet::hovered,
                this,
                [this, names, amounts, currencyCode, name = one.name](bool isOver, int place) {
                    const QString sentence =
                        tr("%1, %2: %3")
                            .arg(names.value(place), name, m_formats.money(amounts[std::size_t(place)], currencyCode));
                    QToolTip::showText(QCursor::pos(), isOver ? plain(sentence) : QString(), this);
                });
        connect(set, &QBarSet::clicked, this, &BarChart::chosen);
        bars->append(set);
    }
    m_chart->addSeries(bars);
    setAxes(labels.isEmpty() ? names : labels, series, currencyCode, arrangement);
    for (QLegendMarker* marker : m_chart->legend()->markers()) {
        marker->setPen(Qt::NoPen);
    }
    m_chart->legend()->setVisible(series.size() > 1);
    m_chart->legend()->setLabelColor(palette().color(QPalette::Text));
    describe(names, series, currencyCode);
}

void BarChart::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fitLabels();
}

/// Smaller letters where there is little room, before a label is cut.
void BarChart::fitLabels()
{
    if (m_labels.isEmpty()) {
        return;
    }
    QFont letters = font();
    const double room = m_chart->plotArea().width() / double(m_labels.size()) - labelGap;
    for (const double size : {1.0, 0.9, 0.8}) {
        letters.setPointSizeF(font().pointSizeF() * size);
        const QFontMetricsF metrics(letters);
        const bool fits =
            std::ranges::all_of(m_labels, [&](const QString& label) { return metrics.size(0, label).width() <= room; });
        if (fits) {
            break;
        }
    }
    if (m_across->labelsFont() != letters) {
        m_across->setLabelsFont(letters);
    }
}

void BarChart::setAxes(const QStringList& labels,
                       const std::vector<Series>& series,
                       const std::string& currencyCode,
                       Arrangement arrangement)
{
    m_across->clear();
    m_across->append(axisTexts(labels));
    m_labels = labels;
    const auto [least, most] = extent(series, arrangement == Arrangement::onOneAnother);
    m_up->setRange(length(least, currencyCode), most == 0 && least == 0 ? 1.0 : length(most, currencyCode));
    m_up->setTickCount(ticks);
    m_up->applyNiceNumbers();
    m_up->setLabelsVisible(most != 0 || least != 0);
    for (QAbstractAxis* axis : {static_cast<QAbstractAxis*>(m_across), static_cast<QAbstractAxis*>(m_up)}) {
        color(*axis, palette());
        for (QAbstractSeries* bars : m_chart->series()) {
            bars->attachAxis(axis);
        }
    }
    fitLabels();
}

void BarChart::describe(const QStringList& names, const std::vector<Series>& series, const std::string& currencyCode)
{
    QStringList figures;
    for (const Series& one : series) {
        for (std::size_t place = 0; place < one.amounts.size(); ++place) {
            if (one.amounts[place] != 0) {
                figures.push_back(
                    tr("%1, %2: %3")
                        .arg(names.value(int(place)), one.name, m_formats.money(one.amounts[place], currencyCode)));
            }
        }
    }
    setAccessibleDescription(figures.join(QStringLiteral("; ")));
}

} // namespace Quillary
