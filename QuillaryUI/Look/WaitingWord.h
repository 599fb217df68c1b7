#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;
class QPushButton;

namespace Quillary {

/// What is shown while something takes its time: nothing at first, then a quiet word, then a way out of it.
class WaitingWord : public QWidget
{
    Q_OBJECT

public:
    /// "Reading the report…"
    explicit WaitingWord(const QString& words, QWidget* parent = nullptr);

    /// Something is under way; what was under way already goes on being counted from its own beginning.
    void begin();
    void end();

Q_SIGNALS:
    void appeared(); ///< the word: it takes long enough to be noticed
    void cancelled();

private:
    QTimer m_untilWord;
    QTimer m_untilCancel;
    QLabel* m_words;
    QPushButton* m_cancel;
};

} // namespace Quillary
