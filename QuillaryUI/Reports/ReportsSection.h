#pragma once

#include "QuillaryCore/Reports/FinishedReport.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Paper/PaperDesk.h"

#include <QList>
#include <QTimer>

#include <optional>

class QAction;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace Quillary {

class BarChart;
class ReportModel;
class ReportPicker;
struct CSVFormat;

/// The reports: what is to be reported at the top, a chart and the table below, and the ways into a file and onto paper.
/// Reads only while somebody looks.
class ReportsSection : public Section
{
    Q_OBJECT

public:
    explicit ReportsSection(LibraryAccess& library, QWidget* parent = nullptr);

    void refreshDay() override;
    [[nodiscard]] QStringList pageNames() const override;
    void showPage(const QString& name) override;

    /// What can be done with the report, for a menu.
    [[nodiscard]] QList<QAction*> reportActions() const { return m_actions; }

    /// Shows another report.
    void showReport(ReportOrder::Kind kind);

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build();
    void buildActions();
    QWidget* buildBar();
    void setStale();
    void refresh();
    void display(FinishedReport report);
    void fitColumns();
    void stretch();
    void showMessage(const QString& sentence);
    void save(const CSVFormat& format);
    void savePDF();
    void print();
    [[nodiscard]] PageJob page() const;
    [[nodiscard]] PaperDesk::Asker asker();
    void allowSaving(bool isAllowed);
    [[nodiscard]] bool fillCurrencies();

    LibraryAccess& m_library;
    QTimer m_soon;
    bool m_isStale = true;
    ReportPicker* m_picker;
    QPushButton* m_save;
    QPushButton* m_print;
    QList<QAction*> m_actions;
    QLabel* m_heading;
    QLabel* m_others;
    QLabel* m_message;
    BarChart* m_chart;
    QTableView* m_table;
    int m_stretched = 0; ///< the column
    int m_natural = 0;   ///< the width of all columns, if none is stretched
    QStackedWidget* m_pages;
    ReportModel* m_model;
    std::optional<FinishedReport> m_report; ///< what is on the screen, and what is saved
};

} // namespace Quillary
