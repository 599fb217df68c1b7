#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QWidget>

#include <cstdint>

class QLabel;
class QPushButton;

namespace Quillary {

class LivePage;
class PaperView;
struct Document;

/// One recurring invoice: its schedule in words, the next dates, and its page.
class RecurringPane : public QWidget
{
    Q_OBJECT

public:
    explicit RecurringPane(LibraryAccess& library, QWidget* parent = nullptr);

    /// 0: nothing is chosen.
    void setTemplate(std::int64_t key);

    void reload();

Q_SIGNALS:
    void told(const QString& sentence);
    void failed(const QString& sentence);

private:
    [[nodiscard]] const Document* record() const;
    void build();
    void showDates(const Document& recurring);
    void showOwed();
    void makeOwed();
    void pauseOrResume();

    LibraryAccess& m_library;
    std::int64_t m_template = 0;
    QWidget* m_head;
    QLabel* m_name;
    QLabel* m_schedule;
    QLabel* m_dates;
    QLabel* m_owed;
    QPushButton* m_make;
    QPushButton* m_pause;
    PaperView* m_paper;
    LivePage* m_page;
};

} // namespace Quillary
