#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QWidget>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace Quillary {

/// Does something to many documents, a few at a time, while the window goes on: a bar with a number and Cancel. What
/// fails is listed at the end; the others go through. While the library is away it waits.
class DocumentsRun : public QWidget
{
    Q_OBJECT

public:
    using Keys = std::vector<std::int64_t>;
    struct Failure
    {
        std::int64_t document = 0;
        QString sentence;
    };
    using Done = std::function<void(std::vector<Failure> failures)>;

    struct Task
    {
        QString title; ///< "Saving PDFs"
        Keys documents;
        std::size_t atOnce = 1;
        /// Does a few of them, and answers at once or later, once.
        std::function<void(const Keys& documents, const Done& done)> step;
        /// The sentence that tells of so many that went through.
        std::function<QString(int count)> success;
    };

    DocumentsRun(LibraryAccess& library, QWidget* parent);

    /// Nothing while another one is under way.
    void start(Task task);
    [[nodiscard]] bool isBusy() const { return m_isBusy; }

    /// Stops behind the documents that are being worked on.
    void cancel();

Q_SIGNALS:
    void told(const QString& sentence);
    void busyChanged(bool isBusy);

private:
    void proceed();
    void take(std::size_t count, std::vector<Failure> failures);
    void finish();
    void showProgress();

    LibraryAccess& m_library;
    Task m_task;
    std::size_t m_next = 0;
    std::vector<Failure> m_failures;
    bool m_isBusy = false;
    bool m_isCancelled = false;
    bool m_isWaiting = false; ///< for the step, or for the library
    QLabel* m_title;
    QProgressBar* m_bar;
    QPushButton* m_button;
    QPlainTextEdit* m_list;
};

} // namespace Quillary
