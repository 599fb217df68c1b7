#pragma once

#include <QFrame>
#include <QPointer>
#include <QString>

#include <functional>
#include <optional>

class QFormLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace Quillary {

/// A few questions above the thing they are about. It covers the top of its host until it is answered or put away, and
/// belongs to it. Escape puts it away, Enter answers.
class Sheet : public QFrame
{
    Q_OBJECT

public:
    /// What the answer does. No value: done, the sheet goes. Else the sentence that says why not, and the sheet stays.
    using Answer = std::function<std::optional<QString>()>;

    Sheet(const QString& title, const QString& answerName, QWidget* host);

    void onAnswer(Answer answer) { m_answer = std::move(answer); }

    /// A line above the questions.
    void setExplanation(const QString& text);

    /// Instead of the usual width, for more than a few answers. Unit: pixels.
    void setWidest(int width) { m_widest = width; }

    [[nodiscard]] QFormLayout& form() { return *m_form; }
    [[nodiscard]] QVBoxLayout& body() { return *m_body; }
    [[nodiscard]] QPushButton& answerButton() { return *m_accept; }

    /// Takes the height that its questions need now, after some of them came or went.
    void fit();

    /// Slides in and takes the keyboard, which goes back to where it was when the sheet goes.
    void open(QWidget* firstField);

Q_SIGNALS:
    void answered();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void answer();
    void place();
    void setTight(bool isTight);
    [[nodiscard]] int neededHeight(int width) const;

    Answer m_answer;
    int m_widest;
    QVBoxLayout* m_body;
    QFormLayout* m_form;
    QLabel* m_explanation;
    QLabel* m_error;
    QPushButton* m_accept;
    int m_usualRowSpacing = 0;
    bool m_isTight = false;
    QPointer<QWidget> m_before; ///< what had the keyboard
};

} // namespace Quillary
