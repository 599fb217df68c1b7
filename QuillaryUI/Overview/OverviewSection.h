#pragma once

#include "QuillaryCore/Assistant/Operations/MoneyOverview.h"
#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"

#include <QTimer>

#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QVBoxLayout;

namespace Quillary {

class BarChart;
class BesideReader;
class FigureButton;
struct OverviewFigures;

/// What needs doing, with sums; income by month; receivables by age. Every figure leads to its list.
///
/// Reads only while somebody looks: what changes meanwhile is read when it is shown again. A library with a file is read
/// on another thread: a hundred thousand documents take longer than a window may stand still.
class OverviewSection : public Section
{
    Q_OBJECT

public:
    explicit OverviewSection(LibraryAccess& library, QWidget* parent = nullptr);

    void makeNew() override;
    void refreshDay() override;

Q_SIGNALS:
    /// The documents behind a figure in one currency are to be shown.
    void wantedDocuments(DocumentKind kind, DisplayStatus status, const std::string& currencyCode);
    /// The open invoices of a currency that are due within so many days are to be shown.
    void wantedDue(int days, const std::string& currencyCode);
    void wantedNew(DocumentKind kind);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void build();
    QWidget* buildCharts();
    void setStale();
    void refresh();
    void showAll(const OverviewFigures& figures);
    void showWaiting();
    void clearMoney();
    void showMoney(const std::vector<MoneyOverview>& money);
    QWidget* figures(const MoneyOverview& money);
    FigureButton*
    addFigure(QWidget& row, const QString& name, const QString& figure, const QString& detail, DisplayStatus status);
    void lead(FigureButton& button, DisplayStatus status, const std::string& currencyCode);
    void fillCurrencies(const OverviewFigures& figures);
    void showYear(const OverviewFigures& figures);
    void showAging(const OverviewFigures& figures);
    void showFailure(const QString& sentence);

    LibraryAccess& m_library;
    QTimer m_soon; ///< many changes at once are read once
    bool m_isStale = true;
    bool m_isKnown = false;       ///< figures are on the screen
    std::string m_wishedCurrency; ///< the chosen one, also while figures of another are still on their way; empty: any
    BesideReader* m_reader;
    QLabel* m_day;
    QLabel* m_owed;
    QLabel* m_failure;
    QWidget* m_whole;
    QVBoxLayout* m_money;
    QComboBox* m_currency;
    QLabel* m_incomeSum;
    QLabel* m_agingSum;
    BarChart* m_income;
    BarChart* m_aging;
};

} // namespace Quillary
