#pragma once

#include "QuillaryUI/Look/Formats.h"

#include <QColor>
#include <QStringList>
#include <QWidget>

#include <cstdint>
#include <string>
#include <vector>

class QBarCategoryAxis;
class QBarSet;
class QChart;
class QChartView;
class QValueAxis;

namespace Quillary {

/// Amounts of one currency as bars over a few names. The amount of a bar is told when the pointer rests on it, and all of
/// them to those who listen to the screen.
class BarChart : public QWidget
{
    Q_OBJECT

public:
    /// The bars of one meaning.
    struct Series
    {
        QString name;
        QColor color;
        std::vector<std::int64_t> amounts; ///< one for each name; minor units
    };

    enum class Arrangement {
        besideOneAnother,
        onOneAnother,
    };

    explicit BarChart(Formats formats, QWidget* parent = nullptr);

    /// `labels`: what stands under the bars where their full names are too long, lines with line breaks between them;
    /// else the names.
    void setBars(const QStringList& names,
                 const std::vector<Series>& series,
                 const std::string& currencyCode,
                 Arrangement arrangement,
                 const QStringList& labels = {});

Q_SIGNALS:
    /// A bar was clicked.
    void chosen(int name);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitLabels();
    void setAxes(const QStringList& labels,
                 const std::vector<Series>& series,
                 const std::string& currencyCode,
                 Arrangement arrangement);
    void describe(const QStringList& names, const std::vector<Series>& series, const std::string& currencyCode);

    Formats m_formats;
    QStringList m_labels;
    QChart* m_chart;
    QBarCategoryAxis* m_across;
    QValueAxis* m_up;
    QChartView* m_view;
};

} // namespace Quillary
