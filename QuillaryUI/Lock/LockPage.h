#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;

namespace Quillary {

class LockKeeper;

/// All that a locked window shows: the question for the passphrase.
class LockPage : public QWidget
{
    Q_OBJECT

public:
    explicit LockPage(LockKeeper& keeper, QWidget* parent = nullptr);

    /// Empties the field and takes the keyboard.
    void begin();

private:
    void build();
    void attempt();
    void showWait();

    LockKeeper& m_keeper;
    QLineEdit* m_passphrase;
    QPushButton* m_unlock;
    QLabel* m_error;
    QTimer m_second;
};

} // namespace Quillary
