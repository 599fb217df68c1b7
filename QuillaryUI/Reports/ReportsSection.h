#pragma once

#include "QuillaryCore/Reports/FinishedReport.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"

#include <QTimer>

#include <optional>

class QLabel;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace Quillary {

class ReportModel;
class ReportPicker;
struct CSVFormat;

/// The reports: what is to be reported at the top, the table below, and the way into a file. Reads only while somebody
/// looks.
class ReportsSection : public Section
{
    Q_OBJECT

public:
    explicit ReportsSection(LibraryAccess& library, QWidget* parent = nullptr);

    void refreshDay() override;

    /// Shows another report.
    void showReport(ReportOrder::Kind kind);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void build();
    QWidget* buildBar();
    void setStale();
    void refresh();
    void display(FinishedReport report);
    void fitColumns();
    void showMessage(const QString& sentence);
    void save(const CSVFormat& format);
    [[nodiscard]] bool fillCurrencies();

    LibraryAccess& m_library;
    QTimer m_soon;
    bool m_isStale = true;
    ReportPicker* m_picker;
    QPushButton* m_save;
    QLabel* m_heading;
    QLabel* m_others;
    QLabel* m_message;
    QTableView* m_table;
    QStackedWidget* m_pages;
    ReportModel* m_model;
    std::optional<FinishedReport> m_report; ///< what is on the screen, and what is saved
};

} // namespace Quillary
