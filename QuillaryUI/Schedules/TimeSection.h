#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"

#include <cstdint>

class QComboBox;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace Quillary {

class TimeModel;
class TimerBar;

/// Working time: the timer, the days with their entries, and the way onto an invoice.
class TimeSection : public Section
{
    Q_OBJECT

public:
    explicit TimeSection(LibraryAccess& library, QWidget* parent = nullptr);

    /// Asks for an entry.
    void makeNew() override;
    void refreshDay() override;
    void flush() override;

private:
    void build();
    QWidget* buildBar();
    QWidget* buildEmpty();
    void fitPeriod();
    void showState();
    void edit();
    void erase();
    void invoice();
    [[nodiscard]] std::int64_t chosen() const;

    LibraryAccess& m_library;
    TimerBar* m_timer;
    TimeModel* m_model;
    QTableView* m_table;
    QStackedWidget* m_pages;
    QComboBox* m_period;
    QPushButton* m_edit;
    QPushButton* m_erase;
};

} // namespace Quillary
