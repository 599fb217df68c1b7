#pragma once

#include "QuillaryCore/Reports/FinishedReport.h"
#include "QuillaryUI/Look/Formats.h"

#include <QDate>
#include <QWidget>

#include <optional>
#include <string>
#include <vector>

class QComboBox;
class QDateEdit;

namespace Quillary {

/// Which report, by which dates, of which period and currency.
class ReportPicker : public QWidget
{
    Q_OBJECT

public:
    explicit ReportPicker(Formats formats, QWidget* parent = nullptr);

    /// The currencies that can be chosen; the first is the one that most want.
    void setCurrencies(const std::vector<std::string>& codes);

    /// What the days are while nobody typed any.
    void setToday(QDate today);

    /// No value: the last day is before the first.
    [[nodiscard]] std::optional<ReportOrder> order(CalendarDate today) const;

    void choose(ReportOrder::Kind kind);

Q_SIGNALS:
    void changed();

private:
    void build();
    void showFitting();
    [[nodiscard]] std::optional<ReportPeriod> period(CalendarDate today) const;

    Formats m_formats;
    QComboBox* m_report;
    QComboBox* m_basis;
    QComboBox* m_period;
    QDateEdit* m_first;
    QDateEdit* m_last;
    QComboBox* m_currency;
};

} // namespace Quillary
