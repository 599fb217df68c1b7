#pragma once

#include "QuillaryCore/Reports/FinishedReport.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Paper/PaperDesk.h"

#include <QList>
#include <QTimer>

#include <functional>
#include <optional>

class QAction;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace Quillary {

class BarChart;
class BesideReader;
class ReportModel;
class ReportPicker;
class WaitingWord;
struct CSVFormat;
struct ReportAnswer;

/// The reports: what is to be reported at the top, a chart and the table below, and the ways into a file and onto paper.
/// Reads only while somebody looks, and beside the window: the newest wish is the one that is answered.
class ReportsSection : public Section
{
    Q_OBJECT

public:
    explicit ReportsSection(LibraryAccess& library, QWidget* parent = nullptr);

    void refreshDay() override;
    [[nodiscard]] QStringList pageNames() const override;
    void showPage(const QString& name) override;

    [[nodiscard]] QList<QAction*> documentActions() const override { return m_actions; }

    /// Shows another report.
    void showReport(ReportOrder::Kind kind);

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build();
    void buildActions();
    QWidget* buildBar();
    QWidget* buildHead();
    QWidget* buildMessage();
    void setStale();
    void refresh();
    void take(ReportOrder order, ReportAnswer answer);
    void display(FinishedReport report);
    void showWaiting();
    void showCancelled();
    void fitColumns();
    void stretch();
    void clear();
    void showMessage(const QString& sentence, bool isWorthTrying);
    void whenRead(std::function<void()> work);
    void save(const CSVFormat& format);
    void savePDF();
    void print();
    [[nodiscard]] std::string fileName() const;
    [[nodiscard]] PageJob page() const;
    [[nodiscard]] PaperDesk::Asker asker();
    void allowSaving(bool isAllowed);

    LibraryAccess& m_library;
    QTimer m_soon;
    bool m_isStale = true;
    BesideReader* m_reader;
    std::optional<ReportOrder> m_awaited; ///< what is being read, or was read last
    std::optional<ReportOrder> m_shown;   ///< what `m_report` answers; no value: none is shown
    std::function<void()> m_whenRead;     ///< what was asked for while the report was on its way
    ReportPicker* m_picker;
    QPushButton* m_save;
    QPushButton* m_print;
    QList<QAction*> m_actions;
    QLabel* m_heading;
    WaitingWord* m_waiting;
    QLabel* m_others;
    QWidget* m_instead; ///< of the table
    QLabel* m_message;
    QPushButton* m_again;
    BarChart* m_chart;
    QTableView* m_table;
    int m_stretched = 0; ///< the column
    int m_natural = 0;   ///< the width of all columns, if none is stretched
    int m_yielding = 0;  ///< of it, what clients can do without
    QStackedWidget* m_pages;
    ReportModel* m_model;
    FinishedReport m_report; ///< what is on the screen, and what is saved; its table is the model's
};

} // namespace Quillary
